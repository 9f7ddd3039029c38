#pragma once

namespace Tevra::Util {

// How a number is turned into text for display (see Vesk::StringFrom). Formats:
//  0  general: the shortest text that reads back to the same double;
//  2  fixed: a set number of decimal places, optionally without trailing zeros, and with
//     the force-decimal switch a point even when no decimals remain ("2.");
//  3  scientific: one digit before the point, significant figures - 1 after it, then "e",
//     the exponent's sign and at least two exponent digits ("1.23457e+03" at 6 figures).
// Any other format is written as format 0.
class CNumFormat {
  public:
    int GetFormat() const { return m_format; }
    void SetFormat(int format) { m_format = format; }

    int GetDecPla() const { return m_decimals; }
    bool GetTrimZeros() const { return m_trimZeros; }
    // Decimal places of the fixed format (0 to 17; others are clamped), and whether
    // trailing zeros after the point are dropped.
    void SetDecDecPla(int decimals, bool trimZeros) {
        m_decimals = decimals < 0 ? 0 : (decimals > 17 ? 17 : decimals);
        m_trimZeros = trimZeros;
    }

    bool GetForceDec() const { return m_forceDec; }
    // In the fixed format, always write a decimal point.
    void SetForceDec(bool force) { m_forceDec = force; }

    int GetSciSigFig() const { return m_sigFigs; }
    // Significant figures of the scientific format (1 to 17; others are clamped).
    void SetSciSigFig(int sigFigs) { m_sigFigs = sigFigs < 1 ? 1 : (sigFigs > 17 ? 17 : sigFigs); }

  private:
    int m_format = 0;
    int m_decimals = 3;
    bool m_trimZeros = false;
    bool m_forceDec = false;
    int m_sigFigs = 6;
};

} // namespace Tevra::Util
