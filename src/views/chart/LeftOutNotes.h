#pragma once

#include "grid/GridData.h"

#include <QStringList>

namespace pellam {

struct TrendTable;

/// What to tell about a table without any time or value; empty when there is something to draw.
QString nothingToDraw(const TrendTable& table, Row rowCount);

/// The line about numbers that stand for no value, which a person may have drawn or left out;
/// empty when there were none.
QStringList missingNumbersNote(const TrendTable& table);

/// The other lines about rows and values that were left out.
QStringList leftOutNotes(const TrendTable& table);

} // namespace pellam
