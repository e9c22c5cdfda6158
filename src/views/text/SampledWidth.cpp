#include "views/text/SampledWidth.h"

#include "grid/GridData.h"
#include "views/text/HeadingText.h"
#include "views/text/ScreenText.h"

#include <QFontMetricsF>

#include <algorithm>

namespace pellam {

double sampledTextWidth(const GridData& grid, int column, const QFontMetricsF& metrics) {
    constexpr Row samples = 16;
    constexpr qsizetype longest = 200; // characters; wider columns are cut anyway
    const Row rows = grid.rowCount();
    double width = 0;
    CellBuffer buffer;
    for (Row i = 0; i < std::min(samples, rows); ++i) {
        const Row row = rows <= samples ? i : i * (rows - 1) / (samples - 1);
        const std::string_view text = grid.text(column, row, buffer);
        if (text.empty()) continue;
        width = std::max(width, metrics.horizontalAdvance(screenText(text).left(longest)));
    }
    return width;
}

double headingTextWidth(const GridData& grid, int column, const QFontMetricsF& metrics) {
    const HeadingText heading(grid.column(column).label());
    return std::max(metrics.horizontalAdvance(heading.name()),
                    metrics.horizontalAdvance(heading.units()));
}

} // namespace pellam
