#include "app/pages/ManPage.h"
#include "app/pages/ShellCompletion.h"

#include "ScratchFolder.h"

#include <cstdlib>

namespace pellam {
namespace {

constexpr CommandOption kOdd[] = {
    {"", "", "", "The user's \\ own:"},
    {"--odd", "csv|it's", "--other", ".starts with a point, 'x': [y] \"z\" \\n"},
};

/// What bash offers for the last word of a command line, in one line.
std::string offered(const ScratchFolder& folder, const std::string& words) {
    folder.write("completion", bashCompletion(commandOptions()));
    const std::string script = "cd '" + folder.path() +
                               "/files' && . ../completion && compopt() { :; } && "
                               "COMP_WORDS=(" +
                               words +
                               ") && COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && "
                               "_pellam && printf '%s|' \"${COMPREPLY[@]}\" > ../offered";
    folder.write("script", script);
    EXPECT_EQ(std::system(("bash '" + folder.path("script") + "'").c_str()), 0) << words;
    return folder.read("offered");
}

TEST(CommandPages, EveryOptionIsInEveryPage) {
    const std::string man = manPage(commandOptions(), "1.2.3", "2026-01-02");
    const std::string bash = bashCompletion(commandOptions());
    const std::string zsh = zshCompletion(commandOptions());
    EXPECT_TRUE(man.starts_with(".TH PELLAM 1 2026\\-01\\-02 \"Pellam 1.2.3\"")) << man;
    for (const CommandOption& option : commandOptions()) {
        std::string roff(option.name);
        for (std::size_t at = 0; (at = roff.find('-', at)) != std::string::npos; at += 2)
            roff.insert(at, "\\");
        EXPECT_NE(man.find(roff), std::string::npos) << option.name;
        EXPECT_NE(bash.find(option.name), std::string::npos) << option.name;
        EXPECT_NE(zsh.find(option.name), std::string::npos) << option.name;
    }
}

TEST(CommandPages, TextsStandAsTheyAre) {
    EXPECT_NE(
        manPage(kOdd, "1", "d")
            .find(
                ".PP\nThe user\\(aqs \\e own:\n.TP\n\\fB\\-\\-odd\\fR \\fIcsv|it\\(aqs\\fR\n"
                "\\&.starts with a point, \\(aqx\\(aq: [y] \\(dqz\\(dq \\en (with \\-\\-other)\n"),
        std::string::npos);
    EXPECT_NE(
        zshCompletion(kOdd).find("'--odd=[.starts with a point, '\\''x'\\''\\: \\[y\\] \"z\" \\\\n]"
                                 ":csv|it'\\''s:(csv it'\\''s)'"),
        std::string::npos)
        << zshCompletion(kOdd);
}

TEST(CommandPages, BashOffersWhatFits) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder.path("files"));
    folder.write("files/my mast.dlr", "");
    folder.write("files/--x.csv", "");
    const Table<const char*, const char*> cases = {
        {"pellam --exp", "--export|"},      {"pellam --open", "--open|--open-session|"},
        {"pellam my", "my mast.dlr|"},      {"pellam --export ''", "my mast.dlr|--x.csv|"},
        {"pellam --format ''", "csv|txt|"}, {"pellam --format = t", "txt|"},
        {"pellam --format =", "csv|txt|"},  {"pellam --channels a", "all|"},
        {"pellam --dsn ''", "|"},           {"pellam --nonsense", "|"},
    };
    for (const auto& [words, expected] : cases) {
        std::string found = offered(folder, words);
        if (found == "--x.csv|my mast.dlr|") found = "my mast.dlr|--x.csv|"; // in any order
        EXPECT_EQ(found, expected) << words;
    }
}

} // namespace
} // namespace pellam
