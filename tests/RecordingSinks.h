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
    void start(std::string_view title, std::string_view, std::int64_t first,
               std::int64_t last) override {
        started.append(title).append("\n");
        range = std::to_string(first) + ".." + std::to_string(last);
        ++open;
    }

    void addString(std::string_view text) override { lastText = text; }

    void setPosition(std::int64_t at) override { position = at; }

    bool aborted() override { return ++asked > abortAfter; }

    void finish() override { --open; }

    std::string started;
    std::string range; ///< of the last start
    std::string lastText;
    std::int64_t position = 0;
    int open = 0;
    int asked = 0;
    int abortAfter = 1 << 30;
};

} // namespace pellam::test
