#pragma once

namespace pellam {

class TrendOperations;

/// Puts the chart on the clipboard as a bitmap of 800 x 600 pixels, white, and beside it as SVG of
/// the same size. `minimised`: the window is, and its drawing need not be suspended. False, and the
/// clipboard left as it was, when the bitmap can't be made.
[[nodiscard]] bool copyChart(TrendOperations& trend, bool minimised);

} // namespace pellam
