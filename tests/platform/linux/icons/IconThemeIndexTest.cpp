#include "IconTestFiles.h"

#include "platform/linux/icons/IconThemeIndex.h"

#include <QTest>

#include <atomic>
#include <fcntl.h>
#include <thread>
#include <unistd.h>
#include <utime.h>

using namespace zelmo;
using namespace zelmo::test;
using namespace std::chrono_literals;

namespace {

QByteArray themeFile(const QByteArray& folders, const QByteArray& inherits = {}, const QByteArray& scaled = {}) {
    QByteArray text = "[Icon Theme]\nName=Test\nInherits=" + inherits + "\nDirectories=" + folders +
                      "\nScaledDirectories=" + scaled + "\n";
    for (const QByteArray& folder : folders.split(',') + scaled.split(',')) {
        if (folder.isEmpty())
            continue;
        const QByteArray size = folder.left(folder.indexOf('x'));
        const QByteArray scale = folder.contains('@') ? folder.mid(folder.indexOf('@') + 1) : QByteArray("1");
        text += "[" + folder + "]\nSize=" + size + "\nScale=" + scale + "\nType=Fixed\n";
    }
    return text;
}

// Makes a folder look as if it had last changed at another time than it did.
void setTime(const QByteArray& path, time_t time) {
    const utimbuf times{time, time};
    QVERIFY(utime(path.constData(), &times) == 0);
}

} // namespace

class IconThemeIndexTest : public QObject {
    Q_OBJECT

    std::unique_ptr<IconTestFolder> m_folder;
    std::chrono::milliseconds m_now{0};

    IconFolders folders() const { return {{m_folder->path("a"), m_folder->path("b")}, {m_folder->path("pixmaps")}}; }

    IconThemeIndex index(std::optional<QByteArray> theme = "T") {
        return IconThemeIndex(folders(), std::move(theme), [this] { return m_now; });
    }

    // The first file for the name, relative to the folder of the test.
    QByteArray found(IconThemeIndex& themes, const QByteArray& name, int points = 48, double scale = 1) {
        const QList<QByteArray> files = themes.files(name, points, scale, 1);
        return files.isEmpty() ? QByteArray() : files.first().mid(m_folder->path().size() + 1);
    }
    QByteArray found(const QByteArray& name, int points = 48, double scale = 1) {
        IconThemeIndex themes = index();
        return found(themes, name, points, scale);
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<IconTestFolder>(); }

    void folderOfTheExactSizeComesFirst() {
        m_folder->write("a/T/index.theme", themeFile("32x32,48x48,64x64"));
        for (const char* size : {"32x32", "48x48", "64x64"})
            m_folder->write(QByteArray("a/T/") + size + "/foo.png");
        QCOMPARE(found("foo", 48), QByteArray("a/T/48x48/foo.png"));
        QCOMPARE(found("foo", 60), QByteArray("a/T/64x64/foo.png"));
        QCOMPARE(found("foo", 16), QByteArray("a/T/32x32/foo.png"));
    }

    void largerFolderWinsAtEqualDistance() {
        m_folder->write("a/T/index.theme", themeFile("40x40,56x56"));
        m_folder->write("a/T/40x40/foo.png");
        m_folder->write("a/T/56x56/foo.png");
        QCOMPARE(found("foo", 48), QByteArray("a/T/56x56/foo.png"));
    }

    void nothingIsEnlargedWhenThereIsALargerFolder() {
        m_folder->write("a/T/index.theme", themeFile("48x48,96x96,128x128,512x512"));
        for (const char* size : {"48x48", "96x96", "128x128", "512x512"})
            m_folder->write(QByteArray("a/T/") + size + "/foo.png");
        QCOMPARE(found("foo", 104), QByteArray("a/T/128x128/foo.png"));
        QCOMPARE(found("foo", 200), QByteArray("a/T/512x512/foo.png"));
        QCOMPARE(found("foo", 600), QByteArray("a/T/512x512/foo.png"));
    }

    void scaleIsPartOfTheMatch() {
        m_folder->write("a/T/index.theme", themeFile("48x48,96x96", {}, "48x48@2,64x64@2"));
        for (const char* size : {"48x48", "96x96", "48x48@2", "64x64@2"})
            m_folder->write(QByteArray("a/T/") + size + "/foo.png");
        QCOMPARE(found("foo", 48, 2), QByteArray("a/T/48x48@2/foo.png"));
        QCOMPARE(found("foo", 96, 1), QByteArray("a/T/96x96/foo.png"));
        QCOMPARE(found("foo", 60, 2), QByteArray("a/T/64x64@2/foo.png"));
        QCOMPARE(found("foo", 64, 1.5), QByteArray("a/T/96x96/foo.png"));
    }

