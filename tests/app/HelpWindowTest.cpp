#include "app/dialogs/HelpWindow.h"

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
    auto compiled = QDir(u":/help"_qs).entryList({u"*.html"_qs});
    auto listed = HelpWindow::pages();
    listed.sort();
    EXPECT_EQ(listed, compiled);

    static const QRegularExpression link(u"href=\"([^\"]+)\""_qs);
    for (const auto& page : compiled) {
        QFile file(u":/help/"_qs + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto links = link.globalMatch(QString::fromUtf8(file.readAll()));
        while (links.hasNext()) {
            const auto target = links.next().captured(1);
            EXPECT_TRUE(QFile::exists(u":/help/"_qs + target))
                << page.toStdString() << " -> " << target.toStdString();
        }
    }
}

TEST(HelpWindowTest, SearchLeavesThePagesThatHaveAllWords) {
    HelpWindow help(nullptr);
    auto* search = help.findChild<QLineEdit*>();
    search->setText(u"CRC-16"_qs);
    EXPECT_EQ(shownTitles(help), QStringList{u"Damaged lines"_qs});
    EXPECT_EQ(help.findChild<QTextBrowser*>()->source().fileName(), u"damaged.html");
    search->setText(u"zebra"_qs);
    EXPECT_TRUE(shownTitles(help).isEmpty());
    search->clear();
    EXPECT_EQ(shownTitles(help).size(), HelpWindow::pages().size());
}

} // namespace pellam
