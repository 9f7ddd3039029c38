#include "CExcavationCorner.h"

namespace Tevra::Data {

CExcavationCorner::CExcavationCorner(bool stiffened, bool linearStiffening, double previousD,
                                     double previousP1Star, double previousP2Star,
                                     double previousTransition, double nextD, double nextP1Star,
                                     double nextP2Star, double nextTransition, bool arcEnabled,
                                     int verticalCurve, int horizontalCurve)
    : m_stiffened(stiffened), m_arcEnabled(arcEnabled), m_linearStiffening(linearStiffening),
      m_previousD(previousD), m_previousP1Star(previousP1Star), m_previousP2Star(previousP2Star),
      m_previousTransition(previousTransition), m_nextD(nextD), m_nextP1Star(nextP1Star),
      m_nextP2Star(nextP2Star), m_nextTransition(nextTransition),
      m_curve{horizontalCurve, verticalCurve} {}

bool CExcavationCorner::operator==(const CExcavationCorner& o) const {
    return m_stiffened == o.m_stiffened && m_arcEnabled == o.m_arcEnabled &&
           m_linearStiffening == o.m_linearStiffening && m_previousD == o.m_previousD &&
           m_previousP1Star == o.m_previousP1Star && m_previousP2Star == o.m_previousP2Star &&
           m_previousTransition == o.m_previousTransition && m_nextD == o.m_nextD &&
           m_nextP1Star == o.m_nextP1Star && m_nextP2Star == o.m_nextP2Star &&
           m_nextTransition == o.m_nextTransition && m_curve[0] == o.m_curve[0] &&
           m_curve[1] == o.m_curve[1];
}

} // namespace Tevra::Data
