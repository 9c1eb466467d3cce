// SPDX-License-Identifier: MIT
#include "base/RunTimeError.h"

#include <new>

namespace scenara {

std::string_view TextOf(RunTimeErrorKind kind) {
    switch (kind) {
        case RunTimeErrorKind::Overflow: return "Overflow";
        case RunTimeErrorKind::SubscriptOutOfRange: return "Subscript out of range";
        case RunTimeErrorKind::FileNotFound: return "File not found";
        case RunTimeErrorKind::PathFileAccess: return "Path/File access error";
        case RunTimeErrorKind::PermissionDenied: return "Permission denied";
        case RunTimeErrorKind::DiskFull: return "Disk full";
        case RunTimeErrorKind::DeviceIo: return "Device I/O error";
        case RunTimeErrorKind::InputPastEnd: return "Input past end of file";
        case RunTimeErrorKind::BadFormat: return "Bad format";
        case RunTimeErrorKind::OutOfMemory: return "Out of memory";
        case RunTimeErrorKind::InvalidPropertyValue: return "Invalid property value";
        case RunTimeErrorKind::ObjectNotSet: return "Object variable not set";
        case RunTimeErrorKind::Direct3D: return "Direct3D error";
    }
    return "Unknown error";
}

RunTimeError::RunTimeError(RunTimeErrorKind kind)
    : std::runtime_error(std::string(TextOf(kind))), kind_(kind) {}

RunTimeError::RunTimeError(RunTimeErrorKind kind, std::string_view detail)
    : std::runtime_error(std::string(TextOf(kind)).append(": ").append(detail)), kind_(kind) {}

std::string TextOfCurrentError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error.what();
    } catch (const std::bad_alloc&) {
        return std::string(TextOf(RunTimeErrorKind::OutOfMemory));
    } catch (const std::length_error&) {  // more than any machine has
        return std::string(TextOf(RunTimeErrorKind::OutOfMemory));
    }
}

}  // namespace scenara
