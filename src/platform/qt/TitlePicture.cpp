// SPDX-License-Identifier: MIT
#include "platform/qt/TitlePicture.h"

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <cmath>

#include "platform/View.h"

namespace scenara {
namespace {

constexpr int kWidth = CanvasSize().width;
constexpr int kHeight = CanvasSize().height;

// A range of hills whose tops lie about `height`; each layer nearer is darker, as on a stage.
void DrawHills(QPainter& painter, double height, double swing, double length, double shift,
               const QColor& colour) {
    QPolygonF outline;
    outline << QPointF(0, kHeight);
    for (int x = 0; x <= kWidth; x += 2) {
        const double wave =
            std::sin((x + shift) / length) + 0.4 * std::sin((x + shift) / length * 2.7);
        outline << QPointF(x, height - swing * wave);
    }
    outline << QPointF(kWidth, kHeight);
    painter.setBrush(colour);
    painter.drawPolygon(outline);
}

// As large as fits its room, down to a size that can still be read.
void DrawNote(QPainter& painter, const QString& note) {
    constexpr int kMargin = 8;
    constexpr int kTop = 128;
    constexpr int kLargest = 14;
    constexpr int kSmallest = 8;
    constexpr int kWrapped = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWrapAnywhere;
    const QRect room(kMargin, kTop, kWidth - 2 * kMargin, kHeight - kTop - kMargin);
    // Dark enough to read on, without an edge across the picture.
    constexpr int kFade = 36;
    const QColor dark(0x10, 0x10, 0x28, 0xC0);
    QLinearGradient dusk(0, kTop - kFade, 0, kTop);
    dusk.setColorAt(0, QColor(dark.red(), dark.green(), dark.blue(), 0));
    dusk.setColorAt(1, dark);
    painter.fillRect(QRect(0, kTop - kFade, kWidth, kHeight - kTop + kFade), dusk);
    QFont font = painter.font();
    int size = kLargest;
    do {
        font.setPixelSize(size);
        painter.setFont(font);
    } while (painter.boundingRect(room, kWrapped, note).height() > room.height() &&
             --size >= kSmallest);
    painter.drawText(room, kWrapped, note);
}

}  // namespace

std::vector<std::uint32_t> TitlePicture(const QString& note) {
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    QLinearGradient sky(0, 0, 0, kHeight);
    sky.setColorAt(0, QColor(0x1B, 0x1F, 0x4A));
    sky.setColorAt(0.55, QColor(0xC4, 0x5C, 0x5C));
    sky.setColorAt(0.8, QColor(0xF6, 0xC2, 0x7A));
    painter.fillRect(image.rect(), sky);
    painter.setBrush(QColor(0xFF, 0xE3, 0xA8));
    painter.drawEllipse(QPointF(226, 122), 26, 26);

    DrawHills(painter, 150, 10, 38, 0, QColor(0x7A, 0x3E, 0x5E));
    DrawHills(painter, 176, 14, 55, 90, QColor(0x4C, 0x2A, 0x52));
    DrawHills(painter, 206, 9, 30, 20, QColor(0x24, 0x18, 0x38));

    QFont title(QStringLiteral("Liberation Serif"));
    title.setStyleHint(QFont::Serif);
    title.setPixelSize(52);
    title.setBold(true);
    painter.setFont(title);
    painter.setPen(QColor(0x10, 0x10, 0x28));
    painter.drawText(QRect(2, 32, kWidth, 64), Qt::AlignHCenter | Qt::AlignVCenter,
                     QStringLiteral("Scenara"));
    painter.setPen(QColor(0xFF, 0xF3, 0xDC));
    painter.drawText(QRect(0, 30, kWidth, 64), Qt::AlignHCenter | Qt::AlignVCenter,
                     QStringLiteral("Scenara"));
    title.setPixelSize(14);
    title.setBold(false);
    painter.setFont(title);
    if (note.isEmpty()) {
        painter.drawText(QRect(0, 212, kWidth, 24), Qt::AlignHCenter | Qt::AlignVCenter,
                         QStringLiteral("Stage > Open, or pick one from the Stage List"));
    } else {
        DrawNote(painter, note);
    }
    painter.end();

    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(image.constBits());
    return {pixels, pixels + static_cast<std::ptrdiff_t>(kWidth) * kHeight};
}

}  // namespace scenara