    void scalableAndThresholdFoldersMatchTheirRange() {
        m_folder->write("a/T/index.theme", "[Icon Theme]\nDirectories=s,t,f\n"
                                           "[s]\nSize=64\nType=Scalable\nMinSize=60\nMaxSize=256\n"
                                           "[t]\nSize=48\nThreshold=4\n"
                                           "[f]\nSize=50\nType=Fixed\n");
        m_folder->write("a/T/s/foo.svg");
        m_folder->write("a/T/t/foo.png");
        m_folder->write("a/T/f/foo.png");
        QCOMPARE(found("foo", 200), QByteArray("a/T/s/foo.svg"));
        QCOMPARE(found("foo", 60), QByteArray("a/T/s/foo.svg"));
        QCOMPARE(found("foo", 52), QByteArray("a/T/t/foo.png"));
        QCOMPARE(found("foo", 50), QByteArray("a/T/t/foo.png"));
        QCOMPARE(found("foo", 54), QByteArray("a/T/s/foo.svg"));
        QCOMPARE(found("foo", 104, 2), QByteArray("a/T/s/foo.svg"));
    }

    void thresholdIsTwoUnlessGiven() {
        m_folder->write("a/T/index.theme", "[Icon Theme]\nDirectories=t,f\n[t]\nSize=48\n[f]\nSize=52\nType=Fixed\n");
        m_folder->write("a/T/t/foo.png");
        m_folder->write("a/T/f/foo.png");
        QCOMPARE(found("foo", 50), QByteArray("a/T/t/foo.png"));
        QCOMPARE(found("foo", 51), QByteArray("a/T/f/foo.png"));
    }

    void themeIsSpreadOverBaseFolders() {
        m_folder->write("b/T/index.theme", themeFile("48x48"));
        m_folder->write("b/T/48x48/shared.png");
        m_folder->write("a/T/48x48/own.png");
        m_folder->write("a/T/48x48/shared.png");
        QCOMPARE(found("own"), QByteArray("a/T/48x48/own.png"));
        QCOMPARE(found("shared"), QByteArray("a/T/48x48/shared.png"));
    }

    void parentsAreSearchedBeforeHicolorAndLoopsEnd() {
        m_folder->write("a/T/index.theme", themeFile("48x48", "hicolor,Missing,P,T"));
        m_folder->write("a/P/index.theme", themeFile("48x48", "T,Q"));
        m_folder->write("a/Q/index.theme", themeFile("48x48", "P"));
        m_folder->write("a/hicolor/index.theme", themeFile("48x48"));
        m_folder->write("a/P/48x48/p.png");
        m_folder->write("a/Q/48x48/p.png");
        m_folder->write("a/Q/48x48/q.png");
        for (const char* name : {"p", "q", "h"})
            m_folder->write(QByteArray("a/hicolor/48x48/") + name + ".png");
        QCOMPARE(found("p"), QByteArray("a/P/48x48/p.png"));
        QCOMPARE(found("q"), QByteArray("a/Q/48x48/q.png"));
        QCOMPARE(found("h"), QByteArray("a/hicolor/48x48/h.png"));
        QCOMPARE(found("none"), QByteArray());
    }

    void unknownThemeFallsBackToAdwaita() {
        m_folder->write("a/Adwaita/index.theme", themeFile("48x48"));
        m_folder->write("a/Adwaita/48x48/foo.png");
        m_folder->write("a/hicolor/index.theme", themeFile("48x48"));
        m_folder->write("a/hicolor/48x48/bar.png");
        for (const std::optional<QByteArray>& theme :
             {std::optional<QByteArray>(), std::optional<QByteArray>("Gone")}) {
            IconThemeIndex themes = index(theme);
            QCOMPARE(found(themes, "foo"), QByteArray("a/Adwaita/48x48/foo.png"));
            QCOMPARE(found(themes, "bar"), QByteArray("a/hicolor/48x48/bar.png"));
        }
    }

    void unthemedFilesComeLast() {
        m_folder->write("a/hicolor/index.theme", themeFile("48x48"));
        m_folder->write("a/hicolor/48x48/foo.png");
        m_folder->write("b/foo.png");
        m_folder->write("b/bar.xpm");
        m_folder->write("pixmaps/foo.png");
        m_folder->write("pixmaps/bar.png");
        m_folder->write("pixmaps/baz.xpm");
        m_folder->write("pixmaps/baz.svg");
        QCOMPARE(found("foo"), QByteArray("a/hicolor/48x48/foo.png"));
        QCOMPARE(found("bar"), QByteArray("b/./bar.xpm"));
        QCOMPARE(found("baz"), QByteArray("pixmaps/./baz.svg"));
    }

