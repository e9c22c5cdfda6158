#include "views/grid/CGridView.h"

#include "drop/CMyDropTarget.h"
#include "grid/TimeColumn.h"
#include "ui/dialogs/NoticeBar.h"
#include "views/grid/FindBar.h"
#include "views/grid/GoToDialog.h"
#include "views/grid/GridClipboard.h"
#include "views/grid/GridCommands.h"
#include "views/grid/GridFinder.h"
#include "views/grid/MyCug.h"
#include "views/grid/SelectionStatistics.h"
#include "views/print/GridPrinter.h"
#include "views/sheet/GridModel.h"

#include <QMessageBox>
#include <QPrinter>
#include <QVBoxLayout>

#include <algorithm>

namespace pellam {

CGridView::CGridView(GridData& grid, const InternationalSettings& settings, QWidget* parent)
    : QWidget(parent),
      m_grid(grid),
      m_settings(settings),
      m_model(new GridModel(grid, this)),
      m_cug(new MyCug(*m_model, this)),
      m_statistics(new SelectionStatistics(grid, this)),
      m_finder(new GridFinder(grid, settings, this)),
      m_note(new NoticeBar(tr("Chan&ge..."), this)),
      m_findBar(new FindBar(this)),
      m_blank(new QWidget(this)),
      m_dropTarget(new CMyDropTarget(this)) {
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    box->addWidget(m_note);
    box->addWidget(m_cug, 1);
    box->addWidget(m_findBar);
    m_note->hide();
    m_findBar->hide();
    m_blank->hide();
    m_blank->setAutoFillBackground(true);
    m_blank->setBackgroundRole(QPalette::Base);
    m_cug->setFrameShape(QFrame::NoFrame);
    setFocusProxy(m_cug);
    connect(m_note, &NoticeBar::chosen, this, &CGridView::noteChosen);
    connect(m_note, &NoticeBar::dismissed, m_cug, [this] { m_cug->setFocus(); });
    addPageCommands(commands(), *this);
    connectGrid();
    connectSearch();
}

CGridView::~CGridView() {
    // The stack tells of the steps that go with it.
    m_model->undoStack().disconnect(this);
}

void CGridView::connectGrid() {
    connect(m_cug, &MyCug::selectionMade, this, &CGridView::refreshStatistics);
    connect(m_model, &GridModel::dataChanged, this, [this] {
        refreshStatistics();
        tellCurrentCell();
    });
    connect(m_statistics, &SelectionStatistics::statisticsChanged, this,
            &CGridView::statisticsChanged);
    connect(m_model, &GridModel::changedMark, this, &CGridView::changedMark);
    connect(&m_model->undoStack(), &QUndoStack::indexChanged, this, &CGridView::edited);
    m_model->setTimeCheck([this](const std::string& text) { return isTime(text); });
    connect(m_model, &GridModel::timeRefused, this, [this](const QString& text) {
        QMessageBox::information(this, tr("Pellam"),
                                 tr("\"%1\" is no time that this column can hold. Write times as "
                                    "the rows above and below have them.")
                                     .arg(text));
    });
    connect(m_cug, &MyCug::currentCellChanged, this, [this](int, qint64 row) {
        tellCurrentCell();
        Q_EMIT currentRowChanged(row);
    });
    GridClipboard& clipboard = m_cug->clipboard();
    connect(&clipboard, &GridClipboard::notice, this, &CGridView::notice);
    connect(m_cug, &MyCug::notice, this, &CGridView::notice);
    connect(&clipboard, &GridClipboard::refused, this,
            [this](const QString& why) { QMessageBox::information(this, tr("Pellam"), why); });
    clipboard.setQuestion([this](const QString& question) {
        return QMessageBox::question(this, tr("Pellam"), question,
                                     QMessageBox::Yes | QMessageBox::No,
                                     QMessageBox::No) == QMessageBox::Yes;
    });
}

void CGridView::tellCurrentCell() {
    const QModelIndex current = m_cug->currentIndex();
    Q_EMIT currentCellTold(current.isValid() ? m_model->facts(current.column(), current.row())
                                             : QStringList());
}

void CGridView::connectSearch() {
    connect(m_findBar, &FindBar::findNext, this, &CGridView::findNext);
    connect(m_findBar, &FindBar::findPrevious, this, &CGridView::findPrevious);
    connect(m_findBar, &FindBar::dismissed, this, [this] {
        if (m_finder->isActive()) {
            m_finder->stop();
            m_findBar->showRemark(tr("Stopped"));
            return;
        }
        m_findBar->hide();
        m_cug->setFocus();
    });
    connect(m_finder, &GridFinder::found, this, [this](int column, qint64 row, bool wrapped) {
        goToCell(column, row);
        const QString remark = wrapped ? tr("Went on from the other end of the data") : QString();
        m_findBar->showRemark(remark);
        if (wrapped) Q_EMIT notice(remark);
    });
    connect(m_finder, &GridFinder::notFound, this, [this] {
        m_findBar->showRemark(tr("Not found"));
        Q_EMIT notice(tr("\"%1\" was not found").arg(m_findBar->text()));
    });
    connect(m_finder, &GridFinder::progress, this, [this](double share) {
        m_findBar->showRemark(tr("Searching, %1 % (Esc stops)").arg(qRound(share * 100)));
    });
}

bool CGridView::isTime(const std::string& text) const {
    TimeColumn times(m_grid, m_settings);
    const Cell written = m_grid.column(0).pack(text);
    if (times.moment(written)) return true;
    // Among rows that have no times either, a text is as good as theirs.
    const Row some = std::min<Row>(m_grid.rowCount(), 100);
    for (Row row = 0; row < some; ++row)
        if (times.moment(row)) return false;
    return true;
}

bool CGridView::hasEdits() const {
    return !m_model->editedColumns().empty();
}

bool CGridView::hasEditsToLose() const {
    return hasEdits() && !m_model->undoStack().isClean();
}

void CGridView::exported() {
    // The time column is always written.
    for (const int column : m_model->editedColumns())
        if (column > 0 && !m_grid.column(column).charted()) return;
    m_model->undoStack().setClean();
}

QUndoStack& CGridView::undoStack() const {
    return m_model->undoStack();
}

void CGridView::beginLoad() {
    m_finder->stop();
    m_statistics->stop();
    m_note->hide();
    m_blank->setGeometry(m_cug->geometry());
    m_blank->raise();
    m_blank->show();
    m_cug->setUpdatesEnabled(false);
    m_cug->SetEnableProtection(1);
    m_cug->EnableColSwapping(false);
    m_model->beginLoad();
}

void CGridView::endLoad(bool largeFile, bool protect) {
    m_model->endLoad();
    m_cug->SetLargeFileMode(largeFile ? 1 : 0);
    m_cug->fitColumns();
    m_cug->SetEnableProtection(protect ? 1 : 0);
    m_cug->EnableColSwapping(true);
    m_cug->scrollToTop();
    m_cug->setUpdatesEnabled(true);
    m_blank->hide();
}

void CGridView::refreshStatistics() {
    m_statistics->setAreas(m_cug->selectedAreas());
}

void CGridView::showNote(const QString& text) {
    text.isEmpty() ? m_note->hide() : m_note->open(text);
}

void CGridView::refresh() {
    m_model->refresh();
}

bool CGridView::print(QPrinter& printer, ProgressSink& progress) {
    GridPrinter sheets(m_grid, m_fileName);
    return sheets.print(printer, {std::max(1, printer.fromPage()), printer.toPage()}, progress);
}

int CGridView::pageCount(const QPrinter& printer) const {
    GridPrinter sheets(m_grid, m_fileName);
    sheets.setPageSize(printer.pageLayout().paintRect(QPageLayout::Point).size());
    return sheets.pageCount();
}

CommandSet& CGridView::commands() const {
    return m_cug->commands();
}

void CGridView::find() {
    m_findBar->open();
}

void CGridView::findNext() {
    search(true);
}

void CGridView::findPrevious() {
    search(false);
}

void CGridView::search(bool forward) {
    if (m_findBar->text().isEmpty()) {
        find();
        return;
    }
    const QModelIndex current = m_cug->currentIndex();
    FindQuery query;
    query.text = m_findBar->text().toStdString();
    query.column = m_findBar->currentColumnOnly() ? current.column() : FindQuery::kAllColumns;
    query.caseSensitive = m_findBar->caseSensitive();
    query.wholeCell = m_findBar->wholeCell();
    query.forward = forward;
    m_finder->find(query, {current.column(), current.row() - 1});
}

void CGridView::goTo() {
    GoToDialog dialog(m_grid, m_settings, m_cug->currentIndex().row() - 1, this);
    if (dialog.exec() != QDialog::Accepted) return;
    goToRow(dialog.row());
    m_cug->setFocus();
}

void CGridView::goToCell(int column, Row row) {
    m_cug->selectArea({column, column, row + 1, row + 1});
}

void CGridView::goToRow(Row row) {
    goToCell(std::max(0, m_cug->currentIndex().column()), row);
}

void CGridView::nextDamagedLine() {
    goToDamaged(true);
}

void CGridView::previousDamagedLine() {
    goToDamaged(false);
}

void CGridView::goToDamaged(bool forward) {
    const auto rows = m_grid.damagedRows();
    if (rows.empty()) {
        Q_EMIT notice(tr("There are no damaged lines"));
        return;
    }
    const Row current = m_cug->currentIndex().row() - 1;
    const auto at = forward ? std::upper_bound(rows.begin(), rows.end(), current)
                            : std::lower_bound(rows.begin(), rows.end(), current);
    const bool wrapped = at == (forward ? rows.end() : rows.begin());
    std::size_t place = forward ? 0 : rows.size() - 1;
    if (!wrapped) place = static_cast<std::size_t>(at - rows.begin()) - (forward ? 0 : 1);
    goToRow(rows[place]);
    m_cug->setFocus();
    const QString remark = tr("Damaged line %L1 of %L2").arg(place + 1).arg(rows.size());
    Q_EMIT notice(wrapped ? remark + tr(", went on from the other end of the data") : remark);
}

} // namespace pellam
