#pragma once

#include "grid/GridData.h"
#include "views/grid/SliceTimer.h"
#include "views/scan/StatisticsScan.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace pellam {

/// Keeps the figures of the selected cells for the status bar, reckoned between events.
class SelectionStatistics : public QObject {
    Q_OBJECT
  public:
    /// `grid` must outlive this.
    explicit SelectionStatistics(const GridData& grid, QObject* parent = nullptr);

    /// Starts over with other areas; they must not overlap.
    void setAreas(const std::vector<CellArea>& areas);
    /// Drops what is under way; call before the store is emptied.
    void stop();

  Q_SIGNALS:
    /// The figures, see StatisticsScan; none for fewer than two cells.
    void statisticsChanged(const QStringList& figures);

  private:
    [[nodiscard]] QStringList figures(const StatisticsScan::Result& result) const;

    const GridData& m_grid;
    SliceTimer m_slices;
};

} // namespace pellam
