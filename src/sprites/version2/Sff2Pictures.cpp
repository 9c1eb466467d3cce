// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Pictures.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/PngPictures.h"
#include "sprites/SpriteMessages.h"
#include "sprites/version2/Sff2Count.h"

namespace scenara {
namespace {

constexpr std::size_t kUnpackedSizeBytes = 4;

// Of a PNG file, up to its sizes.
constexpr std::size_t kPngHead = 24;

// No coding makes more pixels of a byte.
constexpr std::uint64_t kMostPixelsOfByte = 128;

// No writer needs more bytes for a pixel. Only runs of no pixels can make a picture longer, and
// those are not followed for ever: so many bytes of them, which a small picture may have, too.
constexpr std::uint64_t kWorstPacking = 3;
constexpr std::uint64_t kPackedSurplus = 4096;

// What an archive may have of textures, each picture counted in one colouring: so much for each of
// its bytes, and what a small one may have. Only sprites that lie over each other can be more.
constexpr std::uint64_t kTextureBytesOfByte = kMostPixelsOfByte * sizeof(std::uint32_t);
constexpr std::uint64_t kTextureBytesOfAny = std::uint64_t{256} << 20U;

// The same of textures of damaged pictures, which were filled in vain, and of those that are under
// way and may be such.
constexpr std::uint64_t kLostBytesOfByte = 16;
constexpr std::uint64_t kLostBytesOfAny = std::uint64_t{64} << 20U;

// Texture bytes per packed byte beyond which the pixels are counted before the texture is made, so
// that data which claim much and hold little get no memory.
constexpr std::uint64_t kSuspiciousYield = 32;

// How often bytes that bring no pixels, as a PNG may have them, may be read again for other
// colours.
constexpr std::uint64_t kMostVariants = 64;

constexpr std::string_view kOverused = "The sprites lie over each other.";
constexpr std::string_view kTooDamaged = "Too many of its pictures are damaged.";

std::optional<Sff2Packing> PackingOf(Sff2Coding coding) {
    switch (coding) {
        case Sff2Coding::Rle8: return Sff2Packing::Rle8;
        case Sff2Coding::Rle5: return Sff2Packing::Rle5;
        case Sff2Coding::Lz5: return Sff2Packing::Lz5;
        default: return std::nullopt;
    }
}

bool IsPng(Sff2Coding coding) {
    return coding == Sff2Coding::Png8 || coding == Sff2Coding::Png24 || coding == Sff2Coding::Png32;
}

// Bytes of a raw pixel.
std::size_t RawSize(const Sff2SpriteNode& node) {
    switch (node.depth) {
        case 24: return 3;
        case 32: return 4;
        default: return 1;
    }
}

std::uint64_t PixelsOf(const Sff2SpriteNode& node) {
    return std::uint64_t{node.width} * node.height;
}

RunTimeError Bad(std::string_view what) {
    return {RunTimeErrorKind::BadFormat, what};
}

std::string SizeText(std::int32_t width, std::int32_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

// The most bytes that a PNG file can need, told by its first ones, as far as they are there: those
// of its pixels, if they were not packed at all, and much for all else.
std::uint64_t MostPngBytes(std::span<const std::byte> head) {
    constexpr std::uint64_t kElse = std::uint64_t{4} << 20U;
    constexpr std::size_t kSizesAt = 16;
    constexpr std::uint64_t kLargestPixel = 8;
    if (head.size() < kPngHead) {
        return kPngHead;
    }
    const auto number = [&](std::size_t at) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value << 8U | std::to_integer<std::uint64_t>(head[at + i]);
        }
        return std::min(value, static_cast<std::uint64_t>(kMostPngPixels));
    };
    return number(kSizesAt) * number(kSizesAt + 4) * (kLargestPixel + 1) + kElse;
}

// The most bytes that the pixels of a sprite can need.
std::uint64_t MostBytes(const Sff2SpriteNode& node) {
    if (node.coding == Sff2Coding::Raw) {
        return PixelsOf(node) * RawSize(node);
    }
    return kUnpackedSizeBytes + PixelsOf(node) * kWorstPacking + kPackedSurplus;
}

void RawLine(std::span<const std::byte> bytes, std::size_t size, const ColorTable& colors,
             std::span<std::uint32_t> pixels) {
    const auto part = [&](std::size_t at) { return std::to_integer<std::uint32_t>(bytes[at]); };
    constexpr std::uint32_t kOpaque = 0xFF000000;
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        const std::size_t at = x * size;
        if (size == 1) {
            pixels[x] = colors[part(at)];
        } else {
            const std::uint32_t alpha = size == 4 ? part(at + 3) << 24U : kOpaque;
            pixels[x] = alpha | part(at) << 16U | part(at + 1) << 8U | part(at + 2);
        }
    }
}

}  // namespace

