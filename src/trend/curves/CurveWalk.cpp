#include "trend/curves/CurveWalk.h"

#include "trend/curves/ScaleMap.h"
#include "trend/curves/TrendCurve.h"

#include <cmath>

namespace pellam {

std::optional<CurveSample> CurveWalk::beyond(const CurveSample& sample) const {
    const MinMaxPyramid& pyramid = m_curve.pyramid(false);
    const std::size_t index = m_direction > 0
                                  ? pyramid.nextSample(m_curve.values(), sample.index + 1)
                                  : pyramid.previousSample(m_curve.values(), sample.index);
    if (index >= m_curve.size()) return {};
    return CurveSample{(*m_curve.times())[index], m_curve.values()[index], index};
}

// A sample on this side of the time, so that the first one beyond it is not taken for a turn.
std::optional<CurveSample> CurveWalk::start(double time) const {
    const CurveReader reader(m_curve);
    const auto before = reader.atOrBefore(time);
    const auto after = before && before->time == time ? before : reader.next(time);
    return m_direction > 0 ? (before ? before : after) : (after ? after : before);
}

std::optional<CurveSample> CurveWalk::extreme(double time, const ScaleMap& scale,
                                              double depth) const {
    std::optional<CurveSample> sample = start(time);
    if (!sample) return {};
    CurveSample top = *sample;
    CurveSample bottom = *sample;
    double highest = scale.toPixel(sample->value);
    double lowest = highest;
    int trend = 0; // 1 = upwards in pixels
    while ((sample = beyond(*sample))) {
        const double pixel = scale.toPixel(sample->value);
        if (trend <= 0 && pixel < lowest) {
            lowest = pixel;
            bottom = *sample;
        }
        if (trend >= 0 && pixel > highest) {
            highest = pixel;
            top = *sample;
        }
        const bool fell = trend >= 0 && pixel <= highest - depth;
        const bool rose = trend <= 0 && pixel >= lowest + depth;
        if (!fell && !rose) continue;
        const CurveSample& turn = fell ? top : bottom;
        if ((turn.time - time) * m_direction > 0) return turn;
        trend = fell ? -1 : 1;
        top = bottom = *sample;
        highest = lowest = pixel;
    }
    return {};
}

std::optional<CurveSample> CurveWalk::gap(double time) const {
    const double longest = 3 * m_curve.usualStep();
    if (!(longest > 0)) return {};
    std::optional<CurveSample> sample = start(time);
    while (sample) {
        const auto next = beyond(*sample);
        if (!next) return {};
        const CurveSample& edge = m_direction > 0 ? *sample : *next;
        const bool missing = std::abs(next->time - sample->time) > longest;
        if (missing && (edge.time - time) * m_direction > 0) return edge;
        sample = next;
    }
    return {};
}

} // namespace pellam
