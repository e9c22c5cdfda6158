#include "FrameFixture.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>

namespace pellam {

/// Answers the export's dialogs.
class FrameExportTest : public FrameFixture {
  protected:
    void SetUp() override {
        FrameFixture::SetUp();
        m_settings->WriteProfileString("Default", "SaveDir", m_home.path().toStdString());
    }

    /// Types a name into the save dialog, after choosing a filter.
    static std::function<void(QFileDialog&)> save(const QString& name, const QString& filter = {}) {
        return [=](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Select Output File");
            if (!filter.isEmpty()) {
                dialog.selectNameFilter(filter);
                Q_EMIT dialog.filterSelected(filter);
            }
            if (!name.isNull()) dialog.findChild<QLineEdit*>()->setText(name);
            QMetaObject::invokeMethod(&dialog, "accept");
        };
    }

    static std::function<void(QMessageBox&)> press(QMessageBox::StandardButton button,
                                                   const QString& text = {}) {
        return [=](QMessageBox& box) {
            if (!text.isEmpty()) {
                EXPECT_EQ(box.text().toStdString(), text.toStdString());
            }
            box.button(button)->click();
        };
    }

    static std::string text(const QString& path) { return read(path).toStdString(); }

    /// A delimited file with this many rows on the grid.
    void startWithRows(int count) {
        QByteArray rows = "Time,Level (m)\r\n";
        for (int row = 0; row < count; ++row)
            rows += "2024/03/01 10:00:00," + QByteArray::number(row) + "\r\n";
        start(write(QStringLiteral("many.csv"), rows));
        ASSERT_EQ(frame().data().rowCount(), count);
    }

    const std::string kCsv = "Time,Level (m),Flow (l/s),\r\n"
                             "2024/03/01 10:00:00,4.25,17,\r\n"
                             "2024/03/01 10:15:00,4.31,18.5,\r\n";
    const std::string kTxt = "Time\tLevel (m)\tFlow (l/s)\t\r\n"
                             "2024/03/01 10:00:00\t4.25\t17\t\r\n"
                             "2024/03/01 10:15:00\t4.31\t18.5\t\r\n";
    const QString kOverwrite =
        QStringLiteral("The file already exists, Do you want to overwrite it ?");
};

struct ExportCase {
    const char* name;
    const char* typed;  ///< null: the proposed name stays
    const char* filter; ///< empty: the first
    const char* file;   ///< written; empty when none is
    bool tabs;
};

TEST_F(FrameExportTest, TheEndingDecidesTheKind) {
    const ExportCase cases[] = {
        {"proposed name, first filter", nullptr, "", "site.2024.csv", false},
        {"proposed name, text filter", nullptr, "Text Files (*.txt)", "site.2024.txt", true},
        {"typed without an ending", "out", "", "out.csv", false},
        {"typed without an ending, text filter", "out", "Text Files (*.txt)", "out.txt", true},
        {"the ending wins over the filter", "b.txt", "", "b.txt", true},
        {"capitals are another kind", "c.CSV", "", "", false},
        {"a kind that is not written", "d.xls", "", "", false},
    };
    start(csv(QStringLiteral("site.2024.dat.csv")));
    QFile::rename(path(QStringLiteral("site.2024.dat.csv")), path(QStringLiteral("site.2024.dlr")));
    frame().OnLoadSessionFromFile(csv(QStringLiteral("site.2024.csv")));
    QFile::remove(path(QStringLiteral("site.2024.csv")));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const auto before = QDir(m_home.path()).entryList(QDir::Files);
        {
            DialogScript dialogs;
            dialogs.then<QFileDialog>(save(row.typed ? QString::fromLatin1(row.typed) : QString(),
                                           QString::fromLatin1(row.filter)));
            give(Command::Export);
        }
        if (*row.file) {
            EXPECT_EQ(text(path(QString::fromLatin1(row.file))), row.tabs ? kTxt : kCsv);
        } else {
            EXPECT_EQ(QDir(m_home.path()).entryList(QDir::Files), before);
        }
    }
}

