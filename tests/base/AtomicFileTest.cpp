#include "base/AtomicFile.h"

#include "RecordingSinks.h"
#include "ScratchFolder.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pellam {
namespace {

class AtomicFileTest : public testing::Test {
  protected:
    /// Writes `text` to `path` in one go; the failure's text, empty on success.
    static std::string put(const std::string& path, const std::string& text,
                           ProgressSink* waiting = nullptr) {
        AtomicFile file;
        if (const Failure failure = file.create(path, waiting)) return failure.text();
        file.append(text);
        return file.commit().text();
    }

    static mode_t modeOf(const std::string& path) {
        struct stat status = {};

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
            file.append("new");
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
    SilentProgress waiting; // the reader may come later
    EXPECT_EQ(put(pipe, "through", &waiting), "");
    reader.join();
    EXPECT_EQ(got, "through");
    EXPECT_EQ(m_folder.list(), "pipe.csv");
}

TEST_F(AtomicFileTest, PipeThatNobodyReadsIsRefusedOrWaitedForUntilTheStop) {
    const std::string pipe = m_folder.path("pipe.csv");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(put(pipe, "x"), pipe + " can not be written: nobody reads from this pipe.");
    test::RecordedProgress progress;
    progress.abortAfter = 2;
    AtomicFile file;
    EXPECT_EQ(file.create(pipe, &progress).kind, Failure::Kind::Aborted);
    EXPECT_EQ(progress.asked, 3);

    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK); // is there, and takes nothing
    progress.asked = 0;
    ASSERT_FALSE(file.create(pipe, &progress));
    file.append(std::string(1'000'000, 'x'));
    EXPECT_EQ(file.commit().kind, Failure::Kind::Aborted);
    EXPECT_NE(progress.log.find("Waiting for the reader of " + pipe), std::string::npos);
    ::close(reader);
}

TEST_F(AtomicFileTest, OpenFileOfTheProcessIsWrittenWhereItStands) {
    const std::string path = m_folder.write("log.txt", "before\n");

    struct stat earlier = {};
    struct stat later = {};

    ASSERT_EQ(::stat(path.c_str(), &earlier), 0);
    const int file = ::open(path.c_str(), O_WRONLY | O_APPEND);
    const std::string link = m_folder.path("out.csv");
    ASSERT_EQ(::symlink("/dev/fd", m_folder.path("streams").c_str()), 0);
    ASSERT_EQ(::symlink(("streams/" + std::to_string(file)).c_str(), link.c_str()), 0);
    EXPECT_EQ(put(link, "one\n"), "");
    EXPECT_EQ(put("/proc/self/fd/" + std::to_string(file), "two\n"), "");
    ASSERT_EQ(::write(file, "after\n", 6), 6);
    ::close(file);
    EXPECT_EQ(m_folder.read("log.txt"), "before\none\ntwo\nafter\n");
    ASSERT_EQ(::stat(path.c_str(), &later), 0);
    EXPECT_EQ(earlier.st_ino, later.st_ino);
    EXPECT_EQ(m_folder.list(), "log.txt out.csv streams");
}

TEST_F(AtomicFileTest, FileOfAnotherOwnerKeepsItsGroupAndMode) {
    if (::geteuid() != 0) return; // only root can make such a file
    const std::string path = m_folder.write("a.csv", "earlier");
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms(0777));
    const gid_t shared = 4711;
    const auto ownerAndMode = [&path] {
        struct stat status = {};
        EXPECT_EQ(::stat(path.c_str(), &status), 0);
        return std::tuple(status.st_uid, status.st_gid, status.st_mode & 07777U);
    };
    ASSERT_EQ(::chown(path.c_str(), 1234, shared), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0664), 0);
    EXPECT_EQ(put(path, "by root"), "");
    EXPECT_EQ(ownerAndMode(), std::tuple(1234U, shared, 0664U));
    ASSERT_EQ(::setgroups(1, &shared), 0);
    ASSERT_EQ(::seteuid(65534), 0);
    const std::string failure = put(path, "by a colleague");
    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_EQ(::setgroups(0, nullptr), 0);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(m_folder.read("a.csv"), "by a colleague");
    EXPECT_EQ(ownerAndMode(), std::tuple(65534U, shared, 0664U));
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