    void themeWithoutDescriptionIsReadByItsFolderNames() {
        m_folder->write("a/T/48x48/apps/foo.png");
        m_folder->write("b/T/48x48@2x/apps/foo.png");
        m_folder->write("b/T/scalable/apps/bar.svg");
        m_folder->write("b/T/cursors/left.png");
        QCOMPARE(found("foo", 48, 1), QByteArray("a/T/48x48/apps/foo.png"));
        QCOMPARE(found("foo", 48, 2), QByteArray("b/T/48x48@2x/apps/foo.png"));
        QCOMPARE(found("bar", 104), QByteArray("b/T/scalable/apps/bar.svg"));
        QCOMPARE(found("left"), QByteArray());
    }

    void namesWithDotsAndExtensions() {
        m_folder->write("a/T/index.theme", themeFile("48x48"));
        for (const char* file : {"org.gnome.Foo.svg", "foo.png", "odd.png.png", "upper.xpm", "notes.txt"})
            m_folder->write(QByteArray("a/T/48x48/") + file);
        QCOMPARE(found("org.gnome.Foo"), QByteArray("a/T/48x48/org.gnome.Foo.svg"));
        QCOMPARE(found("org.gnome"), QByteArray());
        QCOMPARE(found("foo.png"), QByteArray("a/T/48x48/foo.png"));
        QCOMPARE(found("foo.svg"), QByteArray("a/T/48x48/foo.png"));
        QCOMPARE(found("odd.png"), QByteArray("a/T/48x48/odd.png.png"));
        QCOMPARE(found("upper.XPM"), QByteArray("a/T/48x48/upper.xpm"));
        QCOMPARE(found("notes"), QByteArray());
        QCOMPARE(found("../48x48/foo"), QByteArray());
        QCOMPARE(found(""), QByteArray());
        QCOMPARE(found(".png"), QByteArray());
    }

    void foldersOutsideOfTheThemeAreNotRead() {
        m_folder->write("a/T/index.theme", "[Icon Theme]\nDirectories=../../out,x/../../../out," +
                                               m_folder->path("out") +
                                               "\n[../../out]\nSize=48\n[x/../../../out]\nSize=48\n[" +
                                               m_folder->path("out") + "]\nSize=48\n");
        m_folder->write("a/T/x/other.png");
        m_folder->write("out/foo.png");
        QCOMPARE(found("foo"), QByteArray());
    }

    void fileIsFoundByBytesThatAreNotUnicode() {
        m_folder->write("a/T/index.theme", themeFile("48x48"));
        const QByteArray name = "caf\xe9";
        const QByteArray path = m_folder->path("a/T/48x48/") + name + ".png";
        QDir().mkpath(QFile::decodeName(m_folder->path("a/T/48x48")));
        const int descriptor = open(path.constData(), O_CREAT | O_WRONLY, 0600);
        QVERIFY(descriptor >= 0);
        close(descriptor);
        const QByteArray file = found(name);
        QCOMPARE(unlink(path.constData()), 0);
        QCOMPARE(file, "a/T/48x48/" + name + ".png");
    }

