#include "app/pages/ManPage.h"

#include "app/batch/CommandLine.h"

namespace pellam {

namespace {

/// A text as roff shows it character for character.
std::string roff(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '\\':
            escaped += "\\e";
            break;
        case '-':
            escaped += "\\-";
            break;
        case '\'':
            escaped += "\\(aq";
            break;
        case '"':
            escaped += "\\(dq";
            break;
        default:
            escaped += c;
        }
    }
    if (escaped.starts_with('.')) escaped.insert(0, "\\&");
    return escaped;
}

std::string bold(std::string_view text) {
    return "\\fB" + roff(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + roff(text) + "\\fR";
}

std::string optionText(const CommandOption& option) {
    std::string text = ".TP\n";
    if (!option.letter.empty()) text += bold(option.letter) + ", ";
    text += bold(option.name);
    if (!option.value.empty()) text += ' ' + italic(option.value);
    text += '\n' + roff(option.help);
    if (!option.needs.empty()) text += " (with " + roff(option.needs) + ')';
    return text + '\n';
}

std::string statusTable() {
    std::string text;
    std::string lines = CommandLine::statusText();
    for (std::size_t end = 0; (end = lines.find('\n')) != std::string::npos;
         lines.erase(0, end + 1)) {
        const auto blank = lines.find(' ');
        text += ".TP\n" + bold(lines.substr(0, blank)) + '\n' +
                roff(lines.substr(blank + 1, end - blank - 1)) + '\n';
    }
    return text;
}

constexpr std::string_view kDescription = R"(.SH NAME
pellam \- show, export and print what data loggers recorded
.SH SYNOPSIS
.B pellam
.RI [ OPTIONS ]
.RI [ FILE ]
.SH DESCRIPTION
Pellam opens the replay files, binary data files and text files of data loggers, and sessions that are
stored in a database, shows them on a grid and as a chart, and exports and prints them.
Without an option that asks for an output it opens its window, and
.I FILE
in it when one is named.
.PP
.I FILE
is the path of a file or a
.B file:
URL of this computer; write
.B ./
before a name that begins with
.BR file: .
Behind
.B \-\-
nothing is taken for an option.
.SH OPTIONS
)";

constexpr std::string_view kEnd = R"(.SH ENVIRONMENT
.TP
.BR PELLAM_DB_USER ", " PELLAM_DB_PASSWORD
for a data source whose settings have no user or password
.TP
.BR ODBCINI
the user's data sources, instead of
.I ~/.odbc.ini
.SH FILES
.TP
.I ~/.config/Korvane/Pellam.ini
the settings, when
.B \-\-settings
names no others
.TP
.I /usr/share/pellam/samples
a sample of each kind of file
.SH EXAMPLES
.nf
pellam \-\-info /usr/share/pellam/samples/weather\-mast.dlr
pellam \-\-export mast.csv /usr/share/pellam/samples/weather\-mast.dlr
pellam \-\-chart mast.png /usr/share/pellam/samples/weather\-mast.dlr
.fi
.SH SEE ALSO
.I /usr/share/doc/pellam/formats.md
has the formats of files,
.I /usr/share/doc/pellam/databases.md
the tables of databases. The key F1 opens the help of the window.
)";

} // namespace

std::string manPage(std::span<const CommandOption> options, std::string_view version,
                    std::string_view date) {
    std::string page = ".TH PELLAM 1 " + roff(date) + " \"Pellam " + roff(version) +
                       "\" \"User Commands\"\n" + std::string(kDescription);
    for (const CommandOption& option : options)
        page += option.name.empty() ? ".PP\n" + roff(option.help) + '\n' : optionText(option);
    page +=
        ".PP\nSeveral outputs may be asked for in one call; the file or session is loaded once.\n"
        ".SH EXIT STATUS\n";
    return page + statusTable() + std::string(kEnd);
}

} // namespace pellam
