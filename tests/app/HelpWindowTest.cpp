#include "app/HelpWindow.h"

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTextBrowser>

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
    auto compiled = QDir(QStringLiteral(":/help")).entryList({QStringLiteral("*.html")});
    auto listed = HelpWindow::pages();
    listed.sort();
    EXPECT_EQ(listed, compiled);

    static const QRegularExpression link(QStringLiteral("href=\"([^\"]+)\""));
    for (const auto& page : compiled) {
        QFile file(QStringLiteral(":/help/") + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto links = link.globalMatch(QString::fromUtf8(file.readAll()));
        while (links.hasNext()) {
            const auto target = links.next().captured(1);
            EXPECT_TRUE(QFile::exists(QStringLiteral(":/help/") + target))
                << page.toStdString() << " -> " << target.toStdString();
        }
    }
}

TEST(HelpWindowTest, SearchLeavesThePagesThatHaveAllWords) {
    HelpWindow help(nullptr);
    auto* search = help.findChild<QLineEdit*>();
    search->setText(QStringLiteral("CRC-16"));
    EXPECT_EQ(shownTitles(help), QStringList{QStringLiteral("Damaged lines")});
    EXPECT_EQ(help.findChild<QTextBrowser*>()->source().fileName(), u"damaged.html");
    search->setText(QStringLiteral("zebra"));
    EXPECT_TRUE(shownTitles(help).isEmpty());
    search->clear();
    EXPECT_EQ(shownTitles(help).size(), HelpWindow::pages().size());
}

} // namespace pellam
