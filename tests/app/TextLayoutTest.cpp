#include "FrameFixture.h"

#include "app/frame/RecentFiles.h"
#include "app/layout/LayoutDialog.h"
#include "app/layout/LayoutFields.h"
#include "app/layout/LayoutMemory.h"
#include "app/layout/SampleLinesView.h"
#include "ui/dialogs/NoticeBar.h"
#include "views/grid/CGridView.h"

namespace pellam {

class TextLayoutTest : public FrameFixture {
  protected:
    /// A file with three lines above its headings, which say something else than the line above.
    QString preamble(const QByteArray& name = "mast.csv", const QByteArray& above = {}) const {
        return write(name, above + "Station;Moor\r\nHeight;12 m\r\nRaw;Wind;Gust\r\n"
                                   "Date;Speed;Peak\r\n"
                                   "15.02.2019 10:00;3,5;7,25\r\n"
                                   "15.02.2019 10:10;4,5;8,75\r\n"
                                   "15.02.2019 10:20;5,5;9,25\r\n");
    }

    NoticeBar& bar() { return *frame().findChild<CGridView*>()->findChild<NoticeBar*>(); }

    std::string label(int column) { return std::string(frame().data().column(column).label()); }

    /// Opens the dialog with the bar's button and answers it.
    void change(std::function<void(LayoutDialog&)> answer) {
        DialogScript dialogs;
        dialogs.then<LayoutDialog>(std::move(answer));
        bar().button()->click();
    }

    template <class Field>
    static Field& field(LayoutDialog& dialog, const char* option) {
        return *dialog.findChild<LayoutFields*>()->findChild<Field*>(QString::fromLatin1(option));
    }

    static QTableView& table(LayoutDialog& dialog) {
        for (auto* view : dialog.findChildren<QTableView*>()) {
            if (!qobject_cast<SampleLinesView*>(view)) return *view;
        }
        qFatal("the dialog has no table");
    }

