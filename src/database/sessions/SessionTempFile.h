#pragma once

#include "base/BlockWriter.h"

#include <string>
#include <string_view>

namespace pellam {

/// A temporary file for this user alone, mode 0600. Its name is taken from the folder as soon as
/// it is open, so that nothing of it stays however the program ends, a kill included; it is read
/// through path().
class SessionTempFile : private BlockWriter {
  public:
    SessionTempFile() = default;
    ~SessionTempFile();
    SessionTempFile(const SessionTempFile&) = delete;
    SessionTempFile& operator=(const SessionTempFile&) = delete;

    /// Creates the file, empty, in the system's temporary folder. An earlier one is removed.
    [[nodiscard]] Failure create();

    /// Keeps the bytes for the file; false, and they are lost, once it could not take some.
    bool write(std::string_view bytes);
    /// Writes what is kept; false when the file cannot take it. write() is refused afterwards.
    bool close();

    /// Where to open the file for reading while this object lives and has not removed it; empty
    /// before create().
    [[nodiscard]] const std::string& path() const { return m_path; }

    /// The first failure of a write.
    [[nodiscard]] const Failure& error() const { return failure(); }

    /// Removes the file; harmless when there is none.
    void remove();

  private:
    void hide(const std::string& name);

    std::string m_path;
    std::string m_name; ///< its name in the folder
    int m_file = -1;
    bool m_hidden = false; ///< the name is taken from the folder
    bool m_writing = false;
};

} // namespace pellam
