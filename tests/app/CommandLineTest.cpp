#include "app/batch/CommandLine.h"
#include "app/batch/PatternChooser.h"
#include "app/batch/TerminalProgress.h"

#include <sstream>

namespace pellam {
namespace {

std::string shown(const CTime& time) {
    char text[48];
    char* end = time.writeDate(text);
    *end++ = ',';
    return {text, time.writeTime(end)};
}

/// Parses arguments separated by blanks; "''" stands for an empty one.
CommandLine parse(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words = {"pellam"};
    for (std::string word; stream >> word;)
        words.push_back(word == "''" ? "" : word);
    std::vector<const char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(word.c_str());
    return CommandLine::parse(static_cast<int>(arguments.size()), arguments.data());
}

std::string print(const CommandLine& line) {
    if (!line.error.empty()) return line.error;
    std::string text;
    const auto add = [&text](const std::string& word) { text += (text.empty() ? "" : " ") + word; };
    if (line.wantsWindow()) add("window");
    if (line.dialog == FirstDialog::File) add("asks for a file");
    if (line.dialog == FirstDialog::Session) add("asks for a session");
    if (line.help) add("help");
    if (line.version) add("version");
    if (line.info) add("info");
    for (const std::string& path : line.exports)
        add("export:" + path);
    for (const std::string& path : line.prints)
        add("print:" + path);
    for (const std::string& path : line.charts) {
        add("chart:" + path + '@' + std::to_string(line.chartWidth) + 'x' +
            std::to_string(line.chartHeight));
    }
    if (!line.convert.empty()) add("convert:" + line.convert);
    if (!line.dump.empty()) add("dump:" + line.dump + '@' + std::to_string(line.dumpOptions));
    if (!line.channels.empty()) add("channels:" + line.channels);
    const LayoutWishes& layout = line.layout;
    if (layout.separator) add("separator:" + std::string(1, *layout.separator));
    if (layout.decimal) add("decimal:" + std::string(1, *layout.decimal));
    for (const auto& number : {layout.headingsLine, layout.unitsLine, layout.dataLine})
        if (number) add("line:" + std::to_string(*number));
    for (const std::size_t column : layout.timeColumns.value_or(std::vector<std::size_t>()))
        add("column:" + std::to_string(column));
    if (!layout.timeFormat.empty()) add("time:" + layout.timeFormat);
    for (const std::string& missing : layout.missing.value_or(std::vector<std::string>()))
        add("missing:" + missing);
    const SessionRequest& from = line.database.request;
    for (const std::string& given :
         {from.dataSource, from.session, from.site, from.job, from.schedule, from.label})
        if (!given.empty()) add("db:" + given);
    for (const CTime& time : {from.start, from.end})
        if (!time.isNull()) add("time:" + shown(time));
    if (line.database.list) add("list");
    for (const std::string& path : line.database.replays)
        add("replay:" + path);
    if (!line.settings.empty()) add("settings:" + line.settings);
    if (!line.file.empty()) add("file:" + line.file);
    return text;
}

TEST(CommandLine, IsReadAs) {
    // expected: what was read, or what is wrong
    const Table<const char*, const char*> cases = {
        {"", "window"},
        {"a.dlr", "window file:a.dlr"},
        {"--settings s.ini a.dlr", "window settings:s.ini file:a.dlr"},
        {"--info --separator semicolon --decimal , --headings-line 0 --units-line 4 --data-line 5 "
         "--time-columns 2,3 --time-format dd/MM/yyyy --missing -9999,NaN a.txt",
         "info separator:; decimal:, line:0 line:4 line:5 column:1 column:2 time:dd/MM/yyyy "
         "missing:-9999 missing:NaN file:a.txt"},
        {"--info --separator no a.txt",
         "--separator needs comma, semicolon, tab, bar, blanks or a character, not no"},
        {"--info --decimal ; a.txt", "--decimal needs '.' or ',', not ;"},
        {"--info --data-line 0 a.txt", "--data-line needs the number of a line, not 0"},
        {"--info --time-columns 1,x a.txt",
         "--time-columns needs numbers of columns such as 1,2 or none, not 1,x"},
        {"--info --time-format whenever a.txt", "--time-format needs a form such as dd/MM/yyyy "
                                                "HH:mm, epoch-ms or elapsed-s, not whenever"},
        {"--separator tab a.txt",
         "--separator needs --export, --info, --print or --chart beside it"},
        {"--export=a=b.csv x", "export:a=b.csv file:x"},
        {"x --info", "info file:x"},
        {"--export a.csv --export b.TXT --print c.Pdf --info --channels A*,B? x",
         "info export:a.csv export:b.TXT print:c.Pdf channels:A*,B? file:x"},
        {"--chart a.png --size=640x480 --chart b.svg x",
         "chart:a.png@640x480 chart:b.svg@640x480 file:x"},
        {"--chart a.pdf x", "chart:a.pdf@1280x720 file:x"},
        {"--convert d.txt", "convert:d.txt"},
        {"--convert d.txt --info x", "info convert:d.txt file:x"},
        {"--dump o.txt a.dbd", "dump:o.txt@0 file:a.dbd"},
        {"--index --alarms --dump=o --header --data a", "dump:o@15 file:a"},
        {"--dump o a --convert d.txt", "convert:d.txt dump:o@0 file:a"},
        {"--dsn D --session=S* --site T --job J --schedule C --label L --from "
         "2024/03/01,10:00:00 --to 2024/03/02,10:00:00 --info --dump-replay a.dlr",
         "info db:D db:S* db:T db:J db:C db:L time:2024/03/01,10:00:00 time:2024/03/02,10:00:00 "
         "replay:a.dlr"},
        {"--dsn D --list-sessions", "db:D list"},
        {"--info -- --info", "info file:--info"},
        {"-", "window file:-"},
        {"-h --nonsense", "help"},
        {"--version", "version"},
        {"-platform offscreen -style=Fusion a", "window file:a"},
        {"--exprot a.csv x", "--exprot is no option of this program"},
        {"--exprot --help", "--exprot is no option of this program"},
        {"--open", "window asks for a file"},
        {"--open-session --settings s.ini", "window asks for a session settings:s.ini"},
        {"--open a.dlr", "a.dlr has no use beside --open"},
        {"--open --open-session", "--open-session is one dialog too many"},
        {"--open --export a.csv x", "--open needs a window, and what stands beside it opens none"},
        {"-- file:///a%25b%20c/%2D-x.dlr", "window file:/a%b c/--x.dlr"},
        {"-- http://host/a.dlr", "window file:http://host/a.dlr"},
        {"a b", "b is one file too many, only one can be loaded"},
        {"''", "FILE has an empty name"},
        {"x --export", "--export needs a value"},
        {"x --channels=", "--channels needs a value"},
        {"--settings --info x", "--settings needs a value"},
        {"--info=yes x", "--info takes no value"},
        {"--convert a.txt --convert b.txt", "--convert is given twice"},
        {"--settings \xE4.ini \xE4", "window settings:\xE4.ini file:\xE4"},
        {"--export a.xls x", "--export needs a file name that ends in .csv or .txt, not a.xls"},
        {"--export a.csv/b x", "--export needs a file name that ends in .csv or .txt, not a.csv/b"},
        {"--print a.png x", "--print needs a file name that ends in .pdf, not a.png"},
        {"--info", "--info needs a FILE to load"},
        {"--export a.csv", "--export needs a FILE to load"},
        {"--channels A x", "--channels needs --export, --info, --print or --chart beside it"},
        {"--chart a.gif x", "--chart needs a file name that ends in .png, .svg or .pdf, not a.gif"},
        {"--size 640x480 --info x", "--size needs --chart beside it"},
        {"--chart a.png --size 640 x",
         "--size needs width and height such as 1280x720, each from 100 to 10000, not 640"},
        {"--chart a.png --size 640x99 x",
         "--size needs width and height such as 1280x720, each from 100 to 10000, not 640x99"},
        {"--chart a.png --size 640x480px x",
         "--size needs width and height such as 1280x720, each from 100 to 10000, not "
         "640x480px"},
        {"--session S --info", "--session needs --dsn beside it"},
        {"--list-sessions", "--list-sessions needs --dsn beside it"},
        {"--dsn D", "--dsn needs --session or --list-sessions beside it"},
        {"--dsn D --session S",
         "--session needs --export, --info, --print, --chart or --dump-replay beside it"},
        {"--dsn D --session S --info a.csv", "a.csv has no use beside --dsn"},
        {"--site T --info a.csv", "--site needs --session beside it"},
        {"--dump-replay a.dlr a.csv", "--dump-replay needs --dsn and --session beside it"},
        {"--dump-replay a.txt", "--dump-replay needs a file name that ends in .dlr, not a.txt"},
        {"--dsn D --session S --info --from 2024/03/01",
         "--from needs a date and time such as 2024/03/31,09:30:00, not 2024/03/01"},
        {"--dsn D --session S --info --to 2023/02/29,10:00:00",
         "--to needs a date and time such as 2024/03/31,09:30:00, not 2023/02/29,10:00:00"},
        {"--dsn D --session S --dump o.txt --info", "--dump needs a FILE to convert"},
        {"--dump o.txt", "--dump needs a FILE to convert"},
        {"--info --alarms x", "--alarms needs --dump beside it"},
        {"--convert a.txt x", "x has no use beside --convert alone"},
    };
    for (const auto& [arguments, expected] : cases)
        EXPECT_EQ(print(parse(arguments)), expected) << arguments;
}

TEST(CommandLine, HelpNamesEveryOption) {
    std::istringstream options(
        "help version settings export info print channels convert chart size "
        "dump index data alarms header dsn session site job schedule label "
        "from to dump-replay list-sessions");
    const std::string help = CommandLine::helpText();
    for (std::string option; options >> option;)
        EXPECT_NE(help.find("--" + option), std::string::npos) << option;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 80U) << line;
}

TEST(PatternChooser, ChoosesInTheOrderOfTheFile) {
    // expected: those chosen, separated by blanks
    const Table<const char*, const char*, const char*> cases = {
        {"none is all", "", "A.Temp.Ave(degC){0} A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C A{b}"},
        {"all", "all", "A.Temp.Ave(degC){0} A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C A{b}"},
        {"whole label", "A.Temp.Ave(degC){0}", "A.Temp.Ave(degC){0}"},
        {"without number", "A.Temp.Ave(degC)", "A.Temp.Ave(degC){0}"},
        {"number", "*{0}", "A.Temp.Ave(degC){0} B.Höhe(m){0}"},
        {"part does not fit", "A.Temp", ""},
        {"braces without a number belong to the name", "A", ""},
        {"star tries again", "*.M*C)", "A.Temp.Max(degC){12}"},
        {"question mark is one character", "B.H?he(m)", "B.Höhe(m){0}"},
        {"question mark is not none", "B{2}C?", ""},
        {"order of the file", ",B*,A*Max*,", "A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C"},
        {"case counts", "a*", ""},
        {"empty patterns", ",", ""},
    };
    for (const auto& [name, patterns, expected] : cases) {
        PatternChooser chooser(patterns);
        std::string chosen;
        for (const std::string& label : chooser.choose(
                 {"A.Temp.Ave(degC){0}", "A.Temp.Max(degC){12}", "B.Höhe(m){0}", "B{2}C", "A{b}"}))
            chosen += (chosen.empty() ? "" : " ") + label;
        EXPECT_EQ(chosen, expected) << name;
    }
}

TEST(TerminalProgressTest, Bar) {
    EXPECT_EQ(TerminalProgress::bar(1, 1, 100, "t"), "[                    ]   0 % t");
    EXPECT_EQ(TerminalProgress::bar(26, 1, 101, "t"), "[#####               ]  25 % t");
    EXPECT_EQ(TerminalProgress::bar(200, 1, 100, "t"), "[####################] 100 % t");
    EXPECT_EQ(TerminalProgress::bar(0, 1, 0, "t"), "[                    ]   0 % t");
}

} // namespace
} // namespace pellam