TEST_F(FrameExportTest, AnExistingFileIsAskedForWithThreeAnswers) {
    start(csv());
    const auto old = write(QStringLiteral("old.csv"), "keep");
    {
        DialogScript dialogs;
        dialogs.then<QFileDialog>(save(old))
            .then<QMessageBox>(press(QMessageBox::No, kOverwrite))
            .then<QFileDialog>(save(old))
            .then<QMessageBox>(press(QMessageBox::Cancel, kOverwrite));
        give(Command::Export);
    }
    EXPECT_EQ(text(old), "keep");
    DialogScript dialogs;
    dialogs.then<QFileDialog>(save(old)).then<QMessageBox>(press(QMessageBox::Yes, kOverwrite));
    give(Command::Export);
    EXPECT_EQ(text(old), kCsv);
}

TEST_F(FrameExportTest, AFolderThatIsNotThereIsReported) {
    start(csv());
    DialogScript dialogs;
    dialogs.then<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_TRUE(box.text().contains(u"x.csv")) << box.text().toStdString();
        box.accept();
    });
    frame().ExportCSV(path(QStringLiteral("no/such/x.csv")));
}

/// Stands in for the desktop's program that opens files: notes them and ends with a status.
class Desktop {
  public:
    explicit Desktop(int status = 0) {
        QFile script(m_folder.filePath(QStringLiteral("xdg-open")));
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"$0.log\"\nexit " +
                     QByteArray::number(status) + "\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ':' + m_path);
    }

    ~Desktop() { qputenv("PATH", m_path); }

    /// The files opened so far, a line each, once there are `count`.
    std::string opened(int count) {
        QFile log(m_folder.filePath(QStringLiteral("xdg-open.log")));
        QByteArray lines;
        (void)QTest::qWaitFor([&] {
            lines = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
            log.close();
            return lines.count('\n') >= count;
        });
        return lines.toStdString();
    }

  private:
    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(FrameExportTest, AFileThatNoProgramOpensIsSaid) {
    start(csv());
    Desktop desktop(3);
    const auto out = path(QStringLiteral("a b.csv"));
    std::string message;
    {
        DialogScript dialogs;
        dialogs.then<QFileDialog>(save(out)).then<QMessageBox>([&](QMessageBox& box) {
            message = box.text().toStdString();
            box.accept();
        });
        give(Command::ViewSpreadsheet);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !message.empty(); }));
    }
    EXPECT_EQ(desktop.opened(1), out.toStdString() + '\n');
    EXPECT_EQ(message, "Warning: No program could open " + out.toStdString() +
                           ".\nChoose a program for CSV files in the settings of your desktop.");
    EXPECT_EQ(text(out), kCsv);
}

TEST_F(FrameExportTest, ASpreadsheetGetsUpTo65536RowsWithoutAQuestion) {
    startWithRows(65536);
    Desktop desktop;
    const auto out = path(QStringLiteral("sheet.csv"));
    DialogScript dialogs;
    dialogs.then<QFileDialog>(save(out));
    give(Command::ViewSpreadsheet);
    EXPECT_EQ(desktop.opened(1), out.toStdString() + '\n');
    EXPECT_EQ(read(out).count('\n'), 65537);
}

TEST_F(FrameExportTest, MoreRowsThanASpreadsheetTakesAreAskedFor) {
    startWithRows(65537);
    Desktop desktop;
    const auto question = QStringLiteral("The file contains more rows (65537) than will load into "
                                         "an external spreadsheet.\r\nDo you wish to continue?");
    {
        DialogScript dialogs;
        dialogs.then<QMessageBox>([&](QMessageBox& box) {
            box.checkBox()->setChecked(true);
            press(QMessageBox::No, question)(box);
        });
        give(Command::ViewSpreadsheet);
    }
    EXPECT_EQ(desktop.opened(0), "");
    {
        DialogScript dialogs;
        dialogs
            .then<QMessageBox>([&](QMessageBox& box) {
                box.checkBox()->setChecked(true);
                press(QMessageBox::Yes, question)(box);
            })
            .then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        give(Command::ViewSpreadsheet);
    }
    DialogScript dialogs;
    dialogs.then<QFileDialog>(save(path(QStringLiteral("sheet.csv"))));
    give(Command::ViewSpreadsheet);
    EXPECT_EQ(desktop.opened(1), path(QStringLiteral("sheet.csv")).toStdString() + '\n')
        << "a kept Yes asks no more, a No was not kept";
}

} // namespace pellam
