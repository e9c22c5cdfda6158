#include "ui/dialogs/FolderEdit.h"

#include "ui/icons/IconSet.h"

#include <QCompleter>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMimeData>
#include <QToolButton>

namespace pellam {

namespace {

/// The first folder among dropped files, or the folder of the first file; empty when none is local.
QString droppedFolder(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        const QFileInfo file(url.toLocalFile());
        if (url.isLocalFile() && file.exists())
            return file.isDir() ? file.absoluteFilePath() : file.absolutePath();
    }
    return {};
}

} // namespace

FolderEdit::FolderEdit(QWidget* parent)
    : QWidget(parent),
      m_field(new QLineEdit(this)),
      m_button(new QToolButton(this)),
      m_pickerTitle(tr("Choose a Folder")) {
    auto* folders = new QFileSystemModel(this);
    folders->setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    folders->setRootPath(QString());
    auto* completer = new QCompleter(folders, this);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    m_field->setCompleter(completer);
    m_field->setClearButtonEnabled(true);
    m_field->installEventFilter(this);
    m_field->setMinimumWidth(m_field->fontMetrics().averageCharWidth() * 60);

    m_button->setIcon(IconSet::icon(IconName::BrowseFolder));
    m_button->setToolTip(tr("Browse for a folder"));
    m_button->setAccessibleName(tr("Browse for a folder"));
    m_button->setFocusPolicy(Qt::StrongFocus);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(m_field, 1);
    row->addWidget(m_button);
    setFocusProxy(m_field);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    connect(m_button, &QToolButton::clicked, this, &FolderEdit::browse);
    connect(m_field, &QLineEdit::textChanged, this, [this] { Q_EMIT pathChanged(path()); });
}

QString FolderEdit::path() const {
    const QString text = m_field->text().trimmed();
    if (text == u"~" || text.startsWith(u"~/")) return QDir::homePath() + text.mid(1);
    return text;
}

void FolderEdit::setPath(const QString& path) {
    m_field->setText(QDir::toNativeSeparators(path));
}

bool FolderEdit::exists() const {
    const QString folder = path();
    return !folder.isEmpty() && QFileInfo(folder).isDir();
}

void FolderEdit::setFieldToolTip(const QString& text) {
    m_field->setToolTip(text);
}

void FolderEdit::setPickerTitle(const QString& title) {
    m_pickerTitle = title;
}

void FolderEdit::browse() {
    const QString from = exists() ? path() : QDir::homePath();
    const QString chosen = QFileDialog::getExistingDirectory(this, m_pickerTitle, from);
    if (!chosen.isEmpty()) setPath(chosen);
    m_field->setFocus(Qt::OtherFocusReason);
}

bool FolderEdit::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QWidget::eventFilter(watched, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QString folder = droppedFolder(drop->mimeData());
    // Anything else, such as a piece of text, is the edit field's own affair.
    if (folder.isEmpty()) return QWidget::eventFilter(watched, event);
    drop->acceptProposedAction();
    if (type == QEvent::Drop) setPath(folder);
    return true;
}

} // namespace pellam
