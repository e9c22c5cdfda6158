#include "views/series/ValueReader.h"

#include "grid/DecimalCell.h"
#include "views/series/SentinelText.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace pellam {

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

// How many of the values are this one. In steps of a known length, which compilers make quick.
std::int64_t countOf(std::span<const double> values, double wanted) {
    constexpr std::size_t kStep = 64;
    std::uint64_t count = 0;
    for (; values.size() >= kStep; values = values.subspan(kStep)) {
        for (std::size_t i = 0; i < kStep; ++i)
            count += values[i] == wanted ? std::uint64_t{1} : std::uint64_t{0};
    }
    return static_cast<std::int64_t>(count) + std::count(values.begin(), values.end(), wanted);
}

} // namespace

void LeftOut::countMissing(std::size_t text, std::int64_t cells) {
    if (missing.size() <= text) missing.resize(text + 1);
    missing[text] += cells;
}

std::int64_t LeftOut::gaps() const {
    return std::accumulate(missing.begin(), missing.end(), sentinels) - asNumbers;
}

ValueReader::ValueReader(const Column& column)
    : m_column(column),
      m_asNumbers(column.storage().missingAsNumbers) {
    const auto& texts = column.storage().missing;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!texts[i].value) {
            m_words.push_back({texts[i].text, i});
            continue;
        }
        const auto same = [&](const Mark& mark) { return mark.value == *texts[i].value; };
        if (!column.hasAsValue(i) && std::none_of(m_marks.begin(), m_marks.end(), same))
            m_marks.push_back({*texts[i].value, i});
    }
}

void ValueReader::read(Row first, std::span<double> out, LeftOut& leftOut,
                       std::vector<std::uint32_t>* gaps) const {
    const Cell* const chunk = m_column.chunkAt(first);
    if (!chunk) {
        std::fill(out.begin(), out.end(), kNone);
        return;
    }
    const Cell* const cells = chunk + first % Column::kChunkRows;
    const std::size_t known = gaps ? gaps->size() : 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        const Cell cell = cells[i];
        // Nearly every cell: a number too short to be a sentinel.
        if (cell.kind() == Cell::Kind::Decimal && cell.mantissa() < 999'999) {
            out[i] = DecimalCell::value(cell);
            continue;
        }
        bool gap = false;
        out[i] = withoutMarks(cell, leftOut, gap);
        if (gap && gaps)
            gaps->push_back(static_cast<std::uint32_t>(first) + static_cast<std::uint32_t>(i));
    }
    if (m_marks.empty()) return;
    takeMarks(first, out, leftOut, gaps);
    if (gaps) std::sort(gaps->begin() + static_cast<std::ptrdiff_t>(known), gaps->end());
}

void ValueReader::takeMarks(Row first, std::span<double> out, LeftOut& leftOut,
                            std::vector<std::uint32_t>* gaps) const {
    for (const Mark& mark : m_marks) {
        const std::int64_t cells = countOf(out, mark.value);
        if (cells == 0) continue;
        leftOut.countMissing(mark.text, cells);
        if (m_asNumbers) leftOut.asNumbers += cells;
        for (std::size_t i = 0; i < out.size() && !m_asNumbers; ++i) {
            if (out[i] != mark.value) continue;
            out[i] = kNone;
            if (gaps)
                gaps->push_back(static_cast<std::uint32_t>(first) + static_cast<std::uint32_t>(i));
        }
    }
}

double ValueReader::value(Cell cell, LeftOut& leftOut, bool& gap) const {
    gap = false;
    const double value = withoutMarks(cell, leftOut, gap);
    for (const Mark& mark : m_marks) {
        if (value != mark.value) continue;
        leftOut.countMissing(mark.text);
        if (m_asNumbers) ++leftOut.asNumbers;
        gap = !m_asNumbers;
        return gap ? kNone : value;
    }
    return value;
}

double ValueReader::withoutMarks(Cell cell, LeftOut& leftOut, bool& gap) const {
    if (cell.isEmpty()) return kNone;
    if (cell.kind() != Cell::Kind::Decimal) return valueOfText(cell, leftOut, gap);
    if (!isSentinel(cell)) return DecimalCell::value(cell);
    ++leftOut.sentinels;
    gap = true;
    return kNone;
}

double ValueReader::valueOfText(Cell cell, LeftOut& leftOut, bool& gap) const {
    if (cell.isTime()) {
        ++leftOut.notNumbers;
        return kNone;
    }
    CellBuffer buffer;
    const std::string_view text = m_column.text(cell, buffer);
    const std::string_view word = withoutBlanks(text);
    for (const Word& missing : m_words) {
        if (missing.text != word) continue;
        leftOut.countMissing(missing.place);
        gap = true;
        return kNone;
    }
    if (containsSentinel(text, m_column.decimalSeparator())) {
        ++leftOut.sentinels;
        gap = true;
        return kNone;
    }
    const auto number = m_column.number(cell);
    if (!number) ++leftOut.notNumbers;
    return number.value_or(kNone);
}

} // namespace pellam
