#include "replay/load/FileLoader.h"

#include "base/FileName.h"
#include "delimited/layout/LayoutDetector.h"
#include "grid/TimeColumn.h"
#include "logger/TaggedDownload.h"
#include "replay/load/AxisGrouping.h"
#include "replay/load/ConversionLoader.h"
#include "replay/load/DelimitedLoader.h"
#include "replay/load/ReplayLoader.h"

#include <new>

namespace pellam {

namespace {

bool isReplay(LoadOutcome::Kind kind) {
    return kind == LoadOutcome::Kind::Data || kind == LoadOutcome::Kind::Alarm;
}

// Year/month/day texts stand as they are, with all their digits, and so do years with decimals,
// which are no exacter than those.
std::string timeOf(const GridData& grid, TimeColumn& times, Row row) {
    if (row < 0 || row >= grid.rowCount()) return {};
    const auto moment = times.moment(row);
    if (!moment) return {};
    CellBuffer buffer;
    const bool plain = grid.column(0).cell(row).kind() == Cell::Kind::TimeSlash ||
                       times.form().kind() == TimeForm::Kind::DecimalYear;
    return plain ? std::string(grid.text(0, row, buffer)) : momentText(*moment, times.form());
}

} // namespace

FileLoader::FileLoader(const LoadContext& context) : m_context(context) {}

LoadOutcome FileLoader::load(const std::string& path) {
    GridData& grid = m_context.grid;
    grid.reset();
    LoadOutcome outcome;
    try {
        outcome = route(path);
    } catch (const std::bad_alloc&) {
        grid.reset();
        outcome.loaded = false;
        m_context.messages.show("Warning: There is not enough memory to load " + path +
                                ". Close other programs or load fewer channels.");
    }
    if (outcome.loaded) {
        grid.setFractionUnit(isReplay(outcome.kind) ? FractionUnit::Microseconds
                                                    : FractionUnit::DecimalPlaces);
        outcome.rows = grid.rowCount();
        outcome.channels = grid.channelCount();
        TimeColumn times(grid, m_context.international);
        outcome.firstTime = timeOf(grid, times, 0);
        outcome.lastTime = timeOf(grid, times, outcome.rows - 1);
        sortAxisByUnits(grid);
    } else {
        grid.reset();
    }
    grid.trim();
    return outcome;
}

LoadOutcome FileLoader::route(const std::string& path) {
    const std::string extension = extensionOf(path);
    LoadOutcome outcome;
    outcome.path = path;
    if (extension == "dbr") return outcome;
    if (m_context.asText) return loadText(path);
    if (extension == "dbd") return ConversionLoader(m_context).loadBinary(path);
    if (isTaggedDownload(path)) return ConversionLoader(m_context).loadTagged(path);
    if (extension == "csv" || extension == "txt") return loadText(path);
    return ReplayLoader(m_context).ReadReplayFile(path);
}

LoadOutcome FileLoader::loadText(const std::string& path) {
    TextSample sample;
    (void)sample.read(path); // what can't be read is told by the loader
    LayoutWishes wishes = m_context.wishes;
    if (!wishes.any() && m_context.recallWishes) wishes = m_context.recallWishes(sample);
    const LayoutDetector detector(separatorFor(path, m_context.international),
                                  m_context.international);
    LoadOutcome outcome =
        DelimitedLoader(m_context, detector.detect(sample, wishes)).ReadDelimFile(path);
    outcome.wishes = std::move(wishes);
    return outcome;
}

char FileLoader::separatorFor(const std::string& path, const InternationalSettings& international) {
    return extensionOf(path) == "txt" ? '\t' : international.listSeparator;
}

} // namespace pellam
