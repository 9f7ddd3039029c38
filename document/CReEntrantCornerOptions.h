#pragma once

namespace Tevra::Data {

// Whether excavation results are also calculated with re-entrant corners smoothed,
// which doubles the calculation stages.
class CReEntrantCornerOptions {
  public:
    bool GetReEntrantCornerSmoothing() const { return m_smoothing; }
    void SetReEntrantCornerSmoothing(bool on) { m_smoothing = on; }
    bool operator==(const CReEntrantCornerOptions& o) const { return m_smoothing == o.m_smoothing; }

  private:
    bool m_smoothing = false;
};

} // namespace Tevra::Data
