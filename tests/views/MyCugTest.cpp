#include "views/grid/MyCug.h"
#include "GridText.h"
#include "base/InternationalSettings.h"
#include "views/grid/CGridView.h"
#include "views/grid/GridClipboard.h"
#include "views/scan/CompareCells.h"
#include "views/sheet/AxisSpinBox.h"
#include "views/sheet/GridCorner.h"
#include "views/sheet/GridDelegate.h"
#include "views/sheet/GridHeader.h"
#include "views/sheet/GridModel.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class MyCugTest : public testing::Test {
  protected:
    MyCugTest() {
        fillGrid(m_grid, "Time|A(degC)|B(m/s)|C(%)|D|E|F|G\n"
                         "2024/01/02 10:00:00|11|21|31|41|51|61|71\n"
                         "2024/01/02 10:01:00|12|22|32|42|52|62|72\n"
                         "2024/01/02 10:02:00|13|23|33|43|53|63|73\n");
        m_view.resize(640, 400);
        m_view.beginLoad();
        m_view.endLoad(false, false);
        m_view.show();
        m_view.activateWindow();
        m_cug.setFocus();
        QApplication::processEvents();
        m_model.setChanged(false);
    }

    [[nodiscard]] QPoint centre(int column, int row) const {
        return m_cug.visualRect(m_model.index(row, column)).center();
    }

    void select(int firstColumn, int lastColumn, GridRow firstRow, GridRow lastRow) {
        m_cug.selectArea({firstColumn, lastColumn, firstRow, lastRow});
    }

    [[nodiscard]] std::string cell(int column, int row) const {
        return m_model.index(row, column).data().toString().toStdString();
    }

    [[nodiscard]] std::string selected() const {
        std::string text;
        for (const CellArea& area : m_cug.selectedAreas()) {
            text += std::to_string(area.firstColumn) + "-" + std::to_string(area.lastColumn) + "x" +
                    std::to_string(area.firstRow) + "-" + std::to_string(area.lastRow) + " ";
        }
        return text;
    }

    [[nodiscard]] std::string firstRow() const { return gridRows(m_grid).substr(20, 20); }

    static void setClipboard(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
    }

    static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }

    void dragHeading(int from, const QPoint& to) {
        dragOnHeadings(m_cug.headings().headingRect(from).center() + QPoint(8, 0), to);
    }

    void dragOnHeadings(const QPoint& start, const QPoint& to) {
        QWidget* headings = m_cug.headings().viewport();
        QTest::mousePress(headings, Qt::LeftButton, {}, start);
        for (int i = 1; i <= 4; ++i) {
            const QPoint place = start + (to - start) * i / 4;
            QMouseEvent move(QEvent::MouseMove, place, headings->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(headings, &move);
        }
        QTest::mouseRelease(headings, Qt::LeftButton, {}, to);
    }

    GridData m_grid;
    const InternationalSettings m_settings;
    CGridView m_view{m_grid, m_settings};
    MyCug& m_cug = m_view.grid();
    GridModel& m_model = m_cug.gridModel();
};

TEST_F(MyCugTest, DoubleClickMarksAndEditsDataCellsAlone) {
    const auto doubleClick = [this](int column, int row) {
        m_model.setChanged(false);
        QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {}, centre(column, row));
        QTest::mouseDClick(m_cug.viewport(), Qt::LeftButton, {}, centre(column, row));
        const bool marked = m_cug.corner().isMarked();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        return marked;
    };
    EXPECT_TRUE(doubleClick(1, 2));
    EXPECT_FALSE(doubleClick(0, 2));
    EXPECT_FALSE(doubleClick(2, 0));
    EXPECT_EQ(cell(1, 2), "12");
}

TEST_F(MyCugTest, TypingReplacesTheCellAndUndoBringsItBack) {
    select(2, 2, 1, 1);
    QTest::keyClicks(&m_cug, u"9"_s);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, u".5"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(cell(2, 1), "9.5");
    EXPECT_TRUE(m_cug.corner().isMarked());
    m_view.undoStack().undo();
    EXPECT_EQ(cell(2, 1), "21");
}

