#include "platform/linux/freedesktop/DesktopEntrySource.h"

#include "TemporaryFolder.h"
#include "platform/linux/freedesktop/EntryTree.h"

#include <QScopeGuard>
#include <QTest>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace zelmo;

class DesktopEntrySourceTest : public QObject {
    Q_OBJECT

    std::optional<EntryTree> m_tree;
    DesktopEntrySettings m_settings;

    ApplicationListing list() const { return DesktopEntrySource(m_settings).list(); }
    ApplicationIndex index() const {
        ApplicationIndex index;
        DesktopEntrySource(m_settings, [&](ApplicationIndex made) { index = std::move(made); }).list();
        return index;
    }
    QStringList names() const {
        QStringList names;
        for (const FoundApplication& application : list().applications)
            names.append(application.name);
        names.sort();
        return names;
    }
    QList<QByteArray> folders() const {
        QList<QByteArray> folders;
        for (const FileUrl& folder : list().folders)
            folders.append(folder.nativePath().mid(m_tree->path().size() + 1));
        return folders;
    }

private Q_SLOTS:
    void init() {
        m_tree.emplace();
        m_settings = {.applicationFolders = {m_tree->path("user"), m_tree->path("system")},
                      .currentDesktops = {},
                      .programPath = "/usr/bin:/bin",
                      .locales = LocaleNames(LocaleVariables{})};
    }

    void entrySaysNameIconAndCategory() {
        m_settings.locales = LocaleNames({.lang = "de_DE.UTF-8"});
        m_tree->writeApplication("system/foo.desktop", "Foo",
                                 "Name[de]=Fu\nIcon=foo\nIcon[de]=fu\nCategories=Qt;Development;\n");
        const ApplicationListing listing = list();
        QCOMPARE(listing.applications.size(), 1);
        const FoundApplication& application = listing.applications.first();
        QCOMPARE(application.url, FileUrl::fromNativePath(m_tree->path("system/foo.desktop")));
        QCOMPARE(application.name, QStringLiteral("Fu"));
        QCOMPARE(application.icon, (AppIcon{.name = QStringLiteral("fu"), .bundlePath = {}}));
        QCOMPARE(application.categoryType, QStringLiteral("public.app-category.developer-tools"));
    }

    void iconKeepsAPathAndLosesTheEndingOfAThemeName() {
        m_tree->writeApplication("system/a.desktop", "A", "Icon=/x/y.png\n");
        QCOMPARE(list().applications.first().icon.name, QStringLiteral("/x/y.png"));
        m_tree->writeApplication("system/a.desktop", "A", "Icon=org.example.Thing.svg\n");
        QCOMPARE(list().applications.first().icon.name, QStringLiteral("org.example.Thing"));
        m_tree->writeApplication("system/a.desktop", "A");
        QVERIFY(list().applications.first().icon.name.isEmpty());
        QCOMPARE(list().applications.first().categoryType, std::nullopt);
    }

    void firstFolderDecides() {
        m_tree->writeApplication("user/a.desktop", "User's");
        m_tree->writeApplication("system/a.desktop", "System's");
        m_tree->writeApplication("system/b.desktop", "Other");
        QCOMPARE(names(), (QStringList{QStringLiteral("Other"), QStringLiteral("User's")}));
    }

    void hiddenUserEntryMasksTheSystemOne() {
        m_tree->writeApplication("system/a.desktop", "A");
        m_tree->write("user/a.desktop", "[Desktop Entry]\nHidden=true\n");
        QCOMPARE(names(), QStringList());
    }

    void brokenUserEntryMasksTheSystemOne() {
        m_tree->writeApplication("system/a.desktop", "A");
        m_tree->write("user/a.desktop", "");
        QCOMPARE(names(), QStringList());
    }

    void subFolderIsPartOfTheId() {
        m_tree->writeApplication("system/kde/deep/foo.desktop", "System's");
        m_tree->writeApplication("user/kde-deep-foo.desktop", "User's");
        m_tree->writeApplication("system/kde-bar.desktop", "Bar");
        m_tree->writeApplication("user/kde/bar.desktop", "User's bar");
        QCOMPARE(names(), (QStringList{QStringLiteral("User's"), QStringLiteral("User's bar")}));
    }

