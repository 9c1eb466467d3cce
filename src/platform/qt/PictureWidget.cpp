// SPDX-License-Identifier: MIT
#include "platform/qt/PictureWidget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace scenara {
namespace {

// One line of the view, every pixel as wide as the picture is stretched.
void StretchLine(std::span<const std::uint32_t> line, std::uint32_t* into, const PictureFit& fit) {
    const std::int32_t times = fit.width / fit.canvas.width;
    if (times > 0) {
        for (const std::uint32_t pixel : line) {
            into = std::fill_n(into, times, pixel);
        }
        return;
    }
    for (std::int32_t x = 0; x < fit.width; ++x) {
        into[x] = line[static_cast<std::size_t>(fit.ViewColumn(x))];
    }
}

// `pixels` in the screen's own, each of them what is under its centre.
QImage InPixelsOfTheScreen(std::int32_t width, std::int32_t height,
                           std::span<const std::uint32_t> pixels, double ratio) {
    const auto length = [ratio](std::int32_t own) {
        return std::max(static_cast<std::int32_t>(std::lround(own * ratio)), 1);
    };
    const auto under = [](std::int32_t pixel, std::int32_t own, std::int32_t shown) {
        return static_cast<std::size_t>(PictureFit::Under(pixel, shown, own));
    };
    QImage image(length(width), length(height), QImage::Format_RGB32);
    if (width < 1 || height < 1) {
        image.fill(Qt::black);
        return image;
    }
    for (std::int32_t y = 0; y < image.height(); ++y) {
        const auto line =
            pixels.subspan(under(y, height, image.height()) * static_cast<std::size_t>(width),
                           static_cast<std::size_t>(width));
        auto* const into = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        if (image.width() == width) {
            std::copy(line.begin(), line.end(), into);
            continue;
        }
        for (std::int32_t x = 0; x < image.width(); ++x) {
            into[x] = line[under(x, width, image.width())];
        }
    }
    return image;
}

// A length of the window's is so many pixels of the screen, or fewer: the toolkit rounds.
std::int32_t PixelsAtMost(std::int32_t length, double ratio) {
    return static_cast<std::int32_t>(std::ceil((length + 0.5) * ratio)) - 1;
}

// At a size that may be there, although the window's own says that a pixel is missing.
PictureFit FitOnScreen(std::int32_t width, std::int32_t height, double ratio,
                       const CanvasSize& size) {
    PictureFit fit = PictureFit::In(PixelsAtMost(width, ratio), PixelsAtMost(height, ratio), size,
                                    ShownSizes::WholeMultiples);
    const auto before = [ratio](std::int32_t length, std::int32_t picture) {
        const auto box = static_cast<std::int32_t>(std::lround(length * ratio));
        return std::max(box - picture, 0) / 2;
    };
    fit.left = before(width, fit.width);
    fit.top = before(height, fit.height);
    return fit;
}

// The painter counts in pixels of the screen from now on. A widget may begin within one: the one
// that is painted first is the first of all then.
void CountPixelsOfTheScreen(QPainter& painter) {
    const QTransform screen = painter.deviceTransform();
    const QTransform whole = QTransform::fromTranslate(std::round(screen.dx()),  //
                                                       std::round(screen.dy()));
    painter.setWorldTransform(whole * screen.inverted());
}

}  // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMinimumSize(1, 1);
}

HRESULT PictureWidget::Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) {
    size_ = size;
    view_.assign(pixels.begin(), pixels.end());
    Stretch();
    repaint();
    return D3D_OK;
}

void PictureWidget::TakeOver(const PictureWidget& other) {
    size_ = other.size_;
    view_ = other.view_;
    Stretch();
    update();
}

void PictureWidget::ShowOwn(std::int32_t width, std::int32_t height,
                            std::span<const std::uint32_t> pixels) {
    own_ = InPixelsOfTheScreen(width, height, pixels, devicePixelRatioF());
    repaint();
}

