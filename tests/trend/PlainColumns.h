#pragma once

#include "trend/CurveColumns.h"
#include "trend/TrendCurve.h"

#include <cmath>
#include <vector>

namespace pellam::plain {

/// The columns of a curve found sample by sample: what the pyramid has to agree with.
inline std::vector<ColumnSpan> plainColumns(const TrendCurve& curve, const ColumnGrid& grid,
                                            const ScaleMap& map, double longestStep) {
    std::vector<ColumnSpan> spans(static_cast<std::size_t>(grid.columns));
    const double width = (grid.to - grid.from) / grid.columns;
    const auto border = [&](int column) {
        return column == grid.columns ? grid.to : grid.from + width * column;
    };
    const auto include = [](ColumnSpan& span, double pixel) {
        const auto y = static_cast<float>(pixel);
        if (span.empty || y < span.top) span.top = y;
        if (span.empty || y > span.bottom) span.bottom = y;
        span.empty = false;
    };
    double lastTime = NAN;
    double lastPixel = NAN;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const double time = (*curve.times())[i];
        const double value = curve.values()[i];
        if (std::isnan(value) || (map.logarithmic() && value <= 0)) continue;
        const double pixel = map.toPixel(value);
        for (int column = 0; column < grid.columns; ++column) {
            const bool last = column + 1 == grid.columns;
            if (time >= border(column) && (time < border(column + 1) || (last && time == grid.to)))
                include(spans[static_cast<std::size_t>(column)], pixel);
        }
        for (int column = 0; column <= grid.columns; ++column) {
            const bool crosses = lastTime < border(column) && time >= border(column);
            const bool atEnd = column == grid.columns && time == grid.to;
            if (!crosses || atEnd || time - lastTime > longestStep) continue;
            const double part = (grid.from + width * column - lastTime) / (time - lastTime);
            const double y = lastPixel + (pixel - lastPixel) * part;
            if (column > 0) include(spans[static_cast<std::size_t>(column - 1)], y);
            if (column < grid.columns) include(spans[static_cast<std::size_t>(column)], y);
        }
        lastTime = time;
        lastPixel = pixel;
    }
    return spans;
}

} // namespace pellam::plain
