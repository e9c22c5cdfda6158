#include "drop/CMyDropTarget.h"

#include "RecordingSinks.h"
#include "ScratchFolder.h"

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

constexpr int kNarrow = 260;
constexpr int kWide = 520;

QString windowsForm(const char* name) {
    return u"application/x-qt-windows-mime;value=\"%1\""_s.arg(QLatin1String(name));
}

QByteArray littleEndian(quint32 value) {
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

/// A group of one descriptor: count, 64 bytes that do not matter here, size high and low, name.
QByteArray group(const QByteArray& name, quint32 size, int nameSize = kNarrow) {
    return littleEndian(1) + QByteArray(64, '\x40') + littleEndian(7) + littleEndian(size) +
           name.leftJustified(nameSize, '\0', true);
}

QByteArray utf16(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text)
        bytes += QByteArray(1, char(c.cell())) + QByteArray(1, char(c.row()));
    return bytes;
}

/// Files larger than this can't be written while it lives, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit small{bytes, m_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }

    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }

  private:
    void (*m_handler)(int);
    rlimit m_limit{};
};

class CMyDropTargetTest : public testing::Test {
  protected:
    CMyDropTargetTest() {
        m_target->setContext({m_messages, [this]() -> ProgressSink& { return m_progress; },
                              [this] { return QString::fromStdString(m_saveFolder); },
                              [this] { return m_ready; }});
        QObject::connect(m_target, &CMyDropTarget::fileDropped,
                         [this](const QString& path) { m_dropped += path.toStdString() + '\n'; });
        QObject::connect(m_target, &CMyDropTarget::notice,
                         [this](const QString& text) { m_notice = text.toStdString(); });
    }

    /// Drags over the widget and drops: "" when the drag was refused, else what the drop did.
    std::string drop(const QMimeData& data, Qt::DropActions actions = Qt::CopyAction) {
        m_dropped.clear();
        m_notice.clear();
        m_messages.texts.clear();
        QDragEnterEvent enter({5, 5}, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_widget, &enter);
        QDragMoveEvent over({6, 6}, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_widget, &over);
        EXPECT_EQ(enter.isAccepted(), over.isAccepted());
        if (!enter.isAccepted()) return "";
        EXPECT_EQ(over.dropAction(), Qt::CopyAction);
        QDropEvent event(QPointF(6, 6), actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_widget, &event);
        EXPECT_EQ(m_messages.texts, "") << "the other program waits for the end of the drop";
        QCoreApplication::processEvents();
        EXPECT_EQ(m_progress.open, 0);
        return event.isAccepted() ? "taken" : "failed";
    }

    /// Drops a virtual file; its contents are its name's.
    std::string dropVirtual(const QByteArray& name, const QByteArray& contents) {
        QMimeData data;
        data.setData(windowsForm("FileGroupDescriptor"), group(name, quint32(contents.size())));
        data.setData(windowsForm("FileContents") + u";index=0"_s, contents);
        return drop(data);
    }

    ScratchFolder m_folder;
    std::string m_saveFolder = m_folder.path();
    QWidget m_widget;
    test::RecordedMessages m_messages;
    test::RecordedProgress m_progress;
    CMyDropTarget* m_target = new CMyDropTarget(&m_widget);
    bool m_ready = true;
    std::string m_dropped; ///< paths, a line each
    std::string m_notice;
};

TEST_F(CMyDropTargetTest, OfDroppedFilesTheFirstIsTakenAndAlwaysCopied) {
    QMimeData files;
    files.setUrls({QUrl(u"file:///a%20b.dlr"_s), QUrl(u"file:///c"_s)});
    EXPECT_EQ(drop(files, Qt::CopyAction | Qt::MoveAction), "taken");
    EXPECT_EQ(m_dropped, "/a b.dlr\n");
    EXPECT_EQ(drop(files, Qt::MoveAction), "") << "its source would delete it";
    m_ready = false;
    EXPECT_EQ(drop(files), "");
    m_ready = true;
    QMimeData other;
    other.setUrls({QUrl(u"https://example.org/a.dlr"_s)});
    other.setText(u"/a.dlr"_s);
    EXPECT_EQ(drop(other), "");
}

TEST_F(CMyDropTargetTest, AVirtualFileIsSavedUnderAFileNameAndNeverReplacesAnother) {
    for (const char* taken : {"a.dlr", "a (2).dlr", "plain", "b.2024.csv"})
        m_folder.write(taken, "before");
    const Table<const char*, const char*> kept = {
        {"new.dlr", "new.dlr"},      {"a.dlr", "a (3).dlr"},
        {"plain", "plain (2)"},      {"b.2024.csv", "b.2024 (2).csv"},
        {"a..b.dlr", "a..b.dlr"},    {"console.dlr", "console.dlr"},
        {"com10.dlr", "com10.dlr"},  {"Meß.dlr", "Meß.dlr"},
        {"Alt\xDF.dlr", "Altß.dlr"}, {"100% \"x\".dlr", "100% \"x\".dlr"},
    };
    for (const auto& [name, saved] : kept) {
        const std::string contents = std::string("contents of ") + name;
        EXPECT_EQ(dropVirtual(name, QByteArray::fromStdString(contents)), "taken") << name;
        EXPECT_EQ(m_dropped, m_folder.path(saved) + '\n');
        EXPECT_EQ(m_folder.read(saved), contents);
        EXPECT_EQ(m_messages.texts, "");
    }
    for (const char* taken : {"a.dlr", "a (2).dlr", "plain", "b.2024.csv"})
        EXPECT_EQ(m_folder.read(taken), "before") << taken;

    const std::string before = m_folder.list();
    const std::string tooLong(251, 'n');
    for (const char* name :
         {tooLong.c_str(), "../up.dlr", "/etc/x.dlr", "sub/x.dlr", "..\\up.dlr", ".profile",
          "C:\\x.dlr", "c:x.dlr", "..", ".", "a\nb.dlr", "a\x1B[2J.dlr", "a\x7F.dlr", "NUL",
          "con.dlr", "Lpt1 .dlr", "com9", "aux...", ""}) {
        EXPECT_EQ(dropVirtual(name, "contents"), "failed") << name;
        EXPECT_EQ(m_dropped, "");
        EXPECT_EQ(m_folder.list(), before) << name;
        if (*name == '\0') continue; // refused without a word
        EXPECT_TRUE(m_messages.texts.starts_with("Warning: Can not open output file " +
                                                 m_folder.path() + '/'))
            << m_messages.texts;
        EXPECT_EQ(std::count(m_messages.texts.begin(), m_messages.texts.end(), '\n'), 1);
    }
}

