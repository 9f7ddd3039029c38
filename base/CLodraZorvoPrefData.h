#pragma once

namespace Tevra::Data {

// The user's preferences that a run reads.
class CLodraZorvoPrefData {
  public:
    // Distance (metres) within which each of X, Y and Z of an imported point must lie of
    // a sample's for the imported displacement to be added to it. A negative value asks
    // for a test relative to the coordinates' size instead (CImportedDisplacementMatcher).
    // Default 1 mm.
    double GetImportedDisplacementTolerance() const { return m_importTolerance; }
    void SetImportedDisplacementTolerance(double t) { m_importTolerance = t; }

  private:
    double m_importTolerance = 0.001;
};

} // namespace Tevra::Data