    void newFilesAreNoticedAtTheNextCheck_data() {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("changedFolder");
        QTest::newRow("in a folder") << QByteArray("a/T/48x48/new.png") << QByteArray("a/T/48x48");
        QTest::newRow("in a new folder") << QByteArray("a/T/64x64/new.png") << QByteArray("a/T");
        QTest::newRow("in a new folder of a folder") << QByteArray("a/T/96x96/apps/new.png") << QByteArray("a/T/96x96");
        QTest::newRow("in a new base") << QByteArray("b/T/48x48/new.png") << QByteArray("a");
        QTest::newRow("in a new theme") << QByteArray("a/Late/48x48/apps/new.png") << QByteArray("a");
        QTest::newRow("in no theme") << QByteArray("pixmaps/new.png") << QByteArray("pixmaps");
    }
    void newFilesAreNoticedAtTheNextCheck() {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, changedFolder);
        m_folder->write("a/T/index.theme", themeFile("48x48,64x64,96x96/apps", "Late"));
        m_folder->write("a/T/48x48/old.png");
        m_folder->write("a/T/96x96/places/old.png");
        for (const char* folder : {"a", "a/T", "a/T/48x48", "a/T/96x96", "a/T/index.theme"})
            setTime(m_folder->path(folder), 1'000'000'000);
        IconThemeIndex themes = index();
        QCOMPARE(found(themes, "new"), QByteArray());
        m_folder->write(file);
        setTime(m_folder->path(changedFolder.constData()), 1'100'000'000);
        m_now += 4999ms;
        QCOMPARE(found(themes, "new"), QByteArray());
        QCOMPARE(found(themes, "old"), QByteArray("a/T/48x48/old.png"));
        m_now += 1ms;
        QCOMPARE(found(themes, "new").replace("/./", "/"), file);
        QCOMPARE(found(themes, "old"), QByteArray("a/T/48x48/old.png"));
    }

    // The kernel's time of a change is a few milliseconds coarse.
    void changeInTheSameInstantAsTheReadingIsNoticed() {
        m_folder->write("a/T/index.theme", themeFile("48x48"));
        m_folder->write("a/T/48x48/old.png");
        IconThemeIndex themes = index();
        const time_t now = time(nullptr);
        setTime(m_folder->path("a/T/48x48"), now);
        QCOMPARE(found(themes, "new"), QByteArray());
        m_folder->write("a/T/48x48/new.png");
        setTime(m_folder->path("a/T/48x48"), now);
        m_now += 5s;
        QCOMPARE(found(themes, "new"), QByteArray("a/T/48x48/new.png"));
    }

    void unchangedFoldersAreNotReadAgain() {
        m_folder->write("a/T/index.theme", themeFile("48x48"));
        m_folder->write("a/T/48x48/old.png");
        for (const char* folder : {"a", "a/T", "a/T/48x48", "a/T/index.theme"})
            setTime(m_folder->path(folder), 1'000'000'000);
        IconThemeIndex themes = index();
        QCOMPARE(found(themes, "new"), QByteArray());
        m_folder->write("a/T/48x48/new.png");
        setTime(m_folder->path("a/T/48x48"), 1'000'000'000);
        m_now += 5s;
        QCOMPARE(found(themes, "new"), QByteArray());
    }

    void furtherFilesFollowTheBest() {
        m_folder->write("a/T/index.theme", themeFile("48x48,64x64"));
        m_folder->write("a/hicolor/index.theme", themeFile("48x48"));
        m_folder->write("a/T/64x64/foo.png");
        m_folder->write("a/T/48x48/foo.png");
        m_folder->write("a/hicolor/48x48/foo.png");
        IconThemeIndex themes = index();
        const QList<QByteArray> expected{m_folder->path("a/T/48x48/foo.png"), m_folder->path("a/T/64x64/foo.png"),
                                         m_folder->path("a/hicolor/48x48/foo.png")};
        QCOMPARE(themes.files("foo", 48, 1, 4), expected);
        QCOMPARE(themes.files("foo", 48, 1, 2), expected.mid(0, 2));
    }

    void largeThemeIsKeptCompactAndComplete() {
        QByteArray list;
        for (int folder = 0; folder < 4; ++folder)
            list += (folder ? "," : "") + QByteArray::number(16 * (folder + 1)) + "x";
        m_folder->write("a/T/index.theme", themeFile(list));
        for (const QByteArray& folder : list.split(',')) {
            for (int i = 0; i < 300; ++i)
                m_folder->write("a/T/" + folder + "/some-application-" + QByteArray::number(i) + ".png", {});
        }
        IconThemeIndex themes = index();
        for (int i = 0; i < 300; ++i) {
            const QByteArray name = "some-application-" + QByteArray::number(i);
            QCOMPARE(found(themes, name, 32), "a/T/32x/" + name + ".png");
        }
        QCOMPARE(themes.extent().names, std::size_t(300));
        QCOMPARE(themes.extent().files, std::size_t(1200));
        QVERIFY(themes.extent().bytes < 1200 * 4 + 300 * (12 + 24) + 1000);
    }

    void severalThreadsMayAskAtOnce() {
        m_folder->write("a/T/index.theme", themeFile("48x48"));
        for (int i = 0; i < 100; ++i)
            m_folder->write("a/T/48x48/n" + QByteArray::number(i) + ".png");
        IconThemeIndex themes = index();
        std::atomic<int> count = 0;
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([&] {
                for (int i = 0; i < 200; ++i)
                    count += static_cast<int>(themes.files("n" + QByteArray::number(i), 48, 1, 1).size());
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(count.load(), 400);
    }

    void nothingIsFoundWhereThereIsNothing() { QCOMPARE(found("foo"), QByteArray()); }
};

QTEST_GUILESS_MAIN(IconThemeIndexTest)
#include "IconThemeIndexTest.moc"
