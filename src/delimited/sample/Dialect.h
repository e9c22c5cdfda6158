#pragma once

namespace pellam {

/// How the lines of a text file are taken apart into fields.
struct Dialect {
    /// The separator that stands for a run of blanks and tabs.
    static constexpr char kBlankRuns = ' ';

    char separator = ',';
    char quote = '"';    ///< groups a field that begins with it; '\0' when nothing does
    char escape = '"';   ///< before a quotation mark inside such a field: the mark again, or '\\'
    bool blanks = false; ///< blanks at either end of a field are no part of it

    friend bool operator==(const Dialect&, const Dialect&) = default;
};

} // namespace pellam
