// SPDX-License-Identifier: MIT
//
// What additions read of a stage's settings.
#include <array>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BothReadings.h"
#include "stage/StageSpace.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- the camera's zoom ---

TEST(AdditionsZoom, IsReadFromTheCamerasSectionOnly) {
    const char* const keys = "zoomout = .5\r\nzoomin = 2\r\nstartzoom = .75\r\n";
    const BothReadings read(std::string("[Camera]\r\n") + keys);
    EXPECT_EQ(read.With().ZoomOut, 0.5F);
    EXPECT_EQ(read.With().ZoomIn, 2);
    EXPECT_EQ(read.With().StartZoom, 0.75F);
    EXPECT_EQ(read.Plain().ZoomOut, 1);
    EXPECT_EQ(BothReadings(std::string("[StageInfo]\r\n") + keys).With().ZoomOut, 1);
}

struct VersionRow {
    const char* lines;
    Single version;
};

TEST(AdditionsSettings, TheVersionIsOneNumberFrom1ToBelow100OfTheInfoSection) {
    for (const VersionRow& row : {
             VersionRow{"[Info]\r\nmugenversion = 1.0\r\n", 1},
             VersionRow{"[ info ]\r\nMugenVersion = 1.1 ; and a comment, this\r\n", 1.1F},
             VersionRow{"[INFO]\r\nmugenversion = 99.9\r\n", 99.9F},
             VersionRow{"[Info]\r\nmugenversion = 100\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = .9\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 04,14,2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = 04 , 14 , 2002\r\n", 0},
             VersionRow{"[Info]\r\nmugenversion = x\r\n", 0},
             VersionRow{"[Info]\r\n", 0},
             VersionRow{"mugenversion = 1.0\r\n", 0},
             VersionRow{"[StageInfo]\r\nmugenversion = 1.0\r\n", 0},
             VersionRow{"[Info]\r\n[Camera]\r\nmugenversion = 1.0\r\n", 0},
         }) {
        const BothReadings read(row.lines);
        EXPECT_EQ(read.With().MugenVersion, row.version) << row.lines;
        EXPECT_EQ(read.Plain().MugenVersion, 0) << row.lines;
    }
}

struct AuthorRow {
    const char* lines;
    const char* author;
};

TEST(AdditionsSettings, TheAuthorIsATextOfTheInfoSection) {
    for (const AuthorRow& row : {
             AuthorRow{"[Info]\r\nauthor = \"A. Painter\"\r\n", "A. Painter"},
             AuthorRow{"[INFO]\r\nAuthor = 2 Painters ; and a dog\r\n", "2 Painters"},
             AuthorRow{"[Info]\r\nauthor = One\r\nauthor = Two\r\n", "One"},
             AuthorRow{"[Info]\r\nauthor = \"\"\r\n", ""},
             AuthorRow{"[Info]\r\n", ""},
             AuthorRow{"[Camera]\r\nauthor = One\r\n", ""},
             AuthorRow{"author = One\r\n", ""},
         }) {
        const BothReadings read(row.lines);
        EXPECT_EQ(read.With().Author, row.author) << row.lines;
        EXPECT_EQ(read.Plain().Author, "") << row.lines;
    }
}

struct MusicRow {
    const char* lines;
    Single volume = 100;
    Integer offset = 0;
    Long loopStart = 0;
    Long loopEnd = -1;
};

