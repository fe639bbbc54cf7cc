// The cost of the worst files that could be thought of, one for every loop that a file controls: it
// grows no faster than the file.  Every case is a kind of file of any size; it is timed at four
// sizes, each twice the one before.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "bounds/worst_files.h"
#include "parse/containers/container.h"
#include "rawdev/pipeline.h"
#include "support/memory_stream.h"
#include "support/parse.h"
#include "text/enumerate.h"

namespace qmx::test {
namespace {

constexpr std::size_t kSmallest = 32 * 1024;
constexpr int kSteps = 4;
constexpr int kRuns = 3;

// Generous, since a machine under load and the sanitizers are to pass too; what matters is that a
// cost which grows with the square of the size would be eight times the linear one.
constexpr double kMostGrowth = 2.5;
constexpr double kMostMsPerMb = 2000;  // with both pictures, under the sanitizers
constexpr double kUnsteadyMs = 3;      // differences below it say nothing
constexpr double kSteadyMs = 100;      // from here on one run is enough
constexpr double kHopelessMs = 2000;   // it will not get better

double CpuMs() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

void ParseBothWays(const Bytes& file) {
    for (const bool wantPrimary : {false, true}) {
        BytesContext context(file);
        MemoryStream stream;
        context.ctx.outStream = &stream;
        ParseContainer(context.ctx, wantPrimary);
    }
}

void DevelopSmall(const Bytes& file) {
    RawDecodeState state;
    state.file.data = file.data();
    state.file.size = file.size();
    MemoryStream stream;
    DevelopView(state, &stream, 3);
}

// The quickest of some runs: others were disturbed.
double MeasureMs(const WorstFile& worst, std::size_t size) {
    const Bytes file = worst.build(size);
    double best = 0;
    for (int run = 0; run < kRuns; ++run) {
        const double start = CpuMs();
        if (worst.isRaw) {
            DevelopSmall(file);
        } else {
            ParseBothWays(file);
        }
        const double spent = CpuMs() - start;
        best = run == 0 ? spent : std::min(best, spent);
        if (spent > kSteadyMs) break;
    }
    return best * static_cast<double>(size) / static_cast<double>(file.size());
}

TEST(TimeBound, CostGrowsNoFasterThanTheFile) {
    for (const WorstFile& worst : WorstFiles()) {
        SCOPED_TRACE(worst.name);
        const double first = MeasureMs(worst, kSmallest);
        double last = first;
        std::size_t size = kSmallest;
        for (int step = 1; step < kSteps; ++step) {
            size *= 2;
            last = MeasureMs(worst, size);
            EXPECT_LE(last, first * (1 << step) * kMostGrowth + kUnsteadyMs) << size << " bytes";
            if (HasFailure() && last > kHopelessMs) break;
        }
        const double perMb = last / static_cast<double>(size) * 1024 * 1024;
        EXPECT_LE(perMb, kMostMsPerMb);
        std::printf("%9.2f ms per MB  %s\n", perMb, worst.name.c_str());
        std::fflush(stdout);
    }
}

}  // namespace
}  // namespace qmx::test
