#include "database/odbc/OdbcStatement.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace pellam {

namespace {

constexpr std::size_t kTextBytes = 4 * CFieldExchange::kLongestText + 1; // UTF-8 at its longest
constexpr std::size_t kTimeTextBytes = 64;

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// A text that was cut may end in half a character (UTF-8, RFC 3629).
std::string_view withoutHalfCharacter(std::string_view text) {
    std::size_t lead = text.size();
    while (lead > 0 && text.size() - lead < 3 && (text[lead - 1] & 0xC0) == 0x80)
        --lead;
    if (lead == 0) return text;
    const auto c = static_cast<unsigned char>(text[--lead]);
    const std::size_t needs = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
    return needs > text.size() - lead ? text.substr(0, lead) : text;
}

// Bytes that are no UTF-8 count as characters too, or stand behind one.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const bool begins = (text[end] & 0xC0) != 0x80;
        if (begins && count-- == 0) break;
    }
    return text.substr(0, end);
}

// A length of SQL_NO_TOTAL, or one beyond the buffer, says that the text was cut.
std::string_view textIn(const char* value, SQLLEN indicator) {
    const bool cut = indicator < 0 || static_cast<std::size_t>(indicator) >= kTextBytes;
    std::string_view text(value, cut ? ::strnlen(value, kTextBytes - 1)
                                     : static_cast<std::size_t>(indicator));
    if (cut) text = withoutHalfCharacter(text);
    text = firstCharacters(text, CFieldExchange::kLongestText);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

CTime timeIn(const std::byte* value) {
    SQL_TIMESTAMP_STRUCT fields;
    std::memcpy(&fields, value, sizeof fields);
    return {fields.year,
            static_cast<std::uint8_t>(fields.month),
            static_cast<std::uint8_t>(fields.day),
            static_cast<std::uint8_t>(fields.hour),
            static_cast<std::uint8_t>(fields.minute),
            static_cast<std::uint8_t>(fields.second)};
}

template <class Number>
Number numberIn(const std::byte* value) {
    Number number;
    std::memcpy(&number, value, sizeof number);
    return number;
}

// What 32 bits hold, with a sign or without.
bool fitsLong(std::int64_t number) {
    return number >= std::numeric_limits<std::int32_t>::min() &&
           number <= std::numeric_limits<std::uint32_t>::max();
}

// SQLSTATE class 22: the values are at fault, not the query or the connection.
bool isDataError(const SqlError& error) {
    return error.state.starts_with("22");
}

bool isTimeType(SQLSMALLINT type) {
    return type == SQL_TYPE_TIMESTAMP || type == SQL_TYPE_DATE || type == SQL_TIMESTAMP ||
           type == SQL_DATE;
}

} // namespace

OdbcStatement::OdbcStatement(std::shared_ptr<OdbcConnection> connection,
                             const std::vector<BoundField>& fields)
    : m_connection(std::move(connection)) {
    for (const BoundField& field : fields)
        m_slots.push_back({kindOf(field)});
}

OdbcStatement::Kind OdbcStatement::kindOf(const BoundField& field) {
    constexpr std::array kinds{Kind::Long, Kind::Double, Kind::Text, Kind::Time, Kind::Double};
    return kinds[field.member.index()];
}

SqlFailure OdbcStatement::prepare(const Settings& settings) {
    m_handle = OdbcHandle(SQL_HANDLE_STMT, m_connection->handle().get());
    if (!m_handle) return m_connection->handle().error();
    m_blockRows = settings.blockRows;
    SQLHSTMT const handle = m_handle.get();
    const auto set = [handle](SQLINTEGER attribute, SQLULEN value) {
        return SQL_SUCCEEDED(SQLSetStmtAttr(handle, attribute, attributeValue(value), 0));
    };
    // A driver that does not know one of these does what it always does.
    set(SQL_ATTR_QUERY_TIMEOUT, static_cast<SQLULEN>(settings.queryTimeout));
    set(SQL_ATTR_CONCURRENCY, SQL_CONCUR_READ_ONLY);
    set(SQL_ATTR_CURSOR_TYPE, settings.snapshot ? SQL_CURSOR_STATIC : SQL_CURSOR_FORWARD_ONLY);
    m_driverRows = 1;
    SQLULEN taken = 0;
    if (m_blockRows > 1 && set(SQL_ATTR_ROW_ARRAY_SIZE, m_blockRows) &&
        SQL_SUCCEEDED(SQLGetStmtAttr(handle, SQL_ATTR_ROW_ARRAY_SIZE, &taken, 0, nullptr))) {
        m_driverRows = std::clamp<std::size_t>(taken, 1, m_blockRows);
    }
    return {};
}

