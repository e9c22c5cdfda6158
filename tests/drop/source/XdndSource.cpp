// Drags something onto a window of another program and drops it there, speaking the drag-and-drop
// protocol of the X window system itself, so that no mouse is needed:
//
//   xdnd_source WINDOW X Y KIND NAME CONTENT
//
// X and Y are a place on the screen. Prints "refused", "failed" or "taken".

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};

class XdndSource {
  public:
    XdndSource(xcb_window_t target, std::string kind, std::string name, std::string content)
        : m_target(target),
          m_kind(std::move(kind)),
          m_name(std::move(name)),
          m_content(std::move(content)) {}

    ~XdndSource() { xcb_disconnect(m_x); }

    XdndSource(const XdndSource&) = delete;
    XdndSource& operator=(const XdndSource&) = delete;

    const char* drag(std::uint32_t x, std::uint32_t y) {
        open();
        offer();
        send("XdndEnter", {5U << 24 | 1, 0, 0, 0});
        send("XdndPosition", {0, x << 16 | y, XCB_CURRENT_TIME, atom("XdndActionCopy")});
        if ((waitFor("XdndStatus") & 1) == 0) {
            send("XdndLeave", {});
            atom("_SYNCHRONIZE"); // an answer means that the message before it has arrived
            return "refused";
        }
        send("XdndDrop", {0, XCB_CURRENT_TIME, 0, 0});
        return (waitFor("XdndFinished") & 1) != 0 ? "taken" : "failed";
    }

  private:
    xcb_atom_t atom(const std::string& name) {
        xcb_atom_t& known = m_atoms[name];
        if (known) return known;
        const auto cookie =
            xcb_intern_atom(m_x, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, Freed> reply(
            xcb_intern_atom_reply(m_x, cookie, nullptr));
        return known = reply->atom;
    }

    void open() {
        m_x = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_x)) std::exit(2);
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data;
        // The next program may be given this one's numbers: messages on their way to one window
        // must not reach another.
        for (int i = ::getpid() % 4096; i >= 0; --i)
            m_window = xcb_generate_id(m_x);
        xcb_create_window(m_x, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        xcb_set_selection_owner(m_x, m_window, atom("XdndSelection"), XCB_CURRENT_TIME);
    }

    void offer() {
        std::vector<std::string> types;
        if (m_kind == "files") types = {"text/uri-list"};
        if (m_kind == "text") types = {"text/plain"};
        if (m_kind == "virtual") types = {"FileGroupDescriptor", "FileContents"};
        if (m_kind.starts_with("direct")) {
            types = {"XdndDirectSave0", "application/octet-stream"};
            setProperty(m_window, "XdndDirectSave0", "text/plain", m_name);
        }
        std::vector<xcb_atom_t> atoms;
        for (const std::string& type : types)
            atoms.push_back(atom(type));
        xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, m_window, atom("XdndTypeList"),
                            XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(atoms.size()),
                            atoms.data());
    }

    void setProperty(xcb_window_t window, const std::string& name, const std::string& type,
                     const std::string& bytes) {
        xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

    void send(const char* message, std::vector<std::uint32_t> words) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = m_target;
        event.type = atom(message);
        event.data.data32[0] = m_window;
        for (std::size_t i = 0; i < words.size(); ++i)
            event.data.data32[i + 1] = words[i];
        xcb_send_event(m_x, 0, m_target, 0, reinterpret_cast<const char*>(&event));
        xcb_flush(m_x);
    }

    /// The second word of the answer; what is asked for meanwhile is handed over.
    std::uint32_t waitFor(const char* message) {
        while (const std::unique_ptr<xcb_generic_event_t, Freed> event{xcb_wait_for_event(m_x)}) {
            const int kind = event->response_type & ~0x80;
            if (kind == XCB_SELECTION_REQUEST) {
                hand(*reinterpret_cast<const xcb_selection_request_event_t*>(event.get()));
            } else if (kind == XCB_CLIENT_MESSAGE) {
                const auto& answer =
                    *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
                if (answer.type == atom(message)) return answer.data.data32[1];
            }
        }
        std::exit(2);
    }

    void hand(const xcb_selection_request_event_t& request) {
        for (const auto& [name, type] : m_atoms) {
            if (type != request.target) continue;
            const std::string bytes = contentsOf(name);
            xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                                type, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
            break;
        }
        xcb_selection_notify_event_t notify{};
        notify.response_type = XCB_SELECTION_NOTIFY;
        notify.time = request.time;
        notify.requestor = request.requestor;
        notify.selection = request.selection;
        notify.target = request.target;
        notify.property = request.property;
        xcb_send_event(m_x, 0, request.requestor, 0, reinterpret_cast<const char*>(&notify));
        xcb_flush(m_x);
    }

    std::string contentsOf(const std::string& type) {
        if (type == "text/uri-list") return "file://" + m_name + "\r\nfile:///second.dlr\r\n";
        if (type == "XdndDirectSave0") return saveDirectly();
        if (type != "FileGroupDescriptor") return m_content;
        std::string group(4 + 72 + 260, '\0');
        group[0] = 1;
        for (unsigned i = 0; i < 4; ++i)
            group[4 + 68 + i] = static_cast<char>(m_content.size() >> 8 * i);
        return group.replace(4 + 72, m_name.size(), m_name);
    }

    std::string saveDirectly() {
        if (m_kind == "direct-elsewhere") return "F";
        const auto cookie = xcb_get_property(m_x, 0, m_window, atom("XdndDirectSave0"),
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
        const std::unique_ptr<xcb_get_property_reply_t, Freed> reply(
            xcb_get_property_reply(m_x, cookie, nullptr));
        std::string place(static_cast<const char*>(xcb_get_property_value(reply.get())),
                          static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
        std::string path;
        for (std::size_t i = std::strlen("file://"); i < place.size(); ++i) {
            const bool escaped = place[i] == '%';
            path += escaped ? static_cast<char>(std::stoi(place.substr(i + 1, 2), nullptr, 16))
                            : place[i];
            if (escaped) i += 2;
        }
        std::ofstream(path, std::ios::binary) << m_content.substr(0, m_content.size() / 2);
        if (m_kind == "direct-error") return "E";
        if (m_kind == "direct-crash") std::exit(3);
        if (m_kind == "direct-slow") ::sleep(8); // longer than a toolkit waits for data
        std::ofstream(path, std::ios::binary) << m_content;
        return "S";
    }

    xcb_connection_t* m_x = nullptr;
    xcb_window_t m_window = 0;
    xcb_window_t m_target;
    std::string m_kind;
    std::string m_name;
    std::string m_content;
    std::map<std::string, xcb_atom_t> m_atoms;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 7) return 2;
    const auto number = [&](int i) {
        return static_cast<std::uint32_t>(std::strtoul(argv[i], nullptr, 0));
    };
    XdndSource source(number(1), argv[4], argv[5], argv[6]);
    std::puts(source.drag(number(2), number(3)));
}
