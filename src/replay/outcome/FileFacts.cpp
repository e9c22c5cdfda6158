#include "replay/outcome/FileFacts.h"

#include "base/Utf8.h"

#include "delimited/layout/LayoutText.h"

#include <algorithm>
#include <cstdint>
#include <utility>

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
    case LoadOutcome::Kind::Tagged:
        return "tagged download";
    case LoadOutcome::Kind::Nothing:
        break;
    }
    return "nothing";
}

class Facts {
  public:
    void add(const char* name, std::string value) {
        std::replace_if(
            value.begin(), value.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        m_facts.push_back({name, toUtf8(value)});
    }

    void add(const char* name, std::int64_t value) { add(name, std::to_string(value)); }

    [[nodiscard]] std::vector<FileFact> take() { return std::move(m_facts); }

  private:
    std::vector<FileFact> m_facts;
};

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

std::vector<FileFact> fileFacts(const LoadOutcome& outcome, const GridData& grid,
                                const StoredSession& stored) {
    Facts facts;
    if (stored.dsn.empty()) {
        facts.add("file", outcome.path);
    } else {
        facts.add("data source", stored.dsn);
        facts.add("session", stored.session);
    }
    if (!outcome.converted.empty()) facts.add("converted to", outcome.converted);
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
    if (outcome.incomplete) facts.add("incomplete", "the database failed while it was read");
    for (const std::string& cause : outcome.passedOver.texts())
        facts.add("passed over", cause);
    addChannels(facts, grid);
    if (outcome.kind == LoadOutcome::Kind::Delimited) {
        for (const auto& [key, value] : layoutFacts(outcome.layout))
            facts.add(key.c_str(), value);
    }
    return facts.take();
}

} // namespace pellam
