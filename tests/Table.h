#pragma once

#include <initializer_list>
#include <tuple>

namespace pellam {

/// Rows of a test's table; the loop names its columns: for (const auto& [name, text] : rows).
template <class... Columns>
using Table = std::initializer_list<std::tuple<Columns...>>;

} // namespace pellam
