#include "views/grid/MyCug.h"

#include "ui/commands/CommandSet.h"
#include "views/grid/GridClipboard.h"
#include "views/grid/GridCommands.h"
#include "views/grid/GridKeys.h"
#include "views/grid/LockedColumn.h"
#include "views/scan/CompareCells.h"
#include "views/sheet/AxisNumber.h"
#include "views/sheet/GridCorner.h"
#include "views/sheet/GridDelegate.h"
#include "views/sheet/GridHeader.h"
#include "views/sheet/GridModel.h"
#include "views/sheet/GridRowHeader.h"
#include "views/sheet/MoveColumnCommand.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>

namespace pellam {

namespace {
constexpr int kTimeColumnWidth = 160;
constexpr int kColumnWidth = 100;
constexpr int kMinimumRowHeight = 20;
constexpr int kNarrowestFit = 60;
constexpr int kWidestFit = 360;
} // namespace

MyCug::MyCug(GridModel& model, QWidget* parent)
    : QTableView(parent),
      m_grid(model),
      m_headings(new GridHeader(this)),
      m_rowNumbers(new GridRowHeader(this)),
      m_corner(new GridCorner(this)),
      m_delegate(new GridDelegate(this)),
      m_clipboard(new GridClipboard(*this)),
      m_commands(new CommandSet(this)),
      m_keys(std::make_unique<GridKeys>(*this)) {
    OnSetup();
    addCellCommands(*m_commands, *this);
}

MyCug::~MyCug() = default;

void MyCug::OnSetup() {
    setObjectName(QStringLiteral("grid"));
    setAccessibleName(tr("Data grid"));
    // Times and channels read from left to right in every language.
    setLayoutDirection(Qt::LeftToRight);
    setHorizontalHeader(m_headings);
    setVerticalHeader(m_rowNumbers);
    setHeights();
    m_headings->setDefaultSectionSize(kColumnWidth);
    setItemDelegate(m_delegate);
    setModel(&m_grid);
    setColumnWidth(0, kTimeColumnWidth);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(EditKeyPressed | AnyKeyPressed);
    viewport()->setCursor(Qt::CrossCursor);
    viewport()->setMouseTracking(true);

    connectHeadings();
    connect(m_corner, &GridCorner::clicked, this, &MyCug::selectAll);
    connect(&m_grid, &GridModel::changedMark, m_corner, &GridCorner::setMarked);
    connect(&m_grid, &GridModel::columnMoved, this, &MyCug::columnMoved);
    connect(&m_grid, &GridModel::stepRepeated, this, &MyCug::selectArea);
    connect(&m_grid, &GridModel::modelReset, this, &MyCug::ensureCurrentCell);
    connect(m_delegate, &GridDelegate::spun, this, [this](int column, bool up) {
        selectArea({column, column, GridModel::kAxisRow, GridModel::kAxisRow});
        OnCellTypeNotify(kSpinButtonType, column, GridModel::kAxisRow, up ? kSpinUp : kSpinDown);
    });
    // Enter and Tab lead from an editor to the cell that they lead to without one.
    connect(m_delegate, &GridDelegate::leftByKey, this,
            [this](int key, Qt::KeyboardModifiers modifiers) { m_keys->move(key, modifiers); });
    ensureCurrentCell();
    adaptToPalette();
}

void MyCug::connectHeadings() {
    connect(m_headings, &GridHeader::checkBoxClicked, this, &MyCug::toggleCharted);
    connect(m_headings, &GridHeader::headingPressed, this, &MyCug::selectColumn);
    connect(m_headings, &GridHeader::dragStarted, this, &MyCug::OnColSwapStart);
    connect(m_headings, &GridHeader::moveRequested, this, &MyCug::moveColumn);
    connect(m_headings, &GridHeader::resizeRefused, this,
            [this] { Q_EMIT notice(tr("The columns of a large file have fixed widths")); });
    connect(m_headings, &QHeaderView::sectionResized, this, [this](int column) {
        if (column == 0) viewport()->update();
    });
    connect(m_rowNumbers, &QHeaderView::sectionPressed, this,
            [this](int row) { m_selection.beginAt(m_grid.index(row, 0)); });
}

void MyCug::setHeights() {
    const int height = std::max(kMinimumRowHeight, fontMetrics().height() + 6);
    m_rowNumbers->setMinimumSectionSize(std::min(kMinimumRowHeight, height));
    m_rowNumbers->setDefaultSectionSize(height);
}

void MyCug::SetEnableProtection(int protection) {
    m_enableProtection = protection;
    m_grid.setProtected(protection == 1);
    viewport()->update();
}

void MyCug::SetLargeFileMode(int mode) {
    m_largeFileMode = mode;
    m_headings->setSectionResizeMode(OnCanSizeCol(0) ? QHeaderView::Interactive
                                                     : QHeaderView::Fixed);
}

bool MyCug::OnCanSizeCol(int) const {
    return m_largeFileMode == 0;
}

void MyCug::EnableColSwapping(bool on) {
    m_swapping = on;
    ensureCurrentCell();
}

bool MyCug::OnCellTypeNotify(int cellType, int column, GridRow row, int message) {
    if (cellType == kCheckBoxType && row == -1) m_grid.setChanged(true);
    if (row != GridModel::kAxisRow || column < 0) return true;
    const int axis = m_grid.grid().column(column).axis();
    if (message == kSpinUp || message == kSpinDown) {
        m_grid.setAxis(column, axisAfterStep(axis, message == kSpinUp));
    } else {
        m_grid.setAxis(column, axisFromTyped(axis));
    }
    return true;
}

void MyCug::toggleCharted(int column) {
    m_grid.setCharted(column, column, !m_grid.grid().column(column).charted());
    OnCellTypeNotify(kCheckBoxType, column, -1, 0);
}

bool MyCug::OnColSwapStart(int) {
    m_grid.setChanged(true);
    return true;
}

int MyCug::OnSortEvaluate(const SortCell* first, const SortCell* second, unsigned flags) {
    return compareCells(first, second, flags);
}

bool MyCug::OnEditStart(int, GridRow) const {
    return m_enableProtection != 1;
}

void MyCug::OnDClicked(int column, GridRow row) {
    if (column < 1 || row < 1) return;
    m_grid.setChanged(true);
    edit(m_grid.index(static_cast<int>(row), column), AllEditTriggers, nullptr);
}

bool MyCug::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool allowed = index.isValid() && OnEditStart(index.column(), index.row());
    // Without a trigger this only offers the event to the delegate, for the spin buttons.
    if (trigger != NoEditTriggers && !allowed) return false;
    return QTableView::edit(index, trigger, event);
}

