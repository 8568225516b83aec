#include "ui/IconCache.h"
#include "ui/IconSource.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace zelmo;

namespace {

// Paints a picture in the colour that the icon's name says, when it is let to.
class FakeIconSource : public IconSource {
public:
    QImage icon(const AppIcon& icon, int points, double scale) const override {
        asked.release();
        gate.acquire();
        {
            const QMutexLocker guard(&lock);
            decoded.append(icon.name);
        }
        if (icon.name == QLatin1StringView("none"))
            return {};
        const int pixels = static_cast<int>(points * scale);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor::fromString(icon.name));
        return image;
    }

    mutable QSemaphore asked; // as often as it was
    mutable QSemaphore gate{1000};
    mutable QMutex lock;
    mutable QStringList decoded;
};

IconRequest request(const char* name, double scale = 1) {
    return {.icon = {.name = QString::fromLatin1(name), .bundlePath = {}}, .points = 104, .scale = scale};
}

} // namespace

class IconCacheTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPictureArrivesWithItsShadowAtTheScreensScale() {
        const FakeIconSource source;
        IconCache cache(source);
        for (const double scale : {1.0, 2.0, 1.5}) {
            QSignalSpy available(&cache, &IconCache::available);
            QVERIFY(cache.find(request("red", scale)).isNull());
            cache.request(request("red", scale));
            QTRY_COMPARE(available.count(), 1);
            const QImage picture = cache.find(request("red", scale));
            const int margin = IconCache::margin(scale);
            const int side = static_cast<int>(104 * scale);
            QCOMPARE(picture.size(), QSize(side + 2 * margin, side + 2 * margin));
            QCOMPARE(picture.pixelColor(margin, margin), QColor(Qt::red));
            QCOMPARE(picture.pixelColor(margin + side - 1, margin + side - 1), QColor(Qt::red));
            // The shadow falls below the picture, not above it.
            QVERIFY(picture.pixelColor(margin + side / 2, margin + side + 1).alpha() > 8);
            QVERIFY(picture.pixelColor(margin + side / 2, margin + side + 1).alpha() <= 36);
            QCOMPARE(picture.pixelColor(margin + side / 2, 0).alpha(), 0);
            QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
        }
    }

    void anIconThatCannotBeDrawnShowsTheFallback() {
        const FakeIconSource source;
        IconCache cache(source);
        cache.request(request("none"));
        QTRY_VERIFY(!cache.find(request("none")).isNull());
        QVERIFY(cache.find(request("none")).pixelColor(IconCache::margin(1) + 52, IconCache::margin(1) + 52).alpha() >
                200);
    }

    void whatNobodyWaitsForIsNotDecoded() {
        const FakeIconSource source;
        source.gate.acquire(1000);
        IconCache cache(source);
        for (const char* name : {"red", "green", "blue", "white"})
            cache.request(request(name));
        cache.request(request("blue"));
        cache.cancel(request("blue"));
        cache.cancel(request("white"));
        QCOMPARE(cache.pendingCount(), 3);
        source.gate.release(1000);
        QTRY_COMPARE(cache.pendingCount(), 0);
        QVERIFY(!cache.find(request("blue")).isNull());
        QVERIFY(!source.decoded.contains(QStringLiteral("white")));
        QCOMPARE(source.decoded.size(), 3);
    }

    // The frame that asks has the processors to itself.
    void decodingBeginsWhenTheFrameIsDrawn() {
        const FakeIconSource source;
        IconCache cache(source);
        cache.request(request("red"));
        QVERIFY(!source.asked.tryAcquire(1, 40));
        cache.begin();
        // No event is handled meanwhile, so nothing else has begun it.
        QVERIFY(source.asked.tryAcquire(1, 15000));
        QTRY_VERIFY(!cache.find(request("red")).isNull());
    }

    void aRequestWithoutAFrameIsDecodedAllTheSame() {
        const FakeIconSource source;
        IconCache cache(source);
        cache.request(request("red"));
        QTRY_VERIFY(!cache.find(request("red")).isNull());
    }

    void oneDecodingServesAllWhoWait() {
        const FakeIconSource source;
        IconCache cache(source);
        for (int i = 0; i < 5; ++i)
            cache.request(request("red"));
        QTRY_COMPARE(cache.pendingCount(), 0);
        QCOMPARE(source.decoded.size(), 1);
    }

    void memoryStaysWithinTheLimit() {
        const FakeIconSource source;
        const qsizetype one = qsizetype{4} * (104 + 2 * IconCache::margin(1)) * (104 + 2 * IconCache::margin(1));
        IconCache cache(source, 3 * one);
        for (const char* name : {"red", "green", "blue", "white", "black"}) {
            cache.request(request(name));
            QTRY_COMPARE(cache.pendingCount(), 0);
        }
        QVERIFY(cache.find(request("red")).isNull());
        QVERIFY(cache.find(request("green")).isNull());
        QVERIFY(!cache.find(request("blue")).isNull());
        QVERIFY(!cache.find(request("black")).isNull());
    }

    void aCacheCanGoWhileItDecodes() {
        const FakeIconSource source;
        for (int i = 0; i < 30; ++i) {
            IconCache cache(source);
            for (const char* name : {"red", "green", "blue"})
                cache.request(request(name));
        }
    }
};

QTEST_GUILESS_MAIN(IconCacheTest)
#include "IconCacheTest.moc"
