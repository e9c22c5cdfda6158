#include "views/text/CellWidths.h"

#include "grid/TimeCell.h"
#include "views/text/ScreenText.h"

#include <algorithm>

namespace pellam {

CellWidths::CellWidths(const QFontMetricsF& metrics) : m_metrics(metrics) {
    double digit = 0;
    for (std::size_t i = 0; i < m_characters.size(); ++i) {
        const char16_t character = i < 32 ? u' ' : static_cast<char16_t>(i);
        m_characters[i] = m_metrics.horizontalAdvance(QChar(character));
        if (i >= '0' && i <= '9') digit = std::max(digit, m_characters[i]);
    }
    std::fill(m_characters.begin() + '0', m_characters.begin() + '9' + 1, digit);
}

double CellWidths::of(std::string_view stored) const {
    constexpr std::size_t longest = 200; // more is wider than any column
    stored = stored.substr(0, longest);
    double width = 0;
    for (const char c : stored) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= m_characters.size()) return m_metrics.horizontalAdvance(screenText(stored));
        width += m_characters[code];
    }
    return width;
}

double CellWidths::ofDecimal(Cell cell) const {
    unsigned digits = 1;
    for (std::uint64_t rest = cell.mantissa(); rest >= 10; rest /= 10)
        ++digits;
    digits = std::max(digits, cell.scale() + 1);
    double width = digits * m_characters['0'];
    if (cell.scale() > 0) width += std::max(m_characters['.'], m_characters[',']);
    if (cell.negative()) width += m_characters['-'];
    return width;
}

void CellWidths::look(const Column& column, Row first, Row end, Row step, Widest& widest) const {
    CellBuffer buffer;
    Cell::Kind lastKind = Cell::Kind::Empty;
    unsigned lastDigits = 0;
    for (Row row = first; row < end; row += step) {
        const Cell cell = column.cell(row);
        if (cell.isEmpty()) continue;
        if (cell.kind() == Cell::Kind::Decimal) {
            widest.number = std::max(widest.number, ofDecimal(cell));
        } else if (cell.isTime()) {
            // Times of one form are all as wide as each other.
            const unsigned digits = TimeCell::fields(cell).fractionDigits;
            if (cell.kind() == lastKind && digits == lastDigits) continue;
            lastKind = cell.kind();
            lastDigits = digits;
            widest.number = std::max(widest.number, of(column.text(cell, buffer)));
        } else {
            widest.text = std::max(widest.text, of(column.text(cell, buffer)));
        }
    }
}

QString numberWithin(const QString& number, double room, const QFontMetricsF& metrics) {
    if (metrics.horizontalAdvance(number) <= room) return number;
    return {std::max(1, static_cast<int>(room / metrics.horizontalAdvance(u'#'))), u'#'};
}

} // namespace pellam
