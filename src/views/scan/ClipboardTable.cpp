#include "views/scan/ClipboardTable.h"

#include "base/Utf8.h"

#include <algorithm>
#include <set>

namespace pellam {

void ClipboardTable::appendField(std::string_view utf8, std::string& out) {
    if (utf8.find_first_of("\t\r\n\"") == std::string_view::npos) {
        out += utf8;
        return;
    }
    out += '"';
    for (const char c : utf8) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
}

namespace {

/// Reads a field that begins with a quote, past its closing quote. Nothing is read when there is
/// none, or when more than a separator follows: the quote is a mere character then.
bool takeQuoted(std::string_view& text, std::string& field) {
    std::size_t i = 1;
    std::string content;
    for (; i < text.size(); ++i) {
        if (text[i] == '"') {
            if (i + 1 >= text.size() || text[i + 1] != '"') break;
            ++i;
        }
        content += text[i];
    }
    if (i >= text.size()) return false;
    if (i + 1 < text.size() &&
        std::string_view("\t\r\n").find(text[i + 1]) == std::string_view::npos)
        return false;
    field = std::move(content);
    text.remove_prefix(i + 1);
    return true;
}

void takeLineEnd(std::string_view& text) {
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
}

} // namespace

std::vector<std::vector<std::string>> ClipboardTable::parse(std::string_view text) {
    std::vector<std::vector<std::string>> rows;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    // Some programs end the text with a zero byte.
    while (text.ends_with('\0'))
        text.remove_suffix(1);
    while (!text.empty()) {
        auto& row = rows.emplace_back();
        while (true) {
            std::string& field = row.emplace_back();
            if (!text.starts_with('"') || !takeQuoted(text, field)) {
                const std::size_t end = std::min(text.find_first_of("\t\r\n"), text.size());
                field = text.substr(0, end);
                text.remove_prefix(end);
            }
            if (!text.starts_with('\t')) break;
            text.remove_prefix(1);
        }
        if (!text.empty()) takeLineEnd(text);
    }
    return rows;
}

std::int64_t ClipboardTable::Block::rows() const {
    std::int64_t rows = 0;
    for (const CellArea& band : bands)
        rows += band.rows();
    return rows;
}

ClipboardTable::Block ClipboardTable::block(std::vector<CellArea> areas) {
    std::erase_if(areas, [](const CellArea& area) { return area.isEmpty(); });
    std::sort(areas.begin(), areas.end(),
              [](const CellArea& a, const CellArea& b) { return a.firstRow < b.firstRow; });
    Block block;
    std::set<int> columns;
    std::int64_t cells = 0;
    for (const CellArea& area : areas) {
        cells += area.cells();
        for (int column = area.firstColumn; column <= area.lastColumn; ++column) {
            columns.insert(column);
        }
        if (!block.bands.empty() && area.firstRow <= block.bands.back().lastRow + 1) {
            GridRow& last = block.bands.back().lastRow;
            last = std::max(last, area.lastRow);
        } else {
            block.bands.push_back({0, 0, area.firstRow, area.lastRow});
        }
    }
    block.columns.assign(columns.begin(), columns.end());
    if (block.cells() != cells) return {};
    return block;
}

std::int64_t ClipboardTable::estimateBytes(const GridData& grid, const Block& block) {
    constexpr std::int64_t samples = 1000;
    const std::int64_t rows = block.rows();
    const std::int64_t stride = std::max<std::int64_t>(1, rows / samples);
    std::int64_t sampled = 0;
    std::string text;
    std::int64_t bytes = 0;
    for (const CellArea& band : block.bands) {
        for (GridRow row = band.firstRow; row <= band.lastRow; row += stride, ++sampled) {
            appendRow(grid, block, row, text);
            bytes += static_cast<std::int64_t>(text.size()) + 1;
            text.clear();
        }
    }
    if (sampled == 0) return 0;
    return static_cast<std::int64_t>(static_cast<double>(bytes) / static_cast<double>(sampled) *
                                     static_cast<double>(rows));
}

void ClipboardTable::appendHeadings(const GridData& grid, const Block& block, std::string& out) {
    bool first = true;
    for (const int column : block.columns) {
        if (!first) out += '\t';
        first = false;
        appendField(toUtf8(grid.column(column).label()), out);
    }
}

void ClipboardTable::appendRow(const GridData& grid, const Block& block, GridRow row,
                               std::string& out) {
    CellBuffer buffer;
    bool first = true;
    for (const int column : block.columns) {
        if (!first) out += '\t';
        first = false;
        if (row == 0) {
            if (column > 0) out += std::to_string(grid.column(column).axis());
            continue;
        }
        const std::string_view text = grid.text(column, row - 1, buffer);
        const Cell::Kind kind = grid.column(column).cell(row - 1).kind();
        if (kind != Cell::Kind::Short && kind != Cell::Kind::Arena)
            out += text;
        else
            appendField(toUtf8(text), out);
    }
}

} // namespace pellam
