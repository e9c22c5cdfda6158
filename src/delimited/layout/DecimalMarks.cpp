#include "delimited/layout/DecimalMarks.h"

#include <algorithm>
#include <string_view>

namespace pellam {

namespace {

// A mark behind one to three digits that begin with no 0, and before exactly three.
bool maybeGroups(std::string_view text, char mark) {
    if (text[0] == '-' || text[0] == '+') text.remove_prefix(1);
    const std::size_t at = text.find(mark);
    return at > 0 && at <= 3 && text.size() - at == 4 && text[0] != '0';
}

bool isLongWhole(std::string_view text) {
    if (text[0] == '-' || text[0] == '+') text.remove_prefix(1);
    return text.size() > 3 && text[0] != '0' &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

void DecimalMarks::add(std::span<const SampleField> fields) {
    if (m_columns.size() < fields.size()) m_columns.resize(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::string_view text = fields[i].text;
        if (fields[i].kind == FieldKind::Comma) {
            ++(maybeGroups(text, ',') ? m_groupCommas : m_commas);
        } else if (fields[i].kind == FieldKind::Number) {
            if (text.find('.') == std::string_view::npos) {
                m_columns[i].whole = m_columns[i].whole || isLongWhole(text);
            } else if (maybeGroups(text, '.')) {
                ++m_groupPoints;
                m_columns[i].groups = true;
            } else {
                ++m_points;
            }
        }
    }
}

DecimalMarks::Choice DecimalMarks::choose(char separator, char expectedSeparator,
                                          char userMark) const {
    // Between commas a comma stands only in quotes, more often to group than as a decimal mark.
    const bool grouping = separator == ',' && m_points > 0;
    const std::size_t commas = m_commas + (grouping ? 0 : m_groupCommas);
    Choice choice;
    choice.mark = userMark;
    choice.commas = commas > 0;
    choice.points = m_points > 0;
    choice.groupPoints = m_groupPoints > 0;
    // In a column that groups thousands no long number stands without a mark.
    const bool odd = std::any_of(m_columns.begin(), m_columns.end(), [](const Column& column) {
        return column.groups && column.whole;
    });
    if (commas > 0 && commas >= m_points) {
        choice.mark = ',';
    } else if (m_points > 0) {
        choice.mark = '.';
    } else if (m_groupPoints > 0) {
        if (separator == ',' || odd) choice.mark = '.';
    } else if (separator != expectedSeparator || separator == userMark) {
        choice.mark = '.';
    }
    return choice;
}

} // namespace pellam
