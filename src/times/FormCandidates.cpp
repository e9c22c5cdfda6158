#include "times/FormCandidates.h"

#include "times/TimePieces.h"

#include <algorithm>
#include <initializer_list>

namespace pellam {

namespace {

/// Gives the pieces of a text their letters in every way that they may be meant.
class FormGuess {
  public:
    FormGuess(std::vector<TimePiece> pieces) : m_pieces(std::move(pieces)) {
        for (TimePiece& piece : m_pieces) {
            if (piece.kind == TimePiece::Kind::Clock) {
                m_clock = true;
            } else if (isWeekday(piece)) {
                piece.letters = "E";
            } else {
                m_fields.push_back(&piece);
            }
        }
    }

    std::vector<std::string> names() {
        if (m_pieces.empty() || !m_pieces.front().gap.empty()) return {};
        switch (m_fields.size()) {
        case 0:
            if (m_clock) add({});
            break;
        case 1:
            guessOne();
            break;
        case 2:
            guessTwo();
            break;
        default:
            guessMore();
        }
        return std::move(m_names);
    }

  private:
    static bool isWeekday(const TimePiece& piece) {
        constexpr std::string_view kDays = "montuewedthufrisatsun";
        if (piece.kind != TimePiece::Kind::Word || piece.text.size() < 3) return false;
        std::string start(piece.text.substr(0, 3));
        for (char& c : start)
            c = static_cast<char>(c | 0x20);
        return kDays.find(start) % 3 == 0 && kDays.find(start) != std::string_view::npos;
    }

    /// Digits of a field; 0 for a word.
    [[nodiscard]] std::size_t digits(std::size_t field) const {
        const TimePiece& piece = *m_fields[field];
        return piece.kind == TimePiece::Kind::Number ? piece.text.size() : 0;
    }

    [[nodiscard]] bool word(std::size_t field) const { return digits(field) == 0; }

    [[nodiscard]] bool blanksBetween() const {
        return std::all_of(m_pieces.begin() + 1, m_pieces.end(), [](const TimePiece& piece) {
            return piece.gap.find_first_not_of(' ') == std::string::npos;
        });
    }

    void add(std::initializer_list<std::string_view> letters) {
        auto letter = letters.begin();
        for (TimePiece* const field : m_fields)
            field->letters = letter != letters.end() ? *letter++ : std::string_view();
        std::string name;
        for (const TimePiece& piece : m_pieces)
            name.append(piece.gap).append(piece.letters);
        if (std::find(m_names.begin(), m_names.end(), name) == m_names.end())
            m_names.push_back(std::move(name));
    }

    static std::string_view compactClock(std::size_t digits) {
        return digits > 4 ? "HHmmss" : "HHmm";
    }

    void guessOne() {
        if (m_clock) return addCompactDates({});
        const std::string_view text = m_fields[0]->text;
        if (word(0) || !(text.starts_with("19") || text.starts_with("20"))) return;
        if (text.size() == 6) add({"yyyyMM"});
        if (text.size() == 8) add({"yyyyMMdd"});
        if (text.size() == 10) add({"yyyyMMddHH"});
        if (text.size() == 12) add({"yyyyMMddHHmm"});
        if (text.size() == 14) add({"yyyyMMddHHmmss"});
    }

    void addCompactDates(std::string_view clock) {
        if (digits(0) == 8) {
            for (const std::string_view date : {"yyyyMMdd", "ddMMyyyy", "MMddyyyy"})
                add({date, clock});
        } else if (digits(0) == 6) {
            for (const std::string_view date : {"ddMMyy", "MMddyy", "yyMMdd"})
                add({date, clock});
        }
    }