SqlFailure OdbcStatement::execute(const std::string& sql) {
    closeCursor();
    auto* const text = reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql.c_str()));
    const SQLRETURN result = SQLExecDirect(m_handle.get(), text, SQL_NTS);
    if (!SQL_SUCCEEDED(result)) return m_handle.error();
    if (m_bound) return {};
    chooseTimeKinds();
    layOut();
    return bind();
}

void OdbcStatement::closeCursor() {
    SQLFreeStmt(m_handle.get(), SQL_CLOSE);
    m_good.clear();
    m_unread = {};
    m_failure = {};
    m_seen = 0;
    m_atEnd = false;
}

void OdbcStatement::cancel() {
    SQLCancel(m_handle.get());
}

void OdbcStatement::chooseTimeKinds() {
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        if (m_slots[i].kind != Kind::Time) continue;
        SQLSMALLINT type = 0;
        const SQLRETURN result =
            SQLDescribeCol(m_handle.get(), static_cast<SQLUSMALLINT>(i + 1), nullptr, 0, nullptr,
                           &type, nullptr, nullptr, nullptr);
        const bool fields = SQL_SUCCEEDED(result) && isTimeType(type);
        if (!fields || m_connection->hasTextTimes()) m_slots[i].kind = Kind::TimeText;
    }
}

void OdbcStatement::layOut() {
    std::size_t offset = 0;
    const auto take = [&offset](std::size_t bytes) {
        const std::size_t at = offset;
        offset += (bytes + sizeof(SQLLEN) - 1) / sizeof(SQLLEN) * sizeof(SQLLEN);
        return at;
    };
    for (Slot& slot : m_slots) {
        slot.indicator = take(sizeof(SQLLEN));
        slot.value = take(slot.kind == Kind::Text       ? kTextBytes
                          : slot.kind == Kind::TimeText ? kTimeTextBytes
                          : slot.kind == Kind::Time     ? sizeof(SQL_TIMESTAMP_STRUCT)
                                                        : sizeof(double));
    }
    m_rowSize = offset;
    m_block.resize(m_rowSize / sizeof(SQLLEN) * m_blockRows);
    m_rowStatus.resize(m_driverRows);
}

SqlFailure OdbcStatement::bind() {
    SQLHSTMT const handle = m_handle.get();
    SQLSetStmtAttr(handle, SQL_ATTR_ROW_BIND_TYPE, attributeValue(m_rowSize), 0);
    SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched, 0);
    SQLSetStmtAttr(handle, SQL_ATTR_ROW_STATUS_PTR, m_rowStatus.data(), 0);
    auto* const row = reinterpret_cast<std::byte*>(m_block.data());
    SQLUSMALLINT number = 0;
    for (const Slot& slot : m_slots) {
        // Never wide characters: they make some drivers several times slower.
        const bool text = slot.kind == Kind::Text || slot.kind == Kind::TimeText;
        const SQLSMALLINT type = text                      ? SQL_C_CHAR
                                 : slot.kind == Kind::Time ? SQL_C_TYPE_TIMESTAMP
                                 : slot.kind == Kind::Long ? SQL_C_SBIGINT
                                                           : SQL_C_DOUBLE;
        const std::size_t size = slot.kind == Kind::Text ? kTextBytes : kTimeTextBytes;
        const SQLRETURN result =
            SQLBindCol(handle, ++number, type, row + slot.value, static_cast<SQLLEN>(size),
                       reinterpret_cast<SQLLEN*>(row + slot.indicator));
        if (!SQL_SUCCEEDED(result)) return m_handle.error();
    }
    m_bound = true;
    return {};
}

SqlFailure OdbcStatement::fetch() {
    m_good.clear();
    SqlFailure failure = std::exchange(m_failure, {});
    while (!failure && m_good.empty() && !m_atEnd)
        failure = m_driverRows == 1 ? fetchOneByOne() : fetchBlock();
    return failure;
}

