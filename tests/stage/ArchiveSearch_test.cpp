// SPDX-License-Identifier: MIT
#include "stage/ArchiveSearch.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Path.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;

constexpr const char* kDefinition = "/mugen/stages/kfm.def";

TEST(ArchiveSearch, EngineFolderThenTheDefinitionsOwn) {
    EXPECT_THAT(ArchiveCandidates("kfm.sff", "/mugen/", kDefinition),
                ElementsAre("/mugen/kfm.sff", "/mugen/stages/kfm.sff", "/mugen/stages/kfm.sff",
                            "/mugen/stages/kfm.sff"));
}

TEST(ArchiveSearch, BothSlashesAreTriedBesideTheDefinition) {
    EXPECT_THAT(ArchiveCandidates("a/b\\c.sff", "/mugen/", kDefinition),
                ElementsAre("/mugen/a/b\\c.sff", "/mugen/stages/a/b\\c.sff",
                            "/mugen/stages/a\\b\\c.sff", "/mugen/stages/a/b/c.sff"));
}

TEST(ArchiveSearch, NameWithAColonIsTakenAsWritten) {
    EXPECT_EQ(ArchiveCandidates("d:\\x\\a.sff", "/mugen/", kDefinition).front(), "d:\\x\\a.sff");
}

TEST(ArchiveSearch, EngineFolderMayLackItsSeparator) {
    EXPECT_EQ(ArchiveCandidates("a.sff", "/mugen", kDefinition).front(),
              std::string("/mugen") + PathSeparator + "a.sff");
}

TEST(ArchiveSearch, DefinitionWithoutFolder) {
    EXPECT_EQ(ArchiveCandidates("a.sff", "", "kfm.def")[1], "a.sff");
}

TEST(ArchiveSearch, FirstThatExistsIsTaken) {
    MemoryFiles files;
    files.Put("/mugen/stages/kfm.sff", std::string("beside"));
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition), "/mugen/stages/kfm.sff");
    files.Put("/mugen/kfm.sff", std::string("engine"));
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition), "/mugen/kfm.sff");
}

TEST(ArchiveSearch, SearchEndsAtTheFirstThatExists) {
    MemoryFiles files;
    files.Put("/mugen/kfm.sff", std::string("engine"));
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition), "/mugen/kfm.sff");
    EXPECT_THAT(files.Asked(), ElementsAre("/mugen/kfm.sff"));
}

TEST(ArchiveSearch, NoneThatExistsIsEmpty) {
    MemoryFiles files;
    EXPECT_EQ(FindArchive(files, "a/b.sff", "/mugen/", kDefinition), "");
    EXPECT_THAT(files.Asked(), ElementsAre("/mugen/a/b.sff", "/mugen/stages/a/b.sff",
                                           "/mugen/stages/a\\b.sff", "/mugen/stages/a/b.sff"));
}

}  // namespace
}  // namespace scenara::test
