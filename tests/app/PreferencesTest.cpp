#include "app/dialogs/CPreferences.h"

#include "DialogScript.h"
#include "ui/dialogs/FolderEdit.h"

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

class PreferencesTest : public testing::Test {
  protected:
    /// Gives OK and presses the button with the text `text` in the message box that comes up.
    void accept(const char* text) {
        DialogScript dialogs;
        dialogs.then<QMessageBox>([text](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons())
                if (button->text().remove(u'&') == QLatin1String(text)) return button->click();
            box.close();
            ADD_FAILURE() << "no button " << text;
        });
        m_dialog.accept();
    }

    QTemporaryDir m_folder;
    std::string m_saved = "untouched";
    CPreferences m_dialog{[this] { return m_folder.path(); },
                          [this](const QString& folder) { m_saved = folder.toStdString(); }};
};

TEST_F(PreferencesTest, OkWritesAndCancelDoesNot) {
    EXPECT_EQ(m_dialog.saveFolder()->path(), m_folder.path());
    EXPECT_EQ(m_dialog.saveFolder()->field()->toolTip(), u"Default Save Directory");
    m_dialog.saveFolder()->setPath(QDir::rootPath());
    m_dialog.reject();
    EXPECT_EQ(m_saved, "untouched");
    m_dialog.accept();
    EXPECT_EQ(m_saved, QDir::rootPath().toStdString());
    EXPECT_EQ(m_dialog.result(), QDialog::Accepted);
}

TEST_F(PreferencesTest, OffersToCreateAMissingFolderAndRefusesAFile) {
    QFile file(m_folder.filePath(u"a.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    m_dialog.saveFolder()->setPath(file.fileName());
    accept("OK");
    EXPECT_EQ(m_saved, "untouched");
    const QString missing = m_folder.filePath(u"site/2008"_s);
    m_dialog.saveFolder()->setPath(missing);
    accept("Cancel");
    EXPECT_EQ(m_saved, "untouched");
    EXPECT_FALSE(QDir(missing).exists());
    accept("Create");
    EXPECT_EQ(m_saved, missing.toStdString());
    EXPECT_TRUE(QDir(missing).exists());
}

} // namespace
} // namespace pellam
