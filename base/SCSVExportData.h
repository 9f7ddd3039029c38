#pragma once

namespace Tevra {

// What a result table writer is asked to write: which calculation stages, which of the
// building tables, and whether rows carry their stage.
struct SCSVExportData {
    int stage = -1;                 // the calculation stage to write; -1 for every stage
    int numStages = 0;              // the writers walk stages 0 to numStages - 1
    bool specificUncombined = true; // segments of specific buildings as the curve cuts them
    bool specificCombined = true;   // segments of specific buildings as the user joined them
    bool genericUncombined = true;  // segments of generic buildings as the curve cuts them
    bool genericCombined = true;    // segments of generic buildings as the user joined them
    bool leaveOutStage = false;     // true: rows have no stage column

    // Whether a stage is one to write.
    bool StageWanted(int s) const { return stage == -1 || s == stage; }
};

} // namespace Tevra
