#pragma once

#include <atomic>

namespace Tevra {

// A manual-reset event: set from any thread, tested without waiting by the thread that
// runs a check pass.
class CEvent {
  public:
    void SetEvent() { m_set.store(true, std::memory_order_release); }
    void ResetEvent() { m_set.store(false, std::memory_order_release); }
    // What a zero-timeout wait tells: whether the event is signalled.
    bool IsSignalled() const { return m_set.load(std::memory_order_acquire); }

  private:
    std::atomic<bool> m_set{false};
};

} // namespace Tevra
