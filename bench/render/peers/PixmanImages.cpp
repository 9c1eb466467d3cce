// SPDX-License-Identifier: MIT
#include "render/peers/PixmanImages.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

#include <pixman.h>

#include "render/Premultiplied.h"

namespace scenara::bench {
namespace {

// Cleared, and freed with the image.
pixman_image* MakeImage(pixman_format_code_t format, int width, int height) {
    pixman_image* const image = pixman_image_create_bits(format, width, height, nullptr, 0);
    if (image == nullptr) {
        throw std::runtime_error("no pixman image");
    }
    return image;
}

pixman_format_code_t ScreenFormatFor(const Scene& scene) {
    const bool adds = std::ranges::any_of(scene.pictures, [](const ScenePicture& picture) {
        return picture.blending.kind != BlendKind::None;
    });
    return adds ? PIXMAN_a8r8g8b8 : PIXMAN_x8r8g8b8;
}

pixman_op_t OperatorFor(const ScenePicture& picture) {
    if (!picture.masked) {
        return PIXMAN_OP_SRC;
    }
    return picture.blending.kind == BlendKind::Add ? PIXMAN_OP_ADD : PIXMAN_OP_OVER;
}

std::uint32_t* LineOf(pixman_image* image, int y) {
    const auto pitch = pixman_image_get_stride(image) / static_cast<int>(sizeof(std::uint32_t));
    return pixman_image_get_data(image) + static_cast<std::ptrdiff_t>(y) * pitch;
}

}  // namespace

void PixmanImages::Free::operator()(pixman_image* image) const {
    pixman_image_unref(image);
}

PixmanImages::PixmanImages(const Scene& scene)
    : scene_(scene),
      screen_(MakeImage(ScreenFormatFor(scene), scene.canvas.width, scene.canvas.height)) {
    for (const ScenePicture& picture : scene.pictures) {
        images_.emplace_back(MakeImage(picture.masked ? PIXMAN_a8r8g8b8 : PIXMAN_x8r8g8b8,
                                       picture.width, picture.height));
        for (int y = 0; y < picture.height; ++y) {
            std::ranges::transform(
                picture.Line(y), LineOf(images_.back().get(), y),
                [&](std::uint32_t pixel) { return picture.masked ? Premultiplied(pixel) : pixel; });
        }
    }
    for (const Blit& blit : scene.blits) {
        if (blit.width != 0) {
            Scale(images_[blit.picture].get(), scene.pictures[blit.picture], blit);
        }
    }
}

// A picture that is scaled is in one blit only, so that its transformation stays.
void PixmanImages::Scale(pixman_image* image, const ScenePicture& picture, const Blit& blit) const {
    pixman_transform transform;
    pixman_transform_init_scale(&transform, pixman_int_to_fixed(picture.width) / blit.width,
                                pixman_int_to_fixed(picture.height) / blit.height);
    pixman_image_set_transform(image, &transform);
    pixman_image_set_repeat(image, PIXMAN_REPEAT_PAD);
    pixman_image_set_filter(image, scene_.smooth ? PIXMAN_FILTER_BILINEAR : PIXMAN_FILTER_NEAREST,
                            nullptr, 0);
}

void PixmanImages::Draw() {
    for (const Blit& blit : scene_.blits) {
        const ScenePicture& picture = scene_.pictures[blit.picture];
        pixman_image_composite32(OperatorFor(picture), images_[blit.picture].get(), nullptr,
                                 screen_.get(), 0, 0, 0, 0, blit.x, blit.y,
                                 blit.width == 0 ? picture.width : blit.width,
                                 blit.height == 0 ? picture.height : blit.height);
    }
}

std::vector<std::uint32_t> PixmanImages::Picture() {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < scene_.canvas.height; ++y) {
        const std::uint32_t* const line = LineOf(screen_.get(), y);
        pixels.insert(pixels.end(), line, line + scene_.canvas.width);
    }
    return pixels;
}

}  // namespace scenara::bench
