#include "app/dialogs/HelpWindow.h"

#include "ui/icons/IconSet.h"

#include <QBoxLayout>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QToolBar>

#include <algorithm>

// Resources of a static library are linked in only when something asks for them by name.
static void useHelpPages() {
    Q_INIT_RESOURCE(help);
}

namespace pellam {

namespace {

constexpr auto kFolder = ":/help/";

enum Role { FileRole = Qt::UserRole, TextRole };

QString readPage(const QString& page) {
    QFile file(QString::fromLatin1(kFolder) + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString titleOf(const QString& html) {
    const auto begin = html.indexOf(u"<title>") + 7;
    return html.mid(begin, html.indexOf(u"</title>") - begin);
}

bool containsAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    useHelpPages();
    setWindowTitle(tr("Pellam Help"));
    setObjectName(QStringLiteral("HelpWindow"));

    auto* splitter = new QSplitter;
    splitter->addWidget(makeContents());
    splitter->addWidget(makeReader());
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({220, 640});
    splitter->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    resize(860, 620);

    auto* close = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, qOverload<>(&QWidget::setFocus));

    fillContents();
    showPage(pages().front());
    m_contents->setFocus();
}

QStringList HelpWindow::pages() {
    return {QStringLiteral("index.html"),       QStringLiteral("opening.html"),
            QStringLiteral("text-files.html"),  QStringLiteral("sessions.html"),
            QStringLiteral("grid.html"),        QStringLiteral("trend.html"),
            QStringLiteral("find.html"),        QStringLiteral("damaged.html"),
            QStringLiteral("export.html"),      QStringLiteral("printing.html"),
            QStringLiteral("preferences.html"), QStringLiteral("command-line.html"),
            QStringLiteral("keyboard.html")};
}

QWidget* HelpWindow::makeContents() {
    m_search = new QLineEdit;
    m_search->setPlaceholderText(tr("Search help"));
    m_search->setClearButtonEnabled(true);
    m_search->setAccessibleName(tr("Search help"));
    m_contents = new QListWidget;
    m_contents->setFrameShape(QFrame::NoFrame);
    m_contents->setSpacing(2);
    m_contents->setAccessibleName(tr("Contents"));

    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(8, 8, 4, 8);
    layout->addWidget(m_search);
    layout->addWidget(m_contents);
    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(m_contents, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) showPage(item->data(FileRole).toString());
    });
    return pane;
}

QWidget* HelpWindow::makeReader() {
    m_reader = new QTextBrowser;
    m_reader->setFrameShape(QFrame::NoFrame);
    m_reader->document()->setDocumentMargin(16);
    m_reader->document()->setDefaultStyleSheet(
        QStringLiteral("a { color: %1; }").arg(IconSet::accent(palette()).name()));
    m_reader->setOpenExternalLinks(true);
    connect(m_reader, &QTextBrowser::sourceChanged, this, &HelpWindow::followPage);

    auto* bar = new QToolBar;
    auto* back = bar->addAction(tr("Back"), m_reader, &QTextBrowser::backward);
    auto* forward = bar->addAction(tr("Forward"), m_reader, &QTextBrowser::forward);
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    for (auto* action : {back, forward})
        action->setEnabled(false);
    connect(m_reader, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_reader, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(bar);
    layout->addWidget(m_reader);
    return pane;
}

void HelpWindow::fillContents() {
    const QSignalBlocker quiet(m_contents);
    for (const auto& page : pages()) {
        const auto html = readPage(page);
        auto* item = new QListWidgetItem(titleOf(html), m_contents);
        item->setData(FileRole, page);
        item->setData(TextRole, QTextDocumentFragment::fromHtml(html).toPlainText());
    }
}

void HelpWindow::showPage(const QString& page) {
    const QUrl url(QStringLiteral("qrc") + QString::fromLatin1(kFolder) + page);
    if (m_reader->source() != url) m_reader->setSource(url);
}

void HelpWindow::followPage() {
    const QSignalBlocker quiet(m_contents);
    const auto page = QFileInfo(m_reader->source().path()).fileName();
    for (int row = 0; row < m_contents->count(); ++row) {
        auto* item = m_contents->item(row);
        if (item->data(FileRole).toString() == page) m_contents->setCurrentItem(item);
    }
    highlight(m_search->text());
}

void HelpWindow::search(const QString& words) {
    const auto wanted = words.split(u' ', Qt::SkipEmptyParts);
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < m_contents->count(); ++row) {
        auto* item = m_contents->item(row);
        const bool fits = containsAll(item->data(TextRole).toString(), wanted);
        item->setHidden(!fits);
        if (fits && !first) first = item;
    }
    auto* current = m_contents->currentItem();
    if (first && (!current || current->isHidden())) m_contents->setCurrentItem(first);
    highlight(words);
}

void HelpWindow::highlight(const QString& words) {
    QList<QTextEdit::ExtraSelection> found;
    QTextCharFormat mark;
    mark.setBackground(palette().highlight());
    mark.setForeground(palette().highlightedText());
    for (const auto& word : words.split(u' ', Qt::SkipEmptyParts)) {
        if (word.size() < 2) continue;
        auto cursor = m_reader->document()->find(word);
        for (; !cursor.isNull(); cursor = m_reader->document()->find(word, cursor))
            found.append({cursor, mark});
    }
    m_reader->setExtraSelections(found);
}

} // namespace pellam
