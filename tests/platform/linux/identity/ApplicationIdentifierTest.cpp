#include "platform/linux/identity/ApplicationIdentifier.h"

#include "TemporaryFolder.h"

#include <QSignalSpy>
#include <QTest>

using namespace zelmo;

namespace {

FileUrl entry(const char* id) {
    return FileUrl::fromPath(QStringLiteral("/usr/share/applications/") + QLatin1StringView(id));
}

IndexedApplication indexed(const char* id, const char* startupClass = "", const char* program = "") {
    return {.entryId = id, .url = entry(id), .startupClass = startupClass, .program = program};
}

ApplicationIndex someApplications() {
    return ApplicationIndex({
        indexed("org.example.Maps.desktop", "", "maps"),
        indexed("writer.desktop", "office-writer", "office"),
        indexed("tables.desktop", "office-tables", "office"),
        indexed("terminal.desktop", "XTerm", "xterm"),
        indexed("mail-in-terminal.desktop", "", "xterm"),
        indexed("viewer.desktop", "", "viewer"),
        indexed("snapped_app.desktop", "", ""),
        indexed("other-viewer.desktop", "Viewer", "view2"),
    });
}

std::optional<FileUrl> identify(const WindowFacts& window, const ProcessFacts& process) {
    ApplicationIdentifier identifier;
    identifier.setIndex(someApplications());
    return identifier.identify(window, process);
}

WindowFacts windowOfClass(const char* instance, const char* className) {
    return {.instanceName = instance, .className = className, .applicationIds = {}};
}

} // namespace

class ApplicationIdentifierTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBundleIsTheOneAroundTheExecutable_data() {
        QTest::addColumn<QByteArray>("executable");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("path");
        const auto row = [](const char* name, const char* executable, const char* script, const char* path) {
            QTest::newRow(name) << QByteArray(executable) << QByteArray(script) << QString::fromLatin1(path);
        };
        row("executable", "/Applications/Notes.app/Contents/MacOS/Notes", "", "/Applications/Notes.app");
        row("script", "/usr/bin/dash", "/Applications/Notes.app/Contents/Linux/run", "/Applications/Notes.app");
        row("helper inside", "/a/Notes.app/Contents/Helper.app/Contents/MacOS/h", "", "/a/Notes.app");
        row("no bundle's name", "/srv/.app/x", "", "");
        row("only a name like it", "/srv/x.application/x", "", "");
        row("the file itself is none", "/srv/x.app", "", "");
    }
    void theBundleIsTheOneAroundTheExecutable() {
        QFETCH(QByteArray, executable);
        QFETCH(QByteArray, script);
        QFETCH(QString, path);
        const auto found =
            identify({.instanceName = {}, .className = {}, .applicationIds = {}},
                     {.executable = executable, .script = script, .launchedEntry = {}, .sandboxEntryId = {}});
        QCOMPARE(found ? found->path() : QString(), path);
    }

    void aBundleInAListedFolderHasThePathItIsListedUnder() {
        const TemporaryFolder home;
        home.makeFolders("real/Notes.app/Contents");
        home.link("Applications", "real");
        const ApplicationIdentifier identifier(
            {FileUrl::fromPath(QStringLiteral("/nonexistent")), home.url("Applications")});
        ProcessFacts process;
        process.executable = home.path("real/Notes.app/Contents/Linux/Notes");
        QCOMPARE(identifier.identify({}, process), home.url("Applications/Notes.app"));
    }

    void anEntryDecidesBeforeABundleThatIsNotListed() {
        ProcessFacts process;
        process.executable = "/opt/Maps.app/bin/start";
        QCOMPARE(identify(windowOfClass("xterm", "XTerm"), process), entry("terminal.desktop"));
        QCOMPARE(identify(windowOfClass("a", "b"), process), FileUrl::fromPath(QStringLiteral("/opt/Maps.app")));
    }

    void aSandboxDecidesAgainstWhatTheWindowSays() {
        ProcessFacts process;
        process.sandboxEntryId = "snapped_app.desktop";
        QCOMPARE(identify(windowOfClass("xterm", "XTerm"), process), entry("snapped_app.desktop"));
        // Also when its entry is not listed: another application it is not.
        process.sandboxEntryId = "unlisted.desktop";
        QCOMPARE(identify(windowOfClass("xterm", "XTerm"), process), std::nullopt);
    }

    void anApplicationIdDecidesBeforeTheClass_data() {
        QTest::addColumn<QByteArray>("id");
        QTest::newRow("name") << QByteArray("org.example.Maps");
        QTest::newRow("with its ending") << QByteArray("org.example.Maps.desktop");
        QTest::newRow("path") << QByteArray("/opt/maps/org.example.Maps.desktop");
    }
    void anApplicationIdDecidesBeforeTheClass() {
        QFETCH(QByteArray, id);
        WindowFacts window = windowOfClass("xterm", "XTerm");
        window.applicationIds = {QByteArray(), id};
        QCOMPARE(identify(window, {}), entry("org.example.Maps.desktop"));
        // One that no listed entry has says nothing.
        window.applicationIds = {"org.example.Nothing"};
        QCOMPARE(identify(window, {}), entry("terminal.desktop"));
    }

    void theEntryItWasStartedFromDecidesBeforeTheClassOfItsProgram() {
        ProcessFacts process;
        process.launchedEntry = "/usr/share/applications/mail-in-terminal.desktop";
        QCOMPARE(identify(windowOfClass("xterm", "XTerm"), process), entry("mail-in-terminal.desktop"));
        process.launchedEntry = "/home/me/unlisted.desktop";
        QCOMPARE(identify(windowOfClass("xterm", "XTerm"), process), entry("terminal.desktop"));
    }

    void aProgramOfSeveralEntriesIsToldByTheClassOfTheWindow() {
        ProcessFacts process;
        process.launchedEntry = "/usr/share/applications/writer.desktop";
        QCOMPARE(identify(windowOfClass("office-writer", "office"), process), entry("writer.desktop"));
        QCOMPARE(identify(windowOfClass("office-tables", "office"), process), entry("tables.desktop"));
    }

    void classesAreComparedWithoutCaseTheInstanceFirst() {
        QCOMPARE(identify(windowOfClass("x", "xterm"), {}), entry("terminal.desktop"));
        QCOMPARE(identify(windowOfClass("office-tables", "XTerm"), {}), entry("tables.desktop"));
        // A declared class decides before an entry that is only named like it.
        QCOMPARE(identify(windowOfClass("viewer", "viewer"), {}), entry("other-viewer.desktop"));
    }

    void anEntryNamedLikeTheClassIsFound() {
        QCOMPARE(identify(windowOfClass("", "org.example.maps"), {}), entry("org.example.Maps.desktop"));
    }

    void theExecutableDecidesWhenOneEntryAloneRunsIt() {
        ProcessFacts process;
        process.executable = "/usr/lib/maps/maps";
        QCOMPARE(identify(windowOfClass("a", "b"), process), entry("org.example.Maps.desktop"));
        process.executable = "/usr/bin/office";
        QCOMPARE(identify(windowOfClass("a", "b"), process), std::nullopt);
        process.executable = "/usr/bin/python3.11";
        process.script = "/usr/bin/maps";
        QCOMPARE(identify(windowOfClass("a", "b"), process), entry("org.example.Maps.desktop"));
    }

    void nothingKnownIsNoApplication() {
        QCOMPARE(identify(windowOfClass("", ""), {}), std::nullopt);
        QCOMPARE(identify(windowOfClass("../../etc", "/"), {}), std::nullopt);
    }

    void theFirstOfTwoThatSayTheSameWins() {
        ApplicationIdentifier identifier;
        identifier.setIndex(ApplicationIndex({indexed("mine.desktop", "Same"), indexed("theirs.desktop", "same")}));
        QCOMPARE(identifier.identify(windowOfClass("Same", ""), {}), entry("mine.desktop"));
    }

    void aNewListIsAnnouncedAndUsed() {
        ApplicationIdentifier identifier;
        const QSignalSpy changed(&identifier, &ApplicationIdentifier::indexChanged);
        QCOMPARE(identifier.identify(windowOfClass("xterm", "XTerm"), {}), std::nullopt);
        identifier.setIndex(someApplications());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(identifier.identify(windowOfClass("xterm", "XTerm"), {}), entry("terminal.desktop"));
        identifier.setIndex({});
        QCOMPARE(identifier.identify(windowOfClass("xterm", "XTerm"), {}), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(ApplicationIdentifierTest)
#include "ApplicationIdentifierTest.moc"
