#pragma once

#include <QString>

namespace pellam {

class SettingsStore;

/// The folder for converted and dropped files: the stored one, or where none is stored, that of a
/// first start in the user's documents, which is made. Empty when the user has neither.
[[nodiscard]] QString saveFolder(SettingsStore& settings);

} // namespace pellam
