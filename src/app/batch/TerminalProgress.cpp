#include "app/batch/TerminalProgress.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace pellam {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr std::chrono::milliseconds kRedraw{100};

volatile std::sig_atomic_t stopRequested = 0;

void requestStop(int) {
    stopRequested = 1;
}

} // namespace

TerminalProgress::TerminalProgress() : m_terminal(::isatty(STDERR_FILENO) == 1) {
    stopRequested = 0;

    struct sigaction action = {};

    action.sa_handler = requestStop;
    // Waiting for the other end of a pipe is given up, so nothing is restarted.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        ::sigaction(kSignals[i], nullptr, &m_earlier[i]);
        // A program started with a signal ignored (nohup) goes on ignoring it.
        if (m_earlier[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
    }
}

TerminalProgress::~TerminalProgress() {
    finish();
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        ::sigaction(kSignals[i], &m_earlier[i], nullptr);
    }
}

void TerminalProgress::start(std::string_view, std::string_view firstLine, std::int64_t first,
                             std::int64_t last) {
    m_text = firstLine;
    m_first = first;
    m_last = last;
    m_position = first;
    m_positionKnown = false;
    m_drawn = std::chrono::steady_clock::now(); // what is over quickly shows no bar
}

void TerminalProgress::addString(std::string_view text) {
    if (!m_terminal) return;
    m_text = text;
    refresh();
}

void TerminalProgress::setPosition(std::int64_t position) {
    m_position = position;
    m_positionKnown = true;
    refresh();
}

void TerminalProgress::refresh() {
    if (m_terminal && std::chrono::steady_clock::now() - m_drawn >= kRedraw) draw();
}

bool TerminalProgress::aborted() {
    return stopRequested != 0;
}

void TerminalProgress::finish() {
    if (m_visible) std::fputs("\r\033[K", stderr);
    m_visible = false;
}

std::string TerminalProgress::bar(std::int64_t position, std::int64_t first, std::int64_t last,
                                  std::string_view text) {
    constexpr std::int64_t kWidth = 20;
    const double range = static_cast<double>(std::max(last, first + 1) - first);
    const double part = std::clamp(static_cast<double>(position - first) / range, 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(part * static_cast<double>(kWidth));
    std::string percent = std::to_string(static_cast<int>(part * 100));
    percent.insert(0, 3 - percent.size(), ' ');
    return '[' + std::string(filled, '#') + std::string(kWidth - filled, ' ') + "] " + percent +
           " % " + std::string(text);
}

void TerminalProgress::draw() {
    const std::string shown = m_positionKnown ? bar(m_position, m_first, m_last, m_text) : m_text;
    const std::string line = '\r' + shown + "\033[K";
    std::fwrite(line.data(), 1, line.size(), stderr);
    m_drawn = std::chrono::steady_clock::now();
    m_visible = true;
}

} // namespace pellam
