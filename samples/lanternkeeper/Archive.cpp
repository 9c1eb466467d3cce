// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"
#include "lanternkeeper/Colours.h"
#include "lanternkeeper/LanternKeeper.h"
#include "lanternkeeper/Pictures.h"

namespace scenara::samples {

std::vector<std::byte> LanternKeeperArchive() {
    ArchiveMaker archive;
    archive.AddAll({0, 0, kKeeperAxisX, kKeeperAxisY}, DrawKeeperStanding());
    archive.AddAll({5, 0, kKeeperAxisX, kKeeperAxisY}, DrawKeeperTurning(),
                   PaletteFrom::OfTheOneBefore);
    archive.AddAll({20, 0, kKeeperAxisX, kKeeperAxisY}, DrawKeeperWalking(),
                   PaletteFrom::OfTheOneBefore);
    return archive.Bytes();
}

std::vector<std::byte> LanternKeeperColours(int coat) {
    const samplemaker::Palette colours = KeeperColours(coat).palette.Colours();
    std::vector<std::byte> bytes;
    for (std::size_t i = colours.size(); i-- > 0;) {
        for (const std::uint8_t part : {colours[i].red, colours[i].green, colours[i].blue}) {
            bytes.push_back(static_cast<std::byte>(part));
        }
    }
    return bytes;
}

}  // namespace scenara::samples
