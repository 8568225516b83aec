#include "platform/linux/x11/X11StartupNotifier.h"
#include "support/DesktopSession.h"

#include <QHash>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const StartupDescription program{
    .name = "Some \"name\" \\ ä", .entryId = "org.example.Some.desktop", .startupClass = "Some class"};

// Hears on the root window what is said of programs on their way, as window managers and panels do.
class Listener {
public:
    explicit Listener(const QString& display) : m_connection(X11Connection::open(display.toLatin1())) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection->get(), m_connection->root(), XCB_CW_EVENT_MASK, &events);
        m_begin = m_connection->atom("_NET_STARTUP_INFO_BEGIN");
        m_next = m_connection->atom("_NET_STARTUP_INFO");
        now();
        QObject::connect(m_connection.get(), &X11Connection::arrived,
                         [this](const xcb_generic_event_t& event) { take(event); });
    }

    // The server's clock; all that was sent to the server before has been heard once the events are handled.
    xcb_timestamp_t now() const { return m_connection->serverTime(); }
    const QList<QByteArray>& messages() const { return m_messages; }

private:
    void take(const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE)
            return;
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.format != 8 || (message.type != m_begin && message.type != m_next))
            return;
        // Its parts are of one window; a zero byte ends it.
        QByteArray& text = m_unfinished[message.window];
        if (message.type == m_begin)
            text.clear();
        const QByteArray part(reinterpret_cast<const char*>(message.data.data8), sizeof message.data.data8);
        text += part.split('\0').first();
        if (part.contains('\0'))
            m_messages.append(m_unfinished.take(message.window));
    }

    std::unique_ptr<X11Connection> m_connection;
    xcb_atom_t m_begin = XCB_ATOM_NONE;
    xcb_atom_t m_next = XCB_ATOM_NONE;
    QHash<xcb_window_t, QByteArray> m_unfinished;
    QList<QByteArray> m_messages;
};

// As a value stands in a message.
QByteArray escaped(QByteArray value) {
    return value.replace('\\', "\\\\").replace('"', "\\\"").replace(' ', "\\ ");
}

std::optional<xcb_timestamp_t> timeIn(const QByteArray& token) {
    const QByteArray word("_TIME");
    const qsizetype place = token.lastIndexOf(word);
    bool isNumber = false;
    const xcb_timestamp_t time = token.mid(place + word.size()).toUInt(&isNumber);
    return place > 0 && isNumber ? std::optional(time) : std::nullopt;
}

} // namespace

