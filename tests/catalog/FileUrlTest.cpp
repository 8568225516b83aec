#include "catalog/FileUrl.h"

#include <QTest>

using namespace zelmo;

class FileUrlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyByteStringReadsBackAsItself_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("ascii") << QByteArray("/Applications/Notes.app");
        QTest::newRow("utf-8") << QByteArray("/Applications/\xc3\x9c"
                                             "bersicht \xf0\x9f\x8e\xa8.app");
        QTest::newRow("latin-1") << QByteArray("/Applications/Caf\xe9.app");
        QTest::newRow("overlong") << QByteArray("/a/\xc0\xaf\xe0\x80\xaf.app");
        QTest::newRow("surrogate") << QByteArray("/a/\xed\xa0\x80.app");
        QTest::newRow("truncated sequence") << QByteArray("/a/\xf0\x9f\x8e");
        QTest::newRow("beyond Unicode") << QByteArray("/a/\xf4\x90\x80\x80");
        QTest::newRow("mark of byte order") << QByteArray("/a/\xef\xbb\xbf\xc3\xa9.app");
        QTest::newRow("holds an escape character") << QByteArray("/a/\xef\x9f\xa9 \xef\x9f\xbf.app");
    }
    void everyByteStringReadsBackAsItself() {
        QFETCH(QByteArray, bytes);
        const FileUrl url = FileUrl::fromNativePath(bytes);
        QCOMPARE(url.nativePath(), bytes);
        QCOMPARE(QString::fromUtf8(url.path().toUtf8()), url.path());
    }

    void differentBytesAreDifferentUrls() {
        QVERIFY(FileUrl::fromNativePath("/a/\xe9") != FileUrl::fromNativePath("/a/\xe8"));
        QVERIFY(FileUrl::fromNativePath("/a/\xe9") != FileUrl::fromNativePath("/a/\xef\x9f\xa9"));
    }

    void namesAreTakenApartAtTheLastDot() {
        const FileUrl url = FileUrl::fromPath(QStringLiteral("/Applications/Foo.bar.app"));
        QCOMPARE(url.lastPathComponent(), QStringLiteral("Foo.bar.app"));
        QCOMPARE(url.pathExtension(), QStringLiteral("app"));
        QCOMPARE(url.stem(), QStringLiteral("Foo.bar"));
        QCOMPARE(FileUrl::fromPath(QStringLiteral("/x.y/.app")).pathExtension(), QString());
        QCOMPARE(FileUrl::fromPath(QStringLiteral("/x.y/plain")).pathExtension(), QString());
    }

    void undecodableBytesShowAsReplacementCharacters() {
        QCOMPARE(FileUrl::displayText(FileUrl::fromNativePath("/a/Caf\xe9.app").stem()), QStringLiteral("Caf\uFFFD"));
    }
};

QTEST_GUILESS_MAIN(FileUrlTest)
#include "FileUrlTest.moc"
