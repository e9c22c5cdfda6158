#pragma once

#include "delimited/sample/Dialect.h"
#include "delimited/sample/FieldKind.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace pellam {

/// A field of a sample.
struct SampleField {
    std::string_view text; ///< without blanks and quotation marks around it
    FieldKind kind = FieldKind::Empty;
    bool quoted = false;
    bool padded = false; ///< there were blanks around it
};

/// One line of a sample, or several where a quoted field has line ends.
struct SampleRecord {
    std::string_view text;    ///< without the last line's end
    std::int64_t line = 0;    ///< number of its first line, from 1
    std::size_t offset = 0;   ///< of its first byte in the sample
    std::size_t first = 0;    ///< its first field
    std::size_t fields = 0;   ///< as the separators have them
    std::size_t readings = 0; ///< numbers and times among them
    std::size_t texts = 0;    ///< fields that are neither, nor absent
    bool blank = false;       ///< nothing but blanks and separators, or a word that parts all rows

    /// Fields up to the last that is not empty.
    std::size_t used = 0;
};

/// The records of one end of a sample, taken apart by a dialect.
class SampleRecords {
  public:
    /// Lines that a quoted field may have: where it has more, its mark is a stray one.
    static constexpr std::size_t kLinesInField = 25;

    /// `text` outlives the records.
    SampleRecords(std::string_view text, const Dialect& dialect);

    [[nodiscard]] const Dialect& dialect() const { return m_dialect; }

    [[nodiscard]] std::size_t size() const { return m_records.size(); }

    [[nodiscard]] const SampleRecord& operator[](std::size_t index) const {
        return m_records[index];
    }

    [[nodiscard]] std::span<const SampleField> fields(std::size_t index) const {
        const SampleRecord& record = m_records[index];
        return {m_fields.data() + record.first, record.fields};
    }

    /// A field of a record; an empty one behind its last.
    [[nodiscard]] SampleField field(std::size_t index, std::size_t column) const {
        const auto all = fields(index);
        return column < all.size() ? all[column] : SampleField{};
    }

  private:
    void addRecord(std::string_view text);
    bool addFields(SampleRecord& record);
    void markFillers();

    Dialect m_dialect;
    std::vector<SampleRecord> m_records;
    std::vector<SampleField> m_fields;
};

} // namespace pellam
