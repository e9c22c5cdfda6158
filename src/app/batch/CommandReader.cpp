#include "app/batch/CommandReader.h"

#include "base/FileName.h"
#include "base/FileUrl.h"
#include "database/sessions/SessionTime.h"
#include "export/GridWriter.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pellam {

namespace {

/// The extensions in a value's name such as "OUT.csv|OUT.txt".
std::vector<std::string> extensionsIn(std::string_view valueName) {
    std::vector<std::string> extensions;
    while (!valueName.empty()) {
        const std::string_view file = valueName.substr(0, valueName.find('|'));
        extensions.push_back('.' + extensionOf(file));
        valueName.remove_prefix(std::min(file.size() + 1, valueName.size()));
    }
    return extensions;
}

/// Whether an output is no file with a name of its own: "-", or one below /dev.
bool isStream(std::string_view output) {
    return output == "-" || output.starts_with("/dev/");
}

std::string streamPath(std::string_view output) {
    return output == "-" ? "/dev/stdout" : std::string(output);
}

std::string listOf(const std::vector<std::string>& words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool last = i + 1 == words.size();
        text += (i == 0 ? "" : last ? " or " : ", ") + words[i];
    }
    return text;
}

/// Options of the window system's toolkit, which reads them itself; desktops restart programs with
/// "-session". All have a value.
bool isToolkitOption(std::string_view name) {
    static constexpr std::array<std::string_view, 6> kOptions = {
        "-display", "-geometry", "-platform", "-session", "-style", "-stylesheet"};
    return std::find(kOptions.begin(), kOptions.end(), name) != kOptions.end();
}

/// Whether a sentence such as "--export or --info" names an option.
bool names(std::string_view sentence, std::string_view option) {
    const auto at = sentence.find(option);
    if (at == std::string_view::npos) return false;
    const std::string_view behind = sentence.substr(at + option.size());
    return behind.empty() || behind.front() == ' ' || behind.front() == ',';
}

} // namespace

CommandLine CommandReader::read() {
    while (m_next < m_argc && !finished()) {
        const std::string_view argument = m_argv[m_next++];
        if (m_onlyFiles || !argument.starts_with('-') || argument == "-") {
            takeFile(argument);
        } else if (argument == "--") {
            m_onlyFiles = true;
        } else {
            takeArgument(argument);
        }
    }
    if (!finished()) {
        checkNeeds();
        checkSession();
        checkDialog();
        checkFile();
    }
    return std::move(m_line);
}

bool CommandReader::finished() const {
    return !m_line.error.empty() || m_line.help || m_line.version;
}

void CommandReader::fail(std::string_view option, std::string_view why) {
    if (m_line.error.empty()) m_line.error = std::string(option) + ' ' + std::string(why);
}

void CommandReader::takeFile(std::string_view file) {
    if (file.empty()) {
        fail("FILE", "has an empty name");
    } else if (!m_line.file.empty()) {
        fail(file, "is one file too many, only one can be loaded");
    } else {
        m_line.file = localFileOf(file).value_or(std::string(file)); // desktops hand URLs over
    }
}

void CommandReader::takeArgument(std::string_view argument) {
    const auto equals = argument.find('=');
    m_name = argument.substr(0, equals);
    m_assigned = equals != std::string_view::npos;
    m_value = m_assigned ? argument.substr(equals + 1) : std::string_view();
    const auto options = commandOptions();
    const auto option = std::find_if(options.begin(), options.end(), [this](const auto& each) {
        return m_name == each.name || m_name == each.letter;
    });
    if (option != options.end()) return takeOption(*option);
    if (isToolkitOption(m_name)) return (void)takeValue();
    fail(argument, "is no option of this program");
}

void CommandReader::takeOption(const CommandOption& option) {
    m_given.push_back(&option);
    if (!option.value.empty()) {
        if (!takeValue()) return;
    } else if (m_assigned) {
        return fail(m_name, "takes no value");
    }
    option.read(*this);
}

bool CommandReader::takeValue() {
    if (!m_assigned && m_next < m_argc && !std::string_view(m_argv[m_next]).starts_with("--")) {
        m_value = m_argv[m_next++];
    }
    if (m_value.empty()) fail(m_name, "needs a value");
    return !m_value.empty();
}

/// Whether the option at hand was not given before; that is wrong otherwise.
bool CommandReader::isFirst() {
    if (std::count(m_given.begin(), m_given.end(), m_given.back()) == 1) return true;
    fail(m_name, "is given twice");
    return false;
}

