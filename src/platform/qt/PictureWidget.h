// SPDX-License-Identifier: MIT
//
// PictureWidget: shows the view in its box (platform/PictureFit.h), black around it.
//
// The picture is stretched here, into an image of the screen's own pixels, and drawn one to one: a
// painter's own stretching is slower, and wrong at sizes that are no whole multiple.
#pragma once

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/PictureFit.h"
#include "platform/soft/PictureSink.h"

namespace scenara {

class PictureWidget : public QWidget, public PictureSink {
public:
    explicit PictureWidget(QWidget* parent);

    HRESULT Show(std::span<const std::uint32_t> pixels) override;

    // Shows what the other one showed last.
    void TakeOver(const PictureWidget& other);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Stretch();

    std::vector<std::uint32_t> view_;  // what was shown last; empty: nothing yet
    QImage stretched_;
    PictureFit fit_;
};

}  // namespace scenara
