#pragma once

#include "database/odbc/CTime.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace pellam {

/// What a record set binds: one expression of the SELECT list and the member it is read into.
struct BoundField {
    using Member =
        std::variant<std::int32_t*, double*, std::string*, CTime*, std::optional<double>*>;

    std::string_view column; ///< column name or expression, brackets around names allowed
    Member member;
};

/// Collects what a record set binds, in order. A null is read as 0, 0.0, an empty text, a null time
/// or nothing; a text loses its trailing white space.
class CFieldExchange {
  public:
    /// Longest text in characters; what is longer is cut.
    static constexpr std::size_t kLongestText = 255;

    /// Both the column's name, a literal, and the member outlive the record set's last move.
    template <class Member>
    void bind(std::string_view column, Member& member) {
        m_fields.push_back({column, &member});
    }

    [[nodiscard]] const std::vector<BoundField>& fields() const { return m_fields; }

  private:
    std::vector<BoundField> m_fields;
};

} // namespace pellam
