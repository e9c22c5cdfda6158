#include "views/grid/GridFinder.h"

#include <QElapsedTimer>

#include <memory>

namespace pellam {

namespace {
constexpr int kCellsPerStep = 2000;
constexpr qint64 kReportMilliseconds = 150;
} // namespace

GridFinder::GridFinder(const GridData& grid, const InternationalSettings& settings, QObject* parent)
    : QObject(parent),
      m_grid(grid),
      m_settings(settings) {}

void GridFinder::stop() {
    m_slices.stop();
}

void GridFinder::find(const FindQuery& query, FindScan::Place from) {
    auto scan = std::make_shared<FindScan>(m_grid, query, from);
    auto clock = std::make_shared<QElapsedTimer>();
    clock->start();
    m_slices.start([this, scan, clock] {
        switch (scan->step(kCellsPerStep)) {
        case FindScan::State::Found:
            m_slices.stop();
            Q_EMIT found(scan->place().column, scan->place().row, scan->wrapped());
            return false;
        case FindScan::State::NotFound:
            m_slices.stop();
            Q_EMIT notFound();
            return false;
        case FindScan::State::Searching:
            break;
        }
        if (clock->elapsed() > kReportMilliseconds) {
            clock->restart();
            Q_EMIT progress(scan->progress());
        }
        return true;
    });
}

void GridFinder::locate(const QString& wanted, Row from) {
    auto locator = std::make_shared<RowLocator>(m_grid, m_settings, wanted.toStdString(), from);
    m_slices.start([this, locator] {
        const RowLocator::State state = locator->step(kCellsPerStep);
        if (state == RowLocator::State::Searching) return true;
        m_slices.stop();
        if (state == RowLocator::State::Found)
            Q_EMIT located(locator->row());
        else
            Q_EMIT notLocated(state);
        return false;
    });
}

} // namespace pellam
