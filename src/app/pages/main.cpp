#include "app/pages/ManPage.h"
#include "app/pages/ShellCompletion.h"

#include <cstdio>
#include <string_view>

/// Writes one of the texts about the command line to standard output:
/// pellam_pages man VERSION DATE, pellam_pages bash, pellam_pages zsh.
int main(int argc, char** argv) {
    using namespace pellam;
    const std::string_view wanted = argc > 1 ? argv[1] : "";
    std::string text;
    if (wanted == "man" && argc == 4)
        text = manPage(commandOptions(), argv[2], argv[3]);
    else if (wanted == "bash")
        text = bashCompletion(commandOptions());
    else if (wanted == "zsh")
        text = zshCompletion(commandOptions());
    if (text.empty()) {
        std::fputs("usage: pellam_pages man VERSION DATE | bash | zsh\n", stderr);
        return 2;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return written && std::fflush(stdout) == 0 ? 0 : 1;
}
