#include "platform/linux/freedesktop/CategoryTable.h"
#include "platform/linux/freedesktop/DesktopEntrySource.h"
#include "platform/linux/freedesktop/EntryTree.h"
#include "platform/linux/freedesktop/OracleProcess.h"

#include <QTest>

#include <map>

using namespace zelmo;

namespace {

struct Session {
    QByteArray dataHome = {};
    QByteArray dataDirs = {};
    QByteArray desktops = {};
    QByteArray language = {};
    QByteArray lang = {};
    QByteArray path = "/usr/local/bin:/usr/bin:/bin";
};

// By ID: path, name, icon and category type.
using Listing = std::map<QByteArray, QList<QByteArray>>;

Listing listOfGio(const Session& session) {
    QProcessEnvironment environment;
    const auto set = [&](const char* name, const QByteArray& value) {
        environment.insert(QString::fromLatin1(name), QString::fromUtf8(value));
    };
    set("XDG_DATA_HOME", session.dataHome);
    set("XDG_DATA_DIRS", session.dataDirs);
    set("XDG_CURRENT_DESKTOP", session.desktops);
    set("LANGUAGE", session.language);
    set("LANG", session.lang);
    set("PATH", session.path);
    set("HOME", "/nonexistent");
    const auto fields = askOracle(QStringLiteral("applications"), environment);
    if (!fields || fields->size() % 5 != 0)
        qFatal("the oracle does not answer");
    Listing listing;
    for (qsizetype i = 0; i < fields->size(); i += 5) {
        listing[fields->at(i)] = fields->mid(i + 1, 3);
        const auto categoryType = CategoryTable::categoryType(fields->at(i + 4).split(';'));
        listing[fields->at(i)].append(categoryType.value_or(QString()).toUtf8());
    }
    return listing;
}

DesktopEntrySettings settingsOf(const Session& session) {
    return {
        .applicationFolders = DesktopEntrySettings::standardFolders(session.dataHome, session.dataDirs, "/nonexistent"),
        .currentDesktops = DesktopEntrySettings::desktopNames(session.desktops),
        .programPath = session.path,
        .locales = LocaleNames({.language = session.language, .lcAll = {}, .lcMessages = {}, .lang = session.lang})};
}

QByteArray entryId(const QByteArray& path, const QList<QByteArray>& folders) {
    for (const QByteArray& folder : folders) {
        if (path.startsWith(QByteArray(folder + '/')))
            return path.mid(folder.size() + 1).replace('/', '-');
    }
    return QByteArray();
}

Listing ourList(const Session& session) {
    const DesktopEntrySettings settings = settingsOf(session);
    Listing listing;
    for (const FoundApplication& application : DesktopEntrySource(settings).list().applications) {
        const QByteArray path = application.url.nativePath();
        const QByteArray id = entryId(path, settings.applicationFolders);
        if (listing.contains(id))
            qFatal("%s is listed twice", id.constData());
        listing[id] = {path, application.name.toUtf8(), application.icon.name.toUtf8(),
                       application.categoryType.value_or(QString()).toUtf8()};
    }
    return listing;
}

// The cases that both must agree on, over a user's folder and two of the system.
class Corpus {
public:
    explicit Corpus(const EntryTree& tree) : m_tree(tree) {
        addSyntax();
        addTranslations();
        addVisibility();
        addPrograms();
        addPlaces();
    }
    int count() const { return m_count; }

private:
    void file(const QByteArray& place, const QByteArray& contents) {
        m_tree.write(place, contents);
        ++m_count;
    }
    // A system entry of its own that has nothing but `lines`.
    void bare(const QByteArray& name, const QByteArray& lines) {
        file("one/applications/" + name + ".desktop", "[Desktop Entry]\nType=Application\n" + lines + "\n");
    }
    // One that would be shown, with `lines` added.
    void entry(const QByteArray& name, const QByteArray& lines) { bare(name, "Name=" + name + "\nExec=sh\n" + lines); }

