#include "VELTRuntime/process/window_activation.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <string_view>
#include <vector>

namespace velt {

namespace {

// The few calls of libxcb that are needed. The library is loaded when a window is to be brought to the front, so that
// no other program pays for it.
struct Cookie {
    unsigned sequence;
};
struct ScreenIterator {
    const std::uint32_t* screen;  // begins with the root window
    int remaining;
    int index;
};
struct AtomReply {
    std::uint8_t head[8];
    std::uint32_t atom;
};
struct ClientMessage {
    std::uint8_t type = 33;
    std::uint8_t format = 32;
    std::uint16_t sequence = 0;
    std::uint32_t window = 0;
    std::uint32_t message = 0;
    std::uint32_t data[5] = {};
};
static_assert(sizeof(ClientMessage) == 32);

constexpr std::uint32_t kCardinal = 6, kWindow = 33;
constexpr std::uint32_t kToWindowManager = 0x00180000;  // substructure notify and redirect
constexpr std::uint32_t kFromPager = 2;

struct Library {
    void* (*connect)(const char*, int*);
    int (*connectionHasError)(void*);
    void (*disconnect)(void*);
    const void* (*getSetup)(void*);
    ScreenIterator (*setupRootsIterator)(const void*);
    Cookie (*internAtom)(void*, std::uint8_t, std::uint16_t, const char*);
    AtomReply* (*internAtomReply)(void*, Cookie, void**);
    Cookie (*getProperty)(void*, std::uint8_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                          std::uint32_t);
    void* (*getPropertyReply)(void*, Cookie, void**);
    const void* (*getPropertyValue)(const void*);
    int (*getPropertyValueLength)(const void*);
    Cookie (*sendEvent)(void*, std::uint8_t, std::uint32_t, std::uint32_t, const char*);
    int (*flush)(void*);

    /// Null when the library is not installed.
    static const Library* load() {
        static const Library* const loaded = []() -> const Library* {
            void* file = ::dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
            if (!file) return nullptr;
            static Library library;
            bool complete = true;
            const auto find = [&](const char* name, auto& function) {
                void* found = ::dlsym(file, name);
                complete = complete && found;
                std::memcpy(&function, &found, sizeof found);
            };
            find("xcb_connect", library.connect);
            find("xcb_connection_has_error", library.connectionHasError);
            find("xcb_disconnect", library.disconnect);
            find("xcb_get_setup", library.getSetup);
            find("xcb_setup_roots_iterator", library.setupRootsIterator);
            find("xcb_intern_atom", library.internAtom);
            find("xcb_intern_atom_reply", library.internAtomReply);
            find("xcb_get_property", library.getProperty);
            find("xcb_get_property_reply", library.getPropertyReply);
            find("xcb_get_property_value", library.getPropertyValue);
            find("xcb_get_property_value_length", library.getPropertyValueLength);
            find("xcb_send_event", library.sendEvent);
            find("xcb_flush", library.flush);
            return complete ? &library : nullptr;
        }();
        return loaded;
    }
};

}  // namespace

struct WindowActivation::Connection {
    const Library& xcb;
    void* server;
    std::uint32_t root = 0;
    std::uint32_t clientList = 0, processOfWindow = 0, activeWindow = 0, supportingCheck = 0;

    explicit Connection(const Library& library) : xcb(library), server(library.connect(nullptr, nullptr)) {
        if (xcb.connectionHasError(server)) return;
        const ScreenIterator screens = xcb.setupRootsIterator(xcb.getSetup(server));
        if (screens.remaining > 0) root = *screens.screen;
        clientList = atom("_NET_CLIENT_LIST");
        processOfWindow = atom("_NET_WM_PID");
        activeWindow = atom("_NET_ACTIVE_WINDOW");
        supportingCheck = atom("_NET_SUPPORTING_WM_CHECK");
    }
    ~Connection() { xcb.disconnect(server); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    bool hasManager() const { return root && !words(root, supportingCheck, kWindow).empty(); }

    std::uint32_t atom(std::string_view name) const {
        const Cookie asked = xcb.internAtom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
        AtomReply* reply = xcb.internAtomReply(server, asked, nullptr);
        const std::uint32_t result = reply ? reply->atom : 0;
        std::free(reply);
        return result;
    }
    std::vector<std::uint32_t> words(std::uint32_t window, std::uint32_t property, std::uint32_t type) const {
        constexpr std::uint32_t kMost = 65536;
        const Cookie asked = xcb.getProperty(server, 0, window, property, type, 0, kMost);
        void* reply = xcb.getPropertyReply(server, asked, nullptr);
        std::vector<std::uint32_t> result;
        if (reply) {
            const auto* values = static_cast<const std::uint32_t*>(xcb.getPropertyValue(reply));
            const auto count = static_cast<std::size_t>(xcb.getPropertyValueLength(reply)) / sizeof(std::uint32_t);
            result.assign(values, values + count);
        }
        std::free(reply);
        return result;
    }
    void activate(std::uint32_t window) const {
        ClientMessage message;
        message.window = window;
        message.message = activeWindow;
        message.data[0] = kFromPager;
        xcb.sendEvent(server, 0, root, kToWindowManager, reinterpret_cast<const char*>(&message));
        xcb.flush(server);
        atom("_NET_ACTIVE_WINDOW");  // answered after the message has arrived
    }
};

WindowActivation::WindowActivation() {
    const char* display = std::getenv("DISPLAY");
    const Library* library = display && *display ? Library::load() : nullptr;
    if (library) connection_ = std::make_unique<Connection>(*library);
}

WindowActivation::~WindowActivation() = default;

bool WindowActivation::isPossible() const { return connection_ && connection_->hasManager(); }

int WindowActivation::bringToFront(pid_t process) const {
    if (!connection_ || !connection_->root) return kProcessNotFound;
    const auto windows = connection_->words(connection_->root, connection_->clientList, kWindow);
    const auto own = std::find_if(windows.begin(), windows.end(), [&](std::uint32_t window) {
        const auto number = connection_->words(window, connection_->processOfWindow, kCardinal);
        return !number.empty() && number.front() == static_cast<std::uint32_t>(process);
    });
    if (own == windows.end()) return kProcessNotFound;
    connection_->activate(*own);
    return 0;
}

}  // namespace velt
