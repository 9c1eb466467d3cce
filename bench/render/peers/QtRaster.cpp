// SPDX-License-Identifier: MIT
#include "render/peers/QtRaster.h"

#include <QImage>
#include <QPainter>
#include <algorithm>

#include "render/Premultiplied.h"

namespace scenara::bench {
namespace {

QImage ImageOf(const ScenePicture& picture) {
    QImage image(picture.width, picture.height,
                 picture.masked ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    for (int y = 0; y < picture.height; ++y) {
        std::ranges::transform(
            picture.Line(y), reinterpret_cast<QRgb*>(image.scanLine(y)), [&](std::uint32_t pixel) {
                if (!picture.masked) {
                    return pixel | 0xFF000000U;  // an RGB image's top byte must be 255
                }
                return Premultiplied(pixel);
            });
    }
    return image;
}

}  // namespace

struct QtRaster::Images {
    QImage screen;
    std::vector<QImage> pictures;
};

QtRaster::QtRaster(const Scene& scene) : scene_(scene), images_(std::make_unique<Images>()) {
    images_->screen = QImage(scene.canvas.width, scene.canvas.height, QImage::Format_RGB32);
    images_->screen.fill(Qt::black);
    for (const ScenePicture& picture : scene.pictures) {
        images_->pictures.push_back(ImageOf(picture));
    }
}

QtRaster::~QtRaster() = default;

void QtRaster::Draw() {
    QPainter painter(&images_->screen);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scene_.smooth);
    for (const Blit& blit : scene_.blits) {
        const QImage& picture = images_->pictures[blit.picture];
        if (blit.width == 0) {
            painter.drawImage(blit.x, blit.y, picture);
        } else {
            painter.drawImage(QRect(blit.x, blit.y, blit.width, blit.height), picture);
        }
    }
}

std::vector<std::uint32_t> QtRaster::Picture() {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < scene_.canvas.height; ++y) {
        const auto* const line =
            reinterpret_cast<const QRgb*>(std::as_const(images_->screen).scanLine(y));
        pixels.insert(pixels.end(), line, line + scene_.canvas.width);
    }
    return pixels;
}

}  // namespace scenara::bench
