#include "times/TimePieces.h"

#include "times/TimeCursor.h"

#include <utility>

namespace pellam {

namespace {

constexpr std::string_view kMarks = " \t,;:/-._@";

/// Takes a text apart.
class Pieces {
  public:
    Pieces(std::string_view text, const TimeWords& words) : m_cursor(text), m_words(words) {}

    /// The pieces; empty for a text that has other characters in it.
    std::vector<TimePiece> take() {
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
            add(TimePiece::Kind::Word, std::move(gap), rest.substr(0, letters));
            return true;
        }
        if (digits == 0) return false;
        // "2017:04:08": a date that has the clock's marks.
        const bool inDate = gap == ":" && m_pieces.size() < 3;
        if (!inDate && takeClock(gap)) return true;
        m_cursor.skip(digits);
        add(TimePiece::Kind::Number, std::move(gap), rest.substr(0, digits));
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
        bool seconds = false;
        if (at.peek() == ':' && TimeCursor::isDigit(at.peek(1))) {
            at.skip(1);
            if (at.digitsAhead() > 2) return false;
            at.digits(at.digitsAhead());
            seconds = true;
            const TimeCursor second = at;
            const bool milliseconds = at.take(':') && at.digitsAhead() == 3;
            if (!milliseconds) at = second;
            if (milliseconds || at.oneOf(".,")) at.skip(static_cast<std::size_t>(at.digitsAhead()));
        }
        const bool half = takeHalf(at);
        takeOffset(at);
        m_cursor = at;
        add(TimePiece::Kind::Clock, std::move(gap), {});
        m_pieces.back().letters =
            seconds ? (half ? "HH:mm:ss a" : "HH:mm:ss") : (half ? "HH:mm a" : "HH:mm");
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
        const bool letter = at.word("a") || at.word("p");
        if (letter && !TimeCursor::isLetter(at.peek())) return true;
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
            const TimeCursor behind = at;
            at.blanks();
            if (!at.word("UTC")) at = behind;
        } else if (!named) {
            at = before;
        }
    }

    void add(TimePiece::Kind kind, std::string gap, std::string_view text) {
        m_pieces.push_back({kind, std::move(gap), text, {}});
    }

    TimeCursor m_cursor;
    const TimeWords& m_words;
    std::vector<TimePiece> m_pieces;
};

} // namespace

std::vector<TimePiece> timePieces(std::string_view text, const TimeWords& words) {
    return Pieces(text, words).take();
}

} // namespace pellam
