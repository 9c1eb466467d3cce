// SPDX-License-Identifier: MIT
//
// WhichStage: the stage that is asked for, the one that is shown, and what follows it.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "stage/Camera.h"

namespace scenara {

// Where a camera stands, and how near.
struct CameraStand {
    CameraPlace place;
    std::optional<double> zoom;  // none: where the stage starts
};

struct WhichStage {
    // Asked for last; empty: none. It may turn out to be no stage.
    std::string CurrentStageFile;
    // What the loop is to begin again with, at the top of its next pass.
    std::optional<std::string> next;
    // Whose loop runs.
    std::string shown;
    // Paths that the user gave while another one was loading; to be opened after that. Or the file
    // of the list that was chosen meanwhile: of the two there is the newer one, or none.
    std::vector<std::string> follows;
    bool followsIsDropped = false;  // onto the window
    std::string chosen;
    // Where the camera is put in the stage that is loaded again.
    std::optional<CameraStand> camera;

    // CurrentStageFile is a stage: a later choice that is none does not change this request.
    void Request() { next = CurrentStageFile; }

    // The loop begins with what is requested.
    void Begin() { shown = *std::exchange(next, std::nullopt); }
};

}  // namespace scenara
