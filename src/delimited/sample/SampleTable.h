#pragma once

#include "delimited/sample/FieldKind.h"

#include <cstddef>
#include <vector>

namespace pellam {

class SampleRecords;

/// The table of data in a sample.
struct SampleTable {
    std::size_t first = 0;        ///< its first record
    std::size_t end = 0;          ///< one behind its last
    std::size_t columns = 0;      ///< fields of most of its records
    std::vector<FieldKind> kinds; ///< by column what most of its fields are; Empty where all are
    double score = 0;             ///< its readings, as a measure of how well the dialect fits
    /// First records of the tables behind it, each at its headings.
    std::vector<std::size_t> further;

    [[nodiscard]] bool found() const { return end > first; }

    [[nodiscard]] FieldKind kind(std::size_t column) const {
        return column < kinds.size() ? kinds[column] : FieldKind::Empty;
    }
};

/// Finds the table of data among the records: the longest run of records with equal field counts
/// whose columns keep their kinds, or an earlier one that has headings of its own. Records of
/// other field counts belong to it where they go on with its times.
[[nodiscard]] SampleTable findTable(const SampleRecords& records);

/// The table that begins at a given record and goes on to the end.
[[nodiscard]] SampleTable tableFrom(const SampleRecords& records, std::size_t first);

/// Whether the record holds names for the columns of the table: texts where it has readings.
[[nodiscard]] bool isHeadings(const SampleRecords& records, std::size_t record,
                              const SampleTable& table);

} // namespace pellam
