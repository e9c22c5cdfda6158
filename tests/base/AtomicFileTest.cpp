#include "base/AtomicFile.h"

#include "ScratchFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pellam {
namespace {

class AtomicFileTest : public testing::Test {
  protected:
    /// Writes `text` to `path` in one go; the failure's text, empty on success.
    static std::string put(const std::string& path, const std::string& text) {
        AtomicFile file;
        if (const Failure failure = file.create(path)) return failure.text();
        if (const Failure failure = file.write(text)) return failure.text();
        return file.commit().text();
    }

    static mode_t modeOf(const std::string& path) {
        struct stat status {};

        EXPECT_EQ(::lstat(path.c_str(), &status), 0);
        return status.st_mode;
    }

    ScratchFolder m_folder;
};

TEST_F(AtomicFileTest, EarlierFileStaysUntilCommitAndWhereThereIsNone) {
    const std::string path = m_folder.write("a.csv", "earlier");
    for (const bool commit : {false, true}) {
        {
            AtomicFile file;
            ASSERT_FALSE(file.create(path));
            ASSERT_FALSE(file.write("new"));
            EXPECT_EQ(m_folder.read("a.csv"), "earlier");
            EXPECT_NE(m_folder.list(), "a.csv");
            EXPECT_TRUE(!commit || !file.commit());
        }
        EXPECT_EQ(m_folder.read("a.csv"), commit ? "new" : "earlier");
        EXPECT_EQ(m_folder.list(), "a.csv");
    }
}

TEST_F(AtomicFileTest, PermissionsAreThoseOfTheEarlierFileOrOfTheCreationMask) {
    const std::string path = m_folder.write("a.csv", "earlier");
    ASSERT_EQ(::chmod(path.c_str(), 0604), 0);
    EXPECT_EQ(put(path, "new"), "");
    EXPECT_EQ(modeOf(path) & 07777U, 0604U);
    const mode_t before = ::umask(027);
    EXPECT_EQ(put(m_folder.path("b.csv"), "new"), "");
    ::umask(before);
    EXPECT_EQ(modeOf(m_folder.path("b.csv")) & 07777U, 0640U);
}

TEST_F(AtomicFileTest, LinksStayAndTheirTargetIsReplaced) {
    m_folder.write("real.csv", "earlier");
    ASSERT_EQ(::symlink("real.csv", m_folder.path("one.csv").c_str()), 0);
    ASSERT_EQ(::symlink(m_folder.path("one.csv").c_str(), m_folder.path("two.csv").c_str()), 0);
    ASSERT_EQ(::symlink("missing.csv", m_folder.path("dangling.csv").c_str()), 0);
    EXPECT_EQ(put(m_folder.path("two.csv"), "new"), "");
    EXPECT_EQ(put(m_folder.path("dangling.csv"), "made"), "");
    EXPECT_EQ(m_folder.read("real.csv"), "new");
    EXPECT_EQ(m_folder.read("missing.csv"), "made");
    EXPECT_TRUE(S_ISLNK(modeOf(m_folder.path("two.csv"))));
}

TEST_F(AtomicFileTest, TargetsThatCanNotBeWritten) {
    const std::string folder = m_folder.path("folder");
    ASSERT_EQ(::mkdir(folder.c_str(), 0755), 0);
    const std::string loop = m_folder.path("loop");
    ASSERT_EQ(::symlink("loop", loop.c_str()), 0);
    const std::string missing = m_folder.path("no/such/a.csv");
    EXPECT_EQ(put(folder, "x"), folder + " is not a file: Is a directory.");
    EXPECT_EQ(put(loop, "x"), loop + " can not be written: Too many levels of symbolic links.");
    EXPECT_EQ(put(missing, "x"), missing + " can not be written: No such file or directory.");
    EXPECT_EQ(put("", "x"), "The file can not be written: No such file or directory.");
    const std::string readOnly = m_folder.write("a.csv", "earlier");
    ASSERT_EQ(::chmod(readOnly.c_str(), 0444), 0);
    EXPECT_EQ(put(readOnly, "new"), readOnly + " can not be written: Permission denied.");
    EXPECT_EQ(m_folder.read("a.csv"), "earlier");
}

TEST_F(AtomicFileTest, ReadOnlyFolderKeepsItsFile) {
    const std::string path = m_folder.write("a.csv", "earlier");
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms(0555));
    const bool root = ::geteuid() == 0; // may write everywhere: become somebody who may not
    ASSERT_EQ(root ? ::seteuid(65534) : 0, 0);
    const std::string failure = put(path, "new");
    ASSERT_EQ(root ? ::seteuid(0) : 0, 0);
    EXPECT_EQ(failure, path + " can not be written: Permission denied.");
    EXPECT_EQ(m_folder.read("a.csv"), "earlier");
}

TEST_F(AtomicFileTest, FullDeviceTellsAndIsNeverReplaced) {
    const std::string link = m_folder.path("full.csv");
    ASSERT_EQ(::symlink("/dev/full", link.c_str()), 0);
    EXPECT_EQ(put(link, "x"),
              link + " can not be written, the disk is full: No space left on device.");
    EXPECT_TRUE(S_ISCHR(modeOf("/dev/full")));
    EXPECT_EQ(m_folder.list(), "full.csv");
}

TEST_F(AtomicFileTest, PipeGetsTheBytes) {
    const std::string pipe = m_folder.path("pipe.csv");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::string got(16, '\0');
    std::thread reader([&] {
        const int file = ::open(pipe.c_str(), O_RDONLY);
        const ssize_t count = ::read(file, got.data(), got.size());
        got.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        ::close(file);
    });
    EXPECT_EQ(put(pipe, "through"), "");
    reader.join();
    EXPECT_EQ(got, "through");
    EXPECT_EQ(m_folder.list(), "pipe.csv");
}

TEST_F(AtomicFileTest, LongestFileNameStillHasRoom) {
    const std::string name(255, 'n');
    EXPECT_EQ(put(m_folder.path(name), "new"), "");
    EXPECT_EQ(m_folder.list(), name);
}

using Kind = Failure::Kind;

TEST(Failure, TextNamesFileTroublePlaceAndAdvice) {
    EXPECT_EQ(Failure().text(), "");
    EXPECT_EQ((Failure{Kind::Read, "a.dlr", -1, ""}.text()), "a.dlr can not be read.");
    EXPECT_EQ((Failure{Kind::Format, "a.dlr", 17, "the header is short."}.text()),
              "a.dlr is not in the expected form (at byte 17): the header is short.");
    EXPECT_EQ((Failure{Kind::Open, "", -1, "why"}.text()), "The file can not be opened: why.");
}

} // namespace
} // namespace pellam
