// SPDX-License-Identifier: MIT
#include "samplemaker/ModWriter.h"

#include <algorithm>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {
namespace {

constexpr std::size_t kTitleSize = 20;
constexpr std::size_t kSounds = 31;
constexpr std::size_t kNameSize = 22;
constexpr std::size_t kOrderSize = 128;
constexpr std::size_t kMostPatterns = 64;
constexpr std::size_t kLongestSound = 2 * 0xFFFF;
constexpr std::uint8_t kFullVolume = 64;
constexpr std::uint8_t kRestart = 127;
// A sound without a loop has one of a single pair, which is never reached.
constexpr std::uint16_t kNoLoopPairs = 1;

constexpr std::array<std::uint16_t, kModNotes> kPeriods = {
    856, 808, 762, 720, 678, 640, 604, 570, 538, 508, 480, 453,  //
    428, 404, 381, 360, 339, 320, 302, 285, 269, 254, 240, 226,  //
    214, 202, 190, 180, 170, 160, 151, 143, 135, 127, 120, 113};

void CheckSound(const ModSound& sound) {
    Require(sound.name.size() <= kNameSize, "MOD: a sound's name is longer than 22 bytes");
    Require(sound.volume <= kFullVolume, "MOD: a volume is above 64");
    const std::size_t size = sound.samples.size();
    Require(size <= kLongestSound && size % 2 == 0, "MOD: a sound's length");
    Require(sound.loopStart % 2 == 0 && sound.loopLength % 2 == 0 && sound.loopStart <= size &&
                sound.loopLength <= size - sound.loopStart,
            "MOD: a loop is not inside of its sound");
}

void CheckCell(const ModCell& cell, std::size_t sounds) {
    Require(cell.note >= ModCell::kNoNote && cell.note < kModNotes, "MOD: a note");
    Require(cell.sound <= sounds, "MOD: a cell names a sound that there is not");
    Require(cell.effect < 16, "MOD: an effect is above 15");
}

void Check(const ModTune& tune) {
    Require(tune.title.size() <= kTitleSize, "MOD: the title is longer than 20 bytes");
    Require(tune.sounds.size() <= kSounds, "MOD: more than 31 sounds");
    Require(tune.patterns.size() <= kMostPatterns, "MOD: more than 64 patterns");
    Require(!tune.order.empty() && tune.order.size() <= kOrderSize, "MOD: the order's length");
    // A reader takes the highest number in the order for the number of patterns.
    Require(std::size_t{*std::max_element(tune.order.begin(), tune.order.end())} + 1 ==
                tune.patterns.size(),
            "MOD: the order must name the last pattern, and none beyond");
    std::for_each(tune.sounds.begin(), tune.sounds.end(), CheckSound);
    for (const ModPattern& pattern : tune.patterns) {
        for (const ModRow& row : pattern) {
            for (const ModCell& cell : row) {
                CheckCell(cell, tune.sounds.size());
            }
        }
    }
}

void WriteHeading(ByteWriter& out, const ModSound& sound) {
    out.PaddedText(sound.name, kNameSize);
    out.BigU16(static_cast<std::uint16_t>(sound.samples.size() / 2));
    out.U8(0);
    out.U8(sound.volume);
    out.BigU16(static_cast<std::uint16_t>(sound.loopStart / 2));
    out.BigU16(sound.loopLength == 0 ? kNoLoopPairs
                                     : static_cast<std::uint16_t>(sound.loopLength / 2));
}

void WriteCell(ByteWriter& out, const ModCell& cell) {
    const unsigned period =
        cell.note == ModCell::kNoNote ? 0 : kPeriods.at(static_cast<std::size_t>(cell.note));
    out.U8(static_cast<std::uint8_t>((cell.sound & 0xF0U) | (period >> 8U)));
    out.U8(static_cast<std::uint8_t>(period & 0xFFU));
    out.U8(static_cast<std::uint8_t>(((cell.sound & 0x0FU) << 4U) | cell.effect));
    out.U8(cell.parameter);
}

}  // namespace

std::vector<std::byte> WriteMod(const ModTune& tune) {
    Check(tune);
    ByteWriter out;
    out.PaddedText(tune.title, kTitleSize);
    for (std::size_t i = 0; i < kSounds; ++i) {
        WriteHeading(out, i < tune.sounds.size() ? tune.sounds[i] : ModSound{.volume = 0});
    }
    out.U8(static_cast<std::uint8_t>(tune.order.size()));
    out.U8(kRestart);
    out.Append(std::as_bytes(std::span(tune.order)));
    out.Fill(kOrderSize - tune.order.size(), 0);
    out.Text("M.K.");
    for (const ModPattern& pattern : tune.patterns) {
        for (const ModRow& row : pattern) {
            for (const ModCell& cell : row) {
                WriteCell(out, cell);
            }
        }
    }
    for (const ModSound& sound : tune.sounds) {
        out.Append(std::as_bytes(std::span(sound.samples)));
    }
    return std::move(out).Take();
}

}  // namespace scenara::samplemaker
