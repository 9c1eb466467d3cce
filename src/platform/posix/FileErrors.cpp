// SPDX-License-Identifier: MIT
#include "platform/posix/FileErrors.h"

#include <cerrno>
#include <system_error>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

RunTimeErrorKind KindOf(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG: return RunTimeErrorKind::FileNotFound;
        case EACCES:
        case EPERM:
        case EROFS: return RunTimeErrorKind::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return RunTimeErrorKind::DiskFull;
        case EIO: return RunTimeErrorKind::DeviceIo;
        default: return RunTimeErrorKind::PathFileAccess;
    }
}

}  // namespace

void Fail(int error, const std::string& path) {
    const RunTimeErrorKind kind = KindOf(error);
    const std::string reason = kind == RunTimeErrorKind::PathFileAccess
                                   ? " (" + std::generic_category().message(error) + ")"
                                   : std::string();
    throw RunTimeError(kind, path + reason);
}

void FailAsNoFile(const std::string& path) {
    throw RunTimeError(RunTimeErrorKind::PathFileAccess, path + " (not a file)");
}

bool HasZeroByte(const std::string& path) {
    return path.find('\0') != std::string::npos;
}

const std::string& CheckedName(const std::string& path) {
    if (HasZeroByte(path)) {
        Fail(ENOENT, path);
    }
    return path;
}

}  // namespace scenara
