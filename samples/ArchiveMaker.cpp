// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"

#include <cstdint>

#include "samplemaker/PcxWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::Sff1Subfile;

Sff1Subfile SubfileAt(const Place& place) {
    Sff1Subfile subfile;
    subfile.group = static_cast<std::int16_t>(place.group);
    subfile.image = static_cast<std::int16_t>(place.image);
    subfile.axisX = static_cast<std::int16_t>(place.axisX);
    subfile.axisY = static_cast<std::int16_t>(place.axisY);
    return subfile;
}

}  // namespace

void ArchiveMaker::Add(const Place& place, const IndexedPicture& picture, PaletteFrom palette) {
    const bool shared = palette == PaletteFrom::OfTheOneBefore;
    samplemaker::PcxOptions options;
    if (shared) {
        options.trailingPalette = samplemaker::TrailingPalette::MarkerOnly;
    }
    Sff1Subfile subfile = SubfileAt(place);
    subfile.samePalette = shared;
    subfile.data = samplemaker::WritePcx(picture, options);
    sprites_.push_back(subfile);
}

void ArchiveMaker::AddAll(const Place& first, const Pictures& pictures, PaletteFrom palette) {
    Place place = first;
    for (const IndexedPicture& picture : pictures) {
        Add(place, picture, palette);
        palette = PaletteFrom::OfTheOneBefore;
        ++place.image;
    }
}

void ArchiveMaker::AddLinked(const Place& place, int back) {
    Sff1Subfile subfile = SubfileAt(place);
    subfile.linkIndex = static_cast<std::int16_t>(static_cast<int>(sprites_.size()) - back);
    sprites_.push_back(subfile);
}

}  // namespace scenara::samples
