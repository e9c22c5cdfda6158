#include "views/chart/LeftOutNotes.h"

#include "trend/curves/TrendState.h"
#include "views/series/TrendTableReader.h"
#include "views/text/ScreenText.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("LeftOutNotes", text);
}

using LeftOutCount = std::int64_t LeftOut::*;

/// "Left out, sentinel values: Wind 12, Flow 3 and 4 more channels"; empty when nothing was.
QString noteByChannel(const TrendTable& table, const QString& what, LeftOutCount count) {
    constexpr int kNamed = 4;
    QStringList parts;
    int more = 0;
    for (const TrendTable::Curve& curve : table.curves) {
        if (curve.leftOut.*count == 0) continue;
        if (parts.size() == kNamed) {
            ++more;
            continue;
        }
        const QString name = screenText(curve.text).trimmed();
        parts += name + u' ' + QLocale().toString(static_cast<qlonglong>(curve.leftOut.*count));
    }
    if (parts.isEmpty()) return {};
    QString list = parts.join(QStringLiteral(", "));
    if (more == 1) list = tr("%1 and 1 more channel").arg(list);
    if (more > 1) list = tr("%1 and %L2 more channels").arg(list).arg(more);
    return tr("Left out, %1: %2").arg(what, list);
}

/// "-9999 left out 1,204 times in 3 channels"; empty for a text that does not occur.
QString noteOnMissing(const TrendTable& table, std::size_t text) {
    qlonglong times = 0;
    int channels = 0;
    for (const TrendTable::Curve& curve : table.curves) {
        if (text >= curve.leftOut.missing.size() || curve.leftOut.missing[text] == 0) continue;
        times += curve.leftOut.missing[text];
        ++channels;
    }
    if (times == 0) return {};
    const bool drawn = table.missingAsNumbers && table.missing[text].value;
    const QString often = times == 1 ? tr("once") : tr("%L1 times").arg(times);
    const QString where = channels == 1 ? tr("1 channel") : tr("%L1 channels").arg(channels);
    return (drawn ? tr("%1 drawn as a value %2 in %3") : tr("%1 left out %2 in %3"))
        .arg(screenText(table.missing[text].text), often, where);
}

/// All of them in one line, numbers or words.
QStringList missingNote(const TrendTable& table, bool numbers) {
    QStringList parts;
    for (std::size_t i = 0; i < table.missing.size(); ++i) {
        if (table.missing[i].value.has_value() == numbers) parts += noteOnMissing(table, i);
    }
    parts.removeAll(QString());
    return parts.isEmpty() ? parts : QStringList(parts.join(QStringLiteral(", ")));
}

bool hasValues(const TrendTable& table) {
    const auto known = [](double value) { return std::isfinite(value); };
    return std::any_of(table.curves.begin(), table.curves.end(), [known](const auto& curve) {
        return std::any_of(curve.values.begin(), curve.values.end(), known);
    });
}

} // namespace

QString nothingToDraw(const TrendTable& table, Row rowCount) {
    if (rowCount == 0) return tr("No data is loaded. Open a file to see its channels here.");
    if (table.curves.empty()) {
        return tr("No channel is selected for charting. Channels are selected with the check boxes "
                  "in the headings of the grid.");
    }
    if (table.aborted) return {};
    if (!table.times.empty()) {
        if (hasValues(table)) return {};
        const QString why =
            tr("Attention: The selected channels hold no values, so there is nothing "
               "to draw.");
        return (QStringList(why) + missingNumbersNote(table) + leftOutNotes(table)).join(u'\n');
    }
    if (table.unreadableTimes > 0) {
        return tr("Attention: The times in the first column can't be read, so there is nothing to "
                  "draw. A time looks like 2008/02/25 12:00:00, or like the dates of your system "
                  "settings.");
    }
    if (table.outsideTimes > 0) {
        return tr(
            "Attention: The times in the first column lie before 1970 or after 2106, so there "
            "is nothing to draw.");
    }
    return tr("Attention: The first column holds no times, so there is nothing to draw.");
}

QStringList missingNumbersNote(const TrendTable& table) {
    return missingNote(table, true);
}

QStringList leftOutNotes(const TrendTable& table) {
    QStringList notes;
    if (table.aborted) notes += tr("Stopped while the chart was loading: later rows are missing");
    if (table.skippedHour && table.clock == ClockChoice::NoDaylightSaving)
        notes += tr("Drawn without daylight saving: rows stand in an hour that the clock of this "
                    "computer skips");
    if (table.unreadableTimes > 0)
        notes += tr("Rows left out, time not readable: %L1").arg(table.unreadableTimes);
    if (table.outsideTimes > 0)
        notes += tr("Rows left out, before 1970 or after 2106: %L1").arg(table.outsideTimes);
    if (table.emptyTimes > 0) notes += tr("Rows left out, no time: %L1").arg(table.emptyTimes);
    notes += missingNote(table, false);
    notes += noteByChannel(table, tr("sentinel values"), &LeftOut::sentinels);
    notes += noteByChannel(table, tr("no numbers"), &LeftOut::notNumbers);
    notes += noteByChannel(table, tr("time not later than before"), &LeftOut::notLater);
    if (table.curves.size() > trendCurvePool) {
        notes += tr("Channels left out, the chart holds %L1: %L2")
                     .arg(trendCurvePool)
                     .arg(table.curves.size() - trendCurvePool);
    }
    notes.removeAll(QString());
    return notes;
}

} // namespace pellam
