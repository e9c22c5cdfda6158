#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// One term of a condition: the column, `how` with its blanks (" = "), and the value with its tail
/// in single quotes. The value stands in it as it is.
[[nodiscard]] std::string compare(std::string_view column, std::string_view how,
                                  std::string_view value, std::string_view tail = {});

/// A term for a value that may have SQL's wildcards; with `mySql` an exact value is compared as
/// the beginning of a text.
[[nodiscard]] std::string sqlTerm(std::string_view column, std::string_view value, bool mySql);

/// The same for the session, where the wildcard for any run of characters alone asks for a name
/// that is not empty.
[[nodiscard]] std::string sqlSessionTerm(std::string_view session, bool mySql);

} // namespace pellam
