#include "views/chart/CTrendView.h"

#include "base/InternationalSettings.h"
#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "drop/CMyDropTarget.h"
#include "replay/time/CMyTime.h"
#include "trend/control/CTrend.h"
#include "trend/curves/TrendRanges.h"
#include "ui/commands/CommandSet.h"
#include "ui/dialogs/NoticeBar.h"
#include "views/chart/AutoScale.h"
#include "views/chart/ChartAxisSheet.h"
#include "views/chart/ChartClipboard.h"
#include "views/chart/ChartFile.h"
#include "views/chart/ClockBar.h"
#include "views/chart/ClockMemory.h"
#include "views/chart/LeftOutNotes.h"
#include "views/chart/ShowTable.h"
#include "views/chart/StripLayout.h"
#include "views/series/TrendTableReader.h"
#include "views/text/ScreenText.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <exception>

namespace pellam {

namespace {

/// Suspends drawing for as long as it lives.
class UpdateLock {
  public:
    explicit UpdateLock(TrendOperations& trend) : m_trend(trend) { m_trend.SetLockUpdate(1); }

    ~UpdateLock() { m_trend.SetLockUpdate(0); }

    UpdateLock(const UpdateLock&) = delete;
    UpdateLock& operator=(const UpdateLock&) = delete;

