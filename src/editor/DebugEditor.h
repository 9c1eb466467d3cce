// SPDX-License-Identifier: MIT
//
// DebugEditor: elements of the running stage picked and dragged with the mouse, and moved in the
// list, between the layers, cloned and deleted with keys.
//
// It works while Debug BG is checked, and forgets its selection when it is not. Indices are -1 for
// none. The *followed* element is the one that the pointer drags; it is always the selected one.
//
// Keys, asked at the end of each pass of drawing, one of them at most every 150 ms, in this order:
//
//   numpad plus    one place up in the list, so that it is drawn later; the last element goes to
//                  the front layer instead
//   numpad minus   out of the front layer, else one place down in the list. Deliberate: elements 0
//                  and 1 stay (NumpadMinus.LeavesTheFirstTwoElements)
//   Delete         taken out of the list; element 0 stays
//   Insert         a copy behind it, which then is the selected one
//   D              the dump, whatever is selected
//
// Addition: while the stage is paused they are asked once a pass, too. In the full screen none of
// them does anything: nothing there tells what is selected.
//
// What a key does to an index that is not in the list raises "Subscript out of range", and ends the
// pass.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "editor/ElementPick.h"
#include "platform/Clock.h"
#include "platform/Keyboard.h"
#include "render/CameraControl.h"
#include "render/ViewFlags.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// What the editor asks of the main window.
struct EditorActions {
    std::function<void(const std::string& caption)> SetCaption;
    std::function<void()> DataCheck;       // writes the dump
    std::function<void()> Edited = [] {};  // the stage looks otherwise than it did
};

// What it works with; all of it outlives the editor.
struct EditorContext {
    StageModel& model;
    Camera& camera;
    const View& view;
    const ViewFlags& flags;
    const ViewOptions& options;
    Keyboard& keyboard;
    Clock& clock;
};

class DebugEditor : public GatedKeys {
public:
    DebugEditor(const EditorContext& context, EditorActions actions)
        : context_(context), actions_(std::move(actions)) {}

    // --- Mouse, in canvas pixels ---------------------------------------------------------------

    // Picks the topmost element there and begins to drag it; where there is none, nothing is
    // selected any more.
    void MouseDown(const ViewPoint& point);

    // The dragged element follows the pointer. Its start changes by what its place changes, so that
    // the dump shows the move. Elements that are linked to it come along: their own start counts
    // from its. "Overflow" when it is
    // dragged out of the range of a start; an error ends the drag.
    void MouseMove(const ViewPoint& point);

    // Ends the drag; the selection stays.
    void MouseUp() { followed_ = kNone; }

    // --- Keys ----------------------------------------------------------------------------------

    void AtEndOfPass() override;

    // Keys that were pressed until now count as not pressed: nothing was seen of what they are for.
    void ForgetPresses() const;

    // --- Selection -----------------------------------------------------------------------------

    [[nodiscard]] Integer SelectedIndex() const { return selected_; }
    [[nodiscard]] Integer FollowedIndex() const { return followed_; }

    // Keys that were pressed until now were not meant for it: they are forgotten.
    void Select(Integer index);

    // Nothing is selected or dragged: for another stage, or none.
    void Clear() { Select(kNone); }

    // Where the machine draws the selection's frame, over the presented picture.
    [[nodiscard]] std::optional<ViewFrame> Outline() const;

private:
    static constexpr Integer kNone = -1;

    struct Offset {
        double x = 0;
        double y = 0;
    };
    // From where the drag began.
    struct Drag {
        Offset grab;
        Long startX = 0;
        Long startY = 0;
        Offset moved;  // by the pointer, so far
        ViewPoint from;
        Offset motion;  // addition: of the element, then
    };

    [[nodiscard]] bool IsOn() const { return context_.flags.DebugBG != 0; }
    [[nodiscard]] DrawOptions Drawing() const {
        return DrawOptionsOf(context_.model, context_.camera, context_.view, context_.options);
    }
    [[nodiscard]] Offset CameraOffset(const BackgroundElement& element) const;
    void BeginDrag(const ViewPoint& point);
    void MoveStart(Integer index, const ViewPoint& point);
    void Shift(Integer index, const Offset& by);

    [[nodiscard]] std::optional<VirtualKey> PressedKey() const;
    void Act(VirtualKey key);
    void MoveUp();
    void MoveDown();
    void Delete();
    void Clone();
    void SelectionMovesTo(Integer index);
    void ShowPlace() const;

    EditorContext context_;
    EditorActions actions_;
    Integer selected_ = kNone;
    Integer followed_ = kNone;
    Drag drag_;
};

}  // namespace scenara
