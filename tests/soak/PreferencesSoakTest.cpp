#include "soak/ResourceUse.h"
#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"
#include "soak/StoredUsage.h"

#include <QDir>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

enum class Damage { emptied, cutInHalf, forbidden, folder };

// What makes writing fail.
enum class Obstacle { fullDisk, forbiddenFolder };

QByteArray backgroundOf(double green) {
    return stringPreference("launcherBackgroundStyle", "customColor") + realPreference("launcherBackgroundRed", 0) +
           realPreference("launcherBackgroundGreen", green) + realPreference("launcherBackgroundBlue", 0.8);
}

const QByteArray theirs = "<key>theirs</key><date>2024-02-29T12:00:00Z</date>";

// The program of an ordinary user, whose permissions count, and the file with its preferences.
class PreferencesDesktop {
public:
    PreferencesDesktop() : desktop({.user = DesktopUser::ordinary}) {
        DesktopSession& session = *desktop.session;
        session.installEntry(QStringLiteral("Notes"));
        // Where its user may look.
        QFile file(QStringLiteral(ZELMO_PROGRAM));
        if (!file.open(QFile::ReadOnly))
            qFatal("the program is missing");
        session.writeProgram(QStringLiteral("zelmo"), file.readAll());
        desktop.program = session.home() + QStringLiteral("/zelmo");
        desktop.writePreferences(backgroundOf(0.2) + theirs);
    }

    bool start() {
        desktop.startProgram();
        return waitForGreen(0.2) && desktop.wall->waitForCards(1) && desktop.hide();
    }
    // With its wall shown.
    bool waitForGreen(double green) const {
        return desktop.wall->waitUntilShown() && DesktopSession::waitFor([&] {
                   const QColor color = desktop.session->display().screenshot().pixelColor(12, 400);
                   return std::abs(color.green() - qRound(255 * green)) <= 2 && std::abs(color.blue() - 204) <= 2;
               });
    }
    bool showsGreen(double green) const {
        desktop.wall->pressShortcut(altKey);
        return waitForGreen(green) && desktop.wall->hide();
    }
    // The launch is counted and stored.
    bool launch() {
        ++launches;
        desktop.wall->pressShortcut(altKey);
        if (!desktop.wall->waitForCards(1))
            return false;
        desktop.session->display().click(cardCenter(*desktop.session, 0));
        return desktop.wall->waitUntilGone() &&
               DesktopSession::waitFor([&] { return !desktop.session->launched().isEmpty(); });
    }
    std::int64_t storedLaunches() const {
        const auto usage = storedUsage(desktop.session->home(), QStringLiteral("Notes.desktop"));
        return usage ? usage->launchCount : 0;
    }
    bool waitUntilStored() const {
        return DesktopSession::waitFor([&] { return storedLaunches() == launches; });
    }
    QString path() const { return folder() + QStringLiteral("/preferences.plist"); }
    QString folder() const { return desktop.session->home() + QStringLiteral("/.config/zelmo"); }
    QStringList files() const {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                        QDir::Name);
    }

    SoakDesktop desktop;
    std::int64_t launches = 0;
};

void damage(const QString& path, Damage kind) {
    QFile file(path);
    switch (kind) {
    case Damage::emptied:
        QVERIFY(file.resize(0));
        return;
    case Damage::cutInHalf:
        QVERIFY(file.resize(file.size() / 2));
        return;
    case Damage::forbidden:
        QCOMPARE(chmod(QFile::encodeName(path).constData(), 0), 0);
        return;
    case Damage::folder: {
        // At once: a file that is gone for a moment means that the user wants none.
        const QByteArray place = QFile::encodeName(path);
        const QByteArray other = place + ".other";
        QVERIFY(QDir().mkdir(QFile::decodeName(other)));
        QCOMPARE(renameat2(AT_FDCWD, other.constData(), AT_FDCWD, place.constData(), RENAME_EXCHANGE), 0);
        QVERIFY(QFile::remove(QFile::decodeName(other)));
        return;
    }
    }
}

// A disk of 64 KiB in the place of the folder, for this process and those that it starts. Root alone can have one.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder) : m_folder(QFile::encodeName(folder)) {
        m_isMounted = unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                      mount("none", m_folder.constData(), "tmpfs", 0, "size=64k,mode=0777") == 0;
    }
    ~SmallDisk() {
        if (m_isMounted)
            umount2(m_folder.constData(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return m_isMounted; }

private:
    QByteArray m_folder;
    bool m_isMounted = false;
};

void obstruct(const PreferencesDesktop& preferences, Obstacle obstacle) {
    if (obstacle == Obstacle::forbiddenFolder) {
        QCOMPARE(chmod(QFile::encodeName(preferences.folder()).constData(), 0555), 0);
        return;
    }
    QFile filler(preferences.folder() + QStringLiteral("/filler"));
    QVERIFY(filler.open(QFile::WriteOnly | QFile::Unbuffered));
    while (filler.write(QByteArray(512, 'x')) > 0) {
    }
}

void clear(const PreferencesDesktop& preferences, Obstacle obstacle) {
    if (obstacle == Obstacle::forbiddenFolder)
        QCOMPARE(chmod(QFile::encodeName(preferences.folder()).constData(), 0755), 0);
    else
        QVERIFY(QFile::remove(preferences.folder() + QStringLiteral("/filler")));
}

} // namespace

