// SPDX-License-Identifier: MIT
#include "platform/png/PngReader.h"

#include <algorithm>
#include <bit>
#include <csetjmp>
#include <cstdint>
#include <string>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

// Packed bytes are handed over in blocks of this size.
constexpr std::size_t kBlock = 8192;

// After the last pixel there are a checksum and the end of a chunk. What fills more than this is
// not read: a little of it could unpack to hours of work.
constexpr std::size_t kMostSurplus = std::size_t{64} << 10U;

// No chunk that is read needs more memory than this: a palette has 768 bytes.
constexpr png_alloc_size_t kMostChunkMemory = std::size_t{64} << 10U;

// The most that deflate makes of a byte.
constexpr std::uint64_t kMostPerByte = 1032;

void AskForIndices(png_structp png) {
    png_set_packing(png);
    png_set_strip_16(png);
    png_set_strip_alpha(png);
}

void AskForWords(png_structp png) {
    png_set_expand(png);
    png_set_scale_16(png);
    png_set_gray_to_rgb(png);
    if constexpr (std::endian::native == std::endian::little) {
        png_set_bgr(png);
        png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    } else {
        png_set_swap_alpha(png);
        png_set_add_alpha(png, 0xFF, PNG_FILLER_BEFORE);
    }
}

}  // namespace

PngReader::Library::Library(PngReader& reader)
    : png(png_create_read_struct(PNG_LIBPNG_VER_STRING, &reader, &OnError, &OnWarning)) {
    if (png != nullptr) {
        info = png_create_info_struct(png);
    }
}

PngReader::PngReader(std::span<const std::byte> bytes, PngWanted wanted)
    : surplusLeft_(kMostSurplus), source_(bytes, wanted), library_(*this) {
    if (library_.png == nullptr || library_.info == nullptr) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    ReadHeader();
    CheckSize();
}

// libpng reports an error by OnError, from where a jump leads back to here. The jump runs no
// destructors, so neither `work` nor what it calls from libpng may own anything. False after an
// error.
template <typename Work>
bool PngReader::Guarded(const Work& work) {
    if (setjmp(png_jmpbuf(library_.png)) != 0) {
        return false;
    }
    work();
    return true;
}

void PngReader::Fail() const {
    throw RunTimeError(ended_ ? RunTimeErrorKind::InputPastEnd : RunTimeErrorKind::BadFormat,
                       std::string("PNG (") + reason_.data() + ")");
}

void PngReader::ReadHeader() {
    const png_structp png = library_.png;
    const bool isRead = Guarded([this, png] {
        png_set_read_fn(png, this, &ReadBytes);
        png_set_user_limits(png, kMostPngPixels, kMostPngPixels);
        png_set_chunk_malloc_max(png, kMostChunkMemory);
        png_set_chunk_cache_max(png, 1);  // 1 is none
        // All ancillary chunks but tRNS are skipped, and their checksums with them.
        png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
        png_set_crc_action(png, PNG_CRC_ERROR_QUIT, PNG_CRC_QUIET_USE);
        // Some writers say that unpacking needs less memory than it does.
        png_set_option(png, PNG_MAXIMUM_INFLATE_WINDOW, PNG_OPTION_ON);
        png_read_info(png, library_.info);
    });
    if (!isRead) {
        Fail();
    }
}

// Each line is packed with one byte more, which names its filter; interlaced pictures have more
// lines than this, none of them longer.
void PngReader::CheckSize() const {
    const std::uint64_t lineBytes = png_get_rowbytes(library_.png, library_.info);
    const std::uint64_t wanted = (lineBytes + 1) * static_cast<std::uint64_t>(Head().height);
    if (wanted > kMostPerByte * source_.Size()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           "PNG of " + std::to_string(Head().width) + " x " +
                               std::to_string(Head().height) + " pixels cannot come from " +
                               std::to_string(source_.Size()) + " bytes");
    }
}

void PngReader::Start(PngLine lines) {
    const png_structp png = library_.png;
    const bool isStarted = Guarded([this, png, lines] {
        if (lines == PngLine::Indices) {
            AskForIndices(png);
        } else {
            AskForWords(png);
        }
        png_read_update_info(png, library_.info);
    });
    if (!isStarted) {
        Fail();
    }
    const std::size_t pixelBytes = lines == PngLine::Indices ? 1 : sizeof(std::uint32_t);
    if (png_get_rowbytes(png, library_.info) !=
        static_cast<std::size_t>(Head().width) * pixelBytes) {
        throw RunTimeError(RunTimeErrorKind::BadFormat, "PNG (lines of another length)");
    }
}

bool PngReader::ReadLine(std::span<std::byte> line) {
    const png_structp png = library_.png;
    if (line.size() < png_get_rowbytes(png, library_.info)) {
        throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, "no room for a line of a PNG");
    }
    auto* const out = reinterpret_cast<png_bytep>(line.data());
    if (Guarded([png, out] { png_read_row(png, out, nullptr); })) {
        return !wrongChecksum_;
    }
    return ended_ && AllLinesAreRead();
}

bool PngReader::AllLinesAreRead() const {
    return Head().interlaced
               ? png_get_current_pass_number(library_.png) == PNG_INTERLACE_ADAM7_PASSES
               : png_get_current_row_number(library_.png) ==
                     static_cast<png_uint_32>(Head().height);
}

bool PngReader::Deliver(std::span<std::byte> out) {
    if (AllLinesAreRead()) {
        if (out.size() > surplusLeft_) {
            return false;
        }
        surplusLeft_ -= out.size();
    }
    if (!source_.Read(out)) {
        return false;
    }
    // The next block is never longer than what is left, so that cut data are used to their end.
    png_set_compression_buffer_size(library_.png,
                                    std::clamp<std::size_t>(source_.Left(), 1, kBlock));
    return true;
}

void PngReader::ReadBytes(png_structp png, png_bytep out, std::size_t count) {
    auto* const reader = static_cast<PngReader*>(png_get_io_ptr(png));
    if (!reader->Deliver(std::as_writable_bytes(std::span(out, count)))) {
        reader->ended_ = true;
        png_error(png, "the data end early");
    }
}

void PngReader::OnError(png_structp png, png_const_charp message) {
    auto* const reader = static_cast<PngReader*>(png_get_error_ptr(png));
    const std::string_view text = message;
    reader->reason_.at(text.copy(reader->reason_.data(), reader->reason_.size() - 1)) = '\0';
    png_longjmp(png, 1);
}

// What comes after the last pixel is only warned of. This one, in the words of zlib, says that
// pixels are not what they were.
void PngReader::OnWarning(png_structp png, png_const_charp message) {
    auto* const reader = static_cast<PngReader*>(png_get_error_ptr(png));
    if (std::string_view(message).ends_with("incorrect data check")) {
        reader->wrongChecksum_ = true;
    }
}

}  // namespace scenara
