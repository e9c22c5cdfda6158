#include "logger/TaggedDownload.h"

#include "base/AtomicFile.h"
#include "base/FieldScanner.h"
#include "base/LineReader.h"
#include "logger/ConversionTarget.h"
#include "logger/TaggedClock.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <string_view>

namespace pellam {

namespace {

constexpr std::size_t kHeadLines = 7;
using Head = std::array<std::string, kHeadLines>;

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view withoutIndent(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(kBlanks), line.size()));
}

// What stands between a line's tags. Blanks before the tag are none of it, those behind it are:
// the fields within have fixed columns.
std::string_view tagged(std::string_view line, const std::string& tag) {
    const std::string opening = '<' + tag + '>';
    const std::size_t begin = line.find(opening);
    if (begin != std::string_view::npos) line.remove_prefix(begin + opening.size());
    return line.substr(0, line.find("</" + tag + '>'));
}

bool hasTag(const Head& head, std::size_t line, std::string_view tag) {
    return head[line].find(tag) != std::string::npos;
}

// Whether it would be lost in the place of a tag: fields of rows have a '>' before them.
bool isRow(std::string_view line) {
    return !withoutIndent(line).starts_with('<') && line.find('>') != std::string_view::npos;
}

bool startsAndCounts(const Head& head) {
    constexpr std::string_view kDigits = "0123456789";
    return tagged(head[0], "start").find_first_of(kDigits) != std::string_view::npos &&
           tagged(head[4], "log interval").find_first_of(kDigits) != std::string_view::npos;
}

Failure readHead(LineReader& reader, const std::string& path, Head& head) {
    std::string_view line;
    std::size_t count = 0;
    while (count < kHeadLines && reader.next(line))
        head[count++] = withoutLineEnd(line);
    if (reader.error()) return reader.error();
    // Any other text would become a table of invented times, or lose its first row.
    if (count == kHeadLines && hasTag(head, 0, "<start>") && hasTag(head, 4, "<log interval>") &&
        !isRow(head[6]) && startsAndCounts(head)) {
        return {};
    }
    return {Failure::Kind::Format, path, reader.bytesRead(),
            "a tagged download begins with seven lines: <start>, <end>, two others, "
            "<log interval>, the heading and <data>; start and interval are numbers."};
}

bool isPlainDecimal(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return std::count(text.begin(), text.end(), '.') == 1 && text.size() > 1 &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

// Writes a download's rows as delimited text.
class RowWriter {
  public:
    RowWriter(const TaggedStyle& style, BlockWriter& output) : m_style(style), m_output(output) {}

    void heading(std::string_view line) {
        const std::string padded = std::string(line) + std::string(LineReader::kSlack, ' ');
        FieldScanner fields(std::string_view(padded).substr(0, line.size()), ',',
                            FieldScanner::Quotes::Group);
        m_text += "Time";
        for (std::string_view field; fields.next(field);)
            appendField(field);
        endLine();
    }

    // Every '>' begins a field; an empty line has none.
    void row(std::string_view line, TaggedClock& clock) {
        clock.appendTo(m_text);
        clock.advance();
        std::size_t begin = line.starts_with('>') ? 1 : 0;
        while (!line.empty() && begin <= line.size()) {
            const std::size_t end = std::min(line.find('>', begin), line.size());
            const std::string_view field = line.substr(begin, end - begin);
            isPlainDecimal(field) ? appendNumber(field) : appendField(field);
            begin = end + 1;
        }
        endLine();
    }

    [[nodiscard]] bool failed() const { return m_output.failed(); }

  private:
    void endLine() {
        m_text += "\r\n";
        m_output.append(m_text);
        m_text.clear();
    }

    void appendNumber(std::string_view field) {
        std::string number(field);
        std::replace(number.begin(), number.end(), '.', m_style.decimalSeparator);
        appendField(number);
    }

    // A field that holds the separator stays one field.
    void appendField(std::string_view field) {
        m_text += m_style.listSeparator;
        const bool plain =
            field.starts_with('"') || field.find(m_style.listSeparator) == std::string_view::npos;
        if (plain) {
            m_text += field;
            return;
        }
        m_text += '"';
        for (const char c : field)
            m_text.append(c == '"' ? 2 : 1, c);
        m_text += '"';
    }

    TaggedStyle m_style;
    BlockWriter& m_output;
    std::string m_text; ///< the line under way
};

// The reader and the output keep their failures.
void writeRows(LineReader& reader, TaggedClock& clock, RowWriter& writer) {
    constexpr std::string_view kEnd = "</data>";
    std::int64_t blanks = 0; // lines that are rows only if others follow
    std::string_view line;
    std::string rest;
    while (!writer.failed() && reader.next(line)) {
        line = withoutLineEnd(withoutIndent(line));
        if (const std::size_t end = line.find(kEnd); end != std::string_view::npos) {
            rest.assign(line).erase(end, kEnd.size());
            line = withoutLineEnd(rest, kBlanks);
            if (line.empty()) blanks = 0;
            if (line.empty()) continue;
        }
        const bool tag = line.starts_with("</") && line.find('>') == line.size() - 1;
        if (tag || line.empty()) {
            blanks = tag ? 0 : blanks + 1;
            continue;
        }
        for (; blanks > 0; --blanks)
            writer.row({}, clock);
        writer.row(line, clock);
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

bool isTaggedDownload(const std::string& path) {
    constexpr int kIntervalLine = 5;
    LineReader reader;
    std::string_view line;
    if (reader.open(path) || !reader.next(line)) return false;
    if (!withoutIndent(line).starts_with("<start>")) return false;
    for (int number = 1; number < kIntervalLine; ++number) {
        if (!reader.next(line)) return false;
    }
    return withoutIndent(line).starts_with("<log interval>");
}

Failure convertTaggedDownload(const std::string& inputPath, const std::string& outputPath,
                              const TaggedStyle& style) {
    LineReader reader;
    if (Failure failure = reader.open(inputPath)) return failure;
    Head head;
    if (Failure failure = readHead(reader, inputPath, head)) return failure;
    TaggedClock clock;
    clock.setStart(tagged(head[0], "start"));
    clock.setInterval(tagged(head[4], "log interval"));
    AtomicFile output;
    if (Failure failure = output.create(outputPath)) return failure;
    RowWriter writer(style, output);
    writer.heading(withoutIndent(head[5]));
    writeRows(reader, clock, writer);
    if (Failure failure = output.commit()) return failure;
    if (reader.cutLines() > 0 && !reader.error()) {
        return {Failure::Kind::Read, inputPath, -1,
                "line " + std::to_string(reader.firstCutLine()) + " is too long and was cut"};
    }
    return reader.error();
}

Failure convertTaggedDownloadBeside(const std::string& inputPath, std::string& outputPath) {
    ConversionTarget target(taggedDownloadOutput(inputPath));
    outputPath = target.path();
    Failure failure = convertTaggedDownload(inputPath, outputPath);
    if (!failure || failure.kind == Failure::Kind::Read) outputPath = target.settle();
    return failure;
}

} // namespace pellam
