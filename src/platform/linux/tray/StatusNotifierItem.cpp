#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/session/BusQuestion.h"
#include "platform/linux/tray/BusMenuAdaptor.h"
#include "platform/linux/tray/StatusNotifierAdaptor.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QThread>

#include <atomic>

namespace zelmo {

namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString menuPath = QStringLiteral("/MenuBar");
const QString busName = QStringLiteral("org.freedesktop.DBus");
const QString busPath = QStringLiteral("/org/freedesktop/DBus");

QString itemName() {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
}

// As askBus(), for methods whose answer is only that it is done.
void tellBus(const QDBusConnection& bus, QDBusMessage message, QObject* context,
             std::function<void(bool isDone)> answered) {
    message.setAutoStartService(false);
    auto* call = new QDBusPendingCallWatcher(bus.asyncCall(message), context);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, context,
                     [answered = std::move(answered)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         answered(!finished->isError());
                     });
}

QDBusMessage busMethod(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(busName, busPath, busName, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const QString& busAddress)
    : m_busAddress(busAddress), m_itemObject(std::make_unique<QObject>()), m_menuObject(std::make_unique<QObject>()),
      m_item(new StatusNotifierAdaptor(m_itemObject.get(), menuPath)), m_menu(new BusMenuAdaptor(m_menuObject.get())),
      m_reconnect([this] { connectInBackground(); }) {
    static std::atomic<int> count = 0;
    m_connectionName = QStringLiteral("zelmo-tray-%1").arg(++count);
    registerNotifierTypes();
    registerBusMenuTypes();
}

StatusNotifierItem::~StatusNotifierItem() {
    leaveBus();
}

void StatusNotifierItem::leaveBus() {
    if (m_thread)
        m_thread->wait();
    m_bus.reset();
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void StatusNotifierItem::setPainter(Painter painter) {
    m_item->setPainter(std::move(painter));
}

void StatusNotifierItem::setTitle(const QString& title) {
    m_item->setTitle(title);
}

void StatusNotifierItem::setMenu(const QList<StatusMenuEntry>& menu) {
    m_menu->setMenu(menu);
}

void StatusNotifierItem::setClickHandler(ClickHandler handler) {
    m_item->setClickHandler(std::move(handler));
}

void StatusNotifierItem::setVisibility(StatusItemVisibility visibility) {
    if (visibility == m_visibility)
        return;
    m_visibility = visibility;
    ++m_change;
    if (visibility == StatusItemVisibility::visible) {
        if (m_bus)
            setWatcher(m_watcher);
        else if (!m_thread)
            connectInBackground();
        return;
    }
    if (m_bus && m_hasName)
        releaseName();
    m_registeredWith.clear();
    setHosting(NotifierHosting::unknown);
}

// A bus that stands still keeps whoever connects to it waiting.
void StatusNotifierItem::connectInBackground() {
    if (m_busAddress.isEmpty()) {
        setHosting(NotifierHosting::absent);
        return;
    }
    leaveBus();
    m_thread.reset(QThread::create(
        [address = m_busAddress, name = m_connectionName] { QDBusConnection::connectToBus(address, name); }));
    connect(m_thread.get(), &QThread::finished, this, [this] { useBus(QDBusConnection(m_connectionName)); });
    m_thread->setObjectName(QStringLiteral("tray"));
    m_thread->start();
}

void StatusNotifierItem::useBus(const QDBusConnection& bus) {
    m_bus = bus;
    if (!m_bus->isConnected()) {
        setWatcher({});
        if (m_wasConnected)
            m_reconnect.start();
        return;
    }
    m_wasConnected = true;
    m_reconnect.reset();
    m_bus->registerObject(itemPath, m_itemObject.get(), QDBusConnection::ExportAdaptors);
    m_bus->registerObject(menuPath, m_menuObject.get(), QDBusConnection::ExportAdaptors);
    // Without the sender's name, after which the library would ask and wait.
    m_bus->connect(QString(), busPath, busName, QStringLiteral("NameOwnerChanged"), {watcherName}, QString(), this,
                   SLOT(hearOwnerChanged(QDBusMessage)));
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_bus->connect(QString(), watcherPath, watcherName, QString::fromLatin1(signal), this,
                       SLOT(hearHostsChanged(QDBusMessage)));
    m_bus->connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                   QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                   SLOT(forgetBus()));
    askBus(*m_bus, busMethod(QStringLiteral("GetNameOwner"), {watcherName}), QLatin1StringView("s"), this,
           [this](const QVariant& owner) {
               if (m_watcher.isEmpty())
                   setWatcher(owner.toString());
           });
}

void StatusNotifierItem::hearOwnerChanged(const QDBusMessage& message) {
    if (message.service() == busName && message.signature() == QLatin1StringView("sss"))
        setWatcher(message.arguments()[2].toString());
}

void StatusNotifierItem::hearHostsChanged(const QDBusMessage& message) {
    if (!m_watcher.isEmpty() && message.service() == m_watcher)
        askForHost();
}

void StatusNotifierItem::forgetBus() {
    m_hasName = false;
    setWatcher({});
    m_reconnect.start();
}

void StatusNotifierItem::setWatcher(const QString& owner) {
    m_watcher = owner;
    m_registeredWith.clear();
    if (m_visibility == StatusItemVisibility::hidden)
        return;
    if (m_watcher.isEmpty())
        setHosting(NotifierHosting::absent);
    else
        askForHost();
}

void StatusNotifierItem::askForHost() {
    if (m_watcher.isEmpty() || m_visibility == StatusItemVisibility::hidden)
        return;
    QDBusMessage question = QDBusMessage::createMethodCall(
        m_watcher, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments({watcherName, QStringLiteral("IsStatusNotifierHostRegistered")});
    askBus(*m_bus, question, QLatin1StringView("v"), this, [this, asked = m_watcher](const QVariant& answer) {
        if (asked != m_watcher)
            return;
        const QVariant isRegistered = answer.value<QDBusVariant>().variant();
        if (isRegistered.metaType() == QMetaType::fromType<bool>() && isRegistered.toBool())
            takeName();
        else
            setHosting(NotifierHosting::absent);
    });
}

void StatusNotifierItem::takeName() {
    if (m_visibility == StatusItemVisibility::hidden)
        return;
    if (m_registeredWith == m_watcher) {
        setHosting(NotifierHosting::hosted);
        return;
    }
    if (m_hasName) {
        registerItem();
        return;
    }
    constexpr uint doNotQueue = 4;
    askBus(*m_bus, busMethod(QStringLiteral("RequestName"), {itemName(), doNotQueue}), QLatin1StringView("u"), this,
           [this](const QVariant& answer) {
               // That another program has it is an answer too: processes in a container have the numbers of others.
               constexpr uint newOwner = 1;
               constexpr uint alreadyOwner = 4;
               m_hasName = answer == newOwner || answer == alreadyOwner;
               if (m_hasName && m_visibility == StatusItemVisibility::hidden)
                   releaseName();
               else if (m_hasName)
                   registerItem();
               else
                   setHosting(NotifierHosting::absent);
           });
}

// Hosts let go of an item whose name goes.
void StatusNotifierItem::releaseName() {
    m_bus->asyncCall(busMethod(QStringLiteral("ReleaseName"), {itemName()}));
    m_hasName = false;
}

void StatusNotifierItem::registerItem() {
    if (m_watcher.isEmpty())
        return;
    QDBusMessage message = QDBusMessage::createMethodCall(m_watcher, watcherPath, watcherName,
                                                          QStringLiteral("RegisterStatusNotifierItem"));
    message.setArguments({itemName()});
    // The watcher has lost an item that was hidden meanwhile.
    tellBus(*m_bus, message, this, [this, asked = m_watcher, change = m_change](bool isDone) {
        if (asked != m_watcher || change != m_change)
            return;
        if (isDone)
            m_registeredWith = asked;
        setHosting(isDone ? NotifierHosting::hosted : NotifierHosting::absent);
    });
}

void StatusNotifierItem::setHosting(NotifierHosting hosting) {
    if (hosting == m_hosting)
        return;
    m_hosting = hosting;
    Q_EMIT hostingChanged();
}

} // namespace zelmo
