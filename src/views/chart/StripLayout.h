#pragma once

namespace pellam {

class TrendOperations;

/// Number of Y scales that are enabled.
int enabledScales(const TrendOperations& trend);

/// Stacks the enabled Y scales in bands of equal height, four to a column. Nothing without any.
void stackScales(TrendOperations& trend);

/// Gives every enabled Y scale the whole height, on the left and the right in turn, outwards.
void overlayScales(TrendOperations& trend);

} // namespace pellam
