#include "TemporaryFolder.h"
#include "catalog/AppUsageRecord.h"
#include "catalog/BundleSource.h"
#include "platform/linux/propertylist/PlistBundleReader.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"
#include "platform/linux/trash/XdgTrash.h"
#include "support/CatalogFakes.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <string_view>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr const char* uninstallArgument = "--uninstall-and-be-killed";

// The steps at which the program may end, counted over one uninstalling.
class Steps {
public:
    explicit Steps(int last) : m_last(last) {}
    void take() {
        if (m_taken++ == m_last)
            raise(SIGKILL);
    }

private:
    int m_last;
    int m_taken = 0;
};

class MortalTrash : public Trash {
public:
    explicit MortalTrash(Steps& steps) : m_steps(steps) {}
    TrashResult moveToTrash(const FileUrl& item) override {
        m_steps.take();
        const TrashResult result = m_trash.moveToTrash(item);
        m_steps.take();
        return result;
    }

private:
    Steps& m_steps;
    XdgTrash m_trash;
};

class MortalStorage : public PreferencesStorage {
public:
    MortalStorage(const FileUrl& file, Steps& steps) : m_file(file), m_steps(steps) {}
    PreferenceValues read() override { return m_file.read(); }
    bool write(const PreferenceValues& changes) override {
        m_steps.take();
        const bool written = m_file.write(changes);
        m_steps.take();
        return written;
    }
    void setOutsideChangeHandler(std::function<void()>) override {}

private:
    PlistPreferencesFile m_file;
    Steps& m_steps;
};

// A store on the real folder, file and Trash below a home folder.
class RealStore {
public:
    RealStore(const QByteArray& home, int lastStep)
        : m_steps(lastStep), m_storage(preferencesFile(home), m_steps), m_preferences(m_storage), m_trash(m_steps) {
        std::vector<std::unique_ptr<ApplicationSource>> sources;
        sources.push_back(
            std::make_unique<BundleSource>(QList<FileUrl>{FileUrl::fromNativePath(home + "/Applications")}, m_reader));
        store = std::make_unique<LauncherStore>(AppScanner(std::move(sources)),
                                                LauncherServices{.preferences = m_preferences,
                                                                 .workspace = m_workspace,
                                                                 .launcher = m_launcher,
                                                                 .trash = m_trash,
                                                                 .alerts = m_alerts,
                                                                 .folderWatcher = m_folderWatcher,
                                                                 .makeOverlay = [](LauncherStore&) { return nullptr; },
                                                                 .showSettingsWindow = [] {}});
    }

    static FileUrl preferencesFile(const QByteArray& home) { return FileUrl::fromNativePath(home + "/p.plist"); }
    bool waitForApps(qsizetype count) const {
        return QTest::qWaitFor([&] { return store->apps().size() == count; });
    }

private:
    Steps m_steps;
    MortalStorage m_storage;
    Preferences m_preferences;
    QStringList m_log;
    FakeWorkspace m_workspace{m_log};
    FakeLauncher m_launcher{m_log};
    MortalTrash m_trash;
    FakeAlerts m_alerts{m_log};
    FakeFolderWatcher m_folderWatcher;
    PlistBundleReader m_reader;

public:
    std::unique_ptr<LauncherStore> store;
};

// Uninstalls One and Two, and ends at the given step. Ends with 0 when there are fewer.
int uninstall(const QByteArray& home, int lastStep) {
    const RealStore real(home, lastStep);
    if (!real.waitForApps(3))
        return 2;
    real.store->setIsEditingApps(true);
    for (const LaunchableApp& app : real.store->apps()) {
        if (app.name != QStringLiteral("Keep"))
            real.store->toggleSelection(app);
    }
    real.store->hideSelectedAppsFromLauncher();
    return 0;
}

} // namespace

class UninstallKillTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLostWhicheverStepIsTheLast() {
        int lastStep = 0;
        for (bool wasKilled = true; wasKilled; ++lastStep) {
            const TemporaryFolder home;
            for (const char* name : {"Keep", "One", "Two"})
                home.writeFile(QByteArray("Applications/") + name + ".app/Contents/Linux/run", name);
            const QByteArray applications = home.path("Applications/");
            PlistPreferencesFile(RealStore::preferencesFile(home.path()))
                .write({{QStringLiteral("appUsageRecords"),
                         encodeUsageRecords(
                             {{QString::fromUtf8(applications) + QStringLiteral("Keep.app"), {.launchCount = 7}}})},
                        {QStringLiteral("hiddenAppPaths"), QStringList{QStringLiteral("/old.app")}}});
            QProcess process;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("HOME"), QString::fromUtf8(home.path()));
            environment.insert(QStringLiteral("XDG_DATA_HOME"), QString::fromUtf8(home.path("data")));
            process.setProcessEnvironment(environment);
            process.start(
                QCoreApplication::applicationFilePath(),
                {QString::fromLatin1(uninstallArgument), QString::fromUtf8(home.path()), QString::number(lastStep)});
            QVERIFY(process.waitForFinished());
            wasKilled = process.exitStatus() == QProcess::CrashExit;
            if (!wasKilled)
                QCOMPARE(process.exitCode(), 0);

            // Each bundle is whole in one of the two places, and in the Trash with what restoring it takes.
            QStringList present{QStringLiteral("Keep")};
            const PreferenceValues values = PlistPreferencesFile(RealStore::preferencesFile(home.path())).read();
            const auto hidden = std::get<QStringList>(values.value(QStringLiteral("hiddenAppPaths")));
            QVERIFY(hidden.contains(QStringLiteral("/old.app")));
            for (const char* name : {"One", "Two"}) {
                const QByteArray there = applications + name + ".app";
                const QByteArray trashed = home.path(QByteArray("data/Trash/files/") + name + ".app");
                QVERIFY(TemporaryFolder::exists(there) != TemporaryFolder::exists(trashed));
                const bool isTrashed = TemporaryFolder::exists(trashed);
                QCOMPARE(TemporaryFolder::contentsOf((isTrashed ? trashed : there) + "/Contents/Linux/run"),
                         QByteArray(name));
                QCOMPARE(TemporaryFolder::exists(home.path(QByteArray("data/Trash/info/") + name + ".app.trashinfo")),
                         isTrashed);
                // Hidden is only what is in the Trash.
                QVERIFY(isTrashed || !hidden.contains(QString::fromUtf8(there)));
                if (!isTrashed)
                    present.append(QString::fromLatin1(name));
            }
            if (!wasKilled)
                QCOMPARE(hidden.size(), 3);
            const auto records =
                decodeUsageRecords(std::get<QByteArray>(values.value(QStringLiteral("appUsageRecords"))));
            QCOMPARE(records->value(QString::fromUtf8(applications) + QStringLiteral("Keep.app")).launchCount, 7);
            // The next start shows exactly what is still there.
            const RealStore next(home.path(), -1);
            QVERIFY(next.waitForApps(present.size()));
            QCOMPARE(names(next.store->apps()), present);
        }
        // Before and after moving each of the two, and before and after storing.
        QCOMPARE(lastStep, 2 + 2 + 2 + 1);
    }
};

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    if (argc == 4 && std::string_view(argv[1]) == uninstallArgument)
        return uninstall(argv[2], std::atoi(argv[3]));
    UninstallKillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "UninstallKillTest.moc"
