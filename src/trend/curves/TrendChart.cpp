#include "trend/curves/TrendChart.h"

#include <QLocale>
#include <algorithm>

namespace pellam {

TrendCurve& TrendChart::curve(int index) {
    const auto place = static_cast<std::size_t>(std::clamp(index, 0, trendCurvePool - 1));
    while (curves.size() <= place) {
        const int next = static_cast<int>(curves.size());
        curves.emplace_back().setStyle(defaultCurveStyle(next));
    }
    return curves[place];
}

TrendState TrendChart::save() const {
    TrendState saved = state;
    saved.curves.clear();
    for (const TrendCurve& one : curves)
        saved.curves.push_back(one.style());
    return saved;
}

void TrendChart::restore(const TrendState& saved) {
    state = saved;
    state.curves.clear();
    for (std::size_t i = 0; i < std::min(curves.size(), saved.curves.size()); ++i)
        curves[i].setStyle(saved.curves[i]);
}

TrendScale* TrendChart::scale(int axis) {
    return axis >= 1 && axis <= trendScaleCount ? &state.scales[static_cast<std::size_t>(axis - 1)]
                                                : nullptr;
}

const TrendScale* TrendChart::scale(int axis) const {
    return const_cast<TrendChart*>(this)->scale(axis);
}

int TrendChart::enabledScales() const {
    return static_cast<int>(std::count_if(state.scales.begin(), state.scales.end(),
                                          [](const TrendScale& scale) { return scale.enabled; }));
}

bool TrendChart::isStrip() const {
    return std::any_of(state.scales.begin(), state.scales.end(), [](const TrendScale& scale) {
        return scale.enabled && scale.position.heightPercent < 100;
    });
}

bool TrendChart::isIdle(int axis) const {
    bool any = false;
    for (const TrendCurve& one : curves) {
        if (one.style().relatedScale != axis || one.empty()) continue;
        if (one.style().visible) return false;
        any = true;
    }
    return any;
}

bool TrendChart::drawn(const TrendCurve& curve) const {
    const TrendScale* on = scale(curve.style().relatedScale);
    return on && on->enabled && curve.style().visible && !curve.empty();
}

const TrendCurve* TrendChart::onlyCurve(int axis) const {
    const TrendCurve* only = nullptr;
    for (const TrendCurve& one : curves) {
        if (one.style().relatedScale != axis || !drawn(one)) continue;
        if (only) return nullptr;
        only = &one;
    }
    return only;
}

QStringList TrendChart::noteLines() const {
    QStringList parts;
    for (const TrendCurve& one : curves) {
        if (!drawn(one) || !scale(one.style().relatedScale)->logarithmic) continue;
        const std::size_t count = one.notPositiveCount();
        if (count > 0)
            parts += QStringLiteral("%1 of %2")
                         .arg(QLocale().toString(qulonglong(count)), one.text().trimmed());
    }
    QStringList lines = state.notes;
    if (state.curveButtons == 0) lines = state.paperNotes + lines;
    if (!parts.isEmpty())
        lines += QStringLiteral("Not on a logarithmic scale (zero or below): ") +
                 parts.join(QStringLiteral(", "));
    return lines;
}

} // namespace pellam
