#pragma once

#include "grid/GridData.h"

#include <QAbstractTableModel>

namespace pellam {

/// The rows of a store as a plain table: the time first, then the channels.
class TablePreviewModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// `table` outlives the model.
    explicit TablePreviewModel(const GridData& table, QObject* parent)
        : QAbstractTableModel(parent),
          m_table(table) {}

    /// Call when the store has been filled anew.
    void refresh();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    const GridData& m_table;
    int m_rows = 0;
    int m_columns = 0;
};

} // namespace pellam
