// SPDX-License-Identifier: MIT
//
// Messages: what the program says to its user, as values.
//
// A problem is built as a Message where it is found; one place shows, prints or records it. So a
// box, the error stream and a test see the same thing. All of them are plain boxes with an OK
// button; the program goes on when it is closed.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace scenara {

// Which row of a table of failures a message belongs to, whatever its text ("WindowDelta"). Each
// room names its own; two messages of one kind are repetitions to a reader.
using MessageKind = std::string_view;

enum class MessageIcon { None, Exclamation, CriticalStop };

struct Message {
    MessageKind kind;   // a string literal
    std::string text;   // bytes as in files; lines broken by CR LF
    std::string title;  // empty: the application's title
    MessageIcon icon = MessageIcon::None;
};

class Messages {
public:
    Messages() = default;
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    virtual ~Messages() = default;

    // Returns when the user has seen it.
    virtual void Show(const Message& message) = 0;

    // The same with an offer, a box to tick, off at first. Whether the user took it; a machine that
    // cannot ask shows the message alone.
    virtual bool ShowWithOffer(const Message& message, const std::string& offer) {
        static_cast<void>(offer);
        Show(message);
        return false;
    }

    // A plain box.
    void MsgBox(MessageKind kind, std::string text) {
        Show(Message{kind, std::move(text), {}, MessageIcon::None});
    }

    // Of a file's value: a number that its field cannot hold.
    void SayOverflow(MessageKind kind, std::string_view what, std::int64_t lineNumber) {
        std::string text = "Overflow: ";
        text.append(what).append(", line ").append(std::to_string(lineNumber));
        MsgBox(kind, std::move(text));
    }
};

}  // namespace scenara
