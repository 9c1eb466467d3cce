// SPDX-License-Identifier: MIT
#include "platform/qt/KeysWindow.h"

#include <QDialogButtonBox>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextOption>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "platform/qt/ShownText.h"

namespace scenara {
namespace {

// Of its screen, each way.
constexpr double kShareOfScreen = 0.8;

// In two columns, with the titles across both.
QString Html(const KeyPage& page) {
    QString html = QStringLiteral("<table cellspacing='0' cellpadding='2'>");
    for (const KeyPageGroup& group : page) {
        html += QStringLiteral("<tr><td colspan='2'><b>%1</b></td></tr>")
                    .arg(Shown(group.title).toHtmlEscaped());
        for (const KeyPageLine& line : group.lines) {
            html += QStringLiteral("<tr><td>%1&nbsp;&nbsp;&nbsp;</td><td>%2</td></tr>")
                        .arg(Shown(line.keys).toHtmlEscaped(), Shown(line.does).toHtmlEscaped());
        }
        html += QStringLiteral("<tr><td colspan='2'></td></tr>");
    }
    return html + QStringLiteral("</table>");
}

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-owning-memory): children, as Qt has it

KeysWindow::KeysWindow(const KeyPage& page, QWidget* parent)
    : QDialog(parent), text_(new QTextEdit(this)) {
    setWindowTitle(QStringLiteral("Keys"));
    setSizeGripEnabled(true);
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setTabChangesFocus(true);
    text_->setWordWrapMode(QTextOption::WordWrap);
    text_->setHtml(Html(page));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(text_, 1);
    column->addWidget(buttons);
    FitPage();
}

// NOLINTEND(cppcoreguidelines-owning-memory)

void KeysWindow::ComeToFront() {
    show();
    raise();
    activateWindow();
    text_->setFocus();
}

void KeysWindow::FitPage() {
    QTextDocument page;  // the other one has the width of a window that is not there yet
    page.setDefaultFont(text_->font());
    page.setHtml(text_->toHtml());
    const QMargins margins = layout()->contentsMargins();
    const int frame = 2 * text_->frameWidth();
    const QSize around(
        margins.left() + margins.right() + frame + text_->verticalScrollBar()->sizeHint().width(),
        layout()->sizeHint().height() - text_->sizeHint().height() + frame);
    const QWidget& shownBy = parentWidget() != nullptr ? *parentWidget() : *this;
    const QSize most = shownBy.screen()->availableGeometry().size() * kShareOfScreen - around;
    page.setTextWidth(std::min(page.idealWidth(), static_cast<double>(most.width())));
    const QSize whole(static_cast<int>(std::ceil(page.idealWidth())),
                      static_cast<int>(std::ceil(page.size().height())));
    resize(whole.boundedTo(most) + around);
}

}  // namespace scenara
