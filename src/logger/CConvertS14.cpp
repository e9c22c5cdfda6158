#include "logger/CConvertS14.h"

namespace pellam {

bool CConvertS14::Convert(std::string_view map, int /*unused*/, char letterFilter) {
    m_letterFilter = letterFilter;
    return convertMap(map);
}

bool CConvertS14::readsFormat(std::int32_t format) const {
    return format == 14;
}

bool CConvertS14::isScheduleLetter(char letter) const {
    return (letter >= 'A' && letter <= 'K') || letter == 'S' || letter == 'V' || letter == 'X';
}

void CConvertS14::appendChannel(const Channel& channel) {
    if (m_letterFilter != '\0' && m_letterFilter != scheduleLetter()) return;
    const Fields& fields = channel.fields;
    const bool logged = fields[8].starts_with('1') || fields[8].starts_with('3');
    if (channel.whole.ends_with('2') || !logged) return;
    appendName(fields[1], channel.afterName, kAllMarkers, fields[5]);
    const std::string_view units = unitsOf(fields[2]);
    if (!units.empty()) {
        append("(");
        append(units);
        append(")");
    }
    append("\n");
}

} // namespace pellam