TEST_F(MyCugTest, ProtectionRefusesEveryEdit) {
    m_cug.SetEnableProtection(1);
    select(1, 1, 1, 1);
    QTest::keyClick(&m_cug, Qt::Key_F2);
    QTest::keyClicks(&m_cug, u"9"_s);
    QTest::keyClick(&m_cug, Qt::Key_Delete);
    QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {},
                      GridDelegate::spinUpRect(m_cug.visualRect(m_model.index(0, 1))).center());
    EXPECT_EQ(cell(1, 1) + " " + cell(1, 0), "11 1");
    m_cug.SetEnableProtection(0);
    EXPECT_TRUE(m_cug.OnEditStart(1, 1));
}

TEST_F(MyCugTest, SpinsAxisNumbersWithTheMouse) {
    const QRect axis = m_cug.visualRect(m_model.index(0, 2));
    std::string seen;
    for (int i = 0; i < 6; ++i) {
        QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {},
                          GridDelegate::spinUpRect(axis).center());
        seen += cell(2, 0);
    }
    for (int i = 0; i < 2; ++i) {
        QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {},
                          GridDelegate::spinDownRect(axis).center());
        seen += cell(2, 0);
    }
    EXPECT_EQ(seen, "23456111");
    EXPECT_TRUE(m_cug.corner().isMarked());
}

TEST_F(MyCugTest, TypedAxisNumbersOutOfRangeBecomeOne) {
    for (const auto& [typed, expected] :
         {std::pair{"4", "4"}, {"7", "1"}, {"6", "6"}, {"0", "1"}, {"-3", "1"}}) {
        select(3, 3, 0, 0);
        QTest::keyClick(&m_cug, Qt::Key_F2);
        auto* editor = qobject_cast<AxisSpinBox*>(QApplication::focusWidget());
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromUtf8(typed));
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_EQ(cell(3, 0), expected) << typed;
    }
}

TEST_F(MyCugTest, NotificationsSetTheMark) {
    EXPECT_TRUE(m_cug.OnCellTypeNotify(MyCug::kCheckBoxType, 1, 2, 0));
    EXPECT_FALSE(m_grid.changed());
    EXPECT_TRUE(m_cug.OnCellTypeNotify(MyCug::kCheckBoxType, 1, -1, 0));
    EXPECT_TRUE(m_grid.changed());
    m_model.setChanged(false);
    EXPECT_TRUE(m_cug.OnColSwapStart(1));
    EXPECT_TRUE(m_cug.corner().isMarked());
}

TEST_F(MyCugTest, CheckBoxesAnswerMouseAndSpaceBar) {
    QTest::mouseClick(m_cug.headings().viewport(), Qt::LeftButton, {},
                      m_cug.headings().checkBoxRect(2).center());
    EXPECT_TRUE(m_grid.column(2).charted());
    EXPECT_TRUE(m_cug.corner().isMarked());
    EXPECT_EQ(selected(), "1-1x1-1 ");
    select(3, 3, 2, 2);
    QTest::keyClick(&m_cug, Qt::Key_Space);
    EXPECT_TRUE(m_grid.column(3).charted());
    QTest::keyClick(&m_cug, Qt::Key_Space);
    EXPECT_FALSE(m_grid.column(3).charted());
}

