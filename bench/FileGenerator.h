#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace pellam {

/// Makes files of readings: a random walk in thousandths for every channel, one reading a second
/// from 2020-01-01. The same request gives the same bytes.
class FileGenerator {
  public:
    struct Request {
        std::string kind; ///< csv, semicolon, tab, replay10, replay14 or alarm
        std::int64_t rows = 0;
        int channels = 0;
        std::uint64_t seed = 0;
    };

    explicit FileGenerator(const Request& request);
    ~FileGenerator();

    /// Writes the file; false with errno set when it can not be written.
    bool write(const std::string& path);

    static bool knows(const std::string& kind);

  private:
    class Lines;
    std::unique_ptr<Lines> m_lines;
    Request m_request;
};

} // namespace pellam