    void addSyntax() {
        entry("plain", "");
        entry("comments", "# Name=x\n\n  \n#");
        entry("spaces", "Name =  spaced  \nIcon\t=\ta b");
        entry("returns", "Name=with returns\r\nIcon=x\r");
        entry("escapes", "Name=\\sa\\tb\\nc\\\\d\\re");
        entry("unknown-escape", "Name=a\\qb");
        entry("escape-at-the-end", "Name=a\\");
        entry("duplicate", "Name=second\nName=third");
        entry("action", "[Desktop Action x]\nName=wrong\nExec=nothing-there");
        entry("group-again", "[Desktop Action x]\nName=wrong\n[Desktop Entry]\nName=right");
        entry("no-sign", "oops");
        entry("no-sign-elsewhere", "[other]\noops");
        entry("odd-key", "X-Odd key.with_all-things/=1");
        entry("broken-key", "Na]me=1");
        entry("broken-locale", "Name[d e]=1");
        entry("empty-locale", "Name[]=1");
        entry("space-before-locale", "Name [de]=1");
        entry("latin-1", "Name=Caf\xe9");
        entry("latin-1-comment", "Comment=Caf\xe9");
        entry("unicode", "Name=\xe2\x82\xac \xf0\x9f\x8e\xa8");
        entry("noncharacter", "Name=\xef\xbf\xbf");
        entry("encoding", "Encoding=utf-8");
        entry("foreign-encoding", "Encoding=Legacy-Mixed");
        entry("zero", QByteArray("Name=before\0after", 17));
        entry("other-case", "NODISPLAY=true\nhidden=true");
        file("one/applications/byte-order.desktop",
             "\xef\xbb\xbf[Desktop Entry]\nType=Application\nName=marked\nExec=sh\n");
        file("one/applications/empty.desktop", "");
        file("one/applications/no-group.desktop", "Type=Application\nName=x\nExec=sh\n");
        file("one/applications/late-group.desktop", "[x]\n[Desktop Entry]\nType=Application\nName=x\nExec=sh\n");
        file("one/applications/no-end.desktop", "[Desktop Entry]\nType=Application\nExec=sh\nName=no end");
        file("one/applications/old-group.desktop", "[KDE Desktop Entry]\nType=Application\nName=x\nExec=sh\n");
    }

    void addTranslations() {
        entry("all-forms", "Name[sr]=sr\nName[sr_RS]=sr_RS\nName[sr@latin]=sr@latin\n"
                           "Name[sr_RS@latin]=sr_RS@latin\nName[de]=de\nName[de_AT]=de_AT\nName[C]=C");
        entry("language-alone", "Name[sr]=sr\nName[de]=de\nName[fr]=fr");
        entry("modifier-alone", "Name[sr@latin]=sr@latin");
        entry("country-alone", "Name[de_AT]=de_AT\nName[sr_RS]=sr_RS");
        entry("codeset", "Name[de_AT.UTF-8]=exact\nName[de.UTF-8]=codeset");
        entry("broken-translation", "Name[de]=\xe4\nName[sr]=\xe4\nName[fr]=ok");
        entry("empty-translation", "Name[de]=\nName[sr]=\nName[fr]=");
        entry("twice-translated", "Name[de]=one\nName[de]=two");
        entry("other-case-locale", "Name[DE]=wrong\nName[Sr]=wrong");
        entry("icon-translated", "Icon=plain.png\nIcon[de]=/pictures/de.png\nIcon[sr]=sr.svg");
        entry("translation-first", "Name[de]=de\nName=last");
        bare("translation-alone", "Exec=sh\nName[de]=de");
    }

    void addVisibility() {
        entry("no-display", "NoDisplay=true");
        entry("no-display-number", "NoDisplay=1 ");
        entry("no-display-wrong", "NoDisplay=yes");
        entry("no-display-false", "NoDisplay=false");
        entry("hidden", "Hidden=true");
        entry("hidden-wrong", "Hidden=TRUE");
        entry("only-kde", "OnlyShowIn=KDE;");
        entry("only-gnome", "OnlyShowIn=GNOME");
        entry("only-two", "OnlyShowIn=LXDE;GNOME;XFCE;");
        entry("only-none", "OnlyShowIn=");
        entry("only-semicolon", "OnlyShowIn=;");
        entry("only-broken", "OnlyShowIn=\\q;");
        entry("only-spaced", "OnlyShowIn= KDE ; GNOME ;");
        entry("not-kde", "NotShowIn=KDE;");
        entry("not-gnome", "NotShowIn=GNOME;X\\;Y;");
        entry("not-strange", "NotShowIn=a b;c.d;d_e-1;");
        entry("only-strange", "OnlyShowIn=a b;c.d;");
        entry("both", "OnlyShowIn=ubuntu;\nNotShowIn=GNOME;");
        entry("both-reversed", "OnlyShowIn=GNOME;\nNotShowIn=ubuntu;");
        entry("both-same", "OnlyShowIn=KDE;\nNotShowIn=KDE;");
        bare("link", "Type=Link\nName=x\nExec=sh");
        bare("type-with-space", "Type=Application \nName=x\nExec=sh");
        bare("type-other-case", "Type=application\nName=x\nExec=sh");
        file("one/applications/no-type.desktop", "[Desktop Entry]\nName=x\nExec=sh\n");
        bare("no-name", "Exec=sh");
        bare("empty-name", "Name=\nExec=sh");
        bare("no-exec", "Name=x");
        bare("empty-exec", "Name=x\nExec=");
        bare("activatable", "Name=x\nDBusActivatable=true");
    }

