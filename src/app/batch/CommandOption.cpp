#include "app/batch/CommandOption.h"

#include "app/batch/CommandReader.h"
#include "delimited/layout/LayoutOptions.h"

namespace pellam {

namespace {

constexpr std::string_view kOutput = "--export, --info, --print or --chart";

// The extensions in the name of a value are those that the value may end in.
constexpr CommandOption kOptions[] = {
    {"--help", "", "", "show this text and exit",
     [](CommandReader& reader) { reader.line().help = true; }, "-h"},
    {"--version", "", "", "show the version and exit",
     [](CommandReader& reader) { reader.line().version = true; }, "-v"},
    {"--settings", "INI", "", "use this settings file",
     [](CommandReader& reader) { reader.takeText(reader.line().settings); }},

    {"", "", "", "With a window that asks at once what to load:"},
    {"--open", "", "", "open the dialog for a file",
     [](CommandReader& reader) { reader.takeDialog(FirstDialog::File); }},
    {"--open-session", "", "", "open the dialog for a session of a database",
     [](CommandReader& reader) { reader.takeDialog(FirstDialog::Session); }},

    {"", "", "", "Without a window; messages go to standard error, nothing is asked:"},
    {"--export", "OUT.csv|OUT.txt", "",
     "write the grid as comma- or tab-separated text; an existing file is replaced, '-' is "
     "standard output",
     [](CommandReader& reader) { reader.takeExport(); }},
    {"--format", "csv|txt", "--export", "of what goes to standard output (default: csv)",
     [](CommandReader& reader) { reader.takeFormat(); }},
    {"--info", "", "", "print the facts of FILE and its channels, one \"key: value\" a line",
     [](CommandReader& reader) { reader.line().info = true; }},
    {"--print", "OUT.pdf", "", "print the grid",
     [](CommandReader& reader) { reader.takeOutput(reader.line().prints); }},
    {"--chart", "OUT.png|OUT.svg|OUT.pdf", "", "draw the trend chart of the channels",
     [](CommandReader& reader) { reader.takeOutput(reader.line().charts); }},
    {"--size", "WIDTHxHEIGHT", "--chart",
     "of the chart in pixels, 96 to the inch (default: 1280x720)",
     [](CommandReader& reader) { reader.takeSize(); }},
    {"--channels", "all|PATTERN[,...]", kOutput,
     "take only these channels (default: all); '*' stands for any characters, '?' for one",
     [](CommandReader& reader) { reader.takeText(reader.line().channels); }},
    {"--convert", "DOWNLOAD.txt", "", "convert a tagged text download to a .csv file beside it",
     [](CommandReader& reader) { reader.takeText(reader.line().convert); }},

    {"", "", "", "How a text file is laid out; what is not given is found:"},
    {"--separator", "comma|semicolon|tab|bar|blanks|C", kOutput, "what parts its fields",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::separator); }},
    {"--decimal", ".|,", kOutput, "the decimal mark of its numbers",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::decimal); }},
    {"--headings-line", "N", kOutput, "the line of its headings (0: there is none)",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::headingsLine); }},
    {"--units-line", "N", kOutput, "the line of its units (0: there is none)",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::unitsLine); }},
    {"--data-line", "N", kOutput, "the first line of its data",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::dataLine); }},
    {"--time-columns", "N[,...]|none", kOutput, "the columns of its time, the first is 1",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::timeColumns); }},
    {"--time-format", "FORM", kOutput,
     "how its time is written: 'dd/MM/yyyy HH:mm', epoch-ms, elapsed-s and others",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::timeFormat); }},
    {"--missing", "TEXT[,...]", kOutput, "texts that stand for no value, or none",
     [](CommandReader& reader) { reader.takeLayout(LayoutOptions::missing); }},

    {"", "", "", "A session of an ODBC database instead of FILE ('*' and '?' are wildcards):"},
    {"--dsn", "NAME", "--session or --list-sessions", "the data source",
     [](CommandReader& reader) { reader.takeText(reader.request().dataSource); }},
    {"--list-sessions", "", "--dsn", "print the names of its sessions",
     [](CommandReader& reader) { reader.line().database.list = true; }},
    {"--session", "S", "--dsn", "load this session",
     [](CommandReader& reader) { reader.takeText(reader.request().session); }},
    {"--site", "T", "--session", "take only what this site recorded (default: all)",
     [](CommandReader& reader) { reader.takeText(reader.request().site); }},
    {"--job", "J", "--session", "take only this job",
     [](CommandReader& reader) { reader.takeText(reader.request().job); }},
    {"--schedule", "C", "--session", "take only this schedule",
     [](CommandReader& reader) { reader.takeText(reader.request().schedule); }},
    {"--label", "L", "--session", "take only channels of this label",
     [](CommandReader& reader) { reader.takeText(reader.request().label); }},
    {"--from", "'yyyy/MM/dd,HH:mm:ss'", "--session", "take only what is not before this time",
     [](CommandReader& reader) { reader.takeTime(reader.request().start); }},
    {"--to", "'yyyy/MM/dd,HH:mm:ss'", "--session", "take only what is not after this time",
     [](CommandReader& reader) { reader.takeTime(reader.request().end); }},
    {"--dump-replay", "OUT.dlr", "", "keep the session as a replay file",
     [](CommandReader& reader) { reader.takeOutput(reader.line().database.replays); }},

    {"", "", "", "A binary data file (.dbd) as text:"},
    {"--dump", "OUT.txt", "",
     "write FILE as text ('-' is standard output), all of it or what these choose:",
     [](CommandReader& reader) { reader.takeDump(); }},
    {"--data", "", "--dump", "its readings",
     [](CommandReader& reader) { reader.line().dumpOptions |= CDumpDBD::DumpData; }},
    {"--alarms", "", "--dump", "its alarms",
     [](CommandReader& reader) { reader.line().dumpOptions |= CDumpDBD::DumpAlarms; }},
    {"--header", "", "--dump", "its heading line",
     [](CommandReader& reader) { reader.line().dumpOptions |= CDumpDBD::WriteHeader; }},
    {"--index", "", "--dump", "number the alarms and tell of empty parts",
     [](CommandReader& reader) { reader.line().dumpOptions |= CDumpDBD::IndexMode; }},
};

/// Adds words from a column on, broken so that no line is longer than 80 columns.
void addWrapped(std::string& text, std::string_view words, std::size_t column) {
    static constexpr std::size_t kWidth = 80;
    while (words.size() > kWidth - column) {
        const auto end = words.rfind(' ', kWidth - column);
        text.append(words.substr(0, end)) += '\n' + std::string(column, ' ');
        words.remove_prefix(end + 1);
    }
    text.append(words) += '\n';
}

} // namespace

std::span<const CommandOption> commandOptions() {
    return kOptions;
}

std::string commandHelp() {
    static constexpr std::size_t kHelpColumn = 31;
    std::string text;
    for (const CommandOption& option : kOptions) {
        if (option.name.empty()) {
            text.append("\n").append(option.help) += '\n';
            continue;
        }
        std::string call = "  ";
        if (!option.letter.empty()) call.append(option.letter).append(", ");
        call.append(option.name);
        if (!option.value.empty()) call.append(" ").append(option.value);
        const bool fits = call.size() < kHelpColumn;
        text += call + (fits ? "" : "\n");
        text.append(fits ? kHelpColumn - call.size() : kHelpColumn, ' ');
        addWrapped(text, option.help, kHelpColumn);
    }
    return text;
}

} // namespace pellam
