#include "ui/LineIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <array>

namespace pellam {

namespace {

constexpr std::array<const char*, kIconNameCount> kFiles = {"open",        "database",
                                                            "export",      "spreadsheet",
                                                            "print",       "printpreview",
                                                            "preferences", "resetdialogs",
                                                            "grid",        "chart",
                                                            "selectall",   "deselectall",
                                                            "editaxes",    "autoscale",
                                                            "zoomon",      "zoomoff",
                                                            "fontup",      "fontdown",
                                                            "stripchart",  "copy",
                                                            "paste",       "cut",
                                                            "find",        "goto",
                                                            "nextdamaged", "previousdamaged",
                                                            "help",        "about",
                                                            "abort",       "browsefolder",
                                                            "tasks",       "view",
                                                            "sidebar"};

// The two colours that the files are drawn with stand for the palette's.
constexpr auto kInkInFile = "#1b1b1b";
constexpr auto kAccentInFile = "#0a84ff";

struct Inks {
    QColor line;
    QColor accent;
};

Inks inksFor(const QPalette& palette, QIcon::Mode mode) {
    if (mode == QIcon::Disabled) {
        const QColor grey = palette.color(QPalette::Disabled, QPalette::WindowText);
        return {grey, grey};
    }
    if (mode == QIcon::Selected) {
        const QColor light = palette.color(QPalette::Active, QPalette::HighlightedText);
        return {light, light};
    }
    return {palette.color(QPalette::Active, QPalette::WindowText), IconSet::accent(palette)};
}

QByteArray drawing(IconName name, const Inks& inks) {
    const auto file = QLatin1String(kFiles[static_cast<std::size_t>(name)]);
    QFile svg(QStringLiteral(":/pellam/icons/%1.svg").arg(file));
    if (!svg.open(QIODevice::ReadOnly)) return {};
    return svg.readAll()
        .replace(kInkInFile, inks.line.name().toLatin1())
        .replace(kAccentInFile, inks.accent.name().toLatin1());
}

/// The largest square in the middle of a rectangle.
QRectF squareIn(const QRect& rect) {
    const int side = std::min(rect.width(), rect.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(rect).center());
    return square;
}

} // namespace

void LineIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                           QIcon::State state) {
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatio() : 1.0;
    QPixmap image = pixmap(rect.size() * ratio, mode, state);
    image.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect.topLeft(), image);
}

QPixmap LineIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) {
    if (size.isEmpty()) return {};
    const Inks inks = inksFor(QGuiApplication::palette(), mode);
    const QString key = QStringLiteral("pellam-icon-%1-%2x%3-%4-%5")
                            .arg(static_cast<int>(m_name))
                            .arg(size.width())
                            .arg(size.height())
                            .arg(inks.line.rgb())
                            .arg(inks.accent.rgb());
    QPixmap image;
    if (QPixmapCache::find(key, &image)) return image;
    image = QPixmap(size);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(drawing(m_name, inks)).render(&painter, squareIn(QRect(QPoint(), size)));
    painter.end();
    QPixmapCache::insert(key, image);
    return image;
}

} // namespace pellam