TEST_F(CMyDropTargetTest, AVirtualFileComesInAnyFormOfItsFormats) {
    const auto plain = group("narrow.dlr", 4);
    const auto wide = group(utf16(u"w\u00EFde\u20AC.dlr"_s), 4, kWide);
    const auto wideName = windowsForm("FileGroupDescriptorW");
    const QString contents = windowsForm("FileContents");

    // expected: what the drag comes to, and the file saved
    const Table<const char*, std::vector<std::pair<QString, QByteArray>>, const char*> cases = {
        {"plain names",
         {{u"FileGroupDescriptor"_s, plain}, {u"FileContents"_s, "data"}},
         "taken narrow.dlr"},
        {"without index", {{wideName, wide}, {contents, "data"}}, "taken w\u00EFde\u20AC.dlr"},
        {"wide before narrow",
         {{u"FileGroupDescriptor"_s, plain}, {wideName, wide}, {contents, "data"}},
         "taken w\u00EFde\u20AC (2).dlr"},
        {"damaged wide, whole narrow",
         {{windowsForm("FileGroupDescriptor"), plain},
          {wideName, wide.left(300)},
          {contents, "data"}},
         "taken narrow (2).dlr"},
        {"no contents offered", {{wideName, wide}}, "failed "},
        {"no descriptor", {{contents, "data"}}, " "},
        {"nothing in it", {{wideName, {}}, {contents, "data"}}, "failed "},
        {"cut before the name's end", {{wideName, wide.chopped(1)}, {contents, "data"}}, "failed "},
        {"cut in the head", {{wideName, wide.left(30)}, {contents, "data"}}, "failed "},
        {"no file in the group",
         {{wideName, littleEndian(0) + wide.mid(4)}, {contents, "data"}},
         "failed "},
        {"a count beyond the data",
         {{wideName, littleEndian(0xFFFFFFFF) + wide.mid(4)}, {contents, "data"}},
         "taken w\u00EFde\u20AC (3).dlr"},
        {"a name without an end",
         {{wideName, group(QByteArray(kWide, 'x'), 4, kWide)}, {contents, "data"}},
         "failed "},
    };

    for (const auto& [name, offered, expected] : cases) {
        SCOPED_TRACE(name);
        QMimeData data;
        for (const auto& [form, bytes] : offered)
            data.setData(form, bytes);
        std::string result = drop(data) + ' ';
        if (!m_dropped.empty()) {
            const QFileInfo saved(QString::fromStdString(m_dropped).trimmed());
            result += saved.fileName().toStdString();
            EXPECT_EQ(m_folder.read(saved.fileName().toStdString()), "data");
        }
        EXPECT_EQ(result, expected);
    }
}

TEST_F(CMyDropTargetTest, SavingShowsProgressAndCanBeStopped) {
    const QByteArray contents(100'000, 'x');
    EXPECT_EQ(dropVirtual("a.dlr", contents), "taken");
    EXPECT_EQ(m_progress.log, "Loading Korvane binary file|Loading...|1..10000\n");
    EXPECT_EQ(m_progress.position, 10'000);
    m_progress.asked = 0;
    m_progress.abortAfter = 20;
    EXPECT_EQ(dropVirtual("b.dlr", contents), "failed");
    EXPECT_EQ(m_folder.list(), "a.dlr");
    EXPECT_EQ(m_notice, "Drop stopped: nothing of b.dlr was kept");
    EXPECT_EQ(m_messages.texts + m_dropped, "");
}

TEST_F(CMyDropTargetTest, WhatCanNotBeSavedIsSaidAndLeavesNothing) {
    {
        const FullDisk full(50'000);
        EXPECT_EQ(dropVirtual("big.dlr", QByteArray(100'000, 'x')), "failed");
    }
    EXPECT_EQ(m_messages.texts,
              m_folder.path("big.dlr") + " can not be written: File too large.\n");
    QMimeData nothing;
    nothing.setData(u"FileGroupDescriptor"_s, group("lost.dlr", 12));
    nothing.setData(u"FileContents"_s, {});
    EXPECT_EQ(drop(nothing), "failed");
    EXPECT_TRUE(m_messages.texts.starts_with(m_folder.path("lost.dlr") + " can not be read"));
    EXPECT_EQ(dropVirtual(QByteArray(259, 'n'), "x"), "failed");
    EXPECT_NE(m_messages.texts, "");
    EXPECT_EQ(m_folder.list(), "");
    for (const std::string& folder : {m_folder.path("none"), std::string()}) {
        m_saveFolder = folder;
        EXPECT_EQ(dropVirtual("a.dlr", "x"), "failed");
        EXPECT_EQ(m_messages.texts, "Warning: Can not open output file " + folder + "/a.dlr\n");
    }
    EXPECT_EQ(m_folder.list(), "");
}

} // namespace
} // namespace pellam