class X11StartupNotifierTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_session = DesktopSession::start({.windowManager = {}});
        QVERIFY(m_session);
        m_listener = std::make_unique<Listener>(m_session->displayName());
        m_connection = X11Connection::open(m_session->displayName().toLatin1());
        QVERIFY(m_connection);
        m_notifier = std::make_unique<X11StartupNotifier>(m_connection.get());
    }
    void cleanup() {
        m_notifier.reset();
        m_connection.reset();
        m_listener.reset();
        m_session.reset();
    }

    void theDesktopHearsOfAnAnnouncedProgram() {
        const QByteArray token = m_notifier->announcedToken(program);
        QVERIFY(!token.isEmpty());
        QTRY_COMPARE(m_listener->messages().size(), 1);
        const QByteArray message = m_listener->messages().first();
        QVERIFY2(message.startsWith("new: "), message.constData());
        const QList<QByteArray> parts{" ID=" + escaped(token), " NAME=" + escaped(program.name), " SCREEN=0",
                                      " APPLICATION_ID=org.example.Some.desktop", " WMCLASS=Some\\ class"};
        for (const QByteArray& part : parts)
            QVERIFY2(message.contains(part), message.constData());
    }

    void whatIsNotKnownIsNotSaid() {
        QVERIFY(!m_notifier->announcedToken({.name = "Plain", .entryId = {}, .startupClass = {}}).isEmpty());
        QTRY_COMPARE(m_listener->messages().size(), 1);
        QVERIFY(!m_listener->messages().first().contains("APPLICATION_ID"));
        QVERIFY(!m_listener->messages().first().contains("WMCLASS"));
    }

    void aCancelledProgramIsTakenBackOnce() {
        const QByteArray token = m_notifier->announcedToken(program);
        const QByteArray other = m_notifier->announcedToken(program);
        m_notifier->cancel(token);
        m_notifier->cancel(token);
        m_notifier->cancel("unknown");
        m_notifier->cancel(other);
        QTRY_COMPARE(m_listener->messages().size(), 4);
        waitUntilHeard();
        QCOMPARE(m_listener->messages().mid(2),
                 (QList<QByteArray>{"remove: ID=" + escaped(token), "remove: ID=" + escaped(other)}));
    }

    // By whom it was announced makes no difference.
    void theDesktopHearsThatTheProgramItselfIsThere() {
        m_notifier->complete({});
        m_notifier->complete("panel-1_TIME42");
        QTRY_COMPARE(m_listener->messages(), QList<QByteArray>{"remove: ID=panel-1_TIME42"});
    }

    void whatIsOnItsWayIsTakenBackAtTheEnd() {
        const QByteArray token = m_notifier->announcedToken(program);
        m_notifier.reset();
        QTRY_COMPARE(m_listener->messages().size(), 2);
        QCOMPARE(m_listener->messages().last(), QByteArray("remove: ID=" + escaped(token)));
    }

    void nobodyHearsOfAQuietToken() {
        QVERIFY(!m_notifier->token(program).isEmpty());
        m_notifier->cancel(m_notifier->token(program));
        waitUntilHeard();
        QCOMPARE(m_listener->messages(), QList<QByteArray>());
        // It would have.
        QVERIFY(!m_notifier->announcedToken(program).isEmpty());
        QTRY_COMPARE(m_listener->messages().size(), 1);
    }

    void aTokenEndsInTheServersTime_data() { kinds(); }
    void aTokenEndsInTheServersTime() {
        const xcb_timestamp_t before = m_listener->now();
        const QByteArray token = give();
        const xcb_timestamp_t after = m_listener->now();
        const auto time = timeIn(token);
        QVERIFY2(time, token.constData());
        QVERIFY2(before <= *time && *time <= after, token.constData());
        QVERIFY(*time > 0);
    }

    void tokensDiffer_data() { kinds(); }
    void tokensDiffer() {
        // Within one millisecond as well.
        QSet<QByteArray> tokens;
        for (int i = 0; i < 20; ++i)
            tokens.insert(give());
        QCOMPARE(tokens.size(), 20);
    }

    void withoutAServerThereAreNoTokens_data() { kinds(); }
    void withoutAServerThereAreNoTokens() {
        m_notifier = std::make_unique<X11StartupNotifier>(nullptr);
        QCOMPARE(give(), QByteArray());
        m_notifier->cancel("unknown");
        m_notifier->complete("unknown");
    }

    void aServerThatHasGoneIsNotWaitedFor_data() { kinds(); }
    void aServerThatHasGoneIsNotWaitedFor() {
        const QByteArray token = give();
        m_listener.reset();
        m_session.reset();
        give();
        m_notifier->cancel(token);
        m_notifier->complete("panel-1_TIME42");
        m_notifier.reset();
    }

private:
    static void kinds() {
        QTest::addColumn<bool>("isAnnounced");
        QTest::newRow("quiet") << false;
        QTest::newRow("announced") << true;
    }

    QByteArray give() {
        QFETCH(const bool, isAnnounced);
        return isAnnounced ? m_notifier->announcedToken(program) : m_notifier->token(program);
    }

    // What the notifier has sent is with the server when it answers, and was passed on before it answers the listener.
    void waitUntilHeard() const {
        m_connection->serverTime();
        m_listener->now();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<DesktopSession> m_session;
    std::unique_ptr<Listener> m_listener;
    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11StartupNotifier> m_notifier;
};

QTEST_GUILESS_MAIN(X11StartupNotifierTest)
#include "X11StartupNotifierTest.moc"
