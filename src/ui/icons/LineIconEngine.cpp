#include "ui/icons/LineIconEngine.h"

#include "ui/icons/IconSet.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>

// The library is static: without this reference the linker would leave the pictures out. The macro
// must stand outside any namespace.
static void loadPictures() {
    Q_INIT_RESOURCE(pellam_icons);
}

namespace pellam {

namespace {

// The two colours that the files are drawn with stand for the palette's.
constexpr auto kInkInFile = "#1b1b1b";
constexpr auto kAccentInFile = "#0a84ff";

struct Inks {
    QColor line;
    QColor accent;
};

/// So much of one colour, the rest of another.
QColor blend(const QColor& one, const QColor& other, float share) {
    const auto mix = [share](float a, float b) { return a * share + b * (1 - share); };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

Inks inksFor(const QPalette& palette, QIcon::Mode mode) {
    if (mode == QIcon::Disabled) {
        const QColor grey = palette.color(QPalette::Disabled, QPalette::WindowText);
        return {grey, grey};
    }
    if (mode == QIcon::Selected) {
        const QColor light = palette.color(QPalette::Active, QPalette::HighlightedText);
        return {light, light};
    }
    return {blend(palette.color(QPalette::Active, QPalette::WindowText),
                  palette.color(QPalette::Active, QPalette::Window), 0.82F),
            IconSet::accent(palette)};
}

QByteArray drawing(const QString& file, const Inks& inks) {
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

LineIconEngine::LineIconEngine(const QString& file) : m_file(file) {
    loadPictures();
}

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
                            .arg(m_file)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(inks.line.rgb())
                            .arg(inks.accent.rgb());
    QPixmap image;
    if (QPixmapCache::find(key, &image)) return image;
    image = QPixmap(size);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(drawing(m_file, inks)).render(&painter, squareIn(QRect(QPoint(), size)));
    painter.end();
    QPixmapCache::insert(key, image);
    return image;
}

} // namespace pellam
