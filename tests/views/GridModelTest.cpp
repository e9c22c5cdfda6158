#include "views/sheet/GridModel.h"
#include "GridText.h"
#include "views/sheet/EditCommand.h"
#include "views/sheet/MoveColumnCommand.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class GridModelTest : public testing::Test {
  protected:
    GridModelTest() {
        fillGrid(m_grid, "Time|Temp(\260C)|Wind(m/s)\n"
                         "2024/01/02 10:00:00|12.50|3\n"
                         "2024/01/02 10:01:00|13|über\n"
                         "2024/01/02 10:02:00|14|5\n");
        m_grid.setText(1, 1, "13", CellColour::DarkRed);
        m_grid.setText(2, 2, "5", CellColour::Grey);
        m_grid.addDamagedRow(1);
        m_model.endLoad();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            &m_model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    [[nodiscard]] std::string text(int row, int column, int role = Qt::DisplayRole) const {
        return m_model.index(row, column).data(role).toString().toStdString();
    }

    [[nodiscard]] std::string colour(int row, int column) const {
        const QVariant brush = m_model.index(row, column).data(Qt::ForegroundRole);
        return brush.isValid() ? brush.value<QBrush>().color().name().toStdString() : "default";
    }

    GridData m_grid;
    GridModel m_model{m_grid};
    // Made once there are few cells: it looks at every one of them.
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

TEST_F(GridModelTest, ShowsTheAxisRowAboveTheData) {
    m_grid.column(2).setAxis(5);
    EXPECT_EQ(m_model.rowCount(), 4);
    EXPECT_EQ(m_model.columnCount(), 16);
    EXPECT_EQ(text(0, 0) + "|" + text(0, 1) + "|" + text(0, 2), "|1|5");
    EXPECT_EQ(text(1, 0) + "|" + text(1, 1) + "|" + text(1, 2), "2024/01/02 10:00:00|12.50|3");
    EXPECT_EQ(text(2, 2), "über");
    EXPECT_EQ(m_model.headerData(0, Qt::Vertical, Qt::DisplayRole).toString(), u"  Axis  "_s);
    EXPECT_EQ(m_model.headerData(3, Qt::Vertical, Qt::DisplayRole).toString(), u"3"_s);
    EXPECT_EQ(m_model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(),
              "Temp(°C)");
    EXPECT_EQ(m_model.index(0, 1).data(Qt::BackgroundRole).value<QBrush>().color(),
              QColor(255, 207, 49));
    EXPECT_EQ(text(2, 1, Qt::ToolTipRole), "Col:1 Row:2");
}

TEST_F(GridModelTest, ColoursTextsForLightAndDarkBackgrounds) {
    EXPECT_EQ(colour(1, 1) + colour(2, 1) + colour(3, 2), "default#c00000#606060");
    m_model.setDarkBackground(true);
    EXPECT_EQ(colour(1, 1), "default");
    EXPECT_NE(colour(2, 1), "#c00000");
    EXPECT_EQ(colour(0, 1), "#000000");
    EXPECT_TRUE(m_model.headerData(2, Qt::Vertical, Qt::ForegroundRole).isValid());
    EXPECT_FALSE(m_model.headerData(1, Qt::Vertical, Qt::ForegroundRole).isValid());
}

TEST_F(GridModelTest, NamesCellsAndHeadingsForAssistiveTechnology) {
    EXPECT_EQ(text(1, 1, Qt::AccessibleTextRole), "Temp (°C), row 1, 2024/01/02 10:00:00: 12.50");
    EXPECT_EQ(text(2, 1, Qt::AccessibleTextRole),
              "Temp (°C), row 2, 2024/01/02 10:01:00, damaged line: 13");
    EXPECT_EQ(text(0, 2, Qt::AccessibleTextRole), "Wind (m/s), axis: 1");
    EXPECT_EQ(text(1, 9, Qt::AccessibleTextRole), "Column 9, row 1, 2024/01/02 10:00:00: empty");
    m_model.setCharted(2, 2, true);
    EXPECT_EQ(m_model.headerData(2, Qt::Horizontal, Qt::AccessibleTextRole).toString(),
              u"Wind (m/s), charted"_s);
}

TEST_F(GridModelTest, EditsKeepTheColourAndCanBeTakenBack) {
    QSignalSpy marks(&m_model, &GridModel::changedMark);
    EXPECT_TRUE(m_model.setData(m_model.index(2, 1), u"13.75"_s));
    EXPECT_TRUE(m_model.setData(m_model.index(0, 2), u"9"_s));
    EXPECT_TRUE(m_model.setData(m_model.index(0, 1), u"4"_s));
    EXPECT_FALSE(m_model.setData(m_model.index(0, 0), u"4"_s));
    EXPECT_EQ(text(2, 1) + " " + colour(2, 1) + " " + text(0, 1) + " " + text(0, 2),
              "13.75 #c00000 4 1");
    EXPECT_EQ(marks.count(), 1);
    m_model.undoStack().undo();
    m_model.undoStack().undo();
    EXPECT_EQ(text(2, 1) + " " + colour(2, 1) + " " + text(0, 1), "13 #c00000 1");
    EXPECT_FALSE(m_model.undoStack().canUndo());
}

// Whole chunks change places with those of the store; every cell must come back as it was.
TEST(EditCommand, FillsManyChunksAndBringsThemBack) {
    constexpr Row rows = 3 * Column::kChunkRows + 100;
    GridData grid;
    grid.setRowCount(rows);
    grid.setChannelCount(2);
    for (Row row = 0; row < rows; ++row) {
        grid.setText(1, row, std::to_string(row));
        if (row > 2 * Column::kChunkRows) grid.setText(2, row, "text of " + std::to_string(row));
    }
    grid.setText(1, 20'000, "red", CellColour::DarkRed);
    const auto all = [&grid] { return gridRows(grid); };
    const std::string before = all();
    GridModel model(grid);
    const auto fill = [&model](const char* text, std::int64_t patience) {
        auto command = std::make_unique<EditCommand>(model, u"Fill"_s);
        const auto goOn = [&patience](std::int64_t cells) { return (patience -= cells) >= 0; };
        const bool whole = command->fill({1, 15, 11, rows}, text, goOn);
        if (whole) model.take(std::move(command));
        return whole;
    };
    EXPECT_FALSE(fill("", rows));
    EXPECT_EQ(all(), before);
    for (const char* text : {"", "7.5", "a text in the arena"}) {
        EXPECT_TRUE(fill(text, 2 * rows));
        CellBuffer buffer;
        EXPECT_EQ(grid.text(1, 9, buffer), "9");
        EXPECT_EQ(grid.text(1, 10, buffer), text);
        EXPECT_EQ(grid.text(2, rows - 1, buffer), text);
        EXPECT_EQ(grid.text(3, 20, buffer), "");
        EXPECT_EQ(grid.colour(1, 20'000), CellColour::DarkRed);
        EXPECT_EQ(model.original(1, 9), std::nullopt);
        EXPECT_EQ(model.original(1, 30'000), u"30000"_s);
        const std::string after = all();
        model.undoStack().undo();
        EXPECT_EQ(all(), before);
        model.undoStack().redo();
        EXPECT_EQ(all(), after);
        model.undoStack().undo();
    }
    EXPECT_TRUE(model.editedColumns().empty());
}

TEST_F(GridModelTest, KnowsWhatWasEditedWhereverItsColumnWent) {
    EXPECT_TRUE(m_model.setData(m_model.index(1, 1), u"1"_s));
    m_model.take(std::make_unique<MoveColumnCommand>(m_model, 1, 2));
    EXPECT_TRUE(m_model.setData(m_model.index(1, 2), u"2"_s));
    EXPECT_EQ(m_model.original(2, 0), u"12.50"_s);
    EXPECT_EQ(m_model.original(1, 0), std::nullopt);
    EXPECT_EQ(m_model.editedColumns(), std::set<int>{2});
    EXPECT_EQ(text(1, 2, Qt::ToolTipRole), "Col:2 Row:1\nLoaded as: 12.50");
    EXPECT_TRUE(m_model.setData(m_model.index(1, 2), u"12.50"_s));
    EXPECT_EQ(m_model.original(2, 0), std::nullopt);
    m_model.undoStack().setIndex(0);
    EXPECT_TRUE(m_model.editedColumns().empty());
}

TEST_F(GridModelTest, MovesColumnsInTheStore) {
    m_model.setCharted(1, 1, true);
    m_model.setAxis(1, 3);
    EXPECT_TRUE(m_model.moveColumn(1, 2));
    EXPECT_EQ(gridRows(m_grid), "2024/01/02 10:00:00|3|12.50\n"
                                "2024/01/02 10:01:00|über|!13\n"
                                "2024/01/02 10:02:00|~5|14");
    EXPECT_TRUE(m_grid.column(2).charted());
    EXPECT_EQ(text(0, 2), "3");
}

TEST_F(GridModelTest, IsEmptyWhileLoadingAndASheetWithoutData) {
    m_model.beginLoad();
    m_grid.reset();
    EXPECT_EQ(m_model.rowCount() + m_model.columnCount(), 0);
    m_tester.reset();
    m_model.endLoad();
    EXPECT_EQ(m_model.rowCount(), 32768);
    EXPECT_EQ(m_model.columnCount(), 800);
    EXPECT_TRUE(m_model.setData(m_model.index(32767, 799), u"7"_s));
    EXPECT_EQ(text(32767, 799), "7");
}

} // namespace
} // namespace pellam
