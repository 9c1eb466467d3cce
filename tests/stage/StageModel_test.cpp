// SPDX-License-Identifier: MIT
#include "stage/StageModel.h"

#include <array>
#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "ModelText.h"
#include "platform/soft/SoftDevice.h"

namespace scenara::test {
namespace {

template <auto Member, typename Type>
constexpr bool kIs = false;
template <typename Record, typename Field, Field Record::*Member, typename Type>
constexpr bool kIs<Member, Type> = std::is_same_v<Field, Type>;

// The widths matter: they decide what overflows and how values round.
static_assert(kIs<&BackgroundElement::mask, Integer> && kIs<&BackgroundElement::spriteGroup, Long>);
static_assert(kIs<&BackgroundElement::spriteImage, Integer>);
static_assert(kIs<&BackgroundElement::startX, Long> && kIs<&BackgroundElement::startY, Long>);
static_assert(kIs<&BackgroundElement::posX, Single> && kIs<&BackgroundElement::posY, Single>);
static_assert(kIs<&BackgroundElement::deltaX, Single> && kIs<&BackgroundElement::deltaY, Single>);
static_assert(kIs<&BackgroundElement::tileX, Long> && kIs<&BackgroundElement::tileY, Long>);
static_assert(kIs<&BackgroundElement::tileSpacingX, Long>);
static_assert(kIs<&BackgroundElement::tileSpacingY, Long>);
static_assert(kIs<&BackgroundElement::velocityX, Single>);
static_assert(kIs<&BackgroundElement::velocityY, Single>);
static_assert(kIs<&BackgroundElement::actionIndex, Integer>);
static_assert(kIs<&BackgroundElement::spriteIndex, Integer>);
static_assert(kIs<&BackgroundElement::layerno, Integer>);
static_assert(kIs<&BackgroundElement::lastTileIndex, Integer>);
static_assert(kIs<&BackgroundElement::frameIndex, Integer>);
static_assert(kIs<&BackgroundElement::frameTime, Integer>);
static_assert(kIs<&BackgroundElement::positionlink, Integer>);
static_assert(kIs<&BackgroundElement::linkParent, Integer>);
static_assert(kIs<&BackgroundElement::sinState, std::array<Single, 3>>);
static_assert(kIs<&BackgroundElement::sinYAmplitude, Single>);
static_assert(kIs<&BackgroundElement::ctrlOffset, std::array<Single, 2>>);
static_assert(kIs<&BackgroundElement::visible, Byte> && kIs<&BackgroundElement::enabled, Byte>);
static_assert(kIs<&BackgroundElement::ctrlPos, std::array<Single, 4>>);
static_assert(kIs<&BackgroundElement::id, Long> && kIs<&BackgroundElement::windowX1, Single>);
static_assert(kIs<&BackgroundElement::windowActive, Byte>);
static_assert(kIs<&BackgroundElement::xscaleTop, Single>);
static_assert(kIs<&SpriteEntry::axisX, Integer> && kIs<&SpriteEntry::width, Integer>);
static_assert(kIs<&SpriteEntry::group, Long> && kIs<&SpriteEntry::image, Integer>);
static_assert(kIs<&SpriteEntry::masked, Integer> && kIs<&SpriteEntry::keyAlpha, Byte>);
static_assert(kIs<&SpriteEntry::linkedTo, Integer> && kIs<&SpriteEntry::trueColor, Byte>);
static_assert(kIs<&StageFrame::group, Long> && kIs<&StageFrame::image, Integer>);
static_assert(kIs<&StageFrame::offsetX, Integer> && kIs<&StageFrame::time, Integer>);
static_assert(kIs<&StageAction::loopstart, Integer> && kIs<&StageAction::actionNo, Integer>);
static_assert(kIs<&BgCtrl::startTime, Long> && kIs<&BgCtrl::endTime, Long>);
static_assert(kIs<&BgCtrl::loopTime, Long> && kIs<&BgCtrl::x, Single>);
static_assert(kIs<&BgCtrl::value, Integer> && kIs<&BgCtrl::value1, Integer>);
static_assert(kIs<&BgCtrlDef::looptime, Long> && kIs<&BgCtrlDef::controlCount, Integer>);
static_assert(kIs<&StageModel::CamStartX, Single> && kIs<&StageModel::CamStartY, Integer>);
static_assert(kIs<&StageModel::BoundLeft, Long> && kIs<&StageModel::BoundRight, Long>);
static_assert(kIs<&StageModel::BoundHigh, Integer> && kIs<&StageModel::BoundLow, Integer>);
static_assert(kIs<&StageModel::ZOffset, Integer> && kIs<&StageModel::ZOffsetLink, Integer>);
static_assert(kIs<&StageModel::P1StartX, Integer> && kIs<&StageModel::Tension, Integer>);
static_assert(kIs<&StageModel::ScreenLeft, Integer> && kIs<&StageModel::ScreenRight, Integer>);
static_assert(kMaxRecords == 32'767);

// --- the list of fields ---

// Stands for a value of any type where a record is begun.
struct Anything {
    template <typename Value>
    operator Value() const;  // NOLINT(google-explicit-constructor): that is what it is for
};

template <typename Record, std::size_t... Indices>
consteval bool TakesSoMany(std::index_sequence<Indices...> /*one for each*/) {
    return requires {
        Record{(static_cast<void>(Indices), Anything())...};
    };
}

// How many fields the compiler knows of the record.
template <typename Record, std::size_t Count = 0>
consteval std::size_t FieldCount() {
    if constexpr (TakesSoMany<Record>(std::make_index_sequence<Count + 1>())) {
        return FieldCount<Record, Count + 1>();
    } else {
        return Count;
    }
}

template <typename Record>
std::size_t Listed() {
    std::size_t count = 0;
    ForEachField(Record(), [&](const char* /*name*/, const auto& /*field*/) { ++count; });
    return count;
}

TEST(ModelFields, EveryFieldIsListed) {
    constexpr std::size_t kSeenFrom = 1;
    constexpr std::size_t kTexture = 1;
    constexpr std::size_t kOfFrames = 2;  // what the start-up makes of the others
    constexpr std::size_t kOfControls = 3;
    constexpr std::size_t kTables = 5;  // one of them is of pictures alone
    constexpr std::size_t kTold = 2;    // Author, Archive
    EXPECT_EQ(Listed<const Blending>(), FieldCount<Blending>());
    EXPECT_EQ(Listed<const BackgroundElement>() + kSeenFrom, FieldCount<BackgroundElement>());
    EXPECT_EQ(Listed<const SpriteEntry>() + kTexture, FieldCount<SpriteEntry>());
    EXPECT_EQ(Listed<const StageFrame>() + kOfFrames, FieldCount<StageFrame>());
    EXPECT_EQ(Listed<const StageAction>(), FieldCount<StageAction>());
    EXPECT_EQ(Listed<const BgCtrl>() + kOfControls, FieldCount<BgCtrl>());
    EXPECT_EQ(Listed<const BgCtrlDef>(), FieldCount<BgCtrlDef>());
    EXPECT_EQ(Listed<const StageModel>() + kTables + kTold, FieldCount<StageModel>());
}

// A field that is listed twice would hide one that is not.
TEST(ModelFields, EveryFieldIsListedOnce) {
    std::set<const void*> places;
    std::set<std::string> names;
    const BackgroundElement element;
    ForEachField(element, [&](const char* name, const auto& field) {
        EXPECT_TRUE(places.insert(&field).second) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
    });
    const StageModel model;
    ForEachField(model, [&](const char* name, const auto& field) {
        EXPECT_TRUE(places.insert(&field).second) << name;
        EXPECT_TRUE(names.insert(name).second || std::string(name).empty()) << name;
    });
}

// --- how records start ---

// The fields that do not start at 0 or empty.
template <typename Record>
std::string NotAtZero() {
    std::string text;
    ForEachField(Record(), [&](const char* name, const auto& field) {
        const std::string its = FieldText(name, field);
        if (its != FieldText(name, std::remove_cvref_t<decltype(field)>())) {
            text.append(its);
        }
    });
    return text;
}

TEST(StageModel, FieldsStartAtZeroButForThese) {
    EXPECT_EQ(NotAtZero<const BackgroundElement>(),
              "deltaX=1\ndeltaY=1\nalphaSource=256\nyscaleStart=100\ndeltaRead=1 1 "
              "\nframesBlend=1\nscaleStart=1 1 \nzoomDelta=1 1 \nrowWidths=0 -1 \n");
    EXPECT_EQ(NotAtZero<const SpriteEntry>(), "linkedTo=-1\n");
    EXPECT_EQ(NotAtZero<const StageFrame>(), "spriteIndex=-1\nscale=1 1 \n");
    EXPECT_EQ(NotAtZero<const StageAction>(), "");
    EXPECT_EQ(NotAtZero<const BgCtrl>(), "");
    EXPECT_EQ(NotAtZero<const BgCtrlDef>(), "");
    EXPECT_EQ(NotAtZero<const StageModel>(),
              "ZOffsetLink=-1\nMusicVolume=100\nMusicLoopEnd=-1\nStageXScale=1\nStageYScale=1\n"
              "ZoomOut=1\nZoomIn=1\nStartZoom=1\nCamZoom=1\n");
}

TEST(StageModel, ClearPutsEverythingBackToItsStart) {
    StageModel model;
    model.Elements.emplace_back().type = "anim";
    model.Sprites.emplace_back();
    model.Actions.emplace_back().frames.emplace_back();
    model.CtrlDefs.emplace_back().controls.emplace_back();
    model.ElementCount = model.SpriteCount = model.ActionCount = model.CtrlDefCount = 1;
    model.StageTitle = model.MusicFile = "x";
    model.CamStartX = model.CamX = model.CamY = 5;
    model.CamStartY = model.BoundHigh = model.BoundLow = model.ZOffset = model.ZOffsetLink = 6;
    model.BoundLeft = model.BoundRight = 7;
    model.P1StartX = model.Tension = model.ScreenLeft = model.ScreenRight = 8;
    model.LastImageWidth = model.LastImageHeight = 9;
    model.Clear();
    EXPECT_EQ(ModelText(model), ModelText(StageModel()));
}

TEST(StageModel, ClearReleasesEveryTexture) {
    SoftDevice device;
    StageModel model;
    TextureParameters size;
    size.width = 4;
    size.height = 4;
    const std::shared_ptr<Direct3DTexture8> texture = device.CreateTexture(size);
    model.Sprites.emplace_back().texture = texture;
    model.Sprites.emplace_back().texture = texture;  // a linked entry
    EXPECT_EQ(texture.use_count(), 3);
    model.Clear();
    EXPECT_EQ(texture.use_count(), 1);
}

}  // namespace
}  // namespace scenara::test
