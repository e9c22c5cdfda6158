#include "replay/outcome/PassedOver.h"

namespace pellam {

namespace {

struct Words {
    const char* one;
    const char* many;
    const char* place = "in line";
};

constexpr std::array<Words, PassedOver::kCauses> kWords{
    {{"repeated line", "repeated lines"},
     {"line of status 3 or 4", "lines of status 3 or 4"},
     {"line with \"Discontinuity\"", "lines with \"Discontinuity\""},
     {"repeated line of headings", "repeated lines of headings"},
     {"comment line", "comment lines"},
     {"footer line", "footer lines"},
     {"blank line", "blank lines"},
     {"alarm among readings", "alarms among readings"},
     {"reading among alarms", "readings among alarms"},
     {"line of unknown kind", "lines of unknown kind"},
     {"line of values above the data", "lines of values above the data"},
     {"line without time or status", "lines without time or status"},
     {"line cut because it is too long", "lines cut because they are too long"},
     {"value without a channel", "values without a channel"},
     {"value that is neither number nor text", "values that are neither number nor text"},
     {"record lost to damage", "records lost to damage", "at byte"},
     {"channel with unreadable numbers", "channels with unreadable numbers", "in row"},
     {"reading with unreadable numbers", "readings with unreadable numbers", "in row"},
     {"reading without a time", "readings without a time", "in row"},
     {"reading without a channel", "readings without a channel", "in row"},
     {"reading without a value, shown as 0", "readings without a value, shown as 0", "in row"},
     {"reading replaced by another of its time", "readings replaced by others of their time",
      "in row"},
     {"cell without a reading, shown as the one before",
      "cells without a reading, shown as the ones before", "in row"}}};

} // namespace

std::int64_t PassedOver::total() const {
    std::int64_t total = 0;
    for (const Entry& entry : m_entries)
        total += entry.count;
    return total - of(Cause::BlankLine).count;
}

void PassedOver::add(const PassedOver& other) {
    for (std::size_t i = 0; i < kCauses; ++i)
        if (const auto& [count, first] = other.m_entries[i]; count > 0)
            add(static_cast<Cause>(i), first, count);
}

std::vector<std::string> PassedOver::texts() const {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < kCauses; ++i) {
        const auto& [count, first] = m_entries[i];
        if (count == 0) continue;
        texts.push_back(
            std::to_string(count) + ' ' + (count == 1 ? kWords[i].one : kWords[i].many) +
            (count == 1 ? " (" : " (first ") + kWords[i].place + ' ' + std::to_string(first) + ')');
    }
    return texts;
}

} // namespace pellam