Sff2Load::Sff2Load(const Sff2SpriteNode& node, Sff2Palette& palette)
    : node_(node),
      palette_(palette),
      colors_(palette.colors),
      width_(node.width),
      height_(node.height) {}

Sff2Load::~Sff2Load() = default;

std::uint64_t Sff2Load::Work() const {
    constexpr std::uint64_t kPngTakes = 8;  // times as long
    return png_ ? kPngTakes * textureBytes_ : textureBytes_;
}

void Sff2Load::DoDecode() {
    if (node_.IsEmpty() || overused_) {
        return;
    }
    lock_->BringIn();
    if (png_) {
        DecodePng();
    } else if (node_.coding == Sff2Coding::Raw) {
        DecodeRaw();
    } else {
        DecodePacked();
    }
    png_ = nullptr;
    data_.Drop();
}

void Sff2Load::FillFrom(std::int32_t line, std::int32_t done) {
    const std::uint32_t nothing = trueColor_ ? 0 : colors_[0];
    for (; line < height_; ++line, done = 0) {
        std::ranges::fill(lock_->Line(line).subspan(static_cast<std::size_t>(done)), nothing);
    }
}

void Sff2Load::EndsEarly() {
    remarks_.emplace_back("The file ends in it, the rest is left out..");
}

// So many pixels are whole.
void Sff2Load::EndsAfter(std::uint64_t pixels) {
    EndsEarly();
    const auto width = static_cast<std::uint64_t>(width_);
    FillFrom(static_cast<std::int32_t>(pixels / width), static_cast<std::int32_t>(pixels % width));
}

void Sff2Load::DecodeRaw() {
    const std::size_t size = RawSize(node_);
    const auto width = static_cast<std::size_t>(width_);
    const std::span<const std::byte> bytes = data_.Bytes();
    std::uint64_t done = 0;
    for (std::int32_t y = 0; y < height_; ++y) {
        const auto from =
            bytes.subspan(std::min(static_cast<std::size_t>(done) * size, bytes.size()));
        const std::size_t there = std::min(from.size() / size, width);
        RawLine(from.first(there * size), size, colors_, lock_->Line(y).first(there));
        done += there;
        if (there < width) {
            EndsAfter(done);
            return;
        }
    }
}

void Sff2Load::DecodePacked() {
    const std::span<const std::byte> packed = Packed();
    const Sff2Packing packing = PackingOf(node_.coding).value();
    const auto wanted = static_cast<std::size_t>(PixelsOf(node_));
    Sff2Unpacked result;
    if (lock_->Pitch() == width_) {
        result = UnpackSff2(packing, packed, colors_, lock_->Words(), wanted);
    } else {
        // A device with lines of its own.
        std::vector<std::uint32_t> pixels(wanted + kUnpackSlack);
        result = UnpackSff2(packing, packed, colors_, pixels, wanted);
        const auto width = static_cast<std::size_t>(width_);
        for (std::int32_t y = 0; y < height_; ++y) {
            const std::size_t at = static_cast<std::size_t>(y) * width;
            std::ranges::copy(std::span(pixels).subspan(at, width), lock_->Line(y).begin());
        }
    }
    CheckUnpacked(result, wanted);
    if (result.written < wanted) {
        EndsAfter(result.written);
    }
}

std::span<const std::byte> Sff2Load::Packed() const {
    return data_.Bytes().subspan(std::min(kUnpackedSizeBytes, data_.Size()));
}

// Fewer pixels are a fault where the file does not end in them.
void Sff2Load::CheckUnpacked(const Sff2Unpacked& result, std::size_t wanted) const {
    if (result.damaged) {
        throw Bad("it copies pixels from before its first");
    }
    if (result.written < wanted && !cut_) {
        throw Bad("its data end before its pixels do");
    }
}

void Sff2Load::DecodePng() {
    const std::span<std::uint32_t> words = lock_->Words();
    if (cut_) {
        FillFrom(0, 0);  // it may have pixels on all its lines
    }
    const std::int32_t lines = png_->IsTrueColour() || node_.coding != Sff2Coding::Png8
                                   ? png_->ReadColours(words, lock_->Pitch())
                                   : png_->ReadIndexed(colors_, words, lock_->Pitch());
    if (lines < height_) {
        if (!cut_) {
            throw Bad("its data are damaged, or end before its pixels do");
        }
        EndsEarly();
    }
}

