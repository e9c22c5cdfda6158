#pragma once

#include <QTabWidget>

namespace pellam {

/// The tabbed pages of a window. Ctrl+Tab and Ctrl+Page Down go to the next page, Ctrl+Shift+Tab
/// and Ctrl+Page Up to the previous one, from anywhere in the window.
class TabPages : public QTabWidget {
    Q_OBJECT

  public:
    explicit TabPages(QWidget* parent = nullptr);

    /// Appends a page; gives its number, counted from 0.
    int addPage(QWidget* page, const QString& title, const QIcon& icon = {});

    /// Number of the page in front; -1 when there is none.
    [[nodiscard]] int activePage() const { return currentIndex(); }

  public Q_SLOTS:
    /// Brings a page to the front and gives it the keyboard; ignores a number out of range.
    void activate(int page);

  Q_SIGNALS:
    /// Another page came to the front.
    void pageActivated(int page);

  private:
    void step(int by);
};

} // namespace pellam
