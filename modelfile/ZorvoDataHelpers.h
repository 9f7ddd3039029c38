#pragma once

#include "modelfile/ZorvoDataElement.h"

#include <memory>
#include <vector>

namespace Tevra::FileIO {

// The model file's helpers in the order their modules are written: file history,
// parameters, displacement points, lines, polylines and grids, tunnels, mines, graphic
// settings, utility dimensions, acceptance criteria and calculation options, re-entrant
// corner options, specific utilities, polylines, generic utilities, stages, stage
// properties, and the results of the displacement records last.
class ZorvoDataHelpers {
  public:
    explicit ZorvoDataHelpers(Data::ZorvoData& doc);

    const std::vector<std::unique_ptr<ZorvoDataElement>>& Helpers() const { return m_helpers; }
    // The helper of a module description; null when there is none.
    ZorvoDataElement* KeyFromHelpers(const CString& description) const;

  private:
    std::vector<std::unique_ptr<ZorvoDataElement>> m_helpers;
};

} // namespace Tevra::FileIO
