#pragma once

namespace pellam {

class TrendOperations;

/// The ranges that the automatic scaling gives an axis.
struct AxisRanges {
    double rangeMin;
    double rangeMax;
    double shownMin;
    double shownMax;
};

/// The ranges of an axis whose curves' values lie between min and max. This program's rule: the
/// range goes ten spans beyond the values (one span below a span of 1), what is shown a tenth of
/// each bound's own magnitude beyond it.
AxisRanges scaledToData(double min, double max);

/// Scales all six axes to the visible curves, and the time axis to their times; `now` is the
/// latest moment at which a time axis of dates can start. Logarithmic axes count values above zero.
/// An axis without data gets reversed ranges.
void autoScale(TrendOperations& trend, double now);

/// Scales an axis (1 to 6) to its visible curves when it stands reversed: it was scaled while all
/// of them were hidden.
void scaleLateAxis(TrendOperations& trend, int axis);

} // namespace pellam
