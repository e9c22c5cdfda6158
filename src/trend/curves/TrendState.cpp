#include "trend/curves/TrendState.h"

namespace pellam {

TrendState::TrendState() {
    // Axis by axis on the left and right in turn, outwards.
    for (int i = 0; i < trendScaleCount; ++i) {
        ScalePosition& position = scales[static_cast<std::size_t>(i)].position;
        position.side = i % 2;
        position.column = i / 2;
    }
}

QString TrendState::numbers(QString text) const {
    if (decimalPoint == u'.') return text;
    // A point that ends a month's short name is none of a number's.
    for (qsizetype i = 0; i + 1 < text.size(); ++i)
        if (text[i] == u'.' && text[i + 1].isDigit()) text[i] = decimalPoint;
    return text;
}

} // namespace pellam
