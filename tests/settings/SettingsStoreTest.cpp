#include "settings/SettingsStore.h"

#include "ScratchFolder.h"

#include <sys/stat.h>
#include <thread>

namespace pellam {
namespace {

class SettingsStoreTest : public testing::Test {
  protected:
    ScratchFolder m_folder;
    std::string m_path = m_folder.path("Korvane/Pellam.ini");
    SettingsStore m_store{m_path};

    [[nodiscard]] std::string file() const { return m_folder.read("Korvane/Pellam.ini"); }

    void givenFile(std::string_view text) {
        std::filesystem::create_directories(m_folder.path("Korvane"));
        m_folder.write("Korvane/Pellam.ini", text);
    }
};

TEST_F(SettingsStoreTest, FirstWritesMakeTheKeyTree) {
    EXPECT_TRUE(m_store.WriteProfileString("Default", "SaveDir", "/data/out"));
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "SideBarWidth", -7));
    EXPECT_TRUE(m_store.WriteProfileBinary("Frame", "State", std::string_view("\x00\x7F\xFF", 3)));
    EXPECT_TRUE(m_store.setValue("Software\\Tarnholt\\Pellam\\XMessageBox\\Overwrite", "6"));
    EXPECT_EQ(file(), "[software]\n"
                      "Korvane\\Pellam\\Default\\SaveDir=/data/out\n"
                      "Korvane\\Pellam\\Default\\SideBarWidth=-7\n"
                      "Korvane\\Pellam\\Frame\\State=@ByteArray(\\0\\x7f\\xff)\n"
                      "\n"
                      "[Software]\n"
                      "Tarnholt\\Pellam\\XMessageBox\\Overwrite=6\n");
    EXPECT_EQ(m_store.GetProfileString("Default", "SaveDir"), "/data/out");
    EXPECT_EQ(m_store.GetProfileInt("Default", "SideBarWidth", 225), -7);
    EXPECT_EQ(m_store.GetProfileBinary("Frame", "State"), std::string("\x00\x7F\xFF", 3));
    EXPECT_EQ(m_store.value("Software/Tarnholt/Pellam/XMessageBox/Overwrite"), "6");
    EXPECT_EQ(m_store.GetAppRegistryKey(), "software/Korvane/Pellam");
    EXPECT_EQ(m_store.GetSectionKey("Default"), "software/Korvane/Pellam/Default");
}

TEST_F(SettingsStoreTest, MissingOrOtherKindsGiveTheDefault) {
    givenFile("[software]\nKorvane\\Pellam\\Default\\n=12x\nKorvane\\Pellam\\Default\\b=text\n");
    EXPECT_EQ(m_store.GetProfileInt("Default", "n", 225), 225);
    EXPECT_EQ(m_store.GetProfileInt("Default", "none", 225), 225);
    EXPECT_EQ(m_store.GetProfileString("Default", "none", "fallback"), "fallback");
    EXPECT_EQ(m_store.GetProfileString("Other", "b", "fallback"), "fallback");
    EXPECT_EQ(m_store.GetProfileBinary("Default", "b"), std::nullopt);
}

TEST_F(SettingsStoreTest, PrivateProfileWithoutVendorKey) {
    SettingsStore store(m_path, "");
    EXPECT_TRUE(store.WriteProfileInt("Default", "SideBarWidth", 300));
    EXPECT_TRUE(store.WriteProfileBinary("Default", "State", "\x01\xAF"));
    EXPECT_EQ(file(), "[Default]\nSideBarWidth=300\nState=ABKP\n");
    EXPECT_EQ(store.GetAppRegistryKey(), "");
    EXPECT_EQ(store.GetProfileInt("Default", "SideBarWidth", 0), 300);
    EXPECT_EQ(store.GetProfileBinary("Default", "State"), "\x01\xAF");
    EXPECT_TRUE(store.WriteProfileString("Default", "State", "ABx"));
    EXPECT_EQ(store.GetProfileBinary("Default", "State"), std::nullopt);
}

TEST_F(SettingsStoreTest, RewriteKeepsWhatItDoesNotKnow) {
    givenFile("; by hand\r\n[software]\r\n# note\r\nKorvane\\Pellam\\Default\\SaveDir=old ; why\r\n"
              "damaged line\r\nOther\\key=\"a, b\"\r\n\r\n[un\r\n[else]\r\nx=1");
    EXPECT_TRUE(m_store.WriteProfileString("Default", "SaveDir", "new"));
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "n", 1));
    EXPECT_EQ(file(), "; by hand\r\n[software]\r\n# note\r\n"
                      "Korvane\\Pellam\\Default\\SaveDir=new\r\n"
                      "damaged line\r\nOther\\key=\"a, b\"\r\n\r\n[un\r\n"
                      "Korvane\\Pellam\\Default\\n=1\r\n[else]\r\nx=1\n");
}

