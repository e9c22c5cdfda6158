#pragma once

#include <cstddef>
#include <optional>

namespace pellam {

class SampleRecords;

/// Whether a text reads right with its headings in the first record and its times in the first
/// column, as most exports are: where it does, a record that is out of line is a row like the
/// others, and no border of the table. The first record of the data; nothing where it doesn't.
/// `records` are taken apart by the separator that a file of this name has.
[[nodiscard]] std::optional<std::size_t> plainData(const SampleRecords& records);

} // namespace pellam
