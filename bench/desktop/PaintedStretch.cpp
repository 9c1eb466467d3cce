// SPDX-License-Identifier: MIT
#include "desktop/PaintedStretch.h"

#include <QPainter>
#include <cstring>

#include "platform/Direct3D8.h"

namespace scenara::bench {

PaintedStretch::PaintedStretch() : view_(View().width, View().height, QImage::Format_RGB32) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaintedStretch::Show(const CanvasSize& /*size*/, std::span<const std::uint32_t> pixels) {
    std::memcpy(view_.bits(), pixels.data(), pixels.size_bytes());
    repaint();
}

void PaintedStretch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(rect(), view_);
}

}  // namespace scenara::bench
