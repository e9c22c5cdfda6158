#pragma once

#include "base/ProgressSink.h"
#include "grid/Column.h"

#include <string>

namespace pellam {

/// Tells the progress display how far a load is, every so many rows, and learns whether to stop.
class RowCounter {
  public:
    /// `every`: rows between two reports.
    RowCounter(ProgressSink& progress, Row every) : m_progress(progress), m_every(every) {}

    /// Called once a line; reports when enough rows (or, where lines make no rows, lines) have
    /// passed. `position` is the bar's. False when the person has asked to stop.
    bool line(Row rows, std::int64_t position) {
        if (rows < m_nextRow && ++m_idleLines < kIdleLines) return true;
        return report(rows, position);
    }

    [[nodiscard]] bool aborted() const { return m_aborted; }

  private:
    static constexpr int kIdleLines = 16384;

    bool report(Row rows, std::int64_t position) {
        m_idleLines = 0;
        m_nextRow = rows + m_every;
        m_progress.addString("Loaded " + std::to_string(rows) + " Lines");
        m_progress.setPosition(position);
        m_aborted = m_progress.aborted();
        return !m_aborted;
    }

    ProgressSink& m_progress;
    Row m_every;
    Row m_nextRow = 1;
    int m_idleLines = 0;
    bool m_aborted = false;
};

} // namespace pellam
