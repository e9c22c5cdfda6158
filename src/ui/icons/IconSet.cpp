#include "ui/icons/IconSet.h"

#include "ui/icons/LineIconEngine.h"

#include <QPixmap>

#include <array>

namespace pellam {

namespace {

/// File names of the pictures, in the order of IconName.
constexpr std::array<const char*, kIconNameCount> kFiles = {"open",
                                                            "database",
                                                            "export",
                                                            "spreadsheet",
                                                            "print",
                                                            "printpreview",
                                                            "preferences",
                                                            "resetdialogs",
                                                            "grid",
                                                            "chart",
                                                            "selectall",
                                                            "deselectall",
                                                            "editaxes",
                                                            "autoscale",
                                                            "fitvalues",
                                                            "zoomon",
                                                            "zoomoff",
                                                            "fontup",
                                                            "fontdown",
                                                            "stripchart",
                                                            "copy",
                                                            "paste",
                                                            "cut",
                                                            "undo",
                                                            "redo",
                                                            "find",
                                                            "goto",
                                                            "nextdamaged",
                                                            "previousdamaged",
                                                            "help",
                                                            "about",
                                                            "abort",
                                                            "browsefolder",
                                                            "tasks",
                                                            "view",
                                                            "sidebar"};

} // namespace

QIcon IconSet::icon(IconName name) {
    const char* file = kFiles[static_cast<std::size_t>(name)];
    return QIcon(new LineIconEngine(QString::fromLatin1(file)));
}

QIcon IconSet::applicationIcon() {
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const auto file =
            side < 32 ? QStringLiteral("application-small") : QStringLiteral("application");
        icon.addPixmap(QIcon(new LineIconEngine(file)).pixmap(QSize(side, side), 1.0));
    }
    return icon;
}

QColor IconSet::accent(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
    return dark ? QColor(0x6c, 0xb6, 0xff) : QColor(0x0f, 0x6c, 0xbd);
}

} // namespace pellam
