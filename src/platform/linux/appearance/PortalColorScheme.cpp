#include "platform/linux/appearance/PortalColorScheme.h"

#include <QString>

#include <poll.h>
#include <systemd/sd-bus.h>

namespace zelmo {

namespace {

constexpr const char* serviceName = "org.freedesktop.portal.Desktop";
constexpr const char* objectPath = "/org/freedesktop/portal/desktop";
constexpr const char* interfaceName = "org.freedesktop.portal.Settings";
constexpr const char* wantedNamespace = "org.freedesktop.appearance";

struct MessageReleaser {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};

SchemeWish wishOf(std::uint32_t value) {
    switch (value) {
    case 1:
        return SchemeWish::dark;
    case 2:
        return SchemeWish::light;
    default:
        return SchemeWish::unknown;
    }
}

bool isShare(double value) {
    return value >= 0 && value <= 1;
}

} // namespace

struct PortalColorScheme::Callbacks {
    // `ReadAll` gives namespaces with their settings.
    static int answered(sd_bus_message* message, void* scheme, sd_bus_error*) {
        auto* self = static_cast<PortalColorScheme*>(scheme);
        // Without a portal, the bus itself answers; what a lost bus leaves open is answered with errors too.
        if (sd_bus_is_ready(self->m_bus.get()) > 0)
            self->m_reconnect.reset();
        if (sd_bus_message_is_method_error(message, nullptr))
            return 0;
        self->m_wish = SchemeWish::unknown;
        self->m_accent.reset();
        read(message, *self);
        self->announce();
        return 0;
    }
    static int settingChanged(sd_bus_message* message, void* scheme, sd_bus_error*) {
        auto* self = static_cast<PortalColorScheme*>(scheme);
        const char* space = nullptr;
        const char* name = nullptr;
        if (sd_bus_message_read(message, "ss", &space, &name) < 0 || qstrcmp(space, wantedNamespace) != 0)
            return 0;
        if (self->readSetting(message, name) >= 0)
            self->announce();
        return 0;
    }
    // The portal has come, or another one has taken its place.
    static int ownerChanged(sd_bus_message* message, void* scheme, sd_bus_error*) {
        const char* name = nullptr;
        const char* before = nullptr;
        const char* now = nullptr;
        if (sd_bus_message_read(message, "sss", &name, &before, &now) >= 0 && *now != '\0')
            static_cast<PortalColorScheme*>(scheme)->ask();
        return 0;
    }

private:
    static void read(sd_bus_message* message, PortalColorScheme& self) {
        if (sd_bus_message_enter_container(message, 'a', "{sa{sv}}") < 0)
            return;
        while (sd_bus_message_enter_container(message, 'e', "sa{sv}") > 0) {
            const char* space = nullptr;
            if (sd_bus_message_read(message, "s", &space) < 0)
                return;
            const int result = qstrcmp(space, wantedNamespace) == 0 ? readNamespace(message, self)
                                                                    : sd_bus_message_skip(message, "a{sv}");
            if (result < 0 || sd_bus_message_exit_container(message) < 0)
                return;
        }
    }
    static int readNamespace(sd_bus_message* message, PortalColorScheme& self) {
        int result = sd_bus_message_enter_container(message, 'a', "{sv}");
        while (result >= 0 && (result = sd_bus_message_enter_container(message, 'e', "sv")) > 0) {
            const char* name = nullptr;
            result = sd_bus_message_read(message, "s", &name);
            if (result >= 0)
                result = self.readSetting(message, name);
            if (result >= 0)
                result = sd_bus_message_exit_container(message);
        }
        return result < 0 ? result : sd_bus_message_exit_container(message);
    }
};

void PortalColorScheme::BusCloser::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

PortalColorScheme::PortalColorScheme(const QString& address)
    : m_address(address.toUtf8()), m_reconnect([this] {
          disconnect();
          if (!connect())
              m_reconnect.start();
      }) {}

PortalColorScheme::~PortalColorScheme() {
    disconnect();
}

void PortalColorScheme::start() {
    if (!m_bus && !m_address.isEmpty())
        connect();
}

void PortalColorScheme::disconnect() {
    // Before the descriptor that they watch.
    m_readable.reset();
    m_writable.reset();
    m_bus.reset();
}

bool PortalColorScheme::connect() {
    sd_bus* made = nullptr;
    if (sd_bus_new(&made) < 0)
        return false;
    m_bus.reset(made);
    // What is asked here goes out once the bus has greeted.
    const bool isUp =
        sd_bus_set_address(made, m_address.constData()) >= 0 && sd_bus_set_bus_client(made, 1) >= 0 &&
        sd_bus_start(made) >= 0 &&
        sd_bus_match_signal_async(made, nullptr, serviceName, objectPath, interfaceName, "SettingChanged",
                                  Callbacks::settingChanged, nullptr, this) >= 0 &&
        sd_bus_add_match_async(made, nullptr,
                               "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                               "member='NameOwnerChanged',arg0='org.freedesktop.portal.Desktop'",
                               Callbacks::ownerChanged, nullptr, this) >= 0;
    if (!isUp) {
        m_bus.reset();
        return false;
    }
    ask();
    const int descriptor = sd_bus_get_fd(made);
    m_readable.emplace(descriptor, QSocketNotifier::Read);
    m_writable.emplace(descriptor, QSocketNotifier::Write);
    for (QSocketNotifier* notifier : {&*m_readable, &*m_writable})
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { process(); });
    return true;
}

void PortalColorScheme::ask() {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(m_bus.get(), &made, serviceName, objectPath, interfaceName, "ReadAll") < 0)
        return;
    const std::unique_ptr<sd_bus_message, MessageReleaser> call(made);
    if (sd_bus_message_set_auto_start(made, 0) < 0 || sd_bus_message_append(made, "as", 1, wantedNamespace) < 0)
        return;
    sd_bus_call_async(m_bus.get(), nullptr, made, Callbacks::answered, this, 0);
}

int PortalColorScheme::readSetting(sd_bus_message* message, const char* name) {
    const char* contents = nullptr;
    char type = 0;
    if (const int result = sd_bus_message_peek_type(message, &type, &contents); result < 0)
        return result;
    if (qstrcmp(name, "color-scheme") == 0 && qstrcmp(contents, "u") == 0) {
        std::uint32_t value = 0;
        const int result = sd_bus_message_read(message, "v", "u", &value);
        if (result >= 0)
            m_wish = wishOf(value);
        return result;
    }
    if (qstrcmp(name, "accent-color") == 0 && qstrcmp(contents, "(ddd)") == 0) {
        double red = 0;
        double green = 0;
        double blue = 0;
        const int result = sd_bus_message_read(message, "v", "(ddd)", &red, &green, &blue);
        if (result < 0)
            return result;
        // Shares that are none say that there is no accent colour.
        m_accent.reset();
        if (isShare(red) && isShare(green) && isShare(blue))
            m_accent = QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue));
        return result;
    }
    return sd_bus_message_skip(message, "v");
}

void PortalColorScheme::announce() {
    if (m_handler)
        m_handler();
}

void PortalColorScheme::process() {
    int progress = 1;
    while (progress > 0)
        progress = sd_bus_process(m_bus.get(), nullptr);
    const int events = progress < 0 ? progress : sd_bus_get_events(m_bus.get());
    m_readable->setEnabled(events >= 0);
    m_writable->setEnabled(events >= 0 && (events & POLLOUT));
    // Until the bus comes again, what was known last stays.
    if (events < 0)
        m_reconnect.start();
}

} // namespace zelmo