TEST_F(MyCugTest, ShiftSpaceSelectsTheRowWhileShiftIsHeld) {
    select(3, 3, 1, 1);
    select(2, 2, 2, 2);
    // Sent to the window, the key is known as held everywhere, as from a real keyboard.
    QTest::keyPress(m_view.windowHandle(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "0-7x2-2 ");
    QTest::keyRelease(m_view.windowHandle(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(m_cug.currentIndex(), m_model.index(2, 2));
}

TEST_F(MyCugTest, SelectAllChannelsLeavesTheLastOneAsItWas) {
    m_model.setAllCharted(true);
    std::string charted;
    for (int column = 0; column < 9; ++column)
        charted += m_grid.column(column).charted() ? '1' : '0';
    EXPECT_EQ(charted, "111111100");
    EXPECT_TRUE(m_grid.changed());
    m_grid.column(7).setCharted(true);
    m_grid.column(15).setCharted(true);
    m_model.setAllCharted(false);
    for (int column = 0; column < 16; ++column)
        EXPECT_FALSE(m_grid.column(column).charted()) << column;
}

TEST_F(MyCugTest, DraggingAHeadingMovesTheColumnInTheStore) {
    const int width = m_cug.columnWidth(1) + 7;
    m_cug.setColumnWidth(1, width);
    dragHeading(1, m_cug.headings().headingRect(3).center() + QPoint(12, 0));
    EXPECT_EQ(firstRow(), "21|31|11|41|51|61|71");
    EXPECT_EQ(m_cug.columnWidth(3), width);
    EXPECT_EQ(m_cug.currentIndex().column(), 3);
    m_view.undoStack().undo();
    EXPECT_EQ(firstRow(), "11|21|31|41|51|61|71");
    // The time column neither moves nor gives way.
    dragHeading(0, m_cug.headings().headingRect(2).center() + QPoint(12, 0));
    EXPECT_EQ(firstRow(), "11|21|31|41|51|61|71");
    dragHeading(2, QPoint(2, 10));
    EXPECT_EQ(firstRow(), "21|11|31|41|51|61|71");
    m_cug.EnableColSwapping(false);
    dragHeading(2, QPoint(2, 10));
    EXPECT_EQ(firstRow(), "21|11|31|41|51|61|71");
}

TEST_F(MyCugTest, LargeFileModeForbidsResizingColumns) {
    const auto drag = [this] {
        const QPoint edge(m_cug.headings().headingRect(1).right() - 1, 20);
        dragOnHeadings(edge, edge + QPoint(40, 0));
        return m_cug.columnWidth(1);
    };
    m_cug.EnableColSwapping(false);
    const int width = m_cug.columnWidth(1);
    m_cug.SetLargeFileMode(1);
    EXPECT_EQ(drag(), width);
    // The edge is not taken for the heading: neither is the column moved.
    m_cug.EnableColSwapping(true);
    QSignalSpy notices(&m_view, &CGridView::notice);
    EXPECT_EQ(drag(), width);
    EXPECT_EQ(firstRow(), "11|21|31|41|51|61|71");
    EXPECT_EQ(notices.count(), 1);
    m_cug.SetLargeFileMode(0);
    EXPECT_EQ(drag(), width + 40);
}

TEST_F(MyCugTest, TheTimeColumnStaysInPlaceWhenScrolled) {
    m_cug.horizontalScrollBar()->setValue(m_cug.horizontalScrollBar()->maximum());
    ASSERT_GT(m_cug.headings().offset(), 100);
    EXPECT_EQ(m_cug.visualRect(m_model.index(2, 0)).left(), 0);
    EXPECT_EQ(m_cug.indexAt(centre(0, 2)), m_model.index(2, 0));
    QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {}, centre(0, 3));
    EXPECT_EQ(selected(), "0-0x3-3 ");
    EXPECT_GT(m_cug.headings().offset(), 100);
    // A cell that is gone to is never left under the locked column.
    m_cug.scrollTo(m_model.index(2, 1));
    EXPECT_GE(m_cug.visualRect(m_model.index(2, 1)).left(), m_cug.columnWidth(0));
}

TEST_F(MyCugTest, ShiftExtendsTheSelectionAcrossTheLockedColumn) {
    select(7, 7, 1, 1);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&m_cug, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&m_cug, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "2-7x1-2 ");
    QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, Qt::ShiftModifier, centre(0, 3));
    EXPECT_EQ(selected(), "0-7x1-3 ");
}

TEST_F(MyCugTest, HeadingsSelectDataWithoutTheAxisRow) {
    QTest::mouseClick(m_cug.headings().viewport(), Qt::LeftButton, {},
                      m_cug.headings().headingRect(2).center() + QPoint(8, 0));
    EXPECT_EQ(selected(), "2-2x1-3 ");
    QTest::mouseClick(m_cug.headings().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      m_cug.headings().headingRect(1).center() + QPoint(8, 0));
    EXPECT_EQ(selected(), "1-2x1-3 ");
    QTest::mouseClick(&m_cug.corner(), Qt::LeftButton);
    EXPECT_EQ(selected(), "0-7x1-3 ");
}

