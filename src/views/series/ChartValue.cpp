#include "views/series/ChartValue.h"

#include "grid/DecimalCell.h"

namespace pellam {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

/// Whether `before`, a point and `after` stand in the text one behind the other.
bool containsAroundPoint(std::string_view text, char separator, std::string_view before,
                         std::string_view after) {
    for (std::size_t at = text.find(before); at != std::string_view::npos;
         at = text.find(before, at + 1)) {
        const std::string_view rest = text.substr(at + before.size());
        if (rest.empty() || (rest[0] != '.' && rest[0] != separator)) continue;
        if (rest.substr(1).starts_with(after)) return true;
    }
    return false;
}

double valueOfText(const Column& column, Cell cell, LeftOut& leftOut) {
    CellBuffer buffer;
    if (containsSentinel(column.text(cell, buffer), column.decimalSeparator())) {
        ++leftOut.sentinels;
        return kNone;
    }
    const auto number = column.number(cell);
    if (!number) ++leftOut.notNumbers;
    return number.value_or(kNone);
}

} // namespace

bool containsSentinel(std::string_view text, char separator) {
    return containsAroundPoint(text, separator, "99999", "9") ||
           containsAroundPoint(text, separator, "-9", "00000E9");
}

double chartValue(const Column& column, Cell cell, LeftOut& leftOut) {
    if (cell.isEmpty()) return kNone;
    if (cell.kind() != Cell::Kind::Decimal) return valueOfText(column, cell, leftOut);
    if (!isSentinel(cell)) return DecimalCell::value(cell);
    ++leftOut.sentinels;
    return kNone;
}

} // namespace pellam
