#include "LoadHarness.h"

#include <cstdio>
#include <cstring>
#include <filesystem>

namespace pellam {
namespace {

using test::LoadTest;

class ConversionLoaderTest : public LoadTest {
  protected:
    LoadOutcome loadBinary(const std::string& name, const std::string& contents) {
        folder.write(name, contents);
        return loadBinary(name);
    }

    LoadOutcome loadBinary(const std::string& name) {
        messages.texts.clear();
        LoadContext context{*grid, international, messages, progress, chooser};
        context.saveFolder = [this] { return saveFolder; };
        context.askSaveFolder = [this] { saveFolder = answer; };
        return FileLoader(context).load(folder.path(name));
    }

    std::string row(Row index) const {
        std::string text;
        for (int c = 0; c <= grid->channelCount(); ++c)
            text += (c ? "|" : "") + cell(c, index);
        return text;
    }

    const std::string bytes = ScratchFolder::contents(PELLAM_SAMPLES "/tank-gauge.dbd");
    std::string saveFolder = folder.path();
    std::string answer; ///< what the person enters as save folder
};

TEST_F(ConversionLoaderTest, LoadsEveryFieldWithTheSeparatorsOfTheUser) {
    const std::string start = "2008/11/10 11:20:00";
    const Table<char, char, const char*> cases = {
        {'.', ',', "Datetime,A.Level(m),"}, {',', ';', "Datetime;A.Level(m);"},
        {',', ',', "Datetime;A.Level(m);"}, {'.', ':', "Datetime;A.Level(m);"},
        {';', ';', "Datetime,A.Level(m),"}, {'.', '|', "Datetime|A.Level(m)|"},
    };
    for (const auto& [decimal, list, csvStart] : cases) {
        useSeparators(decimal, list);
        const std::string name{decimal, list};
        const LoadOutcome outcome = loadBinary("Tank 4.b.DBD", bytes);
        EXPECT_EQ(messages.texts, "") << name;
        EXPECT_TRUE(outcome.loaded && outcome.kind == LoadOutcome::Kind::Binary) << name;
        EXPECT_EQ(outcome.path, folder.path("Tank 4.b.DBD"));
        EXPECT_EQ(outcome.fileSize, 23452);
        EXPECT_EQ(outcome.rows, 300) << name;
        EXPECT_EQ(grid->column(2).label(), "A.Product temp(degC)") << name;
        EXPECT_EQ(grid->channelCount(), 5) << name;
        const std::string d(1, decimal);
        EXPECT_EQ(row(34), start + d + "000000|1" + d + "71374|11" + d +
                               "49621|13|filling, pump 2|" + start + d + "000000")
            << name;
        EXPECT_EQ(cell(1, 140), "Overrange") << name;
        EXPECT_TRUE(ScratchFolder::contents(outcome.converted).starts_with(csvStart)) << name;
    }
}

TEST_F(ConversionLoaderTest, AsksForASaveFolderOnce) {
    saveFolder.clear();
    const std::string warning =
        "Warning: No default save directory has been specified.\nThe preferences dialogue will "
        "now open to allow you to enter this setting\n";
    EXPECT_FALSE(loadBinary("a.dbd", bytes).loaded);
    EXPECT_EQ(messages.texts, warning);
    answer = folder.path("converted");
    std::filesystem::create_directory(answer);
    EXPECT_EQ(loadBinary("a.dbd", bytes).rows, 300);
    EXPECT_EQ(messages.texts, warning);
    EXPECT_TRUE(folder.read("converted/a.csv").starts_with("Datetime,"));
    EXPECT_EQ(loadBinary("a.dbd", bytes).rows, 300);
    EXPECT_EQ(messages.texts, "");
    EXPECT_FALSE(loadFile(folder.path("a.dbd")).loaded); // nobody to ask
    EXPECT_EQ(messages.texts, warning);
}

TEST_F(ConversionLoaderTest, DamageIsCountedWithItsPlace) {
    const LoadOutcome outcome = loadBinary("cut.dbd", bytes.substr(0, bytes.size() / 2));
    EXPECT_TRUE(outcome.loaded);
    const auto missing = outcome.passedOver.of(PassedOver::Cause::LostRecord);
    EXPECT_EQ(outcome.rows + missing.count, 301); // one row names the place
    EXPECT_EQ(outcome.damagedLines, 1);
    ASSERT_EQ(grid->damagedRows().size(), 1U);
    EXPECT_EQ(grid->damagedRows()[0], outcome.rows - 1);
    EXPECT_EQ(grid->colour(0, outcome.rows - 1), CellColour::DarkRed);
    char place[64];
    std::snprintf(place, sizeof place, "Unexpected EOF (at 0x%llx",
                  static_cast<unsigned long long>(missing.first));
    EXPECT_EQ(cell(0, outcome.rows - 1).substr(0, std::strlen(place)), place);
    EXPECT_EQ(messages.texts, folder.path("cut.dbd") + " is not in the expected form (at byte " +
                                  std::to_string(missing.first) +
                                  "): it is cut or damaged there, " +
                                  std::to_string(missing.count) + " records are missing.\n");
    EXPECT_FALSE(loadBinary("other.dbd", "no binary data").loaded);
    EXPECT_EQ(messages.texts, "Can not read DTDT section\n");
    EXPECT_EQ(folder.list(), "cut.csv cut.dbd other.dbd");
}

TEST_F(ConversionLoaderTest, ReplacesNoFileAndUsesItsOwnAgain) {
    folder.write("a.csv", "mine");
    std::filesystem::create_directory(folder.path("a (2).csv"));
    for (int i = 0; i < 2; ++i) {
        const LoadOutcome outcome = loadBinary("a.dbd", bytes);
        EXPECT_EQ(outcome.rows, 300);
        EXPECT_EQ(outcome.converted, folder.path("a (3).csv"));
        EXPECT_EQ(folder.read("a.csv"), "mine");
        EXPECT_EQ(folder.list(), "a (2).csv a (3).csv a.csv a.dbd");
    }
    useSeparators(',', ';'); // other bytes
    std::filesystem::create_symlink(folder.path("elsewhere"), folder.path("a (4).csv"));
    EXPECT_EQ(loadBinary("a.dbd", bytes).converted, folder.path("a (5).csv"));
    EXPECT_EQ(folder.read("elsewhere"), "(missing)");
}

TEST_F(ConversionLoaderTest, ATaggedDownloadIsLoadedAsItsRows) {
    const std::string download = ScratchFolder::contents(PELLAM_SAMPLES "/borehole-download.txt");
    const Table<const char*, char, char> cases = {
        {"a.txt", '.', ','}, {"a.csv", ',', ';'}, {"a.dlr", '.', ';'}};
    for (const auto& [name, decimal, list] : cases) {
        useSeparators(decimal, list);
        saveFolder = folder.path(name) + ".d";
        std::filesystem::create_directory(saveFolder);
        const LoadOutcome outcome = loadBinary(name, download);
        EXPECT_EQ(messages.texts, "");
        EXPECT_EQ(outcome.kind, LoadOutcome::Kind::Tagged) << name;
        EXPECT_EQ(outcome.path, folder.path(name));
        EXPECT_EQ(outcome.converted, saveFolder + "/a.csv");
        EXPECT_EQ(grid->column(1).label(), "Depth (m)") << name;
        const std::string d(1, decimal);
        EXPECT_EQ(row(0), "2008/11/03 09:00:00|23" + d + "361|510|9" + d + "81") << name;
    }
}

TEST_F(ConversionLoaderTest, AFailedConversionNeverShowsAnEarlierFilesText) {
    const std::string old = "Datetime,A.Old(m)\n2008/11/10 11:20:00.000000,1.00000\n";
    folder.write("gone.csv", old);
    EXPECT_FALSE(loadBinary("gone.dbd").loaded);
    EXPECT_EQ(messages.texts, "Can not open " + folder.path("gone.dbd") + " for read\n");
    EXPECT_EQ(grid->rowCount(), 0);
    saveFolder = folder.path("none");
    EXPECT_FALSE(loadBinary("held.dbd", bytes).loaded);
    EXPECT_EQ(messages.texts, "Can not open " + folder.path("none/held.csv") + " for write\n");
}

TEST_F(ConversionLoaderTest, AnAbortedConversionLoadsNothing) {
    folder.write("a.csv", "old");
    progress.abortAfter = 0;
    const LoadOutcome outcome = loadBinary("a.dbd", bytes);
    EXPECT_TRUE(outcome.aborted);
    EXPECT_FALSE(outcome.loaded);
    EXPECT_EQ(folder.list(), "a.csv a.dbd");
    EXPECT_EQ(folder.read("a.csv"), "old");
    EXPECT_EQ(messages.texts, "");
}

} // namespace
} // namespace pellam
