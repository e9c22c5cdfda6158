#pragma once

#include "delimited/sample/SampleTable.h"

#include <string>
#include <string_view>

namespace pellam {

class SampleRecords;

/// What a text that is no table looks like by its first bytes: "a web page", "JSON", "XML",
/// "binary data"; empty for any other.
[[nodiscard]] std::string_view contentKindOf(std::string_view text);

/// Whether the records are sentences: lines of words, and no readings in them.
[[nodiscard]] bool isProse(const SampleRecords& records, const SampleTable& table);

} // namespace pellam
