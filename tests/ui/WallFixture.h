#pragma once

#include "overlay/OverlayWindow.h"
#include "support/CatalogFakes.h"
#include "support/FakeMotion.h"
#include "support/FixedFontFaces.h"
#include "ui/AppIconItem.h"
#include "ui/DesktopCapture.h"
#include "ui/IconSource.h"
#include "ui/SceneReading.h"
#include "ui/WallContent.h"
#include "ui/WallScene.h"

#include <QQuickItem>
#include <QScreen>
#include <QTest>

namespace zelmo::test {

class BlueIconSource : public IconSource {
public:
    QImage icon(const AppIcon&, int points, double scale) const override {
        const int pixels = static_cast<int>(points * scale);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::blue);
        return image;
    }
};

inline QList<FoundApplication> applications(int count) {
    QList<FoundApplication> list;
    for (int i = 0; i < count; ++i)
        list.append(found(QStringLiteral("App %1").arg(i, 5, 10, QLatin1Char('0')),
                          i % 2 ? "public.app-category.developer-tools" : nullptr));
    return list;
}

inline void collect(QQuickItem* item, const char* type, QList<QQuickItem*>& found) {
    if (item->inherits(type) && item->isVisible())
        found.append(item);
    for (QQuickItem* child : item->childItems())
        collect(child, type, found);
}

// A desktop that is the same wherever one looks, and that can be hidden.
class PlainDesktop : public DesktopCapture {
public:
    QImage capture(const QScreen& screen) override {
        ++captures;
        if (!color.isValid())
            return {};
        QImage image((QSizeF(screen.size()) * screen.devicePixelRatio()).toSize(), QImage::Format_RGB32);
        image.fill(color);
        return image;
    }

    QColor color;
    int captures = 0;
};

// The wall in a window of its own, on fakes.
class WallFixture {
public:
    explicit WallFixture(int count, const PreferenceValues& values = {}, QSize size = {1920, 1080})
        : store(applications(count), values), icons(iconSource) {
        content.load(window);
        window.resize(size);
        window.show();
        window.requestActivate();
        if (QTest::qWaitForWindowExposed(&window))
            settle();
    }

    // Everything is where it belongs, and drawn.
    QImage settle() { return window.grabWindow(); }

    QList<QQuickItem*> items(const char* type) {
        QList<QQuickItem*> list;
        collect(window.rootItem(), type, list);
        return list;
    }
    // Texts in sight with this content.
    QList<QQuickItem*> texts(const QString& text) {
        QList<QQuickItem*> list = items("QQuickText");
        list.removeIf([&](const QQuickItem* item) { return item->property("text").toString() != text; });
        return list;
    }
    // The button in sight with this name for screen readers.
    QQuickItem* button(const char* title) {
        QList<QQuickItem*> list;
        collect(window.rootItem(), "QQuickItem", list);
        list.removeIf([&](const QQuickItem* item) {
            return item->property("title").toString() != QLatin1StringView(title) ||
                   !item->property("helpText").isValid();
        });
        return list.value(0);
    }
    void press(const char* title) {
        settle();
        QQuickItem* item = button(title);
        QVERIFY2(item, title);
        QTest::mouseClick(&window, Qt::LeftButton, {}, place(item).center().toPoint());
    }
    QRectF place(const QQuickItem* item) {
        return item->mapRectToScene(QRectF(QPointF(0, 0), QSizeF(item->width(), item->height())));
    }
    // The one item in sight of this type, or of this type with this name or text.
    QQuickItem* item(const char* type) {
        const QList<QQuickItem*> list = items(type);
        return list.size() == 1 ? list[0] : nullptr;
    }
    QQuickItem* text(const char* text) {
        const QList<QQuickItem*> list = texts(QString::fromUtf8(text));
        return list.size() == 1 ? list[0] : nullptr;
    }
    QQuickItem* panel() { return item("zelmo::MaterialItem"); }
    QQuickItem* searchField() { return item("QQuickTextInput"); }
    QQuickItem* searchRow() { return searchField()->parentItem(); }
    QQuickItem* grid() { return item("zelmo::CardGrid"); }
    // What scrolls the cards.
    QQuickItem* area() { return grid()->parentItem()->parentItem(); }
    QQuickItem* chip(const char* title) {
        for (QQuickItem* item : items("zelmo::PlateItem")) {
            if (item->property("isMostUsed").isValid() && item->property("title").toString() == QLatin1String(title))
                return item;
        }
        return nullptr;
    }
    QQuickItem* card(const QString& name) {
        for (QQuickItem* item : grid()->childItems()) {
            if (item->isVisible() && item->property("name").toString() == name)
                return item;
        }
        return nullptr;
    }
    // Of the application of this number.
    QQuickItem* card(int number) { return card(QStringLiteral("App %1").arg(number, 5, 10, QLatin1Char('0'))); }
    // What a part of the wall consists of, in sight.
    static QQuickItem* part(QQuickItem* whole, const char* type) {
        QList<QQuickItem*> list;
        collect(whole, type, list);
        return list.size() == 1 ? list[0] : nullptr;
    }
    static QQuickItem* textIn(QQuickItem* whole, const QString& text) {
        QList<QQuickItem*> list;
        collect(whole, "QQuickText", list);
        list.removeIf([&](const QQuickItem* item) { return item->property("text").toString() != text; });
        return list.size() == 1 ? list[0] : nullptr;
    }
    void click(QPointF place) { QTest::mouseClick(&window, Qt::LeftButton, {}, place.toPoint()); }
    void click(const QQuickItem* item) { click(place(item).center()); }
    bool waitForCards(int count) {
        return QTest::qWaitFor([&] { return items("zelmo::AppIconItem").size() == count; });
    }

    StoreFixture store;
    FixedFontFaces faces;
    BlueIconSource iconSource;
    IconCache icons;
    PlainDesktop desktop;
    FakeMotion motion;
    WallScene scene;
    WallContent content{{.scene = scene,
                         .store = *store.store,
                         .preferences = *store.preferences,
                         .fontFaces = faces,
                         .icons = icons,
                         .desktopCapture = desktop,
                         .motion = motion}};
    OverlayWindow window;
};

} // namespace zelmo::test
