#pragma once

namespace Tevra::Data {

// The user's preferences that a run reads.
class CLodraZorvoPrefData {
  public:
    // Plan distance within which an imported displacement matches a sample (metres).
    double GetImportedDisplacementTolerance() const { return m_importTolerance; }
    void SetImportedDisplacementTolerance(double t) { m_importTolerance = t; }

  private:
    double m_importTolerance = 0.001;
};

} // namespace Tevra::Data
