#include "times/FormCandidates.h"

#include "times/TimeCursor.h"

#include <algorithm>
#include <initializer_list>

namespace pellam {

namespace {

constexpr std::string_view kMarks = " \t,;:/-._";

/// A number, a word or a clock of a text, and the marks before it.
struct Piece {
    enum class Kind { Number, Word, Clock };

    Kind kind;
    std::string gap;
    std::string_view text;
    std::string letters; ///< of its field in a pattern, once known
};

/// Takes a text apart.
class Pieces {
  public:
    Pieces(std::string_view text, const TimeWords& words) : m_cursor(text), m_words(words) {}

    /// The pieces; empty for a text that has other characters in it.
    std::vector<Piece> take() {
        while (!m_cursor.atEnd()) {
            if (!takePiece()) return {};
        }
        return std::move(m_pieces);
    }

  private:
    bool takePiece() {
        std::string gap = takeGap();
        if (endsInOffset()) return true;
        const std::string_view rest = m_cursor.rest();
        const auto digits = static_cast<std::size_t>(m_cursor.digitsAhead());
        if (const std::size_t letters = m_cursor.lettersAhead(); letters > 0) {
            m_cursor.skip(letters);
            add(Piece::Kind::Word, std::move(gap), rest.substr(0, letters));
            return true;
        }
        if (digits == 0) return false;
        // "2017:04:08": a date that has the clock's marks.
        const bool inDate = gap == ":" && m_pieces.size() < 3;
        if (!inDate && takeClock(gap)) return true;
        m_cursor.skip(digits);
        add(Piece::Kind::Number, std::move(gap), rest.substr(0, digits));
        return true;
    }

    std::string takeGap() {
        std::string gap;
        while (const char c = m_cursor.oneOf(kMarks))
            gap += c == '\t' ? ' ' : c;
        const bool letter = m_cursor.peek() == 'T' || m_cursor.peek() == 't';
        if (letter && !m_pieces.empty() && TimeCursor::isDigit(m_cursor.peek(1))) {
            m_cursor.skip(1);
            gap += 'T';
        }
        return gap;
    }

    bool takeClock(std::string& gap) {
        TimeCursor at = m_cursor;
        const int hour = at.digitsAhead();
        if (hour > 2) return false;
        at.digits(hour);
        if (!at.take(':') || at.digitsAhead() != 2) return false;
        at.digits(2);
        std::string letters = "HH:mm";
        if (at.peek() == ':' && TimeCursor::isDigit(at.peek(1))) {
            at.skip(1);
            if (at.digitsAhead() > 2) return false;
            at.digits(at.digitsAhead());
            letters += ":ss";
            if (at.oneOf(".,")) at.skip(static_cast<std::size_t>(at.digitsAhead()));
        }
        if (takeHalf(at)) letters += " a";
        takeOffset(at);
        m_cursor = at;
        add(Piece::Kind::Clock, std::move(gap), {});
        m_pieces.back().letters = std::move(letters);
        return true;
    }

    // Behind a clock without colons: nothing else ends so.
    bool endsInOffset() {
        if (m_pieces.empty()) return false;
        const char first = m_cursor.peek();
        TimeCursor at = m_cursor;
        takeOffset(at);
        if (first == '-' || !at.atEnd()) return false;
        m_cursor = at;
        return true;
    }

    bool takeHalf(TimeCursor& at) const {
        const TimeCursor before = at;
        at.blanks();
        for (const std::string_view word :
             {std::string_view(m_words.am), std::string_view(m_words.pm), std::string_view("AM"),
              std::string_view("PM"), std::string_view("a.m."), std::string_view("p.m.")}) {
            if (at.word(word)) return true;
        }
        at = before;
        return false;
    }

    static void takeOffset(TimeCursor& at) {
        const TimeCursor before = at;
        at.blanks();
        const bool named = at.word("UTC") || at.word("GMT") || at.word("Z");
        if (at.oneOf("+-")) {
            while (TimeCursor::isDigit(at.peek()) || at.peek() == ':')
                at.skip(1);
        } else if (!named) {
            at = before;
        }
    }

    void add(Piece::Kind kind, std::string gap, std::string_view text) {
        m_pieces.push_back({kind, std::move(gap), text, {}});
    }

    TimeCursor m_cursor;
    const TimeWords& m_words;
    std::vector<Piece> m_pieces;
};

/// Gives the pieces of a text their letters in every way that they may be meant.
class FormGuess {
  public:
    FormGuess(std::vector<Piece> pieces) : m_pieces(std::move(pieces)) {
        for (Piece& piece : m_pieces) {
            if (piece.kind == Piece::Kind::Clock) {
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
    static bool isWeekday(const Piece& piece) {
        constexpr std::string_view kDays = "montuewedthufrisatsun";
        if (piece.kind != Piece::Kind::Word || piece.text.size() < 3) return false;
        std::string start(piece.text.substr(0, 3));
        for (char& c : start)
            c = static_cast<char>(c | 0x20);
        return kDays.find(start) % 3 == 0 && kDays.find(start) != std::string_view::npos;
    }

    /// Digits of a field; 0 for a word.
    [[nodiscard]] std::size_t digits(std::size_t field) const {
        const Piece& piece = *m_fields[field];
        return piece.kind == Piece::Kind::Number ? piece.text.size() : 0;
    }

    [[nodiscard]] bool word(std::size_t field) const { return digits(field) == 0; }

    [[nodiscard]] bool blanksBetween() const {
        return std::all_of(m_pieces.begin() + 1, m_pieces.end(), [](const Piece& piece) {
            return piece.gap.find_first_not_of(' ') == std::string::npos;
        });
    }

    void add(std::initializer_list<std::string_view> letters) {
        auto letter = letters.begin();
        for (Piece* const field : m_fields)
            field->letters = letter != letters.end() ? *letter++ : std::string_view();
        std::string name;
        for (const Piece& piece : m_pieces)
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
        if (word(0) && digits(1) == 4) add({"MMM", "yyyy"});
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

    std::vector<Piece> m_pieces;
    std::vector<Piece*> m_fields; ///< pieces of the date, and of a clock without colons
    bool m_clock = false;
    std::vector<std::string> m_names;
};

} // namespace

std::vector<std::string> formCandidates(std::string_view text, const TimeWords& words) {
    // "start/end": the start counts.
    const std::size_t slash = text.size() / 2;
    const bool interval = text.size() % 2 == 1 && text[slash] == '/';
    if (interval && text.find(':') < slash) text = text.substr(0, slash);
    return FormGuess(Pieces(text, words).take()).names();
}

} // namespace pellam
