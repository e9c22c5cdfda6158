#pragma once

#include "delimited/sample/SampleTable.h"

#include <string>
#include <vector>

namespace pellam {

class SampleRecords;

/// The texts that stand for no value in the table's columns of numbers: words such as "NaN" and
/// "---", and -9999, -99999, -7999, -6999, -9900 (with decimals or not) where these stand apart
/// from the column's other values.
[[nodiscard]] std::vector<std::string> findMissingTexts(const SampleRecords& records,
                                                        const SampleTable& table);

} // namespace pellam
