#include "SStdGMCurve.h"

namespace Tevra::Data {

// The lists are points read off the published figures at round steps of x: x the
// distance behind the wall over the wall depth, y = 0 (the surface), z the movement as a
// percentage of the wall depth. Each list is used in one direction only and is built on
// first use.

const std::vector<SStdGMCurve>& SStdGMCurve::Horizontal() {
    static const std::vector<Vec3<double>> P1 = {
        {0, 0, 0.0407},   {0.05, 0, 0.0385}, {0.1, 0, 0.0363}, {0.15, 0, 0.0342},
        {0.2, 0, 0.0322}, {0.25, 0, 0.0303}, {0.3, 0, 0.0285}, {0.35, 0, 0.0267},
        {0.4, 0, 0.025},  {0.45, 0, 0.0234}, {0.5, 0, 0.0219}, {0.55, 0, 0.0204},
        {0.6, 0, 0.0189}, {0.65, 0, 0.0176}, {0.7, 0, 0.0163}, {0.75, 0, 0.015},
        {0.8, 0, 0.0138}, {0.85, 0, 0.0126}, {0.9, 0, 0.0115}, {0.95, 0, 0.0104},
        {1, 0, 0.0094},   {1.05, 0, 0.0083}, {1.1, 0, 0.0073}, {1.15, 0, 0.0064},
        {1.2, 0, 0.0054}, {1.25, 0, 0.0045}, {1.3, 0, 0.0036}, {1.35, 0, 0.0027},
        {1.4, 0, 0.0018}, {1.45, 0, 0.0009}, {1.5, 0, 0}};
    static const std::vector<Vec3<double>> P2 = {
        {0, 0, 0.0809},   {0.05, 0, 0.0762}, {0.1, 0, 0.0717}, {0.15, 0, 0.0674},
        {0.2, 0, 0.0633}, {0.25, 0, 0.0594}, {0.3, 0, 0.0557}, {0.35, 0, 0.0521},
        {0.4, 0, 0.0488}, {0.45, 0, 0.0455}, {0.5, 0, 0.0425}, {0.55, 0, 0.0395},
        {0.6, 0, 0.0367}, {0.65, 0, 0.034},  {0.7, 0, 0.0315}, {0.75, 0, 0.029},
        {0.8, 0, 0.0267}, {0.85, 0, 0.0244}, {0.9, 0, 0.0222}, {0.95, 0, 0.0202},
        {1, 0, 0.0181},   {1.05, 0, 0.0162}, {1.1, 0, 0.0143}, {1.15, 0, 0.0124},
        {1.2, 0, 0.0106}, {1.25, 0, 0.0088}, {1.3, 0, 0.007},  {1.35, 0, 0.0053},
        {1.4, 0, 0.0035}, {1.45, 0, 0.0018}, {1.5, 0, 0}};
    static const std::vector<Vec3<double>> P3 = {
        {0, 0, 0.1014},   {0.05, 0, 0.0953}, {0.1, 0, 0.0894}, {0.15, 0, 0.0837},
        {0.2, 0, 0.0783}, {0.25, 0, 0.0731}, {0.3, 0, 0.0681}, {0.35, 0, 0.0633},
        {0.4, 0, 0.0587}, {0.45, 0, 0.0544}, {0.5, 0, 0.0502}, {0.55, 0, 0.0462},
        {0.6, 0, 0.0424}, {0.65, 0, 0.0388}, {0.7, 0, 0.0354}, {0.75, 0, 0.0321},
        {0.8, 0, 0.029},  {0.85, 0, 0.0261}, {0.9, 0, 0.0233}, {0.95, 0, 0.0207},
        {1, 0, 0.0182},   {1.05, 0, 0.0158}, {1.1, 0, 0.0136}, {1.15, 0, 0.0115},
        {1.2, 0, 0.0095}, {1.25, 0, 0.0077}, {1.3, 0, 0.0059}, {1.35, 0, 0.0043},
        {1.4, 0, 0.0028}, {1.45, 0, 0.0013}, {1.5, 0, 0}};
    static const std::vector<SStdGMCurve> curves = {
        {L"No horizontal ground movement", false, false, 0, 3, {{1, 0, 0}, {0, 1, 0}, {1, 1, 0}}},
        {L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(a))", false, true,
         3, 5, P1},
        {L"Inst. of secant bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(a))", false, true, 3,
         5, P2},
        {L"Inst. of planar diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(a))",
         false,
         true,
         1,
         3,
         {{0, 0, 0.05}, {1.5, 0, 0}}},
        {L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(a))", false, true,
         3, 5, P3},
        {L"Exc. in front of high stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(a))",
         false,
         true,
         1,
         3,
         {{0, 0, 0.15}, {4, 0, 0}}},
        {L"Exc. in front of low stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(a))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.4}, {4, 0, 0}}},
        {L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(a))", false, true,
         3, 5, P1},
        {L"Inst. of secant bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(a))", false, true, 3,
         5, P2},
        {L"Inst. of planar diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(a))",
         false,
         true,
         1,
         3,
         {{0, 0, 0.05}, {1.5, 0, 0}}},
        {L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(a))", false, true,
         3, 5, P3},
        {L"Exc. in front of high stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(a))",
         false,
         true,
         1,
         3,
         {{0, 0, 0.15}, {4, 0, 0}}},
        {L"Exc. in front of low stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(a))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.4}, {4, 0, 0}}},
    };
    return curves;
}

