// SPDX-License-Identifier: MIT
//
// How names find their files: letter case, slashes and code pages, in every operation; and listing.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Disk.h"
#include "base/RunTimeError.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ResolvePath.h"

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PosixNames : public test::Disk {};
class PosixFilesList : public test::Disk {};
class ResolvedPath : public test::Disk {};

TEST_F(PosixNames, LetterCaseDoesNotMatterInAnyComponent) {
    Put("Stages/Night/Dojo.def", "stage");
    for (const std::string_view name :
         {"Stages/Night/Dojo.def", "stages/night/dojo.def", "STAGES/NIGHT/DOJO.DEF",
          "Stages/night/Dojo.def", "stages/Night/DOJO.def"}) {
        EXPECT_TRUE(files_.FileExists(At(name))) << name;
        EXPECT_EQ(Read(At(name)), "stage") << name;
    }
    EXPECT_FALSE(files_.FileExists(At("stages/night/dojo.de")));
    EXPECT_FALSE(files_.FileExists(At("stages/nigh/dojo.def")));
    EXPECT_FALSE(files_.FileExists(At("stages/night/dojo.deff")));
}

TEST_F(PosixNames, BothSlashesSeparate) {
    Put("stages/night/dojo.def", "stage");
    for (const std::string_view name :
         {"stages\\night\\dojo.def", "stages\\night/dojo.def", "stages/night\\dojo.def",
          "STAGES\\NIGHT\\DOJO.DEF", "stages//night\\\\dojo.def", "stages\\/night/dojo.def"}) {
        EXPECT_EQ(Read(At(name)), "stage") << name;
    }
}

TEST_F(PosixNames, DotsMeanWhatTheyAlwaysDo) {
    Put("Stages/dojo.def", "stage");
    PutFolder("Data");
    EXPECT_EQ(Read(At("data\\..\\stages\\.\\DOJO.def")), "stage");
    EXPECT_EQ(Read(At("./STAGES/dojo.def")), "stage");
    EXPECT_FALSE(files_.FileExists(At("none\\..\\stages\\dojo.def")));
}

TEST_F(PosixNames, AnExactNameIsPreferred) {
    Put("dojo.def", "small");
    Put("DOJO.DEF", "large");
    Put("Dojo.def", "mixed");
    EXPECT_EQ(Read(At("dojo.def")), "small");
    EXPECT_EQ(Read(At("DOJO.DEF")), "large");
    EXPECT_EQ(Read(At("Dojo.def")), "mixed");

    Put("stages/a.def", "small folder");
    Put("STAGES/a.def", "large folder");
    EXPECT_EQ(Read(At("stages/A.def")), "small folder");
    EXPECT_EQ(Read(At("STAGES/A.def")), "large folder");
}

TEST_F(PosixNames, OfSeveralSpellingsTheFirstInByteOrderIsTaken) {
    Put("dojo.def", "dojo");
    Put("doJo.def", "doJo");
    Put("Dojo.def", "Dojo");
    Put("DojO.def", "DojO");
    EXPECT_EQ(Read(At("DOJO.def")), "DojO");
}

TEST_F(PosixNames, ABackslashInANameOnThisDiskIsFoundAsItStands) {
    Put("a\\b.def", "odd name");
    EXPECT_EQ(Read(At("a\\b.def")), "odd name");
    Put("a/b.def", "in a folder");
    EXPECT_EQ(Read(At("a\\b.def")), "odd name") << "as it stands first";
    EXPECT_EQ(Read(At("A\\b.def")), "in a folder");
}

TEST_F(PosixNames, ANameInTheCodePageFindsItsUtf8Spelling) {
    Put("\u00DCbung \u20AC.def", "practice");
    Put("Stra\u00DFe/x.def", "street");
    EXPECT_EQ(Read(At("\334bung \x80.def")), "practice");
    EXPECT_EQ(Read(At("\334BUNG \x80.DEF")), "practice");
    EXPECT_EQ(Read(At("stra\337e\\X.DEF")), "street");
    EXPECT_FALSE(files_.FileExists(At("\374bung \x80.def")))
        << "only the case of ASCII letters is ignored";
}

TEST_F(PosixNames, ANameInItsOwnBytesGoesBeforeItsUtf8Spelling) {
    constexpr std::string_view kBytes = "\334bung.def";
    Put("\u00DCbung.def", "in UTF-8");
    Put(kBytes, "in bytes");
    if (!Has(kBytes)) {
        GTEST_SKIP() << "this disk takes names in UTF-8 only";
    }
    EXPECT_EQ(Read(At(kBytes)), "in bytes");
    EXPECT_EQ(Read(At("\334BUNG.DEF")), "in bytes");
    EXPECT_EQ(Read(At("\u00DCBUNG.def")), "in UTF-8");
}

TEST_F(PosixNames, HoldForWritingAndDeletingToo) {
    Put("Stages/Dojo.def", "old");
    Write(At("STAGES\\DOJO.DEF"), "new");
    EXPECT_EQ(Get("Stages/Dojo.def"), "new");
    EXPECT_FALSE(Has("STAGES"));
    EXPECT_THAT(files_.List(At("Stages"), ""), ElementsAre("Dojo.def"));

    Write(At("stages\\Fresh.def"), "fresh");
    EXPECT_EQ(Get("Stages/Fresh.def"), "fresh") << "a new name stays as it is spelled";

    files_.Delete(At("stages\\FRESH.DEF"));
    EXPECT_THAT(files_.List(At("STAGES\\"), ""), ElementsAre("Dojo.def"));
}

