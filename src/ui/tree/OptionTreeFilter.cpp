#include "ui/tree/OptionTreeFilter.h"

namespace pellam {

void OptionTreeFilter::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    invalidateFilter();
}

bool OptionTreeFilter::passes(const QString& text) const {
    return m_text.isEmpty() || text.contains(m_text, Qt::CaseInsensitive);
}

bool OptionTreeFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    return !parent.isValid() || passes(sourceModel()->index(row, 0, parent).data().toString());
}

} // namespace pellam
