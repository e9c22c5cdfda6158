#pragma once

#include "views/grid/SliceTimer.h"
#include "views/scan/FindScan.h"
#include "views/scan/RowLocator.h"

#include <QObject>

namespace pellam {

/// Looks for texts and rows between events.
class GridFinder : public QObject {
    Q_OBJECT
  public:
    /// `grid` and `settings` must outlive this.
    GridFinder(const GridData& grid, const InternationalSettings& settings,
               QObject* parent = nullptr);

    void find(const FindQuery& query, FindScan::Place from);
    /// Looks for a row number or a time; see RowLocator. `from` is the current row.
    void locate(const QString& wanted, Row from);
    /// Drops the search under way; call before the store is emptied.
    void stop();

    [[nodiscard]] bool isActive() const { return m_slices.isActive(); }

  Q_SIGNALS:
    void found(int column, qint64 row, bool wrapped);
    void notFound();
    /// Share of the cells looked at, 0 to 1; only while a search takes long.
    void progress(double share);
    void located(qint64 row);
    void notLocated(RowLocator::State why);

  private:
    const GridData& m_grid;
    const InternationalSettings& m_settings;
    SliceTimer m_slices;
};

} // namespace pellam
