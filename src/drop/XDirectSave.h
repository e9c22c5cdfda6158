#pragma once

#include <QString>

#include <cstdint>
#include <memory>

QT_BEGIN_NAMESPACE
class QMimeData;
class QWidget;
QT_END_NAMESPACE

struct xcb_connection_t;

namespace pellam {

class ProgressSink;

/// The direct save protocol of the X window system (XDS): a program offers a file by its name, is
/// told where to write it, and writes it there itself. It speaks on a connection of its own, so
/// that a program that takes long to write can be waited for, and the wait be stopped.
class XDirectSave {
  public:
    enum class Answer {
        Saved,
        Failed, ///< can't write there; the contents may be asked for instead
        Error,  ///< an error, or the program has gone away
        Stopped ///< the person did not want to wait longer
    };

    /// Whether dragged data are offered in this way, on a display that knows it.
    static bool isOffered(const QMimeData& data);

    /// Turns to the program whose drag has just been dropped on this widget.
    explicit XDirectSave(const QWidget& target);
    ~XDirectSave();
    XDirectSave(const XDirectSave&) = delete;
    XDirectSave& operator=(const XDirectSave&) = delete;

    /// The name that the program gives its file; empty when it names none.
    [[nodiscard]] QString fileName() const;

    /// Has the program write the file to this path and waits for its answer.
    [[nodiscard]] Answer save(const QString& path, ProgressSink& progress);

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    [[nodiscard]] std::uint32_t atom(const char* name) const;
    [[nodiscard]] QByteArray property(std::uint32_t window) const;
    bool readAnswer(Answer& answer);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint32_t m_protocol = 0; ///< atom: property and target of the protocol
    std::uint32_t m_source = 0;   ///< the program's window; 0 when it can't be found
    std::uint32_t m_window = 0;   ///< ours, to which the answer comes
};

} // namespace pellam
