#include "views/grid/SelectionStatistics.h"

#include <QElapsedTimer>
#include <QLocale>

#include <memory>

namespace pellam {

SelectionStatistics::SelectionStatistics(const GridData& grid, QObject* parent)
    : QObject(parent),
      m_grid(grid) {}

void SelectionStatistics::stop() {
    m_slices.stop();
    Q_EMIT statisticsChanged({});
}

QStringList SelectionStatistics::figures(const StatisticsScan::Result& result) const {
    const auto count = [](std::int64_t number) {
        return QLocale().toString(qlonglong(number)).toStdString();
    };
    QStringList figures;
    for (const auto& text : StatisticsScan::texts(result, count, m_grid.decimalSeparator()))
        figures += QString::fromStdString(text);
    return figures;
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
            Q_EMIT statisticsChanged(figures(work->scan.result()));
        } else if (!work->announced && work->clock.elapsed() > patience) {
            work->announced = true;
            Q_EMIT statisticsChanged({tr("Calculating…")});
        }
        return more;
    });
}

} // namespace pellam
