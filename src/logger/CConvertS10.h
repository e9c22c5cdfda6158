#pragma once

#include "logger/DataMapConverter.h"

#include <vector>

namespace pellam {

/// Data maps of format 10 and 11. Every channel is listed with its units in round brackets, even
/// when they are empty; one that is not logged ends in ",NL".
class CConvertS10 : public DataMapConverter {
  public:
    /// The number is kept and has no effect on the labels.
    explicit CConvertS10(int number = 0) : DataMapConverter(3), m_number(number) {}

    /// False when the header is short or names another format.
    bool Convert(std::string_view map) { return convertMap(map); }

    /// The 1-based position of a text in the list; it is appended first when it is absent.
    static int GetDummySpan(std::vector<std::string>& list, const std::string& text);

    [[nodiscard]] int number() const { return m_number; }

  protected:
    [[nodiscard]] bool readsFormat(std::int32_t format) const override;
    [[nodiscard]] bool isScheduleLetter(char letter) const override;
    void appendChannel(const Channel& channel) override;

  private:
    int m_number;
};

} // namespace pellam
