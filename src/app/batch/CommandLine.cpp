#include "app/batch/CommandLine.h"

#include "database/sessions/SessionTime.h"
#include "logger/CDumpDBD.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace pellam {

namespace {

/// The part of a file's name from its last '.', in lower case; empty when it has none.
std::string extensionOf(std::string_view path) {
    const auto dot = path.rfind('.');
    if (dot == std::string_view::npos || path.find('/', dot) != std::string_view::npos) return {};
    std::string extension(path.substr(dot));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return extension;
}

/// Options of the window system's toolkit, which reads them itself; desktops restart programs with
/// "-session". All have a value.
bool isToolkitOption(std::string_view name) {
    static constexpr std::array<std::string_view, 6> kOptions = {
        "-display", "-geometry", "-platform", "-session", "-style", "-stylesheet"};
    return std::find(kOptions.begin(), kOptions.end(), name) != kOptions.end();
}

/// Goes through the arguments once.
class Parser {
  public:
    Parser(int argc, const char* const* argv) : m_argv(argv), m_argc(argc) {}

    CommandLine parse() {
        while (m_next < m_argc && m_line.error.empty() && !m_line.help && !m_line.version) {
            const std::string_view argument = m_argv[m_next++];
            if (m_onlyFiles || !argument.starts_with('-') || argument == "-") {
                takeFile(argument);
            } else if (argument == "--") {
                m_onlyFiles = true;
            } else {
                takeOption(argument);
            }
        }
        if (m_line.error.empty() && !m_line.help && !m_line.version) checkTogether();
        return std::move(m_line);
    }

  private:
    void fail(std::string_view option, std::string_view why) {
        if (m_line.error.empty()) m_line.error = std::string(option) + ' ' + std::string(why);
    }

    void takeFile(std::string_view file) {
        if (file.empty()) {
            fail("FILE", "has an empty name");
        } else if (!m_line.file.empty()) {
            fail(file, "is one file too many, only one can be loaded");
        } else {
            m_line.file = file;
        }
    }

    void takeOption(std::string_view argument) {
        const auto equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        m_hasValue = equals != std::string_view::npos;
        m_value = m_hasValue ? argument.substr(equals + 1) : std::string_view();
        if (name == "-h" || name == "--help") return takeFlag(name, m_line.help);
        if (name == "-v" || name == "--version") return takeFlag(name, m_line.version);
        if (name == "--info") return takeFlag(name, m_line.info);
        if (name == "--settings") return takeOnce(name, m_line.settings);
        if (name == "--channels") return takeOnce(name, m_line.channels);
        if (name == "--convert") return takeOnce(name, m_line.convert);
        if (name == "--dump") return takeOnce(name, m_line.dump);
        if (name == "--index") return takeDumpOption(name, CDumpDBD::IndexMode);
        if (name == "--data") return takeDumpOption(name, CDumpDBD::DumpData);
        if (name == "--alarms") return takeDumpOption(name, CDumpDBD::DumpAlarms);
        if (name == "--header") return takeDumpOption(name, CDumpDBD::WriteHeader);
        if (name == "--export") return takeOutput(name, m_line.exports, {".csv", ".txt"});
        if (name == "--print") return takeOutput(name, m_line.prints, {".pdf"});
        if (name == "--chart") return takeOutput(name, m_line.charts, {".png", ".svg", ".pdf"});
        if (name == "--size") return takeSize(name);
        if (takeSessionOption(name)) return;
        if (isToolkitOption(name)) return (void)takeValue(name);
        fail(argument, "is no option of this program");
    }

    void takeFlag(std::string_view name, bool& flag) {
        if (m_hasValue) return fail(name, "takes no value");
        flag = true;
    }