// Every way to another cell takes the selection along, and none leads behind the data.
TEST_F(MyCugTest, KeysMoveAndExtendTheSelection) {
    using enum Qt::KeyboardModifier;

    struct Press {
        Qt::Key key;
        Qt::KeyboardModifiers with;
    };

    const Qt::KeyboardModifiers both = ControlModifier | ShiftModifier;
    const Table<const char*, std::vector<Press>, const char*> rows = {
        {"first cell", {{Qt::Key_Home, ControlModifier}}, "0-0x1-1 "},
        {"last cell", {{Qt::Key_End, ControlModifier}}, "7-7x3-3 "},
        {"last column", {{Qt::Key_End, {}}}, "7-7x2-2 "},
        {"no further", {{Qt::Key_End, {}}, {Qt::Key_Right, {}}}, "7-7x2-2 "},
        {"to the edges",
         {{Qt::Key_Right, ControlModifier}, {Qt::Key_Up, ControlModifier}},
         "7-7x1-1 "},
        {"extend to the end", {{Qt::Key_End, both}}, "2-7x2-3 "},
        {"extend to the start", {{Qt::Key_Home, both}}, "0-2x1-2 "},
        {"extend down", {{Qt::Key_Down, both}}, "2-2x2-3 "},
        {"extend in the row", {{Qt::Key_Home, ShiftModifier}}, "0-2x2-2 "},
        {"extend a page", {{Qt::Key_PageUp, ShiftModifier}}, "2-2x1-2 "},
        {"from where it moved to",
         {{Qt::Key_Right, {}}, {Qt::Key_Down, ShiftModifier}},
         "3-3x2-3 "},
        {"back to one cell", {{Qt::Key_End, both}, {Qt::Key_Left, {}}}, "6-6x3-3 "},
        {"Enter", {{Qt::Key_Return, {}}}, "2-2x3-3 "},
        {"Enter back", {{Qt::Key_Return, ShiftModifier}}, "2-2x1-1 "},
        {"Tab", {{Qt::Key_Tab, {}}}, "3-3x2-2 "},
        {"Tab back", {{Qt::Key_Backtab, ShiftModifier}}, "1-1x2-2 "},
        {"Tab at the end of a row", {{Qt::Key_End, {}}, {Qt::Key_Tab, {}}}, "0-0x3-3 "},
    };
    for (const bool edited : {false, true}) {
        for (const auto& [name, presses, expected] : rows) {
            const Qt::Key first = presses.front().key;
            const bool leaves =
                first == Qt::Key_Return || first == Qt::Key_Tab || first == Qt::Key_Backtab;
            if (edited && !leaves) continue;
            select(2, 2, 2, 2);
            if (edited) QTest::keyClick(&m_cug, Qt::Key_F2);
            for (const Press& press : presses) {
                QTest::keyClick(QApplication::focusWidget(), press.key, press.with);
                QApplication::processEvents();
            }
            EXPECT_EQ(selected(), expected) << name << (edited ? " from an editor" : "");
            EXPECT_EQ(QApplication::focusWidget(), &m_cug) << name;
        }
    }
}

TEST_F(MyCugTest, ColumnsBehindTheDataTakeNothing) {
    QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {}, centre(2, 2));
    m_cug.scrollTo(m_model.index(2, 9));
    QTest::mouseClick(m_cug.viewport(), Qt::LeftButton, {}, centre(9, 2));
    EXPECT_EQ(m_cug.currentIndex().column(), 2);
    EXPECT_FALSE(m_model.setData(m_model.index(2, 9), u"5"_s));
    m_cug.selectRow(2);
    m_cug.clipboard().copy();
    EXPECT_EQ(clipboard(), "2024/01/02 10:01:00\t12\t22\t32\t42\t52\t62\t72");
}

TEST_F(MyCugTest, EmptyingEverythingAsksAndIsOneStep) {
    const std::string before = gridRows(m_grid);
    int questions = 0;
    bool answer = false;
    m_cug.clipboard().setQuestion([&](const QString&) { return ++questions, answer; });
    QTest::keyClick(&m_cug, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&m_cug, Qt::Key_Delete);
    EXPECT_EQ(gridRows(m_grid), before);
    answer = true;
    QTest::keyClick(&m_cug, Qt::Key_Delete);
    EXPECT_EQ(gridRows(m_grid), "|||||||\n|||||||\n|||||||");
    EXPECT_EQ(questions, 2);
    select(1, 1, 1, 1);
    m_view.undoStack().undo();
    EXPECT_EQ(gridRows(m_grid), before);
    EXPECT_EQ(selected(), "0-7x1-3 ");
    EXPECT_FALSE(m_view.undoStack().canUndo());
}

