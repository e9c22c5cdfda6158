#pragma once

#include "grid/Column.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pellam {

/// How many values of a channel were left out of chart and figures, by reason.
struct LeftOut {
    std::int64_t sentinels = 0;  ///< one of the texts by which loggers mark a missing value
    std::int64_t notNumbers = 0; ///< texts that are no decimal number
    std::int64_t notLater = 0;   ///< time not later than that of the channel's value before
    /// By text of the grid's MissingText: cells that stand for no value; also those that are taken
    /// as numbers all the same. Shorter when the later ones do not occur.
    std::vector<std::int64_t> missing;
    std::int64_t asNumbers = 0; ///< how many of these are taken as numbers

    /// Cells that are left out because they stand for no value.
    [[nodiscard]] std::int64_t gaps() const;
    void countMissing(std::size_t text, std::int64_t cells = 1);
};

/// Reads the values of a channel: those that stand for none, by the logger's sentinel texts or by
/// the texts of the file's layout, are left out and counted. Where this is decided, for the chart
/// and for figures of cells alike.
class ValueReader {
  public:
    /// The column must outlive the reader; what its grid says of missing texts is taken now.
    explicit ValueReader(const Column& column);

    /// The values of rows `first` to `first + out.size() - 1`, all of one chunk; NaN where there is
    /// none. The rows of cells that stand for no value are added to `gaps`, ascending.
    void read(Row first, std::span<double> out, LeftOut& leftOut,
              std::vector<std::uint32_t>* gaps) const;

    /// The same of one cell; `gap` tells whether it stands for no value.
    [[nodiscard]] double value(Cell cell, LeftOut& leftOut, bool& gap) const;

  private:
    struct Mark {
        double value;
        std::size_t text;
    };

    struct Word {
        std::string text;
        std::size_t place;
    };

    [[nodiscard]] double withoutMarks(Cell cell, LeftOut& leftOut, bool& gap) const;
    [[nodiscard]] double valueOfText(Cell cell, LeftOut& leftOut, bool& gap) const;
    void takeMarks(Row first, std::span<double> out, LeftOut& leftOut,
                   std::vector<std::uint32_t>* gaps) const;

    const Column& m_column;
    std::vector<Mark> m_marks;
    std::vector<Word> m_words;
    bool m_asNumbers;
};

} // namespace pellam
