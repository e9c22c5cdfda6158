#pragma once

#include <string>

namespace pellam {

/// A user of a database and his password.
struct Login {
    std::string user;
    std::string password;
};

} // namespace pellam
