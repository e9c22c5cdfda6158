#pragma once

#include "views/grid/GridSelection.h"
#include "views/text/CellWidths.h"

#include <QTableView>

#include <memory>
#include <vector>

namespace pellam {

class CommandSet;
class GridClipboard;
class GridCorner;
class GridDelegate;
class GridHeader;
class GridKeys;
class GridModel;
class GridRowHeader;
struct SortCell;

/// The grid control: a table of the store whose column 0 stays at the left edge. Columns count from
/// 0; rows are grid rows, 0 being the axis row and -1 the headings.
class MyCug : public QTableView {
    Q_OBJECT
  public:
    static constexpr int kCheckBoxType = 2;
    static constexpr int kSpinButtonType = 8;
    static constexpr int kSpinUp = 16;
    static constexpr int kSpinDown = 17;
    static constexpr int kCutCommand = 1000;
    static constexpr int kCopyCommand = 1001;
    static constexpr int kPasteCommand = 1002;

    /// `model` must outlive the control.
    explicit MyCug(GridModel& model, QWidget* parent = nullptr);
    ~MyCug() override;

    /// 1: no cell can be edited.
    void SetEnableProtection(int protection);

    [[nodiscard]] int enableProtection() const { return m_enableProtection; }

    /// Not 0: columns cannot be resized.
    void SetLargeFileMode(int mode);

    [[nodiscard]] int largeFileMode() const { return m_largeFileMode; }

    /// Whether columns can be moved by dragging their headings.
    void EnableColSwapping(bool on);

    /// A check box of the headings or a spin button of the axis row was used: takes the step and
    /// sets the mark in the corner. Always true.
    bool OnCellTypeNotify(int cellType, int column, GridRow row, int message);
    /// A heading is about to be dragged: sets the mark in the corner; the drag is allowed.
    bool OnColSwapStart(int column);
    [[nodiscard]] bool OnCanSizeCol(int column) const;
    [[nodiscard]] bool OnEditStart(int column, GridRow row) const;
    /// The order of two cells in a sort, as compareCells() has it.
    [[nodiscard]] static int OnSortEvaluate(const SortCell* first, const SortCell* second,
                                            unsigned flags);
    /// Sets the mark and edits, on data cells alone.
    void OnDClicked(int column, GridRow row);
    /// Gives one of the three numbered commands above.
    void OnMenuCommand(int command);

    [[nodiscard]] GridModel& gridModel() const { return m_grid; }

    [[nodiscard]] GridClipboard& clipboard() const { return *m_clipboard; }

    /// The commands of the pop-up menu and the keys; the page around adds its own.
    [[nodiscard]] CommandSet& commands() const { return *m_commands; }

    [[nodiscard]] GridCorner& corner() const { return *m_corner; }

    [[nodiscard]] GridHeader& headings() const { return *m_headings; }

    /// The selection, in areas that do not overlap.
    [[nodiscard]] std::vector<CellArea> selectedAreas() const;
    /// Selects one area alone, makes its first cell the current one and scrolls there.
    void selectArea(const CellArea& area);
    /// Makes a cell the current one and shows it; it is selected alone, or with everything from
    /// where the selection began.
    void moveTo(int column, int row, bool extend);
    /// Every data cell; the axis row is left out, here and in columns selected by their heading.
    void selectAll() override;
    /// One row alone; the current cell stays.
    void selectRow(int row);
    /// The data cells of one column; with Shift up to it from where the selection began, with
    /// Control in addition to the rest.
    void selectColumn(int column, Qt::KeyboardModifiers modifiers);
    /// Sets the check box of a column the other way.
    void toggleCharted(int column);
    /// Widths that show the headings, the rows in view and a sample of the others.
    void fitColumns();

    QModelIndex indexAt(const QPoint& place) const override;
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  Q_SIGNALS:
    /// A remark for the status bar.
    void notice(const QString& text);
    void selectionMade();
    void currentCellChanged(int column, qint64 row);

  protected:
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    /// Width that shows every row of a column.
    int sizeHintForColumn(int column) const override;
    void scrollContentsBy(int dx, int dy) override;
    void updateEditorGeometries() override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    using QTableView::edit;

  private:
    void OnSetup();
    void connectHeadings();
    void setHeights();
    [[nodiscard]] int cellMargin() const;
    void look(const CellWidths& widths, int column, Row step, CellWidths::Widest& widest) const;
    void adaptToPalette();
    void moveColumn(int from, int to);
    void columnMoved(int from, int to);
    void ensureCurrentCell();
    [[nodiscard]] bool isLockedColumnShifted() const;

    GridModel& m_grid;
    GridHeader* m_headings;
    GridRowHeader* m_rowNumbers;
    GridCorner* m_corner;
    GridDelegate* m_delegate;
    GridClipboard* m_clipboard;
    CommandSet* m_commands;
    std::unique_ptr<GridKeys> m_keys;
    GridSelection m_selection{*this, m_grid};
    int m_enableProtection = 0;
    int m_largeFileMode = 0;
    bool m_swapping = true;
};

} // namespace pellam
