#include "trend/curves/CurveStyle.h"
#include "trend/paint/TrendTheme.h"
#include "trend/reading/TrendOverlay.h"

#include <array>
#include <cmath>
#include <numbers>

using namespace pellam;

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

// Full dichromacy, of linear RGB: Machado, Oliveira and Fernandes, "A Physiologically-based Model
// for Simulation of Color Vision Deficiency", 2009.
struct Sight {
    const char* name;
    double least; ///< difference that two curves must have
    Matrix seen;
};

constexpr Sight kSights[] = {
    {"normal", 20, {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
    {"protanopia",
     12,
     {{{0.152286, 1.052583, -0.204868},
       {0.114503, 0.786281, 0.099216},
       {-0.003882, -0.048116, 1.051998}}}},
    {"deuteranopia",
     12,
     {{{0.367322, 0.860646, -0.227968},
       {0.280085, 0.672501, 0.047413},
       {-0.011820, 0.042940, 0.968881}}}},
    {"tritanopia",
     12,
     {{{1.255528, -0.076749, -0.178779},
       {-0.078411, 0.930809, 0.147602},
       {0.004733, 0.691367, 0.303900}}}},
};

Triple times(const Matrix& matrix, const Triple& vector) {
    Triple result{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            result[i] += matrix[i][j] * vector[j];
    return result;
}

/// CIELAB under D65 of a colour as someone sees it.
Triple labOf(const QColor& colour, const Sight& sight) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    Triple rgb =
        times(sight.seen, {linear(colour.redF()), linear(colour.greenF()), linear(colour.blueF())});
    for (double& part : rgb)
        part = std::clamp(part, 0.0, 1.0);
    const Triple xyz = times({{{0.4124564, 0.3575761, 0.1804375},
                               {0.2126729, 0.7151522, 0.0721750},
                               {0.0193339, 0.1191920, 0.9503041}}},
                             rgb);
    const auto f = [](double t) {
        return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
    };
    const Triple part{f(xyz[0] / 0.95047), f(xyz[1]), f(xyz[2] / 1.08883)};
    return {116 * part[1] - 16, 500 * (part[0] - part[1]), 200 * (part[1] - part[2])};
}

/// CIEDE2000, as Sharma, Wu and Dalal, 2005, write it.
double difference(const Triple& one, const Triple& other) {
    constexpr double kDegree = std::numbers::pi / 180;
    const auto seventh = [](double c) {
        return std::sqrt(std::pow(c, 7) / (std::pow(c, 7) + std::pow(25.0, 7)));
    };
    const double g =
        0.5 * (1 - seventh((std::hypot(one[1], one[2]) + std::hypot(other[1], other[2])) / 2));
    const auto hue = [](double a, double b) {
        return a == 0 && b == 0 ? 0.0 : std::fmod(std::atan2(b, a) / kDegree + 360, 360);
    };
    const double c1 = std::hypot(one[1] * (1 + g), one[2]);
    const double c2 = std::hypot(other[1] * (1 + g), other[2]);
    const double h1 = hue(one[1] * (1 + g), one[2]);
    const double h2 = hue(other[1] * (1 + g), other[2]);
    const bool grey = c1 * c2 == 0;
    double turn = grey ? 0 : h2 - h1;
    turn += turn > 180 ? -360 : turn < -180 ? 360 : 0;
    double middle = (h1 + h2) / 2;
    if (grey)
        middle = h1 + h2;
    else if (std::abs(h1 - h2) > 180)
        middle += h1 + h2 < 360 ? 180 : -180;
    const double light = (one[0] + other[0]) / 2;
    const double chroma = (c1 + c2) / 2;
    const auto cosine = [&](double factor, double shift) {
        return std::cos((factor * middle + shift) * kDegree);
    };
    const double t = 1 - 0.17 * cosine(1, -30) + 0.24 * cosine(2, 0) + 0.32 * cosine(3, 6) -
                     0.20 * cosine(4, -63);
    const double square = std::pow(light - 50, 2);
    const double dl = (other[0] - one[0]) / (1 + 0.015 * square / std::sqrt(20 + square));
    const double dc = (c2 - c1) / (1 + 0.045 * chroma);
    const double dh =
        2 * std::sqrt(c1 * c2) * std::sin(turn / 2 * kDegree) / (1 + 0.015 * chroma * t);
    const double rotation =
        -2 * seventh(chroma) * std::sin(60 * kDegree * std::exp(-std::pow((middle - 275) / 25, 2)));
    return std::sqrt(dl * dl + dc * dc + dh * dh + rotation * dc * dh);
}

} // namespace

TEST(CurveColours, TheFirstEightAreToldApartByEveryone) {
    // Pairs of the paper's own table: the measure is right.
    EXPECT_NEAR(difference({50, 2.6772, -79.7751}, {50, 0, -82.7485}), 2.0425, 1e-4);
    EXPECT_NEAR(difference({50, 2.5, 0}, {73, 25, -18}), 27.1492, 1e-4);
    EXPECT_NEAR(difference({2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}), 0.9082, 1e-4);
    for (const QColor& behind : {TrendTheme::light().plot, TrendTheme::dark().plot}) {
        for (const Sight& sight : kSights) {
            for (int k = 0; k < 8; ++k) {
                EXPECT_EQ(defaultCurveStyle(k).dash, CurveDash::Solid);
                for (int other = 0; other < k; ++other)
                    EXPECT_GE(
                        difference(
                            labOf(colourOnScreen(defaultCurveStyle(k).colour, behind), sight),
                            labOf(colourOnScreen(defaultCurveStyle(other).colour, behind), sight)),
                        sight.least)
                        << sight.name << ' ' << k << ' ' << other << ' ' << behind.lightness();
            }
        }
    }
}

TEST(CurveColours, BeyondEightDashesDifferToo) {
    for (int k = 8; k < 60; ++k) {
        const CurveStyle style = defaultCurveStyle(k);
        EXPECT_NE(style.dash, CurveDash::Solid) << k;
        EXPECT_NE(style.dash, defaultCurveStyle(k + 1).dash) << k;
        for (int other = 0; other < k; ++other)
            EXPECT_FALSE(other + 63 > k && style.colour == defaultCurveStyle(other).colour &&
                         style.dash == defaultCurveStyle(other).dash)
                << k << ' ' << other;
    }
}

TEST(CurveColours, MarksStandOutFromWhatIsBehindThem) {
    for (const TrendTheme& theme : {TrendTheme::light(), TrendTheme::dark()}) {
        for (const QRgb highlight : {0xff308cc6u, 0xff12405au, 0xff000000u, 0xffffff80u}) {
            const auto colours = TrendOverlay::Colours::of(theme, QColor(highlight));
            EXPECT_GE(colourContrast(colours.accent, theme.plot), 3) << highlight;
        }
        EXPECT_GE(colourContrast(theme.text, theme.plot), 3);
        EXPECT_GE(colourContrast(theme.faintText, theme.plot), 3);
    }
}
