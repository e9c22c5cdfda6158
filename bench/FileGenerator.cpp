#include "FileGenerator.h"

#include "replay/checks/CCrc.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <vector>

namespace pellam {

namespace {

constexpr std::array<std::string_view, 6> kKinds = {"csv",      "semicolon", "tab",
                                                    "replay10", "replay14",  "alarm"};

// splitmix64 (G. Steele, D. Lea, C. Flood, 2014).
class Random {
  public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t next() {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15U);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }

  private:
    std::uint64_t m_state;
};

void appendPadded(std::string& out, unsigned value, int digits) {
    char text[12];
    for (int i = digits; i > 0; --i, value /= 10)
        text[i - 1] = static_cast<char>('0' + value % 10);
    out.append(text, static_cast<std::size_t>(digits));
}

// Thousandths as a decimal number with three places.
void appendValue(std::string& out, std::int64_t thousandths, char point) {
    if (thousandths < 0) out += '-';
    const auto magnitude = static_cast<std::uint64_t>(thousandths < 0 ? -thousandths : thousandths);
    out += std::to_string(magnitude / 1000);
    out += point;
    appendPadded(out, static_cast<unsigned>(magnitude % 1000), 3);
}

} // namespace

class FileGenerator::Lines {
  public:
    explicit Lines(const Request& request)
        : m_request(request),
          m_random(request.seed),
          m_levels(static_cast<std::size_t>(request.channels)) {
        for (auto& level : m_levels)
            level = static_cast<std::int64_t>(m_random.next() % 30000);
    }

    void header(std::string& out) const {
        if (m_request.kind == "csv") return delimitedHeader(out, ',');
        if (m_request.kind == "semicolon") return delimitedHeader(out, ';');
        if (m_request.kind == "tab") return delimitedHeader(out, '\t');
        const bool alarm = m_request.kind == "alarm";
        out += alarm ? "<Type>Alarm</Type>\n" : "<Type>Data</Type>\n";
        out += "<Crypt>No</Crypt>\nDesc \"Generated\"\n";
        if (m_request.kind == "replay14") return mapFormat14(out);
        out +=
            "<IDATA_MAP type=\"ql5xx\">\nS,081044,2020/01/01,00:00:00,0.000000,10:0,1,1,0,\"made\","
            "<A,\"1S\",G";
        for (int i = 0; i < m_request.channels; ++i) {
            out += ",<\"Channel " + std::to_string(i + 1) + "\",\"" + unit(i) + "\",0,0,8,4,1>";
        }
        out += "><B>:\n<ALL_DATA>\n";
    }

    void row(std::string& out, std::int64_t row) {
        const std::size_t start = out.size();
        if (m_request.kind == "alarm") return alarmRow(out, row);
        const bool replay = m_request.kind.starts_with("replay");
        const char separator = m_request.kind == "semicolon" ? ';'
                               : m_request.kind == "tab"     ? '\t'
                                                             : ',';
        if (replay) out += "D,1,";
        time(out, row, replay ? ',' : ' ');
        if (replay) out += m_request.kind == "replay14" ? ",0.000000,1:X,0" : ",0.000000,1:A,0";
        for (auto& level : m_levels) {
            level += static_cast<std::int64_t>(m_random.next() % 201) - 100;
            out += separator;
            appendValue(out, level, m_request.kind == "semicolon" ? ',' : '.');
        }
        if (replay) suffix(out, start);
        out += '\n';
    }

  private:
    static std::string unit(int channel) {
        static const std::vector<std::string> units = {"degC", "%", "hPa", "m/s", "W/m2", "mm"};
        return units[static_cast<std::size_t>(channel) % units.size()];
    }

    void delimitedHeader(std::string& out, char separator) const {
        out += "Time";
        for (int i = 0; i < m_request.channels; ++i) {
            out += separator + ("Channel " + std::to_string(i + 1)) + "(" + unit(i) + ")";
        }
        out += '\n';
    }

    void mapFormat14(std::string& out) const {
        out += "<IDATA_MAP "
               "type=\"ql810\">\nS,081044,2020/01/01,00:00:00,0.000000,14;0,1,1,0,1,\"made\","
               "<X,\"1S\",G";
        for (int i = 0; i < m_request.channels; ++i) {
            out += ",<" + std::to_string(i + 1) + ",\"Channel " + std::to_string(i + 1) + "\",\"" +
                   unit(i) + "\",0,8,0,4,1,1,0>";
        }
        out += ">:\n<ALL_DATA>\n";
    }

    static void time(std::string& out, std::int64_t row, char between) {
        using namespace std::chrono;
        const sys_seconds moment = sys_days{2020y / January / 1} + seconds{row};
        const year_month_day date{floor<days>(moment)};
        const auto second = static_cast<unsigned>((moment - floor<days>(moment)).count());
        appendPadded(out, static_cast<unsigned>(static_cast<int>(date.year())), 4);
        out += '/';
        appendPadded(out, static_cast<unsigned>(date.month()), 2);
        out += '/';
        appendPadded(out, static_cast<unsigned>(date.day()), 2);
        out += between;
        appendPadded(out, second / 3600, 2);
        out += ':';
        appendPadded(out, second / 60 % 60, 2);
        out += ':';
        appendPadded(out, second % 60, 2);
    }

    void alarmRow(std::string& out, std::int64_t row) {
        out += "A,1,\"JOB 1\",";
        time(out, row, ',');
        out += ",0.000000,1:A,";
        out += static_cast<char>('1' + m_random.next() % 9);
        out += ",2,\"Level " + std::to_string(m_random.next() % 1000) + " over limit\"\n";
    }

    void suffix(std::string& out, std::size_t start) const {
        out += ';';
        const auto crc = m_crc.CalculateBlock(out.data() + start, out.size() - start, 0);
        char text[8];
        std::snprintf(text, sizeof text, "%04X", static_cast<unsigned>(crc));
        out += text;
    }

    Request m_request;
    Random m_random;
    std::vector<std::int64_t> m_levels;
    CCrc16 m_crc;
};

FileGenerator::FileGenerator(const Request& request)
    : m_lines(std::make_unique<Lines>(request)),
      m_request(request) {}

FileGenerator::~FileGenerator() = default;

bool FileGenerator::knows(const std::string& kind) {
    return std::find(kKinds.begin(), kKinds.end(), kind) != kKinds.end();
}

bool FileGenerator::write(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                               &std::fclose);
    if (!file) return false;
    std::string out;
    m_lines->header(out);
    for (std::int64_t row = 0; row < m_request.rows; ++row) {
        m_lines->row(out, row);
        if (out.size() < (1U << 20) && row + 1 < m_request.rows) continue;
        if (std::fwrite(out.data(), 1, out.size(), file.get()) != out.size()) return false;
        out.clear();
    }
    return std::fflush(file.get()) == 0;
}

} // namespace pellam
