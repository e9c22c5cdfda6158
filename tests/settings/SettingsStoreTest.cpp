#include "settings/SettingsStore.h"

#include "ScratchFolder.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pellam {
namespace {

using namespace std::string_literals;

class SettingsStoreTest : public testing::Test {
  protected:
    ScratchFolder m_folder;
    QString m_path = QString::fromStdString(m_folder.path("Korvane/Pellam.ini"));
    SettingsStore m_store{m_path};

    void SetUp() override { std::filesystem::create_directories(m_folder.path("Korvane")); }

    [[nodiscard]] std::string file() const { return m_folder.read("Korvane/Pellam.ini"); }

    void givenFile(std::string_view text) { m_folder.write("Korvane/Pellam.ini", text); }

    /// Names and contents of the copies beside the file.
    [[nodiscard]] std::string copies() const {
        std::string text;
        for (const QString& name : QFileInfo(m_path).dir().entryList({QStringLiteral("*.bak*")}))
            text += name.toStdString() + '=' + m_folder.read("Korvane/" + name.toStdString()) + '|';
        return text;
    }
};

TEST_F(SettingsStoreTest, FirstWritesMakeTheKeyTree) {
    std::filesystem::remove_all(m_folder.path("Korvane"));
    EXPECT_TRUE(m_store.WriteProfileString("Default", "SaveDir", "/data/out"));
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "SideBarWidth", -7));
    EXPECT_TRUE(m_store.WriteProfileBinary("Frame", "State", QByteArray("\x00\x7F\xFF", 3)));
    EXPECT_TRUE(m_store.setValue("Software/Tarnholt/Pellam/XMessageBox/Overwrite", "6"));
    EXPECT_EQ(file(), "[Software]\n"
                      "Tarnholt\\Pellam\\XMessageBox\\Overwrite=6\n"
                      "\n"
                      "[software]\n"
                      "Korvane\\Pellam\\Default\\SaveDir=/data/out\n"
                      "Korvane\\Pellam\\Default\\SideBarWidth=-7\n"
                      "Korvane\\Pellam\\Frame\\State=@ByteArray(\\0\\x7f\\xff)\n");
    EXPECT_EQ(m_store.GetProfileString("Default", "SaveDir"), u"/data/out");
    EXPECT_EQ(m_store.GetProfileInt("Default", "SideBarWidth", 225), -7);
    EXPECT_EQ(m_store.GetProfileBinary("Frame", "State"), QByteArray("\x00\x7F\xFF", 3));
    EXPECT_EQ(m_store.value("Software/Tarnholt/Pellam/XMessageBox/Overwrite"), u"6");
    EXPECT_EQ(m_store.GetAppRegistryKey(), u"software/Korvane/Pellam");
    EXPECT_EQ(m_store.GetSectionKey("Default"), u"software/Korvane/Pellam/Default");
    EXPECT_EQ(copies(), "") << "a file of our own has nothing to lose";
}

TEST_F(SettingsStoreTest, MissingOrOtherKindsGiveTheDefault) {
    givenFile("[software]\nKorvane\\Pellam\\Default\\n=12x\nKorvane\\Pellam\\Default\\b=text\n"
              "Korvane\\Pellam\\Default\\s=@Size(1 2)\nKorvane\\Pellam\\Default\\i=@Invalid()\n"
              "Korvane\\Pellam\\Default\\wide=99999999999\n");
    for (const char* key : {"n", "none", "wide"})
        EXPECT_EQ(m_store.GetProfileInt("Default", key, 225), 225) << key;
    for (const char* key : {"none", "s", "i"})
        EXPECT_EQ(m_store.GetProfileString("Default", key, QStringLiteral("fallback")), u"fallback")
            << key;
    EXPECT_TRUE(m_store.GetProfileBinary("Default", "b").isNull());
    EXPECT_TRUE(m_store.GetProfileBinary("Default", "none").isNull());
}

