// SPDX-License-Identifier: MIT
//
// PngReader: libpng at work on one PNG: its header, and then a line at a time.
//
// An interlaced PNG has seven passes, each with lines of its own; a pass without pixels has none.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include <png.h>

#include "base/NotCopied.h"
#include "platform/PngPictures.h"
#include "platform/png/PngSource.h"

namespace scenara {

// What a line is made of: a byte per pixel, or an ARGB word in this machine's order of bytes.
enum class PngLine : Byte { Indices, Words };

class PngReader : NotCopied {
public:
    // Reads all before the pixels. Raises RunTimeError; see PngPictures::Open.
    PngReader(std::span<const std::byte> bytes, PngWanted wanted);

    [[nodiscard]] const PngHead& Head() const { return source_.Head(); }

    // Says what the lines are wanted as; once, before the first. Raises RunTimeError.
    void Start(PngLine lines);

    // The next line, which is as long as the picture is wide: in a pass with fewer pixels they
    // stand at its beginning, and what follows them means nothing. False when the data have ended
    // before the line's last pixel, or are damaged; there is no line after that.
    [[nodiscard]] bool ReadLine(std::span<std::byte> line);

private:
    // libpng's two objects, freed together.
    struct Library : NotCopied {
        explicit Library(PngReader& reader);
        ~Library() { png_destroy_read_struct(&png, &info, nullptr); }

        png_structp png;
        png_infop info = nullptr;
    };

    static void ReadBytes(png_structp png, png_bytep out, std::size_t count);
    [[noreturn]] static void OnError(png_structp png, png_const_charp message);
    static void OnWarning(png_structp png, png_const_charp message);

    template <typename Work>
    [[nodiscard]] bool Guarded(const Work& work);
    [[noreturn]] void Fail() const;

    void ReadHeader();
    void CheckSize() const;
    [[nodiscard]] bool Deliver(std::span<std::byte> out);
    // Only what comes after the last pixel is still to be read.
    [[nodiscard]] bool AllLinesAreRead() const;

    std::array<char, 80> reason_{};  // of the last error, as libpng has it
    bool ended_ = false;             // more bytes were wanted than there are
    bool wrongChecksum_ = false;     // of the unpacked bytes
    std::size_t surplusLeft_;        // how much more is read after the last pixel
    PngSource source_;
    Library library_;
};

}  // namespace scenara
