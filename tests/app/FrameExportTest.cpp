#include "FrameFixture.h"
#include "ui/dialogs/CConnectionStatus.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

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

    static std::function<void(QMessageBox&)> tick(const std::function<void(QMessageBox&)>& then) {
        return [=](QMessageBox& box) {
            box.checkBox()->setChecked(true);
            then(box);
        };
    }

    /// A delimited file with this many rows on the grid.
    void startWithRows(int count) {
        QByteArray rows = "Time,Level (m)\r\n";
        for (int row = 0; row < count; ++row)
            rows += "2024/03/01 10:00:00," + QByteArray::number(row) + "\r\n";
        const auto file = write("many.csv", rows);
        if (m_app->mainFrame())
            frame().OnLoadSessionFromFile(file);
        else
            start(file);
        ASSERT_EQ(frame().data().rowCount(), count);
    }

    const std::string kCsv = "Time,Level (m),Flow (l/s),\r\n"
                             "2024/03/01 10:00:00,4.25,17,\r\n"
                             "2024/03/01 10:15:00,4.31,18.5,\r\n";
    const std::string kTxt = "Time\tLevel (m)\tFlow (l/s)\t\r\n"
                             "2024/03/01 10:00:00\t4.25\t17\t\r\n"
                             "2024/03/01 10:15:00\t4.31\t18.5\t\r\n";
    const QString kOverwrite = u"The file already exists, Do you want to overwrite it ?"_s;
};

TEST_F(FrameExportTest, TheEndingDecidesTheKind) {
    // typed: null for the proposed name; filter: empty for the first; file: empty for none
    const Table<const char*, const char*, const char*, const char*, bool> cases = {
        {"proposed name, first filter", nullptr, "", "site.2024.csv", false},
        {"proposed name, text filter", nullptr, "Text Files (*.txt)", "site.2024.txt", true},
        {"typed without an ending", "out", "", "out.csv", false},
        {"typed without an ending, text filter", "out", "Text Files (*.txt)", "out.txt", true},
        {"the ending wins over the filter", "b.txt", "", "b.txt", true},
        {"capitals are another kind", "c.CSV", "", "", false},
        {"a kind that is not written", "d.xls", "", "", false},
    };
    start(csv("site.2024.dat.csv"));
    QFile::rename(path("site.2024.dat.csv"), path("site.2024.dlr"));
    frame().OnLoadSessionFromFile(csv("site.2024.csv"));
    QFile::remove(path("site.2024.csv"));
    for (const auto& [name, typed, filter, file, tabs] : cases) {
        SCOPED_TRACE(name);
        const auto before = QDir(m_home.path()).entryList(QDir::Files);
        {
            DialogScript dialogs;
            dialogs.then<QFileDialog>(
                save(typed ? QString::fromLatin1(typed) : QString(), QString::fromLatin1(filter)));
            give(Command::Export);
        }
        if (*file) {
            EXPECT_EQ(text(path(file)), tabs ? kTxt : kCsv);
        } else {
            EXPECT_EQ(QDir(m_home.path()).entryList(QDir::Files), before);
        }
    }
}

