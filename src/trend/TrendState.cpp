#include "trend/TrendState.h"

namespace pellam {

TrendState::TrendState() {
    // Axis by axis on the left and right in turn, outwards.
    for (int i = 0; i < trendScaleCount; ++i) {
        ScalePosition& position = scales[static_cast<std::size_t>(i)].position;
        position.side = i % 2;
        position.column = i / 2;
    }
}

} // namespace pellam