    void addPrograms() {
        m_tree.writeProgram("bin/ours");
        m_tree.writeProgram("bin/with space");
        m_tree.write("bin/plain", "");
        m_tree.makeFolder("bin/folder");
        const QByteArray bin = m_tree.path("bin/");
        bare("missing-program", "Name=x\nExec=no-such-program");
        bare("path-program", "Name=x\nExec=ours %U");
        bare("quoted-program", "Name=x\nExec=\"" + bin + "with space\" %U");
        bare("escaped-program", "Name=x\nExec=" + bin + "with\\\\ space %U");
        bare("single-quoted", "Name=x\nExec='with space'");
        bare("plain-file", "Name=x\nExec=plain");
        bare("program-folder", "Name=x\nExec=folder");
        bare("open-quote", "Name=x\nExec=ours 'x");
        bare("empty-word", "Name=x\nExec=\"\" ours");
        bare("comment-command", "Name=x\nExec=# ours");
        bare("latin-1-exec", "Name=x\nExec=no\xe9");
        entry("try-path", "TryExec=ours");
        entry("try-absolute", "TryExec=" + bin + "ours");
        entry("try-space", "TryExec=with space");
        entry("try-missing", "TryExec=no-such-program");
        entry("try-command", "TryExec=ours --version");
        entry("try-quoted", "TryExec=\"ours\"");
        entry("try-folder", "TryExec=folder");
        entry("try-plain", "TryExec=plain");
        entry("try-empty", "TryExec=");
        entry("icon-file", "Icon=/a/b.svg");
        entry("icon-ending", "Icon=org.example.App.xpm");
        entry("icon-other-ending", "Icon=thing.jpg");
        entry("icon-relative", "Icon=a/b.png");
        entry("icon-empty", "Icon=");
    }

    void addPlaces() {
        const auto place = [this](const QByteArray& path, const QByteArray& lines = QByteArray()) {
            file(path, "[Desktop Entry]\nType=Application\nName=" + path + "\nExec=sh\n" + lines);
        };
        place("one/applications/shared.desktop");
        place("two/applications/shared.desktop");
        place("two/applications/lower.desktop");
        place("user/applications/own.desktop");
        place("user/applications/plain.desktop");
        place("two/applications/masked-hidden.desktop");
        place("user/applications/masked-hidden.desktop", "Hidden=true\n");
        place("two/applications/masked-no-display.desktop");
        place("one/applications/masked-no-display.desktop", "NoDisplay=true\n");
        place("two/applications/masked-broken.desktop");
        file("one/applications/masked-broken.desktop", "oops\n");
        place("two/applications/masked-by-folder.desktop");
        m_tree.makeFolder("one/applications/masked-by-folder.desktop");
        place("two/applications/masked-by-link.desktop");
        m_tree.link("/nowhere", "one/applications/masked-by-link.desktop");
        place("one/applications/kde/foo.desktop");
        place("two/applications/kde-foo.desktop");
        place("two/applications/kde/deep/bar.desktop");
        place("user/applications/kde-deep-bar.desktop", "Hidden=true\n");
        place("two/applications/kde/deep/other.desktop");
        place("two/applications/.dotted/x.desktop");
        place("two/applications/.desktop");
        place("two/applications/not-an-entry.desktop.bak");
        place("two/applications/UPPER.DESKTOP");
        place("elsewhere/linked.desktop");
        place("elsewhere/folder/inside.desktop");
        m_tree.link(m_tree.path("elsewhere/linked.desktop"), "two/applications/linked.desktop");
        m_tree.link(m_tree.path("elsewhere/folder"), "two/applications/linked-folder");
        m_tree.link(QByteArrayLiteral("lower.desktop"), "two/applications/second-name.desktop");
    }

