#include "views/text/HeadingText.h"

#include <QFontMetricsF>

namespace pellam {

HeadingText::HeadingText(const QString& label) : m_name(label.simplified()) {
    const qsizetype bracket = m_name.lastIndexOf(u'(');
    if (bracket < 1 || !m_name.endsWith(u')')) return;
    m_units = m_name.mid(bracket);
    m_name = m_name.left(bracket).trimmed();
    if (m_units == QStringLiteral("()")) m_units.clear();
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
