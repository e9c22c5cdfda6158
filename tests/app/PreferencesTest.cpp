#include "app/CPreferences.h"

#include "ui/FolderEdit.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace pellam {
namespace {

class PreferencesTest : public testing::Test {
  protected:
    /// Presses the button whose text is `text` in the message box that comes up.
    static void answer(const char* text) {
        QTimer::singleShot(0, qApp, [text] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            for (QAbstractButton* button : box->buttons())
                if (button->text().remove(u'&') == QLatin1String(text)) return button->click();
            box->close();
            ADD_FAILURE() << "no button " << text;
        });
    }

    QTemporaryDir m_folder;
    std::string m_saved = "untouched";
    CPreferences m_dialog{[this] { return m_folder.path(); },
                          [this](const QString& folder) { m_saved = folder.toStdString(); }};
};

TEST_F(PreferencesTest, ShowsTheFolderWithItsToolTip) {
    EXPECT_EQ(m_dialog.saveFolder()->path(), m_folder.path());
    EXPECT_EQ(m_dialog.saveFolder()->field()->toolTip(), u"Default Save Directory");
}

TEST_F(PreferencesTest, OkWritesAndCancelDoesNot) {
    m_dialog.saveFolder()->setPath(QDir::rootPath());
    m_dialog.reject();
    EXPECT_EQ(m_saved, "untouched");
    m_dialog.accept();
    EXPECT_EQ(m_saved, QDir::rootPath().toStdString());
    EXPECT_EQ(m_dialog.result(), QDialog::Accepted);
}

TEST_F(PreferencesTest, OffersToCreateAMissingFolder) {
    const QString missing = m_folder.filePath(u"site/2008"_qs);
    m_dialog.saveFolder()->setPath(missing);
    answer("Cancel");
    m_dialog.accept();
    EXPECT_EQ(m_saved, "untouched");
    EXPECT_FALSE(QDir(missing).exists());
    answer("Create");
    m_dialog.accept();
    EXPECT_EQ(m_saved, missing.toStdString());
    EXPECT_TRUE(QDir(missing).exists());
}

TEST_F(PreferencesTest, FileInPlaceOfAFolderIsRefused) {
    QFile file(m_folder.filePath(u"a.csv"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    m_dialog.saveFolder()->setPath(file.fileName());
    answer("OK");
    m_dialog.accept();
    EXPECT_EQ(m_saved, "untouched");
}

} // namespace
} // namespace pellam
