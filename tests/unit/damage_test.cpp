// The files that the tests build, cut anywhere and with every byte changed: all promises hold.
// Under the sanitizers the view ends exactly with the file.

#include "fuzz/promises.h"
#include "support/deliver.h"
#include "support/seed_files.h"

namespace qmx::test {
namespace {

TEST(Damage, IsSurvivedByEveryContainer) {
    for (const SeedFile& seed : SeedFiles()) {
        EXPECT_TRUE(Parse(seed.bytes).parsed) << seed.name;
        ForEachDamage(seed.bytes, [](const Bytes& damaged) { fuzz::ParseBothWays(damaged); });
    }
}

}  // namespace
}  // namespace qmx::test
