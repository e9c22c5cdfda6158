#pragma once

#include "delimited/sample/SampleRecords.h"

#include <cstddef>
#include <span>
#include <vector>

namespace pellam {

/// Tells a file's decimal mark from the numbers of its records.
class DecimalMarks {
  public:
    struct Choice {
        char mark = '.';
        bool commas = false;      ///< occur as decimal marks
        bool points = false;      ///< occur as decimal marks, for they group nothing
        bool groupPoints = false; ///< occur where they may group thousands
    };

    /// Takes notice of a record's numbers.
    void add(std::span<const SampleField> fields);

    /// The mark of a file with this separator, where `expectedSeparator` and `userMark` are the
    /// user's. With a user's comma, points group thousands where all of them can, in a file that
    /// commas do not separate.
    [[nodiscard]] Choice choose(char separator, char expectedSeparator, char userMark) const;

  private:
    /// What the numbers of a column look like.
    struct Column {
        bool groups = false; ///< a point before three digits
        bool whole = false;  ///< four digits or more without a point
    };

    std::size_t m_commas = 0;
    std::size_t m_points = 0;
    std::size_t m_groupCommas = 0; ///< that may group thousands
    std::size_t m_groupPoints = 0;
    std::vector<Column> m_columns;
};

} // namespace pellam