    const EntryTree& m_tree;
    int m_count = 0;
};

} // namespace

class GioOracleTest : public QObject {
    Q_OBJECT

    void compare(const Session& session) {
        const Listing expected = listOfGio(session);
        const Listing found = ourList(session);
        for (const auto& [id, fields] : expected) {
            QVERIFY2(found.contains(id), QByteArray("missing: " + id).constData());
            if (found.at(id) != fields)
                qWarning() << id;
            QCOMPARE(found.at(id), fields);
        }
        for (const auto& [id, fields] : found)
            QVERIFY2(expected.contains(id), QByteArray("too much: " + id).constData());
    }

private Q_SLOTS:
    void corpusIsListedAsGioListsIt_data() {
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QByteArray>("lang");
        QTest::addColumn<QByteArray>("desktops");
        QTest::newRow("no locale") << QByteArray() << QByteArray() << QByteArray();
        QTest::newRow("C") << QByteArray() << QByteArray("C.UTF-8") << QByteArray("KDE");
        QTest::newRow("country") << QByteArray() << QByteArray("de_AT.UTF-8") << QByteArray("GNOME");
        QTest::newRow("language") << QByteArray() << QByteArray("de_DE") << QByteArray("ubuntu:GNOME");
        QTest::newRow("modifier") << QByteArray() << QByteArray("sr_RS@latin") << QByteArray("GNOME:ubuntu");
        QTest::newRow("other modifier") << QByteArray() << QByteArray("sr_ME@latin") << QByteArray("X;Y:LXDE");
        QTest::newRow("priorities") << QByteArray("fr:de_AT:sr") << QByteArray("sr_RS") << QByteArray(":KDE:");
        QTest::newRow("strange desktops") << QByteArray() << QByteArray("fr_FR") << QByteArray("a b:c.d::d_e-1");
        QTest::newRow("unknown") << QByteArray() << QByteArray("tlh") << QByteArray("kde");
    }
    void corpusIsListedAsGioListsIt() {
        QFETCH(QByteArray, language);
        QFETCH(QByteArray, lang);
        QFETCH(QByteArray, desktops);
        const EntryTree tree;
        const Corpus corpus(tree);
        QVERIFY(corpus.count() > 60);
        const Session session{.dataHome = tree.path("user"),
                              .dataDirs = tree.path("one") + ':' + tree.path("two/") + ':' + tree.path("absent"),
                              .desktops = desktops,
                              .language = language,
                              .lang = lang,
                              .path = "/usr/bin:/bin:" + tree.path("bin")};
        // Enough on either side to be a comparison.
        QVERIFY(ourList(session).size() > 40);
        QVERIFY(ourList(session).size() + 40 < static_cast<std::size_t>(corpus.count()));
        compare(session);
    }

    void installedApplicationsAreListedAsGioListsThem() {
        const EntryTree tree;
        for (const char* desktop : {"", "KDE", "GNOME", "XFCE:GNOME"}) {
            for (const char* language : {"", "de", "pt_BR:sr@latin", "zh_TW"}) {
                compare({.dataHome = tree.path("user"),
                         .dataDirs = "/usr/local/share:/usr/share",
                         .desktops = desktop,
                         .language = language,
                         .lang = "C.UTF-8"});
            }
        }
    }

    // ZELMO_TEST_APPLICATIONS may name another data folder, whose programs need not be installed.
    void applicationsInEveryLanguageAreListedAsGioListsThem() {
        const QByteArray given = qgetenv("ZELMO_TEST_APPLICATIONS");
        const QByteArray folder = given.isEmpty() ? QByteArray("/usr/share") : given;
        const EntryTree tree;
        const QByteArray path = "/usr/bin:/bin:" + qgetenv("ZELMO_TEST_PATH");
        for (const char* desktop : {"", "KDE", "GNOME", "XFCE:GNOME"}) {
            for (const char* language : {"", "de", "pt_BR:sr@latin", "zh_TW", "ca@valencia:fr"}) {
                const Session session{.dataHome = tree.path("user"),
                                      .dataDirs = folder,
                                      .desktops = desktop,
                                      .language = language,
                                      .lang = "C.UTF-8",
                                      .path = path};
                compare(session);
                if (QTest::currentTestFailed())
                    return;
            }
        }
    }
};

QTEST_GUILESS_MAIN(GioOracleTest)
#include "GioOracleTest.moc"
