#include "CResourceStrings.h"

#include <algorithm>
#include <iterator>

namespace Tevra {

namespace {

struct Entry {
    int id;
    const wchar_t* text;
};

// Kept in ascending order of number so that a lookup is a binary search.
const Entry kTable[] = {
    {3886, L"Base Model"},
    // Titles of the record families (49616, the first, has no text).
    {49617, L"Units"},
    {49618, L"Specification"},
    {49619, L"Polylines"},
    {49620, L"Displacement Data"},
    {49621, L"Points"},
    {49622, L"Lines"},
    {49623, L"Polylines"},
    {49624, L"Grids"},
    {49625, L"Imported Displacements"},
    {49626, L"Background Data"},
    {49627, L"Tunnels"},
    {49628, L"Mines"},
    {49629, L"Polygonal Excavations"},
    {49630, L"Circular Excavations"},
    {49632, L"Horizontal"},
    {49633, L"Vertical"},
    {49634, L"Damage Category Strains"},
    {49635, L"Buildings"},
    {49636, L"Segment Combinations"},
    {49637, L"Buildings"},
    {49638, L"Segment Combinations"},
    {49639, L"Dimensions"},
    {49640, L"Acceptance Criteria/Parameters"},
    {49641, L"Utility Strain Calculation Options"},
    {49642, L"Specific Utilities"},
    {49643, L"Generic Utilities"},
    {49644, L"Acceptance Criteria"},
    {49645, L"Rail Tracks"},
    {49646, L"Stages"},
    {49647, L"Stage Properties"},
    {49648, L"Graphical Input"},
};

const Entry* Find(int id) {
    const auto it = std::lower_bound(std::begin(kTable), std::end(kTable), id,
                                     [](const Entry& e, int key) { return e.id < key; });
    return (it != std::end(kTable) && it->id == id) ? it : nullptr;
}

} // namespace

bool CResourceStrings::Exists(int id) { return Find(id) != nullptr; }

CString CResourceStrings::Load(int id) {
    const Entry* e = Find(id);
    return e ? CString(e->text) : CString();
}

} // namespace Tevra
