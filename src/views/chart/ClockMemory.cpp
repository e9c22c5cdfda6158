#include "views/chart/ClockMemory.h"

#include "grid/GridData.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QCryptographicHash>
#include <QStringList>

#include <algorithm>
#include <array>

namespace pellam {

namespace {

/// Names of the clocks in the settings, in the order of ClockChoice.
const std::array<QString, 3> kNames = {QStringLiteral("computer"),
                                       QStringLiteral("no-daylight-saving"), QStringLiteral("utc")};

QString headingsOf(const GridData& grid) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (int i = 0; i <= grid.channelCount() && i < grid.columnCount(); ++i)
        hash.addData(QByteArray::fromStdString(grid.column(i).label() + '\n'));
    return QString::fromLatin1(hash.result().toHex().left(16));
}

QStringList stored(SettingsStore& settings) {
    return settings.GetProfileString(profile::kChartSection, profile::kClocks)
        .split(u' ', Qt::SkipEmptyParts);
}

} // namespace

std::optional<ClockChoice> ClockMemory::recall(const GridData& grid) const {
    const QString headings = headingsOf(grid) + u'=';
    for (const QString& entry : stored(m_settings)) {
        if (!entry.startsWith(headings)) continue;
        const auto name = std::find(kNames.begin(), kNames.end(), entry.mid(headings.size()));
        if (name != kNames.end()) return static_cast<ClockChoice>(name - kNames.begin());
    }
    return {};
}

void ClockMemory::remember(const GridData& grid, ClockChoice clock) {
    const QString headings = headingsOf(grid) + u'=';
    QStringList entries = stored(m_settings);
    entries.removeIf([&](const QString& entry) { return entry.startsWith(headings); });
    entries.prepend(headings + kNames[static_cast<std::size_t>(clock)]);
    while (entries.size() > kMaximum)
        entries.removeLast();
    m_settings.WriteProfileString(profile::kChartSection, profile::kClocks, entries.join(u' '));
}

} // namespace pellam
