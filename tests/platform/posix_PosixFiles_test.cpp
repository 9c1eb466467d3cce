// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "Disk.h"
#include "base/RunTimeError.h"
#include "platform/posix/PosixFiles.h"

namespace scenara {
namespace {

using namespace std::string_literals;
using test::ErrorOnFullDisk;
using test::Raises;
using testing::HasSubstr;
using testing::StartsWith;
using testing::ThrowsMessage;

std::string Text(std::span<const std::byte> bytes) {
    std::string text(bytes.size(), '\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](std::byte byte) { return static_cast<char>(byte); });
    return text;
}

class PosixFilesReading : public test::Disk {};
class PosixFilesWriting : public test::Disk {};
class PosixFilesOddities : public test::Disk {};
class PosixFilesDelete : public test::Disk {};

TEST_F(PosixFilesReading, ReadsAtAnyPositionAsMuchAsIsThere) {
    Put("a.bin", "0123456789");
    Put("empty", "");
    constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();
    struct Row {
        std::uint64_t position;
        std::size_t count;
        const char* read;  // what is not read stays
    };
    const auto file = files_.OpenForReading(At("a.bin"));
    EXPECT_EQ(file->Size(), 10U);
    for (const Row& row : {Row{3, 4, "3456"},
                           {0, 4, "0123"},  // backwards, too
                           {6, 4, "6789"},
                           {8, 2, "89.."},
                           {10, 0, "...."},
                           {11, 0, "...."},
                           {std::uint64_t{1} << 32U, 0, "...."},
                           {std::uint64_t{1} << 62U, 0, "...."},
                           {(std::uint64_t{1} << 63U) - 1, 0, "...."},
                           {std::uint64_t{1} << 63U, 0, "...."},
                           {kMost - 1, 0, "...."},
                           {kMost, 0, "...."}}) {
        std::array<std::byte, 4> into{};
        into.fill(std::byte{'.'});
        EXPECT_EQ(file->ReadAt(row.position, into), row.count) << row.position;
        EXPECT_EQ(Text(into), row.read) << row.position;
    }
    EXPECT_EQ(file->ReadAt(0, {}), 0U);

    EXPECT_TRUE(files_.FileExists(At("empty")));
    EXPECT_EQ(Read(At("empty")), "");
    std::array<std::byte, 1> into{};
    EXPECT_EQ(files_.OpenForReading(At("empty"))->ReadAt(0, into), 0U);
}

TEST_F(PosixFilesReading, FollowsALinkToAFile) {
    Put("real.def", "stage");
    PutLink("link.def", "real.def");
    EXPECT_TRUE(files_.FileExists(At("link.def")));
    EXPECT_EQ(Read(At("link.def")), "stage");
}

TEST_F(PosixFilesReading, AMissingFileIsNotFoundAndNamedInTheMessage) {
    PutFolder("stages");
    for (const std::string& path :
         {At("none.def"), At("stages/none.def"), At("none/none.def"), At("none/")}) {
        EXPECT_FALSE(files_.FileExists(path)) << path;
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    ThrowsMessage<RunTimeError>("File not found: " + path));
    }
}

TEST_F(PosixFilesReading, AFileIsNoFolder) {
    Put("kfm.def", "stage");
    for (const std::string& path : {At("kfm.def/"), At("kfm.def/x.def"), At("kfm.def\\x.def")}) {
        EXPECT_FALSE(files_.FileExists(path)) << path;
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    Raises(RunTimeErrorKind::FileNotFound));
        EXPECT_THROW(static_cast<void>(files_.OpenForWriting(path)), RunTimeError) << path;
        EXPECT_THROW(files_.Delete(path), RunTimeError) << path;
    }
    EXPECT_EQ(Get("kfm.def"), "stage");
}

TEST_F(PosixFilesReading, KeepsAnOpenFileWhenItsNameIsGone) {
    Put("a.def", "stage");
    const auto file = files_.OpenForReading(At("a.def"));
    files_.Delete(At("a.def"));
    std::array<std::byte, 5> into{};
    EXPECT_EQ(file->ReadAt(0, into), 5U);
    EXPECT_EQ(Text(into), "stage");
}

TEST_F(PosixFilesReading, ManyOpensLeaveNoneOpen) {
    Put("a.def", "stage");
    const auto lowestFree = [] {
        const int number = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
        ::close(number);
        return number;
    };
    const int before = lowestFree();
    for (int i = 0; i < 50; ++i) {
        EXPECT_TRUE(files_.FileExists(At("a.def")));
        EXPECT_FALSE(files_.FileExists(At("")));
        EXPECT_EQ(files_.List(At(""), ".def").size(), 1U);
        Write(At("b.txt"), "x");
    }
    EXPECT_EQ(lowestFree(), before);
}

TEST_F(PosixFilesReading, AFailingDeviceRaises) {
    // Address 0 of a process is never there: reading it fails as a broken disk does.
    const std::string memory = "/proc/self/mem";
    if (!files_.FileExists(memory)) {
        GTEST_SKIP() << "this machine has no " << memory;
    }
    const auto file = files_.OpenForReading(memory);
    std::array<std::byte, 16> into{};
    EXPECT_THAT([&] { file->ReadAt(0, into); },
                ThrowsMessage<RunTimeError>("Device I/O error: " + memory));
}

TEST_F(PosixFilesReading, AForbiddenFileIsDenied) {
    Put("secret.def", "stage");
    Put("closed/kfm.def", "stage");
    Restrict("secret.def", 0);
    Restrict("closed", 0);
    const test::AsOrdinaryUser user;
    if (!test::AsOrdinaryUser::Works()) {
        GTEST_SKIP() << "root, and not able to become another user";
    }
    for (const std::string& path : {At("secret.def"), At("closed/kfm.def")}) {
        ExpectDoesNotOpen(path, RunTimeErrorKind::PermissionDenied);
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    ThrowsMessage<RunTimeError>("Permission denied: " + path));
    }
    EXPECT_TRUE(files_.List(At("closed"), "").empty());
    EXPECT_TRUE(files_.ListFolders(At("closed")).empty());
}

