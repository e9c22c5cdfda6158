#include "BinaryGenerator.h"

#include "BinaryFileWriter.h"

#include <fstream>
#include <random>
#include <vector>

namespace pellam {

bool BinaryGenerator::write(const std::string& path) const {
    constexpr std::uint64_t kStart = 978'220'800; // 2020-01-01 in seconds since 1989
    BinaryFileWriter file;
    for (int i = 1; i <= channels; ++i)
        file.channels.push_back({"Channel " + std::to_string(i), i % 2 ? "degC" : "m/s", ""});
    const std::string blank = BinaryFileWriter::dataRecord(0, {});
    file.data.recordSize = static_cast<std::uint32_t>(
        blank.size() + BinaryFileWriter::floatItem(0).size() * file.channels.size());
    const std::uint32_t oldest = rows / 3;
    file.data.oldest = static_cast<std::int32_t>(oldest);
    file.data.newest = (oldest + rows - 1) % rows;
    file.alarms.oldest = -1;
    std::ofstream out(path, std::ios::binary);
    out << file.bytesBefore(rows);
    std::mt19937_64 random(seed);
    std::vector<int> thousandths(file.channels.size());
    for (int& level : thousandths)
        level = static_cast<int>(random() % 30000);
    for (std::uint32_t slot = 0; slot < rows && out; ++slot) {
        const std::uint64_t second = kStart + (slot + rows - oldest) % rows;
        std::string items;
        for (int& level : thousandths) {
            level += static_cast<int>(random() % 101) - 50;
            items += BinaryFileWriter::floatItem(static_cast<float>(level) / 1000.0F);
        }
        out << BinaryFileWriter::dataRecord(second * 1'000'000, items);
    }
    out << file.bytesBehind();
    return static_cast<bool>(out.flush());
}

} // namespace pellam
