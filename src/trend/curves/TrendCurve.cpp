#include "trend/curves/TrendCurve.h"

#include "trend/curves/BlockSums.h"

#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

const std::shared_ptr<const TrendTimes>& noTimes() {
    static const std::shared_ptr<const TrendTimes> none = std::make_shared<TrendTimes>();
    return none;
}

} // namespace

TrendCurve::TrendCurve() : m_times(noTimes()) {}

TrendCurve::~TrendCurve() = default;
TrendCurve::TrendCurve(TrendCurve&&) noexcept = default;
TrendCurve& TrendCurve::operator=(TrendCurve&&) noexcept = default;

void TrendCurve::setMaxDataSets(std::size_t count) {
    m_maxDataSets = count;
    dropOldest();
}

bool TrendCurve::setPoints(std::shared_ptr<const TrendTimes> times, std::vector<double>&& values,
                           std::vector<std::uint32_t>&& gaps) {
    deleteData();
    if (!times || times->size() != values.size()) return false;
    m_times = std::move(times);
    m_values = std::move(values);
    m_gaps = std::move(gaps);
    m_pyramid.build(m_values.data(), m_values.size());
    const ValueRange all = valueRange();
    if (!all.empty() && !(std::isfinite(all.min) && std::isfinite(all.max))) {
        for (double& value : m_values)
            if (std::isinf(value)) value = NAN;
        m_pyramid.build(m_values.data(), m_values.size());
    }
    dropOldest();
    return true;
}

bool TrendCurve::append(double time, double value) {
    if (!std::isfinite(time) || (!empty() && !(time > m_times->last()))) return false;
    ownTimes().append(time);
    m_values.push_back(std::isfinite(value) ? value : NAN);
    m_pyramid.extend(m_values.data(), m_values.size());
    m_positive.reset();
    m_sums.reset();
    if (m_values.size() > 2 * m_stepCount) m_usualStep = -1;
    dropOldest();
    return true;
}

void TrendCurve::deleteData() {
    m_times = noTimes();
    m_ownTimes.reset();
    m_values = {};
    m_gaps = {};
    m_pyramid.clear();
    forgetDerived();
}

TrendTimes& TrendCurve::ownTimes() {
    if (!m_ownTimes) {
        m_ownTimes = std::make_shared<TrendTimes>(*m_times);
        m_times = m_ownTimes;
    }
    return *m_ownTimes;
}

void TrendCurve::dropOldest() {
    if (m_maxDataSets == 0 || size() <= m_maxDataSets) return;
    const auto surplus = static_cast<std::ptrdiff_t>(size() - m_maxDataSets);
    auto times = std::make_shared<TrendTimes>();
    times->reserve(m_maxDataSets);
    for (std::size_t i = size() - m_maxDataSets; i < size(); ++i)
        times->append((*m_times)[i]);
    m_ownTimes = times;
    m_times = std::move(times);
    m_values.erase(m_values.begin(), m_values.begin() + surplus);
    std::erase_if(m_gaps, [surplus](std::uint32_t gap) { return gap < surplus; });
    for (std::uint32_t& gap : m_gaps)
        gap -= static_cast<std::uint32_t>(surplus);
    m_pyramid.build(m_values.data(), m_values.size());
    forgetDerived();
}

void TrendCurve::forgetDerived() {
    m_positive.reset();
    m_sums.reset();
    m_usualStep = -1;
    m_stepCount = 0;
}

ValueRange TrendCurve::valueRange() const {
    return m_pyramid.range(m_values.data(), 0, m_values.size());
}

ValueRange TrendCurve::timeRange() const {
    const std::size_t first = m_pyramid.nextSample(m_values.data(), 0);
    if (first == size()) return {};
    const std::size_t last = m_pyramid.previousSample(m_values.data(), size());
    return {(*m_times)[first], (*m_times)[last]};
}

double TrendCurve::usualStep() const {
    if (m_usualStep >= 0) return m_usualStep;
    constexpr std::size_t most = 2048;
    const std::size_t count = size();
    const std::size_t looks = std::min(count, most);
    std::vector<double> steps;
    steps.reserve(looks);
    std::size_t done = 0;
    for (std::size_t look = 0; look < looks; ++look) {
        const std::size_t from = std::max(done, count * look / looks);
        const std::size_t a = m_pyramid.nextSample(m_values.data(), from);
        const std::size_t b = m_pyramid.nextSample(m_values.data(), a + 1);
        if (b >= count) break;
        steps.push_back((*m_times)[b] - (*m_times)[a]);
        done = b;
    }
    m_stepCount = count;
    if (steps.empty()) return m_usualStep = 0;
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return m_usualStep = *middle;
}

bool TrendCurve::gapBetween(std::size_t first, std::size_t last) const {
    const auto gap = std::lower_bound(m_gaps.begin(), m_gaps.end(), first + 1);
    return gap != m_gaps.end() && *gap < last;
}

std::size_t TrendCurve::notPositiveCount() const {
    const ValueRange range = valueRange();
    return range.empty() || range.min > 0 ? 0 : sums().all().notPositive;
}

std::size_t TrendCurve::valueCount() const {
    return sums().all().count;
}

const MinMaxPyramid& TrendCurve::pyramid(bool logarithmic) const {
    if (!logarithmic || empty() || valueRange().min > 0) return m_pyramid;
    if (!m_positive) {
        m_positive = std::make_unique<MinMaxPyramid>(MinMaxPyramid::Samples::Positive);
        m_positive->build(m_values.data(), m_values.size());
    }
    return *m_positive;
}

const BlockSums& TrendCurve::sums() const {
    if (!m_sums) m_sums = std::make_unique<BlockSums>(m_values.data(), m_values.size());
    return *m_sums;
}

std::size_t TrendCurve::bytes() const {
    return m_times->bytes() + m_values.capacity() * sizeof(double) + m_pyramid.bytes() +
           (m_positive ? m_positive->bytes() : 0);
}

} // namespace pellam
