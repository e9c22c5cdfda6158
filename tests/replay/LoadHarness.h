#pragma once

#include "GridText.h"
#include "RecordingSinks.h"
#include "ScratchFolder.h"
#include "ZoneScope.h"
#include "replay/load/FileLoader.h"

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

/// A folder of its own, a grid and everything a load needs.
class LoadTest : public testing::Test {
  protected:
    LoadTest() { useSeparators('.', ','); }

    void useSeparators(char decimal, char list) {
        international.decimalSeparator = decimal;
        international.listSeparator = list;
        grid = std::make_unique<GridData>(decimal);
    }

    LoadOutcome load(const std::string& name, const std::string& bytes) {
        return loadFile(folder.write(name, bytes));
    }

    LoadOutcome loadFile(const std::string& path) {
        messages.texts.clear();
        FileLoader loader({*grid, international, messages, progress, chooser, grey});
        const LoadOutcome outcome = loader.load(path);
        EXPECT_EQ(progress.open, 0);
        return outcome;
    }

    std::string cell(int column, Row row) const {
        CellBuffer buffer;
        return std::string(grid->text(column, row, buffer));
    }

    ScratchFolder folder;
    InternationalSettings international;
    RecordedMessages messages;
    RecordedProgress progress;
    TableChooser chooser;
    std::unique_ptr<GridData> grid;
    bool grey = false;
};

} // namespace pellam::test
