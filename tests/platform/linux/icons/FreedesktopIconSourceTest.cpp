#include "IconTestFiles.h"

#include "catalog/FileUrl.h"
#include "platform/linux/icons/FreedesktopIconSource.h"

#include <QTest>

#include <atomic>
#include <thread>
#include <unistd.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;

} // namespace

class FreedesktopIconSourceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<IconTestFolder> m_folder;
    std::unique_ptr<FreedesktopIconSource> m_source;

    QString text(const char* path) const { return FileUrl::fromNativePath(m_folder->path(path)).path(); }
    QRgb color(const AppIcon& icon, int points = 48, double scale = 1) const {
        const QImage image = m_source->icon(icon, points, scale);
        return image.isNull() ? 0 : image.pixel(image.width() / 2, image.height() / 2);
    }
    AppIcon inBundle(const char* name) const { return {QString::fromLatin1(name), text("A.app")}; }

private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<IconTestFolder>();
        m_folder->write("icons/T/index.theme", "[Icon Theme]\nDirectories=48,96\nScaledDirectories=48@2\n"
                                               "[48]\nSize=48\n[96]\nSize=96\n[48@2]\nSize=48\nScale=2\n");
        const IconFolders folders{{m_folder->path("icons")}, {}};
        m_source = std::make_unique<FreedesktopIconSource>(std::make_unique<IconThemeIndex>(folders, "T"));
    }

    void pictureHasTheWantedPixels() {
        m_folder->write("icons/T/48/foo.png", png(48, 48, red));
        QCOMPARE(m_source->icon({QStringLiteral("foo"), {}}, 104, 1).size(), QSize(104, 104));
        QCOMPARE(m_source->icon({QStringLiteral("foo"), {}}, 104, 2).size(), QSize(208, 208));
        QCOMPARE(m_source->icon({QStringLiteral("foo"), {}}, 100, 1.25).size(), QSize(125, 125));
    }

    void doubledScaleTakesTheDoubledFolderAndStaysSharp() {
        QImage checker(96, 96, QImage::Format_ARGB32);
        for (int y = 0; y < 96; ++y) {
            for (int x = 0; x < 96; ++x)
                checker.setPixel(x, y, (x + y) % 2 ? green : red);
        }
        m_folder->write("icons/T/48/foo.png", png(48, 48, red));
        m_folder->write("icons/T/96/foo.png", png(96, 96, red));
        m_folder->write("icons/T/48@2/foo.png", encoded(checker, "PNG"));
        QCOMPARE(m_source->icon({QStringLiteral("foo"), {}}, 48, 2),
                 checker.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    }

    void damagedThemeFileGivesWayToTheNext() {
        m_folder->write("icons/T/48/foo.png", "damaged");
        m_folder->write("icons/T/96/foo.png", png(96, 96, green));
        QCOMPARE(color({QStringLiteral("foo"), {}}), green);
    }

    void absolutePathIsTheFileItself() {
        m_folder->write("own.png", png(8, 8, red));
        QCOMPARE(color({text("own.png"), {}}), red);
        QCOMPARE(color({text("missing.png"), {}}), QRgb(0));
    }

    void namesThatAreNotUnicodeReachTheirFile() {
        m_folder->write("plain.png", png(8, 8, red));
        const QByteArray odd = m_folder->path("caf\xe9.png");
        QCOMPARE(rename(m_folder->path("plain.png").constData(), odd.constData()), 0);
        const QRgb found = color({FileUrl::fromNativePath(odd).path(), {}});
        QCOMPARE(unlink(odd.constData()), 0);
        QCOMPARE(found, red);
    }

    void bundleResourceIsFoundWithAndWithoutItsExtension() {
        m_folder->write("A.app/Contents/Resources/whole.png", png(8, 8, red));
        m_folder->write("A.app/Contents/Resources/v1.2.icns", png(8, 8, green));
        m_folder->write("A.app/Contents/Resources/both.icns", png(8, 8, red));
        m_folder->write("A.app/Contents/Resources/both.png", png(8, 8, green));
        m_folder->write("A.app/Contents/Resources/folder/inner.png", png(8, 8, green));
        QCOMPARE(color(inBundle("whole.png")), red);
        QCOMPARE(color(inBundle("whole")), red);
        QCOMPARE(color(inBundle("v1.2")), green);
        QCOMPARE(color(inBundle("both")), red);
        QCOMPARE(color(inBundle("folder/inner")), green);
        QCOMPARE(color(inBundle("folder")), QRgb(0));
        QCOMPARE(color(inBundle("missing")), QRgb(0));
    }

    void bundleIconNeverComesFromAThemeOrFromOutside() {
        m_folder->write("icons/T/48/foo.png", png(48, 48, red));
        m_folder->write("secret.png", png(8, 8, red));
        m_folder->write("A.app.evil/secret.png", png(8, 8, red));
        m_folder->write("A.app/Contents/Resources/real.png", png(8, 8, green));
        const QByteArray resources = m_folder->path("A.app/Contents/Resources/");
        QCOMPARE(symlink(m_folder->path("secret.png").constData(), QByteArray(resources + "link.png").constData()), 0);
        QCOMPARE(symlink("../../../A.app.evil", QByteArray(resources + "evil").constData()), 0);
        QCOMPARE(symlink("real.png", QByteArray(resources + "inner.png").constData()), 0);
        QCOMPARE(color(inBundle("foo")), QRgb(0));
        QCOMPARE(color(inBundle("../../../secret.png")), QRgb(0));
        QCOMPARE(color(inBundle("link.png")), QRgb(0));
        QCOMPARE(color(inBundle("evil/secret.png")), QRgb(0));
        QCOMPARE(color({text("secret.png"), text("A.app")}), QRgb(0));
        QCOMPARE(color(inBundle("inner.png")), green);
    }

    void linkedBundleIsFollowed() {
        m_folder->write("A.app/Contents/Resources/icon.png", png(8, 8, green));
        QCOMPARE(symlink("A.app", m_folder->path("B.app").constData()), 0);
        QCOMPARE(color({QStringLiteral("icon"), text("B.app")}), green);
    }

    void senselessRequestsGiveNoPicture() {
        m_folder->write("icons/T/48/foo.png", png(48, 48, red));
        const AppIcon foo{QStringLiteral("foo"), {}};
        QVERIFY(m_source->icon({}, 48, 1).isNull());
        QVERIFY(m_source->icon(foo, 0, 1).isNull());
        QVERIFY(m_source->icon(foo, -48, 1).isNull());
        QVERIFY(m_source->icon(foo, 48, qQNaN()).isNull());
        QVERIFY(m_source->icon(foo, 48, 1e300).isNull());
        QVERIFY(m_source->icon({QStringLiteral("foo\0.png"), {}}, 48, 1).isNull());
    }

    void severalWorkersDecodeAtOnce() {
        m_folder->write("icons/T/48/a.png", png(48, 48, red));
        m_folder->write("icons/T/96/b.png", svg("<rect width='100' height='100' fill='#0f0'/>"));
        std::atomic<int> wrong = 0;
        std::vector<std::thread> workers;
        for (int worker = 0; worker < 4; ++worker) {
            workers.emplace_back([&] {
                for (int i = 0; i < 50; ++i) {
                    wrong += color({QStringLiteral("a"), {}}, 40, 1) != red ? 1 : 0;
                    wrong += color({QStringLiteral("b"), {}}, 40, 2) != green ? 1 : 0;
                    wrong += color({QStringLiteral("c"), {}}, 40, 2) != 0 ? 1 : 0;
                }
            });
        }
        for (std::thread& worker : workers)
            worker.join();
        QCOMPARE(wrong.load(), 0);
    }
};

QTEST_MAIN(FreedesktopIconSourceTest)
#include "FreedesktopIconSourceTest.moc"
