// SPDX-License-Identifier: MIT
#include "platform/qt/PictureWidget.h"

#include <QMouseEvent>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace scenara {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

std::ptrdiff_t PitchOf(const QImage& image) {
    return image.bytesPerLine() / static_cast<std::ptrdiff_t>(sizeof(std::uint32_t));
}

soft::ScaledPixels PixelsOf(QImage& image) {
    return {reinterpret_cast<std::uint32_t*>(image.bits()), PitchOf(image), image.width(),
            image.height()};
}

// `pixels` in the screen's own, each of them what is under its centre.
QImage InPixelsOfTheScreen(std::int32_t width, std::int32_t height,
                           std::span<const std::uint32_t> pixels, double ratio) {
    const auto length = [ratio](std::int32_t own) {
        return std::max(static_cast<std::int32_t>(std::lround(own * ratio)), 1);
    };
    QImage image(length(width), length(height), QImage::Format_RGB32);
    image.fill(Qt::black);
    soft::CanvasScaler().Draw({width, height}, pixels, Scaling::Nearest, PixelsOf(image));
    return image;
}

// A length of the window's is so many pixels of the screen, or fewer: the toolkit rounds.
std::int32_t PixelsAtMost(std::int32_t length, double ratio) {
    return static_cast<std::int32_t>(std::ceil((length + 0.5) * ratio)) - 1;
}

// The pixels of the screen that show the widget.
QSize BoxOnScreen(const QWidget& widget) {
    return PictureWidget::SizeOnScreen(
        QRect(widget.mapTo(widget.window(), QPoint()), widget.size()), widget.devicePixelRatioF());
}

// At a whole multiple that may be there, although the window's own size says that a pixel is
// missing; else at what is surely there.
PictureFit FitOnScreen(const QWidget& widget, const CanvasSize& size, ShownSizes sizes) {
    const double ratio = widget.devicePixelRatioF();
    const QSize box = BoxOnScreen(widget);
    PictureFit fit = PictureFit::In(PixelsAtMost(widget.width(), ratio),
                                    PixelsAtMost(widget.height(), ratio), size, sizes);
    if (fit.width % size.width != 0) {
        fit = PictureFit::In(box.width(), box.height(), size, sizes);
    }
    fit.left = std::max(box.width() - fit.width, 0) / 2;
    fit.top = std::max(box.height() - fit.height, 0) / 2;
    return fit;
}

// Where the widget begins on the screen. That may be within a pixel: the one that is painted first
// is the first of all then.
QPoint OriginOnScreen(const QPainter& painter) {
    const QTransform screen = painter.deviceTransform();
    return {static_cast<int>(std::lround(screen.dx())), static_cast<int>(std::lround(screen.dy()))};
}

// The painter counts in pixels of the screen from now on.
void CountPixelsOfTheScreen(QPainter& painter) {
    const QPoint origin = OriginOnScreen(painter);
    const QTransform whole = QTransform::fromTranslate(origin.x(), origin.y());
    painter.setWorldTransform(whole * painter.deviceTransform().inverted());
}

// The view's are opaque, so that both are the same.
bool HasPixelsLikeOurs(QImage::Format format) {
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32_Premultiplied;
}

// The pixels that are painted on where the picture is to stand, all of which are there and to be
// painted; else nothing.
soft::ScaledPixels PixelsUnder(const QPainter& painter, const PictureFit& fit) {
    auto* const image = dynamic_cast<QImage*>(painter.paintEngine()->paintDevice());
    const QRegion clip = painter.paintEngine()->systemClip();
    const QRect place(OriginOnScreen(painter) + QPoint(fit.left, fit.top),
                      QSize(fit.width, fit.height));
    if (image == nullptr || !HasPixelsLikeOurs(image->format()) || !image->isDetached() ||
        clip.rectCount() != 1 || !(clip.boundingRect() & image->rect()).contains(place)) {
        return {};
    }
    auto* const line = reinterpret_cast<std::uint32_t*>(image->scanLine(place.top()));
    return {line + place.left(), PitchOf(*image), fit.width, fit.height};
}

}  // namespace

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMinimumSize(1, 1);
}

HRESULT PictureWidget::Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) {
    size_ = size;
    view_.resize(pixels.size());
    std::ranges::transform(pixels, view_.begin(),
                           [](std::uint32_t pixel) { return pixel | kOpaque; });
    repaint();
    return D3D_OK;
}

void PictureWidget::TakeOver(const PictureWidget& other) {
    size_ = other.size_;
    presentation_ = other.presentation_;
    view_ = other.view_;
    update();
}

void PictureWidget::ShowOwn(std::int32_t width, std::int32_t height,
                            std::span<const std::uint32_t> pixels) {
    own_ = InPixelsOfTheScreen(width, height, pixels, devicePixelRatioF());
    fills_ = false;
    repaint();
}

QSize PictureWidget::SizeOnScreen(const QRect& place, double ratio) {
    const auto length = [ratio](int from, int own) {
        return static_cast<int>(std::lround((from + own) * ratio) - std::lround(from * ratio));
    };
    return {length(place.x(), place.width()), length(place.y(), place.height())};
}

void PictureWidget::Fill(std::int32_t width, std::int32_t height,
                         std::span<const std::uint32_t> pixels, const QString& text) {
    if (own_.width() != width || own_.height() != height) {
        own_ = QImage(width, height, QImage::Format_RGB32);
    }
    if (!own_.isNull()) {
        const auto room = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        std::ranges::copy(pixels.first(std::min(pixels.size(), room)),
                          reinterpret_cast<std::uint32_t*>(own_.bits()));
    }
    fills_ = true;
    text_ = text;
    repaint();
}

