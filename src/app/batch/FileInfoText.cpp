#include "app/batch/FileInfoText.h"

#include "delimited/layout/LayoutText.h"

#include <algorithm>

namespace pellam {

namespace {

const char* nameOf(LoadOutcome::Kind kind) {
    switch (kind) {
    case LoadOutcome::Kind::Data:
        return "data";
    case LoadOutcome::Kind::Alarm:
        return "alarm";
    case LoadOutcome::Kind::Delimited:
        return "delimited";
    case LoadOutcome::Kind::Binary:
        return "binary";
    case LoadOutcome::Kind::Nothing:
        break;
    }
    return "nothing";
}

class Facts {
  public:
    void add(const char* key, std::string value) {
        std::replace_if(
            value.begin(), value.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        m_text += std::string(key) + ": " + value + '\n';
    }

    void add(const char* key, std::int64_t value) { add(key, std::to_string(value)); }

    [[nodiscard]] const std::string& text() const { return m_text; }

  private:
    std::string m_text;
};

void addLayout(Facts& facts, const LoadOutcome& outcome) {
    for (const auto& [key, value] : layoutFacts(outcome.layout))
        facts.add(key.c_str(), value);
    const PassedOver& passed = outcome.passedOver;
    const std::pair<const char*, std::int64_t> counts[] = {
        {"blank lines", passed.blank},
        {"repeated lines", passed.repeated},
        {"repeated headings", passed.headings},
        {"comment lines", passed.comments},
        {"discontinuities", passed.discontinuity},
        {"footer lines", passed.footer}};
    for (const auto& [key, count] : counts)
        facts.add(key, count);
}

/// Columns that a load leaves unchecked are no channels: parts of times.
void addChannels(Facts& facts, const GridData& grid) {
    for (const bool checked : {true, false}) {
        for (int i = 1; i <= grid.channelCount(); ++i) {
            const Column& column = grid.column(i);
            if (column.charted() == checked)
                facts.add(checked ? "channel" : "part of the time", column.label());
        }
    }
}

std::int64_t channelsOf(const GridData& grid) {
    std::int64_t count = 0;
    for (int i = 1; i <= grid.channelCount(); ++i)
        count += grid.column(i).charted();
    return count;
}

} // namespace

std::string fileInfoText(const LoadOutcome& outcome, const GridData& grid,
                         const StoredSession& stored) {
    Facts facts;
    if (stored.dsn.empty()) {
        facts.add("file", outcome.path);
    } else {
        facts.add("data source", stored.dsn);
        facts.add("session", stored.session);
    }
    facts.add("size", outcome.fileSize);
    facts.add("kind", nameOf(outcome.kind));
    facts.add("crypt state", outcome.cryptState);
    facts.add("contents type", outcome.contentsType);
    facts.add("originator type", outcome.originatorType);
    facts.add("description", outcome.description);
    facts.add("line count", outcome.lineCount);
    facts.add("first time", outcome.firstTime);
    facts.add("last time", outcome.lastTime);
    facts.add("rows", grid.rowCount());
    facts.add("channels", channelsOf(grid));
    facts.add("damaged lines", outcome.damagedLines);
    addChannels(facts, grid);
    if (outcome.kind == LoadOutcome::Kind::Delimited) addLayout(facts, outcome);
    return facts.text();
}

} // namespace pellam
