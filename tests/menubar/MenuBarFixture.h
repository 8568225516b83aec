#pragma once

#include "menubar/MenuBarExtra.h"
#include "menubar/PanelDesktop.h"
#include "support/CatalogFakes.h"
#include "support/FakeSharedApplication.h"

#include <QGuiApplication>
#include <QPainter>
#include <QQuickItem>
#include <QScreen>
#include <QTest>

namespace zelmo::test {

// Keeps what it is told, and is clicked by the test.
class FakeStatusItem : public StatusItem {
public:
    void setPainter(Painter value) override {
        painter = std::move(value);
        ++paintersSet;
    }
    void setTitle(const QString& value) override { title = value; }
    void setMenu(const QList<StatusMenuEntry>& value) override { menu = value; }
    void setClickHandler(ClickHandler value) override { click = std::move(value); }
    void setVisibility(StatusItemVisibility value) override { visibility = value; }

    QImage picture(int side) const {
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter onImage(&image);
        painter(onImage, QRectF(image.rect()));
        return image;
    }

    Painter painter;
    QString title;
    QList<StatusMenuEntry> menu;
    ClickHandler click;
    StatusItemVisibility visibility = StatusItemVisibility::hidden;
    int paintersSet = 0;
};

class FakePanelDesktop : public PanelDesktop {
public:
    bool isComposited() const override { return composited; }
    void bringToFront(QWindow& window, const QByteArray& activationToken) override {
        front = &window;
        token = activationToken;
    }
    void watch(QWindow&, PanelWatch value) override { told = std::move(value); }
    void endWatch() override { told = {}; }

    bool composited = true;
    QWindow* front = nullptr;
    QByteArray token;
    PanelWatch told;
};

// The item and its panel on fakes.
class MenuBarFixture {
public:
    MenuBarPanelWindow& open(const StatusItemClick& click = {.place = QRect(400, 0, 22, 22)}) const {
        statusItem.click(click);
        if (!extra.panel() || !extra.panel()->isVisible() || !QTest::qWaitForWindowActive(extra.panel()))
            qFatal("no panel opens");
        return *extra.panel();
    }
    // Of a type, and with a title where one is given.
    QList<QQuickItem*> items(const char* type, const QString& title = {}) const {
        QList<QQuickItem*> found;
        collect(extra.panel()->rootObject(), type, title, found);
        return found;
    }
    QQuickItem* control(const QString& title) const { return items("QQuickItem", title).value(0); }
    // In the panel, without the room around it.
    QRectF place(const QQuickItem* item) const {
        const auto* panel = extra.panel()->rootObject()->findChild<QQuickItem*>(QStringLiteral("panel"));
        return item->mapRectToItem(panel, QRectF(QPointF(), item->size()));
    }
    QPoint center(const QQuickItem* item) const {
        return item->mapRectToScene(QRectF(QPointF(), item->size())).center().toPoint();
    }

    StoreFixture store;
    FakeStatusItem statusItem;
    FakePanelDesktop desktop;
    FakeSharedApplication application;
    QRect captured;
    QImage behind;
    bool reducesMotion = false;
    MenuBarExtra extra{{.statusItem = statusItem,
                        .store = *store.store,
                        .preferences = *store.preferences,
                        .application = application,
                        .panel = {.desktop = desktop,
                                  .captureDesktop =
                                      [this](const QRect& pixels, const QScreen&) {
                                          captured = pixels;
                                          return behind;
                                      },
                                  .reducesMotion = [this] { return reducesMotion; }}}};

private:
    static void collect(QQuickItem* item, const char* type, const QString& title, QList<QQuickItem*>& found) {
        const bool isTitled = title.isNull() || item->property("title").toString() == title;
        if (item->inherits(type) && item->isVisible() && isTitled)
            found.append(item);
        for (QQuickItem* child : item->childItems())
            collect(child, type, title, found);
    }
};

} // namespace zelmo::test