    static std::string heading(LayoutDialog& dialog, int column) {
        const auto& model = *table(dialog).model();
        return model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString();
    }
};

TEST_F(TextLayoutTest, ANoteTellsOfALayoutThatIsNotPlainUntilItIsClosedOrTheNextLoad) {
    auto& frame = start(preamble());
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(bar().text().toStdString(),
              "Headings from line 4, separated by semicolon, decimal comma");
    EXPECT_EQ(bar().accessibleName(), bar().text());
    EXPECT_LT(bar().minimumSizeHint().width(), 300) << "the text must not widen the window";
    QTest::keyClick(bar().button(), Qt::Key_Escape);
    EXPECT_FALSE(bar().isVisible());
    frame.OnLoadSessionFromFile(preamble());
    EXPECT_TRUE(bar().isVisible());
    frame.OnLoadSessionFromFile(csv());
    EXPECT_FALSE(bar().isVisible());
}

TEST_F(TextLayoutTest, AChangedLineOfHeadingsIsPreviewedThenLoadedAndRememberedUntilReset) {
    auto& frame = start(preamble());
    EXPECT_EQ(label(1), "Speed");
    change([](LayoutDialog& dialog) {
        EXPECT_EQ(field<QSpinBox>(dialog, "headings-line").value(), 4);
        EXPECT_EQ(heading(dialog, 1), "Speed");
        field<QSpinBox>(dialog, "headings-line").setValue(3);
        EXPECT_EQ(heading(dialog, 1), "Wind");
        dialog.reject();
    });
    EXPECT_EQ(label(1), "Speed") << "cancelled";
    change([](LayoutDialog& dialog) {
        field<QSpinBox>(dialog, "headings-line").setValue(3);
        EXPECT_EQ(table(dialog).model()->rowCount(), 3);
        dialog.accept();
    });
    EXPECT_EQ(label(1), "Wind");
    EXPECT_EQ(label(2), "Gust");
    EXPECT_TRUE(bar().text().startsWith(u"As you set it: headings from line 3"));

    frame.OnLoadSessionFromFile(preamble("next.csv", "One line more;here\r\n"));
    EXPECT_EQ(label(1), "Wind") << "the same headings, a line further down";
    EXPECT_TRUE(bar().text().startsWith(u"As you set it: headings from line 4"));
    change([](LayoutDialog& dialog) {
        EXPECT_EQ(dialog.wishes().headingsLine, 4);
        for (auto* button : dialog.findChildren<QPushButton*>()) {
            if (button->text().contains(u"Reset")) button->click();
        }
        EXPECT_FALSE(dialog.wishes().any());
        dialog.accept();
    });
    EXPECT_EQ(label(1), "Speed");
    frame.OnLoadSessionFromFile(preamble());
    EXPECT_EQ(label(1), "Speed") << "forgotten";
}

TEST_F(TextLayoutTest, EveryFieldChangesTheTableAndWrongTextsChangeNothing) {
    // column, row: of the cell of the table that tells; -1: its heading
    const Table<const char*, const char*, int, int, const char*> cases = {
        {"separator", "comma", 1, -1, "Column 1"},
        {"separator", "", 1, 0, "3.5"},
        {"decimal", "point", 1, 0, "3,5"},
        {"data-line", "6", 1, 0, "4.5"},
        {"units-line", "3", 1, -1, "Speed (Wind)"},
        {"headings-line", "0", 1, -1, "Column 2"},
        {"time-columns", "none", 1, 0, "15.02.2019 10:00"},
        {"time-columns", "x", 1, 0, "3.5"},
        {"time-format", "MM/dd/yyyy HH:mm", 0, 0, "15.02.2019 10:00"},
        {"time-format", "never", 1, 0, "3.5"},
    };
    start(preamble());
    for (const auto& [option, value, column, row, expected] : cases) {
        SCOPED_TRACE(testing::Message() << option << ' ' << value);
        change([&, option = option, value = value, column = column, row = row,
                expected = expected](LayoutDialog& dialog) {
            auto& widget = field<QWidget>(dialog, option);
            const auto text = QString::fromLatin1(value);
            if (auto* spin = qobject_cast<QSpinBox*>(&widget)) spin->setValue(text.toInt());
            if (auto* line = qobject_cast<QLineEdit*>(&widget)) line->setText(text);
            if (auto* box = qobject_cast<QComboBox*>(&widget)) box->setCurrentText(text);
            const auto& model = *table(dialog).model();
            EXPECT_EQ(row < 0 ? heading(dialog, column)
                              : model.index(row, column).data().toString().toStdString(),
                      expected);
            const auto* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            EXPECT_EQ(ok->isEnabled(), dialog.wishes().any())
                << "a wrong text is no wish, and not to be accepted";
            dialog.reject();
        });
    }
}

TEST_F(TextLayoutTest, ItIsAllDoneByKeyboard) {
    auto& frame = start(preamble());
    DialogScript dialogs;
    dialogs.then<LayoutDialog>([](LayoutDialog& dialog) {
        QTest::keyClick(dialog.windowHandle(), Qt::Key_H, Qt::AltModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    QTest::keyClick(frame.windowHandle(), Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return label(1) == "Wind"; }));
}

TEST_F(TextLayoutTest, AFileOfAnyNameIsOpenedWithALayout) {
    auto& frame = start();
    const auto file = preamble("mast.dat");
    DialogScript dialogs;
    dialogs
        .then<QFileDialog>([&](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(file);
            QMetaObject::invokeMethod(&dialog, "accept");
        })
        .then<LayoutDialog>([](LayoutDialog& dialog) {
            EXPECT_FALSE(dialog.wishes().any());
            dialog.accept();
        });
    give(Command::OpenWithLayout);
    EXPECT_EQ(status(), "Rows: 3 | Channels: 2 | Bad lines: 0 | mast.dat");
    EXPECT_EQ(frame.recentFiles().paths(), QStringList{file});
}

TEST_F(TextLayoutTest, TheRolesOfTheLinesAndTheFieldsOfTheTimeAreMarked) {
    start(preamble());
    change([](LayoutDialog& dialog) {
        std::string roles;
        const auto& lines = dialog.findChild<SampleLinesView*>()->lines().lines();
        for (const SampleLine& line : lines)
            roles += roleName(line.role).left(1).toStdString();
        EXPECT_EQ(roles, "DDDHDDD") << "description, headings, data";
        ASSERT_EQ(lines[4].times.size(), 1U);
        EXPECT_EQ(lines[4].text.left(lines[4].times[0].length), u"15.02.2019 10:00");
        dialog.reject();
    });
}

TEST_F(TextLayoutTest, TheMemoryHoldsFiftyAndWhatIsDamagedInItIsPassedOver) {
    LayoutMemory memory(*m_settings);
    LayoutWishes wishes;
    wishes.quote = '\0';
    wishes.missing = {{"NaN", "a&b=c d"}};
    wishes.timeFormat = "dd/MM/yyyy HH:mm";
    TextLayout layout;
    layout.headingsLine = layout.headingLines = 1;
    const auto sampleOf = [](std::size_t i) {
        return TextSample::ofText("time,a" + std::to_string(i) + "\n1,2\n");
    };
    for (std::size_t i = 0; i <= LayoutMemory::kMaximum; ++i)
        EXPECT_TRUE(memory.remember(sampleOf(i), layout, wishes));
    EXPECT_FALSE(memory.recall(sampleOf(0)).any());
    EXPECT_EQ(memory.recall(sampleOf(1)), wishes);
    EXPECT_FALSE(memory.remember(sampleOf(1), layout, {}));
    EXPECT_FALSE(memory.recall(sampleOf(1)).any());

    const auto known = m_settings->GetProfileString("Text Layouts", "Known");
    m_settings->WriteProfileString(
        "Text Layouts", "Known",
        QStringLiteral("line=1 %%& headings=x&line=-1&lines=9999999999 ") + known +
            QStringLiteral(" headings=y&line=1&lines=1&quote=zzz"));
    EXPECT_EQ(memory.recall(sampleOf(2)), wishes);
    layout.headingsLine = 0;
    EXPECT_FALSE(memory.remember(sampleOf(2), layout, wishes)) << "no headings to know it by";
}

} // namespace pellam
