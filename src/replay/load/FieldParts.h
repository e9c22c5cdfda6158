#pragma once

#include <string_view>

namespace pellam {

/// A field of a data line: its value, and what stands behind the ';' that ends it.
struct FieldParts {
    std::string_view value;
    std::string_view suffix; ///< without the ';'; empty when there is none

    /// A ';' between double quotes belongs to the value; a quote that is never closed is a
    /// character like any other.
    static FieldParts of(std::string_view field) {
        const std::size_t end = endOfValue(field);
        if (end == std::string_view::npos) return {field, {}};
        return {field.substr(0, end), field.substr(end + 1)};
    }

  private:
    static std::size_t endOfValue(std::string_view field) {
        std::size_t from = 0;
        for (;;) {
            const std::size_t end = field.find(';', from);
            if (end == std::string_view::npos) return end;
            const std::size_t open = field.substr(0, end).find('"', from);
            if (open == std::string_view::npos) return end;
            const std::size_t close = field.find('"', open + 1);
            if (close == std::string_view::npos) return end;
            from = close + 1;
        }
    }
};

} // namespace pellam
