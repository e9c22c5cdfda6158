#include "delimited/sample/TextSample.h"

#include "base/TextSource.h"

#include <algorithm>

namespace pellam {

std::string_view takeLine(std::string_view& text) {
    std::size_t end = std::min(text.find('\n'), text.size());
    end = std::min(text.substr(0, end).find('\r'), end);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size()));
    return line;
}

// Drops the last line, which goes on behind the sample, unless it is the only one.
void TextSample::cutHead() {
    const std::size_t end = head.find_last_of("\r\n");
    cutLine = end == std::string::npos;
    if (!cutLine) head.resize(end + 1);
}

// Drops what is left of the line that begins before the sample.
void TextSample::cutTail() {
    const std::size_t end = tail.find_first_of('\n');
    const std::size_t begin = end == std::string::npos ? tail.size() : end + 1;
    if (tailAt >= 0) tailAt += static_cast<std::int64_t>(begin);
    tail.erase(0, begin);
}

// So many short lines tell no more than some of them: the head keeps its first ones, the tail its
// last ones.
void TextSample::limitLines() {
    std::string_view rest = head;
    for (std::size_t lines = 0; !rest.empty() && lines < kLines; ++lines)
        (void)takeLine(rest);
    if (!rest.empty()) {
        if (tail.empty() && !cutLine) {
            const std::size_t size = std::min(rest.size(), kSize);
            tail = rest.substr(rest.size() - size);
            tailAt = tailAt < 0 ? tailAt : fileSize - static_cast<std::int64_t>(size);
            if (size < rest.size()) cutTail();
        }
        head.resize(head.size() - rest.size());
    }
    std::size_t lines = 0;
    for (std::size_t at = tail.size(); at > 0; --at) {
        if (tail[at - 1] != '\n' && tail[at - 1] != '\r') continue;
        if (++lines <= kTailLines) continue;
        tail.erase(0, at);
        if (tailAt >= 0) tailAt += static_cast<std::int64_t>(at);
        break;
    }
}

TextSample TextSample::ofText(std::string_view text) {
    TextSample sample;
    sample.fileSize = static_cast<std::int64_t>(text.size());
    sample.tailAt = 0;
    if (text.size() <= 2 * kSize) {
        sample.head = text;
    } else {
        sample.head = text.substr(0, kSize);
        sample.tail = text.substr(text.size() - kSize);
        sample.tailAt = static_cast<std::int64_t>(text.size() - kSize);
        sample.cutHead();
        sample.cutTail();
    }
    sample.limitLines();
    return sample;
}

Failure TextSample::read(const std::string& path) {
    *this = {};
    TextSource source;
    if (Failure failure = source.open(path)) return failure;
    fileSize = source.fileSize();
    utf16 = source.isUtf16();
    const bool whole = fileSize <= static_cast<std::int64_t>(2 * kSize);
    const auto fill = [&source](std::string& text, std::size_t size) {
        text.resize(size + 16);
        std::size_t used = 0;
        while (text.size() - used >= 16) {
            const std::size_t got = source.read(text.data() + used, text.size() - used);
            if (got == 0) break;
            used += got;
        }
        text.resize(used);
    };
    fill(head, whole ? 3 * kSize : kSize);
    tailAt = source.seekToEnd(static_cast<std::int64_t>(kSize));
    if (!whole) {
        fill(tail, 3 * kSize);
        cutHead();
        cutTail();
    }
    limitLines();
    return source.error();
}

} // namespace pellam
