#include "trend/ticks/ZoneOffsets.h"

#include <QDateTime>
#include <QTimeZone>
#include <algorithm>
#include <cmath>

namespace pellam {
namespace {

constexpr double year = 366.0 * 86400;
// What years of four digits can hold, about.
constexpr double earliest = -62e9;
constexpr double latest = 253e9;

QDateTime dateTime(double seconds) {
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(seconds)),
                                         QTimeZone::utc());
}

// Many zones have no letters, and their abbreviation is a bare "+1030".
QString zoneName(const QString& abbreviation) {
    if (!abbreviation.startsWith(u'+') && !abbreviation.startsWith(u'-')) return abbreviation;
    QString hours = QString(abbreviation).replace(u'-', QStringLiteral("−"));
    if (hours.size() > 3) hours.insert(3, u':');
    return QStringLiteral("UTC") + hours;
}

} // namespace

void ZoneOffsets::load(double from, double to) const {
    const double margin = std::max(to - from, year);
    from = std::clamp(from - margin, earliest, latest);
    to = std::clamp(to + margin, earliest, latest);
    m_known.clear();
    if (!m_zone.isValid()) {
        m_known.push_back({from, to, 0, QStringLiteral("UTC")});
        return;
    }
    // Not offsetData(), which knows nothing of zones without rules such as UTC.
    const QDateTime start = dateTime(from);
    m_known.push_back(
        {from, to, m_zone.offsetFromUtc(start), zoneName(m_zone.abbreviation(start))});
    // Over centuries only years are marked, and an hour can't be seen.
    if (to - from > 1000 * year || !m_zone.hasTransitions()) return;
    for (const QTimeZone::OffsetData& change : m_zone.transitions(dateTime(from), dateTime(to))) {
        ZoneStretch& last = m_known.back();
        const auto at = static_cast<double>(change.atUtc.toSecsSinceEpoch());
        if (change.offsetFromUtc == last.offset || at <= last.from) continue;
        last.to = at;
        m_known.push_back({at, to, change.offsetFromUtc, zoneName(change.abbreviation)});
    }
}

std::vector<ZoneStretch> ZoneOffsets::stretches(double from, double to) const {
    from = std::clamp(from, earliest, latest);
    to = std::clamp(to, earliest, latest);
    if (m_known.empty() || from < m_known.front().from || to > m_known.back().to) load(from, to);
    std::vector<ZoneStretch> result;
    for (const ZoneStretch& stretch : m_known)
        if (stretch.to >= from && stretch.from <= to) result.push_back(stretch);
    return result;
}

} // namespace pellam
