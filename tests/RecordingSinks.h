#pragma once

#include "base/SilentSinks.h"

#include <string>

namespace pellam::test {

struct RecordedMessages : SilentMessages {
    void show(std::string_view text) override { texts.append(text).append("\n"); }

    std::string texts;
};

/// Counts what is open, and asks to stop at a chosen question.
struct CountedProgress : SilentProgress {
    void start(std::string_view title, std::string_view, std::int64_t, std::int64_t) override {
        started.append(title).append("\n");
        ++open;
    }

    void addString(std::string_view text) override { lastText = text; }

    bool aborted() override { return ++asked > abortAfter; }

    void finish() override { --open; }

    std::string started;
    std::string lastText;
    int open = 0;
    int asked = 0;
    int abortAfter = 1 << 30;
};

} // namespace pellam::test
