#pragma once

#include <string>

namespace pellam {

/// Where the text that a file is converted to goes: the first of "X.csv", "X (2).csv", "X (3).csv"
/// and so on that no file has. A file that is there stays, whoever wrote it. One with the very
/// bytes of the new text is the same conversion, done before: it is used again.
class ConversionTarget {
  public:
    /// `path`: the first of the names; the numbers of the others stand before its extension.
    explicit ConversionTarget(const std::string& path);

    /// The file to write, which does not exist yet.
    [[nodiscard]] const std::string& path() const { return m_path; }

    /// To be called when path() has been written. Where an earlier file has the same bytes the new
    /// one goes. Gives the file that stays.
    const std::string& settle();

  private:
    [[nodiscard]] std::string name(int number) const;

    std::string m_stem; ///< of all names, with the folder
    std::string m_extension;
    std::string m_path;
    int m_number = 1; ///< of path()
};

} // namespace pellam
