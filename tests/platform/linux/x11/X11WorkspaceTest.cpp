#include "platform/linux/x11/X11Workspace.h"
#include "platform/linux/identity/ApplicationIdentifier.h"
#include "support/DesktopSession.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Front = std::optional<RunningApplication>;

FileUrl entry(const char* id) {
    return FileUrl::fromPath(QStringLiteral("/usr/share/applications/") + QLatin1StringView(id));
}

// A program with windows on a display, which also does a window manager's announcing.
class Client {
public:
    explicit Client(const QByteArray& display) : m_connection(X11Connection::open(display)) {}

    xcb_window_t makeWindow(const QByteArray& className = {}) const {
        const xcb_window_t window = xcb_generate_id(m_connection->get());
        xcb_create_window(m_connection->get(), XCB_COPY_FROM_PARENT, window, m_connection->root(), 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(m_connection->get(), window);
        if (!className.isEmpty())
            setText(window, "WM_CLASS", className + '\0' + className + '\0');
        return window;
    }
    void setText(xcb_window_t window, const QByteArray& name, const QByteArray& text) const {
        xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, window, m_connection->atom(name),
                            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.constData());
        finish();
    }
    void setNumbers(xcb_window_t window, const QByteArray& name, const QList<std::uint32_t>& numbers) const {
        xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, window, m_connection->atom(name),
                            XCB_ATOM_WINDOW, 32, static_cast<std::uint32_t>(numbers.size()), numbers.constData());
        finish();
    }
    void setActive(xcb_window_t window) const { setNumbers(root(), "_NET_ACTIVE_WINDOW", {window}); }
    // Gives back the window that stands for the window manager.
    xcb_window_t becomeWindowManager() const {
        const xcb_window_t window = makeWindow();
        setNumbers(window, "_NET_SUPPORTING_WM_CHECK", {window});
        setNumbers(root(), "_NET_SUPPORTING_WM_CHECK", {window});
        return window;
    }
    void destroy(xcb_window_t window) const {
        xcb_destroy_window(m_connection->get(), window);
        finish();
    }
    void giveKeyboard(xcb_window_t window) const {
        xcb_set_input_focus(m_connection->get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        finish();
    }
    xcb_window_t windowWithKeyboard() const {
        const XcbReply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection->get(), xcb_get_input_focus(m_connection->get()), nullptr));
        return reply->focus;
    }
    // The messages about active windows that come from now on.
    QList<xcb_client_message_event_t>& watchRequests() {
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection->get(), root(), XCB_CW_EVENT_MASK, &events);
        finish();
        QObject::connect(m_connection.get(), &X11Connection::arrived, [this](const xcb_generic_event_t& event) {
            if ((event.response_type & 0x7f) == XCB_CLIENT_MESSAGE)
                m_requests.append(reinterpret_cast<const xcb_client_message_event_t&>(event));
        });
        return m_requests;
    }
    xcb_window_t root() const { return m_connection->root(); }
    void finish() const { windowWithKeyboard(); }

private:
    std::unique_ptr<X11Connection> m_connection;
    QList<xcb_client_message_event_t> m_requests;
};

// A workspace on a server of its own, without a real window manager.
class Fixture {
public:
    Fixture() : session(DesktopSession::start({.windowManager = QString()})) {
        if (!session)
            qFatal("no X server");
        connection = X11Connection::open(session->displayName().toLatin1());
        identifier.setIndex(ApplicationIndex(
            {{.entryId = "maps.desktop", .url = entry("maps.desktop"), .startupClass = "Maps", .program = {}},
             {.entryId = "mail.desktop", .url = entry("mail.desktop"), .startupClass = "Mail", .program = {}}}));
        workspace = std::make_unique<X11Workspace>(connection.get(), identifier);
        client = std::make_unique<Client>(session->displayName().toLatin1());
    }

    // Every application that the handler is told of, as its entry, "other" or "none".
    void noteActivations() {
        workspace->setActivationHandler([this](const Front& front) {
            told.append(!front             ? QStringLiteral("none")
                        : front->bundleUrl ? front->bundleUrl->stem()
                                           : QStringLiteral("other"));
        });
    }
    bool waitForTold(const QStringList& list) const {
        return QTest::qWaitFor([&] { return told == list; });
    }

    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<X11Connection> connection;
    ApplicationIdentifier identifier;
    std::unique_ptr<X11Workspace> workspace;
    std::unique_ptr<Client> client;
    QStringList told;
};

// Waits as a program does that has nothing else to do: what came along with an answer is handed out before it sleeps.
template <typename Condition>
bool eventually(const Condition& condition) {
    QTimer look;
    look.start(5);
    QElapsedTimer time;
    time.start();
    while (!condition() && !time.hasExpired(5000))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

QStringList list(const char* names) {
    return QString::fromLatin1(names).split(u' ');
}

} // namespace

