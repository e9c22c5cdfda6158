#include "replay/load/ConversionLoader.h"

#include "logger/CDumpDBD.h"
#include "logger/ConversionTarget.h"
#include "logger/TaggedDownload.h"
#include "replay/load/DelimitedLoader.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace pellam {

namespace {

/// The settings with a list separator that stands neither in numbers nor in times.
InternationalSettings separable(InternationalSettings settings) {
    const char separator = settings.listSeparator;
    const bool occurs =
        std::string_view("0123456789/: -+.\"").find(separator) != std::string_view::npos;
    if (occurs || separator == settings.decimalSeparator)
        settings.listSeparator = settings.decimalSeparator == ';' ? ',' : ';';
    return settings;
}

} // namespace

ConversionLoader::ConversionLoader(const LoadContext& context)
    : m_context(context),
      m_settings(separable(context.international)) {}

LoadOutcome ConversionLoader::loadBinary(const std::string& path) {
    LoadOutcome outcome;
    outcome.path = path;
    outcome.kind = LoadOutcome::Kind::Binary;
    const std::string name = target(path);
    if (name.empty()) return outcome;
    ConversionTarget text(name);
    CDumpDBD::Damage damage;
    {
        CDumpDBD dumper({m_settings, m_context.messages, m_context.progress},
                        CDumpDBD::Purpose::Loading);
        const unsigned contents = CDumpDBD::DumpData | CDumpDBD::WriteHeader;
        if (dumper.dumpFile({path}, text.path(), contents) != CDumpDBD::kDone) return outcome;
        outcome.aborted = dumper.aborted();
        if (outcome.aborted) return outcome;
        if (!dumper.isDataFile()) {
            std::error_code error;
            std::filesystem::remove(text.path(), error); // it is empty
            return outcome;
        }
        damage = dumper.damage();
    }
    outcome = loadText(text.settle(), path, outcome.kind);
    if (!damage.any) return outcome;
    m_context.messages.show(damage.failure(path).text());
    outcome.damagedLines = static_cast<std::int64_t>(damage.cutRecords) + (damage.ended ? 1 : 0);
    if (damage.lostRecords > 0) {
        outcome.passedOver.add(PassedOver::Cause::LostRecord,
                               static_cast<std::int64_t>(damage.place),
                               static_cast<std::int64_t>(damage.lostRecords));
    }
    if (damage.ended && outcome.loaded && !outcome.aborted) markLastRow();
    return outcome;
}

LoadOutcome ConversionLoader::loadTagged(const std::string& path) {
    LoadOutcome outcome;
    outcome.path = path;
    outcome.kind = LoadOutcome::Kind::Tagged;
    const std::string name = target(path);
    if (name.empty()) return outcome;
    ConversionTarget text(name);
    const Failure failure = convertTaggedDownload(
        path, text.path(), {m_settings.listSeparator, m_settings.decimalSeparator});
    if (failure) m_context.messages.show(failure.text());
    // What came before a place that can not be read has been kept.
    if (failure && failure.kind != Failure::Kind::Read) return outcome;
    return loadText(text.settle(), path, outcome.kind);
}

LoadOutcome ConversionLoader::loadText(const std::string& text, const std::string& path,
                                       LoadOutcome::Kind kind) {
    LoadOutcome outcome = DelimitedLoader(m_context, m_settings.listSeparator).ReadDelimFile(text);
    outcome.path = path;
    outcome.converted = text;
    outcome.kind = kind;
    std::error_code gone;
    const auto size = std::filesystem::file_size(path, gone);
    outcome.fileSize = gone ? 0 : static_cast<std::int64_t>(size);
    return outcome;
}

// The last line of a damaged file's text names the place of the damage.
void ConversionLoader::markLastRow() {
    GridData& grid = m_context.grid;
    const Row row = grid.rowCount() - 1;
    if (row < 0) return;
    CellBuffer buffer;
    grid.setText(0, row, std::string(grid.text(0, row, buffer)), CellColour::DarkRed);
    grid.addDamagedRow(row);
}

std::string ConversionLoader::target(const std::string& path) const {
    const auto stored = [this] {
        return m_context.saveFolder ? m_context.saveFolder() : std::string();
    };
    std::string folder = stored();
    if (folder.empty()) {
        m_context.messages.show("Warning: No default save directory has been specified.\n"
                                "The preferences dialogue will now open to allow you to enter this "
                                "setting");
        if (m_context.askSaveFolder) m_context.askSaveFolder();
        folder = stored();
    }
    if (folder.empty()) return {};
    const std::string name = path.substr(path.find_last_of('/') + 1);
    return folder + '/' + name.substr(0, name.rfind('.')) + ".csv";
}

} // namespace pellam
