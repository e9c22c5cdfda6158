#include "base/Failure.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace pellam {

namespace {

const char* whatWentWrong(Failure::Kind kind) {
    switch (kind) {
    case Failure::Kind::None:
        return "";
    case Failure::Kind::Open:
        return "can not be opened";
    case Failure::Kind::NotAFile:
        return "is not a file";
    case Failure::Kind::Read:
        return "can not be read";
    case Failure::Kind::Write:
        return "can not be written";
    case Failure::Kind::Full:
        return "can not be written, the disk is full";
    case Failure::Kind::Format:
        return "is not in the expected form";
    case Failure::Kind::Aborted:
        return "was not finished, the operation was stopped";
    }
    return "";
}

/// The kind that says most about an error number; `kind` where the number adds nothing.
Failure::Kind kindOf(Failure::Kind kind, int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return Failure::Kind::Full;
    case EISDIR:
        return Failure::Kind::NotAFile;
    default:
        return kind;
    }
}

} // namespace

std::string Failure::text() const {
    if (kind == Kind::None) return {};
    std::string sentence = path.empty() ? std::string("The file") : path;
    sentence += ' ';
    sentence += whatWentWrong(kind);
    if (byteOffset >= 0) sentence += " (at byte " + std::to_string(byteOffset) + ')';
    if (advice.empty()) return sentence + '.';
    sentence += ": " + advice;
    if (sentence.back() != '.') sentence += '.';
    return sentence;
}

Failure Failure::isLoaded(std::string path) {
    return {Kind::Write, std::move(path), -1, "it is the file that was loaded"};
}

Failure Failure::fromErrno(Kind kind, std::string path, int error) {
    Failure failure;
    failure.kind = kindOf(kind, error);
    failure.path = std::move(path);
    failure.advice = std::generic_category().message(error);
    return failure;
}

} // namespace pellam
