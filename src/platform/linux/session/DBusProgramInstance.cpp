#include "platform/linux/session/DBusProgramInstance.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <systemd/sd-bus.h>

namespace zelmo {

namespace {

using namespace std::chrono_literals;

constexpr const char* interfaceName = "org.freedesktop.Application";
// A bus answers within a millisecond; one that stands still must not keep the wall from coming up for long.
constexpr std::chrono::microseconds longestBusWait = 1s;
// The first process may be busy with its start-up on a slow machine.
constexpr std::chrono::microseconds longestAnswer = 5s;
// The first process may be about to end when it is asked.
constexpr int maximumAttempts = 5;

struct Action {
    const char* name;
    ApplicationRequest request;
};
// As they stand in the desktop entry.
constexpr std::array actions{Action{"settings", ApplicationRequest::settings},
                             Action{"refresh", ApplicationRequest::refresh}, Action{"quit", ApplicationRequest::quit}};

// Both names of the token are in use, the newer one first.
constexpr std::array tokenKeys{"activation-token", "desktop-startup-id"};

struct MessageReleaser {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageReleaser>;

class BusError {
public:
    BusError() = default;
    ~BusError() { sd_bus_error_free(&m_error); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    sd_bus_error* get() { return &m_error; }
    bool is(const char* name) const { return sd_bus_error_has_name(&m_error, name) > 0; }

private:
    sd_bus_error m_error = SD_BUS_ERROR_NULL;
};

bool waitUntilReady(sd_bus* bus) {
    const auto end = std::chrono::steady_clock::now() + longestBusWait;
    while (true) {
        if (const int ready = sd_bus_is_ready(bus); ready != 0)
            return ready > 0;
        const int progress = sd_bus_process(bus, nullptr);
        if (progress < 0)
            return false;
        if (progress > 0)
            continue;
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - std::chrono::steady_clock::now());
        if (left <= 0us || sd_bus_wait(bus, static_cast<std::uint64_t>(left.count())) < 0)
            return false;
    }
}

int appendPlatformData(sd_bus_message* message, const QByteArray& token) {
    int result = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
    for (const char* key : tokenKeys) {
        if (result >= 0 && !token.isEmpty())
            result = sd_bus_message_append(message, "{sv}", key, "s", token.constData());
    }
    return result < 0 ? result : sd_bus_message_close_container(message);
}

// The token among the platform data that come next in the message; an error where they have another form.
int readPlatformData(sd_bus_message* message, QByteArray& token) {
    int result = sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
    while (result >= 0 && (result = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
        const char* key = nullptr;
        const char* contents = nullptr;
        result = sd_bus_message_read(message, "s", &key);
        if (result >= 0)
            result = sd_bus_message_peek_type(message, nullptr, &contents);
        const bool isToken =
            result >= 0 && qstrcmp(contents, "s") == 0 &&
            (qstrcmp(key, tokenKeys.front()) == 0 || (token.isEmpty() && qstrcmp(key, tokenKeys.back()) == 0));
        const char* value = nullptr;
        if (result >= 0)
            result = isToken ? sd_bus_message_read(message, "v", "s", &value) : sd_bus_message_skip(message, "v");
        if (value)
            token = value;
        if (result >= 0)
            result = sd_bus_message_exit_container(message);
    }
    return result < 0 ? result : sd_bus_message_exit_container(message);
}

} // namespace

struct DBusProgramInstance::Methods {
    static int activate(sd_bus_message* message, void* instance, sd_bus_error*) {
        return answer(message, instance, ApplicationRequest::activate);
    }
    // The program opens no files; whoever gives it some wants to see it.
    static int open(sd_bus_message* message, void* instance, sd_bus_error*) {
        const int result = sd_bus_message_skip(message, "as");
        return result < 0 ? result : answer(message, instance, ApplicationRequest::activate);
    }
    static int activateAction(sd_bus_message* message, void* instance, sd_bus_error* error) {
        const char* wanted = nullptr;
        int result = sd_bus_message_read(message, "s", &wanted);
        if (result >= 0)
            result = sd_bus_message_skip(message, "av");
        if (result < 0)
            return result;
        for (const Action& action : actions) {
            if (qstrcmp(wanted, action.name) == 0)
                return answer(message, instance, action.request);
        }
        return sd_bus_error_setf(error, SD_BUS_ERROR_INVALID_ARGS, "There is no action \"%s\".", wanted);
    }

    // Before the request is handled, which may take as long as a question to the user.
    static int answer(sd_bus_message* message, void* instance, ApplicationRequest request) {
        QByteArray token;
        int result = readPlatformData(message, token);
        if (result >= 0)
            result = sd_bus_reply_method_return(message, nullptr);
        if (result < 0)
            return result;
        auto* self = static_cast<DBusProgramInstance*>(instance);
        QMetaObject::invokeMethod(
            &*self->m_reconnect, [self, request, token] { self->m_handler(request, token); }, Qt::QueuedConnection);
        return 1;
    }

