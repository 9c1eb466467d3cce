// SPDX-License-Identifier: MIT
//
// QtPointer: where the mouse is, on any screen.
#pragma once

#include <QCursor>

#include "platform/Pointer.h"

namespace scenara {

class QtPointer : public Pointer {
public:
    [[nodiscard]] PointerPosition GetCursorPos() override {
        const QPoint position = QCursor::pos();
        return {position.x(), position.y()};
    }
};

}  // namespace scenara
