#pragma once

#include "trend/curves/TrendState.h"

#include <array>

namespace pellam {

/// The shown ranges of a chart: what zooming changes.
struct TrendRanges {
    struct Range {
        double min = 0;
        double max = 0;
        bool operator==(const Range&) const = default;
    };

    Range time;
    std::array<Range, trendScaleCount> scales;

    static TrendRanges of(const TrendState& state) {
        TrendRanges ranges;
        ranges.time = {state.timeMin, state.timeMax};
        for (std::size_t i = 0; i < ranges.scales.size(); ++i)
            ranges.scales[i] = {state.scales[i].actualMin, state.scales[i].actualMax};
        return ranges;
    }

    void applyTo(TrendState& state) const {
        state.timeMin = time.min;
        state.timeMax = time.max;
        for (std::size_t i = 0; i < scales.size(); ++i) {
            state.scales[i].actualMin = scales[i].min;
            state.scales[i].actualMax = scales[i].max;
        }
    }

    bool operator==(const TrendRanges&) const = default;
};

} // namespace pellam
