#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace pellam {

/// The folder of all temporary files and of the toolkit's own settings while a test program runs. A
/// process that waits for the program's end removes it, so that nothing stays when a test is
/// killed.
class TestFolder {
  public:
    TestFolder() {
        std::string path =
            (std::filesystem::temp_directory_path() / "pellam-tests-XXXXXX").string();
        if (!::mkdtemp(path.data())) std::abort();
        // Servers and programs that tests run as another user have their temporary files here too.
        std::filesystem::permissions(path, std::filesystem::perms(01777));
        ::setenv("TMPDIR", path.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (path + "/config").c_str(), 1);
        int ends[2] = {-1, -1};
        if (::pipe2(ends, O_CLOEXEC) != 0) std::abort();
        if (::fork() == 0) removeAtTheEnd(path, ends);
        ::close(ends[0]);
    }

    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

  private:
    [[noreturn]] static void removeAtTheEnd(const std::string& path, const int (&ends)[2]) {
        // Whoever runs the program waits for the end of its output, and may signal its group.
        for (const int handle : {0, 1, 2, ends[1]})
            ::close(handle);
        ::setsid();
        char nothing = 0;
        while (::read(ends[0], &nothing, 1) < 0)
            continue;
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
        ::_exit(0);
    }
};

} // namespace pellam
