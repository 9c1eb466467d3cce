// SPDX-License-Identifier: MIT
//
// TileEngine: one pass over the stage's background elements, and the camera control behind it.
//
// A frame is two passes: first the elements behind the fight, then those in front. Before both the
// stage's own clocks tick, once per frame.
#pragma once

#include "platform/View.h"
#include "render/CameraControl.h"
#include "render/DrawOptions.h"
#include "render/Engine.h"
#include "render/PassWatch.h"
#include "render/ViewFlags.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

class TileEngine {
public:
    // All of them outlive it. `watch` may end the drawing between two elements; what is left of the
    // frame then moves on without being drawn.
    TileEngine(Engine& engine, StageModel& model, Camera& camera, const View& view,
               const ViewFlags& flags, const ViewOptions& options, const CameraInput& input,
               PassWatch* watch = nullptr)
        : engine_(engine),
          model_(model),
          camera_(camera),
          view_(view),
          flags_(flags),
          options_(options),
          input_(input),
          watch_(watch) {}

    // Addition: before the first pass of a frame, so that nothing of the one before is seen where
    // no element is. Black, or as the stage says.
    void ClearPicture();

    // The pass that DrawFrontLayer selects. The camera moves at its end. Plainly every element
    // follows the camera in every pass, so that each sees the move that the other one made, and
    // drift and swing go on only for what is drawn in it. Allocates nothing.
    //
    // Errors: those of the engine, and "Subscript out of range" for an index that points outside
    // of its table; the pass ends there.
    void DrawBackground();

    // The same pass without its pictures.
    void MoveBackground();

    // The same elements as they stand: nothing moves, neither they nor the camera. (Their motion is
    // that of the next frame, since an element moves on when it has been drawn.)
    void DrawAgain();

    // The stage's own clocks, once per frame in front of the back pass: controllers, animations,
    // with additions swings, links. "Subscript out of range" as above.
    void TickStage();

private:
    [[nodiscard]] bool TakesPart(const BackgroundElement& element) const;
    void Pass(bool draws);
    void PassPlainly(bool draws);
    void PassOnCanvas(bool draws);
    [[nodiscard]] DrawOptions OptionsOfPass() const {
        return DrawOptionsOf(model_, camera_, view_, options_);
    }
    void Draw(const BackgroundElement& element, const DrawOptions& options);
    static void MovePlainly(BackgroundElement& element);
    [[nodiscard]] bool GoesOn() { return watch_ == nullptr || watch_->GoesOn(); }

    Engine& engine_;
    StageModel& model_;
    Camera& camera_;
    const View& view_;
    const ViewFlags& flags_;
    const ViewOptions& options_;
    CameraInput input_;
    PassWatch* watch_;
};

// Whether an element of this layer belongs to a pass. Deliberate: layers below 0 belong to both
// (LayerRule.LayersBelowZeroBelongToBothPasses).
[[nodiscard]] bool BelongsToPass(Integer layerno, bool frontLayer);

}  // namespace scenara
