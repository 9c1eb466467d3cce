// SPDX-License-Identifier: MIT
#include "platform/qt/EndOfSession.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <utility>

namespace scenara {

EndOfSession::EndOfSession(int descriptor, std::function<void()> save, std::function<void()> end)
    : end_(std::move(end)) {
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [save = std::move(save)](QSessionManager&) { save(); }, Qt::DirectConnection);
    qApp->installEventFilter(this);
    if (descriptor >= 0) {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): a child, as Qt has it
        auto* const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
            notifier->setEnabled(false);  // whatever else comes, the program ends
            end_();
        });
    }
}

// The session manager's last word. (The toolkit would close the windows, and end its own loop, of
// which there is none.)
bool EndOfSession::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver == qApp && event->type() == QEvent::Quit) {
        end_();
        return true;
    }
    return QObject::eventFilter(receiver, event);
}

}  // namespace scenara
