#pragma once

#include "views/scan/ClipboardTable.h"

#include <QObject>

#include <functional>
#include <string>

namespace pellam {

class MyCug;

/// Cut, copy, paste and clear on the grid's selection.
class GridClipboard : public QObject {
    Q_OBJECT
  public:
    /// As many cells are changed without a question.
    static constexpr std::int64_t kMostUnasked = 1'000'000;

    explicit GridClipboard(MyCug& cug);

    /// Follows the clipboard, for hasText(). Asking what it holds goes to another program, so that
    /// is done only when it changes.
    void watch();

    /// Whether there is a text to paste; not before watch().
    [[nodiscard]] bool hasText() const { return m_hasText; }

    /// Asked before very many cells are changed, or all of them; without it that is not done.
    void setQuestion(std::function<bool(const QString&)> question);

    /// Puts the selected cells on the clipboard. False when that was refused or stopped.
    bool copy(bool withHeadings = false);
    void cut();
    /// Writes the clipboard's cells from the selection's first cell on, or its single text into
    /// every selected cell.
    void paste();
    /// Empties the selected data cells.
    void clear();

  Q_SIGNALS:
    /// Nothing was done, and why.
    void refused(const QString& why);
    /// A remark for the status bar.
    void notice(const QString& text);

  private:
    bool writable();
    /// Asks about changes of very many cells, and of all there are; %1 of the question is how many.
    [[nodiscard]] bool mayChange(const std::vector<CellArea>& areas, const QString& question) const;
    [[nodiscard]] CellArea pasteTarget(GridRow rows, std::int64_t columns) const;
    bool buildText(const ClipboardTable::Block& block, std::string& text);
    void fill(const std::vector<CellArea>& areas, const std::string& text, const QString& name);
    void pasteTable(const std::vector<std::vector<std::string>>& table);

    MyCug& m_cug;
    std::function<bool(const QString&)> m_question;
    bool m_watches = false;
    bool m_hasText = false;
};

} // namespace pellam
