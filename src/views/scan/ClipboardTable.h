#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// What cells are on the clipboard: lines of texts separated by tabs, UTF-8, as spreadsheets
/// exchange them. A text with a tab, a line end or a double quote in it stands in double quotes,
/// with its own double quotes doubled.
class ClipboardTable {
  public:
    /// The most that is put on the clipboard, in bytes.
    static constexpr std::int64_t kMaximumBytes = std::int64_t{512} << 20;

    /// Appends one text of UTF-8, quoted where it must be.
    static void appendField(std::string_view utf8, std::string& out);

    /// Reads a clipboard text: a list of rows of texts. Lines end in "\n", "\r\n" or "\r"; an end
    /// after the last row adds none. A quote that does not begin a field is a character like
    /// others.
    static std::vector<std::vector<std::string>> parse(std::string_view text);

    /// The block that a selection of several areas makes when it is read row by row: the areas'
    /// columns and rows, in order. Empty when the areas do not fill such a block, as two cells one
    /// below and beside the other do not.
    struct Block {
        std::vector<int> columns;
        std::vector<CellArea> bands; ///< rows, from top to bottom; their columns are of no meaning
        [[nodiscard]] std::int64_t rows() const;

        [[nodiscard]] std::int64_t cells() const {
            return rows() * static_cast<std::int64_t>(columns.size());
        }
    };

    static Block block(std::vector<CellArea> areas);

    /// Size that the block's text is about to have, in bytes, judged from up to 1000 of its rows.
    static std::int64_t estimateBytes(const GridData& grid, const Block& block);

    /// Appends the headings of the block's columns as one line.
    static void appendHeadings(const GridData& grid, const Block& block, std::string& out);
    /// Appends one grid row of the block; lines are separated by "\n".
    static void appendRow(const GridData& grid, const Block& block, GridRow row, std::string& out);
};

} // namespace pellam
