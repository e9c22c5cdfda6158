#pragma once

#include "base/Failure.h"

#include <string>

namespace pellam {

/// Whether a file begins as a logger's tagged text download does: with "<start>" in its first line
/// and "<log interval>" in its fifth, blanks before them not counted.
[[nodiscard]] bool isTaggedDownload(const std::string& path);

/// Where the conversion of a tagged download goes: ".txt" in its name becomes ".csv"; a name
/// without it gets ".csv" behind it.
[[nodiscard]] std::string taggedDownloadOutput(const std::string& inputPath);

/// The separators that a conversion is written with.
struct TaggedStyle {
    char listSeparator = ',';
    char decimalSeparator = '.'; ///< of numbers; the download has a point
};

/// Converts a tagged download ("<start>", "<end>", "<log interval>", heading, data lines up to
/// "</data>") to delimited text in `outputPath`. The times are counted from the start time by the
/// interval, without daylight saving. Closing tags and blank lines at the end are no data. An
/// existing output file is replaced when the new one is whole; if reading fails on the way, what
/// was read up to there is kept. Nothing on success.
[[nodiscard]] Failure convertTaggedDownload(const std::string& inputPath,
                                            const std::string& outputPath,
                                            const TaggedStyle& style = {});

/// The same into a comma-separated file beside the download that replaces no other: see
/// ConversionTarget. `outputPath` is set to its name.
[[nodiscard]] Failure convertTaggedDownloadBeside(const std::string& inputPath,
                                                  std::string& outputPath);

} // namespace pellam
