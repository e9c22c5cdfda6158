#include "app/batch/ChartOutput.h"

#include "base/InternationalSettings.h"
#include "base/ProgressSink.h"
#include "grid/GridData.h"
#include "replay/time/CMyTime.h"
#include "trend/control/TrendOperations.h"
#include "views/chart/AutoScale.h"
#include "views/chart/ChartFile.h"
#include "views/chart/ClockMemory.h"
#include "views/chart/LeftOutNotes.h"
#include "views/chart/ShowTable.h"
#include "views/chart/StripLayout.h"
#include "views/series/TrendTableReader.h"

#include <algorithm>

namespace pellam {

ChartOutput::ChartOutput(const GridData& grid, const InternationalSettings& settings,
                         ProgressSink& progress, const ClockMemory& clocks,
                         const std::string& title)
    : m_progress(progress),
      m_trend(std::make_unique<TrendOperations>()) {
    const ProgressScope scope(progress, "Loading Trend Chart", "Loading...", 1,
                              std::max<Row>(1, grid.rowCount()));
    setUpTrend(*m_trend);
    m_trend->setDecimalPoint(QLatin1Char(settings.decimalSeparator));
    TrendTable table = TrendTableReader(grid, settings, progress, clocks.recall(grid)).read();
    m_nothing = pellam::nothingToDraw(table, grid.rowCount()).toStdString();
    m_trend->setTitle(QString::fromStdString(title));
    showTable(*m_trend, table, grid.rowCount());
    overlayScales(*m_trend);
    autoScale(*m_trend, CMyTime::GetTrendCurrentTime());
}

ChartOutput::~ChartOutput() = default;

Failure ChartOutput::write(const std::string& path, int width, int height) {
    return writeChartFile(*m_trend, path, {width, height}, 1, &m_progress);
}

} // namespace pellam