    void entriesThatAreNotForShowAreLeftOut_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("not displayed") << QByteArray("Type=Application\nName=A\nExec=sh\nNoDisplay=true\n");
        QTest::newRow("hidden") << QByteArray("Type=Application\nName=A\nExec=sh\nHidden=true\n");
        QTest::newRow("a link") << QByteArray("Type=Link\nName=A\nURL=http://localhost\n");
        QTest::newRow("a folder") << QByteArray("Type=Directory\nName=A\n");
        QTest::newRow("no type") << QByteArray("Name=A\nExec=sh\n");
        QTest::newRow("program is missing") << QByteArray("Type=Application\nName=A\nExec=no-such-program-anywhere\n");
        QTest::newRow("open quote") << QByteArray("Type=Application\nName=A\nExec=sh 'x\n");
        QTest::newRow("broken line") << QByteArray("Type=Application\nName=A\nExec=sh\noops\n");
    }
    void entriesThatAreNotForShowAreLeftOut() {
        QFETCH(QByteArray, contents);
        m_tree->write("system/a.desktop", "[Desktop Entry]\n" + contents);
        m_tree->writeApplication("system/b.desktop", "B");
        QCOMPARE(names(), QStringList{QStringLiteral("B")});
    }

    void desktopListsAreAsked_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QByteArray>("desktops");
        QTest::addColumn<bool>("shown");
        QTest::newRow("named") << QByteArray("OnlyShowIn=GNOME;KDE;\n") << QByteArray("KDE") << true;
        QTest::newRow("not named") << QByteArray("OnlyShowIn=GNOME;KDE;\n") << QByteArray("XFCE") << false;
        QTest::newRow("no desktop") << QByteArray("OnlyShowIn=GNOME;\n") << QByteArray() << false;
        QTest::newRow("none wanted") << QByteArray("OnlyShowIn=\n") << QByteArray("KDE") << false;
        QTest::newRow("second is named") << QByteArray("OnlyShowIn=GNOME\n") << QByteArray("ubuntu:GNOME") << true;
        QTest::newRow("unwanted") << QByteArray("NotShowIn=KDE;\n") << QByteArray("KDE") << false;
        QTest::newRow("not unwanted") << QByteArray("NotShowIn=KDE;\n") << QByteArray("XFCE") << true;
        QTest::newRow("other case") << QByteArray("NotShowIn=kde;\n") << QByteArray("KDE") << true;
        QTest::newRow("wanted comes first") << QByteArray("OnlyShowIn=A;\nNotShowIn=B;\n") << QByteArray("A:B") << true;
        QTest::newRow("unwanted comes first")
            << QByteArray("OnlyShowIn=A;\nNotShowIn=B;\n") << QByteArray("B:A") << false;
    }
    void desktopListsAreAsked() {
        QFETCH(QByteArray, lines);
        QFETCH(QByteArray, desktops);
        QFETCH(bool, shown);
        m_settings.currentDesktops = DesktopEntrySettings::desktopNames(desktops);
        m_tree->writeApplication("system/a.desktop", "A", lines);
        QCOMPARE(names(), shown ? QStringList{QStringLiteral("A")} : QStringList());
    }

    void triedProgramMustBeThere() {
        m_tree->writeProgram("bin/present");
        m_tree->write("bin/plain", "not a program");
        m_tree->makeFolder("bin/folder");
        m_settings.programPath += ':' + m_tree->path("bin");
        m_tree->writeApplication("system/a.desktop", "in the path", "TryExec=present\n");
        m_tree->writeApplication("system/b.desktop", "absolute", "TryExec=" + m_tree->path("bin/present") + "\n");
        m_tree->writeApplication("system/c.desktop", "missing", "TryExec=absent\n");
        m_tree->writeApplication("system/d.desktop", "missing path", "TryExec=" + m_tree->path("absent") + "\n");
        m_tree->writeApplication("system/e.desktop", "no program", "TryExec=plain\n");
        m_tree->writeApplication("system/f.desktop", "folder", "TryExec=folder\n");
        m_tree->writeApplication("system/g.desktop", "command line", "TryExec=present --version\n");
        m_tree->writeApplication("system/h.desktop", "empty", "TryExec=\n");
        QCOMPARE(names(),
                 (QStringList{QStringLiteral("absolute"), QStringLiteral("empty"), QStringLiteral("in the path")}));
    }

    void programThatAppearsIsSeenByTheNextPass() {
        m_settings.programPath = m_tree->path("bin");
        m_tree->write("system/a.desktop", "[Desktop Entry]\nType=Application\nName=A\nExec=late\n");
        const DesktopEntrySource source(m_settings);
        QCOMPARE(source.list().applications.size(), 0);
        m_tree->writeProgram("bin/late");
        QCOMPARE(source.list().applications.size(), 1);
    }

    void linkedEntriesAndFoldersAreFollowed() {
        m_tree->writeApplication("elsewhere/a.desktop", "A");
        m_tree->writeApplication("elsewhere/more/b.desktop", "B");
        m_tree->link(m_tree->path("elsewhere/a.desktop"), "system/linked.desktop");
        m_tree->link(m_tree->path("elsewhere/more"), "system/more");
        m_tree->link(m_tree->path("nowhere"), "system/dangling.desktop");
        m_tree->link(m_tree->path("nowhere"), "system/dangling");
        QCOMPARE(names(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));
        QCOMPARE(folders(), (QList<QByteArray>{"user", "system", "system/more"}));
    }

    void loopOfLinkedFoldersEnds() {
        m_tree->writeApplication("system/sub/a.desktop", "A");
        m_tree->link(m_tree->path("system"), "system/sub/up");
        m_tree->link(m_tree->path("system/sub"), "system/again");
        m_tree->link(QByteArrayLiteral("self"), "system/self");
        const ApplicationListing listing = list();
        QCOMPARE(listing.applications.size(), 1);
        QCOMPARE(listing.applications.first().url, FileUrl::fromNativePath(m_tree->path("system/sub/a.desktop")));
        QCOMPARE(folders(), (QList<QByteArray>{"user", "system", "system/sub"}));
    }

    void folderThatCannotBeOpenedIsPassedOver() {
        m_tree->writeApplication("system/a.desktop", "A");
        m_tree->writeApplication("system/locked/b.desktop", "B");
        m_tree->write("user", "a file where a folder should be");
        const QByteArray locked = m_tree->path("system/locked");
        QCOMPARE(chmod(m_tree->path().constData(), 0755), 0);
        QCOMPARE(chmod(locked.constData(), 0), 0);
        QStringList found;
        {
            const OrdinaryUser user;
            found = names();
        }
        QCOMPARE(chmod(locked.constData(), 0700), 0);
        QCOMPARE(found, QStringList{QStringLiteral("A")});
    }

    void whatIsNoRegularFileNeitherBlocksNorShows() {
        m_tree->makeFolder("system/folder.desktop");
        const QByteArray pipe = m_tree->path("system/pipe.desktop");
        QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
        m_tree->link("/dev/zero", "system/device.desktop");
        m_tree->writeApplication("system/folder.desktop/inside.desktop", "inside");
        m_tree->writeApplication("system/a.desktop", "A");
        QCOMPARE(names(), QStringList{QStringLiteral("A")});
    }

    void hugeFileIsLeftOut() {
        m_tree->writeApplication("system/large.desktop", "Large", "#" + QByteArray(1024 * 1024 - 100, 'x'));
        m_tree->writeApplication("system/huge.desktop", "Huge", "#" + QByteArray(1024 * 1024, 'x'));
        QCOMPARE(names(), QStringList{QStringLiteral("Large")});
    }

    void fileNameOfAnyBytesIsAUrl() {
        m_tree->writeApplication("system/Caf\xc3\xa9.desktop", "A");
        const QByteArray wild = m_tree->path("system/Caf\xe9.desktop");
        QCOMPARE(rename(m_tree->path("system/Caf\xc3\xa9.desktop").constData(), wild.constData()), 0);
        const ApplicationListing listing = list();
        // The temporary folder can't remove a file of this name by itself.
        QCOMPARE(unlink(wild.constData()), 0);
        QCOMPARE(listing.applications.first().url.nativePath(), wild);
    }

    void theIndexKnowsAnEntryByTheProgramThatItRuns_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QByteArray>("program");
        QTest::newRow("by its name") << QByteArray("Exec=sh -c x\n") << QByteArray("sh");
        QTest::newRow("by its path") << QByteArray("Exec=/bin/sh -c x\n") << QByteArray("sh");
        QTest::newRow("in an environment") << QByteArray("Exec=env -i A=/x/1 /bin/sh -c x\n") << QByteArray("sh");
        QTest::newRow("an environment for nothing") << QByteArray("Exec=env A=1\n") << QByteArray();
        QTest::newRow("in a terminal") << QByteArray("Exec=sh -c x\nTerminal=true\n") << QByteArray();
        QTest::newRow("none") << QByteArray("DBusActivatable=true\n") << QByteArray();
    }
    void theIndexKnowsAnEntryByTheProgramThatItRuns() {
        QFETCH(QByteArray, lines);
        QFETCH(QByteArray, program);
        m_tree->write("system/a.desktop", "[Desktop Entry]\nType=Application\nName=A\nStartupWMClass=Class\n" + lines);
        const ApplicationIndex found = index();
        for (const char* name : {"sh", "env", "x", "1", "A=1", ""})
            QCOMPARE(found.withProgram(name) != nullptr, !program.isEmpty() && program == name);
        for (const IndexedApplication* entry : {found.withEntryId("a.desktop"), found.withStartupClass("class")}) {
            QVERIFY(entry);
            QCOMPARE(entry->url, FileUrl::fromNativePath(m_tree->path("system/a.desktop")));
        }
    }

    void foldersAreThoseThatCanChangeTheList() {
        m_tree->writeApplication("system/one/two/a.desktop", "A");
        m_tree->makeFolder("system/empty");
        QList<QByteArray> found = folders();
        QCOMPARE(found.mid(0, 2), (QList<QByteArray>{"user", "system"}));
        std::sort(found.begin(), found.end());
        QCOMPARE(found, (QList<QByteArray>{"system", "system/empty", "system/one", "system/one/two", "user"}));
    }

    void standardFoldersFollowTheVariables() {
        using List = QList<QByteArray>;
        QCOMPARE(
            DesktopEntrySettings::standardFolders("", "", "/home/u"),
            (List{"/home/u/.local/share/applications", "/usr/local/share/applications", "/usr/share/applications"}));
        QCOMPARE(DesktopEntrySettings::standardFolders("/d/", "/a:relative::/b//:/a/", "/home/u"),
                 (List{"/d/applications", "/a/applications", "/b/applications"}));
        QCOMPARE(DesktopEntrySettings::standardFolders("relative", "relative", "/home/u/"),
                 (List{"/home/u/.local/share/applications"}));
    }

    void environmentIsRead() {
        qputenv("XDG_DATA_HOME", "/d");
        qputenv("XDG_DATA_DIRS", "/a");
        qputenv("XDG_CURRENT_DESKTOP", "one::no name:two");
        qputenv("PATH", "/p");
        qputenv("LANGUAGE", "fr");
        const DesktopEntrySettings settings = DesktopEntrySettings::fromEnvironment();
        QCOMPARE(settings.applicationFolders, (QList<QByteArray>{"/d/applications", "/a/applications"}));
        QCOMPARE(settings.currentDesktops, (QList<QByteArray>{"one", "two"}));
        QCOMPARE(settings.programPath, QByteArray("/p"));
        QCOMPARE(settings.locales.names(), (QList<QByteArray>{"fr", "C"}));
    }

    void withoutAHomeInTheEnvironmentTheUsersOwnCounts() {
        const auto restore = qScopeGuard([home = qgetenv("HOME")] { qputenv("HOME", home); });
        qunsetenv("HOME");
        qunsetenv("XDG_DATA_HOME");
        const passwd* user = getpwuid(getuid());
        QVERIFY(user);
        QCOMPARE(DesktopEntrySettings::fromEnvironment().applicationFolders.first(),
                 QByteArray(user->pw_dir) + "/.local/share/applications");
    }
};

QTEST_GUILESS_MAIN(DesktopEntrySourceTest)
#include "DesktopEntrySourceTest.moc"
