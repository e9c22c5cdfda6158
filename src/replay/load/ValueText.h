#pragma once

#include "grid/Column.h"

#include <string>
#include <string_view>

namespace pellam {

/// How number texts of a file become cell texts: needless zeros after the point go, the separators
/// become those of the grid. No value is ever changed: what is no plain decimal stays as it is.
class ValueText {
  public:
    /// Numbers written with a point; ',' groups thousands. The cell shows the grid's separator.
    static Cell fromPoint(std::string_view text, Column& column);

    /// Numbers written with `separator`; where that is not '.', points group thousands and go,
    /// unless they stand where no group ends. The cell shows the grid's separator.
    static Cell fromSeparator(std::string_view text, char separator, Column& column);

    /// A text without the double quotes around it and the blanks around those; quotes that stand
    /// in it twice stand once.
    static Cell fromQuoted(std::string_view text, Column& column);

    /// Whether a value of a file is a number, a date or a time: by its first character, or "inf" or
    /// "nan" in any case.
    static bool startsNumber(std::string_view text);
};

} // namespace pellam
