#include "replay/load/BinaryLoader.h"

#include "logger/CDumpDBD.h"
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

LoadOutcome BinaryLoader::load(const std::string& path) {
    LoadOutcome outcome;
    outcome.path = path;
    outcome.kind = LoadOutcome::Kind::Binary;
    const std::string folder = saveFolder();
    if (folder.empty()) return outcome;
    const std::string text = folder + '/' + titleOf(path) + ".csv";
    const InternationalSettings settings = separable(m_context.international);
    {
        CDumpDBD dumper({settings, m_context.messages, m_context.progress},
                        CDumpDBD::Purpose::Loading);
        const unsigned contents = CDumpDBD::DumpData | CDumpDBD::WriteHeader;
        // Text of this name from before belongs to another file.
        if (dumper.dumpFile({path}, text, contents) != CDumpDBD::kDone) return outcome;
        outcome.aborted = dumper.aborted();
        if (outcome.aborted || !dumper.isDataFile()) return outcome;
    }
    outcome = DelimitedLoader(m_context, settings.listSeparator).ReadDelimFile(text);
    outcome.path = path;
    outcome.kind = LoadOutcome::Kind::Binary;
    std::error_code gone;
    const auto size = std::filesystem::file_size(path, gone);
    outcome.fileSize = gone ? 0 : static_cast<std::int64_t>(size);
    return outcome;
}

std::string BinaryLoader::saveFolder() const {
    const auto stored = [this] {
        return m_context.saveFolder ? m_context.saveFolder() : std::string();
    };
    std::string folder = stored();
    if (!folder.empty()) return folder;
    m_context.messages.show("Warning: No default save directory has been specified.\n"
                            "The preferences dialogue will now open to allow you to enter this "
                            "setting");
    if (m_context.askSaveFolder) m_context.askSaveFolder();
    return stored();
}

std::string BinaryLoader::titleOf(const std::string& path) {
    const std::string name = path.substr(path.find_last_of('/') + 1);
    return name.substr(0, name.rfind('.'));
}

} // namespace pellam
