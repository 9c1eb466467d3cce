// SPDX-License-Identifier: MIT
#include "editor/SpriteBrowser.h"

#include <algorithm>
#include <cstddef>

#include "base/NumberText.h"
#include "base/Raised.h"
#include "render/TexelLock.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kMostAlpha = 255;

std::uint32_t CheckAt(Long x, Long y) {
    return (x / kCheckSize + y / kCheckSize) % 2 == 0 ? kLightCheck : kDarkCheck;
}

// `texel` over something opaque, each colour rounded to the nearest value.
std::uint32_t Over(std::uint32_t texel, std::uint32_t behind) {
    const std::uint32_t alpha = AlphaOf(texel);
    std::uint32_t mixed = kOpaque;
    for (const std::uint32_t shift : {0U, 8U, 16U}) {
        const std::uint32_t front = texel >> shift & 0xFFU;
        const std::uint32_t back = behind >> shift & 0xFFU;
        mixed |= (front * alpha + back * (kMostAlpha - alpha) + kMostAlpha / 2) / kMostAlpha
                 << shift;
    }
    return mixed;
}

}  // namespace

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
        Open();
    } else {
        hscSGFX_.Visible = false;
        window_.MakeRoom(view_.width, view_.height);
    }
}

void SpriteBrowser::Open() {
    hscSGFX_.Min = 0;
    hscSGFX_.Max = model_.SpriteCount - 1;
    // Where it was left in a stage that had more of them.
    hscSGFX_.Value = std::clamp<Long>(hscSGFX_.Value, 0, std::max<Long>(hscSGFX_.Max, 0));
    hscSGFX_.Visible = true;
    hscSGFX_Change();
}

void SpriteBrowser::Show(bool scrolls) {
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
    const auto spriteShown = [&]() -> const SpriteEntry& {
        return RecordAt(model_.Sprites, ToInteger(value), "sprite");
    };
    const InnerSize most = window_.LargestPicture();
    window_.MakeRoom(std::min<Long>(std::max<Long>(spriteShown().width, kNarrowest), most.width),
                     std::min<Long>(spriteShown().height, most.height));
    window_.API_doevents();
    if (mode_ != mode || again_ || value >= model_.SpriteCount) {
        return false;
    }
    const SpriteEntry& sprite = spriteShown();
    window_.ShowPicture(PictureOf(sprite, most.width, most.height));
    window_.SetCaption("(" + NumberText(std::int64_t{value} + 1) + "\\" +
                       NumberText(std::int64_t{hscSGFX_.Max} + 1) + ")  Group: " +
                       NumberText(sprite.group) + "  Image: " + NumberText(sprite.image));
    return true;
}

}  // namespace scenara
