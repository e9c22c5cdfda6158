#pragma once

#include "delimited/time/TimeColumns.h"
#include "delimited/time/TimeRows.h"
#include "times/TimeFinder.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pellam {

/// The ways in which the time of a table's rows may be read, and the best of them: times that rise
/// from row to row by even steps, named for times, far to the left.
class TimeCandidates {
  public:
    /// What is handed in outlives this.
    TimeCandidates(const TimeRows& rows, const InternationalSettings& settings)
        : m_rows(rows),
          m_settings(settings) {}

    [[nodiscard]] const TimeRows& rows() const { return m_rows; }

    /// The form of joined texts.
    [[nodiscard]] TimeFinding find(const std::vector<std::string>& texts) const;

    /// The same for a column that is named: where its values leave the order of day and month
    /// open, the heading, points ("3.9.2021") or AM and PM tell what people there write.
    [[nodiscard]] TimeFinding find(const std::vector<std::string>& texts, std::size_t column) const;

    /// Adds times that can be read; `base` is how likely such times are on their own, 0 to 1.
    void add(TimeColumns time, double base);

    /// Adds the texts of columns, of whatever form they are found to be in, if of any. Nothing
    /// when eight in ten can't be read.
    TimeForm addTexts(const std::vector<std::size_t>& columns, double base);

    /// Whether consecutive rows follow each other by even steps.
    [[nodiscard]] bool isSteady(const std::vector<std::size_t>& columns,
                                const TimeForm& form) const {
        return order(m_rows.texts(columns), form) > 0.98;
    }

    /// Adds times of a form that is known if nine in ten of them can be read.
    void addRead(TimeColumns time, double base);

    /// The best of them; without columns when there are none.
    [[nodiscard]] TimeColumns best() const;

  private:
    [[nodiscard]] double order(const std::vector<std::string>& texts, const TimeForm& form) const;
    void add(TimeColumns time, const std::vector<std::string>& texts, double base);

    struct Candidate {
        TimeColumns time;
        double score = 0;
    };

    const TimeRows& m_rows;
    const InternationalSettings& m_settings;
    std::vector<Candidate> m_candidates;
};

/// Columns of dates and times with the form of each.
using TimeTexts = std::vector<std::pair<std::size_t, TimeForm>>;

/// Adds years, months, days, hours and so on in columns of their own; `texts` may have the time of
/// day.
void addParts(TimeCandidates& candidates, const TimeTexts& texts);

/// Adds dates, epochs and years written as one number, and time since the start.
void addCounts(TimeCandidates& candidates);

} // namespace pellam
