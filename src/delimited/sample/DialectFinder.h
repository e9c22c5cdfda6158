#pragma once

#include "delimited/sample/Dialect.h"
#include "delimited/sample/SampleTable.h"

#include <memory>
#include <optional>
#include <string_view>

namespace pellam {

class SampleRecords;

/// The dialect that fits a text best and what it makes of it.
struct FoundDialect {
    std::unique_ptr<SampleRecords> records;
    SampleTable table;
};

/// Tries the separators that occur. The one whose table holds the most readings is the file's (a
/// score of the pattern times one of the types: G. van den Burg, A. Nazabal and C. Sutton,
/// "Wrangling messy CSV files by detecting row and type patterns", 2019). `expected` wins a draw.
/// `wished` leaves no choice. `text` outlives the result.
[[nodiscard]] FoundDialect findDialect(std::string_view text, char expected,
                                       std::optional<char> wished = {});

} // namespace pellam
