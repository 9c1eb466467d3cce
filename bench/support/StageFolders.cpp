// SPDX-License-Identifier: MIT
#include "support/StageFolders.h"

namespace scenara::bench {

std::string BundledFolder() {
    return SCENARA_BUNDLED_STAGES "/";
}

std::string SampleDataFolder() {
    return SCENARA_SAMPLE_DATA "/";
}

}  // namespace scenara::bench
