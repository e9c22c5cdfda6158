#pragma once

#include <optional>
#include <string_view>

namespace pellam {

/// A cell as a sort sees it.
struct SortCell {
    enum class Type { Text = 1, Number = 2, Boolean = 3, Other = 4, Currency = 5 };

    Type type = Type::Text;
    std::optional<std::string_view> text; ///< nothing: the cell has no text
    double number = 0;                    ///< used by Number, Boolean and Currency
};

/// Flag bit of compareCells() that asks for descending order.
inline constexpr unsigned kSortDescending = 2;

/// Less than, equal to or greater than 0 as `first` sorts before, with or after `second`. A missing
/// cell (null) comes after a present one, a missing text after any text; texts compare byte by
/// byte. The type of the first cell decides how. Descending order swaps the cells first, so that
/// missing ones then lead.
int compareCells(const SortCell* first, const SortCell* second, unsigned flags);

} // namespace pellam
