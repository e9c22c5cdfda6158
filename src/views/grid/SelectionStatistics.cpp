#include "views/grid/SelectionStatistics.h"

#include "views/scan/StatisticsScan.h"

#include <QElapsedTimer>
#include <QLocale>

#include <memory>

namespace pellam {

SelectionStatistics::SelectionStatistics(const GridData& grid, QObject* parent)
    : QObject(parent),
      m_grid(grid) {}

void SelectionStatistics::stop() {
    m_slices.stop();
    Q_EMIT statisticsChanged(QString());
}

void SelectionStatistics::setAreas(const std::vector<CellArea>& areas) {
    std::int64_t cells = 0;
    for (const CellArea& area : areas)
        cells += area.cells();
    if (cells < 2) {
        stop();
        return;
    }
    constexpr qint64 patience = 300; // milliseconds before the old figures are taken away

    struct Work {
        StatisticsScan scan;
        QElapsedTimer clock;
        bool announced = false;
    };

    auto work = std::make_shared<Work>(Work{StatisticsScan(m_grid, areas), {}, false});
    work->clock.start();
    m_slices.start([this, work] {
        const bool more = work->scan.step();
        if (!more) {
            const StatisticsScan::Result result = work->scan.result();
            const auto counted = [](std::int64_t number) {
                return QLocale().toString(qlonglong(number)).toStdString();
            };
            Q_EMIT statisticsChanged(QString::fromStdString(
                StatisticsScan::text(result, counted(result.count), counted(result.leftOut),
                                     m_grid.decimalSeparator())));
        } else if (!work->announced && work->clock.elapsed() > patience) {
            work->announced = true;
            Q_EMIT statisticsChanged(tr("Calculating…"));
        }
        return more;
    });
}

} // namespace pellam