void MyCug::OnMenuCommand(int command) {
    m_commands->refresh();
    if (command == kCutCommand) m_commands->action(Command::Cut)->trigger();
    if (command == kCopyCommand) m_commands->action(Command::Copy)->trigger();
    if (command == kPasteCommand) m_commands->action(Command::Paste)->trigger();
}

void MyCug::contextMenuEvent(QContextMenuEvent* event) {
    using enum Command;
    m_clipboard->watch();
    m_commands->refresh();
    auto* menu = new QMenu(this);
    m_commands->addTo(*menu, {Cut, Copy, CopyWithHeadings, Paste});
    if (m_commands->action(Find)) m_commands->addTo(*menu, {kSeparator, Find, GoTo});
    const bool keyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QPoint place = keyboard ? viewport()->mapToGlobal(visualRect(currentIndex()).center())
                                  : event->globalPos();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(place);
}

void MyCug::ensureCurrentCell() {
    const int last = m_grid.lastColumn();
    m_headings->setLastMovable(m_swapping ? last : 0);
    if (m_grid.rowCount() < 2 || currentIndex().isValid()) return;
    const int column = std::min(1, last);
    selectArea({column, column, 1, 1});
}

void MyCug::moveColumn(int from, int to) {
    m_grid.take(std::make_unique<MoveColumnCommand>(m_grid, from, to));
}