Sff2Pictures::Sff2Pictures(const ArchiveSource& source, const Sff2Header& header,
                           const ArchiveRules& rules)
    : source_(source),
      header_(header),
      rules_(rules),
      textures_(source.device),
      use_(source.archive.Size()) {}

std::unique_ptr<Sff2Load> Sff2Pictures::Begin(const Sff2SpriteNode& node, Sff2Palette& palette,
                                              Picture picture) {
    auto load = std::make_unique<Sff2Load>(node, palette);
    const std::uint64_t taken = textures_.Taken();
    bool waits = false;
    try {
        if (picture == Picture::BeyondNumbers) {
            throw Bad("images above 32767 cannot be named");
        }
        if (stopped_ || use_.IsTooMuch() || lostBytes_ > MostLost()) {
            load->overused_ = true;
        } else if (!node.IsEmpty()) {
            Read(*load);
            waits = !MakeTexture(*load, picture == Picture::First);
        }
    } catch (...) {
        load->Fail();
    }
    if ((waits || load->overused_) && underWay_ > 0) {
        return nullptr;
    }
    stopped_ = load->overused_;
    load->textureBytes_ = textures_.Taken() - taken;
    bytesUnderWay_ += load->textureBytes_;
    ++underWay_;
    return load;
}

std::uint64_t Sff2Pictures::MostLost() const {
    return kLostBytesOfAny +
           kLostBytesOfByte * std::min(source_.archive.Size(), TextureBudget::kMostBytes);
}

void Sff2Pictures::ReadData(Sff2Load& load) {
    const Sff2SpriteNode& node = load.node_;
    const std::uint64_t base = node.inTdata ? header_.tdata : header_.ldata;
    const std::uint64_t there = Available(source_.archive, base + node.offset, node.length);
    const std::uint64_t packed = there - std::min(there, std::uint64_t{kUnpackedSizeBytes});
    load.cut_ = there < node.length;
    const std::uint64_t ofPixels = node.coding == Sff2Coding::Raw ? there : packed;
    const bool canBe =
        ofPixels > 0 && (IsPng(node.coding) || PixelsOf(node) / kMostPixelsOfByte <= ofPixels);
    if (!canBe) {
        throw Bad(SizeText(node.width, node.height) + " pixels cannot come from " +
                  std::to_string(there) + " bytes");
    }
    std::uint64_t useful = 0;
    if (IsPng(node.coding)) {
        std::array<std::byte, kUnpackedSizeBytes + kPngHead> head{};
        const std::size_t count = source_.archive.ReadAt(base + node.offset, head);
        useful =
            kUnpackedSizeBytes + MostPngBytes(std::span<const std::byte>(head).first(count).subspan(
                                     std::min(count, kUnpackedSizeBytes)));
    } else {
        useful = MostBytes(node);
    }
    load.data_.Read(source_.archive, base + node.offset,
                    static_cast<std::size_t>(std::min(there, useful)));
    load.dataSize_ = load.data_.Size();
}

void Sff2Pictures::Read(Sff2Load& load) {
    const Sff2SpriteNode& node = load.node_;
    const bool png = IsPng(node.coding);
    if (!png && node.coding != Sff2Coding::Raw && !PackingOf(node.coding)) {
        throw Bad("there is no such coding");
    }
    if (png && source_.png == nullptr) {
        throw Bad("PNG pictures cannot be read here");
    }
    constexpr std::int32_t kMost = std::numeric_limits<Integer>::max();
    if (!png && (load.width_ > kMost || load.height_ > kMost)) {
        throw RunTimeError(RunTimeErrorKind::Overflow,
                           SizeText(load.width_, load.height_) + " pixels");
    }
    ReadData(load);
    load.trueColor_ = node.IsTrueColor();
    if (png) {
        const auto file =
            load.data_.Bytes().subspan(std::min(kUnpackedSizeBytes, load.data_.Size()));
        load.png_ =
            source_.png->Open(file, load.trueColor_ ? PngWanted::Colours : PngWanted::Indices);
        load.trueColor_ = load.trueColor_ || load.png_->IsTrueColour();
        load.width_ = load.png_->Width();
        load.height_ = load.png_->Height();
        if (load.width_ != node.width || load.height_ != node.height) {
            load.remarks_.push_back("The archive says " + SizeText(node.width, node.height) +
                                    ", the picture is " + SizeText(load.width_, load.height_) +
                                    " pixels..");
        }
    } else if (node.coding == Sff2Coding::Raw && !load.cut_ &&
               load.dataSize_ < PixelsOf(node) * RawSize(node)) {
        throw Bad("its data end before its pixels do");
    }
}

