#pragma once

#include "times/TimeForm.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pellam {

struct InternationalSettings;

/// What the samples of a column say about its times.
struct TimeFinding {
    /// What decided the order of day, month and year.
    enum class Order : std::uint8_t {
        Written, ///< a year of four digits in front, a month name: there was no choice
        Values,  ///< a number over 12: the other orders have no such date
        Spacing, ///< both orders are dates; in this one they follow each other more steadily
        Locale,  ///< both orders are dates, as steady; the user's settings have this one
    };

    TimeForm form;           ///< of no times when the samples are none
    std::size_t samples = 0; ///< those that are not blank
    std::size_t read = 0;    ///< those of them that the form reads
    Order order = Order::Written;
    TimeForm other; ///< the next best form when the order was a choice (Spacing, Locale)

    /// Whether day and month might also stand in another order: worth telling the user.
    [[nodiscard]] bool ambiguous() const { return order >= Order::Spacing; }

    /// Whether the column is one of times: nine in ten of the samples are read. A column in which
    /// fewer are may still be read with `form` where it is known to be the time column.
    [[nodiscard]] bool convincing() const { return form && read * 10 >= samples * 9; }
};

/// Finds how the texts of a column name times; `samples` in the order of the file, some hundred of
/// them, head and tail will do; blank ones are passed over. Texts of two or more columns may be
/// joined by a blank ("2018 291 1545" is year, day of the year, and hour and minute).
///
/// Plain numbers are times only as dates (20170408, 20170408181100), as epochs (rising, of one
/// unit, between 1990 and 2050) and as decimal years (steadily rising between 1800 and 2100).
/// Elapsed seconds and the like are plain numbers: only a heading can tell. h:mm:ss is elapsed time
/// when it goes past 24 h, or rises from 0:00:00.
[[nodiscard]] TimeFinding findTimeForm(std::span<const std::string_view> samples,
                                       const InternationalSettings& settings);

} // namespace pellam
