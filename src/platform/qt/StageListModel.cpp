// SPDX-License-Identifier: MIT
#include "platform/qt/StageListModel.h"

#include <QApplication>
#include <QPalette>
#include <utility>

#include "platform/qt/ShownText.h"

namespace scenara {

bool StageListModel::Refresh() {
    const auto rows = static_cast<int>(list_.items.size());
    const bool detailed = std::exchange(detailed_, list_.detailed) != list_.detailed;
    if (std::exchange(filled_, list_.filled) != list_.filled || rows != rows_) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
        return true;
    }
    if (detailed && rows_ > 0) {
        emit dataChanged(index(0), index(rows_ - 1));
    }
    return false;
}

// The view may ask between a change of the form and Refresh.
QVariant StageListModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= list_.items.size()) {
        return {};
    }
    const bool hasDetail = row < list_.details.size();
    switch (role) {
        case Qt::DisplayRole: return Shown(list_.items[row]);
        case Qt::ToolTipRole: return hasDetail ? Shown(list_.details[row].tip) : QVariant();
        case Qt::ForegroundRole:
            return hasDetail && list_.details[row].isDimmed
                       ? QVariant(QApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                       : QVariant();
        default: return {};
    }
}

}  // namespace scenara
