// SPDX-License-Identifier: MIT
#include "frames/PaintedStage.h"

#include <cstddef>
#include <stdexcept>
#include <utility>

#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

using samplemaker::Canvas;

enum Colour : std::uint8_t {
    kNothing,
    kDarkGrey,
    kLightGrey,
    kRed,
    kGreen,
    kBlue,
    kYellow,
    kBrown,
    kTan,
    kWhite,
};

samplemaker::Palette Paints() {
    samplemaker::Palette paints{};
    paints[kNothing] = {255, 0, 255};
    paints[kDarkGrey] = {64, 64, 72};
    paints[kLightGrey] = {88, 88, 100};
    paints[kRed] = {208, 48, 40};
    paints[kGreen] = {56, 168, 80};
    paints[kBlue] = {48, 96, 208};
    paints[kYellow] = {240, 200, 64};
    paints[kBrown] = {112, 72, 48};
    paints[kTan] = {192, 152, 104};
    paints[kWhite] = {240, 240, 240};
    return paints;
}

Canvas Backdrop() {
    Canvas canvas(320, 240);
    canvas.Paint([](int x, int y) { return (x / 20 + y / 20) % 2 == 0 ? kDarkGrey : kLightGrey; });
    return canvas;
}

// A shaft, a head on its right, and a white flag on its upper left.
Canvas Arrow() {
    Canvas canvas(40, 30);
    canvas.FillRect(2, 12, 24, 6, kRed);
    for (int x = 26; x < 40; ++x) {
        const int half = 40 - x;
        canvas.FillRect(x, 15 - half, 1, 2 * half, kYellow);
    }
    canvas.FillRect(2, 2, 8, 6, kWhite);
    canvas.FillRect(2, 18, 4, 12, kBlue);
    return canvas;
}

Canvas Tile() {
    Canvas canvas(24, 16);
    canvas.FillRect(0, 0, 24, 16, kGreen);
    canvas.FillRect(0, 0, 24, 1, kWhite);
    canvas.FillRect(0, 0, 1, 16, kYellow);
    canvas.FillRect(8, 5, 8, 6, kNothing);
    return canvas;
}

Canvas Floor() {
    Canvas canvas(480, 60);
    canvas.Paint([](int x, int) { return x / 20 % 2 == 0 ? kBrown : kTan; });
    canvas.FillRect(236, 0, 8, 60, kBlue);
    return canvas;
}

Canvas Bars(int count) {
    constexpr std::uint8_t kPaints[] = {kRed, kGreen, kBlue, kYellow};
    Canvas canvas(32, 32);
    for (int bar = 0; bar < count; ++bar) {
        canvas.FillRect(2 + bar * 7, 4 + bar * 4, 6, 28 - bar * 4, kPaints[bar]);
    }
    return canvas;
}

samplemaker::Sff1Subfile Subfile(std::int16_t group, std::int16_t image, std::int16_t axisX,
                                 std::int16_t axisY, const Canvas& canvas) {
    samplemaker::Sff1Subfile subfile;
    subfile.group = group;
    subfile.image = image;
    subfile.axisX = axisX;
    subfile.axisY = axisY;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(Paints()));
    return subfile;
}

std::vector<std::byte> Archive() {
    std::vector<samplemaker::Sff1Subfile> subfiles;
    subfiles.push_back(Subfile(0, 0, 160, 0, Backdrop()));
    subfiles.push_back(Subfile(1, 0, 20, 30, Arrow()));
    subfiles.push_back(Subfile(2, 0, 0, 0, Tile()));
    subfiles.push_back(Subfile(3, 0, 240, 0, Floor()));
    for (std::int16_t image = 0; image < 4; ++image) {
        subfiles.push_back(Subfile(4, image, 16, 16, Bars(image + 1)));
    }
    return WriteSff1(subfiles);
}

std::unique_ptr<MemoryFiles> WithStage(std::unique_ptr<MemoryFiles> files,
                                       std::string_view definition) {
    files->Put("/mugen/stages/painted.sff", std::span(PaintedArchive()));
    files->Put("/mugen/stages/painted.def",
               std::string("[BGdef]\r\nspr = stages/painted.sff\r\n").append(definition));
    return files;
}

}  // namespace

const std::vector<std::byte>& PaintedArchive() {
    static const std::vector<std::byte> kArchive = Archive();
    return kArchive;
}

ShotStage::ShotStage(std::unique_ptr<Files> files, const std::string& stageFile,
                     const std::string& mugenFolder, const std::string& charFile,
                     const ViewOptions& view, std::string_view keyScript)
    : files_(std::move(files)), machine_(*files_, &png_, {}, view) {
    Hold(keyScript);
    if (!machine_.Start(stageFile, mugenFolder, charFile)) {
        throw std::runtime_error("the stage does not load");
    }
}

void ShotStage::Run(int frames) {
    for (int i = 0; i < frames; ++i) {
        machine_.RunFrame(keys_.KeysOfFrame(++frame_), info_);
    }
}

void ShotStage::Pass(int frames) {
    for (int i = 0; i < frames; ++i) {
        machine_.PassFrame(keys_.KeysOfFrame(++frame_), info_);
    }
}

void ShotStage::Hold(std::string_view keyScript) {
    keys_ = keyScript.empty() ? KeyScript() : KeyScript(keyScript);
}

void ShotStage::Run(std::string_view keyScript, int frames) {
    Hold(keyScript);
    frame_ = 0;
    Run(frames);
}

std::uint32_t ShotStage::Rgb(int x, int y) const {
    return Picture().at(static_cast<std::size_t>(y * PictureSize().width + x)) & 0xFFFFFFU;
}

std::vector<std::string> ShotStage::MessageTexts() const {
    std::vector<std::string> texts;
    for (const Message& message : machine_.Recorded()) {
        texts.push_back(message.text);
    }
    return texts;
}

PaintedStage::PaintedStage(std::string_view definition, const ViewOptions& view,
                           std::unique_ptr<MemoryFiles> files, const std::string& character)
    : ShotStage(WithStage(std::move(files), definition), "/mugen/stages/painted.def", "/mugen/",
                character.empty() ? character : "/mugen/chars/" + character, view) {}

}  // namespace scenara::test
