// SPDX-License-Identifier: MIT
//
// The test character of a stage being shown: loaded, switched on and off, released.
//
// While it is on, the camera's horizontal step is the character's walking step. What A and Z make
// of the step meanwhile is for the keys: the camera that goes along makes the character's.
#include <cmath>
#include <utility>

#include "base/NotCopied.h"
#include "character/LoadCharacter.h"
#include "character/PlaceCharacter.h"
#include "show/StageShow.h"

namespace scenara {

// The state is Loading while this exists, also when an error ends it: the device must not be
// released before the load has ended.
class StageShow::Loading : scenara::NotCopied {
public:
    explicit Loading(StageShow& show) : show_(show), before_(show.loop_.LoadingStage) { Set(1); }
    ~Loading() { Set(before_); }

private:
    void Set(Byte loading) {
        show_.loop_.LoadingStage = loading;
        show_.events_.StateChanged();
    }

    StageShow& show_;
    Byte before_;
};

bool StageShow::LoadCharacterFile(TestCharacter& character) {
    struct Progress {
        ShowEvents& events;
        ~Progress() { events.EndProgress(); }
    };
    const Progress progress{events_};
    // Handlers may run meanwhile and choose another one.
    const std::string path = testChar_.TestChar;
    return LoadCharacter(
        path, character,
        {machine_.files,
         machine_.messages,
         engine_.Device(),
         options_,
         {[this](const std::string& caption) { events_.ShowProgress(caption); },
          [this] {
              if (machine_.window.MessageWaiting()) {
                  machine_.window.DoEvents();
              }
          },
          [this] { return machine_.window.EndRequested() || events_.LoadGivenUp(); }},
         machine_.png});
}

// Loads the character, unless it is, places it on the stage, and has the camera step as it walks.
void StageShow::LoadTestChar() {
    const Loading loading(*this);
    testChar_.CharCount = 1;
    if (!testChar_.CharLoaded) {
        TestCharacter character;  // in no list that a handler could reach
        if (!LoadCharacterFile(character)) {
            if (events_.LoadGivenUp()) {
                return;  // with the next stage
            }
            testChar_.Forget();
            GiveStepsBack();
            testChar_.UseChar = false;
            return;
        }
        testChar_.Characters.clear();
        testChar_.Characters.push_back(std::move(character));
        testChar_.CharLoaded = true;
        testChar_.CharName = testChar_.Characters.front().DisplayName;
    }
    PlaceCharacter(testChar_, model_, view_, options_);
    TakeSteps();
}

void StageShow::ChooseCharacter(const std::string& path) {
    testChar_.Forget();
    testChar_.TestChar = path;
    if (loop_.StageRunning != 0) {
        ReleaseTestChar();
        LoadTestChar();
    }
}

void StageShow::UseCharacter(bool use) {
    testChar_.UseChar = use;
    if (!use) {
        GiveStepsBack();
    } else if (loop_.StageRunning != 0) {
        LoadTestChar();
    }
}

// Gives its pictures back. It stays on and chosen.
void StageShow::ReleaseTestChar() {
    testChar_.CharLoaded = false;
    testChar_.Characters.clear();
    testChar_.Turning = false;
}

// The camera steps as the character walks, where that is on. Sideways only: that is the way it
// walks.
void StageShow::TakeSteps() {
    if (!testChar_.UseChar || !testChar_.CharLoaded) {
        return;
    }
    camera_.users = UsersSteps();
    testChar_.StepsOverridden = true;
    // A step below 0 would go through the bounds, and one of 0 counts as not set.
    // The user counts steps in a view that no stage has asked for otherwise, and so does this.
    const double walk = static_cast<double>(testChar_.Characters.front().WalkSpeed) *
                        static_cast<double>(testChar_.CharZoom) / view_.TimesAsWide();
    const auto step = static_cast<Single>(std::fabs(walk));
    if (step != 0) {
        camera_.HCamStep = step;
    }
}

void StageShow::GiveStepsBack() {
    if (!testChar_.StepsOverridden) {
        return;
    }
    testChar_.StepsOverridden = false;
    camera_.HCamStep = StepOrOne(camera_.users.HCamStep);
    camera_.VCamStep = camera_.users.VCamStep;
}

}  // namespace scenara
