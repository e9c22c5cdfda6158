#include "drop/CMyDropTarget.h"

#include "base/AtomicFile.h"
#include "base/FileUrl.h"
#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "drop/FileDescriptor.h"
#include "drop/IncomingFile.h"
#include "drop/XDirectSave.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace pellam {

namespace {

constexpr qsizetype kBlock = 1024;
constexpr char kTitle[] = "Loading Korvane binary file";

/// The forms in which a clipboard format of another system is offered: as Qt writes those of that
/// system, and by its plain name.
QStringList formsOf(const char* format, const char* part) {
    const auto name = QString::fromLatin1(format);
    const auto wrapped = QStringLiteral("application/x-qt-windows-mime;value=\"%1\"").arg(name);
    return {wrapped + QString::fromLatin1(part), wrapped, name};
}

/// The first form that is offered; empty when none is.
QString offered(const QMimeData& data, const QStringList& forms) {
    for (const QString& form : forms) {
        if (data.hasFormat(form)) return form;
    }
    return {};
}

QString descriptorForm(const QMimeData& data, FileDescriptor::Names names) {
    const bool wide = names == FileDescriptor::Names::Wide;
    return offered(data, formsOf(wide ? "FileGroupDescriptorW" : "FileGroupDescriptor", ""));
}

bool offersDescriptor(const QMimeData& data) {
    return !descriptorForm(data, FileDescriptor::Names::Wide).isEmpty() ||
           !descriptorForm(data, FileDescriptor::Names::Narrow).isEmpty();
}

std::optional<FileDescriptor> firstDescriptor(const QMimeData& data) {
    for (const auto names : {FileDescriptor::Names::Wide, FileDescriptor::Names::Narrow}) {
        const QString form = descriptorForm(data, names);
        if (form.isEmpty()) continue;
        const QByteArray group = data.data(form);
        if (auto descriptor = FileDescriptor::first(group, names)) return descriptor;
    }
    return std::nullopt;
}

/// Path of the first of dropped files; empty when it is none on this machine.
QString firstFile(const QMimeData& data) {
    const auto urls = data.urls();
    if (urls.isEmpty()) return {};
    const auto file = localFileOf(urls.first().toEncoded().toStdString());
    return file ? QFile::decodeName(file->c_str()) : QString();
}

/// A text in one line of printable characters.
QString printable(QString text) {
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control) c = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace

CMyDropTarget::CMyDropTarget(QWidget* widget) : QObject(widget), m_widget(widget) {
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
}

bool CMyDropTarget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return answer(*static_cast<QDropEvent*>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

// A drag that could only be moved is refused: its source would delete what was dropped.
bool CMyDropTarget::answer(QDropEvent& event) {
    event.ignore();
    if (!isReady() || !event.possibleActions().testFlag(Qt::CopyAction)) return true;
    const QMimeData& data = *event.mimeData();
    const bool taken = event.type() == QEvent::Drop        ? OnDrop(data)
                       : event.type() == QEvent::DragEnter ? OnDragEnter(data)
                                                           : OnDragOver();
    if (!taken) return true;
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
}

bool CMyDropTarget::isReady() const {
    return m_context && m_context->ready();
}

// Looked at once a drag: the data come from the other program, however slow it is.
bool CMyDropTarget::OnDragEnter(const QMimeData& data) {
    m_accepted =
        offersDescriptor(data) || XDirectSave::isOffered(data) || !firstFile(data).isEmpty();
    return m_accepted;
}

bool CMyDropTarget::OnDrop(const QMimeData& data) {
    const QString path = firstFile(data);
    if (path.isEmpty()) {
        return offersDescriptor(data) ? saveContents(data)
                                      : XDirectSave::isOffered(data) && saveDirectly(data);
    }
    Q_EMIT fileDropped(path);
    return true;
}

bool CMyDropTarget::saveContents(const QMimeData& data) {
    const auto descriptor = firstDescriptor(data);
    const QString form = offered(data, formsOf("FileContents", ";index=0"));
    if (!descriptor || form.isEmpty()) return false;
    IncomingFile file;
    if (!open(file, descriptor->name)) return false;
    const QByteArray contents = data.data(form);
    if (contents.isEmpty() && descriptor->size > 0) {
        return fail({Failure::Kind::Read, {}, -1, "the other program handed nothing over"},
                    descriptor->name);
    }
    const ProgressScope scope(m_context->progress(), kTitle, "Loading...", 1,
                              std::max<quint32>(1, descriptor->size / 10));
    if (const Failure failure = write(file.temporaryPath(), contents))
        return fail(failure, descriptor->name);
    return place(file);
}

bool CMyDropTarget::saveDirectly(const QMimeData& data) {
    XDirectSave source(*m_widget);
    const QString name = source.fileName();
    IncomingFile file;
    if (name.isEmpty() || !open(file, name)) return false;
    const QString path = file.temporaryPath();
    // How much will come is not known here.
    const ProgressScope scope(m_context->progress(), kTitle, "Loading...", 0, 1);
    const auto answer = source.save(path, m_context->progress());
    if (answer == XDirectSave::Answer::Stopped)
        return fail({Failure::Kind::Aborted, {}, -1, {}}, name);
    const auto bytes = QStringLiteral("application/octet-stream");
    if (answer == XDirectSave::Answer::Failed && data.hasFormat(bytes)) {
        if (const Failure failure = write(path, data.data(bytes))) return fail(failure, name);
        return place(file);
    }
    const QFileInfo saved(path);
    if (answer != XDirectSave::Answer::Saved || saved.isSymLink() || !saved.isFile()) {
        return fail({Failure::Kind::Write, {}, -1, "the other program could not write it there"},
                    name);
    }
    return place(file);
}

bool CMyDropTarget::open(IncomingFile& file, const QString& name) {
    const QString folder = m_context->saveFolder();
    if (file.open(folder, name)) return true;
    showLater(QStringLiteral("Warning: Can not open output file %1")
                  .arg(QDir::toNativeSeparators(folder + u'/' + printable(name))));
    return false;
}

Failure CMyDropTarget::write(const QString& path, const QByteArray& contents) {
    ProgressSink& progress = m_context->progress();
    AtomicFile file;
    if (Failure failure = file.create(QFile::encodeName(path).toStdString())) return failure;
    for (qsizetype done = 0; done < contents.size();) {
        const qsizetype count = std::min(kBlock, contents.size() - done);
        const std::string_view block(contents.constData() + done, static_cast<std::size_t>(count));
        file.append(block);
        if (file.failed()) return file.failure();
        done += count;
        if (done % 10 == 0) progress.setPosition(done / 10);
        if (progress.aborted()) return {Failure::Kind::Aborted, {}, -1, {}};
    }
    return file.commit();
}

bool CMyDropTarget::place(IncomingFile& file) {
    QString path;
    if (const Failure failure = file.place(path)) return fail(failure, QFileInfo(path).fileName());
    Q_EMIT fileDropped(path);
    return true;
}

// Nothing is kept of a file that did not come whole.
bool CMyDropTarget::fail(const Failure& failure, const QString& name) {
    if (failure.kind == Failure::Kind::Aborted) {
        Q_EMIT notice(tr("Drop stopped: nothing of %1 was kept").arg(printable(name)));
        return false;
    }
    Failure shown = failure;
    shown.path = QFile::encodeName(m_context->saveFolder() + u'/' + name).toStdString();
    showLater(QString::fromStdString(shown.text()));
    return false;
}

void CMyDropTarget::showLater(const QString& text) {
    const auto show = [this, text] { m_context->messages.show(text.toStdString()); };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

} // namespace pellam
