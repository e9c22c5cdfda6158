#pragma once

#include "grid/Column.h"

#include <QFontMetricsF>

#include <array>
#include <string_view>

namespace pellam {

/// How wide the cells of a column are in one font. Texts of ASCII are added up from the widths of
/// their characters, all digits as wide as the widest, so that looking at millions of cells takes
/// no longer than reading them.
class CellWidths {
  public:
    explicit CellWidths(const QFontMetricsF& metrics);

    /// Width of a stored text on one line; of a long one, of its beginning.
    [[nodiscard]] double of(std::string_view stored) const;

    /// Widths of the widest number or time and of the widest other text; 0 for none.
    struct Widest {
        double number = 0;
        double text = 0;
    };

    /// Adds every `step`-th row from `first` up to `end`, exclusive, to what is the widest so far.
    void look(const Column& column, Row first, Row end, Row step, Widest& widest) const;

  private:
    [[nodiscard]] double ofDecimal(Cell cell) const;

    QFontMetricsF m_metrics;
    std::array<double, 128> m_characters{};
};

/// A number as it stands where it has so much room: whole, or as a row of '#', at least one, as a
/// shortened number would be another number.
[[nodiscard]] QString numberWithin(const QString& number, double room,
                                   const QFontMetricsF& metrics);

} // namespace pellam
