#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

QT_BEGIN_NAMESPACE
class QFontMetricsF;
QT_END_NAMESPACE

namespace pellam {

/// A column's label as its heading shows it: the name above the units.
class HeadingText {
  public:
    explicit HeadingText(std::string_view label);

    [[nodiscard]] const QString& name() const { return m_name; }

    /// With their brackets; empty when there are none, or none of their own behind the name.
    [[nodiscard]] const QString& units() const { return m_units; }

    /// The two with a blank between them.
    [[nodiscard]] QString inOneLine() const;

    /// Width of the wider of the two, each on a line of its own.
    [[nodiscard]] double width(const QFontMetricsF& metrics) const;

    /// The one or two lines that fit a width: a name without units may take both; what does not
    /// fit ends in an ellipsis. No lines for an empty label.
    [[nodiscard]] QStringList lines(double width, const QFontMetricsF& metrics) const;

  private:
    QString m_name;
    QString m_units;
};

} // namespace pellam
