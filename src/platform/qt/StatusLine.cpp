// SPDX-License-Identifier: MIT
#include "platform/qt/StatusLine.h"

#include <QEvent>
#include <QFontMetrics>
#include <QStringList>
#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/qt/ShownText.h"

namespace scenara {
namespace {

// Above and below the text, and before and after the line, in the toolkit's pixels.
constexpr int kMargin = 3;
constexpr int kSide = 6;
// Letters may reach a little out of what they measure.
constexpr int kSlack = 2;
// What is left of a text that is cut, in signs.
constexpr int kLeastSigns = 9;

// Behind the archive's file name.
QString VersionOf(const StatusBar& status) {
    return status.version.empty() ? QString() : " (" + Shown(status.version) + ")";
}

}  // namespace

StatusLine::StatusLine(QWidget* parent) : QWidget(parent) {
    for (QLabel*& label : labels_) {
        label = new QLabel(this);             // NOLINT(cppcoreguidelines-owning-memory)
        label->setTextFormat(Qt::PlainText);  // a file's words are no marks
        label->setIndent(0);
        label->hide();
    }
    problems_ = new QToolButton(this);  // NOLINT(cppcoreguidelines-owning-memory)
    problems_->setAutoRaise(true);
    problems_->setFocusPolicy(Qt::NoFocus);  // the keys stay with the picture
    problems_->setCursor(Qt::PointingHandCursor);
    problems_->hide();
    connect(problems_, &QToolButton::clicked, this, [this] {
        if (observer_) {
            observer_();
        }
    });
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void StatusLine::Show(const StatusBar& status) {
    if (status_ != status) {
        status_ = status;
        setToolTip(ToolTipText());
        LayOut();
    }
}

QSize StatusLine::sizeHint() const {
    return {0, fontMetrics().height() + 2 * kMargin};
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    LayOut();
}

void StatusLine::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        LayOut();
    }
}

QWidget& StatusLine::WidgetOf(Part part) {
    if (part == Problems) {
        return *problems_;
    }
    return *labels_.at(part);
}

QString StatusLine::WholeOf(Part part) const {
    switch (part) {
        case Name: return Shown(status_.stages.empty() ? status_.name : status_.stages);
        case Author: return Shown(status_.author);
        case Canvas: return Shown(status_.canvas);
        case Archive: return Shown(status_.archive) + VersionOf(status_);
        case Problems: return Shown(status_.problems);
        case PartCount: break;
    }
    return {};
}

int StatusLine::WidthOfText(const QString& text) const {
    return text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(text) + kSlack;
}

int StatusLine::WidthOf(Part part) const {
    const int width = WidthOfText(WholeOf(part));
    return part == Problems && width > 0 ? width + 2 * kSide : width;  // the button's own edges
}

int StatusLine::LeastOf(Part part) const {
    const int cut = fontMetrics().averageCharWidth() * kLeastSigns;
    const int whole = WidthOf(part);
    switch (part) {
        case Name:
        case Author: return std::min(whole, cut);
        case Archive: return std::min(whole, cut + WidthOfText(VersionOf(status_)));
        default: return whole;
    }
}

int StatusLine::Gap() const {
    return fontMetrics().averageCharWidth() * 2;
}

// With the gaps between those that there are, and the room at both sides.
int StatusLine::Needed(const Widths& widths) const {
    const auto parts = std::ranges::count_if(widths, [](int width) { return width > 0; });
    const int gaps = static_cast<int>(std::max<std::ptrdiff_t>(parts - 1, 0)) * Gap();
    return std::accumulate(widths.begin(), widths.end(), gaps + 2 * kSide);
}

StatusLine::Widths StatusLine::Fitted() const {
    Widths widths{};
    for (std::size_t part = Name; part < PartCount; ++part) {
        widths.at(part) = WidthOf(static_cast<Part>(part));
    }
    const auto cut = [&](Part part) {
        const int tooMuch = std::max(Needed(widths) - width(), 0);
        widths.at(part) -= std::min(tooMuch, widths.at(part) - LeastOf(part));
    };
    const auto leaveOut = [&](Part part) {
        if (Needed(widths) > width()) {
            widths.at(part) = 0;
        }
    };
    cut(Author);
    cut(Name);
    leaveOut(Author);
    cut(Archive);
    for (const Part part : {Canvas, Archive, Name, Problems}) {
        leaveOut(part);
    }
    // What has gone may leave room for more of the others.
    for (const Part part : {Archive, Name}) {
        if (widths.at(part) > 0) {
            const int room = std::max(width() - Needed(widths), 0);
            widths.at(part) = std::min(WidthOf(part), widths.at(part) + room);
        }
    }
    return widths;
}

QString StatusLine::CutTo(Part part, int width) const {
    QString whole = WholeOf(part);
    if (width >= WidthOf(part)) {
        return whole;
    }
    const QFontMetrics metrics = fontMetrics();
    if (part != Archive) {
        return metrics.elidedText(whole, Qt::ElideRight, width - kSlack);
    }
    const QString version = VersionOf(status_);
    const int room = width - kSlack - metrics.horizontalAdvance(version);
    return metrics.elidedText(Shown(status_.archive), Qt::ElideMiddle, room) + version;
}

void StatusLine::LayOut() {
    const Widths widths = Fitted();
    int left = kSide;
    int right = width() - kSide;
    const auto place = [&](Part part, int at) {
        const QRect room(at, 0, widths.at(part), height());
        WidgetOf(part).setGeometry(room);
        if (part == Problems) {
            problems_->setText(WholeOf(part));
        } else {
            labels_.at(part)->setText(CutTo(part, widths.at(part)));
        }
    };
    for (const Part part : {Name, Author}) {
        if (widths.at(part) > 0) {
            place(part, left);
            left += widths.at(part) + Gap();
        }
    }
    for (const Part part : {Problems, Archive, Canvas}) {
        if (widths.at(part) > 0) {
            right -= widths.at(part);
            place(part, right);
            right -= Gap();
        }
    }
    for (std::size_t part = Name; part < PartCount; ++part) {
        WidgetOf(static_cast<Part>(part)).setVisible(widths.at(part) > 0);
    }
}

// A line each. Only with marks around them a toolkit breaks long ones.
QString StatusLine::ToolTipText() const {
    const QString archive =
        Shown(status_.archivePath) + (status_.archive.empty() ? QString() : VersionOf(status_));
    QString lines;
    for (const QString& text :
         {WholeOf(Name), WholeOf(Author), WholeOf(Canvas), archive, WholeOf(Problems)}) {
        if (!text.isEmpty()) {
            lines += (lines.isEmpty() ? QString() : QStringLiteral("<br>")) + text.toHtmlEscaped();
        }
    }
    return lines.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(lines);
}

}  // namespace scenara
