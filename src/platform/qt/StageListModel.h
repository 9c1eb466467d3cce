// SPDX-License-Identifier: MIT
//
// StageListModel: the form's list of stages, as the toolkit asks for it. It holds no texts of its
// own: there may be ten thousand.
#pragma once

#include <QAbstractListModel>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Form.h"

namespace scenara {

class StageListModel : public QAbstractListModel {
public:
    // `list` outlives it.
    explicit StageListModel(const ListBox& list) : list_(list) {}

    // Whether the list has been filled anew since, and tells the view of it then; or of other
    // details.
    bool Refresh();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ListBox& list_;
    int rows_ = 0;  // as the view knows them
    std::uint32_t filled_ = 0;
    std::uint32_t detailed_ = 0;
};

}  // namespace scenara
