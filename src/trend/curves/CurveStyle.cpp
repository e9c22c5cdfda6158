#include "trend/curves/CurveStyle.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pellam {
namespace {

// The first eight are told apart under every common colour blindness; the last nine are Paul Tol's
// "muted" scheme, made to be told apart by colour-blind readers.
constexpr std::array<QRgb, 21> palette = {
    0xff355bff, 0xffcc0e02, 0xff369fbd, 0xff8c2d6c, 0xff7e996f, 0xff79695f, 0xffffff00,
    0xffff8000, 0xff8080ff, 0xffff0080, 0xff008000, 0xff000000, 0xff332288, 0xff88ccee,
    0xff44aa99, 0xff117733, 0xff999933, 0xffddcc77, 0xffcc6677, 0xff882255, 0xffaa4499,
};

// sRGB's transfer function, for the 256 values of a channel.
double linear(int channel) {
    static const std::array<double, 256> table = [] {
        std::array<double, 256> values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double part = static_cast<double>(i) / 255;
            values[i] = part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        }
        return values;
    }();
    return table[static_cast<std::size_t>(channel)];
}

// Relative luminance as WCAG 2.1 has it.
double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
           0.0722 * linear(colour.blue());
}

} // namespace

double colourContrast(const QColor& a, const QColor& b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor colourOfContrast(const QColor& colour, const QColor& background, double contrast) {
    const double to = luminance(background) < 0.18 ? 1.0 : 0.0;
    QColor result = colour;
    for (int step = 1; step <= 20 && colourContrast(result, background) < contrast; ++step) {
        const double part = step / 20.0;
        const auto mix = [&](double channel) {
            return static_cast<float>(channel + (to - channel) * part);
        };
        result = QColor::fromRgbF(mix(colour.redF()), mix(colour.greenF()), mix(colour.blueF()));
    }
    return result;
}

QList<qreal> dashPattern(CurveDash dash) {
    switch (dash) {
    case CurveDash::Dash:
        return {3, 1};
    case CurveDash::Dot:
        return {1, 1};
    case CurveDash::DashDot:
        return {4, 1, 2, 1};
    case CurveDash::Solid:
        break;
    }
    return {};
}

CurveStyle defaultCurveStyle(int index) {
    constexpr int hues = static_cast<int>(palette.size());
    constexpr int kPlain = 8; // that are told apart by their hues alone
    const int place = std::max(0, index);
    CurveStyle style;
    style.colour = QColor::fromRgb(palette[static_cast<std::size_t>(place % hues)]);
    // More hues can't be told apart by all: dashes help.
    const int beyond = place - kPlain;
    if (beyond >= 0) style.dash = static_cast<CurveDash>(1 + (beyond + place / hues) % 3);
    return style;
}

QColor colourOnScreen(const QColor& colour, const QColor& background) {
    return luminance(background) < 0.18 ? colourOfContrast(colour, background, 3.2) : colour;
}

} // namespace pellam
