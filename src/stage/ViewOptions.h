// SPDX-License-Identifier: MIT
//
// ViewOptions: how stages are read and shown, as the user wants it.
//
// Plain reading and drawing take just the keys and steps that have always been there; the additions
// are what newer stages expect beyond that. So far both read alike. Each addition to reading has
// one place, a step of its own beside the plain one:
//
//   what counts as a section header        SectionHeader.cpp, IsSectionHeader
//   what may stand before a key            ReadKeyValue.cpp, OnlyBlanksBefore
//   how texts are cut, and their case      KeyOffer.cpp, Value
//   kinds of element, and their keys       StageKeys.cpp, NormaliseType and ReadElementKeys
//   keys of the whole stage                StageKeys.cpp, ReadSettingKeys
//   what stands behind a frame's flip      StageKeys.cpp, ReadFrame
//   archives of version 2                  sprites/sff2.cpp, LoadSprites
//   pictures at half size                  sprites/SubfilePicture.cpp, Load
#pragma once

namespace scenara {

struct ViewOptions {
    bool Additions = true;
};

}  // namespace scenara