const std::vector<SStdGMCurve>& SStdGMCurve::Vertical() {
    static const std::vector<Vec3<double>> P4 = {
        {0, 0, 0.05},     {0.05, 0, 0.0467}, {0.1, 0, 0.0434}, {0.15, 0, 0.0402},
        {0.2, 0, 0.037},  {0.25, 0, 0.0339}, {0.3, 0, 0.0309}, {0.35, 0, 0.028},
        {0.4, 0, 0.0252}, {0.45, 0, 0.0225}, {0.5, 0, 0.02},   {0.55, 0, 0.0177},
        {0.6, 0, 0.0155}, {0.65, 0, 0.0135}, {0.7, 0, 0.0116}, {0.75, 0, 0.0099},
        {0.8, 0, 0.0084}, {0.85, 0, 0.0071}, {0.9, 0, 0.0059}, {0.95, 0, 0.0048},
        {1, 0, 0.0039},   {1.05, 0, 0.0032}, {1.1, 0, 0.0026}, {1.15, 0, 0.002},
        {1.2, 0, 0.0016}, {1.25, 0, 0.0013}, {1.3, 0, 0.001},  {1.35, 0, 0.0008},
        {1.4, 0, 0.0005}, {1.45, 0, 0.0003}, {1.5, 0, 0}};
    static const std::vector<Vec3<double>> P5 = {
        {0, 0, 0.345},   {0.1, 0, 0.327}, {0.2, 0, 0.311}, {0.3, 0, 0.294}, {0.4, 0, 0.279},
        {0.5, 0, 0.264}, {0.6, 0, 0.25},  {0.7, 0, 0.237}, {0.8, 0, 0.224}, {0.9, 0, 0.212},
        {1, 0, 0.2},     {1.1, 0, 0.189}, {1.2, 0, 0.178}, {1.3, 0, 0.168}, {1.4, 0, 0.158},
        {1.5, 0, 0.149}, {1.6, 0, 0.14},  {1.7, 0, 0.132}, {1.8, 0, 0.124}, {1.9, 0, 0.116},
        {2, 0, 0.109},   {2.1, 0, 0.101}, {2.2, 0, 0.095}, {2.3, 0, 0.088}, {2.4, 0, 0.082},
        {2.5, 0, 0.076}, {2.6, 0, 0.07},  {2.7, 0, 0.065}, {2.8, 0, 0.059}, {2.9, 0, 0.054},
        {3, 0, 0.049},   {3.1, 0, 0.044}, {3.2, 0, 0.039}, {3.3, 0, 0.034}, {3.4, 0, 0.029},
        {3.5, 0, 0.025}, {3.6, 0, 0.02},  {3.7, 0, 0.015}, {3.8, 0, 0.01},  {3.9, 0, 0.005},
        {4, 0, 0}};
    static const std::vector<Vec3<double>> P6 = {
        {0, 0, 0.345},   {0.1, 0, 0.327}, {0.2, 0, 0.311}, {0.3, 0, 0.294}, {0.4, 0, 0.279},
        {0.5, 0, 0.264}, {0.6, 0, 0.25},  {0.7, 0, 0.237}, {0.8, 0, 0.224}, {0.9, 0, 0.212},
        {1, 0, 0.2},     {1.1, 0, 0.189}, {1.2, 0, 0.178}, {1.3, 0, 0.168}, {1.4, 0, 0.158},
        {1.5, 0, 0.149}, {1.6, 0, 0.14},  {1.7, 0, 0.132}, {1.8, 0, 0.124}, {1.9, 0, 0.116},
        {2, 0, 0.109},   {2.1, 0, 0.101}, {2.2, 0, 0.095}, {2.3, 0, 0.088}, {2.4, 0, 0.082},
        {2.5, 0, 0.076}, {2.6, 0, 0.068}, {2.7, 0, 0.061}, {2.8, 0, 0.053}, {2.9, 0, 0.046},
        {3, 0, 0.038},   {3.1, 0, 0.03},  {3.2, 0, 0.023}, {3.3, 0, 0.015}, {3.4, 0, 0.008},
        {3.5, 0, 0}};
    static const std::vector<Vec3<double>> P7 = {
        {0, 0, 0.039},   {0.1, 0, 0.049}, {0.2, 0, 0.056}, {0.3, 0, 0.062}, {0.4, 0, 0.067},
        {0.5, 0, 0.07},  {0.6, 0, 0.072}, {0.7, 0, 0.073}, {0.8, 0, 0.073}, {0.9, 0, 0.072},
        {1, 0, 0.07},    {1.1, 0, 0.068}, {1.2, 0, 0.065}, {1.3, 0, 0.061}, {1.4, 0, 0.058},
        {1.5, 0, 0.054}, {1.6, 0, 0.05},  {1.7, 0, 0.046}, {1.8, 0, 0.042}, {1.9, 0, 0.038},
        {2, 0, 0.034},   {2.1, 0, 0.03},  {2.2, 0, 0.027}, {2.3, 0, 0.023}, {2.4, 0, 0.02},
        {2.5, 0, 0.017}, {2.6, 0, 0.014}, {2.7, 0, 0.012}, {2.8, 0, 0.01},  {2.9, 0, 0.008},
        {3, 0, 0.007},   {3.1, 0, 0.005}, {3.2, 0, 0.004}, {3.3, 0, 0.004}, {3.4, 0, 0.003},
        {3.5, 0, 0.002}, {3.6, 0, 0.002}, {3.7, 0, 0.002}, {3.8, 0, 0.001}, {3.9, 0, 0.001},
        {4, 0, 0}};
    static const std::vector<Vec3<double>> P8 = {
        {0, 0, 0.305},   {0.1, 0, 0.268}, {0.2, 0, 0.234}, {0.3, 0, 0.203}, {0.4, 0, 0.174},
        {0.5, 0, 0.148}, {0.6, 0, 0.125}, {0.7, 0, 0.105}, {0.8, 0, 0.086}, {0.9, 0, 0.07},
        {1, 0, 0.056},   {1.1, 0, 0.044}, {1.2, 0, 0.034}, {1.3, 0, 0.025}, {1.4, 0, 0.018},
        {1.5, 0, 0.012}, {1.6, 0, 0.008}, {1.7, 0, 0.004}, {1.8, 0, 0.002}, {1.9, 0, 0.001},
        {2, 0, 0}};
    static const std::vector<SStdGMCurve> curves = {
        {L"No vertical ground movement", false, false, 1, 3, {{1, 0, 0}, {0, 1, 0}, {1, 1, 0}}},
        {L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(b))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.04}, {2, 0, 0}}},
        {L"Inst. of secant bored pile wall in stiff clay (CIRIA C580 Fig. 2.8(b))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.05}, {2, 0, 0}}},
        {L"Inst. of planar diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(b))", false, true, 4,
         5, P4},
        {L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C580 Fig. 2.9(b))", false, true,
         4, 5, P4},
        {L"Exc. in front of high stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(b))", false,
         true, 4, 5, P7},
        {L"Exc. in front of low stiffness wall in stiff clay (CIRIA C580 Fig. 2.11(b))", false,
         true, 3, 5, P5},
        {L"Exc. in front of wall in sand (CIRIA C580 Fig. 2.12)", true, true, 3, 3, P8},
        {L"Inst. of contiguous bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(b))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.04}, {2, 0, 0}}},
        {L"Inst. of secant bored pile wall in stiff clay (CIRIA C760 Fig. 6.8(b))",
         false,
         true,
         1,
         2,
         {{0, 0, 0.05}, {2, 0, 0}}},
        {L"Inst. of planar diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(b))", false, true, 4,
         5, P4},
        {L"Inst. of counterfort diaphragm wall in stiff clay (CIRIA C760 Fig. 6.9(b))", false, true,
         4, 5, P4},
        {L"Exc. in front of high stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(b))", false,
         true, 4, 5, P7},
        {L"Exc. in front of low stiffness wall in stiff clay (CIRIA C760 Fig. 6.15(b))", false,
         true, 3, 5, P6},
        {L"Exc. in front of wall in clay (CIRIA C760 Fig. 6.15(c))",
         true,
         true,
         -1,
         3,
         {{0, 0, 1}, {0.75, 0, 1}, {3.5, 0, 0}}},
        {L"Exc. in front of wall in sand (CIRIA C760 Fig. 6.16)", true, true, 3, 3, P8},
    };
    return curves;
}

} // namespace Tevra::Data
