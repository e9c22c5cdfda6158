#pragma once

#include <QColor>
#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QPalette;
QT_END_NAMESPACE

namespace pellam {

struct TextLayout;
struct TextSample;

/// What a line of a text file, or a part of it, is to its layout.
enum class LineRole { None, Description, Headings, Units, Data, Time };

/// The role in a word; empty for none.
[[nodiscard]] QString roleName(LineRole role);

/// The colour behind text of a role, for a palette's texts on its base.
[[nodiscard]] QColor roleTint(LineRole role, const QPalette& palette);

/// A line of a file's beginning.
struct SampleLine {
    /// Characters of the text that are a field of the time.
    struct Span {
        int start = 0;
        int length = 0;
    };

    QString text; ///< without its line end; cut where it is very long
    LineRole role = LineRole::None;
    std::vector<Span> times;
};

/// The first 200 lines of a sample with what a layout takes them for.
[[nodiscard]] std::vector<SampleLine> sampleLines(const TextSample& sample,
                                                  const TextLayout& layout);

} // namespace pellam
