// The frame shared by the solver's family loops, for the source files of the solver.
#pragma once

#include "solver/ZorvoSolver.h"

#include <omp.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <vector>

namespace Tevra {

namespace FamilyLoopDetail {

// floor(total part / parts) without forming total part, which may not fit.
inline long long Share(long long total, long long part, long long parts) {
    return total / parts * part + total % parts * part / parts;
}

inline long long CeilDiv(long long a, long long b) { return (a + b - 1) / b; }

} // namespace FamilyLoopDetail

template <class Shape, class Body>
void ZorvoSolver::FamilyLoop(long long code, int stage, int count, bool zeroBased, Shape shape,
                             Body body) {
    if (count > 0)
        SendStageMsg(code, stage);
    const int step = TickStep(count);
    const int first = zeroBased ? 0 : 1;
    const size_t n = static_cast<size_t>(std::max(count, 0));

    // Every object takes at least one row, so that some thread meets it and ticks it
    // even when it has nothing to calculate. A row weighs its samples; start[k] is the
    // weight of the objects before object k.
    std::vector<SObjectRows> objects(n);
    std::vector<long long> start(n + 1, 0);
    // Rows still to be finished of each object, counted down by the runs of the threads
    // that share it, so that the run that finishes it last sends its tick.
    std::unique_ptr<std::atomic<int>[]> left(new std::atomic<int>[n]);
    auto slots = [&objects](size_t k) { return std::max(objects[k].rows, 1); };
    for (size_t k = 0; k < n; ++k) {
        objects[k] = shape(first + static_cast<int>(k));
        objects[k].columns = std::max(objects[k].columns, 1);
        start[k + 1] = start[k] + static_cast<long long>(slots(k)) * objects[k].columns;
        left[k].store(slots(k), std::memory_order_relaxed);
    }
    const long long total = start[n];

    // Rows [r0, r1) of object k, and its tick if they finish it.
    auto run = [&](size_t k, int r0, int r1) {
        const SObjectRows& o = objects[k];
        if (!o.wanted)
            return;
        const int i = first + static_cast<int>(k);
        int done = 0;
        if (o.rows == 0)
            done = LoopCancelled() ? 0 : 1;
        else
            done = body(i, r0, r1);
        // A cancelled object is never finished and never ticks.
        if (done < r1 - r0)
            return;
        const bool whole = r0 == 0 && r1 == slots(k);
        if (!whole && left[k].fetch_sub(done, std::memory_order_acq_rel) != done)
            return;
        const int number = zeroBased ? i + 1 : i;
        if (number % step == 0) {
#pragma omp critical(ZorvoSolverTick)
            SendMsg(nullptr, 0);
        }
    };

    // Static schedule: thread t takes the rows that start within its equal share
    // [lo, hi) of the samples, in order. Once cancelled, a thread's runs fall through.
#pragma omp parallel
    {
        const long long threads = omp_get_num_threads();
        const long long t = omp_get_thread_num();
        const long long lo = FamilyLoopDetail::Share(total, t, threads);
        const long long hi = FamilyLoopDetail::Share(total, t + 1, threads);
        if (lo < hi) {
            size_t k = static_cast<size_t>(std::upper_bound(start.begin(), start.end(), lo) -
                                           start.begin()) -
                       1;
            long long r = FamilyLoopDetail::CeilDiv(lo - start[k], objects[k].columns);
            for (; k < n && start[k] + r * objects[k].columns < hi; ++k, r = 0) {
                if (r >= slots(k))
                    continue;
                const long long end =
                    std::min<long long>(slots(k), FamilyLoopDetail::CeilDiv(hi - start[k], objects[k].columns));
                run(k, static_cast<int>(r), static_cast<int>(end));
            }
        }
    }
}

} // namespace Tevra