// Data that claim very much are counted.
void Sff2Pictures::CheckYield(const Sff2Load& load) {
    const std::optional<Sff2Packing> packing = PackingOf(load.node_.coding);
    const std::uint64_t bytes = PixelsOf(load.node_) * sizeof(std::uint32_t);
    if (!packing || bytes / kSuspiciousYield <= load.dataSize_) {
        return;
    }
    const auto wanted = static_cast<std::size_t>(PixelsOf(load.node_));
    load.CheckUnpacked(CountSff2(*packing, load.Packed(), wanted), wanted);
}

// False: it is to be begun once there is room.
bool Sff2Pictures::MakeTexture(Sff2Load& load, bool counts) {
    CheckYield(load);
    TextureParameters parameters;
    parameters.width = load.width_;
    parameters.height = load.height_;
    parameters.bringsIn = true;
    parameters.colorKey = load.trueColor_ ? 0 : load.colors_[0] | 0xFF000000U;
    if (PackingOf(load.node_.coding)) {
        parameters.wantedPitch = load.width_;
        parameters.wantedSlack = kUnpackSlack;
    }
    const std::uint64_t most =
        std::min(source_.archive.Size(), TextureBudget::kMostBytes) * kTextureBytesOfByte +
        kTextureBytesOfAny;
    const std::uint64_t bytes = static_cast<std::uint64_t>(load.width_) *
                                static_cast<std::uint64_t>(load.height_) * sizeof(std::uint32_t);
    if (bytes > most) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    load.overused_ = counts && counted_ + bytes > most;
    if (load.overused_) {
        return true;
    }
    if (underWay_ > 0 && bytesUnderWay_ + bytes > MostLost()) {
        return false;
    }
    try {
        load.texture_ = textures_.CreateTexture(parameters);
    } catch (const RunTimeError&) {
        if (textures_.IsFull() && underWay_ > 0) {
            return false;
        }
        throw;
    }
    load.lock_.emplace(load.texture_);
    load.countedBytes_ = counts ? bytes : 0;
    counted_ += load.countedBytes_;
    return true;
}

bool Sff2Pictures::Finish(Sff2Load& load, const SpriteNumbers& shownBy, SpritePicture& picture) {
    --underWay_;
    bytesUnderWay_ -= load.textureBytes_;
    load.lock_.reset();
    bool loaded = false;
    const Sff2SpriteNode& node = load.node_;
    if (load.overused_ || use_.IsTooMuch() || lostBytes_ > MostLost()) {
        if (!std::exchange(saidOverused_, true)) {
            SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name,
                             lostBytes_ > MostLost() ? kTooDamaged : kOverused);
        }
        stopped_ = true;
    } else {
        try {
            load.RaiseFailure();
            loaded = load.texture_ != nullptr;
        } catch (...) {
            SaySprite(source_.messages, rules_.badPicture, shownBy.group, shownBy.image,
                      NameOf(node.coding) + ": " + TextOfCurrentError() + ".  Skipping sprite..");
            use_.CountLost(load.dataSize_);
            lostBytes_ += load.textureBytes_;
        }
    }
    if (!loaded) {
        textures_.GiveBack(load.textureBytes_);
        counted_ -= load.countedBytes_;
        return false;
    }
    for (const std::string& remark : load.remarks_) {
        SaySprite(source_.messages, rules_.badPicture, shownBy.group, shownBy.image,
                  NameOf(node.coding) + ": " + remark);
    }
    if (!load.trueColor_ && !load.palette_.problem.empty() &&
        !std::exchange(load.palette_.reported, true)) {
        SayArchiveError(source_.messages, rules_.badPicture, source_.name, load.palette_.problem);
    }
    // All other bytes are few beside those of the texture, whose sum has a limit.
    const std::uint64_t size = load.dataSize_;
    use_.CountShown((size - std::min(size, load.textureBytes_)) / kMostVariants);
    picture.texture = std::move(load.texture_);
    picture.key = load.trueColor_ ? 0 : load.colors_[0] | 0xFF000000U;
    picture.trueColor = load.trueColor_;
    return true;
}

}  // namespace scenara
