// SPDX-License-Identifier: MIT
//
// WaitingEvents: what the user has done and the program has not yet heard of, in its order.
//
// What only tells where something stands now is out of date when it is told anew: a scroll bar that
// is moved, or the pointer, takes the place of what waits of it. So however slow the program is, it
// does not work through places that nobody wants to see any more. Between two presses of the button
// each keeps its own moves, since a drag is what happened between them.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>

#include "base/Integers.h"
#include "platform/Form.h"

namespace scenara {

class WaitingEvents {
public:
    using Event = std::function<void(FormEvents&)>;

    enum class Kind : Byte {
        Once,         // every one of them counts
        Leaving,      // so do these; the stage that is shown will be left (Window::LeavingWaits)
        Button,       // so do these, and the pointer's moves before them
        PointerMove,  // only the last one since the button's last event
        MiddleMove,   // the same, of the pointer with the middle button held
        CameraBar,    // only the last one, whatever has come in between
        SpriteBar,    // the same
        ListEdge,     // the same
        Request,      // the same, with what those before had; the stage that is shown will be left
    };

    void Add(Event event, Kind kind = Kind::Once);

    [[nodiscard]] bool Empty() const { return waiting_.empty(); }
    [[nodiscard]] std::size_t Count() const { return waiting_.size(); }
    // Whether one waits after which the stage that is shown will be left.
    [[nodiscard]] bool LeavingWaits() const;

    // There is one.
    [[nodiscard]] Event TakeFirst();

private:
    struct Waiting {
        Kind kind;
        Event event;
    };

    void ForgetOlder(Kind kind);

    std::deque<Waiting> waiting_;
};

}  // namespace scenara