TEST_F(FrameExportTest, AnExistingFileIsAskedForWithThreeAnswers) {
    start(csv());
    const auto old = write("old.csv", "keep");
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

TEST_F(FrameExportTest, TheLoadedFileIsNeverReplaced) {
    const auto loaded = write("notes.csv", "Time,Note\r\n2024/03/01 10:00:00,\"a, b\"\r\n");
    QFile::link(loaded, path("link.csv"));
    start(loaded);
    for (const auto& name : {loaded, path("link.csv")}) {
        std::string message;
        DialogScript dialogs;
        dialogs.then<QFileDialog>(save(name))
            .thenMessage(&message)
            .then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        give(Command::Export);
        EXPECT_EQ(message,
                  name.toStdString() + " can not be written: it is the file that was loaded.");
    }
    std::string message;
    {
        DialogScript dialogs;
        dialogs.thenMessage(&message);
        frame().ExportCSV(loaded);
    }
    EXPECT_NE(message, "");
    EXPECT_EQ(text(loaded), "Time,Note\r\n2024/03/01 10:00:00,\"a, b\"\r\n");
    frame().ExportCSV(path("copy.csv"));
    EXPECT_EQ(text(path("copy.csv")), "Time,Note,\r\n2024/03/01 10:00:00,\"a, b\",\r\n");
}

TEST_F(FrameExportTest, APipeThatNobodyReadsCanBeStopped) {
    start(csv());
    const auto pipe = path("pipe.csv");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QTimer abort;
    QObject::connect(&abort, &QTimer::timeout, &frame(), [this] {
        auto* window = frame().findChild<CConnectionStatus*>();
        if (window && window->isVisible()) window->OnAbort();
    });
    abort.start(50);
    frame().ExportCSV(pipe);
    EXPECT_EQ(frame().statusBar()->currentMessage(),
              u"Export stopped: nothing was written to pipe.csv");
}

TEST_F(FrameExportTest, AFolderThatIsNotThereIsReported) {
    start(csv());
    std::string message;
    DialogScript dialogs;
    dialogs.thenMessage(&message);
    frame().ExportCSV(path("no/such/x.csv"));
    EXPECT_NE(message.find("x.csv can not be written: No such file"), std::string::npos) << message;
}

/// Stands in for the desktop's program that opens files: notes them and ends with a status.
class Desktop {
  public:
    explicit Desktop(int status = 0) {
        QFile script(m_folder.filePath(u"xdg-open"_s));
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"$0.log\"\nexit " +
                     QByteArray::number(status) + "\n");
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ':' + m_path);
    }

    ~Desktop() { qputenv("PATH", m_path); }

    /// The files opened so far, a line each, once there are `count`.
    std::string opened(int count) {
        QFile log(m_folder.filePath(u"xdg-open.log"_s));
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
    const auto out = path("a b.csv");
    std::string message;
    {
        DialogScript dialogs;
        dialogs.then<QFileDialog>(save(out)).thenMessage(&message);
        give(Command::ViewSpreadsheet);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !message.empty(); }));
    }
    EXPECT_EQ(desktop.opened(1), out.toStdString() + '\n');
    EXPECT_EQ(message, "Warning: No program could open " + out.toStdString() +
                           ".\nChoose a program for CSV files in the settings of your desktop.");
    EXPECT_EQ(text(out), kCsv);
}

TEST_F(FrameExportTest, AFileThatIsNoTableByItsNameIsNeverHandedOver) {
    start(csv());
    Desktop desktop;
    const auto out = path("a.desktop");
    std::string message;
    DialogScript dialogs;
    dialogs.then<QFileDialog>(save(out)).thenMessage(&message);
    give(Command::ViewSpreadsheet);
    EXPECT_TRUE(message.starts_with("Warning: No program could open ")) << message;
    EXPECT_EQ(text(out), kCsv);
    EXPECT_EQ(desktop.opened(0), "");
}

TEST_F(FrameExportTest, MoreRowsThanASpreadsheetTakesAreAskedFor) {
    Desktop desktop;
    startWithRows(65536);
    {
        DialogScript dialogs; // no question yet
        dialogs.then<QFileDialog>(save(path("sheet.csv")));
        give(Command::ViewSpreadsheet);
    }
    const auto sheet = path("sheet.csv").toStdString() + '\n';
    EXPECT_EQ(desktop.opened(1), sheet);
    EXPECT_EQ(read(path("sheet.csv")).count('\n'), 65537);
    QFile::remove(path("sheet.csv"));
    startWithRows(65537);
    const auto question = QStringLiteral("The file contains more rows (65537) than will load into "
                                         "an external spreadsheet.\r\nDo you wish to continue?");
    {
        DialogScript dialogs;
        dialogs.then<QMessageBox>(tick(press(QMessageBox::No, question)));
        give(Command::ViewSpreadsheet);
    }
    EXPECT_EQ(desktop.opened(1), sheet);
    {
        DialogScript dialogs;
        dialogs.then<QMessageBox>(tick(press(QMessageBox::Yes, question)))
            .then<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        give(Command::ViewSpreadsheet);
    }
    DialogScript dialogs;
    dialogs.then<QFileDialog>(save(path("sheet.csv")));
    give(Command::ViewSpreadsheet);
    EXPECT_EQ(desktop.opened(2), sheet + sheet) << "a kept Yes asks no more, a No was not kept";
}

} // namespace pellam
