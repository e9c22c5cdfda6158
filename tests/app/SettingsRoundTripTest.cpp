#include "ScratchFolder.h"
#include "settings/SettingsStore.h"

#include <gtest/gtest.h>

#include <QSettings>

namespace pellam {
namespace {

/// Texts that have been trouble to INI files before.
const std::vector<QString>& texts() {
    static const std::vector<QString> all = {
        QString(),
        QStringLiteral("/home/ann/Übersicht €/𝄞"),
        QStringLiteral(" edge blanks "),
        QStringLiteral("a;b,c=d#e%41"),
        QStringLiteral("C:\\new\\\"x\""),
        QStringLiteral("@at"),
        QStringLiteral("@ByteArray(x)"),
        QStringLiteral("lines\r\n\tand\x01\x31\x7f"),
        QString(QChar(0)) + QStringLiteral("0b"),
    };
    return all;
}

QByteArray everyByte() {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

std::string keyOf(std::size_t index) {
    return "Key ä%€ " + std::to_string(index);
}

class SettingsRoundTripTest : public testing::Test {
  protected:
    ScratchFolder m_folder;
    std::string m_path = m_folder.path("Pellam.ini");
    SettingsStore m_store{m_path};

    [[nodiscard]] static QString qtKey(const std::string& key) {
        return QStringLiteral("software/Korvane/Pellam/Default/") + QString::fromStdString(key);
    }
};

TEST_F(SettingsRoundTripTest, WhatQtWritesIsRead) {
    {
        QSettings qt(QString::fromStdString(m_path), QSettings::IniFormat);
        for (std::size_t i = 0; i < texts().size(); ++i)
            qt.setValue(qtKey(keyOf(i)), texts()[i]);
        qt.setValue(qtKey("number"), -225);
        qt.setValue(qtKey("bytes"), everyByte());
    }
    for (std::size_t i = 0; i < texts().size(); ++i) {
        EXPECT_EQ(m_store.GetProfileString("Default", keyOf(i), "(missing)"),
                  texts()[i].toStdString());
    }
    EXPECT_EQ(m_store.GetProfileInt("Default", "number", 0), -225);
    EXPECT_EQ(m_store.GetProfileBinary("Default", "bytes"), everyByte().toStdString());
}

TEST_F(SettingsRoundTripTest, WhatIsWrittenQtReads) {
    for (std::size_t i = 0; i < texts().size(); ++i) {
        ASSERT_TRUE(m_store.WriteProfileString("Default", keyOf(i), texts()[i].toStdString()));
    }
    ASSERT_TRUE(m_store.WriteProfileInt("Default", "number", -225));
    ASSERT_TRUE(m_store.WriteProfileBinary("Default", "bytes", everyByte().toStdString()));
    QSettings qt(QString::fromStdString(m_path), QSettings::IniFormat);
    for (std::size_t i = 0; i < texts().size(); ++i) {
        EXPECT_EQ(qt.value(qtKey(keyOf(i)), QStringLiteral("(missing)")).toString(), texts()[i]);
    }
    EXPECT_EQ(qt.value(qtKey("number")).toInt(), -225);
    EXPECT_EQ(qt.value(qtKey("bytes")).toByteArray(), everyByte());
}

TEST_F(SettingsRoundTripTest, TheSameTextInTheFile) {
    const std::string other = m_folder.path("Qt.ini");
    {
        QSettings qt(QString::fromStdString(other), QSettings::IniFormat);
        for (std::size_t i = 0; i < texts().size(); ++i) {
            qt.setValue(qtKey(keyOf(i)), texts()[i]);
            ASSERT_TRUE(m_store.WriteProfileString("Default", keyOf(i), texts()[i].toStdString()));
        }
    }
    EXPECT_EQ(m_folder.read("Pellam.ini"), m_folder.read("Qt.ini"));
}

} // namespace
} // namespace pellam
