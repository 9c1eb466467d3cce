// SPDX-License-Identifier: MIT
#include "stage/StageModel.h"

namespace scenara {

void StageModel::Clear() {
    *this = StageModel();
}

}  // namespace scenara