  private:
    TrendOperations& m_trend;
};

} // namespace

CTrendView::CTrendView(const Context& context, QWidget* parent)
    : QWidget(parent),
      m_context(context),
      m_trend(new CTrend),
      m_message(new QLabel(this)),
      m_note(new NoticeBar(tr("Draw &Them"), this)),
      m_clock(new ClockBar(this)),
      m_dropTarget(new CMyDropTarget(this)) {
    OnInitialUpdate();
    connectTrend();
    addFontCommands();
    addClockCommands();
}

CTrendView::~CTrendView() = default;

void CTrendView::OnInitialUpdate() {
    m_trend->Create(this);
    setUpTrend(*m_trend);
    m_trend->setDecimalPoint(QLatin1Char(m_context.international.decimalSeparator));
    setFocusProxy(m_trend);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setMargin(48);
    m_note->hide();
    TrendTable nothing;
    showChart(nothing);
}

void CTrendView::connectTrend() {
    connect(m_trend, &CTrend::timeClicked, this, [this](double time) {
        if (const auto row = m_rows.nearest(time)) Q_EMIT rowChosen(*row);
    });
    connect(m_note, &NoticeBar::chosen, this, &CTrendView::missingSwitched);
    connect(m_note, &NoticeBar::dismissed, this, [this] {
        SizeToFit();
        m_trend->setFocus();
    });
    connect(m_trend, &CTrend::stripChartRequested, this, &CTrendView::toggleStripChart);
    connect(m_trend, &CTrend::autoScaleRequested, this, &CTrendView::OnTrendSanity);
    connect(m_trend, &CTrend::editAxisRequested, this, &CTrendView::OnEditAxis);
    connect(m_trend, &CTrend::copyRequested, this, &CTrendView::OnEditCopy);
    connect(m_trend, &CTrend::exportImageRequested, this, &CTrendView::exportImage);
    connect(m_trend, &CTrend::curveVisibilityChanged, this, [this](int curve, bool visible) {
        if (visible && !m_rebuilding) scaleLateAxis(*m_trend, m_trend->GetCurveRelatedScale(curve));
    });
    connect(m_trend, &CTrend::selectionZoomChanged, this, &CTrendView::stateChanged);
    connect(m_trend, &CTrend::zoomChanged, this, &CTrendView::OnTrendStep);
    connect(m_clock, &ClockBar::chosen, this, &CTrendView::chooseClock);
    connect(m_trend, &CTrend::textCutShort, this, &CTrendView::OnInsufficientTextSpace);
}

// --- Building

void CTrendView::OnActivateView(bool activate, const QWidget* activated,
                                const QWidget* deactivated) {
    if (activated == deactivated || !activate || !m_context.grid.changed()) return;
    rebuild(m_context.clocks ? m_context.clocks->recall(m_context.grid) : std::nullopt);
}

ClockChoice CTrendView::clock() const {
    return m_clock->clock();
}

void CTrendView::chooseClock(ClockChoice clock) {
    if (m_context.clocks) m_context.clocks->remember(m_context.grid, clock);
    rebuild(clock);
}

void CTrendView::ResetView() {
    resetTrend(*m_trend);
}

void CTrendView::rebuild(std::optional<ClockChoice> clock) {
    if (m_rebuilding) return;
    const QScopedValueRollback busy(m_rebuilding, true);
    m_context.clearMark();
    m_message->clear();
    ResetView();
    const UpdateLock lock(*m_trend);
    ProgressSink& progress = m_context.progress();
    try {
        const ProgressScope scope(progress, "Loading Trend Chart", "Loading...", 1,
                                  std::max<Row>(1, m_context.grid.rowCount()));
        progress.setWindowText("Loading Pellam");
        TrendTable table =
            TrendTableReader(m_context.grid, m_context.international, progress, clock).read();
        progress.addString("Auto scaling, please wait...");
        showChart(table);
    } catch (const std::exception&) {
        ResetView();
        m_context.messages.show("Warning: There is not enough memory to draw all selected "
                                "channels; select fewer of them on the grid");
    }
    Q_EMIT rebuilt();
    Q_EMIT stateChanged();
}

void CTrendView::showChart(TrendTable& table) {
    const Row rows = m_context.grid.rowCount();
    m_message->setText(nothingToDraw(table, rows));
    m_message->setVisible(!m_message->text().isEmpty());
    m_trend->setVisible(m_message->isHidden());
    m_clock->setVisible(m_message->isHidden() && table.xAxis.kind == XAxis::Kind::Calendar);
    m_clock->setClock(table.clock);
    const XAxis axis = m_trend->chart().state.xAxis;
    const TrendRanges::Range shown = TrendRanges::of(m_trend->chart().state).time;
    tellMissing(table);
    m_rows = showTable(*m_trend, table, rows);
    setUnits(table);
    m_stacked ? stackScales(*m_trend) : overlayScales(*m_trend);
    // Not as a step of the zoom history: there is nothing to go back to.
    if (!table.curves.empty()) autoScale(*m_trend, CMyTime::GetTrendCurrentTime());
    if (m_keepTimes && axis == table.xAxis) m_trend->showTimes(shown.min, shown.max);
    m_keepTimes = false;
    setCurrentRow(m_currentRow);
}

void CTrendView::tellMissing(const TrendTable& table) {
    const QString note = missingNumbersNote(table).join(u' ');
    m_note->button()->setText(table.missingAsNumbers ? tr("&Leave Out") : tr("Draw &Them"));
    note.isEmpty() ? m_note->hide() : m_note->open(note);
    SizeToFit();
}

void CTrendView::setUnits(const TrendTable& table) {
    int index = 0;
    for (const TrendTable::Curve& curve : table.curves) {
        if (index == m_trend->GetCurveCount()) break;
        m_trend->setCurveUnit(index++, screenText(curve.units));
    }
}

void CTrendView::OnTrendSanity() {
    const TrendRanges before = TrendRanges::of(m_trend->chart().state);
    autoScale(*m_trend, CMyTime::GetTrendCurrentTime());
    m_trend->rememberZoom(before);
}

// --- What is shown

bool CTrendView::hasChart() const {
    return m_message->isHidden();
}

QString CTrendView::message() const {
    return hasChart() ? QString() : m_message->text();
}

void CTrendView::OnViewZoom() {
    m_trend->SetLassoZoom(m_trend->GetLassoZoom() != 0 ? 0 : 1);
    Q_EMIT stateChanged();
}

bool CTrendView::canIncreaseFont() const {
    return m_trend->GetFontScaleFactor() < 1.0;
}

bool CTrendView::canDecreaseFont() const {
    return m_trend->GetFontScaleFactor() > 0.1;
}

CommandSet& CTrendView::commands() const {
    return m_trend->actions();
}

void CTrendView::addFontCommands() {
    commands().add(
        {Command::IncreaseFont, "&Increase Font Size",
         "Ctrl++; Ctrl+=", "Make the chart's texts larger", IconName::IncreaseFont},
        [this] { OnViewIncreasefontsize(); }, [this] { return canIncreaseFont(); });
    commands().add(
        {Command::DecreaseFont, "&Decrease Font Size", "Ctrl+-", "Make the chart's texts smaller",
         IconName::DecreaseFont},
        [this] { OnViewDecreasefontsize(); }, [this] { return canDecreaseFont(); });
}

void CTrendView::addClockCommands() {
    const auto add = [this](Command command, const char* text, const char* tip, ClockChoice which) {
        commands().add(
            {command, text, "", tip}, [this, which] { chooseClock(which); },
            [this] { return hasChart(); }, [this, which] { return clock() == which; });
    };
    add(Command::ClockComputer, "As This &Computer",
        "Take the times as those of this computer's clock, put forward in summer where it is",
        ClockChoice::Computer);
    add(Command::ClockNoDaylightSaving, "&Without Daylight Saving",
        "Take the times as those of a clock that shows winter time all year round",
        ClockChoice::NoDaylightSaving);
    add(Command::ClockUtc, "&UTC", "Take the times as those of Greenwich", ClockChoice::Utc);
}

void CTrendView::changeFont(double step) {
    // Whole hundredths: tenths added up would miss the ends by their last bit.
    const double factor = std::round((m_trend->GetFontScaleFactor() + step) * 100) / 100;
    m_trend->SetFontScaleFactor(std::clamp(factor, 0.1, 1.0));
    Q_EMIT stateChanged();
}

void CTrendView::OnViewIncreasefontsize() {
    changeFont(0.1);
}

void CTrendView::OnViewDecreasefontsize() {
    changeFont(-0.1);
}

bool CTrendView::canStack() const {
    return enabledScales(*m_trend) > 1;
}

void CTrendView::OnViewStripchart() {
    if (enabledScales(*m_trend) == 0) return;
    const UpdateLock lock(*m_trend);
    m_stacked = true;
    stackScales(*m_trend);
    OnTrendSanity();
    Q_EMIT stateChanged();
}

void CTrendView::toggleStripChart() {
    if (!m_stacked) return OnViewStripchart();
    const UpdateLock lock(*m_trend);
    m_stacked = false;
    overlayScales(*m_trend);
    OnTrendSanity();
    Q_EMIT stateChanged();
}

void CTrendView::OnEditAxis() {
    ChartAxisSheet sheet(*m_trend, m_context.international.decimalSeparator, this);
    const TrendRanges before = TrendRanges::of(m_trend->chart().state);
    sheet.exec();
    m_trend->rememberZoom(before);
}

void CTrendView::setCurrentRow(qint64 row) {
    m_currentRow = row;
    m_trend->setCurrentTime(m_rows.timeOf(row - 1));
}

// --- Clipboard, files

void CTrendView::OnEditCopy() {
    if (!copyChart(*m_trend, window()->isMinimized()))
        m_context.messages.show("Warning: Copy function could not create device context");
}

void CTrendView::exportImage() {
    QFileDialog dialog(this, tr("Export Image"), m_context.saveFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(
        {tr("PNG image (*.png)"), tr("SVG drawing (*.svg)"), tr("PDF document (*.pdf)")});
    dialog.setDefaultSuffix(QStringLiteral("png"));
    dialog.selectFile(QFileInfo(m_fileName).completeBaseName());
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
    });
    if (dialog.exec() != QDialog::Accepted) return;
    const QString path = dialog.selectedFiles().value(0);
    const Failure failure = writeChartFile(*m_trend, QFile::encodeName(path).toStdString(),
                                           m_trend->size(), m_trend->devicePixelRatioF());
    if (failure) m_context.messages.show(failure.text());
}

// --- Events

void CTrendView::SizeToFit() {
    QRect chart = rect();
    if (!m_note->isHidden()) chart.setTop(m_note->sizeHint().height());
    m_note->setGeometry(0, 0, width(), chart.top());
    m_message->setGeometry(chart);
    if (!m_clock->isHidden()) {
        const int height = m_clock->sizeHint().height();
        m_clock->setGeometry(0, chart.bottom() + 1 - height, chart.width(), height);
        chart.setBottom(chart.bottom() - height);
    }
    m_trend->setGeometry(chart);
}

void CTrendView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    SizeToFit();
}

} // namespace pellam
