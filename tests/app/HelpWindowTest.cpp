#include "app/dialogs/HelpWindow.h"

using namespace Qt::StringLiterals;

namespace pellam {

static QStringList shownTitles(const HelpWindow& help) {
    QStringList titles;
    const auto* contents = help.findChild<QListWidget*>();
    for (int row = 0; row < contents->count(); ++row)
        if (!contents->item(row)->isHidden()) titles += contents->item(row)->text();
    return titles;
}

TEST(HelpWindowTest, EveryPageIsInTheContentsAndEveryLinkLeadsToOne) {
    HelpWindow help(nullptr);
    auto compiled = QDir(u":/help"_s).entryList({u"*.html"_s});
    auto listed = HelpWindow::pages();
    listed.sort();
    EXPECT_EQ(listed, compiled);

    static const QRegularExpression link(u"href=\"([^\"]+)\""_s);
    for (const auto& page : compiled) {
        QFile file(u":/help/"_s + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto links = link.globalMatch(QString::fromUtf8(file.readAll()));
        while (links.hasNext()) {
            const auto target = links.next().captured(1);
            EXPECT_TRUE(QFile::exists(u":/help/"_s + target))
                << page.toStdString() << " -> " << target.toStdString();
        }
    }
}

TEST(HelpWindowTest, SearchLeavesThePagesThatHaveAllWords) {
    HelpWindow help(nullptr);
    auto* search = help.findChild<QLineEdit*>();
    search->setText(u"CRC-16"_s);
    EXPECT_EQ(shownTitles(help), QStringList{u"Damaged lines"_s});
    EXPECT_EQ(help.findChild<QTextBrowser*>()->source().fileName(), u"damaged.html");
    search->setText(u"zebra"_s);
    EXPECT_TRUE(shownTitles(help).isEmpty());
    search->clear();
    EXPECT_EQ(shownTitles(help).size(), HelpWindow::pages().size());
}

} // namespace pellam
