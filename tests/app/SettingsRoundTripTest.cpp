#include "ScratchFolder.h"
#include "settings/SettingsStore.h"

namespace pellam {
namespace {

TEST(SettingsRoundTrip, QtWritesTheSameTextAndReadsTheSameValues) {
    // Texts that have been trouble to INI files before.
    const std::vector<QString> texts = {
        QString(),
        u"/home/ann/Übersicht €/𝄞"_qs,
        u" edge blanks "_qs,
        u"a;b,c=d#e%41"_qs,
        u"C:\\new\\\"x\""_qs,
        u"@at"_qs,
        u"@ByteArray(x)"_qs,
        u"lines\r\n\tand\x01\x31\x7f"_qs,
        QString(QChar(0)) + u"0b"_qs,
    };
    const auto keyOf = [](std::size_t index) { return "Key ä%€ " + std::to_string(index); };
    const auto qtKey = [](const std::string& key) {
        return u"software/Korvane/Pellam/Default/"_qs + QString::fromStdString(key);
    };
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(static_cast<char>(i));

    const ScratchFolder folder;
    SettingsStore store(folder.path("Pellam.ini"));
    {
        QSettings qt(QString::fromStdString(folder.path("Qt.ini")), QSettings::IniFormat);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            qt.setValue(qtKey(keyOf(i)), texts[i]);
            ASSERT_TRUE(store.WriteProfileString("Default", keyOf(i), texts[i].toStdString()));
        }
        qt.setValue(qtKey("number"), -225);
        ASSERT_TRUE(store.WriteProfileInt("Default", "number", -225));
        qt.setValue(qtKey("zbytes"), bytes);
        ASSERT_TRUE(store.WriteProfileBinary("Default", "zbytes", bytes.toStdString()));
    }
    EXPECT_EQ(folder.read("Pellam.ini"), folder.read("Qt.ini"));
    SettingsStore reader(folder.path("Qt.ini"));
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(reader.GetProfileString("Default", keyOf(i), "-"), texts[i].toStdString());
    EXPECT_EQ(reader.GetProfileInt("Default", "number", 0), -225);
    EXPECT_EQ(reader.GetProfileBinary("Default", "zbytes"), bytes.toStdString());
}

} // namespace
} // namespace pellam
