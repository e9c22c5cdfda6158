#include "views/text/HeadingText.h"

#include "grid/ChannelLabel.h"
#include "views/text/ScreenText.h"

#include <QFontMetricsF>

#include <algorithm>

namespace pellam {

HeadingText::HeadingText(std::string_view label) {
    const ChannelLabel parts(label);
    m_name = screenText(parts.name).simplified();
    if (parts.units.empty() || parts.name == parts.text) return;
    m_units = u'(' + screenText(parts.units).simplified() + u')';
}

QString HeadingText::inOneLine() const {
    return m_units.isEmpty() ? m_name : m_name + u' ' + m_units;
}

double HeadingText::width(const QFontMetricsF& metrics) const {
    return std::max(metrics.horizontalAdvance(m_name), metrics.horizontalAdvance(m_units));
}

namespace {

/// Where to break a name so that its first part fits: after the last blank, dot, dash or
/// underscore that does, else anywhere.
qsizetype breakPoint(const QString& name, double width, const QFontMetricsF& metrics) {
    qsizetype fits = 1;
    qsizetype nice = 0;
    for (qsizetype i = 1; i < name.size(); ++i) {
        if (metrics.horizontalAdvance(name.left(i)) > width) break;
        fits = i;
        if (QStringLiteral(" .-_/").contains(name.at(i - 1))) nice = i;
    }
    return nice > 0 ? nice : fits;
}

} // namespace

QStringList HeadingText::lines(double width, const QFontMetricsF& metrics) const {
    if (m_name.isEmpty()) return {};
    if (!m_units.isEmpty()) {
        return {metrics.elidedText(m_name, Qt::ElideRight, width),
                metrics.elidedText(m_units, Qt::ElideRight, width)};
    }
    if (metrics.horizontalAdvance(m_name) <= width) return {m_name};
    const qsizetype cut = breakPoint(m_name, width, metrics);
    return {metrics.elidedText(m_name.left(cut).trimmed(), Qt::ElideRight, width),
            metrics.elidedText(m_name.mid(cut).trimmed(), Qt::ElideRight, width)};
}

} // namespace pellam
