// SPDX-License-Identifier: MIT
#include "app/Extras.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/SettingsText.h"
#include "base/RunTimeError.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPath = "/program/Scenara.ini";

bool Additions(const std::string& text) {
    MemoryFiles files;
    files.Put(kPath, text);
    return LoadExtras(files).Additions;
}

std::string Saved(const std::string& text, bool additions) {
    MemoryFiles files;
    files.Put(kPath, text);
    SaveExtras(files, {additions});
    return files.Get(kPath);
}

TEST(Extras, AdditionsAreOnUnlessTheFileSaysOtherwise) {
    MemoryFiles none;
    EXPECT_TRUE(LoadExtras(none).Additions);
    EXPECT_TRUE(Additions(""));
    EXPECT_TRUE(Additions("Additions = True\r\n"));
    EXPECT_FALSE(Additions("Additions = False\r\n"));
    EXPECT_FALSE(Additions("  ADDITIONS=false"));
    EXPECT_FALSE(Additions("other = 1\nadditions  =  FALSE  \nlast"));
    EXPECT_FALSE(
        Additions("\xEF\xBB\xBF"
                  "Additions = False"));
    EXPECT_TRUE(Additions("Additions = no"));
    EXPECT_TRUE(Additions("Additions"));
    EXPECT_TRUE(Additions("; Additions = False"));
    EXPECT_TRUE(Additions("MoreAdditions = False"));
    EXPECT_TRUE(Additions("Additions = False\rAdditions = True")) << "the last one counts";
    EXPECT_FALSE(Additions("Additions = True\rAdditions = False"));
    EXPECT_FALSE(Additions("Additions = False\nAdditions = ?")) << "which says nothing";
}

TEST(Extras, EachHasALineOfItsOwn) {
    const struct {
        const char* name;
        bool Extras::*value;
        bool first;
    } rows[] = {
        {"Additions", &Extras::Additions, true},
        {"Smooth", &Extras::Smooth, false},
        {"WholeMultiplesOnly", &Extras::WholeMultiplesOnly, false},
        {"SwitchDisplayMode", &Extras::SwitchDisplayMode, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryFiles files;
        Extras extras = LoadExtras(files);
        EXPECT_EQ(extras.*row.value, row.first);
        extras.*row.value = !row.first;
        SaveExtras(files, extras);
        EXPECT_EQ(files.Get(kPath),
                  row.name + std::string(row.first ? " = False" : " = True") + "\r\n");
        for (const auto& other : rows) {
            EXPECT_EQ(LoadExtras(files).*other.value, other.first != (&other == &row));
        }
    }
}

TEST(Extras, WritesANewFile) {
    MemoryFiles files;
    SaveExtras(files, {false});
    EXPECT_EQ(files.Get(kPath), "Additions = False\r\n");
    EXPECT_FALSE(LoadExtras(files).Additions);
    SaveExtras(files, {true});
    EXPECT_EQ(files.Get(kPath), "Additions = True\r\n");
    EXPECT_TRUE(LoadExtras(files).Additions);
}

TEST(Extras, WritesNothingThatIsSaidAlready) {
    MemoryFiles files;
    SaveExtras(files, {true});
    EXPECT_FALSE(files.Has(kPath));
    files.Put(kPath, "additions=false");
    SaveExtras(files, {false});
    EXPECT_THAT(files.Written(), IsEmpty());
}

TEST(Extras, KeepsOtherLinesAsTheyAre) {
    EXPECT_EQ(Saved("[x]\n  a=1 \rAdditions = True\r\n\r\n\xFF\n", false),
              "[x]\n  a=1 \rAdditions = False\r\n\r\n\xFF\n");
    EXPECT_EQ(Saved("a = 1", false), "a = 1\r\nAdditions = False\r\n");
    EXPECT_EQ(Saved("a = 1\n", false), "a = 1\nAdditions = False\r\n");
    EXPECT_EQ(Saved("additions = false", true), "Additions = True");
    EXPECT_EQ(Saved("Additions = False\nb\nAdditions = False\n", true),
              "Additions = True\nb\nAdditions = True\n");
    EXPECT_EQ(Saved("\xEF\xBB\xBF"
                    "Additions = True\n",
                    false),
              "\xEF\xBB\xBF"
              "Additions = False\n");
}

TEST(Extras, AFullDiskLeavesTheOldFile) {
    MemoryFiles files;
    files.Put(kPath, "Additions = False\r\n");
    files.FillDisk();
    EXPECT_THROW(SaveExtras(files, Extras{true}), RunTimeError);
    EXPECT_EQ(files.Get(kPath), "Additions = False\r\n");
}

TEST(Extras, AFileThatIsSomethingElseIsNotRewritten) {
    MemoryFiles files;
    files.Put(kPath, std::string(kMaxSettingsSize, 'x') + "\nAdditions = False\n");
    EXPECT_TRUE(LoadExtras(files).Additions);
    EXPECT_THROW(SaveExtras(files, Extras{false}), RunTimeError);
    EXPECT_THAT(files.Written(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