void MyCug::columnMoved(int from, int to) {
    const int width = columnWidth(from);
    const int step = from < to ? 1 : -1;
    for (int column = from; column != to; column += step) {
        setColumnWidth(column, columnWidth(column + step));
    }
    setColumnWidth(to, width);
    selectColumn(to, Qt::NoModifier);
    scrollTo(currentIndex());
}

void MyCug::look(const CellWidths& widths, int column, Row step, CellWidths::Widest& widest) const {
    const Row rows = m_grid.grid().rowCount();
    const Column& cells = m_grid.grid().column(column);
    widths.look(cells, 0, rows, step, widest);
    if (step == 1) return;
    const int last = rowAt(viewport()->height() - 1);
    const Row end = last < 0 ? rows : std::min<Row>(rows, last);
    widths.look(cells, std::max(0, rowAt(0) - 1), end, 1, widest);
}

// Left and right of a cell's text, together.
int MyCug::cellMargin() const {
    return 2 * style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 10;
}

void MyCug::fitColumns() {
    constexpr Row samples = 500'000; // cells, over all columns
    const CellWidths widths{QFontMetricsF(font())};
    const int margin = cellMargin();
    const Row step = std::max<Row>(1, m_grid.grid().rowCount() * m_grid.columnCount() / samples);
    for (int column = 0; column < m_grid.columnCount(); ++column) {
        CellWidths::Widest widest;
        look(widths, column, step, widest);
        const double text = std::max(widest.number, std::min<double>(widest.text, kWidestFit));
        const int heading = std::min(m_headings->headingWidth(column), kWidestFit);
        int width = column == 0 ? kTimeColumnWidth : kColumnWidth;
        if (text > 0 || heading > 0)
            width = std::max({text > 0 ? qCeil(text) + margin : 0, heading, kNarrowestFit});
        setColumnWidth(column, width);
    }
}

int MyCug::sizeHintForColumn(int column) const {
    const CellWidths widths{QFontMetricsF(font())};
    const int margin = cellMargin();
    CellWidths::Widest widest;
    look(widths, column, 1, widest);
    const double room = std::max(kWidestFit, viewport()->width() - columnWidth(0) - margin);
    return std::max(kNarrowestFit,
                    qCeil(std::max(widest.number, std::min(widest.text, room))) + margin);
}

std::vector<CellArea> MyCug::selectedAreas() const {
    return m_selection.areas();
}

void MyCug::selectArea(const CellArea& area) {
    if (area.isEmpty()) return;
    m_selection.select(area);
    scrollTo(currentIndex());
}

void MyCug::moveTo(int column, int row, bool extend) {
    if (!extend) return selectArea({column, column, row, row});
    m_selection.moveEnd(m_grid.index(row, column));
    scrollTo(currentIndex());
}

void MyCug::selectAll() {
    m_selection.selectAll();
}

void MyCug::selectRow(int row) {
    m_selection.selectRow(row);
}

void MyCug::selectColumn(int column, Qt::KeyboardModifiers modifiers) {
    const int row = rowAt(currentIndex().row() == 0 ? rowHeight(0) : 0);
    m_selection.selectColumn(column, row, modifiers);
}

bool MyCug::isLockedColumnShifted() const {
    return m_headings->offset() > 0 && m_grid.columnCount() > 0;
}

QModelIndex MyCug::indexAt(const QPoint& place) const {
    if (isLockedColumnShifted() && place.x() >= 0 && place.x() < columnWidth(0)) {
        return m_grid.index(rowAt(place.y()), 0);
    }
    return QTableView::indexAt(place);
}

QRect MyCug::visualRect(const QModelIndex& index) const {
    QRect rect = QTableView::visualRect(index);
    if (index.isValid() && index.column() == 0) rect.translate(m_headings->offset(), 0);
    return rect;
}