TEST_F(SettingsStoreTest, PrivateProfileWithoutVendorKey) {
    SettingsStore store(m_path, {});
    EXPECT_TRUE(store.WriteProfileInt("Default", "SideBarWidth", 300));
    EXPECT_TRUE(store.WriteProfileBinary("Default", "State", "\x01\xAF"));
    EXPECT_EQ(file(), "[Default]\nSideBarWidth=300\nState=ABKP\n");
    EXPECT_EQ(store.GetAppRegistryKey(), QString());
    EXPECT_EQ(store.GetProfileInt("Default", "SideBarWidth", 0), 300);
    EXPECT_EQ(store.GetProfileBinary("Default", "State"), "\x01\xAF");
    EXPECT_TRUE(store.WriteProfileString("Default", "State", "ABx"));
    EXPECT_TRUE(store.GetProfileBinary("Default", "State").isNull());
}

TEST_F(SettingsStoreTest, TextsAsEarlierVersionsWroteThemAndPeopleWriteThem) {
    // raw value, what it reads as, and whether a rewrite leaves the line as it is
    const Table<const char*, std::string, std::string, bool> cases = {
        {"empty", "", "", true},
        {"path", "/home/ü €/x", "/home/ü €/x", true},
        {"beyond 16 bits", "/home/𝄞", "/home/𝄞", true},
        {"backslash", "C:\\\\new", "C:\\new", true},
        {"quotes", "\\\"q\\\"", "\"q\"", true},
        {"list", "\"a,b\"", "a,b", true},
        {"list with blanks", "\"a, b\"", "a, b", true},
        {"bare list", "a,b", "a,b", false},
        {"comma alone", ",", ",", true},
        {"comment", "\"a;b\"", "a;b", true},
        {"edge blanks", "\" a \"", " a ", true},
        {"line ends", "a\\r\\n\\tb", "a\r\n\tb", true},
        {"digit after escape", "\\x1\\x31\\x66", "\0011f", true},
        {"at sign", "@@here", "@here", true},
        {"zero", "@String(a\\0\\x62)", "a\0b"s, true},
        {"comment behind", "x ; y", "x", false},
        {"joined quotes", "\"a\"b \"c\" ", "ab c", false},
        {"octal", "\\x41g\\x42\\103", "AgBC", false},
        {"pair", "\\xd834\\xdd1e", "𝄞", false},
    };
    for (const auto& [name, raw, plain, stays] : cases) {
        const std::string line = "\nKorvane\\Pellam\\Default\\value=" + raw;
        const QString path =
            QString::fromStdString(m_folder.write(name + ".ini"s, "[software]" + line + "\n"));
        SettingsStore store(path);
        EXPECT_EQ(store.GetProfileString("Default", "value").toStdString(), plain) << name;
        EXPECT_TRUE(store.WriteProfileInt("Default", "other", 1)) << name;
        EXPECT_EQ(store.GetProfileString("Default", "value").toStdString(), plain) << name;
        EXPECT_EQ(QFile::exists(path + QStringLiteral(".bak")), !stays) << name;
        EXPECT_EQ(m_folder.read(name + ".ini"s).find(line) != std::string::npos, stays)
            << name << '\n'
            << m_folder.read(name + ".ini"s);
    }
}

TEST_F(SettingsStoreTest, KeysAsTheyStandInTheFile) {
    givenFile("\xEF\xBB\xBF[software]\r\nKorvane\\Pellam\\Recent%20File%20List\\File1=a\r\n"
              "Korvane\\Pellam\\%E4%25%U20AC\\%UD834%UDD1E=b\r\n[%General]\r\nx=c\r\n[intl]\r\n"
              "sDecimal=,\r\nsList=;\r\nsShortDate=\"M/d/yyyy\"\r\n");
    EXPECT_EQ(m_store.GetProfileString("Recent File List", "File1"), u"a");
    EXPECT_EQ(m_store.GetProfileString("ä%€", "𝄞"), u"b");
    EXPECT_EQ(m_store.value("General/x"), u"c");
    const auto intl = m_store.international({});
    EXPECT_EQ(std::string({intl.decimalSeparator, intl.listSeparator}), ",;");
    EXPECT_EQ(intl.shortDatePattern, "M/d/yyyy");
}

