// SPDX-License-Identifier: MIT
//
// The size of the window, and where its controls stand.
#include <algorithm>
#include <utility>

#include "app/frmStage.h"

namespace scenara {
namespace {

// How much of the screen's work area the window takes at most when it comes up the first time.
constexpr double kShareOfScreen = 0.8;

// A size that most stages of today have, where there is room for it; else as often the size of
// those of yesterday as there is, and at least once.
InnerSize FirstPictureSize(const InnerSize& room) {
    constexpr InnerSize kWide{1280, 720};
    if (room.width >= kWide.width && room.height >= kWide.height) {
        return kWide;
    }
    constexpr CanvasSize kUnit;
    const Long times =
        std::max<Long>(std::min(room.width / kUnit.width, room.height / kUnit.height), 1);
    return {kUnit.width * times, kUnit.height * times};
}

}  // namespace

// Sized and centred when the window first comes up and, plain, when it is back from the full
// screen: doing so at each change of focus would undo what the user did. Addition: it stands where
// the user had it last, if that is known.
void frmStage::Form_Activate() {
    Handle([&] {
        if (!std::exchange(activated_, true)) {
            SizeForPicture();
            centres_ = !show_.Options().Additions || !StandIn(extras_);
        }
    });
}

// The window comes up so. A window manager that is still taking it in loses another size.
void frmStage::ComeUp() {
    if (std::exchange(cameUp_, true)) {
        return;
    }
    if (!show_.Options().Additions) {
        const InnerSize view = machine_.window.RoomFor(CanvasSize());
        LayOutControls(view.width + ListWidth(), view.height);
        return;
    }
    const InnerSize around = machine_.window.Around();
    if (const std::optional<WindowStand> stand = StandIn(extras_)) {
        machine_.window.ComeUpAt(*stand);
        LayOutControls(std::max<Long>(stand->size.width - around.width, 0),
                       std::max<Long>(stand->size.height - around.height, 0));
        return;
    }
    const InnerSize area = machine_.window.WorkArea();
    const auto room = [](Long ofScreen, Long taken) {
        return static_cast<Long>(ofScreen * kShareOfScreen) - taken;
    };
    const InnerSize picture = FirstPictureSize(
        {room(area.width, around.width + ListWidth()), room(area.height, around.height)});
    LayOutControls(picture.width + ListWidth(), picture.height);
}

void frmStage::Form_Resize(Long innerWidth, Long innerHeight) {
    Handle([&] {
        LayOutControls(innerWidth, innerHeight);
        FollowBox();
        if (std::exchange(centres_, false)) {
            Centre();
        }
    });
}

// The sprite browser draws for the box that it has.
void frmStage::FollowBox() {
    if (Browses()) {
        browser_.BoxChanged();
    }
}

void frmStage::LayOutControls(Long innerWidth, Long innerHeight) {
    wishedSize_ = {innerWidth, innerHeight};
    form_.innerWidth = innerWidth;
    form_.innerHeight = innerHeight;
    if (show_.Options().Additions) {
        form_.lstStages.width = ListWidthIn(innerWidth);
    }
    const Long listWidth = ListWidth();
    form_.picDraw.width = innerWidth > listWidth ? innerWidth - listWidth : 0;
    form_.picDraw.height = innerHeight;
    if (ShowStageList != 0) {
        form_.lstStages.left = form_.picDraw.width;
        form_.lstStages.height = innerHeight;
    }
    form_.lstStages.visible = ShowStageList != 0;
}

// A window that is narrower than its list would lose more than it has.
void frmStage::Size(Long width, Long height) {
    if (show_.Options().Additions || keepsSize_) {
        return;
    }
    hasSized_ = true;
    wishedSize_ = {std::max<Long>(width, 0), height};
    machine_.window.Size(wishedSize_.width, wishedSize_.height);
}

// The additions are back: so is the size that the window had with them, if it has been sized since.
void frmStage::GiveSizeBack() {
    const std::optional<WindowStand> stand = StandIn(extras_);
    if (show_.Options().Additions && std::exchange(hasSized_, false) && stand) {
        const InnerSize around = machine_.window.Around();
        wishedSize_ = {std::max<Long>(stand->size.width - around.width, 0),
                       std::max<Long>(stand->size.height - around.height, 0)};
        machine_.window.Size(wishedSize_.width, wishedSize_.height);
    }
}

// The view at its own size, beside the list where that is shown.
void frmStage::SizeForPicture() {
    const InnerSize view = machine_.window.RoomFor(CanvasSize());
    MakeRoom(view.width, view.height);
}

// Addition.
void frmStage::ShowPictureTimes(Long times) {
    const CanvasSize canvas = show_.Picture().Canvas();
    const InnerSize picture =
        machine_.window.RoomFor({canvas.width * times, canvas.height * times});
    const InnerSize inner{picture.width + ListWidth(), picture.height};
    if (!IsFullScreen() && machine_.window.HasRoomFor(inner.width, inner.height)) {
        machine_.window.Size(inner.width, inner.height);
    }
}

void frmStage::Centre() {
    const WindowPlace screen = machine_.window.Screen();
    const WindowPlace place = machine_.window.Place();
    machine_.window.MoveTo(screen.left + (screen.width - place.width) / 2,
                           screen.top + (screen.height - place.height) / 2);
}

void frmStage::SetCaption(const std::string& caption) {
    noted_ = false;
    form_.Caption = caption;
    machine_.window.SetCaption(caption);
}

// Plain, the list takes nothing of the picture; a second click may come before the first one's size
// has. Addition: they share the window.
void frmStage::mnuStageList_Click() {
    ShowStageList = static_cast<Byte>(~ShowStageList);
    if (show_.Options().Additions) {
        LayOutControls(form_.innerWidth, form_.innerHeight);
        FollowBox();
        return;
    }
    const Long listWidth = form_.lstStages.width;
    Size(wishedSize_.width + (ShowStageList != 0 ? listWidth : -listWidth), wishedSize_.height);
}

}  // namespace scenara