SqlFailure OdbcStatement::fetchBlock() {
    m_fetched = 0;
    std::fill(m_rowStatus.begin(), m_rowStatus.end(), SQLUSMALLINT{SQL_ROW_NOROW});
    const SQLRETURN result = SQLFetch(m_handle.get());
    if (result == SQL_NO_DATA) {
        m_atEnd = true;
        return {};
    }
    const SqlError error = result == SQL_SUCCESS ? SqlError{} : m_handle.error();
    const std::size_t rows = std::min<std::size_t>(m_fetched, m_driverRows);
    bool failed = !SQL_SUCCEEDED(result) && (rows == 0 || !isDataError(error));
    for (std::size_t row = 0; row < rows; ++row) {
        const SQLUSMALLINT status = m_rowStatus[row];
        const bool sure = status == SQL_ROW_SUCCESS || status == SQL_ROW_SUCCESS_WITH_INFO;
        const bool good = sure || (SQL_SUCCEEDED(result) && status != SQL_ROW_ERROR);
        failed = failed || (!good && !isDataError(error));
        if (failed && !good) break;
        takeRow(row, good);
        if (!good) leaveOut(error);
    }
    if (!failed) return {};
    if (m_good.empty()) return error;
    // What came before it is handed out first.
    m_failure = error;
    return {};
}

SqlFailure OdbcStatement::fetchOneByOne() {
    // The driver writes every row to the block's first place, from where it is copied away: the
    // block is filled from its end, so that its first place stays free to the last.
    while (m_good.size() < m_blockRows) {
        const SQLRETURN result = SQLFetch(m_handle.get());
        if (result == SQL_NO_DATA) {
            m_atEnd = true;
            break;
        }
        const bool good = SQL_SUCCEEDED(result);
        const SqlError error = good ? SqlError{} : m_handle.error();
        if (!good && !isDataError(error)) {
            // What came before it is handed out first.
            if (m_good.empty()) return error;
            m_failure = error;
            break;
        }
        const std::size_t place = m_blockRows - 1 - m_good.size();
        auto* const first = reinterpret_cast<std::byte*>(m_block.data());
        if (good) std::memmove(first + m_rowSize * place, first, m_rowSize);
        takeRow(place, good);
        if (!good) leaveOut(error);
    }
    return {};
}

void OdbcStatement::takeRow(std::size_t place, bool good) {
    ++m_seen;
    if (!good) return;
    if (numbersFit(place))
        m_good.push_back(place);
    else
        leaveOut({"22003", 0, "A number is too large."});
}

bool OdbcStatement::numbersFit(std::size_t place) const {
    const std::byte* const row = rowAt(place);
    return std::all_of(m_slots.begin(), m_slots.end(), [row](const Slot& slot) {
        return slot.kind != Kind::Long || numberIn<SQLLEN>(row + slot.indicator) == SQL_NULL_DATA ||
               fitsLong(numberIn<std::int64_t>(row + slot.value));
    });
}

void OdbcStatement::leaveOut(const SqlError& why) {
    if (m_unread.count++ > 0) return;
    m_unread.first = m_seen;
    m_unread.why = why;
}

const std::byte* OdbcStatement::rowAt(std::size_t place) const {
    return reinterpret_cast<const std::byte*>(m_block.data()) + m_rowSize * place;
}

void OdbcStatement::read(std::size_t row, const std::vector<BoundField>& fields) const {
    const std::byte* const begin = rowAt(m_good[row]);
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        const Slot& slot = m_slots[i];
        const std::byte* const value = begin + slot.value;
        const auto* const chars = reinterpret_cast<const char*>(value);
        const auto indicator = numberIn<SQLLEN>(begin + slot.indicator);
        const bool null = indicator == SQL_NULL_DATA;
        const BoundField::Member& member = fields[i].member;
        switch (slot.kind) {
        case Kind::Long:
            *std::get<std::int32_t*>(member) =
                null ? 0 : static_cast<std::int32_t>(numberIn<std::int64_t>(value));
            break;
        case Kind::Double:
            if (double* const* const number = std::get_if<double*>(&member))
                **number = null ? 0.0 : numberIn<double>(value);
            else
                *std::get<std::optional<double>*>(member) =
                    null ? std::nullopt : std::optional(numberIn<double>(value));
            break;
        case Kind::Text:
            std::get<std::string*>(member)->assign(null ? std::string_view()
                                                        : textIn(chars, indicator));
            break;
        case Kind::Time:
            *std::get<CTime*>(member) = null ? CTime{} : timeIn(value);
            break;
        case Kind::TimeText:
            *std::get<CTime*>(member) =
                null ? CTime{} : CTime::parse({chars, ::strnlen(chars, kTimeTextBytes - 1)});
            break;
        }
    }
}

} // namespace pellam
