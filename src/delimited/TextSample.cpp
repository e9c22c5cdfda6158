#include "delimited/TextSample.h"

#include "base/TextSource.h"

namespace pellam {

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
    } else {
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    }
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

TextSample TextSample::ofText(std::string_view text) {
    TextSample sample;
    sample.fileSize = static_cast<std::int64_t>(text.size());
    if (text.size() <= 2 * kSize) {
        sample.head = text;
        return sample;
    }
    sample.head = text.substr(0, kSize);
    sample.tail = text.substr(text.size() - kSize);
    sample.tailAt = static_cast<std::int64_t>(text.size() - kSize);
    sample.cutHead();
    sample.cutTail();
    return sample;
}

Failure TextSample::read(const std::string& path) {
    *this = {};
    TextSource source;
    if (Failure failure = source.open(path)) return failure;
    fileSize = source.fileSize();
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
    if (!whole) {
        tailAt = source.seekToEnd(static_cast<std::int64_t>(kSize));
        fill(tail, 3 * kSize);
        cutHead();
        cutTail();
    }
    return source.error();
}

} // namespace pellam
