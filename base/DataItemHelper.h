#pragma once

#include "CString.h"

#include <vector>

namespace Tevra::FileIO {

// Root of the model file's helpers: one helper per kind of data, each reading and
// writing one module. Messages a helper would show the user in a box are collected
// here for the host to show.
class DataItemHelper {
  public:
    enum EBoxStyle { eBoxPlain = 0, eBoxInformation = 64 };
    struct SMessage {
        CString text;
        EBoxStyle style;
    };

    DataItemHelper() = default;
    virtual ~DataItemHelper() = default;

    // Records a message for the user; answers the result the caller passes on.
    int DisplayMessageBox(const CString& text, EBoxStyle style, int result) {
        m_messages.push_back({text, style});
        return result;
    }
    const std::vector<SMessage>& Messages() const { return m_messages; }
    void ClearMessages() { m_messages.clear(); }

  private:
    std::vector<SMessage> m_messages;
};

} // namespace Tevra::FileIO
