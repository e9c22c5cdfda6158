#include "delimited/sample/SampleRecords.h"

#include "delimited/sample/FieldSplitter.h"
#include "delimited/sample/TextSample.h"

namespace pellam {

namespace {
constexpr int kStrayMarks = 20; ///< after so many no lines are joined any more
} // namespace

SampleRecords::SampleRecords(std::string_view text, const Dialect& dialect) : m_dialect(dialect) {
    const char* const start = text.data();
    std::int64_t line = 1;
    int stray = 0;
    while (!text.empty()) {
        SampleRecord record;
        record.line = line++;
        record.offset = static_cast<std::size_t>(text.data() - start);
        record.text = takeLine(text);
        record.first = m_fields.size();
        if (addFields(record) && stray < kStrayMarks) {
            // An open field: it may close some lines on.
            const SampleRecord alone = record;
            std::string_view ahead = text;
            bool open = true;
            for (std::size_t more = 1; open && more <= kLinesInField && !ahead.empty(); ++more) {
                const std::string_view next = takeLine(ahead);
                if (next.find(m_dialect.quote) == std::string_view::npos) continue;
                const char* const end = next.data() + next.size();
                record.text = {alone.text.data(),
                               static_cast<std::size_t>(end - alone.text.data())};
                open = addFields(record);
                if (!open) {
                    line += static_cast<std::int64_t>(more);
                    text = ahead;
                }
            }
            if (open) {
                ++stray;
                record = alone;
                addFields(record);
            }
        }
        m_records.push_back(record);
    }
    markFillers();
}

// A word that stands alone between all rows, such as "<br>", is no more than a blank line.
void SampleRecords::markFillers() {
    std::string_view filler;
    std::size_t count = 0;
    for (std::size_t i = 2; i < m_records.size(); ++i) {
        const SampleRecord& record = m_records[i];
        if (record.fields != 1 || record.texts != 1 || record.text != m_records[i - 2].text ||
            record.text == m_records[i - 1].text)
            continue;
        filler = record.text;
        ++count;
    }
    if ((count + 1) * 3 < m_records.size() || count == 0) return;
    for (SampleRecord& record : m_records)
        record.blank = record.blank || record.text == filler;
}

// Takes the record apart; true when a quoted field is still open at its end.
bool SampleRecords::addFields(SampleRecord& record) {
    m_fields.resize(record.first);
    record.readings = record.texts = record.used = 0;
    FieldSplitter splitter(record.text, m_dialect);
    for (FieldSplitter::Field field; splitter.next(field);) {
        SampleField sample;
        sample.text = trimmed(field.text);
        sample.quoted = field.quoted;
        sample.padded = field.padded || (!field.quoted && sample.text.size() != field.text.size());
        sample.kind = fieldKindOf(sample.text);
        // What stands between blanks and has another separator in it is no time.
        if (sample.kind == FieldKind::Time && m_dialect.separator == Dialect::kBlankRuns &&
            sample.text.find(',') != std::string_view::npos)
            sample.kind = FieldKind::Text;
        record.readings += isReading(sample.kind);
        record.texts += sample.kind == FieldKind::Text;
        m_fields.push_back(sample);
        if (sample.kind != FieldKind::Empty) record.used = m_fields.size() - record.first;
    }
    record.fields = m_fields.size() - record.first;
    record.blank = record.used == 0;
    return splitter.open();
}

} // namespace pellam
