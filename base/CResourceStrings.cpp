#include "CResourceStrings.h"

#include <algorithm>
#include <iterator>

namespace Tevra {

namespace {

struct Entry {
    int id;
    const wchar_t* text;
};

// By number; messages are looked up rarely, so the table is simply searched.
const Entry kTable[] = {
    // Specific utilities that cannot be assessed. 95, 96 and 260 serve rail tracks too.
    {12, L"%s %i refers to Acceptance Criteria %i.  This Acceptance Criteria is negative for %s."},
    {93, L"%s %i refers to Displacement %s %i.  This Displacement %s has not been defined."},
    {94, L"%s %i refers to Displacement %s %i.  You have specified that displacements are not "
         L"to be calculated for this Displacement %s."},
    {95, L"The start and end distances of %s %i along its %s are identical."},
    {96, L"%s %i's start or end points are beyond the extent of %s %i."},
    {109, L"Utility %i's pipe length is greater than its length."},
    {194, L"%s %i refers to Acceptance Criteria %i.  This Acceptance Criteria record does not "
          L"exist."},
    {203, L"%s %i refers to Utility Dimension %i.  This Utility Dimension deoes not exist."},
    {224, L"Utility %i's pipe segment length is zero."},
    {228, L"Utility %i's pipe segemnt length is negative"},
    // Specific utilities whose results deserve caution.
    {59, L"\"Treat polyline segments as continuous - Pullout\" is \"Yes\" for Specific Utility "
         L"%i. Results should be treated with caution as Zorvo does not account for bends."},
    {64, L"\"Treat polyline segments as continuous - Strain\" is \"Yes\" for Specific Utility "
         L"%i. Results should be treated with caution as Zorvo does not account for bends."},
    {214, L"Utility %i crosses at least one excavation in Stage %i. Its utility damage results in "
          L"that area should be treated with caution."},
    // Generic utilities that cannot be assessed, and a transect that crosses an excavation.
    {13, L"Negative number of displacement points is specified for transects of %s %i"},
    {14, L"Transect length of %s %i is negative."},
    {15, L"Transect interval of %s %i is negative"},
    {16, L"%s input for %s %i is zero."},
    {17, L"The number of displacement points specified is zero for transects of %s %i."},
    {43, L"%s %i refers to Polyline %i. This polyline has not been defined."},
    {183, L"%s %i refers to Polyline %i.  This polyline is incomplete."},
    {193, L"Generic Utility %i's pipe length is greater than its polyline's transect length."},
    {212, L"Transect %i of Generic Utility %i crosses at least one excavation in Stage %i. Its "
          L"utility damage results in that area should be treated with caution."},
    {225, L"Generic Utility %i's pipe segment length is zero"},
    {255, L"Generic Utility %i's pipe segment length is negative."},
    // Specific buildings that cannot be assessed, and one that crosses an excavation.
    {24, L"No vertical offsets input for %s building %i.\n"},
    {258, L"Building %i's settlement trough limit sensitivity is negative."},
    {260, L"%s %i's start distance along its %s is greater than its end distance."},
    {3574, L"Building %i refers to Displacement Line %i.  This displacement line has not been "
           L"defined."},
    {3575, L"Building %i's start or end points are beyond the extent of Line %i."},
    {3576, L"The start and end points of Building %i are identical."},
    {3577, L"Building %i refers to Displacement Line %i.  You have specified that displacements "
           L"are not to be calculated for this line."},
    {3582, L"Specific Building %i crosses an excavation."},
    {57, L"There should be at least a tunnel or an excavation or a set of imported "
         L"displacements for the analysis to proceed."},
    {58, L"There should be at least a mine or a set of imported displacements for the "
         L"analysis to proceed."},
    {190, L"Stage Properties %i has no value(s)."},
    {199, L"Stage Property %i refers to Stage %i which is non-existent."},
    {215, L"%s %i and %i have the same name."},
    {396, L"Tunnel %i's volume loss is negative. Volume loss to generate ground movement "
          L"towards a tunnel should be modelled using a positive value. Results should be "
          L"treated with caution and verified."},
    {353, L"Circular Excavation"},
    {356, L"Embedded Wall Excavation"},
    {3558, L"Tunnel %i is vertical.  Vertical tunnels cannot be analysed."},
    // Chart titles of ground movement curves, horizontal then vertical; %s takes the
    // axis suffix.
    {3630, L"Distance from wall / wall depth or max. excavation depth%s"},
    {3631, L"Depth / wall depth or max. excavation depth%s"},
    {3632, L"Horizontal movement / wall depth or max. excavation depth%s"},
    {3633, L"Distance from wall / wall depth or max. excavation depth%s"},
    {3634, L"Depth / wall depth or max. excavation depth%s"},
    {3635, L"Settlement / wall depth or max. excavation depth%s"},
    {3588, L"Stage: %s refers to Tunnel  %i which does not exist."},
    {3589, L"Stage: %s refers to Polygonal Excavation %i which does not exist."},
    {3590, L"Stage: %s refers to Circular Excavation %i which does not exist."},
    {3671, L"intersects"},
    {3673, L"Tunnel"},
    {3675, L"None"},
    // Labels of a building's critical values, by parameter (slope, settlement and tensile
    // strain 3864, 3865, 3854; radii 3702, 3703).
    {3702, L"Min Radius of Curvature (Hogging)"},
    {3703, L"Min Radius of Curvature (Sagging)"},
    {3808, L"Positive"},
    {3809, L"Negative"},
    // Curvature of a building segment, hogging and sagging (none is 3675).
    {3810, L"Hogging"},
    {3811, L"Sagging"},
    // Damage categories of a building segment, 0 to 4.
    {3820, L"0 (Negligible)"},
    {3821, L"1 (Very Slight)"},
    {3822, L"2 (Slight)"},
    {3823, L"3 (Moderate)"},
    {3824, L"4 (Severe)"},
    {3854, L"Max Tensile Strain"},
    {3864, L"Max Slope"},
    {3865, L"Max Settlement"},
    {3886, L"Base Model"},
    {3904, L"The following polygonal excavations have one or more re-entrant corners: %s. "},
    {3905, L"The use of re-entrant corners is permitted but not recommended.\n\nCIRIA C580/C760, "
           L"on which Zorvo's method for modelling ground movements behind walls of excavations "
           L"is based, considers only movements for points lying at right angles behind single "
           L"walls.  It does not consider how movements should be calculated within the zone of "
           L"influence of re-entrant corners, i.e. where movements would be influenced by two "
           L"walls adjacent to the re-entrant corner.  Zorvo will merely sum the effects from "
           L"both walls, making no allowance for interaction or stiffening of the corner.\n\n"
           L"Re-entrant corners should be used with caution.  Results in their vicinity should "
           L"be validated independently."},
    {4072, L"Stage Property %i refers to %s %i, but only %i %s have been specified."},
    // Titles of the record families (49616, the first, has no text).
    {31587, L"Checking for %s..."},
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
    const auto it = std::find_if(std::begin(kTable), std::end(kTable),
                                 [id](const Entry& e) { return e.id == id; });
    return it != std::end(kTable) ? it : nullptr;
}

} // namespace

bool CResourceStrings::Exists(int id) { return Find(id) != nullptr; }

CString CResourceStrings::Load(int id) {
    const Entry* e = Find(id);
    return e ? CString(e->text) : CString();
}

} // namespace Tevra
