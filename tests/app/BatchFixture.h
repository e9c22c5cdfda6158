#pragma once

#include "ScratchFolder.h"

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace pellam {

/// Runs the program as a person would, in a folder of its own and without a display.
class BatchFixture : public testing::Test {
  protected:
    BatchFixture() {
        m_folder.write("mast.csv", "Time,Temp(degC),Wind(m/s)\r\n"
                                   "2008/02/25 11:53:15,12.50,3\r\n"
                                   "2008/02/25 11:54:15,13.25,Calm\r\n");
        m_folder.write("house.ini", "[intl]\nsDecimal=.\nsList=,\n");
    }

    /// Runs the program with arguments as in a shell, the working folder being the scratch one.
    /// Gives the exit status; m_out and m_err are what it wrote.
    int run(const std::string& arguments, const std::string& program = PELLAM_PROGRAM) {
        const std::string command = "cd '" + m_folder.path() +
                                    "' && exec env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C TZ=UTC "
                                    "XDG_CONFIG_HOME=/nowhere '" +
                                    program + "' " + arguments;
        const int status = std::system(("{ " + command + "; } >'" + m_streams.path("out") +
                                        "' 2>'" + m_streams.path("err") + "' </dev/null")
                                           .c_str());
        m_out = m_streams.read("out");
        m_err = m_streams.read("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    ScratchFolder m_folder;
    ScratchFolder m_streams;
    std::string m_out;
    std::string m_err;
};

} // namespace pellam
