#pragma once

#include "base/CDisplacementData.h"
#include "document/ZorvoData.h"
#include "solver/CStageSources.h"
#include "sources/GeoTunnel.h"

namespace Tevra {

// The numerical core: ground movement and strain at one point, summed over the
// project's sources. Inside, displacements are millimetres with settlement positive,
// lengths and levels metres, volume loss percent; strains are in the scaled unit of
// the tunnel calculation (one tenth of the trough's natural strain unit).
// Every routine is static, keeps no state and is called from all solver threads.
class ZorvoCal {
  public:
    // Movement at a point: zDisp[0] vertical, xyDisp[0..1] horizontal X and Y (mm);
    // principal[0..2] the major and minor principal strains and the angle (radians).
    static int tun21_(const Data::ZorvoData& doc, int stage, const double& x, const double& y,
                      const double& z, Data::ESurfaceType surface, double* zDisp, double* xyDisp,
                      double* principal);
    // The same with the stage's sources prepared once for many points. With
    // outsideExcavations the caller has found the point outside every excavation of the
    // stage, and the test is not made again.
    static int tun21_(const CStageSources& sources, const double& x, const double& y,
                      const double& z, Data::ESurfaceType surface, double* zDisp, double* xyDisp,
                      double* principal, bool outsideExcavations);

    // Movement at a point for a sloping line: out[0..2] the X, Y, Z displacements (mm)
    // and out[3] the horizontal displacement along the direction (dirX, dirY).
    static int tun28_(const Data::ZorvoData& doc, int stage, const double& x, const double& y,
                      const double& z, Data::ESurfaceType surface, const double& dirX,
                      const double& dirY, double* out);
    static int tun28_(const CStageSources& sources, const double& x, const double& y,
                      const double& z, Data::ESurfaceType surface, const double& dirX,
                      const double& dirY, double* out);

    // Trough width i (metres) for a tunnel's derivations and method at a point h above
    // the axis, with hI the interface and z0 the ground above the axis. Any derivation
    // without a rule leaves i as it was. Answers 0.
    static int Get_i(Data::GeoTunnel::EkDerivation surface,
                     Data::GeoTunnel::EkDerivation subSurface,
                     Data::GeoTunnel::ESubSurfaceMethod method, Data::GeoTunnel::ESoilType soil,
                     Data::ESurfaceType surfaceType, const double& k, const double& m,
                     const double& D, const double& height, const double& interfaceHeight,
                     const double& z0, double& i);

    // Cumulative normal probability of a by a rational approximation; arguments of
    // magnitude at or above limit give exactly 0 or 1.
    static int tun25_(const double& a, double& result, const double& limit);
    // Error function of a by its power series with the given number of terms; exactly
    // +1 or -1 from |a| = 3.
    static int tun25a_(const double& a, double& result, int terms);
    // n! (1 below 2), as a double so that the series' 29! does not overflow.
    static double dfact_(int n);
    // x to the integer power n by repeated squaring.
    static double pow_ri(const double& x, int n);
    // Principal values of a plane strain state s = (ex, ey, gxy) with n = 2:
    // out[0] major, out[1] minor, out[2] angle (radians), out[3] n c, out[4] n R, out[5] R / c.
    static int tun27_(int n, const double* s, double* out);

  private:
    static constexpr double C_2 = 2.0;
    static constexpr double C_30 = 30.0;
    static constexpr int NR_TUNNEL_PARAMS = 17;
    static constexpr int NR_MINE_PARAMS = 10;
    // The influence ring method samples 40 rings of 60 sectors around a point; both
    // numbers are part of the result.
    static constexpr int NR_MINE_RINGS = 40;
    static constexpr int NR_MINE_SECTORS = 60;

    // The tests of the mine kernel reach its private steps through this.
    friend struct MineKernelTestAccess;

    // Adds every tunnel's movement (mm) and strain at a point to the running totals:
    // disp[0..2], strain[0..2] and the volume term.
    static int Tunnels(const CStageSources& sources, const double& x, const double& y,
                       double* disp, double* strain, double* volumeTerm, const double& z,
                       Data::ESurfaceType surface);

    // Subsidence of mine panels by the influence ring method: clears disp[0..2] (mm),
    // strain[0..2] and the volume term, then adds every panel's movement at the plan
    // point (x, y) (metres). ringTable holds the NR_MINE_RINGS ring weights of tun24_.
    static int Mines(const Data::ZorvoData& doc, const double& x, const double& y, double* disp,
                     double* strain, double* volumeTerm, const double* ringTable, const double& pi);
    // The ring weights of tun24_ with c = pi, worked once for the life of the program.
    static const double* MineRingTable();
    // Weights of the influence rings: the share of the Gaussian influence function
    // between the radii (j - 1)/40 and j/40 of the radius of critical area, for
    // c = pi, plus a small even share 0.00108, for j = 1 to 40.
    static int tun24_(double* ringTable, const double& c);
    // Offset of the effective panel edge from the panel edge, as a share of the depth,
    // for the width to depth ratio r of the panel.
    static int tun43_(const double& ratio, double& edge);
    // Maximum subsidence as a share of 0.9 x closure, for the width to depth ratio r.
    static int tun44_(const double& ratio, double& maxFactor);

    // Adds the movements of the excavations of the stage; a point inside one keeps
    // its tunnel movements alone (outside: the caller has found it outside them all).
    static void Excavations(const CStageSources& sources, const Vec3<double>& point,
                            double* disp, double* strain, bool outside);
};

} // namespace Tevra
