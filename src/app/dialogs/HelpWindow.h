#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace pellam {

/// The window of "&Help Contents": a list of pages with a search field, and the page itself. The
/// pages are compiled into the program.
class HelpWindow : public QWidget {
    Q_OBJECT

  public:
    explicit HelpWindow(QWidget* parent);

    /// File names of all pages, in the order of the contents list.
    [[nodiscard]] static QStringList pages();

    /// Shows a page by its file name.
    void showPage(const QString& page);

  private:
    void fillContents();
    void search(const QString& words);
    void highlight(const QString& words);
    void followPage();
    QWidget* makeContents();
    QWidget* makeReader();

    QLineEdit* m_search = nullptr;
    QListWidget* m_contents = nullptr;
    QTextBrowser* m_reader = nullptr;
};

} // namespace pellam
