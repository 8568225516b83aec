#include "platform/linux/x11/X11HotKeyService.h"

#include "platform/linux/x11/QtX11Connection.h"
#include "platform/linux/x11/X11KeyboardLayout.h"
#include "platform/linux/x11/XcbReply.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <string_view>

namespace zelmo {

namespace {

constexpr xcb_keysym_t spaceSymbol = 0x0020;
constexpr xcb_keysym_t scrollLockSymbol = 0xff14;
constexpr xcb_keysym_t numLockSymbol = 0xff7f;
constexpr xcb_keysym_t altSymbol = 0xffe9;
constexpr xcb_keysym_t superSymbol = 0xffeb;

// The second byte of the keyboard extension's events.
constexpr std::uint8_t newKeyboardNotify = 0;
constexpr std::uint8_t mapNotify = 1;

constexpr std::uint16_t allModifiers = 0xff;

std::optional<std::uint8_t> firstEventOf(xcb_connection_t* connection, std::string_view extension) {
    const XcbReply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        connection, xcb_query_extension(connection, static_cast<std::uint16_t>(extension.size()), extension.data()),
        nullptr));
    if (!reply || !reply->present)
        return std::nullopt;
    return reply->first_event;
}

// Nothing when the keyboard lacks one of them.
std::optional<std::uint16_t> modifiersFor(std::uint32_t wanted, const X11KeyboardLayout& layout) {
    struct Row {
        std::uint32_t mask;
        std::uint16_t modifier;
    };
    const std::array rows{Row{optionModifier, layout.modifierFor(altSymbol)},
                          Row{controlModifier, XCB_MOD_MASK_CONTROL},
                          Row{commandModifier, layout.modifierFor(superSymbol)}};
    std::uint16_t modifiers = 0;
    for (const Row& row : rows) {
        if (!(wanted & row.mask))
            continue;
        if (row.modifier == 0)
            return std::nullopt;
        modifiers |= row.modifier;
        wanted &= ~row.mask;
    }
    if (wanted != 0)
        return std::nullopt;
    return modifiers;
}

// Every set of the lock modifiers, of which Num Lock and Scroll Lock are where the layout puts them. Some stand twice
// where the layout has no modifier for a lock.
std::vector<std::uint16_t> lockVariants(const X11KeyboardLayout& layout) {
    std::vector<std::uint16_t> variants{0};
    for (const std::uint16_t lock :
         {std::uint16_t{XCB_MOD_MASK_LOCK}, layout.modifierFor(numLockSymbol), layout.modifierFor(scrollLockSymbol)}) {
        for (std::size_t i = 0, count = variants.size(); i < count; ++i)
            variants.push_back(variants[i] | lock);
    }
    return variants;
}

} // namespace

