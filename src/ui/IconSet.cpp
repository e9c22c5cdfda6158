#include "ui/IconSet.h"

#include "ui/LineIconEngine.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// The library is static: without this reference the linker would leave the pictures out. The macro
// must stand outside any namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(pellam_icons);
}

namespace pellam {

QIcon IconSet::icon(IconName name) {
    loadPictures();
    return QIcon(new LineIconEngine(name));
}

QIcon IconSet::applicationIcon() {
    loadPictures();
    QSvgRenderer large(QStringLiteral(":/pellam/icons/application.svg"));
    QSvgRenderer small(QStringLiteral(":/pellam/icons/application-small.svg"));
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QPixmap image(side, side);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        (side < 32 ? small : large).render(&painter);
        painter.end();
        icon.addPixmap(image);
    }
    return icon;
}

QColor IconSet::accent(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
    return dark ? QColor(0x6c, 0xb6, 0xff) : QColor(0x0f, 0x6c, 0xbd);
}

} // namespace pellam
