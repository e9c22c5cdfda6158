#pragma once

#include "base/Failure.h"

#include <string>

namespace pellam {

/// Where the conversion of a tagged download goes: ".txt" in its name becomes ".csv"; a name
/// without it gets ".csv" behind it.
[[nodiscard]] std::string taggedDownloadOutput(const std::string& inputPath);

/// Converts a logger's tagged text download ("<start>", "<end>", "<log interval>", heading, data
/// lines up to "</data>") to comma-separated text beside it. The times are counted from the start
/// time by the interval, without daylight saving. An existing output file is replaced when the new
/// one is whole; if reading fails on the way, what was read up to there is kept. Nothing on
/// success.
[[nodiscard]] Failure convertTaggedDownload(const std::string& inputPath);

} // namespace pellam