// One cell in 2000 rows is wider than the others; where it is must not matter.
TEST_F(MyCugTest, FittedColumnsShowTheirWidestCell) {
    for (const Row wide : {0, 1, 37, 1999}) {
        fillGrid(m_grid, "Time|A|B\n1|2|3\n");
        for (Row row = 0; row < 2000; ++row) {
            m_grid.setText(1, row, row == wide ? "-1234567890.123" : "1");
            m_grid.setText(2, row, row == wide ? "a rather long text" : "x");
        }
        m_grid.setRowCount(2000);
        m_view.beginLoad();
        m_view.endLoad(false, false);
        const QFontMetricsF metrics(m_cug.font());
        EXPECT_GT(m_cug.columnWidth(1), metrics.horizontalAdvance(u"-1234567890.123"_s)) << wide;
        EXPECT_GT(m_cug.columnWidth(2), metrics.horizontalAdvance(u"a rather long text"_s)) << wide;
        m_cug.setColumnWidth(1, 30);
        m_cug.resizeColumnToContents(1);
        EXPECT_GT(m_cug.columnWidth(1), metrics.horizontalAdvance(u"-1234567890.123"_s)) << wide;
    }
}

TEST_F(MyCugTest, NumbersAreNeverShortened) {
    struct Probe : GridDelegate {
        using GridDelegate::initStyleOption;
    } probe;

    m_grid.setText(1, 0, "-12.345");
    m_grid.setText(2, 0, "-9.00000E9");
    m_grid.setText(3, 0, "a text that is long");
    const auto shown = [&](int column, int width) {
        QStyleOptionViewItem option;
        option.initFrom(&m_cug);
        option.widget = &m_cug;
        option.rect = QRect(0, 0, width, 20);
        probe.initStyleOption(&option, m_model.index(1, column));
        return option.text.toStdString();
    };
    EXPECT_EQ(shown(1, 300) + shown(2, 300), "-12.345-9.00000E9");
    for (const int column : {1, 2}) {
        EXPECT_EQ(shown(column, 40).find_first_not_of('#'), std::string::npos) << column;
        EXPECT_EQ(shown(column, 2), "#") << column;
    }
    EXPECT_EQ(shown(3, 40), "a text that is long") << "the style cuts it with an ellipsis";
}

TEST_F(MyCugTest, UndoGoesToWhatItChanges) {
    select(1, 2, 3, 3);
    m_cug.clipboard().clear();
    m_cug.moveTo(7, 1, false);
    m_view.undoStack().undo();
    EXPECT_EQ(selected(), "1-2x3-3 ");
    m_cug.moveTo(7, 1, false);
    m_view.undoStack().redo();
    EXPECT_EQ(selected(), "1-2x3-3 ");
    EXPECT_TRUE(m_model.index(3, 1).data(GridModel::EditedRole).toBool());
    EXPECT_FALSE(m_model.index(3, 3).data(GridModel::EditedRole).toBool());
}

TEST_F(MyCugTest, TheTimeColumnTakesTimesAlone) {
    int refused = 0;
    QObject::connect(&m_model, &GridModel::timeRefused, [&refused] { ++refused; });
    m_model.disconnect(SIGNAL(timeRefused(QString)), &m_view);
    const Table<const char*, const char*> rows = {
        {"2024/01/02 10:00:30", "2024/01/02 10:00:30"},
        {"2024-01-02 10:00:45.5", "2024-01-02 10:00:45.5"},
        {"soon", "2024-01-02 10:00:45.5"},
        {"", ""},
    };
    for (const auto& [typed, expected] : rows) {
        m_model.setData(m_model.index(1, 0), QString::fromUtf8(typed));
        EXPECT_EQ(cell(0, 1), expected) << typed;
    }
    EXPECT_EQ(refused, 1);
}

TEST_F(MyCugTest, CopiesWithAndWithoutHeadings) {
    select(1, 2, 0, 2);
    m_cug.clipboard().copy();
    EXPECT_EQ(clipboard(), "1\t1\n11\t21\n12\t22");
    select(2, 3, 3, 3);
    m_cug.clipboard().copy(true);
    EXPECT_EQ(clipboard(), "B(m/s)\tC(%)\n23\t33");
}