TEST_F(SettingsStoreTest, WhatARewriteLosesIsKeptBeside) {
    const Table<const char*, std::string, bool> cases = {
        {"as it writes it", "[a]\nx=1\n\n[software]\nn=1\n", false},
        {"Windows line ends", "[a]\r\nx=1\r\n", false},
        {"comment", "; by hand\n[a]\nx=1\n", true},
        {"other comment", "[a]\n  # by hand\nx=1\n", true},
        {"no value", "[a]\ndamaged line\nx=1\n", true},
        {"open section", "[a]\nx=1\n[un\ny=2\n", true},
        {"same key twice", "[a]\nx=2\nx=1\n", true},
        {"no text at all", "\xFF\xFE\0[\n=\n\\x=%\n]=[\n%U12=1\n"s, true},
    };
    for (const auto& [name, text, kept] : cases) {
        const std::string file = m_folder.write(std::string(name) + ".ini", text);
        SettingsStore store(QString::fromStdString(file));
        std::string notices;
        store.setListener([&](SettingsStore::Notice notice, const QString& path) {
            notices += notice == SettingsStore::Notice::KeptBeside ? "kept " : "not written ";
            notices += path.toStdString();
        });
        EXPECT_TRUE(store.WriteProfileInt("Default", "n", 2)) << name;
        EXPECT_TRUE(store.WriteProfileInt("Default", "n", 3)) << name;
        EXPECT_EQ(notices, kept ? "kept " + file + ".bak" : "") << name;
        EXPECT_EQ(ScratchFolder::contents(file + ".bak"), kept ? text : "(missing)") << name;
        EXPECT_EQ(store.GetProfileInt("Default", "n", 0), 3) << name;
        if (text.find("x=1") != text.npos) {
            EXPECT_EQ(store.value("a/x"), u"1") << name;
        }
    }
    givenFile("; one\n");
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "n", 1));
    givenFile("; another\n");
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "n", 2));
    EXPECT_EQ(copies(), "Pellam.ini.bak=; one\n|Pellam.ini.bak2=; another\n|");
}

TEST_F(SettingsStoreTest, ProgramsThatWriteAtTheSameTimeLoseNothing) {
    static constexpr int kWrites = 8;
    EXPECT_EQ(m_store.GetProfileInt("Default", "a1", 0), 0);
    std::vector<pid_t> programs;
    for (const QChar prefix : {u'a', u'b'}) {
        programs.push_back(::fork());
        if (programs.back() != 0) continue;
        SettingsStore store(m_path);
        bool written = true;
        for (int i = 0; i < kWrites; ++i)
            written = store.WriteProfileInt("Default", prefix + QString::number(i), i) && written;
        ::_exit(written ? 0 : 1);
    }
    for (const pid_t program : programs) {
        int status = -1;
        EXPECT_EQ(::waitpid(program, &status, 0), program);
        EXPECT_EQ(status, 0);
    }
    for (int i = 0; i < kWrites; ++i)
        for (const QChar prefix : {u'a', u'b'})
            EXPECT_EQ(m_store.GetProfileInt("Default", prefix + QString::number(i), -1), i);
}

TEST_F(SettingsStoreTest, DeletingAKeyTakesAllBelowItAndNothingElse) {
    givenFile("[Software]\nTarnholt\\Pellam\\XMessageBox\\a=1\n"
              "Tarnholt\\Pellam\\XMessageBox\\b\\c=2\nTarnholt\\Pellam\\XMessageBoxes=3\n");
    EXPECT_TRUE(m_store.deleteKey("Software/Tarnholt/Pellam/XMessageBox"));
    EXPECT_TRUE(m_store.deleteKey("Software/Tarnholt/Pellam/XMessageBox"));
    EXPECT_EQ(file(), "[Software]\nTarnholt\\Pellam\\XMessageBoxes=3\n");
}

