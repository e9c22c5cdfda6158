#pragma once

#include "delimited/sample/Dialect.h"
#include "times/TimeForm.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pellam {

/// How a text file of measurements is laid out: found by LayoutDetector or told by the user, and
/// then followed by the loader. Lines count from 1, columns from 0.
struct TextLayout {
    /// Texts that the file's layout is no matter of: why there is nothing to load. Empty for a
    /// table; else what the file looks like, as in "looks like a web page".
    std::string notATable;

    Dialect dialect;
    char decimal = '.';
    bool mixedDecimals = false; ///< both decimal marks occur
    bool otherDecimal = false;  ///< numbers have a decimal mark that is not the user's
    /// No number has a decimal mark, and the points in them group thousands: nothing in the file
    /// says that they are decimal ones.
    bool groupingPoints = false;

    std::int64_t headingsLine = 0;  ///< first line of headings; 0 where there are none
    int headingLines = 0;           ///< how many of them make the names
    std::int64_t unitsLine = 0;     ///< 0 where there is none
    std::int64_t firstDataLine = 1; ///< lines above that are no headings are the description
    std::int64_t lastDataLine = 0;  ///< 0: the table goes on to dataEnd
    std::int64_t dataEnd = -1;      ///< bytes of the file up to its footer; -1: to the end
    std::int64_t footerLines = 0;   ///< lines behind the data that are none
    std::string comment;            ///< lines that begin with it are no data; empty: there are none

    std::vector<std::string> names; ///< of the columns, a missing one empty; none without headings
    std::vector<std::string> units; ///< of the columns; none where there is no such line
    /// Columns with neither a name nor a value in what was looked at: they get a column of the grid
    /// only when a value turns up.
    std::vector<std::size_t> emptyColumns;
    std::size_t columns = 0; ///< of the data and the headings, whichever are more

    std::vector<std::size_t> timeColumns; ///< joined by a blank; none: rows have no time
    TimeForm timeForm;
    bool timeParts = false;   ///< the time columns stay columns, the time is written anew
    int paddedPart = -1;      ///< place in timeColumns of "30" for 00:30
    bool timeGuessed = false; ///< day and month might be the other way round
    TimeForm otherTimeForm;   ///< the form that they would have then

    /// Texts that stand for no value, and where one of them is a value all the same: a number that
    /// does not stand apart from the column's others.
    std::vector<std::string> missing;

    struct OwnValue {
        std::size_t column;
        std::size_t missing; ///< place in the list

        friend bool operator==(const OwnValue&, const OwnValue&) = default;
    };

    std::vector<OwnValue> ownValues;

    std::vector<std::string> description;    ///< the lines above the headings
    std::vector<std::string> headings;       ///< header lines as they stand: they may come back
    std::vector<std::int64_t> furtherTables; ///< first lines of the tables behind the loaded one
    std::int64_t changedFieldsLine = 0;      ///< first data line with another number of fields
    std::string missed;   ///< a wish that the sample cannot fulfil: "line 5", "column 9"; or empty
    std::string encoding; ///< "UTF-8", "UTF-16" or "Windows-1252"

    /// The layout that needs no telling: headings first, the time in the first column, the
    /// separator that the file's extension has.
    bool plain = false;

    friend bool operator==(const TextLayout&, const TextLayout&) = default;
};

} // namespace pellam
