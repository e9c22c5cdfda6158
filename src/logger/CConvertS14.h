#pragma once

#include "logger/DataMapConverter.h"

namespace pellam {

/// Data maps of format 14. Only logged channels are listed; empty units have no brackets.
class CConvertS14 : public DataMapConverter {
  public:
    CConvertS14() : DataMapConverter(4) {}

    /// False when the header is short or names another format. `unused` has no effect;
    /// `letterFilter` keeps the channels of one schedule, 0 keeps all.
    bool Convert(std::string_view map, int unused, char letterFilter);

  protected:
    [[nodiscard]] bool readsFormat(std::int32_t format) const override;
    [[nodiscard]] bool isScheduleLetter(char letter) const override;
    void appendChannel(const Channel& channel) override;

  private:
    char m_letterFilter = '\0';
};

} // namespace pellam
