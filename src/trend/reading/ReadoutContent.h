#pragma once

#include "trend/curves/CurveStyle.h"

#include <QColor>
#include <QStringList>
#include <vector>

namespace pellam {

/// What a reading says: lines of text above a table. In each row come a name (left), numbers
/// (right), and from `firstText` on texts (left) again.
struct ReadoutContent {
    struct Row {
        QColor colour; ///< of the curve; invalid = none
        QStringList cells;
        CurveDash dash = CurveDash::Solid;
    };

    QStringList lines;
    QStringList titles; ///< of the columns; empty = none
    std::vector<Row> rows;
    qsizetype firstText = 1000;

    bool empty() const { return lines.isEmpty() && rows.empty(); }

    /// As lines of text, cells apart by tabs.
    QStringList text() const {
        QStringList all = lines;
        if (!titles.isEmpty()) all += titles.join(u'\t');
        for (const Row& row : rows)
            all += row.cells.join(u'\t');
        return all;
    }
};

} // namespace pellam
