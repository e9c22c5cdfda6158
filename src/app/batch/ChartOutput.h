#pragma once

#include "base/Failure.h"

#include <memory>
#include <string>

namespace pellam {

class ClockMemory;
class GridData;
class ProgressSink;
class TrendOperations;
struct InternationalSettings;

/// The trend chart of a grid, drawn to files without a window. Needs an application object with a
/// (perhaps invisible) screen.
class ChartOutput {
  public:
    /// Builds the chart of the channels that are selected for charting; `title` stands above it.
    /// `clocks` knows the clocks that were chosen for files in the window.
    ChartOutput(const GridData& grid, const InternationalSettings& settings, ProgressSink& progress,
                const ClockMemory& clocks, const std::string& title);
    ~ChartOutput();

    /// Why there is no chart; empty when there is one.
    [[nodiscard]] const std::string& nothingToDraw() const { return m_nothing; }

    /// Draws to a file, PNG, SVG or PDF by its extension; the target is replaced as a whole. Width
    /// and height in pixels, 96 to the inch.
    [[nodiscard]] Failure write(const std::string& path, int width, int height);

  private:
    ProgressSink& m_progress;
    std::unique_ptr<TrendOperations> m_trend;
    std::string m_nothing;
};

} // namespace pellam
