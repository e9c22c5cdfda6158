#pragma once

#include "delimited/layout/LayoutWishes.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellam {

/// The values of the options that tell how a text file is laid out. Each function puts a value
/// into the wishes; the result is what it should have been ("needs ..."), empty when it is right.
struct LayoutOptions {
    static std::string separator(std::string_view value, LayoutWishes& wishes);
    static std::string decimal(std::string_view value, LayoutWishes& wishes);
    static std::string headingsLine(std::string_view value, LayoutWishes& wishes);
    static std::string unitsLine(std::string_view value, LayoutWishes& wishes);
    static std::string dataLine(std::string_view value, LayoutWishes& wishes);
    static std::string timeColumns(std::string_view value, LayoutWishes& wishes);
    static std::string timeFormat(std::string_view value, LayoutWishes& wishes);
    /// Texts with commas between them; "none" alone for none of them.
    static std::string missing(std::string_view value, LayoutWishes& wishes);

    /// A quotation mark, or "none".
    static std::string quote(std::string_view value, LayoutWishes& wishes);

    /// What was asked for as names of options without their dashes and values that the functions
    /// above take: "headings-line", "3".
    [[nodiscard]] static std::vector<std::pair<std::string, std::string>>
    listOf(const LayoutWishes& wishes);

    /// Puts one of those back; false for a name or a value that is none.
    static bool take(std::string_view name, std::string_view value, LayoutWishes& wishes);

    /// Columns as people count them, "1, 2"; "none" for none.
    [[nodiscard]] static std::string columnsText(const std::vector<std::size_t>& columns);

    /// Texts with commas between them, as missing() takes them.
    [[nodiscard]] static std::string textsText(const std::vector<std::string>& texts);
};

} // namespace pellam