void MyCug::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) return;
    QScrollBar* const bar = horizontalScrollBar();
    const int before = bar->value();
    QTableView::scrollTo(index, hint);
    // The axis row belongs to the first row of data.
    if (index.row() == 1) verticalScrollBar()->setValue(0);
    if (index.column() == 0) {
        bar->setValue(before);
        return;
    }
    const int covered = columnWidth(0) - columnViewportPosition(index.column());
    if (isLockedColumnShifted() && covered > 0) bar->setValue(bar->value() - covered);
}

void MyCug::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    // Places of cells under the locked column are ambiguous, so the ends of the selection are kept
    // as cells: the anchor, and the current cell or the one under the mouse.
    const bool dragging = state() == DragSelectingState;
    const QPoint place(rect.right(), std::clamp(rect.bottom(), 0, viewport()->height() - 1));
    QModelIndex end = currentIndex();
    if (dragging && indexAt(place).isValid()) end = indexAt(place);
    if (!end.isValid()) return;
    m_selection.extendTo(end, !dragging && !(command & QItemSelectionModel::Current), command);
}

QRegion MyCug::visualRegionForSelection(const QItemSelection& selection) const {
    return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

void MyCug::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    // The table view's own version lists every index of the selection for assistive technology,
    // which takes all memory when ten million rows are selected.
    QAbstractItemView::selectionChanged(selected, deselected);
    Q_EMIT selectionMade();
}

void MyCug::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    m_headings->setCurrentColumn(current.column());
    m_rowNumbers->setCurrentRow(current.row());
    if (isLockedColumnShifted()) viewport()->update();
    if (current.isValid()) Q_EMIT currentCellChanged(current.column(), current.row());
}

void MyCug::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (dx == 0) return;
    viewport()->update();
    m_headings->viewport()->update();
}

void MyCug::updateEditorGeometries() {
    QTableView::updateEditorGeometries();
    const QModelIndex current = currentIndex();
    QWidget* const editor = current.isValid() ? indexWidget(current) : nullptr;
    if (editor == nullptr || current.column() == 0) return;
    // An editor that has scrolled under the locked column is cut there.
    const int covered = isLockedColumnShifted() ? columnWidth(0) - editor->x() : 0;
    if (covered <= 0)
        editor->clearMask();
    else
        editor->setMask(
            QRegion(editor->rect().adjusted(std::min(covered, editor->width()), 0, 0, 0)));
}

void MyCug::updateGeometries() {
    QTableView::updateGeometries();
    m_corner->setGeometry(frameWidth(), frameWidth(), m_rowNumbers->width(), m_headings->height());
    m_corner->raise();
}

void MyCug::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!isLockedColumnShifted()) return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    paintLockedColumn(*this, *m_delegate, option);
}

void MyCug::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    QTableView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || !index.isValid()) return;
    if (index.row() == GridModel::kAxisRow) {
        const QRect cell = visualRect(index);
        if (event->position().x() < GridDelegate::spinUpRect(cell).left()) {
            edit(index, AllEditTriggers, event);
        }
        return;
    }
    OnDClicked(index.column(), index.row());
}

void MyCug::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState || !m_keys->handle(*event)) QTableView::keyPressEvent(event);
}

bool MyCug::focusNextPrevChild(bool next) {
    if (hasFocus() && currentIndex().isValid() &&
        m_keys->move(next ? Qt::Key_Tab : Qt::Key_Backtab, {})) {
        return true;
    }
    return QAbstractScrollArea::focusNextPrevChild(next);
}

void MyCug::adaptToPalette() {
    m_grid.setDarkBackground(palette().color(QPalette::Base).lightness() < 128);
}

void MyCug::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        adaptToPalette();
    } else if (event->type() == QEvent::FontChange) {
        setHeights();
    }
}

} // namespace pellam
