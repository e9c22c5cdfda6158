#include "replay/load/FileLoader.h"

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

// The first column of delimited text need not be the time.
std::string timeOf(const GridData& grid, Row row, LoadOutcome::Kind kind) {
    if (row < 0) return {};
    const Column& times = grid.column(0);
    if (!isReplay(kind) && !times.cell(row).isTime()) return {};
    CellBuffer buffer;
    return std::string(times.text(row, buffer));
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
        outcome.firstTime = timeOf(grid, outcome.rows > 0 ? 0 : -1, outcome.kind);
        outcome.lastTime = timeOf(grid, outcome.rows - 1, outcome.kind);
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
    if (extension == "dbd") return ConversionLoader(m_context).loadBinary(path);
    if (isTaggedDownload(path)) return ConversionLoader(m_context).loadTagged(path);
    if (extension == "csv") {
        return DelimitedLoader(m_context, m_context.international.listSeparator)
            .ReadDelimFile(path);
    }
    if (extension == "txt") return DelimitedLoader(m_context, '\t').ReadDelimFile(path);
    return ReplayLoader(m_context).ReadReplayFile(path);
}

std::string FileLoader::extensionOf(const std::string& path) {
    const std::size_t name = path.find_last_of("/\\") + 1;
    const std::size_t point = path.rfind('.');
    if (point == std::string::npos || point < name) return {};
    std::string extension = path.substr(point + 1);
    for (char& c : extension) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return extension;
}

} // namespace pellam
