#include "LoadHarness.h"

#include <iterator>

namespace pellam {
namespace {

using test::LoadTest;

class BinaryLoaderTest : public LoadTest {
  protected:
    BinaryLoaderTest() {
        std::ifstream file(PELLAM_SAMPLES "/tank-gauge.dbd", std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(bytes.substr(0, 4), "DTDT");
        saveFolder = m_folder.string();
    }

    LoadOutcome loadBinary(const std::string& name, const std::string& contents) {
        std::ofstream(m_folder / name, std::ios::binary) << contents;
        return loadBinary(name);
    }

    LoadOutcome loadBinary(const std::string& name) {
        messages.texts.clear();
        LoadContext context{*grid, international, corrections, messages, progress, chooser};
        context.saveFolder = [this] { return saveFolder; };
        context.askSaveFolder = [this] { saveFolder = answer; };
        return SessionLoader(context).load(m_folder / name);
    }

    std::string row(Row index) const {
        std::string text;
        for (int c = 0; c <= grid->channelCount(); ++c)
            text += (c ? "|" : "") + cell(c, index);
        return text;
    }

    std::string bytes;
    std::string saveFolder;
    std::string answer; ///< what the person enters as save folder
};

TEST_F(BinaryLoaderTest, LoadsEveryFieldWithTheSeparatorsOfTheUser) {
    const std::string start = "2008/11/10 11:20:00";

    const struct {
        char decimal;
        char list;
        const char* csvStart;
    } cases[] = {
        {'.', ',', "Datetime,A.Level(m),"}, {',', ';', "Datetime;A.Level(m);"},
        {',', ',', "Datetime;A.Level(m);"}, {'.', ':', "Datetime;A.Level(m);"},
        {';', ';', "Datetime,A.Level(m),"}, {'.', '|', "Datetime|A.Level(m)|"},
    };

    for (const auto& c : cases) {
        useSeparators(c.decimal, c.list);
        const std::string name{c.decimal, c.list};
        const LoadOutcome outcome = loadBinary("Tank 4.b.DBD", bytes);
        EXPECT_EQ(messages.texts, "") << name;
        EXPECT_TRUE(outcome.loaded && outcome.kind == LoadOutcome::Kind::Binary) << name;
        EXPECT_EQ(outcome.path, m_folder / "Tank 4.b.DBD");
        EXPECT_EQ(outcome.fileSize, 23452);
        EXPECT_EQ(outcome.rows, 300) << name;
        EXPECT_EQ(grid->column(2).label(), "A.Product temp(degC)") << name;
        EXPECT_EQ(grid->channelCount(), 5) << name;
        const std::string d(1, c.decimal);
        EXPECT_EQ(row(34), start + d + "000000|1" + d + "71374|11" + d +
                               "49621|13|filling, pump 2|" + start + d + "000000")
            << name;
        EXPECT_EQ(cell(1, 140), "Overrange") << name;
        std::ifstream csv(m_folder / "Tank 4.b.csv");
        std::string line;
        std::getline(csv, line);
        EXPECT_EQ(line.substr(0, 20), c.csvStart) << name;
    }
}

TEST_F(BinaryLoaderTest, AsksForASaveFolderOnce) {
    saveFolder.clear();
    const std::string warning =
        "Warning: No default save directory has been specified.\nThe preferences dialogue will "
        "now open to allow you to enter this setting\n";
    EXPECT_FALSE(loadBinary("a.dbd", bytes).loaded);
    EXPECT_EQ(messages.texts, warning);
    answer = m_folder / "converted";
    std::filesystem::create_directory(answer);
    EXPECT_EQ(loadBinary("a.dbd", bytes).rows, 300);
    EXPECT_EQ(messages.texts, warning);
    EXPECT_TRUE(std::filesystem::exists(m_folder / "converted" / "a.csv"));
    EXPECT_EQ(loadBinary("a.dbd", bytes).rows, 300);
    EXPECT_EQ(messages.texts, "");
    EXPECT_FALSE(loadFile(m_folder / "a.dbd").loaded); // nobody to ask
    EXPECT_EQ(messages.texts, warning);
}

TEST_F(BinaryLoaderTest, DamageShowsInTheRows) {
    const LoadOutcome outcome = loadBinary("cut.dbd", bytes.substr(0, bytes.size() / 2));
    EXPECT_TRUE(outcome.loaded);
    EXPECT_LT(outcome.rows, 200);
    EXPECT_EQ(cell(0, outcome.rows - 1).substr(0, 19), "Unexpected EOF (at ");
    EXPECT_FALSE(loadBinary("other.dbd", "no binary data").loaded);
    EXPECT_EQ(messages.texts, "Can not read DTDT section\n");
}

TEST_F(BinaryLoaderTest, AFailedConversionNeverShowsAnEarlierFilesText) {
    const std::string old = "Datetime,A.Old(m)\n2008/11/10 11:20:00.000000,1.00000\n";
    std::ofstream(m_folder / "gone.csv") << old;
    EXPECT_FALSE(loadBinary("gone.dbd").loaded);
    EXPECT_EQ(messages.texts, "Can not open " + (m_folder / "gone.dbd").string() + " for read\n");
    EXPECT_EQ(grid->rowCount(), 0);
    std::filesystem::create_directory(m_folder / "held.csv");
    EXPECT_FALSE(loadBinary("held.dbd", bytes).loaded);
    EXPECT_EQ(messages.texts, "Can not open " + (m_folder / "held.csv").string() + " for write\n");
}

TEST_F(BinaryLoaderTest, AnAbortedConversionLoadsNothing) {
    progress.abortAfter = 0;
    const LoadOutcome outcome = loadBinary("a.dbd", bytes);
    EXPECT_TRUE(outcome.aborted);
    EXPECT_FALSE(outcome.loaded);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "a.csv"));
    EXPECT_EQ(messages.texts, "");
}

} // namespace
} // namespace pellam
