#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"
#include "views/sheet/GridStep.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <QUndoStack>

#include <functional>
#include <memory>
#include <optional>
#include <set>

namespace pellam {

/// The store as a table: row 0 shows the axis numbers, the rows below it the data. Without loaded
/// data it is an empty sheet of 32,768 rows to type into.
class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Role {
        ChartedRole = Qt::UserRole, ///< bool of a heading: its check box
        AxisRole,                   ///< int of a cell of the axis row
        NumberRole,                 ///< bool of a data cell: it reads as a number
        EditedRole,                 ///< bool of a data cell: it differs from what was loaded
    };

    static constexpr int kAxisRow = 0;

    /// Shows a store, which must outlive the model.
    explicit GridModel(GridData& grid, QObject* parent = nullptr);

    [[nodiscard]] GridData& grid() const { return m_grid; }

    /// While loading, the model has no rows and no columns, whatever happens to the store.
    void beginLoad();
    void endLoad();

    /// Refuses editing, of axis numbers too.
    void setProtected(bool on) { m_protected = on; }

    /// Chooses text colours that are readable on a dark background.
    void setDarkBackground(bool dark);

    /// What a person did and can take back; emptied by a load.
    [[nodiscard]] QUndoStack& undoStack() { return m_undoStack; }

    [[nodiscard]] const QUndoStack& undoStack() const { return m_undoStack; }

    /// Takes a step, which can be taken back; all that change cells or columns go this way.
    void take(std::unique_ptr<GridStep> step);
    /// Columns whose cells differ from what was loaded, or did on the way; none after everything
    /// was taken back.
    [[nodiscard]] std::set<int> editedColumns() const;
    /// What a data cell held when it was loaded; nothing where it holds that still.
    [[nodiscard]] std::optional<QString> original(int column, Row row) const;

    /// What typed texts the time column takes; any without it.
    void setTimeCheck(std::function<bool(const std::string&)> check) {
        m_timeCheck = std::move(check);
    }

    /// Tells views that cells have changed, and marks the store as changed.
    void cellsChanged(const CellArea& area);

    void setAxis(int column, int axis);
    void setCharted(int firstColumn, int lastColumn, bool charted);
    /// Sets the check boxes of columns 0 to channelCount() - 1, or clears those of all columns.
    void setAllCharted(bool charted);
    /// Moves a column in the store; false when it or its target must not move. Not undoable.
    bool moveColumn(int from, int to);
    /// Sets or takes away the mark in the corner.
    void setChanged(bool changed);
    /// Tells views that headings, axis numbers and mark may all have changed.
    void refresh();

    /// The last column that cells can be in: the last channel, where one is loaded. The columns
    /// behind it only fill the window; nothing in them can be selected, typed or copied.
    [[nodiscard]] int lastColumn() const;

    /// What a cell is: its channel and value (of a long text the beginning), then its time.
    [[nodiscard]] QStringList facts(int column, GridRow row) const;

    /// Whether the line of a row failed its checksum.
    [[nodiscard]] bool isDamaged(GridRow row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  Q_SIGNALS:
    /// The mark in the corner has appeared or gone.
    void changedMark(bool changed);
    /// A typed text was not written, as the time column does not take it.
    void timeRefused(const QString& text);
    /// A step was taken back, or again, that changed these cells.
    void stepRepeated(const CellArea& area);
    /// A column has gone to another place, with everything in it.
    void columnMoved(int from, int to);

  private:
    [[nodiscard]] QVariant axisData(int column, int role) const;
    [[nodiscard]] QVariant cellData(int column, Row row, int role) const;
    [[nodiscard]] QVariant columnHeading(int column, int role) const;
    [[nodiscard]] QVariant rowHeading(int row, int role) const;
    [[nodiscard]] QVariant textColour(CellColour colour) const;
    [[nodiscard]] QString accessibleCell(int column, int row) const;
    [[nodiscard]] QString toolTip(int column, GridRow row) const;
    [[nodiscard]] QString columnName(int column) const;

    GridData& m_grid;
    QUndoStack m_undoStack;
    int m_rows = 0;
    bool m_loading = false;
    bool m_protected = false;
    bool m_dark = false;
    std::function<bool(const std::string&)> m_timeCheck;
};

} // namespace pellam
