// SPDX-License-Identifier: MIT
//
// RunTimeError: the one failure channel of the program.
//
// A procedure that cannot do what it was asked for raises it; whoever handles one item (a sprite,
// a key, an event from the window) catches it there and turns it into that item's message. what()
// is a sentence for people: the name of the error, and behind a colon what it happened to
// ("Overflow: 40000 as a 16-bit number"). No error travels as a code or as a flag.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace scenara {

enum class RunTimeErrorKind {
    Overflow,              // a number that its field cannot hold
    SubscriptOutOfRange,   // an index outside its table
    FileNotFound,          // no file of that name
    PathFileAccess,        // something is there that cannot be opened as a file
    PermissionDenied,      // the system does not allow it
    DiskFull,              // no room for what was to be written
    DeviceIo,              // reading or writing failed half-way
    InputPastEnd,          // fewer bytes there than wanted
    BadFormat,             // bytes that are not what they claim to be
    OutOfMemory,           // more than the machine has
    InvalidPropertyValue,  // what a control does not take
    ObjectNotSet,          // something that is used is not there, such as a device
    Direct3D,              // a call of the graphics device failed
};

// The name of an error as people read it, such as "Subscript out of range".
[[nodiscard]] std::string_view TextOf(RunTimeErrorKind kind);

class RunTimeError : public std::runtime_error {
public:
    explicit RunTimeError(RunTimeErrorKind kind);
    RunTimeError(RunTimeErrorKind kind, std::string_view detail);

    [[nodiscard]] RunTimeErrorKind Kind() const { return kind_; }

private:
    RunTimeErrorKind kind_;
};

// In a catch block: what the error under way says to people, memory that is not there included.
// Raises it again when it is neither that nor a RunTimeError, and so a mistake of the program's.
[[nodiscard]] std::string TextOfCurrentError();

}  // namespace scenara
