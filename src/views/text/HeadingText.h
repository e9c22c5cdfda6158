#pragma once

#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QFontMetricsF;
QT_END_NAMESPACE

namespace pellam {

/// A column's label as its heading shows it: the name above the units.
class HeadingText {
  public:
    /// A label is a name, followed by its units in round brackets or by nothing.
    explicit HeadingText(const QString& label);

    [[nodiscard]] const QString& name() const { return m_name; }

    /// With their brackets; empty when there are none.
    [[nodiscard]] const QString& units() const { return m_units; }

    /// The one or two lines that fit a width: a name without units may take both; what does not
    /// fit ends in an ellipsis. No lines for an empty label.
    [[nodiscard]] QStringList lines(double width, const QFontMetricsF& metrics) const;

  private:
    QString m_name;
    QString m_units;
};

} // namespace pellam
