#pragma once

#include "grid/GridData.h"

#include <QStringList>

namespace pellam {

struct TrendTable;

/// What to tell about a table without any time or value; empty when there is something to draw.
QString nothingToDraw(const TrendTable& table, Row rowCount);

/// The lines about rows and values that were left out.
QStringList leftOutNotes(const TrendTable& table);

} // namespace pellam
