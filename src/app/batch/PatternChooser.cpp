#include "app/batch/PatternChooser.h"

#include "grid/ChannelLabel.h"

#include <algorithm>

namespace pellam {

namespace {

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Where the UTF-8 character after the one at `at` begins.
std::size_t nextCharacter(std::string_view text, std::size_t at) {
    ++at;
    while (at < text.size() && continuesCharacter(text[at]))
        ++at;
    return at;
}

} // namespace

PatternChooser::PatternChooser(std::string_view patterns)
    : m_all(patterns.empty() || patterns == "all") {
    while (!patterns.empty()) {
        const auto comma = std::min(patterns.find(','), patterns.size());
        if (comma > 0) m_patterns.emplace_back(patterns.substr(0, comma));
        patterns.remove_prefix(std::min(comma + 1, patterns.size()));
    }
}

std::vector<std::string> PatternChooser::choose(const std::vector<std::string>& offered) {
    std::vector<std::string> chosen;
    std::copy_if(offered.begin(), offered.end(), std::back_inserter(chosen),
                 [this](const std::string& channel) {
                     return matches(channel) || matches(ChannelLabel::numbered(channel).text);
                 });
    return chosen;
}

bool PatternChooser::matches(std::string_view label) const {
    return m_all || std::any_of(m_patterns.begin(), m_patterns.end(), [&](const auto& pattern) {
               return matchesWildcards(pattern, label);
           });
}

// Only the latest '*' ever needs another try, so the time is at most the product of the lengths.
bool matchesWildcards(std::string_view pattern, std::string_view text) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos;
    std::size_t retry = 0;
    while (in < text.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            retry = in;
        } else if (at < pattern.size() && pattern[at] == '?') {
            ++at;
            in = nextCharacter(text, in);
        } else if (at < pattern.size() && pattern[at] == text[in]) {
            ++at;
            ++in;
        } else if (star != std::string_view::npos) {
            at = star + 1;
            in = retry = nextCharacter(text, retry);
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

} // namespace pellam