TEST_F(MyCugTest, CutsAndPastesElsewhere) {
    select(1, 2, 1, 2);
    m_cug.clipboard().cut();
    EXPECT_EQ(cell(1, 1) + cell(2, 2), "");
    select(6, 6, 2, 2);
    m_cug.clipboard().paste();
    EXPECT_EQ(cell(6, 2) + " " + cell(7, 2) + " " + cell(6, 3) + " " + cell(7, 3), "11 21 12 22");
    EXPECT_EQ(selected(), "6-7x2-3 ");
    m_view.undoStack().undo();
    m_view.undoStack().undo();
    EXPECT_EQ(cell(1, 1) + cell(2, 2) + cell(6, 2), "112262");
}

TEST_F(MyCugTest, PastesPastTheEndSaySo) {
    QSignalSpy notices(&m_view, &CGridView::notice);
    setClipboard("1\t2\n3\t4\n");
    select(7, 7, 3, 3);
    m_cug.clipboard().paste();
    EXPECT_EQ(cell(7, 3) + cell(8, 3), "1");
    EXPECT_EQ(notices.count(), 1);
}

TEST_F(MyCugTest, OneTextFillsTheSelection) {
    setClipboard("7\n");
    select(1, 2, 0, 2);
    m_cug.clipboard().paste();
    EXPECT_EQ(cell(1, 0) + cell(1, 1) + cell(2, 2) + cell(3, 1), "17731");
    setClipboard("3");
    select(0, 2, 0, 0);
    m_cug.clipboard().paste();
    EXPECT_EQ(cell(0, 0) + cell(1, 0) + cell(2, 0), "33");
}

TEST_F(MyCugTest, RefusesToCopyUnconnectedAreas) {
    QSignalSpy refusals(&m_cug.clipboard(), &GridClipboard::refused);
    m_cug.clipboard().disconnect(&m_view);
    setClipboard("before");
    select(1, 1, 1, 1);
    m_cug.selectionModel()->select(m_model.index(2, 2), QItemSelectionModel::Select);
    EXPECT_FALSE(m_cug.clipboard().copy());
    EXPECT_EQ(refusals.count(), 1);
    EXPECT_EQ(clipboard(), "before");
}

using Type = SortCell::Type;

TEST(CompareCells, OrdersByTheTypeOfTheFirstCell) {
    const Table<const char*, SortCell, SortCell, int> rows = {
        {"texts byte by byte", {Type::Text, "10"}, {Type::Text, "9"}, -1},
        {"bytes are unsigned", {Type::Text, "\xC4"}, {Type::Text, "z"}, 1},
        {"missing text last", {Type::Text, std::nullopt}, {Type::Text, "z"}, 1},
        {"two missing texts", {Type::Text, std::nullopt}, {Type::Text, std::nullopt}, 0},
        {"numbers by value", {Type::Number, "10", 10}, {Type::Number, "9", 9}, 1},
        {"equal numbers", {Type::Number, "1.0", 1}, {Type::Number, "1", 1}, 0},
        {"booleans by value", {Type::Boolean, "b", 0}, {Type::Boolean, "a", 1}, -1},
        {"currency by value", {Type::Currency, "b", 2}, {Type::Currency, "a", 3}, -1},
        {"other types by text", {Type::Other, "b", 2}, {Type::Other, "a", 3}, 1},
        {"number against text", {Type::Number, "5", 5}, {Type::Text, "4", 7}, -1},
    };
    for (const auto& [name, first, second, ascending] : rows) {
        EXPECT_EQ(MyCug::OnSortEvaluate(&first, &second, 0), ascending) << name;
        if (first.type != second.type) continue;
        EXPECT_EQ(MyCug::OnSortEvaluate(&first, &second, kSortDescending), -ascending) << name;
    }
}

TEST(CompareCells, MissingCellsSortLastAscendingAndFirstDescending) {
    const SortCell cell{Type::Number, "1", 1};
    EXPECT_GT(MyCug::OnSortEvaluate(nullptr, &cell, 0), 0);
    EXPECT_LT(MyCug::OnSortEvaluate(&cell, nullptr, 0), 0);
    EXPECT_EQ(MyCug::OnSortEvaluate(nullptr, nullptr, 0), 0);
    EXPECT_LT(MyCug::OnSortEvaluate(nullptr, &cell, kSortDescending), 0);
}

} // namespace
} // namespace pellam
