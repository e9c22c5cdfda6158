#pragma once

#include "base/MessageSink.h"

#include <string>
#include <string_view>

namespace pellam {

/// What checking a signature file gave.
struct SignatureResult {
    std::string fileName;  ///< the replay file that may be read; empty when it was refused
    bool verified = false; ///< a signature file named it and its checksum agrees
};

/// Whether the name behind the last folder separator contains a part such as ".sig", in any case.
[[nodiscard]] bool nameContains(std::string_view path, std::string_view lowerCasePart);

/// A path that names no signature file is passed on as it stands. For a signature file the replay
/// file that it names is looked for in the signature's own folder and its CRC-32 is compared; the
/// outcome is shown. '/' and '\' both separate folders.
[[nodiscard]] SignatureResult checkSignature(const std::string& path, MessageSink& messages);

} // namespace pellam
