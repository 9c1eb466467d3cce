// SPDX-License-Identifier: MIT
//
// ShownText: the program's text as the toolkit shows it.
#pragma once

#include <QString>
#include <string_view>

#include "base/Text.h"

namespace scenara {

// The text's bytes may come from any file.
[[nodiscard]] inline QString Shown(std::string_view text) {
    return QString::fromStdString(ToUtf8(text));
}

}  // namespace scenara
