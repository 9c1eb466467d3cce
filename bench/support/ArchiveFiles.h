// SPDX-License-Identifier: MIT
//
// The archives that loading is measured on: one with all generated pictures, written into a
// temporary folder that lives as long as the program, and the real ones where they are.
#pragma once

#include <string>
#include <vector>

#include "support/SamplePictures.h"

namespace scenara::bench {

const std::vector<std::string>& GeneratedArchives();
const std::vector<std::string>& SampleDataArchives();

}  // namespace scenara::bench
