#pragma once

namespace Tevra {

// A window of the host that receives progress messages from the check passes.
class CMessageWindow {
  public:
    virtual ~CMessageWindow() = default;
    virtual void SendMessageW(unsigned int message, long long wParam, long long lParam) = 0;
};

} // namespace Tevra