void CommandReader::takeText(std::string& text) {
    if (isFirst()) text = m_value;
}

void CommandReader::takeOutput(std::vector<std::string>& outputs) {
    const auto extensions = extensionsIn(m_given.back()->value);
    const std::string extension = '.' + extensionOf(m_value);
    if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
        outputs.emplace_back(m_value);
        return;
    }
    fail(m_name,
         "needs a file name that ends in " + listOf(extensions) + ", not " + std::string(m_value));
}

void CommandReader::takeExport() {
    if (!isStream(m_value)) return takeOutput(m_line.exports);
    m_line.exports.push_back(streamPath(m_value));
}

void CommandReader::takeDump() {
    takeText(m_line.dump);
    if (isStream(m_line.dump)) m_line.dump = streamPath(m_line.dump);
}

void CommandReader::takeFormat() {
    if (!GridWriter::formOf(m_value))
        return fail(m_name, "needs csv or txt, not " + std::string(m_value));
    takeText(m_line.format);
}

void CommandReader::takeTime(CTime& time) {
    const std::string text(m_value);
    const auto read = sessionTime(text);
    if (!read)
        return fail(m_name, "needs a date and time such as 2024/03/31,09:30:00, not " + text);
    if (isFirst()) time = *read;
}

void CommandReader::takeDialog(FirstDialog dialog) {
    if (m_line.dialog != FirstDialog::None) return fail(m_name, "is one dialog too many");
    m_line.dialog = dialog;
}

void CommandReader::takeSize() {
    if (!isFirst()) return;
    const char* const end = m_value.data() + m_value.size();
    const auto width = std::from_chars(m_value.data(), end, m_line.chartWidth);
    const bool cross = width.ptr != end && (*width.ptr == 'x' || *width.ptr == 'X');
    const auto height = cross ? std::from_chars(width.ptr + 1, end, m_line.chartHeight) : width;
    const auto fits = [](int pixels) { return pixels >= 100 && pixels <= 10000; };
    if (!cross || height.ec != std::errc() || height.ptr != end || !fits(m_line.chartWidth) ||
        !fits(m_line.chartHeight)) {
        fail(m_name, "needs width and height such as 1280x720, each from 100 to 10000, not " +
                         std::string(m_value));
    }
}

void CommandReader::takeLayout(std::string (*put)(std::string_view, LayoutWishes&)) {
    if (!isFirst()) return;
    const std::string why = put(m_value, m_line.layout);
    if (!why.empty()) fail(m_name, why);
}

bool CommandReader::isGiven(std::string_view option) const {
    return std::any_of(m_given.begin(), m_given.end(),
                       [option](const CommandOption* each) { return each->name == option; });
}

void CommandReader::checkNeeds() {
    for (const CommandOption* const option : m_given) {
        const auto isNeeded = [option](const CommandOption* each) {
            return names(option->needs, each->name);
        };
        if (option->needs.empty() || std::any_of(m_given.begin(), m_given.end(), isNeeded))
            continue;
        fail(option->name, "needs " + std::string(option->needs) + " beside it");
    }
}

void CommandReader::checkSession() {
    const bool replays = isGiven("--dump-replay");
    const bool session = isGiven("--session");
    if (isGiven("--dsn") && !m_line.file.empty()) fail(m_line.file, "has no use beside --dsn");
    if (session && !m_line.hasOutput() && !replays) {
        fail("--session", "needs --export, --info, --print, --chart or --dump-replay beside it");
    }
    if (replays && !session) fail("--dump-replay", "needs --dsn and --session beside it");
}

void CommandReader::checkDialog() {
    if (m_line.dialog == FirstDialog::None) return;
    const std::string_view option =
        m_line.dialog == FirstDialog::File ? "--open" : "--open-session";
    if (!m_line.wantsWindow()) fail(option, "needs a window, and what stands beside it opens none");
    if (!m_line.file.empty()) fail(m_line.file, "has no use beside " + std::string(option));
}

void CommandReader::checkFile() {
    if (!m_line.file.empty()) {
        if (isGiven("--convert") && !m_line.hasOutput() && !isGiven("--dump"))
            fail(m_line.file, "has no use beside --convert alone");
        return;
    }
    for (const char* const option : {"--info", "--export", "--print", "--chart"})
        if (isGiven(option) && !isGiven("--session")) fail(option, "needs a FILE to load");
    if (isGiven("--dump")) fail("--dump", "needs a FILE to convert");
}

} // namespace pellam