void PictureWidget::EndOwn() {
    if (!own_.isNull()) {
        own_ = QImage();
        update();
    }
}

void PictureWidget::SetSelection(const std::optional<ViewFrame>& selection) {
    if (selection_ != selection) {
        selection_ = selection;
        update();
    }
}

void PictureWidget::Tell(Mouse what, const QMouseEvent& event) const {
    if (observer_) {
        const QPointF at = event.position() * devicePixelRatioF();
        observer_(what, fit_.ViewX(static_cast<std::int32_t>(std::floor(at.x()))),
                  fit_.ViewY(static_cast<std::int32_t>(std::floor(at.y()))));
    }
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Tell(Mouse::Down, *event);
    }
}

void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    // The button may have been let go over a box, which keeps that to itself.
    Tell(event->buttons().testFlag(Qt::LeftButton) ? Mouse::Move : Mouse::Up, *event);
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Tell(Mouse::Up, *event);
    }
}

// Two lines, a dark one and a light one, so that it is seen on every picture.
void PictureWidget::PaintSelection(QPainter& painter) const {
    const QRectF frame(
        QPointF(fit_.BoxX(selection_->left), fit_.BoxY(selection_->top)),
        QPointF(fit_.BoxX(selection_->right) - 1, fit_.BoxY(selection_->bottom) - 1));
    const double width = devicePixelRatioF();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, width));
    painter.drawRect(frame);
    painter.setPen(QPen(Qt::yellow, width, Qt::DashLine));
    painter.drawRect(frame);
}

void PictureWidget::Stretch() {
    fit_ = FitOnScreen(width(), height(), devicePixelRatioF(), size_);
    if (view_.empty() || fit_.width < 1 || fit_.height < 1) {
        return;
    }
    if (stretched_.width() != fit_.width || stretched_.height() != fit_.height) {
        stretched_ = QImage(fit_.width, fit_.height, QImage::Format_RGB32);
    }
    const auto width = static_cast<std::size_t>(size_.width);
    std::int32_t lastRow = -1;
    for (std::int32_t y = 0; y < fit_.height; ++y) {
        auto* const into = reinterpret_cast<std::uint32_t*>(stretched_.scanLine(y));
        const std::int32_t row = fit_.ViewRow(y);
        if (row == lastRow) {
            std::memcpy(into, stretched_.constScanLine(y - 1),
                        static_cast<std::size_t>(fit_.width) * sizeof(std::uint32_t));
            continue;
        }
        lastRow = row;
        StretchLine(std::span(view_).subspan(static_cast<std::size_t>(row) * width, width), into,
                    fit_);
    }
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    CountPixelsOfTheScreen(painter);
    QRect picture;
    if (!own_.isNull()) {
        picture = QRect(QPoint(), own_.size());
        painter.drawImage(picture.topLeft(), own_);
    } else if (!view_.empty() && fit_.width > 0 && fit_.height > 0) {
        picture = QRect(fit_.left, fit_.top, fit_.width, fit_.height);
        painter.drawImage(picture.topLeft(), stretched_);
    }
    PaintAround(painter, picture);
    if (own_.isNull() && selection_) {
        PaintSelection(painter);
    }
}

// Black. Beyond the widget nothing is painted; where it begins within a pixel, it has one more.
void PictureWidget::PaintAround(QPainter& painter, const QRect& picture) const {
    const double ratio = devicePixelRatioF();
    const QRect all(0, 0, PixelsAtMost(width(), ratio) + 1, PixelsAtMost(height(), ratio) + 1);
    const QRect shown = picture & all;
    const int right = shown.x() + shown.width();
    const int bottom = shown.y() + shown.height();
    painter.fillRect(0, 0, all.width(), shown.y(), Qt::black);
    painter.fillRect(0, shown.y(), shown.x(), shown.height(), Qt::black);
    painter.fillRect(right, shown.y(), all.width() - right, shown.height(), Qt::black);
    painter.fillRect(0, bottom, all.width(), all.height() - bottom, Qt::black);
}

}  // namespace scenara
