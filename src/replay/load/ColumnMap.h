#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pellam {

/// What the values of a column are.
enum class ColumnKind : std::uint8_t { Date = 1, Time = 2, Text = 4, Numeric = 8 };

/// Where the values of a data line go: for every schedule letter the columns of its channels in
/// the order of the line.
class ColumnMap {
  public:
    static constexpr int kNotLoaded = -1;

    /// Columns of a schedule's channels, kNotLoaded for one that was not chosen; empty for a
    /// schedule without channels and for characters that are no letter.
    [[nodiscard]] std::span<const int> columnsOf(char letter) const {
        const auto index = static_cast<unsigned>(letter) - 'A';
        return index < m_columns.size() ? std::span<const int>(m_columns[index])
                                        : std::span<const int>();
    }

    [[nodiscard]] ColumnKind kind(int column) const {
        return m_kinds[static_cast<std::size_t>(column)];
    }

    /// Columns known, the time column included.
    [[nodiscard]] int columnCount() const { return static_cast<int>(m_kinds.size()); }

    /// Whether a channel of the schedule has a column.
    [[nodiscard]] bool isLoaded(char letter) const {
        for (const int column : columnsOf(letter)) {
            if (column != kNotLoaded) return true;
        }
        return false;
    }

    /// Notes that a schedule has a channel of a number, which need not be loaded.
    void mention(char letter, std::size_t number) {
        auto* const columns = slot(letter);
        if (columns && columns->size() <= number) columns->resize(number + 1, kNotLoaded);
    }

    /// Adds the next column of the grid as a schedule's channel of a number, counted from 0.
    void add(char letter, std::size_t number, ColumnKind kind) {
        const int column = columnCount();
        m_kinds.push_back(kind);
        mention(letter, number);
        if (auto* const columns = slot(letter)) (*columns)[number] = column;
    }

  private:
    std::vector<int>* slot(char letter) {
        const auto index = static_cast<unsigned>(letter) - 'A';
        return index < m_columns.size() ? &m_columns[index] : nullptr;
    }

    std::vector<ColumnKind> m_kinds{ColumnKind::Text}; ///< by column; the time column is first
    std::array<std::vector<int>, 26> m_columns;
};

} // namespace pellam
