#include "trend/curves/CurveReader.h"

#include "trend/curves/BlockSums.h"
#include "trend/curves/TrendCurve.h"

#include <algorithm>

namespace pellam {

std::optional<CurveSample> CurveReader::sampleBefore(std::size_t end) const {
    const std::size_t index = m_curve.pyramid(false).previousSample(m_curve.values(), end);
    if (index >= m_curve.size()) return std::nullopt;
    return CurveSample{(*m_curve.times())[index], m_curve.values()[index], index};
}

std::optional<CurveSample> CurveReader::sampleFrom(std::size_t first) const {
    const std::size_t index = m_curve.pyramid(false).nextSample(m_curve.values(), first);
    if (index >= m_curve.size()) return std::nullopt;
    return CurveSample{(*m_curve.times())[index], m_curve.values()[index], index};
}

std::optional<CurveSample> CurveReader::atOrBefore(double time) const {
    return sampleBefore(m_curve.times()->upperBound(time));
}

std::optional<CurveSample> CurveReader::next(double time) const {
    return sampleFrom(m_curve.times()->upperBound(time));
}

std::optional<CurveSample> CurveReader::previous(double time) const {
    return sampleBefore(m_curve.times()->lowerBound(time));
}

std::optional<CurveSample> CurveReader::nearest(double time) const {
    const auto before = atOrBefore(time);
    const auto after = next(time);
    if (!before || !after) return before ? before : after;
    return time - before->time <= after->time - time ? before : after;
}

CurveStatistics CurveReader::statistics(double from, double to) const {
    if (to < from) std::swap(from, to);
    const std::size_t first = m_curve.times()->lowerBound(from);
    const std::size_t last = m_curve.times()->upperBound(to);
    if (first >= last) return {};
    const BlockSums::Sum sum = m_curve.sums().over(m_curve.values(), first, last);
    if (sum.count == 0) return {};
    const ValueRange range = m_curve.pyramid(false).range(m_curve.values(), first, last);
    return {sum.count, range.min, range.max, sum.total / static_cast<double>(sum.count)};
}

} // namespace pellam