TEST_F(PosixFilesWriting, AFolderThatMayNotBeWrittenToStaysAsItIs) {
    Put("fixed/kfm.def", "stage");
    Restrict("fixed", 0555);
    const test::AsOrdinaryUser user;
    if (!test::AsOrdinaryUser::Works()) {
        GTEST_SKIP() << "root, and not able to become another user";
    }
    EXPECT_THAT([&] { return files_.OpenForWriting(At("fixed/new.def")); },
                Raises(RunTimeErrorKind::PermissionDenied));
    EXPECT_THAT([&] { files_.Delete(At("fixed/kfm.def")); },
                Raises(RunTimeErrorKind::PermissionDenied));
    EXPECT_EQ(Read(At("fixed/KFM.def")), "stage");
}

TEST_F(PosixFilesWriting, WhatIsWrittenReadsBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(i)));
    }
    const auto file = files_.OpenForWriting(At("a.bin"));
    file->Write(bytes);
    file->Write("");
    file->Write(bytes);
    file->Close();
    EXPECT_EQ(Get("a.bin"), bytes + bytes);
    EXPECT_EQ(Read(At("a.bin")), bytes + bytes);
}

TEST_F(PosixFilesWriting, EverythingIsThereOnceItIsClosedWhateverTheSizeOfThePieces) {
    for (const std::size_t piece : {std::size_t{1}, std::size_t{1000}, std::size_t{65536},
                                    std::size_t{65537}, std::size_t{300000}}) {
        const auto file = files_.OpenForWriting(At("a.bin"));
        std::string all;
        while (all.size() < 150000) {
            const std::string part(piece, static_cast<char>('a' + all.size() % 23));
            file->Write(part);
            all += part;
        }
        file->Close();
        EXPECT_TRUE(Get("a.bin") == all) << "in pieces of " << piece;
    }
}

