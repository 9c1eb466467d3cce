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
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition, kPlainView),
              "/mugen/stages/kfm.sff");
    files.Put("/mugen/kfm.sff", std::string("engine"));
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition, kPlainView), "/mugen/kfm.sff");
}

TEST(ArchiveSearch, SearchEndsAtTheFirstThatExists) {
    MemoryFiles files;
    files.Put("/mugen/kfm.sff", std::string("engine"));
    EXPECT_EQ(FindArchive(files, "kfm.sff", "/mugen/", kDefinition, kPlainView), "/mugen/kfm.sff");
    EXPECT_THAT(files.Asked(), ElementsAre("/mugen/kfm.sff"));
}

TEST(ArchiveSearch, NoneThatExistsIsEmpty) {
    MemoryFiles files;
    EXPECT_EQ(FindArchive(files, "a/b.sff", "/mugen/", kDefinition, kPlainView), "");
    EXPECT_THAT(files.Asked(), ElementsAre("/mugen/a/b.sff", "/mugen/stages/a/b.sff",
                                           "/mugen/stages/a\\b.sff", "/mugen/stages/a/b.sff"));
}

// Knows one name in other letters.
class FilesOfElsewhere : public MemoryFiles {
public:
    std::vector<std::string> InOtherLetters(const std::string& name) override {
        return name == "\x8E\x52.sff" ? std::vector<std::string>{"yama.sff"}
                                      : std::vector<std::string>();
    }
};

TEST(ArchiveSearch, AdditionLooksForTheDefinitionsOwnName) {
    MemoryFiles files;
    files.Put("/mugen/stages/kfm.sff", std::string("own"));
    EXPECT_EQ(FindArchive(files, "other.sff", "/mugen/", kDefinition, ViewOptions()),
              "/mugen/stages/kfm.sff");
    EXPECT_EQ(FindArchive(files, "other.sff", "/mugen/", kDefinition, kPlainView), "");
    EXPECT_EQ(FindArchive(files, "", "/mugen/", kDefinition, ViewOptions()), "") << "none is named";
    files.Put("/mugen/stages/other.sff", std::string("named"));
    EXPECT_EQ(FindArchive(files, "other.sff", "/mugen/", kDefinition, ViewOptions()),
              "/mugen/stages/other.sff");
}

TEST(ArchiveSearch, AdditionLooksInTheFolderThatTheDefinitionIsIn) {
    MemoryFiles files;
    const std::string definition = "/other/stages/new/a.def";
    files.Put("/other/stages/new/a.sff", std::string("its own name"));
    files.Put("/other/stages/b.sff", std::string("as written"));
    const auto find = [&](const ViewOptions& options) {
        return FindArchive(files, "stages/b.sff", "/mugen/", definition, options);
    };
    EXPECT_EQ(find({}), "/other/stages/b.sff");
    EXPECT_EQ(find(kPlainView), "");
    files.Put("/mugen/stages/b.sff", std::string("the user's"));
    EXPECT_EQ(find({}), "/mugen/stages/b.sff");
}

TEST(EngineFolder, IsWhatHasTheLastFolderStages) {
    const struct {
        const char* definition;
        const char* folder;
    } rows[] = {
        {"/mugen/stages/a.def", "/mugen/"},
        {"/mugen/STAGES/new/a.def", "/mugen/"},
        {"/stages/mugen/stages/new/a.def", "/stages/mugen/"},
        {"/stages/a.def", "/"},
        {"C:\\Mugen\\Stages\\a.def", "C:\\Mugen\\"},
        {"stages/a.def", ""},
        {"/mugen/stages", ""},
        {"/mugen/mystages/a.def", ""},
        {"a.def", ""},
        {"", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(EngineFolderOf(row.definition), row.folder) << row.definition;
    }
}

TEST(ArchiveSearch, AdditionLooksForTheNameInOtherLettersLast) {
    FilesOfElsewhere files;
    files.Put("/mugen/stages/yama.sff", std::string("in other letters"));
    EXPECT_EQ(FindArchive(files, "\x8E\x52.sff", "/mugen/", kDefinition, ViewOptions()),
              "/mugen/stages/yama.sff");
    EXPECT_EQ(FindArchive(files, "\x8E\x52.sff", "/mugen/", kDefinition, kPlainView), "");
    files.Put("/mugen/stages/kfm.sff", std::string("own"));
    EXPECT_EQ(FindArchive(files, "\x8E\x52.sff", "/mugen/", kDefinition, ViewOptions()),
              "/mugen/stages/kfm.sff");
}

}  // namespace
}  // namespace scenara::test
