#pragma once

#include <cstdint>
#include <string>

namespace pellam {

/// Why an operation on a file did not succeed: what kind of trouble, where, and what to do.
struct Failure {
    enum class Kind { None, Open, NotAFile, Read, Write, Full, Format, Aborted };

    Kind kind = Kind::None;
    std::string path;             ///< the file concerned; empty when none is
    std::int64_t byteOffset = -1; ///< offset of the trouble in the file; -1 when not known
    std::string advice;           ///< one sentence for a person; empty when there is nothing to add

    /// Of an output that would replace the file which the data came from.
    static Failure isLoaded(std::string path);

    explicit operator bool() const { return kind != Kind::None; }

    /// One sentence for a person: the file, what went wrong, the advice.
    [[nodiscard]] std::string text() const;

    /// A failure from the C library's error number at the moment of the call.
    static Failure fromErrno(Kind kind, std::string path, int error);
};

} // namespace pellam
