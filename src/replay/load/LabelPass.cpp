#include "replay/load/LabelPass.h"

#include "grid/ChannelLabel.h"
#include "logger/DataMapLabels.h"

#include <algorithm>

namespace pellam {

namespace {

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace

ColumnKind LabelPass::kindOf(std::string_view label, bool extremes) {
    if (contains(label, ".Date")) return ColumnKind::Date;
    if (extremes && (contains(label, ".Dmx") || contains(label, ".Dmn"))) return ColumnKind::Date;
    if (contains(label, ".Time")) return ColumnKind::Time;
    if (extremes && (contains(label, ".Tmx") || contains(label, ".Tmn"))) return ColumnKind::Time;
    if (std::count(label.begin(), label.end(), '/') >= 2) return ColumnKind::Text;
    if (std::count(label.begin(), label.end(), ':') >= 2) return ColumnKind::Text;
    return ColumnKind::Numeric;
}

ColumnMap LabelPass::DisplayLabels(const std::vector<std::string>& labels) {
    ColumnMap columns;
    // Room for all at once: the grid holds more columns than this only where a map has few.
    m_grid.setColumnCount(
        static_cast<int>(std::min<std::size_t>(labels.size() + 1, GridData::kMaximumColumns)));
    addHeading("Time");
    char previous = '.';
    std::size_t number = 0;
    for (const std::string& label : labels) {
        if (label.empty() || isNotLogged(label)) continue;
        if (m_column == GridData::kMaximumColumns) break;
        if (label[0] != previous) {
            previous = label[0];
            number = 0;
        }
        columns.add(previous, number++, kindOf(label, false));
        addHeading(label);
    }
    finish();
    return columns;
}

ColumnMap LabelPass::DisplayChosenLabels(const std::vector<std::string>& chosen) {
    ColumnMap columns;
    m_grid.setColumnCount(static_cast<int>(chosen.size()) + 1);
    addHeading("Time");
    for (const std::string& channel : chosen) {
        const auto label = ChannelLabel::numbered(channel);
        columns.add(label.letter, static_cast<std::size_t>(std::max(0, label.number)),
                    kindOf(label.text, true));
        addHeading(label.text);
    }
    finish();
    return columns;
}

void LabelPass::addHeading(std::string_view label) {
    Column& column = m_grid.column(m_column++);
    column.setLabel(label);
    column.setCharted(true);
}

void LabelPass::finish() {
    m_grid.setColumnCount(m_column);
    m_grid.setChannelCount(m_column - 1);
}

} // namespace pellam
