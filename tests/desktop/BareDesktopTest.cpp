#include "desktop/WallOnScreen.h"

#include <QDir>
#include <QFile>

using namespace zelmo::test;

namespace {

enum class Lack { windowManager, sessionBus, runtimeFolder, fonts, writableHome };

using Lacks = QList<Lack>;

// Nobody offers a compositor, a tray or an icon theme on the desktops of these tests at all.
class BareDesktop {
public:
    explicit BareDesktop(const Lacks& lacks)
        : session(DesktopSession::start(
              {.windowManager = lacks.contains(Lack::windowManager) ? QString() : QStringLiteral("openbox"),
               .user = DesktopUser::ordinary})) {
        if (!session)
            return;
        session->installEntry(QStringLiteral("Mail"));
        session->installEntry(QStringLiteral("Notes"));
        // Where its user may look.
        QFile file(QStringLiteral(ZELMO_PROGRAM));
        if (!file.open(QFile::ReadOnly))
            qFatal("the program is missing");
        session->writeProgram(QStringLiteral("zelmo"), file.readAll());
        program = session->home() + QStringLiteral("/zelmo");
        for (const Lack lack : lacks)
            take(lack);
    }
    ~BareDesktop() {
        if (session)
            setHomeWritable(true);
    }
    BareDesktop(const BareDesktop&) = delete;
    BareDesktop& operator=(const BareDesktop&) = delete;

    std::unique_ptr<DesktopSession> session;
    QString program;

private:
    void take(Lack lack) const {
        QProcessEnvironment& environment = session->environment();
        switch (lack) {
        case Lack::windowManager:
            return;
        case Lack::sessionBus:
            environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
            return;
        case Lack::runtimeFolder:
            environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), QStringLiteral("/nonexistent"));
            return;
        case Lack::fonts:
            session->writeFile(QStringLiteral("fonts.conf"),
                               "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>"
                               "<dir>/usr/share/fonts/truetype/dejavu</dir><selectfont><rejectfont>"
                               "<glob>*</glob></rejectfont><acceptfont><glob>*/DejaVuSansMono.ttf</glob></acceptfont>"
                               "</selectfont></fontconfig>");
            environment.insert(QStringLiteral("FONTCONFIG_FILE"), session->home() + QStringLiteral("/fonts.conf"));
            return;
        case Lack::writableHome:
            // After all that is to be written there.
            setHomeWritable(false);
            return;
        }
    }
    void setHomeWritable(bool isWritable) const {
        const auto permissions = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        QFile::setPermissions(session->home(), isWritable ? permissions | QFile::WriteOwner : permissions);
    }
};

} // namespace

// The wall needs an X server and nothing else of what a desktop offers.
class BareDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallComesUpAndLaunches_data() {
        QTest::addColumn<Lacks>("lacks");
        QTest::newRow("no window manager") << Lacks{Lack::windowManager};
        QTest::newRow("no session bus") << Lacks{Lack::sessionBus};
        QTest::newRow("no runtime folder") << Lacks{Lack::runtimeFolder};
        QTest::newRow("one font") << Lacks{Lack::fonts};
        QTest::newRow("no home to write to") << Lacks{Lack::writableHome};
        QTest::newRow("nothing") << Lacks{Lack::windowManager, Lack::sessionBus, Lack::runtimeFolder, Lack::fonts,
                                          Lack::writableHome};
    }
    void theWallComesUpAndLaunches() {
        QFETCH(Lacks, lacks);
        const BareDesktop desktop(lacks);
        QVERIFY(desktop.session);
        const WallOnScreen wall(*desktop.session, desktop.program);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(desktop.session->display().typeText(QStringLiteral("no")));
        QVERIFY(wall.waitForCards(1));
        desktop.session->display().click(cardCenter(*desktop.session, 0));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(DesktopSession::waitFor(
            [&] { return desktop.session->launched() == QStringList{QStringLiteral("Notes")}; }));
        // It stays, and comes again with what was searched for.
        wall.pressShortcut(altKey);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(wall.hide());
        QCOMPARE(wall.process.state(), QProcess::Running);
    }
};

QTEST_GUILESS_MAIN(BareDesktopTest)
#include "BareDesktopTest.moc"
