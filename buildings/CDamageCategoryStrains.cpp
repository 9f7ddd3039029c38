#include "CDamageCategoryStrains.h"

#include <algorithm>
#include <iterator>

namespace Tevra::Data {

const double CDamageCategoryStrains::STANDARD_STRAIN_LIMITS[NUM_CATEGORIES] = {0.0, 0.0005, 0.00075,
                                                                               0.0015, 0.003};
const int CDamageCategoryStrains::DAMAGE_CATEGORY_STRING_IDS[NUM_CATEGORIES] = {3820, 3821, 3822,
                                                                                3823, 3824};
const wchar_t* const CDamageCategoryStrains::DEFAULT_NAME = L"Damage Category Strains #";
const wchar_t* const CDamageCategoryStrains::BURLAND_NAME = L"Burland Strain Limits";

CDamageCategoryStrains::CDamageCategoryStrains() { Empty(); }

void CDamageCategoryStrains::Empty() {
    m_name = DEFAULT_NAME;
    std::copy(std::begin(STANDARD_STRAIN_LIMITS), std::end(STANDARD_STRAIN_LIMITS),
              std::begin(m_strainLimits));
}

bool CDamageCategoryStrains::operator==(const CDamageCategoryStrains& o) const {
    return m_name == o.m_name && std::equal(std::begin(m_strainLimits), std::end(m_strainLimits),
                                            std::begin(o.m_strainLimits));
}

} // namespace Tevra::Data