TEST_F(PosixFilesWriting, EmptiesAnOldFileAndMakesANewOne) {
    Put("old.cfg", "a long text that was there");
    Write(At("old.cfg"), "short");
    EXPECT_EQ(Get("old.cfg"), "short");

    Write(At("new.cfg"), "");
    EXPECT_TRUE(Has("new.cfg"));
    EXPECT_EQ(Get("new.cfg"), "");
}

TEST_F(PosixFilesWriting, WithoutItsFolderThereIsNoFile) {
    const std::string path = At("none/new.cfg");
    EXPECT_THAT([&] { return files_.OpenForWriting(path); },
                ThrowsMessage<RunTimeError>("File not found: " + path));
    EXPECT_FALSE(Has("none"));
}

TEST_F(PosixFilesWriting, AFullDiskIsReportedByWriteAtTheLatestByClose) {
    const auto large = files_.OpenForWriting(At("large.bin"));
    const auto small = files_.OpenForWriting(At("small.bin"));
    EXPECT_EQ(ErrorOnFullDisk(100000, [&] { large->Write(std::string(200000, 'x')); }),
              "Disk full: " + At("large.bin"));
    EXPECT_EQ(ErrorOnFullDisk(0,
                              [&] {
                                  small->Write("x");
                                  small->Close();
                              }),
              "Disk full: " + At("small.bin"));
    EXPECT_EQ(Get("large.bin"), std::string(100000, 'x')) << "what there was room for";
}

TEST_F(PosixFilesWriting, GoesOnWhereItStoppedWhenThereIsRoomAgain) {
    const auto file = files_.OpenForWriting(At("a.bin"));
    file->Write("first ");
    EXPECT_NE(ErrorOnFullDisk(3, [&] { file->Close(); }), "");
    file->Write("second");
    file->Close();
    EXPECT_EQ(Get("a.bin"), "first second");
}

TEST_F(PosixFilesWriting, NothingCanBeWrittenToAClosedFile) {
    const auto file = files_.OpenForWriting(At("a.bin"));
    file->Write("x");
    file->Close();
    EXPECT_THROW(
        {
            file->Write("y");
            file->Close();
        },
        RunTimeError);
    EXPECT_EQ(Get("a.bin"), "x");
}

TEST_F(PosixFilesOddities, AFolderDoesNotOpen) {
    PutFolder("kfm.def");
    for (const std::string& path : {At("kfm.def"), At("kfm.def/"), At("KFM.DEF"), At("")}) {
        ExpectDoesNotOpen(path, RunTimeErrorKind::PathFileAccess);
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    ThrowsMessage<RunTimeError>(StartsWith("Path/File access error: " + path)));
    }
}

TEST_F(PosixFilesOddities, APipeDoesNotOpenAndHoldsNobodyUp) {
    PutPipe("kfm.def");
    const std::string path = At("kfm.def");
    ExpectDoesNotOpen(path, RunTimeErrorKind::PathFileAccess);
    EXPECT_THAT([&] { return files_.OpenForReading(path); },
                ThrowsMessage<RunTimeError>("Path/File access error: " + path + " (not a file)"));

    const int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_THAT([&] { return files_.OpenForWriting(path); },
                Raises(RunTimeErrorKind::PathFileAccess))
        << "with somebody at the other end";
    ::close(reader);
}

TEST_F(PosixFilesOddities, ASocketDoesNotOpen) {
    const std::string path = At("s");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_GE(socket, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);

    ExpectDoesNotOpen(path, RunTimeErrorKind::PathFileAccess);
    ::close(socket);
}

TEST_F(PosixFilesOddities, ADeviceDoesNotOpen) {
    PutLink("full.def", "/dev/full");
    for (const std::string& path : {"/dev/zero"s, "/dev/full"s, "/dev/null"s, At("full.def")}) {
        ExpectDoesNotOpen(path, RunTimeErrorKind::PathFileAccess);
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    ThrowsMessage<RunTimeError>(HasSubstr("(not a file)")));
    }
}

