#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace pellam {

/// One channel of a schedule. Value and status stay until its next reading.
struct Session_Channel_Info {
    std::int32_t scheduleIndex = 0; ///< -1: readings are matched by their label instead
    std::string label;
    double value = 0.0;
    std::int32_t status = 4;
    std::int64_t line = 0; ///< number of the data line that has its latest reading
    bool hasEntry = false; ///< stands in the status line; without, it takes no value of a data line
};

/// One schedule: its channels in order.
class Session_Schedule_Info {
  public:
    [[nodiscard]] const std::vector<Session_Channel_Info>& channels() const { return m_channels; }

    /// The first channel that a row belongs to; null when there is none. Good until add().
    Session_Channel_Info* find(std::int32_t scheduleIndex, const std::string& label);

    /// Marks a channel, by its place in the order, as one of the status line.
    void setEntry(std::size_t channel) { m_channels[channel].hasEntry = true; }

    void add(std::int32_t scheduleIndex, const std::string& label);

    std::uint32_t rateInSeconds = 0;
    std::int32_t lowestIndex = 999; ///< the lowest schedule index seen; nothing is made of it

  private:
    std::vector<Session_Channel_Info> m_channels;
    // Positions of the first channel with an index, and of the first without one with a label.
    std::unordered_map<std::int32_t, std::size_t> m_byIndex;
    std::unordered_map<std::string, std::size_t> m_byLabel;
};

} // namespace pellam
