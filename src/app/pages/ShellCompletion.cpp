#include "app/pages/ShellCompletion.h"

#include <algorithm>
#include <string_view>

namespace pellam {

namespace {

bool isPlaceholder(std::string_view word) {
    return std::any_of(word.begin(), word.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || c == '['; });
}

/// The words of "csv|txt" or "all|PATTERN" that stand for themselves, each behind a blank.
std::string choicesIn(std::string_view value) {
    std::string choices;
    while (!value.empty()) {
        const std::string_view word = value.substr(0, value.find('|'));
        if (!isPlaceholder(word)) choices.append(" ").append(word);
        value.remove_prefix(std::min(word.size() + 1, value.size()));
    }
    return choices;
}

/// Whether a value such as "OUT.csv|OUT.txt" or "INI" is the name of a file.
bool isFile(std::string_view value) {
    return value == "INI" || value.find("OUT.") != std::string_view::npos ||
           value.find("DOWNLOAD.") != std::string_view::npos;
}

/// A text within single quotes of a shell.
std::string quoted(std::string_view text) {
    std::string out = "'";
    for (const char c : text)
        c == '\'' ? out += "'\\''" : out += c;
    return out + '\'';
}

/// A text within one of the words that zsh's _arguments takes.
std::string inArguments(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') out += '\\';
        out += c;
    }
    return out;
}

std::string bashCase(const CommandOption& option) {
    std::string text = "        " + std::string(option.name) + ")\n";
    const std::string choices = choicesIn(option.value);
    if (isFile(option.value)) {
        text += "            _pellam_files\n";
    } else if (!choices.empty()) {
        text += "            mapfile -t COMPREPLY < <(compgen -W " + quoted(choices.substr(1)) +
                " -- \"$word\")\n";
    }
    return text + "            return\n            ;;\n";
}

std::string zshArgument(const CommandOption& option) {
    const std::string names = std::string(option.name) + (option.value.empty() ? "" : "=");
    const std::string choices = choicesIn(option.value);
    std::string text = '[' + inArguments(option.help) + ']';
    if (!option.value.empty()) {
        text += ':' + inArguments(option.value) + ':';
        text += isFile(option.value) ? "_files"
                : choices.empty()    ? ""
                                     : '(' + choices.substr(1) + ')';
    }
    std::string out = "    ";
    if (!option.letter.empty())
        out += quoted('(' + std::string(option.letter) + ' ' + std::string(option.name) + ')') +
               '{' + std::string(option.letter) + ',' + names + '}' + quoted(text);
    else
        out += quoted(names + text);
    return out + " \\\n";
}

} // namespace

std::string bashCompletion(std::span<const CommandOption> options) {
    std::string cases;
    std::string names;
    for (const CommandOption& option : options) {
        if (option.name.empty()) continue;
        names.append(names.empty() ? "" : " ").append(option.name);
        if (!option.value.empty()) cases += bashCase(option);
    }
    return R"(# bash completion for pellam

_pellam_files() {
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
}

_pellam() {
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]}
    # "--option=value" comes as three words.
    if [[ $word == = ]]; then
        word=
    elif [[ $option == = && COMP_CWORD -gt 1 ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    COMPREPLY=()
    case $option in
)" + cases +
           R"(    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W )" +
           quoted(names) + R"( -- "$word")
    else
        _pellam_files
    fi
}

complete -F _pellam pellam
)";
}

std::string zshCompletion(std::span<const CommandOption> options) {
    std::string text = "#compdef pellam\n\n_arguments -S \\\n";
    for (const CommandOption& option : options)
        if (!option.name.empty()) text += zshArgument(option);
    return text + "    '1:file:_files'\n";
}

} // namespace pellam
