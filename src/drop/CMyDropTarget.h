#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

QT_BEGIN_NAMESPACE
class QDropEvent;
class QMimeData;
class QWidget;
QT_END_NAMESPACE

namespace pellam {

class IncomingFile;
class MessageSink;
class ProgressSink;
struct Failure;

/// What drops need from the window; all of it must outlive the drop target.
struct DropContext {
    MessageSink& messages;
    std::function<ProgressSink&()> progress; ///< asked for when contents are saved
    std::function<QString()> saveFolder;     ///< where contents are saved
    std::function<bool()> ready;             ///< whether a file could be loaded now
};

/// Takes what other programs drop on a widget: files on disk, and virtual files, whose contents the
/// other program hands over ("FileGroupDescriptor" with "FileContents") or writes itself (X direct
/// save). The contents of a virtual file are saved in the save folder first. Only the first file of
/// a drop counts, and it is always copied, never moved.
class CMyDropTarget : public QObject {
    Q_OBJECT

  public:
    /// Registers the widget, which becomes the owner. Everything is refused until setContext().
    explicit CMyDropTarget(QWidget* widget);

    void setContext(DropContext context) { m_context.emplace(std::move(context)); }

    /// Whether a drag with these data is accepted.
    bool OnDragEnter(const QMimeData& data);

    /// The same while the drag goes on.
    [[nodiscard]] bool OnDragOver() const { return m_accepted; }

    /// Takes a drop; false when nothing came of it. Messages are shown once the drop has ended:
    /// the other program waits for that.
    bool OnDrop(const QMimeData& data);

  Q_SIGNALS:
    /// A file is to be loaded: the one dropped, or the one saved.
    void fileDropped(const QString& path);
    /// A remark for the status bar.
    void notice(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool isReady() const;
    bool answer(QDropEvent& event);
    bool saveContents(const QMimeData& data);
    bool saveDirectly(const QMimeData& data);
    bool open(IncomingFile& file, const QString& name);
    Failure write(const QString& path, const QByteArray& contents);
    bool place(IncomingFile& file);
    bool fail(const Failure& failure, const QString& name);
    void showLater(const QString& text);

    QWidget* m_widget;
    bool m_accepted = false; ///< the last drag that entered
    std::optional<DropContext> m_context;
};

} // namespace pellam
