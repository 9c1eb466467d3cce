// SPDX-License-Identifier: MIT
//
// The background editor, as the window drives it.
#include <utility>

#include "app/frmStage.h"
#include "editor/CameraScroll.h"
#include "editor/DataCheck.h"

namespace scenara {

void frmStage::mnuDebugBG_Click() {
    const bool edits = form_[Menu::mnuDebugBG].Flip();
    show_.Flags().DebugBG = edits ? kByteTrue : Byte{0};
    if (!edits) {
        show_.Editor().Clear();
    }
}

// What the machine shows of the editing: the camera's bar, and a frame around what is selected.
// Between two stages the bar stays, with nowhere to go: the window would shrink and grow again.
void frmStage::ShowEditing() {
    const bool edits = form_[Menu::mnuDebugBG].checked;
    ScrollBar& bar = form_.hscHScroll;
    if (show_.Loop().StageRunning == 0) {
        bar.Min = 0;
        bar.Max = 0;
        bar.Value = 0;
    }
    const bool visible = edits && (show_.Loop().StageRunning != 0 || show_.Which.next) &&
                         show_.SpriteBrowserMode == 0;
    if (std::exchange(bar.Visible, visible) != visible) {
        Size(wishedSize_.width, wishedSize_.height);  // the bar takes nothing of the picture
    }
    form_.selection.reset();
    if (!edits || !CanBeEdited()) {
        return;
    }
    bar.Value = ScrollValueOf(show_.Model(), bar);
    form_.selection = show_.Editor().Outline();
}

bool frmStage::CanBeEdited() const {
    const ShowState state = show_.State();
    return state == ShowState::Running || state == ShowState::Paused;
}

void frmStage::Form_MouseDown(Long x, Long y) {
    Handle([&] {
        if (CanBeEdited()) {
            show_.Editor().MouseDown({x, y});
        } else if (Browses()) {
            browser_.MouseDown(x, y);
        }
    });
}

void frmStage::Form_MouseMove(Long x, Long y) {
    Handle([&] {
        if (CanBeEdited()) {
            show_.Editor().MouseMove({x, y});
        } else if (Browses()) {
            browser_.MouseMove(x, y);
        }
    });
}

void frmStage::Form_MouseUp() {
    Handle([this] {
        browser_.MouseUp();
        show_.Editor().MouseUp();
    });
}

void frmStage::hscHScroll_Change(Long value) {
    Handle([&] {
        if (form_[Menu::mnuDebugBG].checked && CanBeEdited()) {
            // A value beyond the bar's is one of the stage before.
            form_.hscHScroll.Value = ValueWithin(form_.hscHScroll, value);
            scenara::hscHScroll_Change(show_.Model(), show_.CameraState(), form_.hscHScroll);
            show_.NoteEdit();
        }
    });
}

// A disk that is full must not cost the stage that was to be written down.
void frmStage::WriteDump() {
    static_cast<void>(Guarded([this] {
        Tell(DataCheckCaption(DataCheck(show_.Model(), show_.Options().Additions, machine_.files)));
    }));
}

}  // namespace scenara
