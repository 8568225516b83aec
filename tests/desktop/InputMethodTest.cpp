#include "desktop/WallOnScreen.h"

#include <QFile>

using namespace zelmo::test;

// Types with an input method that composes several keys into one letter.
class InputMethodTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSearchFieldComposes() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->environment().insert(QStringLiteral("QT_IM_MODULE"), QStringLiteral("ibus"));
        session->writeFile(QStringLiteral(".local/share/applications/vietnamese.desktop"),
                           "[Desktop Entry]\nType=Application\nName=Vi\xe1\xbb\x87t\nExec=touch launched\n");
        session->writeFile(QStringLiteral(".local/share/applications/plain.desktop"),
                           "[Desktop Entry]\nType=Application\nName=Vieetj\nExec=true\n");
        // Its settings are described there; the applications of this machine are of no use here.
        const QString dataFolders = session->environment().value(QStringLiteral("XDG_DATA_DIRS"));
        session->environment().insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/share"));
        session->startProgram(QStringLiteral("ibus-daemon"),
                              {QStringLiteral("--panel=disable"), QStringLiteral("--config=disable")});
        QVERIFY(chooseEngine(*session));
        session->environment().insert(QStringLiteral("XDG_DATA_DIRS"), dataFolders);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(session->display().typeText(QStringLiteral("vieetj")));
        // Ends the composition.
        QVERIFY(session->display().typeKey(returnKey));
        // Only the name with the composed letter is left, so it is the first and only card.
        QVERIFY(wall.waitForCards(1));
        QVERIFY(session->display().typeKey(downKey));
        QVERIFY(session->display().typeKey(downKey));
        QVERIFY(session->display().typeKey(returnKey));
        QVERIFY(wall.waitUntilGone());
    }

private:
    static bool chooseEngine(DesktopSession& session) {
        const QString engine = QStringLiteral("m17n:vi:telex");
        return DesktopSession::waitFor([&] {
            QProcess& set = session.startProgram(QStringLiteral("ibus"), {QStringLiteral("engine"), engine});
            set.waitForFinished();
            QProcess& get = session.startProgram(QStringLiteral("ibus"), {QStringLiteral("engine")});
            get.waitForFinished();
            return QString::fromUtf8(get.readAllStandardOutput()).trimmed() == engine;
        });
    }
};

QTEST_MAIN(InputMethodTest)
#include "InputMethodTest.moc"
