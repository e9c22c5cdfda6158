#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

namespace pellam {

/// The C library works in a time zone for as long as this lives.
class ZoneScope {
  public:
    explicit ZoneScope(const char* zone) {
        if (const char* const before = std::getenv("TZ")) m_before = before;
        ::setenv("TZ", zone, 1);
        ::tzset();
    }

    ~ZoneScope() {
        m_before.empty() ? ::unsetenv("TZ") : ::setenv("TZ", m_before.c_str(), 1);
        ::tzset();
    }

    ZoneScope(const ZoneScope&) = delete;
    ZoneScope& operator=(const ZoneScope&) = delete;

  private:
    std::string m_before;
};

} // namespace pellam
