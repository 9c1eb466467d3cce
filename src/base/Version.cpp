// SPDX-License-Identifier: MIT
#include "base/Version.h"

namespace scenara {

std::string VersionLine() {
    return "Scenara " SCENARA_VERSION "\n";
}

}  // namespace scenara