void PictureWidget::EndOwn() {
    if (!own_.isNull()) {
        own_ = QImage();
        fills_ = false;
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
        const QPoint at = OnScreen(event.position());
        observer_(what, fills_ ? at.x() : fit_.ViewX(at.x()), fills_ ? at.y() : fit_.ViewY(at.y()));
    }
}

// In the pixels of the screen, from the widget's own corner.
QPoint PictureWidget::OnScreen(const QPointF& place) const {
    const QPointF at = place * devicePixelRatioF();
    return {static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y()))};
}

void PictureWidget::TellHand(Hand what, const QMouseEvent& event) const {
    if (handObserver_) {
        const QPoint at = OnScreen(event.position());
        handObserver_(what, fit_.ViewX(at.x()), fit_.ViewY(at.y()));
    }
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        holds_ = true;
        Tell(Mouse::Down, *event);
    } else if (event->button() == Qt::MiddleButton && !fills_) {
        pulls_ = true;
        TellHand(Hand::MiddleDown, *event);
    }
}

void PictureWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && !fills_) {
        TellHand(Hand::Twice, *event);
    }
}

// A button may have been let go over a box, which keeps that to itself.
void PictureWidget::mouseMoveEvent(QMouseEvent* event) {
    if (holds_) {
        holds_ = event->buttons().testFlag(Qt::LeftButton);
        Tell(holds_ ? Mouse::Move : Mouse::Up, *event);
    }
    if (pulls_) {
        pulls_ = event->buttons().testFlag(Qt::MiddleButton);
        TellHand(pulls_ ? Hand::MiddleMove : Hand::MiddleUp, *event);
    }
}

void PictureWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        holds_ = false;
        Tell(Mouse::Up, *event);
    } else if (event->button() == Qt::MiddleButton && std::exchange(pulls_, false)) {
        TellHand(Hand::MiddleUp, *event);
    }
}

// A touchpad turns it by parts of a notch.
int PictureWidget::WholeNotches(int& turned, int by) {
    turned += by;
    const int notches = turned / QWheelEvent::DefaultDeltasPerStep;
    turned -= notches * QWheelEvent::DefaultDeltasPerStep;
    return notches;
}

int PictureWidget::NotchesOf(const QWheelEvent& event) {
    if (std::exchange(scrolled_, false)) {
        turned_ = 0;
    }
    return WholeNotches(turned_, event.angleDelta().y());
}

// Forwards is up, or with Shift to the left.
void PictureWidget::Scroll(const QWheelEvent& event) {
    if (!std::exchange(scrolled_, true)) {
        turned_ = 0;
        turnedAcross_ = 0;
    }
    const QPoint turned = event.modifiers().testFlag(Qt::ShiftModifier)
                              ? QPoint(event.angleDelta().x() + event.angleDelta().y(), 0)
                              : event.angleDelta();
    const int across = WholeNotches(turnedAcross_, turned.x());
    const int down = WholeNotches(turned_, turned.y());
    if (across != 0 || down != 0) {
        scrollObserver_(-across, -down);
    }
}

void PictureWidget::wheelEvent(QWheelEvent* event) {
    if (fills_ && wheelObserver_) {
        const QPoint at = OnScreen(event->position());
        if (const int notches = NotchesOf(*event); notches != 0) {
            wheelObserver_(notches, at.x(), at.y());
        }
        event->accept();
        return;
    }
    const bool zooms = event->modifiers().testFlag(Qt::ControlModifier);
    if (!zooms && !fills_ && scrollObserver_) {
        Scroll(*event);
        event->accept();
        return;
    }
    if (!zooms || !zoomObserver_) {
        turned_ = 0;
        event->ignore();
        return;
    }
    const int notches = NotchesOf(*event);
    for (int i = 0; i < std::abs(notches); ++i) {
        zoomObserver_(notches > 0);
    }
    event->accept();
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

void PictureWidget::SetPresentation(const Presentation& presentation) {
    if (presentation_ != presentation) {
        presentation_ = presentation;
        Fit();
        update();
    }
}

void PictureWidget::Fit() {
    fit_ = FitOnScreen(*this, size_, presentation_.sizes);
}

void PictureWidget::paintEvent(QPaintEvent* /*event*/) {
    Fit();
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    QRect picture;
    if (own_.isNull() && !view_.empty() && fit_.width > 0 && fit_.height > 0) {
        picture = QRect(fit_.left, fit_.top, fit_.width, fit_.height);
        PaintView(painter);
    }
    CountPixelsOfTheScreen(painter);
    if (!own_.isNull()) {
        picture = QRect(QPoint(), own_.size());
        painter.drawImage(picture.topLeft(), own_);
    }
    PaintAround(painter, picture);
    if (own_.isNull() && selection_) {
        PaintSelection(painter);
    }
    painter.end();
    if (fills_ && !text_.isEmpty()) {
        PaintText();
    }
}

void PictureWidget::PaintText() {
    QPainter painter(this);
    painter.setPen(Qt::lightGray);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, text_);
}

// Straight onto the screen, where a part of it is not all that is to be painted.
void PictureWidget::PaintView(QPainter& painter) {
    if (const soft::ScaledPixels under = PixelsUnder(painter, fit_); under.pixels != nullptr) {
        scaler_.Draw(size_, view_, presentation_.scaling, under);
        return;
    }
    if (stretched_.width() != fit_.width || stretched_.height() != fit_.height) {
        stretched_ = QImage(fit_.width, fit_.height, QImage::Format_RGB32);
    }
    scaler_.Draw(size_, view_, presentation_.scaling, PixelsOf(stretched_));
    painter.save();
    CountPixelsOfTheScreen(painter);
    painter.drawImage(fit_.left, fit_.top, stretched_);
    painter.restore();
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
