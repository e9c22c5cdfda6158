#include "replay/file/ReplayScan.h"

namespace pellam {

namespace {

bool contains(std::string_view line, std::string_view part) {
    return line.find(part) != std::string_view::npos;
}

} // namespace

bool DataStart::addLine(std::string_view line) {
    ++m_lines;
    if (contains(line, "<IDATA_MAP")) {
        m_mapTag = true;
    } else {
        m_found = contains(line, "<ALL_DATA") || (!m_mapTag && line.starts_with("S,"));
    }
    return m_found;
}

bool CryptSearch::addLine(std::string_view line) {
    if (m_settled || !contains(line, "<")) return m_settled;
    if (contains(line, "<Crypt>") && contains(line, "Yes")) m_state = 1;
    m_settled = m_state == 1 || contains(line, "<ALL_DATA");
    return m_settled;
}

void DataFacts::addLine(std::string_view line) {
    ++lines;
    schedules.addLine(line);
}

} // namespace pellam