TEST_F(SettingsStoreTest, WhatCanNotBeWrittenStaysForTheSession) {
    const std::string plain = m_folder.write("plain", "x");
    const std::string large = m_folder.write("large", {});
    std::filesystem::resize_file(large, SettingsStore::kMaximumSize + 1);
    ASSERT_EQ(::mkfifo(m_folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {m_folder.path(), plain + "/Pellam.ini", "/dev/full"s, large,
                                    m_folder.path("pipe"), "/proc/Pellam/Pellam.ini"s}) {
        SettingsStore store(QString::fromStdString(path));
        int told = 0;
        EXPECT_EQ(store.GetProfileInt("Default", "a", 5), 5) << path;
        EXPECT_FALSE(store.WriteProfileInt("Default", "a", 2)) << path;
        EXPECT_FALSE(store.WriteProfileString("Default", "b", "x")) << path;
        store.setListener([&](SettingsStore::Notice notice, const QString& file) {
            EXPECT_EQ(notice, SettingsStore::Notice::NotWritten);
            EXPECT_EQ(file.toStdString(), path);
            ++told;
        });
        EXPECT_FALSE(store.deleteKey(store.GetSectionKey("Default") + QStringLiteral("/b")))
            << path;
        EXPECT_EQ(store.GetProfileInt("Default", "a", 5), 2) << path;
        EXPECT_EQ(store.GetProfileString("Default", "b"), QString()) << path;
        EXPECT_EQ(told, 1) << path;
    }
    EXPECT_EQ(m_folder.list(), "Korvane large pipe plain");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(SettingsStoreTest, WhatWaitedIsWrittenWhenItCanBe) {
    std::filesystem::remove_all(m_folder.path("Korvane"));
    m_folder.write("Korvane", "in the way");
    EXPECT_FALSE(m_store.WriteProfileInt("Default", "a", 1));
    std::filesystem::remove(m_folder.path("Korvane"));
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "b", 2));
    EXPECT_EQ(file(), "[software]\nKorvane\\Pellam\\Default\\a=1\n"
                      "Korvane\\Pellam\\Default\\b=2\n");
}

TEST_F(SettingsStoreTest, WithoutRoomForTheCopyNothingIsWritten) {
    const std::string text = "; by hand\n[software]\nKorvane\\Pellam\\Default\\a=1\n";
    givenFile(text);
    // Names that a copy could have are taken up to the longest that there is.
    const std::string name(250, 'n');
    const std::string path = m_folder.write(name, text);
    SettingsStore store(QString::fromStdString(path));
    EXPECT_FALSE(store.WriteProfileInt("Default", "b", 2));
    EXPECT_EQ(store.GetProfileInt("Default", "a", 0), 1);
    EXPECT_EQ(store.GetProfileInt("Default", "b", 0), 2);
    EXPECT_EQ(m_folder.read(name), text);
}

TEST(SettingsStoreDefaultPath, FollowsTheConfigurationFolder) {
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    const QByteArray home = qgetenv("HOME");
    ::setenv("HOME", "/home/ann", 1);
    ::setenv("XDG_CONFIG_HOME", "/etc/ann", 1);
    EXPECT_EQ(SettingsStore::defaultPath(), u"/etc/ann/Korvane/Pellam.ini");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SettingsStore::defaultPath(), u"/home/ann/.config/Korvane/Pellam.ini");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsStore::defaultPath(), u"/home/ann/.config/Korvane/Pellam.ini");
    ::unsetenv("HOME");
    EXPECT_FALSE(SettingsStore::defaultPath().startsWith(u"//"));
    qputenv("XDG_CONFIG_HOME", config);
    qputenv("HOME", home);
}

} // namespace
} // namespace pellam
