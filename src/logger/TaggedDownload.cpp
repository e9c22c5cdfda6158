#include "logger/TaggedDownload.h"

#include "base/AtomicFile.h"
#include "base/LineReader.h"
#include "logger/TaggedClock.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace pellam {

namespace {

constexpr std::size_t kHeadLines = 7;
using Head = std::array<std::string, kHeadLines>;

std::string withoutTag(std::string text, const std::string& tag) {
    for (const std::string& part : {'<' + tag + '>', "</" + tag + '>'}) {
        for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos;)
            text.erase(at, part.size());
    }
    return text;
}

Failure readHead(LineReader& reader, const std::string& path, Head& head) {
    std::string_view line;
    for (std::string& text : head) {
        const bool found = reader.next(line);
        if (!found && reader.error()) return reader.error();
        // Any other text would become a table of invented times.
        if (!found || (&text == head.data() && line.find("<start>") == std::string_view::npos)) {
            return {Failure::Kind::Format, path, reader.bytesRead(),
                    "a tagged download begins with seven lines: <start>, <end>, two others, "
                    "<log interval>, the heading and <data>."};
        }
        text = withoutLineEnd(line);
    }
    return {};
}

// The reader and the output keep their failures.
void writeRows(LineReader& reader, TaggedClock& clock, BlockWriter& output) {
    std::string text;
    std::string_view line;
    while (!output.failed() && reader.next(line)) {
        line = withoutLineEnd(line);
        if (line.find("</data>") != std::string_view::npos) continue;
        text.clear();
        clock.appendTo(text);
        const std::size_t begin = text.size();
        text += line;
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), '>', ',');
        text += "\r\n";
        output.append(text);
        clock.advance();
    }
}

} // namespace

std::string taggedDownloadOutput(const std::string& inputPath) {
    constexpr std::string_view kText = ".txt";
    const auto name =
        inputPath.begin() + static_cast<std::ptrdiff_t>(inputPath.find_last_of("/\\") + 1);
    const auto same = [](unsigned char a, unsigned char b) { return std::tolower(a) == b; };
    const auto found = std::find_end(name, inputPath.end(), kText.begin(), kText.end(), same);
    if (found == inputPath.end()) return inputPath + ".csv";
    std::string output = inputPath;
    return output.replace(static_cast<std::size_t>(found - inputPath.begin()), kText.size(),
                          ".csv");
}

Failure convertTaggedDownload(const std::string& inputPath) {
    LineReader reader;
    if (Failure failure = reader.open(inputPath)) return failure;
    Head head;
    if (Failure failure = readHead(reader, inputPath, head)) return failure;
    TaggedClock clock;
    clock.setStart(withoutTag(head[0], "start"));
    clock.setInterval(withoutTag(head[4], "log interval"));
    AtomicFile output;
    if (Failure failure = output.create(taggedDownloadOutput(inputPath))) return failure;
    output.append("Time," + head[5] + "\r\n");
    writeRows(reader, clock, output);
    if (Failure failure = output.commit()) return failure;
    return reader.error();
}

} // namespace pellam