    bool takeSessionOption(std::string_view name) {
        SessionOptions& database = m_line.database;
        SessionRequest& request = database.request;
        if (name == "--dsn") return takeOnce(name, request.dataSource), true;
        if (name == "--list-sessions") return takeFlag(name, database.list), true;
        if (name == "--dump-replay") return takeOutput(name, database.replays, {".dlr"}), true;
        if (name == "--session") return takeOnce(name, request.session), true;
        const std::pair<std::string_view, std::string*> texts[] = {
            {"--site", &request.site},   {"--job", &request.job}, {"--schedule", &request.schedule},
            {"--label", &request.label}, {"--from", &m_from},     {"--to", &m_to},
        };
        for (const auto& [option, text] : texts) {
            if (name != option) continue;
            takeOnce(name, *text);
            if (text == &m_from) takeTime(name, m_from, request.start);
            if (text == &m_to) takeTime(name, m_to, request.end);
            m_sessionOption = option;
            return true;
        }
        return false;
    }

    void takeTime(std::string_view name, const std::string& text, CTime& time) {
        const auto read = sessionTime(text);
        if (!read && !text.empty())
            fail(name, "needs a date and time such as 2024/03/31,09:30:00, not " + text);
        time = read.value_or(CTime());
    }

    void takeDumpOption(std::string_view name, CDumpDBD::Option option) {
        bool given = false;
        takeFlag(name, given);
        if (given) m_line.dumpOptions |= option;
        m_dumpOption = name;
    }

    bool takeValue(std::string_view name) {
        if (!m_hasValue && m_next < m_argc && !std::string_view(m_argv[m_next]).starts_with("--")) {
            m_value = m_argv[m_next++];
        }
        if (m_value.empty()) fail(name, "needs a value");
        return !m_value.empty();
    }

    void takeOnce(std::string_view name, std::string& value) {
        if (!takeValue(name)) return;
        if (!value.empty()) return fail(name, "is given twice");
        value = m_value;
    }

    using Extensions = std::initializer_list<std::string_view>;

    void takeOutput(std::string_view name, std::vector<std::string>& outputs,
                    const Extensions& extensions) {
        if (!takeValue(name)) return;
        const std::string extension = extensionOf(m_value);
        if (std::find(extensions.begin(), extensions.end(), extension) == extensions.end()) {
            std::string why = "needs a file name that ends in ";
            for (const std::string_view& each : extensions) {
                if (&each != extensions.begin())
                    why += &each + 1 == extensions.end() ? " or " : ", ";
                why += each;
            }
            return fail(name, why + ", not " + std::string(m_value));
        }
        outputs.emplace_back(m_value);
    }

    void takeSize(std::string_view name) {
        if (!takeValue(name)) return;
        if (m_hasSize) return fail(name, "is given twice");
        m_hasSize = true;
        const char* const end = m_value.data() + m_value.size();
        const auto width = std::from_chars(m_value.data(), end, m_line.chartWidth);
        const bool cross = width.ptr != end && (*width.ptr == 'x' || *width.ptr == 'X');
        const auto height = cross ? std::from_chars(width.ptr + 1, end, m_line.chartHeight) : width;
        const auto fits = [](int pixels) { return pixels >= 100 && pixels <= 10000; };
        if (!cross || height.ec != std::errc() || height.ptr != end || !fits(m_line.chartWidth) ||
            !fits(m_line.chartHeight)) {
            fail(name, "needs width and height such as 1280x720, each from 100 to 10000, not " +
                           std::string(m_value));
        }
    }

    void checkSession() {
        const SessionOptions& database = m_line.database;
        const SessionRequest& request = database.request;
        const bool wanted = m_line.hasOutput() || !database.replays.empty();
        if (request.dataSource.empty()) {
            if (!request.session.empty()) fail("--session", "needs --dsn beside it");
            if (database.list) fail("--list-sessions", "needs --dsn beside it");
        } else if (!m_line.file.empty()) {
            fail(m_line.file, "has no use beside --dsn");
        } else if (request.session.empty() && !database.list) {
            fail("--dsn", "needs --session or --list-sessions beside it");
        } else if (!request.session.empty() && !wanted) {
            fail("--session",
                 "needs --export, --info, --print, --chart or --dump-replay beside it");
        }
        if (!request.session.empty()) return;
        if (!database.replays.empty()) fail("--dump-replay", "needs --dsn and --session beside it");
        if (!m_sessionOption.empty()) fail(m_sessionOption, "needs --session beside it");
    }

