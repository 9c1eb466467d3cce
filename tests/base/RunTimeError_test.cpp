// SPDX-License-Identifier: MIT
#include "base/RunTimeError.h"

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace scenara {
namespace {

struct Row {
    RunTimeErrorKind kind;
    std::string_view text;
};

constexpr std::array<Row, 12> kRows = {{
    {RunTimeErrorKind::Overflow, "Overflow"},
    {RunTimeErrorKind::SubscriptOutOfRange, "Subscript out of range"},
    {RunTimeErrorKind::FileNotFound, "File not found"},
    {RunTimeErrorKind::PathFileAccess, "Path/File access error"},
    {RunTimeErrorKind::PermissionDenied, "Permission denied"},
    {RunTimeErrorKind::DiskFull, "Disk full"},
    {RunTimeErrorKind::DeviceIo, "Device I/O error"},
    {RunTimeErrorKind::InputPastEnd, "Input past end of file"},
    {RunTimeErrorKind::BadFormat, "Bad format"},
    {RunTimeErrorKind::OutOfMemory, "Out of memory"},
    {RunTimeErrorKind::ObjectNotSet, "Object variable not set"},
    {RunTimeErrorKind::Direct3D, "Direct3D error"},
}};

TEST(RunTimeError, EveryKindHasItsName) {
    for (const Row& row : kRows) {
        EXPECT_EQ(TextOf(row.kind), row.text);
    }
}

TEST(RunTimeError, SaysItsNameAndKeepsItsKind) {
    for (const Row& row : kRows) {
        const RunTimeError error(row.kind);
        EXPECT_EQ(error.Kind(), row.kind);
        EXPECT_EQ(error.what(), row.text);
    }
}

TEST(RunTimeError, SaysWhatItHappenedToBehindAColon) {
    const RunTimeError error(RunTimeErrorKind::Overflow, "40000 as a 16-bit number");
    EXPECT_EQ(error.Kind(), RunTimeErrorKind::Overflow);
    EXPECT_STREQ(error.what(), "Overflow: 40000 as a 16-bit number");
}

TEST(RunTimeError, KeepsItsTextWhenTheDetailIsGone) {
    const auto make = [] {
        const std::string detail(100, 'x');
        return RunTimeError(RunTimeErrorKind::FileNotFound, detail);
    };
    EXPECT_EQ(make().what(), "File not found: " + std::string(100, 'x'));
}

TEST(RunTimeError, IsCaughtAsAnOrdinaryRuntimeError) {
    try {
        throw RunTimeError(RunTimeErrorKind::DiskFull, "QX.CFG");
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Disk full: QX.CFG");
    }
}

}  // namespace
}  // namespace scenara
