// SPDX-License-Identifier: MIT
#include "desktop/PaintedStretch.h"

#include <QPainter>
#include <cstring>

namespace scenara::bench {

PaintedStretch::PaintedStretch(const CanvasSize& canvas, bool smooth)
    : view_(canvas.width, canvas.height, QImage::Format_RGB32), smooth_(smooth) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaintedStretch::Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> pixels) {
    std::memcpy(view_.bits(), pixels.data(), pixels.size_bytes());
    repaint();
}

void PaintedStretch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth_);
    painter.drawImage(rect(), view_);
}

}  // namespace scenara::bench