// The file with the preferences meets with everything that happens to files, while the program runs.
class PreferencesSoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anotherFileInItsPlaceIsTaken() {
        PreferencesDesktop preferences;
        QVERIFY(preferences.start());
        FlatRounds rounds(preferences.desktop.process(), soakCount(2, 40));
        for (int round = 0; round < rounds.count(); ++round) {
            QVERIFY(preferences.launch());
            QVERIFY(preferences.waitUntilStored());
            const double green = 0.3 + 0.2 * (round % 2);
            preferences.desktop.session->writeFile(QStringLiteral(".config/zelmo/next"),
                                                   "<plist version=\"1.0\"><dict>" + backgroundOf(green) + theirs +
                                                       "</dict></plist>");
            QCOMPARE(std::rename(QFile::encodeName(preferences.folder() + QStringLiteral("/next")).constData(),
                                 QFile::encodeName(preferences.path()).constData()),
                     0);
            QVERIFY(preferences.showsGreen(green));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
        // What the program knows of use is in none of them, and is stored with the next launch.
        QVERIFY(preferences.launch());
        QVERIFY(preferences.waitUntilStored());
        QVERIFY(preferences.desktop.preferences().contains("2024-02-29T12:00:00Z"));
        QCOMPARE(preferences.files(), QStringList{QStringLiteral("preferences.plist")});
        QVERIFY(preferences.desktop.isRunning());
    }

    void whatCanNotBeReadIsKeptAndLosesNothing_data() {
        QTest::addColumn<Damage>("kind");
        if (isLong())
            QTest::newRow("emptied") << Damage::emptied;
        QTest::newRow("cut in half") << Damage::cutInHalf;
        QTest::newRow("forbidden") << Damage::forbidden;
        QTest::newRow("a folder") << Damage::folder;
    }
    void whatCanNotBeReadIsKeptAndLosesNothing() {
        QFETCH(Damage, kind);
        PreferencesDesktop preferences;
        QVERIFY(preferences.start());
        QStringList expected{QStringLiteral("preferences.plist")};
        FlatRounds rounds(preferences.desktop.process(), soakCount(2, 20));
        for (int round = 1; round <= rounds.count(); ++round) {
            QVERIFY(preferences.launch());
            QVERIFY(preferences.waitUntilStored());
            damage(preferences.path(), kind);
            const qint64 size = QFileInfo(preferences.path()).size();
            // It goes on with what it had, and lets the file be.
            QVERIFY(preferences.showsGreen(0.2));
            QCOMPARE(QFileInfo(preferences.path()).size(), size);
            QCOMPARE(preferences.files(), expected);
            // The next time it has something to store, the file is set aside and all of it is written anew.
            QVERIFY(preferences.launch());
            const QString aside = QStringLiteral("preferences.plist.unreadable") +
                                  (round == 1 ? QString() : QStringLiteral("-%1").arg(round));
            expected.append(aside);
            expected.sort();
            QVERIFY(DesktopSession::waitFor([&] { return preferences.files() == expected; }));
            QVERIFY(preferences.waitUntilStored());
            QCOMPARE(QFileInfo(preferences.folder() + u'/' + aside).size(), size);
            QVERIFY(preferences.desktop.preferences().contains("2024-02-29T12:00:00Z"));
            QVERIFY(preferences.showsGreen(0.2));
            QVERIFY(preferences.desktop.isRunning());
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
        preferences.desktop.writePreferences(backgroundOf(0.6));
        QVERIFY(preferences.showsGreen(0.6));
    }

    void whereNothingCanBeWrittenNothingIsLost_data() {
        QTest::addColumn<Obstacle>("obstacle");
        QTest::newRow("a full disk") << Obstacle::fullDisk;
        QTest::newRow("a folder that may not be written") << Obstacle::forbiddenFolder;
    }
    void whereNothingCanBeWrittenNothingIsLost() {
        QFETCH(Obstacle, obstacle);
        PreferencesDesktop preferences;
        std::optional<SmallDisk> disk;
        if (obstacle == Obstacle::fullDisk) {
            disk.emplace(preferences.folder());
            if (!disk->isMounted())
                QSKIP("no disk can be mounted here; a folder that may not be written takes the same way");
            preferences.desktop.writePreferences(backgroundOf(0.2) + theirs);
        }
        QVERIFY(preferences.start());
        QVERIFY(preferences.launch());
        QVERIFY(preferences.waitUntilStored());
        FlatRounds rounds(preferences.desktop.process(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            obstruct(preferences, obstacle);
            const QByteArray before = preferences.desktop.preferences();
            const QStringList filesBefore = preferences.files();
            for (int i = 0; i < 3; ++i)
                QVERIFY(preferences.launch());
            QCOMPARE(preferences.desktop.preferences(), before);
            QCOMPARE(preferences.files(), filesBefore);
            QVERIFY(preferences.showsGreen(0.2));
            clear(preferences, obstacle);
            // Everything since then, with the next thing to be stored.
            QVERIFY(preferences.launch());
            QVERIFY(preferences.waitUntilStored());
            QCOMPARE(preferences.files(), QStringList{QStringLiteral("preferences.plist")});
            QVERIFY(preferences.desktop.preferences().contains("2024-02-29T12:00:00Z"));
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
        // Or at its end.
        obstruct(preferences, obstacle);
        QVERIFY(preferences.launch());
        clear(preferences, obstacle);
        QVERIFY(preferences.desktop.isRunning());
        preferences.desktop.wall->process.terminate();
        QVERIFY(preferences.desktop.wall->process.waitForFinished());
        QCOMPARE(preferences.desktop.wall->process.exitCode(), 0);
        QCOMPARE(preferences.storedLaunches(), preferences.launches);
    }
};

QTEST_GUILESS_MAIN(PreferencesSoakTest)
#include "PreferencesSoakTest.moc"
