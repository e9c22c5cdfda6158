#include "views/text/ScreenText.h"

#include "base/Utf8.h"

namespace pellam {

QString screenText(std::string_view stored) {
    if (!isUtf8(stored)) return QString::fromStdString(toUtf8(stored));
    return QString::fromUtf8(stored.data(), static_cast<qsizetype>(stored.size()));
}

} // namespace pellam