X11HotKeyService::X11HotKeyService() {
    if (const auto x11 = QtX11Connection::current()) {
        m_connection = x11->connection;
        m_root = x11->root;
        m_xkbEventType = firstEventOf(m_connection, "XKEYBOARD");
    }
    // A change of the layout comes as several events, and one look at it answers them all.
    m_layoutChange.setSingleShot(true);
    m_layoutChange.setInterval(0);
    connect(&m_layoutChange, &QTimer::timeout, this, &X11HotKeyService::followLayout);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11HotKeyService::~X11HotKeyService() {
    QCoreApplication::instance()->removeNativeEventFilter(this);
    for (const auto& [reference, hotKey] : m_hotKeys)
        ungrab(hotKey.grabs);
}

void X11HotKeyService::installHandler(Handler handler) {
    m_handler = std::move(handler);
}

std::optional<HotKeyReference> X11HotKeyService::registerHotKey(HotKeyCombination combination,
                                                                HotKeyIdentifier identifier) {
    const bool isTaken =
        std::ranges::any_of(m_hotKeys, [&](const auto& entry) { return entry.second.combination == combination; });
    if (!m_connection || isTaken)
        return std::nullopt;
    const std::vector<KeyGrab> grabs = grabsFor(combination, X11KeyboardLayout(m_connection));
    if (grabs.empty() || !grab(grabs))
        return std::nullopt;
    const HotKeyReference reference{++m_lastReference};
    m_hotKeys.emplace(reference, HotKey{combination, identifier, grabs});
    return reference;
}

void X11HotKeyService::unregisterHotKey(HotKeyReference reference) {
    const auto entry = m_hotKeys.find(reference);
    if (entry == m_hotKeys.end())
        return;
    ungrab(entry->second.grabs);
    m_hotKeys.erase(entry);
}

std::vector<X11HotKeyService::KeyGrab> X11HotKeyService::grabsFor(HotKeyCombination combination,
                                                                  const X11KeyboardLayout& layout) {
    const auto modifiers = modifiersFor(combination.modifiers, layout);
    if (combination.keyCode != spaceKeyCode || !modifiers)
        return {};
    std::vector<KeyGrab> grabs;
    for (const xcb_keycode_t key : layout.keysFor(spaceSymbol)) {
        for (const std::uint16_t locks : lockVariants(layout)) {
            const KeyGrab grab{key, static_cast<std::uint16_t>(*modifiers | locks)};
            if (std::ranges::find(grabs, grab) == grabs.end())
                grabs.push_back(grab);
        }
    }
    return grabs;
}

bool X11HotKeyService::grab(const std::vector<KeyGrab>& grabs) {
    std::vector<xcb_void_cookie_t> cookies;
    cookies.reserve(grabs.size());
    for (const KeyGrab& grab : grabs)
        cookies.push_back(xcb_grab_key_checked(m_connection, 0, m_root, grab.modifiers, grab.key, XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_SYNC));
    bool allAreOurs = true;
    for (const xcb_void_cookie_t cookie : cookies) {
        const XcbReply<xcb_generic_error_t> refusal(xcb_request_check(m_connection, cookie));
        allAreOurs = allAreOurs && !refusal;
    }
    if (!allAreOurs)
        ungrab(grabs);
    return allAreOurs;
}

void X11HotKeyService::ungrab(const std::vector<KeyGrab>& grabs) {
    for (const KeyGrab& grab : grabs)
        xcb_ungrab_key(m_connection, grab.key, m_root, grab.modifiers);
    // A press may be on its way that nothing here will answer any more.
    letKeysFlow();
}

void X11HotKeyService::letKeysFlow() {
    xcb_allow_events(m_connection, XCB_ALLOW_ASYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

bool X11HotKeyService::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if (event->response_type == XCB_KEY_PRESS || event->response_type == XCB_KEY_RELEASE) {
        // Qt has to know the time, for windows that are shown at any earlier one may not get the focus. No window may.
        auto* keyEvent = static_cast<xcb_key_press_event_t*>(message);
        if (event->response_type == XCB_KEY_PRESS ? takesPress(*keyEvent) : takesRelease(*keyEvent))
            keyEvent->event = XCB_WINDOW_NONE;
        return false;
    }
    const bool isLayoutChange = event->response_type == m_xkbEventType
                                    ? event->pad0 == newKeyboardNotify || event->pad0 == mapNotify
                                    : event->response_type == XCB_MAPPING_NOTIFY;
    if (isLayoutChange)
        m_layoutChange.start();
    return false;
}

bool X11HotKeyService::takesPress(const xcb_key_press_event_t& event) {
    // A key that is held comes as pairs of a release and a press of one moment. They follow the hot key to whichever
    // window has the focus by then, also after its modifier has been let go.
    const bool isRepeat = m_lastRelease == KeyMoment{event.detail, event.time};
    if (event.detail == m_pressedKey) {
        if (isRepeat) {
            letKeysFlow();
            return true;
        }
        m_pressedKey = 0;
    }
    const KeyGrab pressed{event.detail, static_cast<std::uint16_t>(event.state & allModifiers)};
    const auto entry = std::ranges::find_if(m_hotKeys, [&](const auto& candidate) {
        const auto& grabs = candidate.second.grabs;
        return std::ranges::find(grabs, pressed) != grabs.end();
    });
    if (entry == m_hotKeys.end()) {
        // Whatever the server took it for, it must not wait for an answer.
        if (event.event == m_root)
            letKeysFlow();
        return false;
    }
    m_pressedKey = event.detail;
    if (m_handler)
        m_handler(entry->second.identifier);
    QMetaObject::invokeMethod(
        this, [this] { letKeysFlow(); }, Qt::QueuedConnection);
    return true;
}

bool X11HotKeyService::takesRelease(const xcb_key_release_event_t& event) {
    m_lastRelease = {event.detail, event.time};
    return event.detail == m_pressedKey;
}

void X11HotKeyService::followLayout() {
    if (m_hotKeys.empty())
        return;
    const X11KeyboardLayout layout(m_connection);
    for (auto& [reference, hotKey] : m_hotKeys) {
        std::vector<KeyGrab> grabs = grabsFor(hotKey.combination, layout);
        if (grabs == hotKey.grabs)
            continue;
        ungrab(hotKey.grabs);
        hotKey.grabs = grab(grabs) ? std::move(grabs) : std::vector<KeyGrab>{};
    }
}

} // namespace zelmo
