// SPDX-License-Identifier: MIT
//
// What the user gives: files and folders that are dropped onto the window, named when the program
// is started, or handed over by a later start. Plain, what is dropped is one stage.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "app/GivenPaths.h"
#include "app/RecentFiles.h"
#include "app/frmStage.h"
#include "base/NotCopied.h"
#include "platform/Clock.h"
#include "platform/Request.h"

namespace scenara {

// While it exists the menus are as while a stage loads, and what is chosen or dropped waits: a
// folder is looked through, and messages come through.
class frmStage::LookingThrough : scenara::NotCopied {
public:
    LookingThrough(frmStage& form, std::string what)
        : form_(form), what_(std::move(what)), begun_(form.machine_.clock.GetTickCount()) {
        form_.givesUp_ = false;
        Set(true);
    }
    ~LookingThrough() {
        Set(false);
        if (told_) {
            form_.EndProgress();
        }
    }

    // Lets messages through. False: the user has chosen something else meanwhile, or gives up.
    bool GoesOn() {
        Tell();
        pumped_ = true;
        form_.API_doevents();
        const WhichStage& which = form_.show_.Which;
        return !form_.givesUp_ && which.chosen.empty() && which.follows.empty() &&
               !form_.machine_.window.EndRequested();
    }

    [[nodiscard]] bool Pumped() const { return pumped_; }

private:
    // Nothing is told of what is over at once.
    void Tell() {
        constexpr std::uint32_t kAtOnce = 500;  // milliseconds
        if (!told_ && TicksSince(begun_, form_.machine_.clock.GetTickCount()) >= kAtOnce) {
            told_ = true;
            form_.ShowProgress("Looking through " + what_ + " (Escape: stop)");
        }
    }
    void Set(bool looks) {
        form_.looks_ = looks;
        form_.StateChanged();
    }

    frmStage& form_;
    std::string what_;
    Long begun_;
    bool told_ = false;
    bool pumped_ = false;
};

void frmStage::TakePaths(const std::vector<std::string>& paths, bool areDropped) {
    Handle([&] {
        WhichStage& which = show_.Which;
        const bool joins = !areDropped && !which.followsIsDropped;
        which.follows = joins ? PathsInTurn(paths, which.follows) : paths;
        which.followsIsDropped = areDropped;
        which.chosen.clear();
        if (State() != ShowState::Loading) {
            OpenFollowing();
        }
    });
}

// What is given is left for something newer.
void frmStage::OpenFollowing() {
    WhichStage& which = show_.Which;
    while (!machine_.window.EndRequested()) {
        if (!which.chosen.empty()) {
            which.CurrentStageFile = std::exchange(which.chosen, {});
            OpenStage();
            return;
        }
        if (which.follows.empty() || OpenGiven(std::exchange(which.follows, {}))) {
            return;
        }
    }
}

// False: it was given up. What loads or runs a stage comes last: it may return when the stage is
// closed.
bool frmStage::OpenGiven(const std::vector<std::string>& paths) {
    const std::string taken = std::exchange(takenAtStart_, {});
    if (show_.Which.followsIsDropped && !show_.Options().Additions) {
        OpenFirstDropped(paths);
        return true;
    }
    const GivenPaths given = LookThrough(paths);
    if (given.givenUp) {
        return false;
    }
    if (given.IsNothing() && !given.other.empty()) {
        ReportGiven(given.other, given.otherIsFolder);
    }
    if (!given.mugenFolder.empty() && given.mugenFolder == taken) {
        ShowFilledList();
    } else if (!given.mugenFolder.empty()) {
        TakeMugenFolder(given.mugenFolder);
    }
    if (!given.character.empty()) {
        PutOnStage(given.character, !given.stages.empty());
    }
    for (std::size_t i = std::min(given.stages.size(), kMaxRecentFiles); i > 1; --i) {
        RememberRecentFile(form_, given.stages[i - 1]);
    }
    if (!given.stages.empty()) {
        form_.lstStages.MoveKeys(KeyOwner::Picture);
        show_.Which.CurrentStageFile = given.stages.front();
        OpenStage();
    }
    return true;
}

// Plain: whatever it is, it is asked to be a stage.
void frmStage::OpenFirstDropped(const std::vector<std::string>& paths) {
    const auto first =
        std::ranges::find_if(paths, [](const std::string& path) { return !path.empty(); });
    if (first != paths.end()) {
        show_.Which.CurrentStageFile = *first;
        OpenStage();
    }
}

// Keys that were tapped meanwhile do nothing to the stage that is shown.
GivenPaths frmStage::LookThrough(const std::vector<std::string>& paths) {
    GivenPaths given;
    bool pumped = false;
    {
        LookingThrough looking(*this, paths.front());
        given = LookAt(machine_.files, paths, [&] { return looking.GoesOn(); });
        pumped = looking.Pumped();
    }
    if (pumped && show_.Loop().StageRunning != 0) {
        show_.ForgetKeys();
    }
    return given;
}

void frmStage::ReportGiven(const std::string& path, bool isFolder) {
    if (!isFolder) {
        show_.Which.CurrentStageFile = path;
        OpenStage();  // it says what is wrong with it
        return;
    }
    machine_.messages.Show({kMessageNoStageInFolder,
                            "There is nothing to show in the folder\r\n" + path +
                                "\r\n\r\nIt has no folder \"stages\" as a MUGEN folder does, no "
                                "stage (a .def file) and no character.",
                            {},
                            MessageIcon::Exclamation,
                            {0, 0, path}});
}

}  // namespace scenara