    void checkTogether() {
        checkSession();
        if (m_line.hasOutput() && m_line.file.empty() && m_line.database.request.session.empty()) {
            fail(m_line.info               ? "--info"
                 : !m_line.exports.empty() ? "--export"
                 : !m_line.prints.empty()  ? "--print"
                                           : "--chart",
                 "needs a FILE to load");
        }
        if (!m_line.channels.empty() && !m_line.hasOutput()) {
            fail("--channels", "needs --export, --info, --print or --chart beside it");
        }
        if (m_hasSize && m_line.charts.empty()) fail("--size", "needs --chart beside it");
        if (!m_line.dump.empty() && m_line.file.empty()) fail("--dump", "needs a FILE to convert");
        if (m_line.dump.empty() && !m_dumpOption.empty())
            fail(m_dumpOption, "needs --dump beside it");
        const bool usesFile = m_line.hasOutput() || !m_line.dump.empty();
        if (!m_line.convert.empty() && !m_line.file.empty() && !usesFile) {
            fail(m_line.file, "has no use beside --convert alone");
        }
    }

    CommandLine m_line;
    const char* const* m_argv;
    int m_argc;
    int m_next = 1;
    bool m_onlyFiles = false;
    bool m_hasSize = false;
    std::string m_from; ///< as given, and the next
    std::string m_to;
    std::string_view m_sessionOption; ///< the last of those that go with --session
    std::string_view m_dumpOption;    ///< the last of those that go with --dump
    bool m_hasValue = false;          ///< the option came as --option=value
    std::string_view m_value;         ///< value of the option at hand
};

} // namespace

CommandLine CommandLine::parse(int argc, const char* const* argv) {
    return Parser(argc, argv).parse();
}

bool CommandLine::hasOutput() const {
    return info || !exports.empty() || !prints.empty() || !charts.empty();
}

bool CommandLine::wantsWindow() const {
    return error.empty() && !help && !version && !hasOutput() && convert.empty() && dump.empty() &&
           database.request.dataSource.empty();
}

std::string CommandLine::usage() {
    return "usage: pellam [OPTIONS] [FILE]; pellam --help lists the options";
}

std::string CommandLine::helpText() {
    return R"(pellam [OPTIONS] [FILE]        opens the window, and FILE in it when named

  -h, --help                   show this text and exit
  -v, --version                show the version and exit
  --settings INI               use this settings file

Without a window; messages go to standard error, nothing is asked:
  --export OUT.csv|OUT.txt     write the grid as comma- or tab-separated text;
                               an existing file is replaced
  --info                       print the facts of FILE and its channels,
                               one "key: value" a line
  --print OUT.pdf              print the grid
  --chart OUT.png|OUT.svg|OUT.pdf
                               draw the trend chart of the channels
  --size WIDTHxHEIGHT          of the chart in pixels, 96 to the inch
                               (default: 1280x720)
  --channels all|PATTERN[,...] take only these channels (default: all);
                               '*' stands for any characters, '?' for one
  --convert DOWNLOAD.txt       convert a tagged text download to a .csv file
                               beside it
  --dsn NAME --session S       a session stored in an ODBC database instead of
                               FILE; '*' and '?' are wildcards here and in:
  --site T  --job J  --schedule C  --label L
                               take only what fits these (default: all)
  --from, --to 'yyyy/MM/dd,HH:mm:ss'
                               take only this range of times
  --dump-replay OUT.dlr        keep the session as a replay file
  --list-sessions              print the names of the sessions of --dsn
  --dump OUT.txt               write a binary data file (.dbd) as text, all of
                               it or what these choose:
  --data  --alarms  --header   its readings, its alarms, its heading line
  --index                      number the alarms and tell of empty parts
Several of these may be given in one call; FILE or the session is
loaded once.

Exit status: 0 done; 1 a failure was reported, or nothing could be loaded or
written; 2 wrong usage.
)";
}

} // namespace pellam
