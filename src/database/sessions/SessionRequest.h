#pragma once

#include "database/odbc/CTime.h"

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
    // Both ends included, as a person typed them, whatever the time zone; a time up to 1989-01-01
    // and none at all set no bound.
    CTime start = {};
    CTime end = {};
};

} // namespace pellam
