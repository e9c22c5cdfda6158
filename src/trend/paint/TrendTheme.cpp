#include "trend/paint/TrendTheme.h"

#include "trend/curves/TrendState.h"

#include <QPalette>

namespace pellam {
namespace {

QColor mixed(const QColor& a, const QColor& b, double part) {
    const auto mix = [part](int from, int to) {
        return static_cast<int>(from + (to - from) * part);
    };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

TrendTheme made(const QColor& background, const QColor& plot, const QColor& text) {
    TrendTheme theme;
    theme.background = background;
    theme.plot = plot;
    theme.text = text;
    theme.faintText = mixed(text, background, 0.38);
    theme.line = mixed(text, plot, 0.5);
    theme.grid = mixed(plot, text, 0.12);
    theme.minorGrid = mixed(plot, text, 0.055);
    theme.clockChange = colourOfContrast(QColor(200, 110, 0), plot, 3.0);
    return theme;
}

} // namespace

TrendTheme TrendTheme::light() {
    return made(QColor(0xf6, 0xf7, 0xf8), Qt::white, QColor(0x22, 0x26, 0x2b));
}

TrendTheme TrendTheme::dark() {
    return made(QColor(0x1f, 0x22, 0x26), QColor(0x16, 0x18, 0x1b), QColor(0xdd, 0xe1, 0xe6));
}

TrendTheme TrendTheme::paper() {
    return made(Qt::white, Qt::white, QColor(0x20, 0x20, 0x20));
}

TrendTheme TrendTheme::fromPalette(const QPalette& palette) {
    return made(palette.color(QPalette::Window), palette.color(QPalette::Base),
                palette.color(QPalette::Text));
}

TrendTheme TrendTheme::with(const TrendState& state) const {
    if (!state.backColor.isValid() && !state.trendBackColor.isValid()) return *this;
    const QColor back = state.backColor.isValid() ? state.backColor : background;
    const QColor behind = state.trendBackColor.isValid() ? state.trendBackColor : plot;
    const bool readable = colourContrast(text, back) > 4 && colourContrast(text, behind) > 4;
    const QColor other = behind.lightness() < 128 ? dark().text : light().text;
    return made(back, behind, readable ? text : other);
}

} // namespace pellam