class X11WorkspaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theActiveWindowIsItsApplicationAndProcess() {
        const Fixture fixture;
        fixture.client->becomeWindowManager();
        QVERIFY(eventually([&] { return !fixture.workspace->frontmostApplication(); }));
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setActive(window);
        QVERIFY(eventually([&] { return static_cast<bool>(fixture.workspace->frontmostApplication()); }));
        // The server knows this program as the owner, which never said so itself.
        QCOMPARE(*fixture.workspace->frontmostApplication(),
                 (RunningApplication{.processIdentifier = QCoreApplication::applicationPid(),
                                     .bundleUrl = entry("maps.desktop"),
                                     .window = window}));
    }

    void changesAreToldOfOnceForEachApplication() {
        Fixture fixture;
        fixture.client->becomeWindowManager();
        fixture.noteActivations();
        const xcb_window_t first = fixture.client->makeWindow("Maps");
        const xcb_window_t second = fixture.client->makeWindow("Maps");
        const xcb_window_t mail = fixture.client->makeWindow("Mail");
        const xcb_window_t unknown = fixture.client->makeWindow("Unknown");
        fixture.client->setActive(first);
        QVERIFY(fixture.waitForTold(list("none maps")) || fixture.waitForTold(list("maps")));
        fixture.told.clear();
        fixture.client->setActive(second);
        fixture.client->setActive(mail);
        QVERIFY(fixture.waitForTold(list("mail")));
        fixture.client->setActive(unknown);
        QVERIFY(fixture.waitForTold(list("mail other")));
        fixture.client->setActive(XCB_WINDOW_NONE);
        QVERIFY(fixture.waitForTold(list("mail other none")));
    }

    void anEntryThatIsListedLaterIsToldOf() {
        Fixture fixture;
        fixture.identifier.setIndex({});
        fixture.client->becomeWindowManager();
        fixture.client->setActive(fixture.client->makeWindow("Late"));
        QVERIFY(eventually([&] {
            return static_cast<bool>(fixture.workspace->frontmostApplication() &&
                                     !fixture.workspace->frontmostApplication()->bundleUrl);
        }));
        fixture.noteActivations();
        fixture.identifier.setIndex(ApplicationIndex(
            {{.entryId = "late.desktop", .url = entry("late.desktop"), .startupClass = {}, .program = {}}}));
        QVERIFY(fixture.waitForTold(list("late")));
    }

    void nobodyIsInFrontWhileTheUserIsAway() {
        Fixture fixture;
        fixture.client->becomeWindowManager();
        fixture.client->setActive(fixture.client->makeWindow("Maps"));
        QVERIFY(eventually([&] {
            return static_cast<bool>(fixture.workspace->frontmostApplication() &&
                                     fixture.workspace->frontmostApplication()->bundleUrl);
        }));
        fixture.noteActivations();
        fixture.workspace->setUserPresent(false);
        QVERIFY(fixture.waitForTold(list("none")));
        // What happens behind the lock is nobody's either.
        const xcb_window_t mail = fixture.client->makeWindow("Mail");
        fixture.client->setActive(mail);
        QVERIFY(eventually([&] { return fixture.workspace->frontmostApplication()->window == mail; }));
        fixture.workspace->setUserPresent(true);
        QVERIFY(fixture.waitForTold(list("none mail")));
    }

    void aWindowManagerThatEndsLeavesNobodyInFront() {
        Fixture fixture;
        const xcb_window_t manager = fixture.client->becomeWindowManager();
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setActive(window);
        QVERIFY(eventually([&] {
            return static_cast<bool>(fixture.workspace->frontmostApplication() &&
                                     fixture.workspace->frontmostApplication()->bundleUrl);
        }));
        fixture.noteActivations();
        fixture.client->setActive(fixture.client->makeWindow("Mail"));
        QVERIFY(fixture.waitForTold(list("mail")));
        fixture.client->destroy(manager);
        QVERIFY(eventually([&] { return fixture.told.size() == 2 && fixture.told[1] != list("mail")[0]; }));
        // The next one takes over.
        fixture.client->becomeWindowManager();
        QVERIFY(eventually([&] { return fixture.told.last() == QStringLiteral("mail"); }));
    }

    void aNumberThatStandsForNoWindowManagerIsNoWindowManager() {
        const Fixture fixture;
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setNumbers(fixture.client->root(), "_NET_SUPPORTING_WM_CHECK", {window});
        fixture.client->setActive(window);
        fixture.client->giveKeyboard(window);
        const Front front = fixture.workspace->frontmostApplication();
        QVERIFY(front);
        QCOMPARE(front->bundleUrl, std::nullopt);
    }

    void aWindowFromAnotherMachineHasNoProcessAndNoApplication() {
        const Fixture fixture;
        fixture.client->becomeWindowManager();
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setText(window, "WM_CLIENT_MACHINE", "elsewhere.example");
        fixture.client->setActive(window);
        QVERIFY(eventually([&] { return static_cast<bool>(fixture.workspace->frontmostApplication()); }));
        QCOMPARE(*fixture.workspace->frontmostApplication(),
                 (RunningApplication{.processIdentifier = 0, .bundleUrl = std::nullopt, .window = window}));
    }

    void windowsThatAreGoneOrBareHarmNothing() {
        Fixture fixture;
        fixture.client->becomeWindowManager();
        fixture.noteActivations();
        const xcb_window_t gone = fixture.client->makeWindow("Maps");
        fixture.client->destroy(gone);
        for (const std::uint32_t window : {gone, std::uint32_t{0x7fffffff}, fixture.client->makeWindow()}) {
            fixture.client->setActive(window);
            QVERIFY(eventually([&] {
                return fixture.workspace->frontmostApplication().value_or(RunningApplication{}).window == window;
            }));
            QCOMPARE(fixture.workspace->frontmostApplication()->bundleUrl, std::nullopt);
        }
        fixture.client->setNumbers(fixture.client->root(), "_NET_ACTIVE_WINDOW", {});
        QVERIFY(eventually([&] { return static_cast<bool>(!fixture.workspace->frontmostApplication()); }));
    }

    void activatingAsksTheWindowManagerWithTheTimeOfNow() {
        const Fixture fixture;
        fixture.client->becomeWindowManager();
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setActive(window);
        QVERIFY(eventually([&] { return static_cast<bool>(fixture.workspace->frontmostApplication()); }));
        const RunningApplication front = *fixture.workspace->frontmostApplication();
        const auto& requests = fixture.client->watchRequests();
        fixture.workspace->activate(front);
        QVERIFY(eventually([&] { return requests.size() == 1; }));
        QCOMPARE(requests[0].window, window);
        QCOMPARE(requests[0].data.data32[0], 2U);
        QVERIFY(requests[0].data.data32[1] != XCB_CURRENT_TIME);
    }

    void ofAClosedWindowTheUppermostOtherOneIsActivated() {
        const Fixture fixture;
        fixture.client->becomeWindowManager();
        const xcb_window_t closed = fixture.client->makeWindow("Maps");
        const xcb_window_t lower = fixture.client->makeWindow("Maps");
        const xcb_window_t upper = fixture.client->makeWindow("Maps");
        const Client other(fixture.session->displayName().toLatin1());
        fixture.client->setActive(closed);
        QVERIFY(eventually([&] { return static_cast<bool>(fixture.workspace->frontmostApplication()); }));
        const RunningApplication front = *fixture.workspace->frontmostApplication();
        fixture.client->setNumbers(fixture.client->root(), "_NET_CLIENT_LIST_STACKING", {lower, upper});
        fixture.client->destroy(closed);
        const auto& requests = fixture.client->watchRequests();
        fixture.workspace->activate(front);
        QVERIFY(eventually([&] { return requests.size() == 1; }));
        QCOMPARE(requests[0].window, upper);
        // Of a program without any window left nothing is asked.
        RunningApplication ended = front;
        ended.processIdentifier = 1;
        fixture.workspace->activate(ended);
        fixture.workspace->activate(front);
        QVERIFY(eventually([&] { return requests.size() == 2; }));
        QCOMPARE(requests[1].window, upper);
    }

    void withoutAWindowManagerTheKeyboardIsGivenBack() {
        const Fixture fixture;
        const xcb_window_t first = fixture.client->makeWindow("Maps");
        const xcb_window_t second = fixture.client->makeWindow("Mail");
        fixture.client->giveKeyboard(first);
        const Front front = fixture.workspace->frontmostApplication();
        QVERIFY(front);
        QCOMPARE(front->window, first);
        QCOMPARE(front->bundleUrl, std::nullopt);
        fixture.client->giveKeyboard(second);
        fixture.workspace->activate(*front);
        QVERIFY(eventually([&] { return fixture.client->windowWithKeyboard() == first; }));
    }

    void withoutAServerNothingIsEverInFront() {
        const ApplicationIdentifier identifier;
        X11Workspace workspace(nullptr, identifier);
        workspace.setActivationHandler([](const Front& front) { QVERIFY(!front); });
        workspace.setUserPresent(false);
        workspace.activate({.processIdentifier = 1, .bundleUrl = std::nullopt, .window = 1});
        QCOMPARE(workspace.frontmostApplication(), std::nullopt);
    }

    void aServerThatGoesAwayHarmsNothing() {
        Fixture fixture;
        fixture.client->becomeWindowManager();
        fixture.noteActivations();
        const xcb_window_t window = fixture.client->makeWindow("Maps");
        fixture.client->setActive(window);
        QVERIFY(eventually([&] { return static_cast<bool>(fixture.workspace->frontmostApplication()); }));
        const RunningApplication front = *fixture.workspace->frontmostApplication();
        fixture.client.reset();
        fixture.session.reset();
        QVERIFY(eventually([&] { return static_cast<bool>(xcb_connection_has_error(fixture.connection->get())); }));
        QCOMPARE(fixture.workspace->frontmostApplication(), std::nullopt);
        fixture.workspace->activate(front);
        QCOMPARE(fixture.connection->serverTime(), xcb_timestamp_t{XCB_CURRENT_TIME});
    }
};

QTEST_GUILESS_MAIN(X11WorkspaceTest)
#include "X11WorkspaceTest.moc"
