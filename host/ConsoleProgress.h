#pragma once

#include "document/ZorvoData.h"
#include "solver/MessageHandler.h"

#include <ostream>
#include <string>

namespace Tevra {

// A progress bar on a text stream, fed by the solver's messages: one line per family
// of a stage, redrawn at each tick against the ticks that family will send.
class ConsoleProgress : public MessageHandler {
  public:
    ConsoleProgress(std::ostream& out, const Data::ZorvoData& doc) : m_out(out), m_doc(doc) {}

    void OnMessage(const wchar_t* text, long long code) override;
    // Ends the current bar's line.
    void Finish();

  private:
    void Draw();

    std::ostream& m_out;
    const Data::ZorvoData& m_doc;
    int m_expected = 1;
    std::string m_label;
    int m_ticks = 0;
    bool m_open = false;
};

} // namespace Tevra
