#include "app/CommandLine.h"
#include "app/PatternChooser.h"
#include "app/TerminalProgress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pellam {
namespace {

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
    const SessionOptions& from = line.database;
    for (const std::string& given : {from.dsn, from.session, from.site, from.job, from.schedule,
                                     from.label, from.from, from.to})
        if (!given.empty()) add("db:" + given);
    if (from.list) add("list");
    for (const std::string& path : from.replays)
        add("replay:" + path);
    if (!line.settings.empty()) add("settings:" + line.settings);
    if (!line.file.empty()) add("file:" + line.file);
    return text;
}

struct Case {
    const char* name;
    const char* arguments;
    const char* expected;
};

class CommandLineTest : public testing::TestWithParam<Case> {};

TEST_P(CommandLineTest, IsReadAs) {
    EXPECT_EQ(print(parse(GetParam().arguments)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Right, CommandLineTest,
    testing::Values(
        Case{"nothing", "", "window"}, Case{"file", "a.dlr", "window file:a.dlr"},
        Case{"settings", "--settings s.ini a.dlr", "window settings:s.ini file:a.dlr"},
        Case{"value_behind_equals", "--export=a=b.csv x", "export:a=b.csv file:x"},
        Case{"file_first", "x --info", "info file:x"},
        Case{"several_outputs",
             "--export a.csv --export b.TXT --print c.Pdf --info --channels A*,B? x",
             "info export:a.csv export:b.TXT print:c.Pdf channels:A*,B? file:x"},
        Case{"charts", "--chart a.png --size=640x480 --chart b.svg x",
             "chart:a.png@640x480 chart:b.svg@640x480 file:x"},
        Case{"chart_of_the_usual_size", "--chart a.pdf x", "chart:a.pdf@1280x720 file:x"},
        Case{"convert_alone", "--convert d.txt", "convert:d.txt"},
        Case{"convert_and_output", "--convert d.txt --info x", "info convert:d.txt file:x"},
        Case{"dump", "--dump o.txt a.dbd", "dump:o.txt@0 file:a.dbd"},
        Case{"dump_of_parts", "--index --alarms --dump=o --header --data a", "dump:o@15 file:a"},
        Case{"dump_and_convert", "--dump o a --convert d.txt", "convert:d.txt dump:o@0 file:a"},
        Case{"session",
             "--dsn D --session=S* --site T --job J --schedule C --label L --from "
             "2024/03/01,10:00:00 --to 2024/03/02,10:00:00 --info --dump-replay a.dlr",
             "info db:D db:S* db:T db:J db:C db:L db:2024/03/01,10:00:00 db:2024/03/02,10:00:00 "
             "replay:a.dlr"},
        Case{"list_of_sessions", "--dsn D --list-sessions", "db:D list"},
        Case{"dashes_end_options", "--info -- --info", "info file:--info"},
        Case{"single_dash_is_a_file", "-", "window file:-"},
        Case{"help_wins_over_what_follows", "-h --nonsense", "help"},
        Case{"version", "--version", "version"},
        Case{"toolkit", "-platform offscreen -style=Fusion a", "window file:a"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Wrong, CommandLineTest,
    testing::Values(
        Case{"unknown", "--exprot a.csv x", "--exprot is no option of this program"},
        Case{"unknown_before_help", "--exprot --help", "--exprot is no option of this program"},
        Case{"two_files", "a b", "b is one file too many, only one can be loaded"},
        Case{"empty_file", "''", "FILE has an empty name"},
        Case{"no_value", "x --export", "--export needs a value"},
        Case{"empty_value", "x --channels=", "--channels needs a value"},
        Case{"option_for_value", "--settings --info x", "--settings needs a value"},
        Case{"value_for_flag", "--info=yes x", "--info takes no value"},
        Case{"twice", "--convert a.txt --convert b.txt", "--convert is given twice"},
        Case{"extension", "--export a.xls x",
             "--export needs a file name that ends in .csv or .txt, not a.xls"},
        Case{"extension_of_folder", "--export a.csv/b x",
             "--export needs a file name that ends in .csv or .txt, not a.csv/b"},
        Case{"print_extension", "--print a.png x",
             "--print needs a file name that ends in .pdf, not a.png"},
        Case{"no_file", "--info", "--info needs a FILE to load"},
        Case{"no_file_to_export", "--export a.csv", "--export needs a FILE to load"},
        Case{"channels_in_window", "--channels A x",
             "--channels needs --export, --info, --print or --chart beside it"},
        Case{"chart_extension", "--chart a.gif x",
             "--chart needs a file name that ends in .png, .svg or .pdf, not a.gif"},
        Case{"size_alone", "--size 640x480 --info x", "--size needs --chart beside it"},
        Case{"size_of_one_number", "--chart a.png --size 640 x",
             "--size needs width and height such as 1280x720, each from 100 to 10000, not 640"},
        Case{"size_too_small", "--chart a.png --size 640x99 x",
             "--size needs width and height such as 1280x720, each from 100 to 10000, not 640x99"},
        Case{"size_with_words", "--chart a.png --size 640x480px x",
             "--size needs width and height such as 1280x720, each from 100 to 10000, not "
             "640x480px"},
        Case{"session_without_dsn", "--session S --info", "--session needs --dsn beside it"},
        Case{"list_without_dsn", "--list-sessions", "--list-sessions needs --dsn beside it"},
        Case{"dsn_alone", "--dsn D", "--dsn needs --session or --list-sessions beside it"},
        Case{"session_without_output", "--dsn D --session S",
             "--session needs --export, --info, --print, --chart or --dump-replay beside it"},
        Case{"dsn_and_file", "--dsn D --session S --info a.csv", "a.csv has no use beside --dsn"},
        Case{"session_of_a_file", "--site T --info a.csv", "--site needs --session beside it"},
        Case{"replay_of_a_file", "--dump-replay a.dlr a.csv",
             "--dump-replay needs --dsn and --session beside it"},
        Case{"replay_extension", "--dump-replay a.txt",
             "--dump-replay needs a file name that ends in .dlr, not a.txt"},
        Case{"no_time", "--dsn D --session S --info --from 2024/03/01",
             "--from needs a date and time such as 2024/03/31,09:30:00, not 2024/03/01"},
        Case{"no_day", "--dsn D --session S --info --to 2023/02/29,10:00:00",
             "--to needs a date and time such as 2024/03/31,09:30:00, not 2023/02/29,10:00:00"},
        Case{"binary_dump_of_a_session", "--dsn D --session S --dump o.txt --info",
             "--dump needs a FILE to convert"},
        Case{"dump_without_file", "--dump o.txt", "--dump needs a FILE to convert"},
        Case{"part_without_dump", "--info --alarms x", "--alarms needs --dump beside it"},
        Case{"file_beside_convert", "--convert a.txt x", "x has no use beside --convert alone"}),
    [](const auto& row) { return row.param.name; });

TEST(CommandLineHelp, NamesEveryOption) {
    const std::string help = CommandLine::helpText();
    for (const char* option :
         {"--help",  "--version",  "--settings", "--export",      "--info",
          "--print", "--channels", "--convert",  "--chart",       "--size",
          "--dump",  "--index",    "--data",     "--alarms",      "--header",
          "--dsn",   "--session",  "--site",     "--job",         "--schedule",
          "--label", "--from",     "--to",       "--dump-replay", "--list-sessions"}) {
        EXPECT_NE(help.find(option), std::string::npos) << option;
    }
}

struct Match {
    const char* name;
    const char* patterns;
    const char* expected; ///< those chosen, separated by blanks
};

class PatternChooserTest : public testing::TestWithParam<Match> {};

TEST_P(PatternChooserTest, ChoosesInTheOrderOfTheFile) {
    PatternChooser chooser(GetParam().patterns);
    std::string chosen;
    for (const std::string& label :
         chooser.choose({"A.Temp.Ave(degC){0}", "A.Temp.Max(degC){12}", "B.Höhe(m){0}", "B{2}C"})) {
        chosen += (chosen.empty() ? "" : " ") + label;
    }
    EXPECT_EQ(chosen, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, PatternChooserTest,
    testing::Values(
        Match{"none_is_all", "", "A.Temp.Ave(degC){0} A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C"},
        Match{"all", "all", "A.Temp.Ave(degC){0} A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C"},
        Match{"whole_label", "A.Temp.Ave(degC){0}", "A.Temp.Ave(degC){0}"},
        Match{"without_number", "A.Temp.Ave(degC)", "A.Temp.Ave(degC){0}"},
        Match{"number", "*{0}", "A.Temp.Ave(degC){0} B.Höhe(m){0}"},
        Match{"part_does_not_fit", "A.Temp", ""},
        Match{"star_tries_again", "*.M*C)", "A.Temp.Max(degC){12}"},
        Match{"question_mark_is_one_character", "B.H?he(m)", "B.Höhe(m){0}"},
        Match{"question_mark_is_not_none", "B{2}C?", ""},
        Match{"order_of_the_file", ",B*,A*Max*,", "A.Temp.Max(degC){12} B.Höhe(m){0} B{2}C"},
        Match{"case_counts", "a*", ""}, Match{"empty_patterns", ",", ""}),
    [](const auto& row) { return row.param.name; });

TEST(TerminalProgressTest, Bar) {
    EXPECT_EQ(TerminalProgress::bar(1, 1, 100, "t"), "[                    ]   0 % t");
    EXPECT_EQ(TerminalProgress::bar(26, 1, 101, "t"), "[#####               ]  25 % t");
    EXPECT_EQ(TerminalProgress::bar(200, 1, 100, "t"), "[####################] 100 % t");
    EXPECT_EQ(TerminalProgress::bar(0, 1, 0, "t"), "[                    ]   0 % t");
}

} // namespace
} // namespace pellam
