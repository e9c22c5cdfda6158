#include "LoadHarness.h"
#include "ScratchFolder.h"
#include "replay/file/CReplayFile.h"

#include <filesystem>

namespace pellam {
namespace {

const std::string kCheck = "Warning: Replay file integrity check ";
const std::string kMoved =
    "Warning: Signature or Replay file has been moved from original location\n";
const std::string kGood = "Information: Replay file integrity check OK; Signature: A. Brook\n";

class SignatureTest : public testing::Test {
  protected:
    SignatureTest() { folder.write("mast.dlr", "123456789"); }

    static std::string signature(const std::string& location, const std::string& crc = "CBF43926") {
        return "1\r\n2\r\n3\r\n<CRC32>" + crc + "</CRC32>\r\n<OrigLocation>\"" + location +
               "\"</OrigLocation>\r\n<Signature>A. Brook</Signature>\r\n";
    }

    // What was shown, and the file that was opened in brackets.
    std::string opened(const std::string& path) {
        messages.texts.clear();
        const CReplayFile file(path, messages);
        EXPECT_EQ(file.isOpen(), !file.FileName().empty());
        return messages.texts + '[' + file.FileName() + ']';
    }

    ScratchFolder folder;
    test::RecordedMessages messages;
    const std::string replay = folder.path("mast.dlr");
};

TEST_F(SignatureTest, AcceptsTheFileThatWasSigned) {
    const std::string path = folder.write("mast.sig", signature(replay, "cbf43926"));
    EXPECT_EQ(opened(path), kGood + ('[' + replay + ']'));
}

TEST_F(SignatureTest, ARelativePathIsAsGoodAsAWholeOne) {
    std::filesystem::create_directory(folder.path("s"));
    folder.write("s/mast.dlr", "123456789");
    folder.write("s/mast.sig", signature(folder.path("s/mast.dlr")));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    for (const char* path : {"s/mast.sig", "./s/mast.sig", "s/../s//mast.sig"})
        EXPECT_EQ(opened(path), kGood + ('[' + folder.path("s/mast.dlr") + ']')) << path;
    std::filesystem::current_path(folder.path("s"));
    for (const char* path : {"./mast.sig", "mast.sig", "../s/mast.sig"})
        EXPECT_EQ(opened(path), kGood + ('[' + folder.path("s/mast.dlr") + ']')) << path;
    std::filesystem::current_path(before);
}

TEST_F(SignatureTest, FindsTheCopyBesideItselfWhenFoldersAreEquallyLong) {
    std::string elsewhere(folder.path().size(), 'x');
    const std::string path = folder.write("mast.sig", signature(elsewhere + "\\mast.dlr"));
    EXPECT_EQ(opened(path), kMoved + kGood + '[' + replay + ']');
    const std::string other =
        folder.write("mast.sig", signature(elsewhere.substr(1) + "/mast.dlr"));
    EXPECT_EQ(opened(other), kMoved + "Warning: Can not open replay file\n[]");
    const std::string tiny = folder.write("mast.sig", signature("m"));
    EXPECT_EQ(opened(tiny), kMoved + "Warning: Can not open replay file\n[]");
}

TEST_F(SignatureTest, RefusesWhatDoesNotAgree) {
    const std::string path = folder.write("mast.sig", signature(replay, "CBF43927"));
    EXPECT_EQ(opened(path), kCheck + ("FAILED: " + replay + "\n[]"));
    for (const char* bytes : {"1\n2\n3\n", "", "1\n2\n3\n<CRC32>CBF43926</CRC32>\n",
                              "1\n2\n3\n\r\n<OrigLocation>x</OrigLocation>\n"}) {
        EXPECT_EQ(opened(folder.write("mast.sig", bytes)),
                  "Warning: Signature file integrity check FAILED\n[]");
    }
}

TEST_F(SignatureTest, RefusesEncipheredAndSpecialFiles) {
    EXPECT_EQ(opened(folder.write("mast.sig", signature(replay) + '\x01')),
              kGood + ('[' + replay + ']')); // only six lines are looked at
    EXPECT_EQ(opened(folder.write("mast.sig", "\x02\x1f\x80\n" + signature(replay))),
              "Warning: Can not open replay file\n[]");
    EXPECT_EQ(opened(folder.write("mast.sig", signature(folder.path() + "/."))),
              "Warning: Can not open replay file\n[]");
}

TEST_F(SignatureTest, OnlyTheNameMakesASignature) {
    std::filesystem::create_directory(folder.path("a.sig"));
    EXPECT_EQ(opened(folder.write("a.sig/mast.dlr", "D,1\n")),
              '[' + folder.path("a.sig/mast.dlr") + ']');
    EXPECT_EQ(opened(folder.write("MAST.SIG", signature(replay))), kGood + ('[' + replay + ']'));
}

} // namespace
} // namespace pellam
