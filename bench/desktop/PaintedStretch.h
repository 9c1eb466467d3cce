// SPDX-License-Identifier: MIT
//
// PaintedStretch, the peer: a widget that lets the toolkit's painter stretch the picture.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <span>

#include "platform/View.h"

namespace scenara::bench {

class PaintedStretch : public QWidget {
public:
    // `smooth`: pixels are mixed with their neighbours; else they are repeated.
    PaintedStretch(const CanvasSize& canvas, bool smooth);
    void Show(const CanvasSize& size, std::span<const std::uint32_t> pixels);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage view_;
    bool smooth_;
};

}  // namespace scenara::bench
