// SPDX-License-Identifier: MIT
//
// ViewOptions: how stages are read and shown, as the user wants it.
//
// Plain reading and drawing take just the keys and steps that have always been there; the additions
// are what newer stages expect beyond that. Each addition has one place, a step of its own beside
// the plain one, marked "Addition" where it stands:
//
//   what counts as a section header        SectionHeader.cpp, BeginsWithBracket
//   what may stand before a key            KeyOffer.cpp, MayStandHere
//   how texts are cut, and their case      KeyOffer.cpp, Text
//   kinds of element, and their keys       StageKeys.cpp, KindByFirstLetter, ReadMoreElementKeys
//   elements of no known kind              DefinitionReader.cpp, CloseElement
//   what counts as a frame line            DefinitionReader.cpp, IsFrame
//   keys of the whole stage                StageKeys.cpp, ReadSettingKeys
//   the version that a stage is made for   StageKeys.cpp, ReadInfoKeys
//   what stands behind a frame's flip      StageKeys.cpp, ReadFrame; Blending.cpp
//   stages for another view                StageScale.cpp; sprites/ScaledPicture.cpp
//   blending                               render/BlendedBlit.cpp
//   mirrored frames                        render/ElementPlacement.cpp
//   stretched parallax pictures            render/ParallaxRows.cpp, RowStretch
//   windows that move                      render/ElementWindow.cpp
//   negative tile steps                    render/Tiling.cpp
//   the upper bound as the file has it,
//   and dummies that lead from the start   render/PrepareStage.cpp
//   the test character, moved and seen     show/CharacterFigure.cpp; render/Figure.cpp
//   a paused stage that is edited          show/StageShow.cpp, EditWhilePaused
//   a character's ground that moves        character/PlaceCharacter.cpp, FollowGround
//   blank frames, and repeated actions     character/CharacterAnimation.cpp
//   palettes that are none                 sprites/version1/SubfilePalette.cpp
//   palette files, and palettes in force   character/CharacterColors.cpp; CharacterSprites.cpp
//   archives of version 2, to come         sprites/sff2.cpp, LoadSprites
#pragma once

namespace scenara {

struct ViewOptions {
    bool Additions = true;
};

inline constexpr ViewOptions kPlainView{false};

}  // namespace scenara
