#pragma once

#include "grid/GridData.h"

#include <QString>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QPrinter;
class QUndoStack;
QT_END_NAMESPACE

namespace pellam {

class CMyDropTarget;
class CommandSet;
class FindBar;
class GridFinder;
class GridModel;
class MyCug;
class NoticeBar;
class ProgressSink;
class SelectionStatistics;
struct InternationalSettings;

/// The "Grid" page: the data as a spreadsheet, with a note on it above and the find bar below.
class CGridView : public QWidget {
    Q_OBJECT
  public:
    /// Shows a store, which must outlive the page, and so must the settings.
    CGridView(GridData& grid, const InternationalSettings& settings, QWidget* parent = nullptr);
    ~CGridView() override;

    [[nodiscard]] GridData& data() const { return m_grid; }

    [[nodiscard]] MyCug& grid() const { return *m_cug; }

    [[nodiscard]] QUndoStack& undoStack() const;

    /// Whether cells differ from what was loaded.
    [[nodiscard]] bool hasEdits() const;
    /// Whether cells were changed that no export has taken since: see exported().
    [[nodiscard]] bool hasEditsToLose() const;
    /// Call when the checked channels were written to a file.
    void exported();

    /// Takes files that are dropped on the page.
    [[nodiscard]] CMyDropTarget& dropTarget() const { return *m_dropTarget; }

    /// Call before the store is emptied and filled: stops painting, protects the grid, switches the
    /// moving of columns off and forgets what could be undone.
    void beginLoad();
    /// Call when the load has ended, however it ended: shows the store, fits the column widths and
    /// lifts the protection unless `protect` is set. `largeFile` forbids resizing columns.
    void endLoad(bool largeFile, bool protect);

    /// Call when the store has changed behind the page's back (axis numbers, check boxes, mark).
    void refresh();

    /// Shows a note above the grid, with a button "Change...", until it is closed or the next load
    /// begins; an empty one shows none.
    void showNote(const QString& text);
    /// The figures of the selected cells are out of date.
    void refreshStatistics();

    /// Name that printed pages carry at the foot.
    void setFileName(const QString& name) { m_fileName = name; }

    [[nodiscard]] const QString& fileName() const { return m_fileName; }

    /// Prints the page range that the printer was set to; 0 pages when no row is loaded.
    bool print(QPrinter& printer, ProgressSink& progress);
    /// Pages on this printer's paper; 0 when no row is loaded.
    [[nodiscard]] int pageCount(const QPrinter& printer) const;

    /// The commands on cells and those of the page.
    [[nodiscard]] CommandSet& commands() const;

    /// Makes a data row the current one, in the current column, and shows it.
    void goToRow(Row row);

  public Q_SLOTS:
    /// Opens the find bar.
    void find();
    void findNext();
    void findPrevious();
    /// Asks for a row number or a time and goes there.
    void goTo();
    void nextDamagedLine();
    void previousDamagedLine();

  Q_SIGNALS:
    /// Figures of the selected numbers, the most wanted first; none when fewer than two cells are
    /// selected.
    void statisticsChanged(const QStringList& figures);
    /// What the current cell is: its channel and whole value, then its time; none without one.
    void currentCellTold(const QStringList& facts);
    /// A change was made, taken back, or made again.
    void edited();
    /// The mark in the corner has appeared or gone.
    void changedMark(bool changed);
    /// The current cell is in another data row, counted from 1; 0 on the axis row.
    void currentRowChanged(qint64 row);
    /// The button of the note above the grid was pressed.
    void noteChosen();
    /// A short remark for the status bar, such as that a search went on from the top.
    void notice(const QString& text);

  private:
    void connectGrid();
    void tellCurrentCell();
    [[nodiscard]] bool isTime(const std::string& text) const;
    void connectSearch();
    void search(bool forward);
    void goToCell(int column, Row row);
    void goToDamaged(bool forward);

    GridData& m_grid;
    const InternationalSettings& m_settings;
    GridModel* m_model;
    MyCug* m_cug;
    SelectionStatistics* m_statistics;
    GridFinder* m_finder;
    NoticeBar* m_note;
    FindBar* m_findBar;
    QWidget*
        m_blank; ///< covers the grid while its old cells are gone and the new ones not yet there
    CMyDropTarget* m_dropTarget;
    QString m_fileName;
};

} // namespace pellam
