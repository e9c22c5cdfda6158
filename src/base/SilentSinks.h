#pragma once

#include "base/MessageSink.h"
#include "base/ProgressSink.h"

namespace pellam {

/// Shows nothing.
class SilentMessages : public MessageSink {
  public:
    void show(std::string_view) override {}
};

/// Shows nothing and is never stopped.
class SilentProgress : public ProgressSink {
  public:
    void start(std::string_view, std::string_view, std::int64_t, std::int64_t) override {}

    void addString(std::string_view) override {}

    void setPosition(std::int64_t) override {}

    bool aborted() override { return false; }

    void finish() override {}
};

} // namespace pellam
