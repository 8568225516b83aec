#include "SettingsSchemas.h"
#include "XSettingsWriter.h"

#include "platform/linux/desktop/DesktopMotionPreference.h"
#include "platform/linux/x11/X11Connection.h"
#include "support/DesktopSession.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

using Choice = SettingsSchemas::Choice;

namespace {

// A program that hands out settings on the X server as a desktop's does, until it is gone.
class SettingsManager {
public:
    explicit SettingsManager(const QString& display) : m_connection(X11Connection::open(display.toLatin1())) {
        m_window = xcb_generate_id(m_connection->get());
        xcb_create_window(m_connection->get(), XCB_COPY_FROM_PARENT, m_window, m_connection->root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_connection->get(), m_window, m_connection->atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
        m_connection->serverTime();
    }
    void handOut(const QByteArray& settings, std::uint8_t bits = 8) const {
        const xcb_atom_t name = m_connection->atom("_XSETTINGS_SETTINGS");
        xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, name, name, bits,
                            static_cast<std::uint32_t>(settings.size()) * 8 / bits, settings.constData());
        m_connection->serverTime();
    }

private:
    std::unique_ptr<X11Connection> m_connection;
    xcb_window_t m_window;
};

QByteArray animations(int value) {
    return XSettingsWriter().text("Net/ThemeName", "Any").integer("Gtk/EnableAnimations", value).bytes();
}

} // namespace

class DesktopMotionPreferenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        // Before the first look at the settings, which is for good.
        m_schemas = std::make_unique<SettingsSchemas>(SettingsSchemas::animationSwitch("true"));
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GSETTINGS_SCHEMA_DIR", m_schemas->folder());
    }
    void init() {
        m_session = DesktopSession::start({.windowManager = {}});
        QVERIFY(m_session);
        m_connection = X11Connection::open(m_session->displayName().toLatin1());
        m_folder = std::make_unique<TemporaryFolder>();
        m_preference =
            std::make_unique<DesktopMotionPreference>(m_connection.get(), QList<QByteArray>{m_folder->path()});
        m_schemas->choose(Choice::none);
    }

    void aDesktopThatSaysNothingMoves() { QVERIFY(!m_preference->reducesMotion()); }

    void theFirstThatSpeaksOfItDecides() {
        m_folder->writeFile("kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
        QVERIFY(m_preference->reducesMotion());
        m_schemas->choose(Choice::animated);
        QVERIFY(!m_preference->reducesMotion());
        m_schemas->choose(Choice::still);
        QVERIFY(m_preference->reducesMotion());
        const SettingsManager manager(m_session->displayName());
        QVERIFY(m_preference->reducesMotion());
        manager.handOut(animations(1));
        QVERIFY(!m_preference->reducesMotion());
    }

    void eachChangeIsHeeded() {
        {
            const SettingsManager manager(m_session->displayName());
            manager.handOut(animations(0));
            QVERIFY(m_preference->reducesMotion());
            manager.handOut(animations(1));
            QVERIFY(!m_preference->reducesMotion());
            manager.handOut(animations(0));
            QVERIFY(m_preference->reducesMotion());
        }
        // What was handed out is gone with who did it.
        QVERIFY(DesktopSession::waitFor([&] { return !m_preference->reducesMotion(); }));
    }

    void manySettingsAreReadToTheEnd() {
        XSettingsWriter writer;
        for (int i = 0; i < 1000; ++i)
            writer.text("Some/Setting" + QByteArray::number(i), "value");
        const SettingsManager manager(m_session->displayName());
        manager.handOut(writer.integer("Gtk/EnableAnimations", 0).bytes());
        QVERIFY(m_preference->reducesMotion());
    }

    void settingsThatAreNoneSayNothing() {
        const SettingsManager manager(m_session->displayName());
        manager.handOut(animations(0).left(20));
        QVERIFY(!m_preference->reducesMotion());
        QByteArray padded = animations(0);
        padded.resize(padded.size() / 4 * 4);
        manager.handOut(padded, 32);
        QVERIFY(!m_preference->reducesMotion());
    }

    void withoutAnXServerTheStoredSettingsCount() {
        const DesktopMotionPreference preference(nullptr, {m_folder->path()});
        QVERIFY(!preference.reducesMotion());
        m_folder->writeFile("kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
        QVERIFY(preference.reducesMotion());
    }

    void aServerThatGoesAwayHarmsNothing() {
        m_session.reset();
        QVERIFY(!m_preference->reducesMotion());
    }

private:
    std::unique_ptr<SettingsSchemas> m_schemas;
    std::unique_ptr<DesktopSession> m_session;
    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<DesktopMotionPreference> m_preference;
};

QTEST_GUILESS_MAIN(DesktopMotionPreferenceTest)
#include "DesktopMotionPreferenceTest.moc"
