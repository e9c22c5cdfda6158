#pragma once

#include "RecordingSinks.h"
#include "replay/SessionLoader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace pellam::test {

struct TableChooser : ChannelChooser {
    std::vector<std::string> choose(const std::vector<std::string>& labels) override {
        offered = labels;
        std::vector<std::string> chosen;
        for (const int index : take)
            chosen.push_back(labels[static_cast<std::size_t>(index)]);
        return chosen;
    }

    std::vector<std::string> offered;
    std::vector<int> take;
};

/// Sets the C library's zone while it lives.
class Zone {
  public:
    explicit Zone(const char* name) {
        ::setenv("TZ", name, 1);
        ::tzset();
    }

    ~Zone() {
        ::unsetenv("TZ");
        ::tzset();
    }
};

/// A folder of its own, a grid and everything a load needs.
class LoadTest : public testing::Test {
  protected:
    LoadTest()
        : m_folder(std::filesystem::path(testing::TempDir()) /
                   (std::string("pellam-") +
                    testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(m_folder);
        useSeparators('.', ',');
    }

    ~LoadTest() override { std::filesystem::remove_all(m_folder); }

    void useSeparators(char decimal, char list) {
        international.decimalSeparator = decimal;
        international.listSeparator = list;
        grid = std::make_unique<GridData>(decimal);
    }

    LoadOutcome load(const std::string& name, const std::string& bytes) {
        const std::string path = m_folder / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return loadFile(path);
    }

    LoadOutcome loadFile(const std::string& path) {
        messages.texts.clear();
        SessionLoader loader(
            {*grid, international, corrections, messages, progress, chooser, grey});
        const LoadOutcome outcome = loader.load(path);
        EXPECT_EQ(progress.open, 0);
        return outcome;
    }

    std::string cell(int column, Row row) const {
        CellBuffer buffer;
        return std::string(grid->text(column, row, buffer));
    }

    /// Headings and rows as lines of cells between bars; '!' marks dark red text, '~' grey text.
    std::string shown() const {
        std::string all;
        const int columns = grid->channelCount();
        for (int c = 0; c <= columns; ++c)
            all += (c ? "|" : "") + grid->column(c).label();
        for (Row row = 0; row < grid->rowCount(); ++row) {
            all += '\n';
            for (int c = 0; c <= columns; ++c) {
                const CellColour colour = grid->colour(c, row);
                all += c ? "|" : "";
                all += colour == CellColour::DarkRed ? "!" : colour == CellColour::Grey ? "~" : "";
                all += cell(c, row);
            }
        }
        return all;
    }

    std::filesystem::path m_folder;
    InternationalSettings international;
    TimeCorrections corrections;
    RecordedMessages messages;
    CountedProgress progress;
    TableChooser chooser;
    std::unique_ptr<GridData> grid;
    bool grey = false;
};

} // namespace pellam::test
