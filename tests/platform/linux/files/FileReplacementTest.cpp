#include "platform/linux/files/FileReplacement.h"
#include "TemporaryFolder.h"
#include "support/ExclusiveRenames.h"

#include <QDir>
#include <QTest>

#include <thread>

using namespace zelmo;

namespace {

qsizetype entryCount(const TemporaryFolder& folder) {
    return QDir(QString::fromUtf8(folder.path()))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

using Setting = std::optional<QByteArray> (*)(const QByteArray&);

std::optional<QByteArray> setFileAsideWithoutExclusiveRenames(const QByteArray& path) {
    std::optional<QByteArray> result;
    std::thread([&] {
        if (test::refuseExclusiveRenames())
            result = setFileAside(path);
    }).join();
    return result;
}

} // namespace

class FileReplacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theOldContentsStandUntilTheNewOnesAreCommitted() {
        const TemporaryFolder folder;
        const QByteArray path = folder.writeFile("f", "old");
        FileReplacement replacement(path);
        QVERIFY(replacement.prepare("new"));
        QCOMPARE(TemporaryFolder::contentsOf(path), QByteArray("old"));
        QVERIFY(replacement.commit());
        QCOMPARE(TemporaryFolder::contentsOf(path), QByteArray("new"));
        QCOMPARE(entryCount(folder), 1);
    }

    void whatIsNotCommittedLeavesNoTrace() {
        const TemporaryFolder folder;
        const QByteArray path = folder.writeFile("f", "old");
        {
            FileReplacement replacement(path);
            QVERIFY(replacement.prepare("new"));
            QCOMPARE(entryCount(folder), 2);
        }
        QCOMPARE(TemporaryFolder::contentsOf(path), QByteArray("old"));
        QCOMPARE(entryCount(folder), 1);
    }

    void whatIsNotPreparedIsNotCommitted() {
        const TemporaryFolder folder;
        FileReplacement replacement(folder.path("f"));
        QVERIFY(!replacement.commit());
        QCOMPARE(entryCount(folder), 0);
    }

    void aFolderInTheFilesPlaceRefuses() {
        const TemporaryFolder folder;
        folder.writeFile("f/inside", "x");
        {
            FileReplacement replacement(folder.path("f"));
            QVERIFY(replacement.prepare("new"));
            QVERIFY(!replacement.commit());
        }
        QCOMPARE(entryCount(folder), 1);
    }

    void abandonedFilesAreRemovedAndThoseInUseStay() {
        const TemporaryFolder folder;
        FileReplacement replacement(folder.path("f"));
        QVERIFY(replacement.prepare("new"));
        folder.writeFile(".f.new-abcdef", "left by a killed process");
        QCOMPARE(entryCount(folder), 2);
        FileReplacement::removeAbandoned(folder.path("f"));
        QCOMPARE(entryCount(folder), 1);
        QVERIFY(replacement.commit());
        QCOMPARE(TemporaryFolder::contentsOf(folder.path("f")), QByteArray("new"));
    }

    void linksAreFollowedToTheirEnd() {
        const TemporaryFolder folder;
        folder.link("a", "b");
        folder.link("b", folder.path("sub/c"));
        folder.link("self", "self");
        const QList<QByteArray> steps{folder.path("a"), folder.path("b"), folder.path("sub/c")};
        QCOMPARE(linkSteps(folder.path("a")), steps);
        QCOMPARE(linkTarget(folder.path("a")), folder.path("sub/c"));
        QCOMPARE(linkTarget(folder.path("self")), folder.path("self"));
        QCOMPARE(linkTarget(folder.path("plain")), folder.path("plain"));
    }

    void settingAsideNeverOverwrites_data() {
        QTest::addColumn<Setting>("set");
        QTest::newRow("where a renaming may be told so") << Setting(&setFileAside);
        QTest::newRow("where it can't") << Setting(&setFileAsideWithoutExclusiveRenames);
    }
    void settingAsideNeverOverwrites() {
        QFETCH(Setting, set);
        const TemporaryFolder folder;
        for (const QByteArray name : {"f.unreadable", "f.unreadable-2", "f.unreadable-3"}) {
            const QByteArray path = folder.writeFile("f", "of " + name);
            QCOMPARE(set(path), std::optional(folder.path(name)));
            QVERIFY(!TemporaryFolder::exists(path));
        }
        for (const QByteArray name : {"f.unreadable", "f.unreadable-2", "f.unreadable-3"})
            QCOMPARE(TemporaryFolder::contentsOf(folder.path(name)), "of " + name);
        QCOMPARE(set(folder.path("f")), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(FileReplacementTest)
#include "FileReplacementTest.moc"