TEST_F(PosixFilesOddities, LinksThatLeadNowhereOrInACircleDoNotOpen) {
    PutLink("dangling.def", "nowhere.def");
    PutLink("a.def", "b.def");
    PutLink("b.def", "a.def");
    PutLink("self", "self");
    for (const std::string name : {"dangling.def", "a.def", "self", "self/kfm.def"}) {
        EXPECT_FALSE(files_.FileExists(At(name))) << name;
        EXPECT_THROW(static_cast<void>(files_.OpenForReading(At(name))), RunTimeError) << name;
    }
}

TEST_F(PosixFilesOddities, AnEmptyNameAndOneWithAZeroByteAreNoFiles) {
    Put("kfm.def", "stage");
    for (const std::string& path : {""s, At("kfm.def") + "\0.bak"s, At("kfm.def") + "\0"s}) {
        ExpectDoesNotOpen(path, RunTimeErrorKind::FileNotFound);
        EXPECT_THAT([&] { files_.Delete(path); }, Raises(RunTimeErrorKind::FileNotFound));
    }
    EXPECT_EQ(Get("kfm.def"), "stage") << "neither emptied nor deleted";
    EXPECT_TRUE(files_.List(At("") + "\0x"s, ".def").empty());
    EXPECT_TRUE(files_.ListFolders(At("") + "\0x"s).empty());
}

TEST_F(PosixFilesOddities, NamesOfAnyLengthAreLookedUp) {
    std::string deep = At("");
    for (int i = 0; i < 3000; ++i) {
        deep += "x/";
    }
    for (const std::string& path :
         {At(std::string(255, 'n')), At(std::string(256, 'n')), At(std::string(5000, 'n')),
          At("x/" + std::string(300, 'n') + "/kfm.def"), deep, deep + "kfm.def",
          At(std::string(20000, '/')) + "none", At(std::string(20000, '\\')) + "none"}) {
        EXPECT_FALSE(files_.FileExists(path));
        EXPECT_THAT([&] { return files_.OpenForReading(path); },
                    Raises(RunTimeErrorKind::FileNotFound));
    }
    const std::string longest(255, 'n');
    Write(At(longest), "fits");
    EXPECT_EQ(Read(At(longest)), "fits");
    EXPECT_THAT([&] { return files_.OpenForWriting(At(std::string(256, 'm'))); },
                Raises(RunTimeErrorKind::FileNotFound));
}

TEST_F(PosixFilesDelete, RemovesAFileOrALinkAndNotWhatItLeadsTo) {
    Put("a.def", "stage");
    Put("real.def", "stage");
    PutLink("link.def", "real.def");
    for (const std::string name : {"a.def", "link.def"}) {
        files_.Delete(At(name));
        EXPECT_FALSE(Has(name));
    }
    EXPECT_EQ(Get("real.def"), "stage");
    EXPECT_THAT([&] { files_.Delete(At("none.def")); },
                ThrowsMessage<RunTimeError>("File not found: " + At("none.def")));
}

TEST_F(PosixFilesDelete, LeavesWhatIsNoFile) {
    PutFolder("folder.def");
    PutPipe("pipe.def");
    PutLink("dangling.def", "nowhere.def");
    const auto expectLeft = [&](const char* name, RunTimeErrorKind kind) {
        EXPECT_THAT([&] { files_.Delete(At(name)); }, Raises(kind)) << name;
        EXPECT_TRUE(Has(name));
    };
    expectLeft("folder.def", RunTimeErrorKind::PathFileAccess);
    expectLeft("pipe.def", RunTimeErrorKind::PathFileAccess);
    expectLeft("dangling.def", RunTimeErrorKind::FileNotFound);
}

}  // namespace
}  // namespace scenara
