#pragma once

#include "grid/CellColour.h"
#include "grid/Column.h"
#include "grid/MissingText.h"
#include "times/FractionUnit.h"
#include "times/TimeForm.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellam {

/// The store of everything that is loaded: one column of row times, then one column a channel,
/// each with its heading. Rows here are data rows counted from 0; the axis row that a grid shows
/// above them is the columns' axis numbers.
class GridData {
  public:
    static constexpr int kInitialColumns = 800;
    /// No file gets more columns: what has more separators than that in a line is no table.
    static constexpr int kMaximumColumns = 100'000;
    static constexpr int kMinimumColumns = 16;
    static constexpr Row kInitialRows = 32768;

    /// An empty grid of 800 columns. `decimalSeparator` is the character that stands in numbers
    /// and before fractions of a second.
    explicit GridData(char decimalSeparator = '.');
    ~GridData();
    GridData(const GridData&) = delete;
    GridData& operator=(const GridData&) = delete;

    /// Back to the empty grid: no rows, 800 columns without label, not charted, axis 1; the corner
    /// mark is cleared. Memory is kept for the next load.
    void reset();

    [[nodiscard]] char decimalSeparator() const { return m_storage->decimalSeparator; }

    /// The texts that stand for no value in the channels; none after a reset. See
    /// Column::hasAsValue() for exceptions.
    [[nodiscard]] const std::vector<MissingText>& missing() const { return m_storage->missing; }

    void setMissing(std::vector<MissingText> texts) { m_storage->missing = std::move(texts); }

    /// Whether the numbers among them are values for chart and figures all the same; not so after a
    /// reset.
    [[nodiscard]] bool missingAsNumbers() const { return m_storage->missingAsNumbers; }

    void setMissingAsNumbers(bool on) { m_storage->missingAsNumbers = on; }

    /// Whether there are numbers among them.
    [[nodiscard]] bool hasMissingNumbers() const;

    /// Gives memory that is left over from an earlier, larger content back to the system.
    void trim() { m_storage->chunks.trim(); }

    /// Loaded rows, the axis row not counted.
    [[nodiscard]] Row rowCount() const { return m_rowCount; }

    void setRowCount(Row rows) { m_rowCount = rows; }

    /// Columns of the grid, the time column included; at least 16 after a load.
    [[nodiscard]] int columnCount() const { return static_cast<int>(m_columns.size()); }

    /// Sets the column count, never below 16; new columns are empty, surplus ones are dropped.
    void setColumnCount(int columns);

    /// Channel columns, the time column not counted: channels are columns 1 to this, inclusive.
    [[nodiscard]] int channelCount() const { return m_channelCount; }

    void setChannelCount(int channels) { m_channelCount = channels; }

    /// The column at an index from 0 to columnCount() - 1.
    [[nodiscard]] const Column& column(int index) const;
    [[nodiscard]] Column& column(int index);

    /// Text of a cell; empty for an empty cell and for rows past the data. The view is valid until
    /// the buffer or the cell changes.
    [[nodiscard]] std::string_view text(int column, Row row, CellBuffer& buffer) const;
    /// Sets a cell's text; empty text clears it. The row count stays as it is: it counts loaded
    /// rows.
    void setText(int column, Row row, std::string_view text, CellColour colour = CellColour::Black);
    [[nodiscard]] CellColour colour(int column, Row row) const;

    /// Moves a column so that it ends at index `to`; cells, heading and axis go with it. Returns
    /// false, and moves nothing, for the time column and where a channel would leave the channels.
    bool moveColumn(int from, int to);

    /// The mark in the corner: channel selection, an axis number, a value or the column order has
    /// changed since the chart was last built.
    [[nodiscard]] bool changed() const { return m_changed; }

    void setChanged(bool changed) { m_changed = changed; }

    /// How the texts of the time column are written; none after a reset, and where that was not
    /// found out: see TimeColumn.
    [[nodiscard]] const TimeForm& timeForm() const { return m_timeForm; }

    void setTimeForm(TimeForm form) { m_timeForm = std::move(form); }

    /// Whether the first column has times; else it counts the rows. True after a reset.
    [[nodiscard]] bool hasTimes() const { return m_hasTimes; }

    void setHasTimes(bool has) { m_hasTimes = has; }

    /// How the fractions in the time column count; decimal places after a reset.
    [[nodiscard]] FractionUnit fractionUnit() const { return m_fractionUnit; }

    void setFractionUnit(FractionUnit unit) { m_fractionUnit = unit; }

    /// Rows that hold a line which failed its checksum, in ascending order.
    [[nodiscard]] std::span<const Row> damagedRows() const { return m_damagedRows; }

    /// Marks the last or a later row as damaged; rows come in ascending order, repeats are one.
    void addDamagedRow(Row row);

  private:
    std::unique_ptr<CellStorage> m_storage; // before the columns: they give their chunks back to it
    std::vector<std::unique_ptr<Column>> m_columns;
    std::vector<Row> m_damagedRows;
    Row m_rowCount = 0;
    int m_channelCount = 0;
    bool m_changed = false;
    TimeForm m_timeForm;
    bool m_hasTimes = true;
    FractionUnit m_fractionUnit = FractionUnit::DecimalPlaces;
};

} // namespace pellam
