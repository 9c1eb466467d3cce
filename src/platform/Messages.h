// SPDX-License-Identifier: MIT
//
// Messages: what the program says to its user, as values.
//
// A problem is built as a Message where it is found; one place shows, prints or records it. So a
// box, the error stream, a list and a test see the same thing. As boxes all of them are plain ones
// with an OK button; the program goes on when it is closed.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

enum class Severity : Byte {
    Note,     // nothing is wrong, or nothing is lost
    Warning,  // something is left out, or is taken otherwise than it is written
    Error,    // what was to be shown is not
};

// Which row of a table of problems a message belongs to, whatever its text. Each room names its
// own; two messages of one kind are repetitions to a reader.
struct MessageKind {
    constexpr MessageKind() = default;
    // `itsCode`: a short name that stays as it is ("overflow"), a literal.
    constexpr MessageKind(const char* itsCode, Severity itsSeverity = Severity::Note)
        : code(itsCode), severity(itsSeverity) {}

    std::string_view code;
    Severity severity = Severity::Note;

    friend constexpr bool operator==(const MessageKind& a, const MessageKind& b) {
        return a.code == b.code;
    }
    friend constexpr auto operator<=>(const MessageKind& a, const MessageKind& b) {
        return a.code <=> b.code;
    }
};

// Where in which file it is, as far as that is known.
struct MessagePlace {
    std::int64_t line = 0;    // from 1; 0: no single one
    std::int64_t column = 0;  // in bytes, from 1; 0: no single one
    std::string file = {};    // as it was opened

    friend bool operator==(const MessagePlace&, const MessagePlace&) = default;
};

enum class MessageIcon { None, Exclamation, CriticalStop };

struct Message {
    MessageKind kind;
    std::string text;        // bytes as in files; lines broken by CR LF
    std::string title = {};  // empty: the application's title
    MessageIcon icon = MessageIcon::None;
    MessagePlace place = {};
};

class Messages : NotCopied {
public:
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
    void MsgBox(MessageKind kind, std::string text, MessagePlace place = {}) {
        Show(Message{kind, std::move(text), {}, MessageIcon::None, std::move(place)});
    }

    // Of a file's value: a number that its field cannot hold.
    void SayOverflow(MessageKind kind, std::string_view what, const MessagePlace& place) {
        std::string text = "Overflow: ";
        text.append(what).append(", line ").append(std::to_string(place.line));
        MsgBox(kind, std::move(text), place);
    }
};

// Hands everything on, as of this file, and of the line that is being read, where the message does
// not know better.
class MessagesOfFile : public Messages {
public:
    // `messages` outlives it.
    MessagesOfFile(Messages& messages, std::string file)
        : messages_(messages), file_(std::move(file)) {}

    // What follows is about this line, from 1.
    void AtLine(std::int64_t line) { line_ = line; }

    void Show(const Message& message) override { messages_.Show(Placed(message)); }
    bool ShowWithOffer(const Message& message, const std::string& offer) override {
        return messages_.ShowWithOffer(Placed(message), offer);
    }

private:
    [[nodiscard]] Message Placed(Message message) const {
        if (message.place.file.empty()) {
            message.place.file = file_;
            message.place.line = message.place.line == 0 ? line_ : message.place.line;
        }
        return message;
    }

    Messages& messages_;
    std::string file_;
    std::int64_t line_ = 0;
};

}  // namespace scenara
