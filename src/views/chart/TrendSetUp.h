#pragma once

#include "views/chart/TrendRows.h"

#include <QStringList>

namespace pellam {

class TrendOperations;
struct TrendTable;

/// The settings that a chart starts with.
void setUpTrend(TrendOperations& trend);

/// Empties and hides every curve.
void resetTrend(TrendOperations& trend);

/// Puts a table on an emptied chart: curves, their scales with titles, points, and the notes about
/// what was left out. The table's times and values go over to the chart; `rowCount` is the number
/// of loaded rows.
TrendRows showTable(TrendOperations& trend, TrendTable& table, Row rowCount);

/// What to tell about a table without any time or value; empty when there is something to draw.
QString nothingToDraw(const TrendTable& table, Row rowCount);

/// The lines about rows and values that were left out.
QStringList leftOutNotes(const TrendTable& table);

} // namespace pellam
