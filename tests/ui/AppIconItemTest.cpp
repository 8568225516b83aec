#include "ui/AppIconItem.h"

#include "ui/IconSource.h"

#include <QQuickWindow>
#include <QSemaphore>
#include <QTest>

using namespace zelmo;

namespace {

constexpr int side = 40;

// Paints a picture in the colour that the icon's name says, when it is let to.
class ColorSource : public IconSource {
public:
    QImage icon(const AppIcon& icon, int points, double scale) const override {
        gate.acquire();
        gate.release();
        const int pixels = static_cast<int>(points * scale);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor::fromString(icon.name));
        return image;
    }

    mutable QSemaphore gate{1};
};

// Icons side by side in a window.
class Icons {
public:
    Icons() {
        window.setColor(Qt::black);
        window.resize(300, 100);
    }
    AppIconItem& add(int x, const char* color) {
        items.push_back(std::make_unique<AppIconItem>());
        AppIconItem& item = *items.back();
        item.setParentItem(window.contentItem());
        item.setPosition({static_cast<qreal>(x), 20});
        item.setSize({side, side});
        item.setCache(&cache);
        show(item, color);
        return item;
    }
    static void show(AppIconItem& item, const char* color) {
        item.setIcon({.name = QString::fromLatin1(color), .bundlePath = {}});
    }
    QColor colorOf(const AppIconItem& item) {
        return window.grabWindow().pixelColor(static_cast<int>(item.x()) + side / 2,
                                              static_cast<int>(item.y()) + side / 2);
    }

    ColorSource source;
    IconCache cache{source};
    QQuickWindow window;
    std::vector<std::unique_ptr<AppIconItem>> items;
};

} // namespace

class AppIconItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anIconIsSeenOnceItIsDecoded() {
        Icons icons;
        icons.source.gate.acquire();
        const AppIconItem& item = icons.add(10, "red");
        icons.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&icons.window));
        QCOMPARE(icons.colorOf(item), QColor(Qt::black));
        icons.source.gate.release();
        QTRY_COMPARE(icons.colorOf(item), QColor(Qt::red));
    }

    void eachIconIsSeenInItsOwnPlace() {
        Icons icons;
        const AppIconItem& first = icons.add(10, "red");
        const AppIconItem& second = icons.add(110, "blue");
        icons.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&icons.window));
        QTRY_COMPARE(icons.cache.pendingCount(), 0);
        QCOMPARE(icons.colorOf(first), QColor(Qt::red));
        QCOMPARE(icons.colorOf(second), QColor(Qt::blue));
    }

    void anotherIconTakesThePlaceOfTheFormer() {
        Icons icons;
        AppIconItem& item = icons.add(10, "red");
        icons.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&icons.window));
        QTRY_COMPARE(icons.colorOf(item), QColor(Qt::red));
        icons.source.gate.acquire();
        Icons::show(item, "blue");
        // What the application does not show any more is gone at once.
        QCOMPARE(icons.colorOf(item), QColor(Qt::black));
        icons.source.gate.release();
        QTRY_COMPARE(icons.colorOf(item), QColor(Qt::blue));
        // This one is kept.
        Icons::show(item, "red");
        QCOMPARE(icons.colorOf(item), QColor(Qt::red));
    }

    void nobodyWaitsForAnIconThatIsNotShownAnyMore() {
        Icons icons;
        icons.source.gate.acquire();
        AppIconItem& item = icons.add(10, "red");
        QCOMPARE(icons.cache.pendingCount(), 1);
        Icons::show(item, "blue");
        QCOMPARE(icons.cache.pendingCount(), 1);
        icons.items.clear();
        QCOMPARE(icons.cache.pendingCount(), 0);
        icons.source.gate.release();
    }
};

QTEST_MAIN(AppIconItemTest)
#include "AppIconItemTest.moc"
