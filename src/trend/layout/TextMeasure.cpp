#include "trend/layout/TextMeasure.h"

#include <QPainter>
#include <list>

namespace pellam {
namespace {

constexpr std::size_t mostFonts = 8;
constexpr std::size_t mostTexts = 2000;

} // namespace

TextMeasure& TextMeasure::of(const QFont& font) {
    thread_local std::list<TextMeasure> known; // the one used last in front
    for (auto it = known.begin(); it != known.end(); ++it) {
        if (it->m_font != font) continue;
        known.splice(known.begin(), known, it);
        return known.front();
    }
    if (known.size() >= mostFonts) known.pop_back();
    return known.emplace_front(font);
}

TextMeasure::Entry& TextMeasure::entry(const QString& text) {
    const auto found = m_entries.find(text);
    if (found != m_entries.end()) return found->second;
    if (m_entries.size() >= mostTexts) m_entries.clear();
    Entry made;
    made.width = m_metrics.horizontalAdvance(text);
    made.text = QStaticText(text);
    made.text.setTextFormat(Qt::PlainText);
    made.text.setPerformanceHint(QStaticText::AggressiveCaching);
    return m_entries.emplace(text, std::move(made)).first->second;
}

double TextMeasure::width(const QString& text) {
    return text.isEmpty() ? 0 : entry(text).width;
}

QString TextMeasure::elided(const QString& text, double most, Qt::TextElideMode at) {
    return width(text) <= most ? text : m_metrics.elidedText(text, at, most);
}

void TextMeasure::draw(QPainter& painter, const QPointF& topLeft, const QString& text) {
    if (!text.isEmpty()) painter.drawStaticText(topLeft, entry(text).text);
}

} // namespace pellam