TEST_F(SettingsStoreTest, WritersAtTheSameTimeLoseNothing) {
    SettingsStore other(m_path);
    EXPECT_EQ(other.GetProfileInt("Default", "a1", 0), 0);
    const auto writeMany = [this](const std::string& prefix) {
        SettingsStore store(m_path);
        for (int i = 0; i < 50; ++i) {
            EXPECT_TRUE(store.WriteProfileInt("Default", prefix + std::to_string(i), i));
        }
    };
    std::thread first(writeMany, "a");
    std::thread second(writeMany, "b");
    first.join();
    second.join();
    EXPECT_EQ(m_store.names("software/Korvane/Pellam/Default").size(), 100U);
    EXPECT_EQ(other.GetProfileInt("Default", "a1", 0), 1) << "one that had looked before";
}

TEST_F(SettingsStoreTest, DeletingAKeyTakesAllBelowItAndNothingElse) {
    givenFile("[Software]\nTarnholt\\Pellam\\XMessageBox\\a=1\n"
              "Tarnholt\\Pellam\\XMessageBox\\b\\c=2\nTarnholt\\Pellam\\XMessageBoxes=3\n");
    EXPECT_EQ(m_store.names("Software/Tarnholt/Pellam/XMessageBox"),
              (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(m_store.deleteKey("Software\\Tarnholt\\Pellam\\XMessageBox"));
    EXPECT_TRUE(m_store.deleteKey("Software\\Tarnholt\\Pellam\\XMessageBox"));
    EXPECT_EQ(file(), "[Software]\nTarnholt\\Pellam\\XMessageBoxes=3\n");
}

TEST_F(SettingsStoreTest, ReadOnlyFileGivesValuesAndRefusesWrites) {
    givenFile("\357\273\277[software]\nKorvane\\Pellam\\Default\\a=1\n");
    ASSERT_EQ(::chmod(m_path.c_str(), 0444), 0);
    EXPECT_EQ(m_store.GetProfileInt("Default", "a", 0), 1);
    EXPECT_FALSE(m_store.WriteProfileInt("Default", "a", 2));
    EXPECT_EQ(file(), "\357\273\277[software]\nKorvane\\Pellam\\Default\\a=1\n");
}

TEST_F(SettingsStoreTest, PlacesThatHoldNoSettingsFile) {
    const std::string plain = m_folder.write("plain", "x");
    for (const std::string& path :
         {m_folder.path(), plain + "/Pellam.ini", std::string("/dev/full")}) {
        SettingsStore store(path);
        EXPECT_EQ(store.GetProfileInt("Default", "a", 5), 5) << path;
        EXPECT_FALSE(store.WriteProfileInt("Default", "a", 2)) << path;
    }
    EXPECT_EQ(m_folder.list(), "plain");
}

TEST_F(SettingsStoreTest, DamagedFileGivesDefaultsAndKeepsItsBytes) {
    const std::string noise("\xFF\xFE\0[\n=\n\\x=%\n]=[\n%U12=1\n", 24);
    givenFile(noise);
    EXPECT_EQ(m_store.GetProfileInt("Default", "a", 5), 5);
    EXPECT_TRUE(m_store.WriteProfileInt("Default", "a", 2));
    EXPECT_TRUE(file().starts_with(noise));
    EXPECT_EQ(m_store.GetProfileInt("Default", "a", 5), 2);
}

TEST_F(SettingsStoreTest, PathsThatOtherSectionsSpellToo) {
    givenFile("software/x=1\n[software]\nx=2\nx=3\n[a\\b]\nc=4\n");
    EXPECT_EQ(m_store.value("software/x"), "3");
    EXPECT_TRUE(m_store.setValue("software/x", "5"));
    EXPECT_EQ(m_store.value("a/b/c"), "4");
    EXPECT_TRUE(m_store.setValue("a/b/c", "6"));
    EXPECT_TRUE(m_store.setValue("General/x", "7"));
    EXPECT_TRUE(m_store.setValue("x", "8"));
    EXPECT_EQ(file(), "[software]\nx=5\n[a\\b]\n\n[a]\nb\\c=6\n\n[%General]\nx=7\n"
                      "\n[General]\nx=8\n");
}

TEST(SettingsStoreDefaultPath, FollowsTheConfigurationFolder) {
    ::setenv("HOME", "/home/ann", 1);
    ::setenv("XDG_CONFIG_HOME", "/etc/ann", 1);
    EXPECT_EQ(SettingsStore::defaultPath(), "/etc/ann/Korvane/Pellam.ini");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(SettingsStore::defaultPath(), "/home/ann/.config/Korvane/Pellam.ini");
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(SettingsStore::defaultPath(), "/home/ann/.config/Korvane/Pellam.ini");
}

} // namespace
} // namespace pellam
