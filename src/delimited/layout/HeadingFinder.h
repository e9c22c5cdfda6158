#pragma once

#include "delimited/sample/SampleTable.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pellam {

class SampleRecords;

/// What stands above the data of a table; line numbers from 1, 0 where there is no such line.
struct FoundHeadings {
    std::int64_t line = 0;          ///< first line of headings
    int lines = 0;                  ///< of headings, those joined to names counted
    std::int64_t unitsLine = 0;     ///< units of the columns
    std::size_t first = 0;          ///< first record of the data: rows out of line may stand first
    std::vector<std::string> names; ///< by column of the data; empty where there are none
    std::vector<std::string> units; ///< by column of the data; none where there is no such line
};

/// Finds the headings, the units and the statistics in the lines above a table.
[[nodiscard]] FoundHeadings findHeadings(const SampleRecords& records, const SampleTable& table);

/// The headings and units that stand in given lines; 0: there are none.
[[nodiscard]] FoundHeadings headingsOf(const SampleRecords& records, const SampleTable& table,
                                       std::int64_t headingsLine, std::int64_t unitsLine);

} // namespace pellam
