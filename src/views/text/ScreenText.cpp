#include "views/text/ScreenText.h"

#include "base/Utf8.h"

namespace pellam {

QString screenText(std::string_view stored) {
    if (!isUtf8(stored)) return QString::fromStdString(toUtf8(stored));
    return QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size()));
}

QString spacedLabel(const QString& label) {
    const qsizetype bracket = label.lastIndexOf(u'(');
    if (bracket < 1 || !label.endsWith(u')')) return label;
    return label.left(bracket).trimmed() + u' ' + label.mid(bracket);
}

} // namespace pellam