    void guessTwo() {
        if (!m_clock && (digits(1) == 4 || digits(1) == 6))
            addCompactDates(compactClock(digits(1)));
        const std::string& gap = m_fields[1]->gap;
        if (word(0) && digits(1) == 4) add({"MMM", "yyyy"});
        if (word(0) && digits(1) == 2 && gap == "-") add({"MMM", "yy"});
        const bool month = digits(0) == 1 || digits(0) == 2;
        if (month && digits(1) == 4 && !m_clock && (gap == "/" || gap == "-")) add({"MM", "yyyy"});
        if (digits(0) != 4 || m_fields[1]->gap.find_first_of(".,") != std::string::npos) return;
        if (word(1)) add({"yyyy", "MMM"});
        if (digits(1) == 2) add({"yyyy", "MM"});
        if (digits(1) == 3 || (digits(1) < 3 && m_clock)) add({"yyyy", "DDD"});
    }

    // A date of three fields, then perhaps a clock of one or of several.
    void guessMore() {
        const std::size_t more = m_fields.size() - 3;
        if (m_clock ? more > 0 : more > 3) return;
        if (!m_clock && digits(0) == 4) guessDayOfYear();
        if (more == 0) return addDates({});
        if (more == 1) {
            if (digits(3) == 4 || digits(3) == 6) addDates({compactClock(digits(3))});
            if (digits(3) == 2) addDates({"HH"});
            return;
        }
        // Four numbers and more have many meanings: these need their whole year.
        const bool whole = digits(0) == 4 || digits(2) == 4;
        const bool clock =
            digits(3) - 1 < 2 && digits(4) - 1 < 2 && (more == 2 || digits(5) - 1 < 2);
        if (whole && clock) addDates({"HH", "mm", "ss"});
    }

    void guessDayOfYear() {
        if (!blanksBetween() || word(1) || word(2) || digits(1) > 3) return;
        if (m_fields.size() == 3 && digits(2) <= 4) add({"yyyy", "DDD", "HHmm"});
        if (m_fields.size() == 4 && digits(1) == 3) add({"yyyy", "DDD", "HH", "mm"});
    }

    void addDates(std::initializer_list<std::string_view> clock) {
        const auto letter = [&clock](std::size_t i) {
            return i < clock.size() ? clock.begin()[i] : std::string_view();
        };
        const auto addOrder = [&](std::string_view a, std::string_view b, std::string_view c) {
            add({a, b, c, letter(0), letter(1), letter(2)});
        };
        const auto isDay = [this](std::size_t i) { return digits(i) == 1 || digits(i) == 2; };
        const auto isMonth = [this](std::size_t i) { return digits(i) <= 2; };
        const auto isYear = [this](std::size_t i) { return digits(i) == 2 || digits(i) == 4; };
        const auto year = [this](std::size_t i) { return digits(i) == 4 ? "yyyy" : "yy"; };
        const auto month = [this](std::size_t i) { return word(i) ? "MMM" : "MM"; };
        if (looksLikeVersion(clock.size() > 0)) return;
        if (isDay(0) && isMonth(1) && isYear(2)) addOrder("dd", month(1), year(2));
        if (isMonth(0) && isDay(1) && isYear(2)) addOrder(month(0), "dd", year(2));
        if (isYear(0) && isMonth(1) && isDay(2)) addOrder(year(0), month(1), "dd");
    }

    // Three short numbers alone: 1.2.12, or a list of them.
    [[nodiscard]] bool looksLikeVersion(bool clock) const {
        if (m_clock || clock || word(0) || word(1) || digits(0) == 4 || digits(2) == 4)
            return false;
        const std::string& gap = m_fields[1]->gap;
        return gap.find_first_of(" ,;:_") != std::string::npos ||
               (gap == "." && digits(0) + digits(1) + digits(2) < 6);
    }

    std::vector<TimePiece> m_pieces;
    std::vector<TimePiece*> m_fields; ///< pieces of the date, and of a clock without colons
    bool m_clock = false;
    std::vector<std::string> m_names;
};

} // namespace

std::vector<std::string> formCandidates(std::string_view text, const TimeWords& words) {
    // "start/end": the start counts.
    const std::size_t slash = text.size() / 2;
    const bool interval = text.size() % 2 == 1 && text[slash] == '/';
    if (interval && text.find(':') < slash) text = text.substr(0, slash);
    return FormGuess(timePieces(text, words)).names();
}

} // namespace pellam
