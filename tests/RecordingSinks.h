#pragma once

#include "base/SilentSinks.h"

#include <string>

namespace pellam::test {

struct RecordedMessages : SilentMessages {
    void show(std::string_view text) override { texts.append(text).append("\n"); }

    std::string texts;
};

/// Writes down what is shown, a line a call, and asks to stop at a chosen question.
struct RecordedProgress : SilentProgress {
    void start(std::string_view title, std::string_view line, std::int64_t first,
               std::int64_t last) override {
        log.append(title).append("|").append(line).append("|");
        log += std::to_string(first) + ".." + std::to_string(last) + '\n';
        ++open;
    }

    void setWindowText(std::string_view text) override { log.append(text).append("\n"); }

    void addString(std::string_view text) override { log.append(text).append("\n"); }

    void setPosition(std::int64_t at) override { position = at; }

    bool aborted() override { return ++asked > abortAfter; }

    void finish() override { --open; }

    std::string log;
    std::int64_t position = 0;
    int open = 0;
    int asked = 0;
    int abortAfter = 1 << 30;
};

} // namespace pellam::test
