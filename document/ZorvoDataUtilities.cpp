#include "ZorvoData.h"

#include <algorithm>

namespace Tevra::Data {

namespace {

struct SStandardDimension {
    const wchar_t* name;
    double internalDiameter; // metres
    double wallThickness;    // metres
};

// The standard library of pipe sections, in the order in which every project holds them.
const SStandardDimension kStandardDimensions[] = {
    // Ductile iron pipes to BS EN 969:2009, by DN size.
    {L"Ductile Iron - BS En 969:2009 - DN 40", 0.044, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 50", 0.054, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 60", 0.065, 0.006},
    // A bore of 7 mm for DN 65: the library's value, kept as it stands.
    {L"Ductile Iron - BS En 969:2009 - DN 65", 0.007, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 80", 0.086, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 100", 0.106, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 125", 0.132, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 150", 0.158, 0.006},
    {L"Ductile Iron - BS En 969:2009 - DN 200", 0.2094, 0.0063},
    {L"Ductile Iron - BS En 969:2009 - DN 250", 0.2604, 0.0068},
    {L"Ductile Iron - BS En 969:2009 - DN 300", 0.3116, 0.0072},
    {L"Ductile Iron - BS En 969:2009 - DN 350", 0.3626, 0.0077},
    {L"Ductile Iron - BS En 969:2009 - DN 400", 0.4128, 0.0081},
    {L"Ductile Iron - BS En 969:2009 - DN 450", 0.4628, 0.0086},
    {L"Ductile Iron - BS En 969:2009 - DN 500", 0.514, 0.009},
    {L"Ductile Iron - BS En 969:2009 - DN 600", 0.6152, 0.0099},
    {L"Ductile Iron - BS En 969:2009 - DN 700", 0.7164, 0.0108},
    {L"Ductile Iron - BS En 969:2009 - DN 800", 0.8186, 0.0117},
    {L"Ductile Iron - BS En 969:2009 - DN 900", 0.9198, 0.0126},
    {L"Ductile Iron - BS En 969:2009 - DN 1000", 1.021, 0.0135},
    {L"Ductile Iron - BS En 969:2009 - DN 1100", 1.1232, 0.0144},
    {L"Ductile Iron - BS En 969:2009 - DN 1200", 1.2244, 0.0153},
    {L"Ductile Iron - BS En 969:2009 - DN 1400", 1.4278, 0.0171},
    {L"Ductile Iron - BS En 969:2009 - DN 1600", 1.6302, 0.0189},
    // Cast iron pipes to BS 78 (1917), Class A, by nominal size in inches. Row 27's name,
    // "Class A- ND 5in", has no blank before the hyphen: it is the library's name as it stands.
    {L"Cast Iron - BS78-1917, Class A - ND 3in", 0.0762, 0.00965},
    {L"Cast Iron - BS78-1917, Class A - ND 4in", 0.1016, 0.00991},
    {L"Cast Iron - BS78-1917, Class A- ND 5in", 0.127, 0.01041},
    {L"Cast Iron - BS78-1917, Class A - ND 6in", 0.1524, 0.01092},
    {L"Cast Iron - BS78-1917, Class A - ND 7in", 0.1778, 0.01143},
    {L"Cast Iron - BS78-1917, Class A - ND 8in", 0.2032, 0.01194},
    {L"Cast Iron - BS78-1917, Class A - ND 9in", 0.2286, 0.01245},
    {L"Cast Iron - BS78-1917, Class A - ND 10in", 0.254, 0.01321},
    {L"Cast Iron - BS78-1917, Class A - ND 12in", 0.3048, 0.01397},
    {L"Cast Iron - BS78-1917, Class A - ND 14in", 0.3556, 0.01448},
    {L"Cast Iron - BS78-1917, Class A - ND 15in", 0.381, 0.01499},
    {L"Cast Iron - BS78-1917, Class A - ND 16in", 0.4064, 0.01524},
    {L"Cast Iron - BS78-1917, Class A - ND 18in", 0.4572, 0.016},
    {L"Cast Iron - BS78-1917, Class A - ND 20in", 0.508, 0.01651},
    {L"Cast Iron - BS78-1917, Class A - ND 21in", 0.5334, 0.01702},
    {L"Cast Iron - BS78-1917, Class A - ND 22in", 0.5588, 0.01727},
    {L"Cast Iron - BS78-1917, Class A - ND 24in", 0.6096, 0.01803},
    {L"Cast Iron - BS78-1917, Class A - ND 26in", 0.6604, 0.0188},
    {L"Cast Iron - BS78-1917, Class A - ND 27in", 0.6858, 0.01905},
    {L"Cast Iron - BS78-1917, Class A - ND 28in", 0.7112, 0.0193},
    {L"Cast Iron - BS78-1917, Class A - ND 30in", 0.762, 0.02007},
    {L"Cast Iron - BS78-1917, Class A - ND 32in", 0.8128, 0.02083},
    {L"Cast Iron - BS78-1917, Class A - ND 33in", 0.8382, 0.02108},
    {L"Cast Iron - BS78-1917, Class A - ND 36in", 0.9144, 0.0221},
    {L"Cast Iron - BS78-1917, Class A - ND 38in", 0.9652, 0.02286},
    {L"Cast Iron - BS78-1917, Class A - ND 40in", 1.016, 0.02337},
    {L"Cast Iron - BS78-1917, Class A - ND 42in", 1.0668, 0.02413},
    {L"Cast Iron - BS78-1917, Class A - ND 44in", 1.1176, 0.02489},
    {L"Cast Iron - BS78-1917, Class A - ND 46in", 1.1684, 0.0254},
    {L"Cast Iron - BS78-1917, Class A - ND 48in", 1.2192, 0.02616},
    // Steel pipes by external diameter: the name gives the external diameter while the
    // value stored is the bore, as the library has always held them.
    {L"Steel - OD 26.9mm", 0.0229, 0.002},
    {L"Steel - OD 33.7mm", 0.0297, 0.002},
    {L"Steel - OD 42.4mm", 0.0384, 0.002},
    {L"Steel - OD 48.3mm", 0.0443, 0.002},
    {L"Steel - OD 60.3mm", 0.0563, 0.002},
    {L"Steel - OD 76.1mm", 0.0721, 0.002},
    {L"Steel - OD 88.9mm", 0.0849, 0.002},
    {L"Steel - OD 114.3mm", 0.1103, 0.002},
    {L"Steel - OD 139.7mm", 0.1357, 0.002},
    {L"Steel - OD 168.3mm", 0.1643, 0.002},
    {L"Steel - OD 219.1mm", 0.2151, 0.002},
    {L"Steel - OD 273mm", 0.269, 0.002},
    {L"Steel - OD 323mm", 0.3178, 0.0026},
    {L"Steel - OD 355mm", 0.3498, 0.0026},
    {L"Steel - OD 406mm", 0.4008, 0.0026},
    {L"Steel - OD 457mm", 0.4506, 0.0032},
    {L"Steel - OD 508mm", 0.5016, 0.0032},
    {L"Steel - OD 610mm", 0.6036, 0.0032},
    {L"Steel - OD 660mm", 0.651, 0.0045},
    {L"Steel - OD 711mm", 0.702, 0.0045},
    {L"Steel - OD 762mm", 0.753, 0.0045},
    {L"Steel - OD 813mm", 0.804, 0.0045},
    {L"Steel - OD 864mm", 0.855, 0.0045},
    {L"Steel - OD 914mm", 0.905, 0.0045},
    {L"Steel - OD 1.016m", 1.007, 0.0045},
    {L"Steel - OD 1.067m", 1.057, 0.005},
    {L"Steel - OD 1.118m", 1.108, 0.005},
    {L"Steel - OD 1.168m", 1.158, 0.005},
    {L"Steel - OD 1.219m", 1.209, 0.005},
    {L"Steel - OD 1.321m", 1.3098, 0.0056},
    {L"Steel - OD 1.422m", 1.4108, 0.0056},
    {L"Steel - OD 1.524m", 1.5114, 0.0063},
    {L"Steel - OD 1.626m", 1.6134, 0.0063},
    {L"Steel - OD 1.727m", 1.7128, 0.0071},
    {L"Steel - OD 1.829m", 1.8148, 0.0071},
    {L"Steel - OD 1.93m", 1.914, 0.008},
    {L"Steel - OD 2.032m", 2.016, 0.008},
    // Ductile iron pipes to BS EN 598:2007, by DN size.
    {L"Ductile Iron - BS En 598:2007 - DN 80", 0.0912, 0.0034},
    {L"Ductile Iron - BS En 598:2007 - DN 100", 0.113, 0.0025},
    {L"Ductile Iron - BS En 598:2007 - DN 125", 0.139, 0.0025},
    {L"Ductile Iron - BS En 598:2007 - DN 150", 0.165, 0.0025},
    {L"Ductile Iron - BS En 598:2007 - DN 200", 0.216, 0.003},
    {L"Ductile Iron - BS En 598:2007 - DN 250", 0.267, 0.0035},
    {L"Ductile Iron - BS En 598:2007 - DN 300", 0.318, 0.004},
    {L"Ductile Iron - BS En 598:2007 - DN 350", 0.3694, 0.0043},
    {L"Ductile Iron - BS En 598:2007 - DN 400", 0.4198, 0.0046},
    {L"Ductile Iron - BS En 598:2007 - DN 450", 0.4702, 0.0049},
    {L"Ductile Iron - BS En 598:2007 - DN 500", 0.5216, 0.0052},
    {L"Ductile Iron - BS En 598:2007 - DN 600", 0.6234, 0.0058},
    {L"Ductile Iron - BS En 598:2007 - DN 700", 0.7228, 0.0076},
    {L"Ductile Iron - BS En 598:2007 - DN 800", 0.8254, 0.0083},
    {L"Ductile Iron - BS En 598:2007 - DN 900", 0.927, 0.009},
    {L"Ductile Iron - BS En 598:2007 - DN 1000", 1.0286, 0.0097},
    {L"Ductile Iron - BS En 598:2007 - DN 1100", 1.128, 0.012},
    {L"Ductile Iron - BS En 598:2007 - DN 1200", 1.2294, 0.0128},
    {L"Ductile Iron - BS En 598:2007 - DN 1400", 1.4332, 0.0144},
    {L"Ductile Iron - BS En 598:2007 - DN 1500", 1.5348, 0.0151},
    {L"Ductile Iron - BS En 598:2007 - DN 1600", 1.636, 0.016},
    {L"Ductile Iron - BS En 598:2007 - DN 1800", 1.8398, 0.0176},
    {L"Ductile Iron - BS En 598:2007 - DN 2000", 2.0436, 0.0192},
};

} // namespace

void ZorvoData::CreateStandardUtilityDimensions() {
    m_utilityDimensions.Clear();
    for (const SStandardDimension& row : kStandardDimensions) {
        CUtilityDimension d(false);
        d.SetName(row.name);
        d.SetInternalDiameter(row.internalDiameter);
        d.SetWallThickness(row.wallThickness);
        m_utilityDimensions.Items().push_back(d);
    }
}

// The library of criteria is made by editing one working record, renamed and pushed for
// each row. A row sets only some fields and the others keep what the rows before left
// there, so that later rows carry values of earlier ones: the rotation and pullout values
// of rows 13 to 20 with the flags that rows 11 and 12 cleared, the thresholds of row 10,
// the compression value of row 14 in row 15 with its flag cleared from there on, and the
// pullout factor 1 of rows 9 to 12 to the end. The library holds its rows so; the carried
// values are deliberate, not to be tidied.
void ZorvoData::CreateStandardAcceptanceCriteria() {
    m_acceptanceCriteria.Clear();
    CAcceptanceCriteria c(false);
    c.DefaultValues();
    auto push = [&](const wchar_t* name) {
        c.SetName(name);
        m_acceptanceCriteria.Items().push_back(c);
    };
    // Strains (microstrain), rotations (degrees), pullouts (metres).
    auto strains = [&](double tension, double compression) {
        c.SetAllowableStrain_Tension(tension);
        c.SetAllowableStrain_Compression(compression);
    };
    auto limits = [&](double rotationLimit, double pulloutLimit) {
        c.SetRotation_Limit(rotationLimit);
        c.SetPullout_Limit(pulloutLimit);
    };
    auto thresholdsAndLimits = [&](double rotationThreshold, double rotationLimit,
                                   double pulloutThreshold, double pulloutLimit) {
        c.SetRotation_Threshold(rotationThreshold);
        c.SetPullout_Threshold(pulloutThreshold);
        limits(rotationLimit, pulloutLimit);
    };
    auto factors = [&](double axialTension, double axialCompression) {
        c.SetAxialStrainRF_Tension(axialTension);
        c.SetAxialStrainRF_Compression(axialCompression);
    };
    auto noRotationOrPullout = [&]() {
        c.SetRotation_Threshold_Used(false);
        c.SetRotation_Limit_Used(false);
        c.SetPullout_Threshold_Used(false);
        c.SetPullout_Limit_Used(false);
    };

    // Low and medium pressure cast iron mains with lead yarn joints under traffic.
    const struct {
        const wchar_t* name;
        double tension, rotationThreshold, rotationLimit, pulloutThreshold, pulloutLimit;
    } castIron[] = {
        {L"LP, Cast Iron, <305mm, trafficked, lead yarn joints", 98, 0.025, 0.15, 0.0001, 0.0004},
        {L"LP, Cast Iron, 305mm<D<610mm, trafficked, lead yarn joints", 148, 0.02, 0.12, 0.0001,
         0.0006},
        {L"LP, Cast Iron, 610mm<D<914mm, trafficked, lead yarn joints", 148, 0.015, 0.09, 0.0001,
         0.0007},
        {L"LP, Cast Iron, >914mm, trafficked, lead yarn joints", 148, 0.01, 0.06, 0.0001, 0.0007},
        {L"MP, Cast Iron, <305mm, trafficked, lead yarn joints", 98, 0.0021, 0.0129, 8.6e-06,
         3.43e-05},
        {L"MP, Cast Iron, 305mm<D<610mm, trafficked, lead yarn joints", 148, 0.0017, 0.0103,
         8.6e-06, 5.14e-05},
        {L"MP, Cast Iron, 610mm<D<914mm, trafficked, lead yarn joints", 148, 0.0013, 0.0077,
         8.6e-06, 6e-05},
        {L"MP, Cast Iron, >914mm, trafficked, lead yarn joints", 148, 0.0009, 0.0051, 8.6e-06,
         6e-05},
    };
    for (const auto& row : castIron) {
        strains(row.tension, 1200);
        thresholdsAndLimits(row.rotationThreshold, row.rotationLimit, row.pulloutThreshold,
                            row.pulloutLimit);
        factors(0.4, 1);
        c.SetPulloutRF_Axial(0.216);
        push(row.name);
    }
    // Ductile iron with rubber gasket joints.
    for (const wchar_t* name : {L"Ductile Iron, <305mm, rubber gasket joints",
                                L"Ductile Iron, >305mm, rubber gasket joints"}) {
        strains(498, 700);
        thresholdsAndLimits(1.5, 1.5, 0.025, 0.025);
        factors(0.2, 1);
        c.SetPulloutRF_Axial(1);
        push(name);
    }
    // Welded steel: strain only.
    for (const wchar_t* name : {L"Steel <305mm", L"Steel >305mm"}) {
        strains(448, 450);
        factors(0.2, 1);
        c.SetPulloutRF_Axial(1);
        noRotationOrPullout();
        push(name);
    }
    // By material.
    strains(100, 1200);
    limits(0.1, 0.015);
    factors(0.2, 0.2);
    push(L"Cast Iron, lead yarn joints");

    strains(500, 700);
    limits(1.5, 0.025);
    factors(0.2, 0.2);
    push(L"Ductile Iron, rubber gasket joints");

    c.SetAllowableStrain_Tension(500);
    c.SetAllowableStrain_Compression_Used(false);
    limits(1.5, 0.025);
    factors(1, 0);
    push(L"Brick");

    for (const wchar_t* name : {L"Verified Clay", L"Concrete"}) {
        strains(100, 1200);
        limits(0.5, 0.0075);
        factors(0.2, 0.2);
        push(name);
    }

    strains(100, 1200);
    limits(0.1, 0.015);
    factors(0.2, 1);
    push(L"Cast Iron, lead yarn joints");

    strains(500, 700);
    limits(1.5, 0.025);
    factors(0.2, 1);
    push(L"Ductile Iron, rubber gasket joints");

    strains(450, 450);
    limits(1.5, 0.025);
    factors(0.2, 1);
    push(L"Steel");
}

int ZorvoData::NumEditableUtilityDimensions() const {
    const auto& rows = m_utilityDimensions.Items();
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [](const CUtilityDimension& d) { return d.GetEditable(); }));
}

int ZorvoData::NumEditableAcceptanceCriteria() const {
    const auto& rows = m_acceptanceCriteria.Items();
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [](const CAcceptanceCriteria& c) { return c.GetEditable(); }));
}

double ZorvoData::GetSpecificUtilityDiameter(int utility) const {
    return GetUtilityDimension(GetSpecificUtility(utility).GetDimension()).GetDiameter();
}

int ZorvoData::GetMaxSubUtilityNameLength() const {
    int longest = 0;
    for (const CSpecificUtility& u : m_specificUtilities.Items())
        longest = std::max(longest, u.GetSubUtilityName().GetLength());
    return longest;
}

bool ZorvoData::AreSpecificUtilitiesVisible() const {
    const auto& all = m_specificUtilities.Items();
    return std::any_of(all.begin(), all.end(),
                       [](const CSpecificUtility& u) { return u.GetShow(); });
}

bool ZorvoData::AreGenericUtilitiesVisible() const {
    const auto& all = m_genericUtilities.Items();
    return std::any_of(all.begin(), all.end(),
                       [](const CGenericUtility& u) { return u.GetShow(); });
}

} // namespace Tevra::Data
