#include "drop/XDirectSave.h"

#include "base/ProgressSink.h"
#include "base/Utf8.h"

#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <xcb/xcb.h>

namespace pellam {

namespace {

constexpr char kProtocol[] = "XdndDirectSave0";
constexpr int kWait = 20;                        // milliseconds between two looks at the person
constexpr std::uint32_t kLongestName = 4096 / 4; // in words

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

template <class Reply>
using Owned = std::unique_ptr<Reply, Freed>;

} // namespace

bool XDirectSave::isOffered(const QMimeData& data) {
    return data.hasFormat(QLatin1String(kProtocol)) &&
           qGuiApp->nativeInterface<QNativeInterface::QX11Application>() != nullptr;
}

XDirectSave::XDirectSave(const QWidget& target) : m_connection(xcb_connect(nullptr, nullptr)) {
    auto* const x = m_connection.get();
    if (xcb_connection_has_error(x)) return;
    m_protocol = atom(kProtocol);
    const Owned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        x, xcb_get_selection_owner(x, atom("XdndSelection")), nullptr));
    if (!owner || owner->owner == XCB_NONE) return;
    m_source = owner->owner;
    // The program may go away while it is waited for.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x, m_source, XCB_CW_EVENT_MASK, &mask);
    // Programs find out which drop is meant by the window that asks: a child of the one dropped on.
    m_window = xcb_generate_id(x);
    xcb_create_window(x, 0, m_window, static_cast<xcb_window_t>(target.window()->winId()), -1, -1,
                      1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

XDirectSave::~XDirectSave() = default;

void XDirectSave::Disconnect::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}

std::uint32_t XDirectSave::atom(const char* name) const {
    auto* const x = m_connection.get();
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(x, xcb_intern_atom(x, 0, length, name), nullptr));
    return reply ? reply->atom : XCB_NONE;
}

QByteArray XDirectSave::property(std::uint32_t window) const {
    auto* const x = m_connection.get();
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        x, xcb_get_property(x, 0, window, m_protocol, XCB_GET_PROPERTY_TYPE_ANY, 0, kLongestName),
        nullptr));
    if (!reply || reply->format != 8) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QString XDirectSave::fileName() const {
    if (m_source == 0) return {};
    const QByteArray name = property(m_source);
    return QString::fromStdString(toUtf8({name.constData(), std::strlen(name.constData())}));
}

XDirectSave::Answer XDirectSave::save(const QString& path, ProgressSink& progress) {
    auto* const x = m_connection.get();
    const QByteArray place = QUrl::fromLocalFile(path).toEncoded();
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, m_source, m_protocol, atom("text/plain"), 8,
                        static_cast<std::uint32_t>(place.size()), place.constData());
    xcb_convert_selection(x, m_window, atom("XdndSelection"), m_protocol, m_protocol,
                          XCB_CURRENT_TIME);
    xcb_flush(x);
    Answer answer = Answer::Error;
    while (!readAnswer(answer)) {
        progress.setPosition(0);
        if (progress.aborted()) return Answer::Stopped;
        pollfd readable{xcb_get_file_descriptor(x), POLLIN, 0};
        ::poll(&readable, 1, kWait);
    }
    return answer;
}

// False while there is none.
bool XDirectSave::readAnswer(Answer& answer) {
    auto* const x = m_connection.get();
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(x)}) {
        switch (event->response_type & ~0x80) {
        case XCB_DESTROY_NOTIFY: // of the program's window: no other is looked at
            answer = Answer::Error;
            return true;
        case XCB_SELECTION_NOTIFY: {
            xcb_selection_notify_event_t notify;
            std::memcpy(&notify, event.get(), sizeof notify);
            const QByteArray said = notify.property ? property(m_window) : QByteArray("F");
            answer = said == "S" ? Answer::Saved : said == "F" ? Answer::Failed : Answer::Error;
            return true;
        }
        default:
            break;
        }
    }
    answer = Answer::Error;
    return xcb_connection_has_error(x) != 0;
}

} // namespace pellam
