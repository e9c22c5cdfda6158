#include "ui/dialogs/FolderEdit.h"
#include "ui/dialogs/TabPages.h"
#include "ui/icons/IconSet.h"
#include "ui/icons/ToolkitStyle.h"
#include "ui/sidebar/SideBanner.h"

#include <set>

using namespace Qt::StringLiterals;

namespace pellam {
namespace {

QImage picture(const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(side, side), 1.0, mode).toImage();
}

TEST(IconSetTest, EveryIconHasAPictureOfItsOwn) {
    std::set<QByteArray> pictures;
    for (int i = 0; i < kIconNameCount; ++i) {
        const QIcon icon = IconSet::icon(static_cast<IconName>(i));
        const QImage image = picture(icon, 24).convertToFormat(QImage::Format_ARGB32);
        pictures.insert({reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()});
        EXPECT_NE(image, picture(icon, 24, QIcon::Disabled)) << i;
        EXPECT_EQ(picture(icon, 96).size(), QSize(96, 96)) << i;
    }
    EXPECT_EQ(static_cast<int>(pictures.size()), kIconNameCount);
}

TEST(IconSetTest, AreDrawnInTheDotsOfTheScreen) {
    const QIcon icon = IconSet::icon(IconName::Open);
    QImage screen(48, 48, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    screen.setDevicePixelRatio(1);
    EXPECT_EQ(screen, picture(icon, 48).convertToFormat(screen.format()));
}

TEST(IconSetTest, IconsFollowThePalette) {
    const QPalette before = QApplication::palette();
    const QIcon icon = IconSet::icon(IconName::Open);
    const QImage light = picture(icon, 24);
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    EXPECT_NE(picture(icon, 24), light);
    QApplication::setPalette(before);
    EXPECT_EQ(picture(icon, 24), light);
}

TEST(ToolkitStyleTest, CheckBoxStatesLookDifferentOnEveryBackground) {
    const ToolkitStyle style;
    for (const QColor& window : {QColor(240, 240, 240), QColor(30, 30, 30)}) {
        std::set<QByteArray> looks;
        for (const auto state : {QStyle::State_Off, QStyle::State_On, QStyle::State_NoChange}) {
            for (const auto enabled : {QStyle::State_None, QStyle::State_Enabled}) {
                QStyleOptionButton option;
                option.palette = QPalette(window);
                option.rect = {0, 0, 16, 16};
                option.state = state | enabled;
                QImage image(16, 16, QImage::Format_ARGB32);
                image.fill(option.palette.color(QPalette::Base));
                QPainter painter(&image);
                style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, nullptr);
                painter.end();
                looks.insert(
                    {reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()});
            }
        }
        EXPECT_EQ(looks.size(), 6u) << window.name().toStdString();
    }
}

TEST(ToolkitStyleTest, TextsOfFilesAreNeverTakenForMarkup) {
    const QString before = QApplication::style()->name();
    QApplication::setStyle(new ToolkitStyle);
    const QString text = u"<b>bold</b><img src='file:///x.png'><a href='http://x'>x</a>"_s;
    QWidget window;
    auto* label = new QLabel(text, &window);
    auto* own = new QLabel(text, &window);
    own->setTextFormat(Qt::RichText); // who wants markup says so
    window.show();
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(own->textFormat(), Qt::RichText);
    QToolTip::showText({10, 10}, text, &window);
    int tips = 0;
    for (auto* widget : QApplication::topLevelWidgets()) {
        if (!widget->inherits("QTipLabel")) continue;
        ++tips;
        EXPECT_EQ(qobject_cast<QLabel*>(widget)->textFormat(), Qt::PlainText);
        EXPECT_EQ(qobject_cast<QLabel*>(widget)->text(), text);
    }
    EXPECT_EQ(tips, 1);
    QToolTip::hideText();
    QApplication::setStyle(before);
}

TEST(FolderEditTest, TypedTextBecomesAPath) {
    const QString home = QDir::homePath();
    const Table<QString, QString> rows = {
        {u"  /var/data "_s, u"/var/data"_s},
        {u"~"_s, home},
        {u"~/logs"_s, home + u"/logs"_s},
        {u"~anna"_s, u"~anna"_s},
        {u" "_s, QString()},
    };
    FolderEdit edit;
    for (const auto& [typed, path] : rows) {
        edit.setPath(typed);
        EXPECT_EQ(edit.path(), path);
    }
    EXPECT_FALSE(edit.exists());
}

TEST(FolderEditTest, DroppedFolderFillsTheField) {
    QTemporaryDir folder;
    QFile file(folder.filePath(u"a.dlr"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    FolderEdit edit;
    const auto drop = [&](const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(edit.field(), &enter);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(edit.field(), &event);
        return edit.path();
    };
    EXPECT_EQ(drop(folder.path()), folder.path());
    edit.setPath(QString());
    EXPECT_EQ(drop(file.fileName()), folder.path()) << "a file stands for its folder";
    EXPECT_TRUE(edit.exists());
}

TEST(SideBannerTest, ToolTipHasWhatDoesNotFit) {
    SideBanner banner;
    banner.setCaption(u"Pellam - Historical Data Viewer"_s);
    banner.setTitle(u"Tarnholt Limited"_s);
    banner.resize(600, 60);
    banner.show();
    EXPECT_EQ(banner.toolTip(), u"");
    banner.resize(70, 60);
    EXPECT_EQ(banner.toolTip(), u"Pellam - Historical Data Viewer\nTarnholt Limited");
    EXPECT_GT(banner.heightForWidth(200), banner.heightForWidth(600)) << "two lines when narrow";
}

TEST(TabPagesTest, KeysTurnThePagesFromWithin) {
    TabPages pages;
    auto* table = new QTableWidget(3, 3);
    pages.addPage(table, u"Grid"_s);
    pages.addPage(new QTextEdit, u"Trend"_s);
    std::string turned;
    QObject::connect(&pages, &TabPages::pageActivated, &pages,
                     [&](int page) { turned += std::to_string(page); });
    pages.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pages));
    pages.activate(0);
    pages.activate(7);
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers with) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    };
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(pages.activePage(), 1);
    EXPECT_EQ(QApplication::focusWidget(), pages.widget(1));
    press(Qt::Key_Tab, Qt::ControlModifier);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(turned, "1010");
}

} // namespace
} // namespace pellam
