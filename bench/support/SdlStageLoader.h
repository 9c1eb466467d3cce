// SPDX-License-Identifier: MIT
//
// What a program would do to get the pictures of a sprite archive if it used SDL2_image: read the
// file, follow the chain, make each picture a whole PCX file (with the palette before it where it
// has none of its own), and let the library decode, key and convert it. All surfaces are kept, as a
// stage's textures are.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

struct SDL_Surface;

namespace scenara::bench {

class SdlStageLoader {
public:
    SdlStageLoader();
    ~SdlStageLoader();
    SdlStageLoader(const SdlStageLoader&) = delete;
    SdlStageLoader& operator=(const SdlStageLoader&) = delete;

    // Appends the archive's pictures. Raises std::runtime_error for one that cannot be loaded.
    void Load(const std::string& path);

    [[nodiscard]] std::size_t Pixels() const;
    // A sum over all visible pixels, to compare loads by.
    [[nodiscard]] std::uint64_t Checksum() const;

private:
    struct Free {
        void operator()(SDL_Surface* surface) const;
    };
    std::vector<std::unique_ptr<SDL_Surface, Free>> surfaces_;
};

// The same sum over one picture's words, line by line.
[[nodiscard]] std::uint64_t PictureChecksum(const std::uint32_t* pixels, std::size_t width,
                                            std::size_t height, std::size_t pitch);

}  // namespace scenara::bench