    // NOLINTNEXTLINE(modernize-avoid-c-arrays): the library's macros make elements of one
    static constexpr sd_bus_vtable table[]{
        SD_BUS_VTABLE_START(0), SD_BUS_METHOD("Activate", "a{sv}", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("Open", "asa{sv}", "", open, SD_BUS_VTABLE_UNPRIVILEGED),
        SD_BUS_METHOD("ActivateAction", "sava{sv}", "", activateAction, SD_BUS_VTABLE_UNPRIVILEGED), SD_BUS_VTABLE_END};
};

void DBusProgramInstance::BusCloser::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

DBusProgramInstance::DBusProgramInstance(const QString& address) : m_address(address.toUtf8()) {}

DBusProgramInstance::~DBusProgramInstance() = default;

// Waits for nothing; null where there is no bus.
DBusProgramInstance::Bus DBusProgramInstance::open() {
    sd_bus* made = nullptr;
    if (m_address.isEmpty() || sd_bus_new(&made) < 0)
        return nullptr;
    Bus bus(made);
    const bool isUp =
        sd_bus_set_address(bus.get(), m_address.constData()) >= 0 && sd_bus_set_bus_client(bus.get(), 1) >= 0 &&
        sd_bus_set_method_call_timeout(bus.get(), longestBusWait.count()) >= 0 && sd_bus_start(bus.get()) >= 0 &&
        sd_bus_add_object_vtable(bus.get(), nullptr, objectPath, interfaceName, Methods::table, this) >= 0;
    return isUp ? std::move(bus) : nullptr;
}

// Null where the bus does not answer, too.
DBusProgramInstance::Bus DBusProgramInstance::connect() {
    Bus bus = open();
    return bus && waitUntilReady(bus.get()) ? std::move(bus) : nullptr;
}

InstanceClaim DBusProgramInstance::claim(const QByteArray& activationToken) {
    Bus bus = connect();
    if (!bus)
        return InstanceClaim::unavailable;
    for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
        const int result = sd_bus_request_name(bus.get(), name, 0);
        if (result >= 0) {
            m_bus = std::move(bus);
            return InstanceClaim::first;
        }
        if (result != -EEXIST)
            return InstanceClaim::unavailable;
        sd_bus_message* made = nullptr;
        if (sd_bus_message_new_method_call(bus.get(), &made, name, objectPath, interfaceName, "Activate") < 0)
            return InstanceClaim::unavailable;
        const Message call(made);
        BusError error;
        // A new process for the name would be yet another start.
        if (sd_bus_message_set_auto_start(call.get(), 0) < 0 || appendPlatformData(call.get(), activationToken) < 0)
            return InstanceClaim::unavailable;
        if (sd_bus_call(bus.get(), call.get(), longestAnswer.count(), error.get(), nullptr) >= 0)
            return InstanceClaim::handedOver;
        const bool hasEnded = error.is(SD_BUS_ERROR_NAME_HAS_NO_OWNER) || error.is(SD_BUS_ERROR_SERVICE_UNKNOWN) ||
                              error.is(SD_BUS_ERROR_NO_REPLY);
        if (!hasEnded)
            break;
    }
    return InstanceClaim::unanswered;
}

void DBusProgramInstance::listen(RequestHandler handler) {
    if (!m_bus)
        return;
    m_handler = std::move(handler);
    m_reconnect.emplace([this] { comeAgain(); });
    watch();
}

void DBusProgramInstance::watch() {
    const int descriptor = sd_bus_get_fd(m_bus.get());
    m_readable.emplace(descriptor, QSocketNotifier::Read);
    m_writable.emplace(descriptor, QSocketNotifier::Write);
    for (QSocketNotifier* notifier : {&*m_readable, &*m_writable})
        QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { process(); });
    // What came while the name was asked for has been read from the socket already.
    QMetaObject::invokeMethod(
        &*m_readable, [this] { process(); }, Qt::QueuedConnection);
}

void DBusProgramInstance::process() {
    int progress = 1;
    while (progress > 0)
        progress = sd_bus_process(m_bus.get(), nullptr);
    const int events = progress < 0 ? progress : sd_bus_get_events(m_bus.get());
    m_readable->setEnabled(events >= 0);
    m_writable->setEnabled(events >= 0 && (events & POLLOUT));
    if (events < 0)
        m_reconnect->start();
}

// The display is still the program's own, whoever has the name meanwhile.
void DBusProgramInstance::comeAgain() {
    Bus bus = open();
    const auto answered = [](sd_bus_message* answer, void* instance, sd_bus_error*) {
        if (!sd_bus_message_is_method_error(answer, nullptr))
            static_cast<DBusProgramInstance*>(instance)->m_reconnect->reset();
        return 0;
    };
    if (!bus || sd_bus_request_name_async(bus.get(), nullptr, name, 0, answered, this) < 0) {
        m_reconnect->start();
        return;
    }
    m_bus = std::move(bus);
    watch();
}

} // namespace zelmo
