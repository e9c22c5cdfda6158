#pragma once

#include "replay/time/CMyTime.h"

#include <string>

namespace pellam {

/// Which readings of a data source are wanted.
struct SessionRequest {
    std::string dataSource = {};
    std::string session = {};
    // Empty or the wildcard for any run of characters alone: all.
    std::string site = {};
    std::string job = {};
    std::string schedule = {};
    std::string label = {};
    // Both ends included; a time up to 1989-01-01 sets no bound.
    CMyTime start = {};
    CMyTime end = {};
};

} // namespace pellam