TEST(AdditionsSettings, LoudnessAndLoopOfTheMusicAreRead) {
    for (const MusicRow& row : {
             MusicRow{"[Music]\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = 85.5\r\n", 85.5F},
             MusicRow{"[ MUSIC ]\r\nBGMVolume = 250 ; percent\r\n", 250},
             MusicRow{"[Music]\r\nbgmvolume =\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = loud\r\n"},
             MusicRow{"[Music]\r\nbgmvolume = 0\r\n", 0},
             MusicRow{"[Music]\r\nbgmvolume = -5\r\n", -5},
             MusicRow{"[Music]\r\nbgmvolume = nan\r\n"},
             MusicRow{"[Music]\r\nbgvolume = -100\r\n", 100, -100},
             MusicRow{"[Music]\r\nbgmloopstart = 44100\r\nbgmloopend = 882000.4\r\n", 100, 0, 44100,
                      882000},
             MusicRow{"[Music]\r\nbgmloopend = 5\r\nbgmloopend = 6\r\n", 100, 0, 0, 5},
             MusicRow{"[Music]\r\nbgmvolume = 40\r\nbgmvolume = 60\r\n", 40},
             MusicRow{"[Music]\r\nbgmloopstart = nan\r\nbgmloopend = none\r\n", 100, 0, 0, 0},
             // In another section.
             MusicRow{"bgmvolume = 50\r\n"},
             MusicRow{"[Sound]\r\nbgmvolume = 50\r\nbgmloopstart = 1\r\n"},
             MusicRow{"[Music]\r\n[Camera]\r\nbgvolume = 50\r\nbgmloopend = 9\r\n"},
         }) {
        const BothReadings read(row.lines);
        const auto expect = [&row](const StageModel& model, const MusicRow& expected) {
            EXPECT_EQ(model.MusicVolume, expected.volume) << row.lines;
            EXPECT_EQ(model.MusicVolumeOffset, expected.offset) << row.lines;
            EXPECT_EQ(model.MusicLoopStart, expected.loopStart) << row.lines;
            EXPECT_EQ(model.MusicLoopEnd, expected.loopEnd) << row.lines;
        };
        expect(read.With(), row);
        expect(read.Plain(), MusicRow{});
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << row.lines;
    }
}

TEST(AdditionsSettings, LoopPointsThatAreTooLargeAreReportedAndNotTaken) {
    const BothReadings read("[Music]\r\nbgmloopstart = 1e30\r\nbgmloopend = 4000000000\r\n");
    EXPECT_EQ(read.With().MusicLoopStart, 0);
    EXPECT_EQ(read.With().MusicLoopEnd, -1);
    EXPECT_THAT(read.WithTexts(),
                ElementsAre("Overflow: bgmloopstart, line 2", "Overflow: bgmloopend, line 3"));
    EXPECT_THAT(read.PlainTexts(), IsEmpty());
}

TEST(AdditionsSettings, HiresAndLocalcoordAreRead) {
    const BothReadings read("[StageInfo]\r\nhires = 1\r\nlocalcoord = 640, 480\r\n");
    EXPECT_EQ(read.With().hires, 1);
    EXPECT_EQ(read.With().localcoordWidth, 640);
    EXPECT_EQ(read.With().localcoordHeight, 480);
    EXPECT_EQ(read.Plain().hires, 0);
    EXPECT_EQ(read.Plain().localcoordWidth, 0);
    EXPECT_EQ(read.Plain().localcoordHeight, 0);
}

struct SpaceRow {
    const char* localcoord;
    Long width;
    Long height;
};

TEST(AdditionsSettings, ANumberOfLocalcoordAloneLeavesTheOtherAsItIsDesigned) {
    for (const SpaceRow& row : {
             SpaceRow{"640, 360", 640, 360},
             SpaceRow{"640", 640, 240},
             SpaceRow{"640 360", 640, 240},
             SpaceRow{"640,", 640, 240},
             SpaceRow{", 480", 320, 480},
             SpaceRow{"", 320, 240},
             SpaceRow{"79, 480", 320, 240},
         }) {
        SCOPED_TRACE(row.localcoord);
        const BothReadings read(std::string("[StageInfo]\r\nlocalcoord = ") + row.localcoord +
                                "\r\n");
        const View view = ViewOf(read.With(), ViewOptions());
        EXPECT_EQ(view.width, row.width);
        EXPECT_EQ(view.height, row.height);
    }
}

TEST(AdditionsSettings, AreForgottenByTheNextStage) {
    StageMachine machine;
    ASSERT_TRUE(
        machine.Load("[StageInfo]\r\nhires = 1\r\nlocalcoord = 640, 480\r\n"
                     "[Info]\r\nmugenversion = 1.1\r\n"
                     "[Music]\r\nbgmvolume = 50\r\nbgmloopend = 9\r\n"));
    EXPECT_EQ(machine.model.MugenVersion, 1.1F);
    EXPECT_EQ(machine.model.MusicLoopEnd, 9);
    ASSERT_TRUE(machine.Load("[StageInfo]\r\n"));
    EXPECT_EQ(machine.model.hires, 0);
    EXPECT_EQ(machine.model.localcoordHeight, 0);
    EXPECT_EQ(machine.model.StageXScale, 1);
    EXPECT_EQ(machine.model.MugenVersion, 0);
    EXPECT_EQ(machine.model.MusicVolume, 100);
    EXPECT_EQ(machine.model.MusicLoopEnd, -1);
}

}  // namespace
}  // namespace scenara::test
