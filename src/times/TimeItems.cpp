#include "times/TimeItems.h"

#include "times/TimeCursor.h"

#include <algorithm>

namespace pellam {

namespace {

using Kind = TimeItem::Kind;

constexpr std::string_view kGap = " \t,;:/-._@T";

class PatternParser {
  public:
    explicit PatternParser(std::string_view pattern) : m_cursor(pattern) {}

    std::optional<TimeItems> parse() {
        while (!m_cursor.atEnd()) {
            if (!takeItem()) return {};
        }
        joinFields();
        if (!makesSense()) return {};
        return std::move(m_result);
    }

  private:
    bool takeItem() {
        const char c = m_cursor.peek();
        if (c == 'y') return takeField(Kind::Year, c, 4) && last().length % 2 == 0;
        if (c == 'M') return takeField(Kind::Month, c, 4);
        if (c == 'D') return takeField(Kind::DayOfYear, c, 3);
        if (c == 'E') return takeField(Kind::Weekday, c, 4);
        // Three d and more are a weekday in people's settings.
        if (c == 'd')
            return m_cursor.rest().starts_with("ddd") ? takeField(Kind::Weekday, c, 4)
                                                      : takeField(Kind::Day, c, 2);
        if (c == 'H' || c == 'h') return takeClock(c);
        if (const char mark = takeGap()) {
            add({Kind::Gap, 0, false, mark});
            return true;
        }
        if (TimeCursor::isLetter(c) || TimeCursor::isDigit(c)) return false;
        add({Kind::Exact, 0, false, c});
        m_cursor.skip(1);
        return true;
    }

    bool takeField(Kind kind, char letter, std::size_t most) {
        const std::size_t length = run(letter);
        add({kind, static_cast<std::uint8_t>(length), false, '\0'});
        return length <= most;
    }

    bool takeClock(char hour) {
        TimeItem clock{Kind::Clock, 1, false, '\0'};
        if (run(hour) > 2) return false;
        if (const auto mark = gapBefore('m')) {
            clock.mark = *mark;
            clock.length = 2;
            if (run('m') > 2) return false;
            if (gapBefore('s')) {
                clock.length = 3;
                if (run('s') > 2) return false;
                if (gapBefore('S')) run('S');
            }
        }
        if (gapBefore('a')) run('a');
        add(clock);
        return true;
    }

    /// Takes a gap, if any, where a letter follows it; the gap's mark, or nothing.
    std::optional<char> gapBefore(char letter) {
        const TimeCursor before = m_cursor;
        const char mark = takeGap();
        if (m_cursor.peek() == letter) return mark;
        m_cursor = before;
        return {};
    }

    /// The character of a gap that is not a blank, ' ' without one; '\0' when there is no gap.
    char takeGap() {
        char mark = '\0';
        while (const char c = m_cursor.oneOf(kGap)) {
            if (mark == '\0' || mark == ' ') mark = c == '\t' ? ' ' : c;
        }
        return mark;
    }

    std::size_t run(char letter) {
        std::size_t length = 0;
        while (m_cursor.take(letter))
            ++length;
        return length;
    }

    void add(TimeItem item) { m_result.items.push_back(item); }

    TimeItem& last() { return m_result.items.back(); }

    // Fields without a gap between them are told apart by their lengths.
    void joinFields() {
        auto& items = m_result.items;
        const auto numeric = [](const TimeItem& item) {
            return item.kind < Kind::Weekday && (item.kind != Kind::Month || item.length < 3);
        };
        for (std::size_t i = 0; i + 1 < items.size(); ++i) {
            if (!numeric(items[i])) continue;
            if (numeric(items[i + 1])) items[i + 1].joined = true;
            if (numeric(items[i + 1]) || items[i + 1].kind == Kind::Clock) items[i].joined = true;
        }
        for (std::size_t i = 1; i + 1 < items.size(); ++i) {
            const bool inDate = items[i - 1].kind < Kind::Clock && items[i + 1].kind < Kind::Clock;
            if (items[i].kind == Kind::Gap && inDate) items[i].kind = Kind::DateGap;
            const bool blank = items[i].kind == Kind::Gap && items[i].mark == ' ';
            if (blank && items[i + 1].kind == Kind::Clock) items[i + 1].joined = true;
        }
    }

    bool makesSense() {
        auto& items = m_result.items;
        const auto count = [&items](Kind kind) {
            return std::count_if(items.begin(), items.end(),
                                 [kind](const TimeItem& item) { return item.kind == kind; });
        };
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i].kind < Kind::Clock) m_result.dateEnd = i + 1;
        }
        const auto year = count(Kind::Year);
        const auto month = count(Kind::Month);
        const auto day = count(Kind::Day);
        const auto dayOfYear = count(Kind::DayOfYear);
        const auto clock = count(Kind::Clock);
        m_result.clock = clock > 0;
        if (year > 1 || month > 1 || day > 1 || dayOfYear > 1 || clock > 1) return false;
        if (items.empty() || items.front().kind == Kind::Gap || last().kind == Kind::Gap)
            return false;
        if (year == 0) return clock == 1 && m_result.dateEnd == 0;
        return dayOfYear == 1 ? month + day == 0 : month >= day;
    }

    TimeCursor m_cursor;
    TimeItems m_result;
};

} // namespace

std::optional<TimeItems> timeItems(std::string_view pattern) {
    return PatternParser(pattern).parse();
}

std::string dateOrder(std::string_view pattern) {
    std::string order;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        const bool weekday = pattern.substr(i).starts_with("ddd");
        if (weekday) i = std::min(pattern.find_first_not_of('d', i), pattern.size()) - 1;
        const bool field = c == 'd' || c == 'M' || c == 'y' || c == 'D';
        if (field && !weekday && order.find(c) == std::string::npos) order += c;
    }
    return order;
}

} // namespace pellam
