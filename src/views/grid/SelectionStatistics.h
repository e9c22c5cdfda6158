#pragma once

#include "grid/GridData.h"
#include "views/grid/SliceTimer.h"
#include "views/scan/CellArea.h"

#include <QObject>

#include <vector>

namespace pellam {

/// Keeps the count, minimum, maximum, mean and sum of the selected cells for the status bar,
/// reckoned between events.
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
    /// The line for the status bar; empty for fewer than two cells.
    void statisticsChanged(const QString& text);

  private:
    const GridData& m_grid;
    SliceTimer m_slices;
};

} // namespace pellam
