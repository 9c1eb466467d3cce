// SPDX-License-Identifier: MIT
//
// The archives that loading is measured on: those with all generated pictures, written into a
// temporary folder that lives as long as the program, and the real ones where they are.
#pragma once

#include <string>
#include <vector>

#include "support/SamplePictures.h"

namespace scenara::bench {

const std::vector<std::string>& GeneratedArchives();
// The same pictures eight times in one archive, as much as a large stage has.
const std::vector<std::string>& LargeArchive();
const std::vector<std::string>& SampleDataArchives();

}  // namespace scenara::bench
