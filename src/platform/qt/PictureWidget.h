// SPDX-License-Identifier: MIT
//
// PictureWidget: shows the view in its box (platform/PictureFit.h), black around it.
//
// The picture is stretched by soft::CanvasScaler, into an image of the screen's own pixels, and
// drawn one to one: a painter's own stretching is slower, and leaves pixels out.
#pragma once

#include <QImage>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/PictureFit.h"
#include "platform/Presentation.h"
#include "platform/View.h"
#include "platform/soft/CanvasScaler.h"
#include "platform/soft/PictureSink.h"

class QPainter;

namespace scenara {

class PictureWidget : public QWidget, public PictureSink {
public:
    explicit PictureWidget(QWidget* parent);

    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override;

    // How it is shown from now on, what stands there included; at first as without additions.
    void SetPresentation(const Presentation& presentation);

    // A picture of its own, from the upper left corner, until EndOwn. As the window is, it is
    // measured in the toolkit's pixels: on a screen that has several of its own to one of those, it
    // is stretched.
    void ShowOwn(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels);
    void EndOwn();

    // Fills the box, in pixels of the screen (SizeOnScreen), with a line of text in the middle;
    // until EndOwn, too.
    void Fill(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels,
              const QString& text);
    // How many a widget of this size has that stands there in its window.
    [[nodiscard]] static QSize SizeOnScreen(const QRect& place, double ratio);

    // A frame over the view, or none.
    void SetSelection(const std::optional<ViewFrame>& selection);

    // The left button and the pointer over the view, in its pixels; or in those that fill the box.
    enum class Mouse { Down, Move, Up };
    void SetMouseObserver(std::function<void(Mouse, std::int32_t x, std::int32_t y)> observer) {
        observer_ = std::move(observer);
    }

    // The wheel over the picture with Ctrl held, a notch at a time: forwards is in.
    void SetZoomObserver(std::function<void(bool in)> observer) {
        zoomObserver_ = std::move(observer);
    }

    // What else a hand does to the view: the left button twice, after the second Mouse::Down; and
    // the middle button, in pixels of the view.
    enum class Hand { Twice, MiddleDown, MiddleMove, MiddleUp };
    void SetHandObserver(std::function<void(Hand, std::int32_t x, std::int32_t y)> observer) {
        handObserver_ = std::move(observer);
    }
    // The wheel over the view without Ctrl, in notches to the right and down. Shift turns one for
    // up and down into one for left and right.
    void SetScrollObserver(std::function<void(int across, int down)> observer) {
        scrollObserver_ = std::move(observer);
    }

    // The wheel over what fills the box, in notches, and where the pointer is.
    void SetWheelObserver(
        std::function<void(int notches, std::int32_t x, std::int32_t y)> observer) {
        wheelObserver_ = std::move(observer);
    }

    // Shows what the other one showed last.
    void TakeOver(const PictureWidget& other);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* /*event*/) override { Fit(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Fit();
    void PaintView(QPainter& painter);
    void PaintAround(QPainter& painter, const QRect& picture) const;
    void PaintSelection(QPainter& painter) const;
    void PaintText();
    void Tell(Mouse what, const QMouseEvent& event) const;
    void TellHand(Hand what, const QMouseEvent& event) const;
    void Scroll(const QWheelEvent& event);
    [[nodiscard]] QPoint OnScreen(const QPointF& place) const;
    [[nodiscard]] int NotchesOf(const QWheelEvent& event);
    [[nodiscard]] static int WholeNotches(int& turned, int by);

    CanvasSize size_;
    std::vector<std::uint32_t> view_;  // what was shown last; empty: nothing yet
    Presentation presentation_;
    soft::CanvasScaler scaler_;
    QImage stretched_;
    PictureFit fit_;
    QImage own_;          // null: the view is shown
    bool fills_ = false;  // ... own_ fills the box
    QString text_;        // over it
    std::optional<ViewFrame> selection_;
    std::function<void(Mouse, std::int32_t, std::int32_t)> observer_;
    std::function<void(bool)> zoomObserver_;
    std::function<void(int, std::int32_t, std::int32_t)> wheelObserver_;
    std::function<void(Hand, std::int32_t, std::int32_t)> handObserver_;
    std::function<void(int, int)> scrollObserver_;
    bool holds_ = false;     // the left button is down
    bool pulls_ = false;     // the middle one is
    int turned_ = 0;         // of the wheel, since the last notch that counted
    int turnedAcross_ = 0;   // the same, sideways
    bool scrolled_ = false;  // what it was turned by last was for the camera
};

}  // namespace scenara
