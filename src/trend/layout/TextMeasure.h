#pragma once

#include <QFontMetricsF>
#include <QStaticText>
#include <unordered_map>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace pellam {

/// Measures and draws short texts of one font, and remembers how they are set: a chart shows the
/// same labels again and again, and setting them costs more than drawing them.
class TextMeasure {
  public:
    /// The one of a font, in this thread. The reference holds until this is asked for many other
    /// fonts.
    static TextMeasure& of(const QFont& font);

    explicit TextMeasure(const QFont& font) : m_font(font), m_metrics(font) {}

    double height() const { return m_metrics.height(); }

    double ascent() const { return m_metrics.ascent(); }

    double width(const QString& text);
    /// The text, shortened to fit a width.
    QString elided(const QString& text, double most, Qt::TextElideMode at = Qt::ElideRight);
    /// Draws with the painter's pen and font (which has to be this one); topLeft is of the line.
    void draw(QPainter& painter, const QPointF& topLeft, const QString& text);

  private:
    struct Entry {
        double width = -1;
        QStaticText text;
    };

    // Over short texts, Qt's own takes longer than the search.
    struct Hash {
        std::size_t operator()(const QString& text) const {
            std::size_t sum = 0;
            for (const QChar& character : text)
                sum = sum * 0x9e3779b97f4a7c15u + character.unicode();
            return sum ^ sum >> 32;
        }
    };

    Entry& entry(const QString& text);

    QFont m_font;
    QFontMetricsF m_metrics;
    std::unordered_map<QString, Entry, Hash> m_entries;
};

} // namespace pellam
