#pragma once

#include "views/chart/RowsByTime.h"

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
RowsByTime showTable(TrendOperations& trend, TrendTable& table, Row rowCount);

} // namespace pellam
