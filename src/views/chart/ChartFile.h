#pragma once

#include "base/Failure.h"

#include <QSize>

#include <string>

namespace pellam {

class ProgressSink;
class TrendOperations;

/// Draws a chart in its layout for paper to a file, of a kind by its extension: .png, .svg or .pdf;
/// any other is refused. `size` is in pixels, 96 to the inch; a PNG has `pixelRatio` times as many
/// each way. The target is replaced as a whole; a pipe
/// is waited for as AtomicFile::create() says. Needs an application object with a (perhaps
/// invisible) screen.
[[nodiscard]] Failure writeChartFile(TrendOperations& trend, const std::string& path,
                                     const QSize& size, double pixelRatio = 1,
                                     ProgressSink* waiting = nullptr);

} // namespace pellam
