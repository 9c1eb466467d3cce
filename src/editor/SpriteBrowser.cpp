// SPDX-License-Identifier: MIT
#include "editor/SpriteBrowser.h"

#include <algorithm>
#include <cstddef>

#include "base/NumberText.h"
#include "base/Raised.h"
#include "render/TexelLock.h"
#include "stage/ModelLookup.h"

namespace scenara {

BrowserPicture PictureOf(const SpriteEntry& sprite, Long mostWidth, Long mostHeight) {
    BrowserPicture picture;
    picture.width = std::clamp<Long>(sprite.width, 0, std::max<Long>(mostWidth, 0));
    picture.height = std::clamp<Long>(sprite.height, 0, std::max<Long>(mostHeight, 0));
    if (!sprite.texture || picture.width == 0 || picture.height == 0) {
        return {};
    }
    picture.pixels.reserve(static_cast<std::size_t>(picture.width) *
                           static_cast<std::size_t>(picture.height));
    const TexelLock texels(*sprite.texture);
    for (Long y = 0; y < picture.height; ++y) {
        for (Long x = 0; x < picture.width; ++x) {
            picture.pixels.push_back(Over(texels.At(x, y), CheckAt(x, y)));
        }
    }
    return picture;
}

void SpriteBrowser::mnuDebug_Click() {
    mode_ = static_cast<Byte>(~mode_);
    if (mode_ != 0) {
        room_ = window_.PictureRoom();
        fillsBox_ = options_.Additions;
        Open();
        return;
    }
    hscSGFX_.Visible = false;
    drags_ = false;
    if (!fillsBox_) {
        window_.MakeRoom(room_.width, room_.height);
    }
}

void SpriteBrowser::Open() {
    hscSGFX_.Min = 0;
    hscSGFX_.Max = model_.SpriteCount - 1;
    // Where it was left in a stage that had more of them.
    hscSGFX_.Value = std::clamp<Long>(hscSGFX_.Value, 0, std::max<Long>(hscSGFX_.Max, 0));
    hscSGFX_.Visible = true;
    most_ = SpriteStand::kAnyTimes;
    hscSGFX_Change();
}

void SpriteBrowser::Show(bool scrolls) {
    if (FillsBox()) {
        ShowInBox();
        return;
    }
    scrolls_ = scrolls;
    if (shows_) {
        again_ = true;
        return;
    }
    const Raised shows(shows_);
    bool shown = false;
    do {
        again_ = false;
        shown = ShowSprite();
    } while (again_ && mode_ != 0);
    if (shown && scrolls_) {
        window_.SetCaption(NumberText(model_.CamX));
    }
}

// Whether there is a sprite, and it is the one that is shown now.
bool SpriteBrowser::ShowSprite() {
    if (model_.SpriteCount == 0) {
        window_.ShowPicture({});
        return false;
    }
    const Long value = hscSGFX_.Value;
    const Byte mode = mode_;
    const InnerSize most = window_.LargestPicture();
    window_.MakeRoom(std::min<Long>(std::max<Long>(Sprite(value).width, kNarrowest), most.width),
                     std::min<Long>(Sprite(value).height, most.height));
    window_.API_doevents();
    if (mode_ != mode || again_ || value >= model_.SpriteCount) {
        return false;
    }
    const SpriteEntry& sprite = Sprite(value);
    window_.ShowPicture(PictureOf(sprite, most.width, most.height));
    window_.SetCaption(PlaceText(sprite, value));
    return true;
}

const SpriteEntry& SpriteBrowser::Sprite(Long value) const {
    return RecordAt(model_.Sprites, ToInteger(value), "sprite");
}

std::string SpriteBrowser::PlaceText(const SpriteEntry& sprite, Long value) const {
    return "(" + NumberText(std::int64_t{value} + 1) + "\\" +
           NumberText(std::int64_t{hscSGFX_.Max} + 1) + ")  Group: " + NumberText(sprite.group) +
           "  Image: " + NumberText(sprite.image);
}

// --- addition ---

void SpriteBrowser::ShowInBox() {
    InnerSize size{1, 1};
    if (model_.SpriteCount > 0) {
        const SpriteEntry& sprite = Sprite(hscSGFX_.Value);
        size = {sprite.width, sprite.height};
    }
    drags_ = false;
    stand_.Fit(window_.BoxOnScreen(), size, most_);
    PaintBox();
}

void SpriteBrowser::BoxChanged() {
    if (FillsBox()) {
        stand_.FitAgain(window_.BoxOnScreen());
        PaintBox();
    }
}

void SpriteBrowser::Zoom(ZoomStep step) {
    if (!CanZoom()) {
        return;
    }
    if (step == ZoomStep::ToStart) {
        most_ = SpriteStand::kAnyTimes;
        ShowInBox();
        return;
    }
    const InnerSize& box = stand_.Box();
    Wheel(step == ZoomStep::In ? 1 : -1, box.width / 2, box.height / 2);
}

void SpriteBrowser::Wheel(Long notches, Long x, Long y) {
    if (!CanZoom()) {
        return;
    }
    bool changed = false;
    while (notches != 0 && stand_.Step(notches > 0, x, y)) {
        notches += notches > 0 ? -1 : 1;
        changed = true;
    }
    if (changed) {
        most_ = stand_.Times();
        PaintBox();
    }
}

void SpriteBrowser::MouseDown(Long x, Long y) {
    drags_ = CanZoom();
    dragX_ = x;
    dragY_ = y;
}

void SpriteBrowser::MouseMove(Long x, Long y) {
    if (!drags_ || !CanZoom()) {
        return;
    }
    const Long left = stand_.Left();
    const Long top = stand_.Top();
    stand_.Move(x - dragX_, y - dragY_);
    dragX_ = x;
    dragY_ = y;
    if (stand_.Left() != left || stand_.Top() != top) {
        PaintBox();
    }
}

void SpriteBrowser::PaintBox() {
    if (model_.SpriteCount == 0) {
        PaintSprite({}, stand_, pixels_);
        window_.FillBox(stand_.Box(), pixels_, "This stage has no sprites.");
        caption_ = "No sprites";
        window_.CaptionChanged();
        return;
    }
    const Long value = hscSGFX_.Value;
    const SpriteEntry& sprite = Sprite(value);
    PaintSprite(sprite, stand_, pixels_);
    window_.FillBox(stand_.Box(), pixels_, sprite.texture ? "" : "This sprite has no picture.");
    caption_ = PlaceText(sprite, value) + "  Size: " + NumberText(sprite.width) + " x " +
               NumberText(sprite.height) + "  Axis: " + NumberText(sprite.axisX) + ", " +
               NumberText(sprite.axisY) + "  Zoom: " + stand_.TimesText();
    window_.CaptionChanged();
}

}  // namespace scenara
