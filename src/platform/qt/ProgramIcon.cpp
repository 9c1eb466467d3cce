// SPDX-License-Identifier: MIT
#include "platform/qt/ProgramIcon.h"

#include <QDir>
#include <QString>

// The toolkit's macro names a function outside of all namespaces.
static void TakePicturesIn() {
    Q_INIT_RESOURCE(icon);
}

namespace scenara {

QIcon ProgramIcon() {
    TakePicturesIn();
    QIcon icon;
    for (const QString& name : QDir(QStringLiteral(":/icon")).entryList()) {
        icon.addFile(QStringLiteral(":/icon/") + name);
    }
    return icon;
}

}  // namespace scenara