TEST_F(ResolvedPath, IsThePathItselfWhereThatIsThere) {
    Put("stages/dojo.def", "stage");
    EXPECT_EQ(ResolvePath(At("stages/dojo.def")), At("stages/dojo.def"));
    EXPECT_EQ(ResolvePath(At("stages")), At("stages"));
    EXPECT_EQ(ResolvePath("/"), "/");
    EXPECT_EQ(ResolvePath(""), "");
}

TEST_F(ResolvedPath, IsTheNameOnThisDisk) {
    Put("Stages/Dojo.def", "stage");
    EXPECT_EQ(ResolvePath(At("stages\\DOJO.def")), At("Stages/Dojo.def"));
    EXPECT_EQ(ResolvePath(At("stages\\")), At("Stages/"));
}

TEST_F(ResolvedPath, GoesOnAsSpelledFromTheFirstMissingComponent) {
    Put("Stages/Dojo.def", "stage");
    EXPECT_EQ(ResolvePath(At("stages\\Night\\X.def")), At("Stages/Night/X.def"));
    EXPECT_EQ(ResolvePath(At("None\\stages")), At("None/stages"));
    EXPECT_EQ(ResolvePath("None-such\\B"), "None-such/B");
}

TEST_F(ResolvedPath, WorksFromTheCurrentFolder) {
    Put("Stages/Dojo.def", "stage");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(At(""));
    EXPECT_EQ(ResolvePath("stages\\dojo.def"), "Stages/Dojo.def");
    EXPECT_EQ(ResolvePath("STAGES"), "Stages");
    std::filesystem::current_path(before);
}

TEST_F(PosixFilesList, IsSortedWithoutRegardToCase) {
    for (const std::string_view name :
         {"b.def", "A.def", "c.def", "B.DEF", "a.def", "10.def", "9.def", "_.def", "Z.def"}) {
        Put(name, "");
    }
    EXPECT_THAT(files_.List(At(""), ".def"),
                ElementsAre("10.def", "9.def", "_.def", "A.def", "a.def", "B.DEF", "b.def", "c.def",
                            "Z.def"));
}

TEST_F(PosixFilesList, TakesTheExtensionInAnyCase) {
    for (const std::string_view name : {"a.def", "b.DEF", "c.Def", "d.def.txt", "e.de", "fdef",
                                        "g.def ", "h.deff", ".def", "def"}) {
        Put(name, "");
    }
    const auto expected = ElementsAre(".def", "a.def", "b.DEF", "c.Def");
    EXPECT_THAT(files_.List(At(""), ".def"), expected);
    EXPECT_THAT(files_.List(At(""), ".DeF"), expected);
    EXPECT_EQ(files_.List(At(""), "").size(), 10U);
    EXPECT_THAT(files_.List(At(""), ".sff"), IsEmpty());
}

TEST_F(PosixFilesList, HasOrdinaryFilesOnly) {
    Put("file.def", "");
    PutFolder("folder.def");
    PutPipe("pipe.def");
    PutLink("dangling.def", "nowhere");
    PutLink("link.def", "file.def");
    PutLink("linked folder.def", "folder.def");
    EXPECT_THAT(files_.List(At(""), ".def"), ElementsAre("file.def", "link.def"));
}

TEST_F(PosixFilesList, DoesNotGoIntoFolders) {
    Put("a.def", "");
    Put("deeper/b.def", "");
    EXPECT_THAT(files_.List(At(""), ".def"), ElementsAre("a.def"));
}

TEST_F(PosixFilesList, FindsTheFolderLikeAnyName) {
    Put("Stages/a.def", "");
    for (const std::string_view folder : {"Stages", "stages", "STAGES/", "stages\\", ".\\stages"}) {
        EXPECT_THAT(files_.List(At(folder), ".def"), ElementsAre("a.def")) << folder;
    }
}

TEST_F(PosixFilesList, IsEmptyForWhatCannotBeListed) {
    Put("a.def", "");
    PutFolder("empty");
    for (const std::string_view folder : {"none", "a.def", "a.def/", "empty"}) {
        EXPECT_THAT(files_.List(At(folder), ""), IsEmpty()) << folder;
    }
    EXPECT_THAT(files_.List(std::string(10000, 'x'), ""), IsEmpty());
}

TEST_F(PosixFilesList, KeepsNamesInTheirOwnBytes) {
    constexpr std::string_view kBytes = "\334bung.def";
    Put(kBytes, "");
    if (!Has(kBytes)) {
        GTEST_SKIP() << "this disk takes names in UTF-8 only";
    }
    EXPECT_THAT(files_.List(At(""), ".def"), ElementsAre(std::string(kBytes)));
    Put("new\nline.def", "");
    EXPECT_THAT(files_.List(At(""), ".def"), ElementsAre("new\nline.def", std::string(kBytes)));
}

TEST(PosixFilesProgramFolder, IsTheGivenOneWithASeparator) {
    EXPECT_EQ(PosixFiles("/opt/scenara").ProgramFolder(), "/opt/scenara/");
    EXPECT_EQ(PosixFiles("/opt/scenara/").ProgramFolder(), "/opt/scenara/");
}

}  // namespace
}  // namespace scenara
