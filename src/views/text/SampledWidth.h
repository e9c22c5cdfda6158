#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QFontMetricsF;
QT_END_NAMESPACE

namespace pellam {

class GridData;

/// Width of the widest of 16 texts of a column, taken at even distances over the loaded rows; 0
/// when all are empty.
double sampledTextWidth(const GridData& grid, int column, const QFontMetricsF& metrics);

/// Width that a heading of two lines needs: name above units, or a label broken in two.
double headingTextWidth(const GridData& grid, int column, const QFontMetricsF& metrics);

} // namespace pellam
