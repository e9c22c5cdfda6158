#pragma once

#include "delimited/layout/TextLayout.h"
#include "delimited/sample/SampleTable.h"

namespace pellam {

class SampleRecords;

/// Puts the texts that stand for no value in the table's columns of numbers into the layout: words
/// such as "NaN" and "---", and -9999, -99999, -7999, -6999, -9900 (with decimals or not) where
/// these stand apart from a column's other values; and the columns where they do not.
void findMissingTexts(const SampleRecords& records, const SampleTable& table, TextLayout& layout);

} // namespace pellam
