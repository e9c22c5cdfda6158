#pragma once

#include "trend/curves/TrendState.h"

#include <array>

namespace pellam {

/// What a step of zooming changes of a chart: the shown ranges, and all that the dialogs of the
/// axes edit.
struct TrendRanges {
    struct Range {
        double min = 0;
        double max = 0;
        bool operator==(const Range&) const = default;
    };

    struct Scale {
        Range shown;
        Range range;
        Range data;
        bool logarithmic = false;
        QString title;
        bool operator==(const Scale&) const = default;
    };

    Range time;
    std::array<Scale, trendScaleCount> scales;

    static TrendRanges of(const TrendState& state) {
        TrendRanges ranges;
        ranges.time = {state.timeMin, state.timeMax};
        for (std::size_t i = 0; i < ranges.scales.size(); ++i) {
            const TrendScale& scale = state.scales[i];
            ranges.scales[i] = {{scale.actualMin, scale.actualMax},
                                {scale.rangeMin, scale.rangeMax},
                                {scale.dataMin, scale.dataMax},
                                scale.logarithmic,
                                scale.text};
        }
        return ranges;
    }

    void applyTo(TrendState& state) const {
        state.timeMin = time.min;
        state.timeMax = time.max;
        for (std::size_t i = 0; i < scales.size(); ++i) {
            const Scale& from = scales[i];
            TrendScale& scale = state.scales[i];
            scale.actualMin = from.shown.min;
            scale.actualMax = from.shown.max;
            scale.rangeMin = from.range.min;
            scale.rangeMax = from.range.max;
            scale.dataMin = from.data.min;
            scale.dataMax = from.data.max;
            scale.logarithmic = from.logarithmic;
            scale.text = from.title;
        }
    }

    bool operator==(const TrendRanges&) const = default;
};

} // namespace pellam
