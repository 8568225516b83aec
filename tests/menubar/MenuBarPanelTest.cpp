#include "MenuBarFixture.h"
#include "menubar/MenuBarMetrics.h"
#include "menubar/PanelPlateItem.h"
#include "ui/PlateItem.h"

#include <QAccessible>
#include <QEasingCurve>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QString show = QStringLiteral("Show App Wall");
const QString later = QStringLiteral("Open At Login Later");
const QString refresh = QStringLiteral("Refresh Apps");
const QString settings = QStringLiteral("Settings");
const QString quit = QStringLiteral("Quit Zelmo");

QColor white(float opacity) {
    return QColor::fromRgbF(1, 1, 1, opacity);
}

QQuickItem* childOf(const QQuickItem* item, const char* type) {
    for (QQuickItem* child : item->childItems()) {
        if (child->inherits(type))
            return child;
        if (QQuickItem* deeper = childOf(child, type))
            return deeper;
    }
    return nullptr;
}

QAccessibleInterface* accessible(QAccessibleInterface* parent, const QString& name) {
    for (int i = 0; i < parent->childCount(); ++i) {
        if (parent->child(i)->text(QAccessible::Name) == name)
            return parent->child(i);
        if (QAccessibleInterface* deeper = accessible(parent->child(i), name))
            return deeper;
    }
    return nullptr;
}

} // namespace

class MenuBarPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theControlsStandInOrderInTheMiddle() {
        MenuBarFixture fixture;
        fixture.open();
        double last = 0;
        for (const QString& title : {show, later, refresh, settings, quit}) {
            const QQuickItem* control = fixture.control(title);
            QVERIFY2(control, qPrintable(title));
            const QRectF place = fixture.place(control);
            QVERIFY(place.top() > last);
            QVERIFY2(std::abs(place.center().x() - 147) < 0.51, qPrintable(title));
            last = place.bottom();
        }
    }

    void thePanelIs294WideWithPaddingOf12() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& window = fixture.open();
        const auto* panel = window.rootObject()->findChild<QQuickItem*>(QStringLiteral("panel"));
        QCOMPARE(panel->width(), 294.0);
        QCOMPARE(window.panelGeometry().size(), panel->size().toSize());
        QCOMPARE(fixture.place(fixture.control(show)).top(), 12.0);
        QCOMPARE(panel->height() - fixture.place(fixture.control(quit)).bottom(), 12.0);
        QCOMPARE(MenuBarMetrics::defaultWidth(), 294);
        QCOMPARE(MenuBarMetrics::defaultHeight(), 260);
    }

    void separatorsAreLinesOfOnePointWith12Around() {
        MenuBarFixture fixture;
        const auto* root = fixture.open().rootObject();
        const auto lines = root->findChildren<QQuickItem*>(QStringLiteral("line"));
        QCOMPARE(lines.size(), 2);
        for (const QQuickItem* line : lines) {
            QCOMPARE(line->size(), QSizeF(294, 1));
            QCOMPARE(line->property("color").value<QColor>(), white(0.07F));
        }
        QCOMPARE(fixture.place(lines[0]).top() - fixture.place(fixture.control(show)).bottom(), 12.0);
        QCOMPARE(fixture.place(fixture.control(later)).top() - fixture.place(lines[0]).bottom(), 12.0);
        QCOMPARE(fixture.place(lines[1]).top() - fixture.place(fixture.control(settings)).bottom(), 12.0);
        QCOMPARE(fixture.place(fixture.control(quit)).top() - fixture.place(lines[1]).bottom(), 12.0);
    }

    void rowsOfTheMiddleSectionAre14Apart() {
        MenuBarFixture fixture;
        fixture.open();
        const auto distance = [&](const QString& upper, const QString& lower) {
            return fixture.place(fixture.control(lower)).top() - fixture.place(fixture.control(upper)).bottom();
        };
        QCOMPARE(distance(later, refresh), 14.0);
        QCOMPARE(distance(refresh, settings), 14.0);
    }

    void buttonsAreCapsulesAroundTheirTitles_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<float>("titleOpacity");
        QTest::addColumn<float>("fillOpacity");
        QTest::newRow("emphasized") << show << 0.96F << 0.14F;
        QTest::newRow("refresh") << refresh << 0.96F << 0.11F;
        QTest::newRow("settings") << settings << 0.96F << 0.11F;
        QTest::newRow("destructive") << quit << 0.92F << 0.11F;
    }
    void buttonsAreCapsulesAroundTheirTitles() {
        QFETCH(QString, title);
        QFETCH(float, titleOpacity);
        QFETCH(float, fillOpacity);
        MenuBarFixture fixture;
        fixture.open();
        const QQuickItem* button = fixture.control(title);
        const QQuickItem* text = childOf(button, "QQuickText");
        QCOMPARE(text->property("text").toString(), title);
        QCOMPARE(text->property("color").value<QColor>().rgba(), white(titleOpacity).rgba());
        const auto font = text->property("font").value<QFont>();
        QCOMPARE(font.pixelSize(), 15);
        QCOMPARE(font.weight(), QFont::DemiBold);
        const QRectF inside = text->mapRectToItem(button, QRectF(QPointF(), text->size()));
        QCOMPARE(inside.left(), 24.0);
        QCOMPARE(inside.top(), 10.0);
        QCOMPARE(button->width() - inside.right(), 24.0);
        QCOMPARE(button->height() - inside.bottom(), 10.0);

        const auto* fill = button->findChild<PlateItem*>(QStringLiteral("fill"));
        QCOMPARE(fill->size(), button->size());
        QCOMPARE(fill->style().fill.stops, QList<QColor>{white(fillOpacity)});
        QCOMPARE(fill->style().radius, button->height() / 2);
        const auto* outline = button->findChild<PlateItem*>(QStringLiteral("outline"));
        QCOMPARE(outline->style().stroke.stops, QList<QColor>{white(0.1F)});
        QCOMPARE(outline->style().strokeWidth, 1.0);
        // The middle of the line runs along the edge.
        QCOMPARE(outline->size(), button->size() + QSizeF(1, 1));
        QCOMPARE(outline->position(), QPointF(-0.5, -0.5));
    }

    void aPressedButtonGivesWayAndFades() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const QQuickItem* button = fixture.control(refresh);
        QCOMPARE(button->scale(), 1.0);
        QCOMPARE(button->opacity(), 1.0);
        QCOMPARE(button->transformOrigin(), QQuickItem::Center);
        QTest::mousePress(&window, Qt::LeftButton, {}, fixture.center(button));
        QTRY_COMPARE(button->scale(), 0.985);
        QTRY_COMPARE(button->opacity(), 0.88);
        QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(1, 1));
        QTRY_COMPARE(button->scale(), 1.0);
        QTRY_COMPARE(button->opacity(), 1.0);
    }

    void thePressTakes140MillisecondsAndEasesOut() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const QQuickItem* button = fixture.control(refresh);
        // An animation is made when it is first needed.
        QTest::mousePress(&window, Qt::LeftButton, {}, fixture.center(button));
        int found = 0;
        for (const QObject* behavior : button->findChildren<QObject*>()) {
            if (!behavior->inherits("QQuickBehavior"))
                continue;
            ++found;
            const auto* animation = behavior->property("animation").value<QObject*>();
            QVERIFY(animation);
            QCOMPARE(animation->property("duration").toInt(), 140);
            const auto easing = animation->property("easing").value<QEasingCurve>();
            QCOMPARE(easing.toCubicSpline(), (QList<QPointF>{{0, 0}, {0.58, 1}, {1, 1}}));
        }
        QCOMPARE(found, 2);
    }

    void theToggleIsAtMost188WideWithADimTitle() {
        MenuBarFixture fixture;
        fixture.open();
        const QQuickItem* toggle = fixture.control(later);
        QCOMPARE(toggle->width(), 188.0);
        const QQuickItem* text = childOf(toggle, "QQuickText");
        QCOMPARE(text->property("color").value<QColor>().rgba(), white(0.7F).rgba());
        QCOMPARE(text->property("font").value<QFont>().pixelSize(), 15);
        QCOMPARE(text->property("font").value<QFont>().weight(), QFont::DemiBold);
        QVERIFY(!text->property("truncated").toBool());
        QVERIFY(text->mapRectToItem(toggle, QRectF(QPointF(), text->size())).right() <= 188);
        const auto* box = toggle->findChild<PlateItem*>(QStringLiteral("box"));
        QCOMPARE(box->style().stroke.stops, QList<QColor>{white(0.72F)});
    }

    void theToggleStoresThePreferenceAndNothingElse() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        fixture.store.log.clear();
        QTest::mouseClick(&window, Qt::LeftButton, {}, fixture.center(fixture.control(later)));
        QVERIFY(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>());
        QVERIFY(fixture.control(later)->property("isOn").toBool());
        QVERIFY(fixture.store.preferences->flush());
        QCOMPARE(fixture.store.storage.values, (PreferenceValues{{QStringLiteral("openAtLoginLater"), true}}));
        QCOMPARE(fixture.store.log, QStringList());
        QTest::mouseClick(&window, Qt::LeftButton, {}, fixture.center(fixture.control(later)));
        QVERIFY(!fixture.store.preferences->value<PreferenceKey::openAtLoginLater>());
        // Changed elsewhere, as in the settings.
        fixture.store.preferences->setValue<PreferenceKey::openAtLoginLater>(true);
        QVERIFY(fixture.control(later)->property("isOn").toBool());
    }

    void buttonsAct() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const auto click = [&](const QString& title) {
            fixture.store.log.clear();
            QTest::mouseClick(&window, Qt::LeftButton, {}, fixture.center(fixture.control(title)));
        };
        click(show);
        QCOMPARE(fixture.store.log, QStringList{QStringLiteral("show")});
        click(QStringLiteral("Hide App Wall"));
        QCOMPARE(fixture.store.log, QStringList{QStringLiteral("hide")});
        click(settings);
        fixture.store.log.removeOne(QStringLiteral("hide"));
        QTRY_COMPARE(fixture.store.log, QStringList{QStringLiteral("settings")});
        QVERIFY(fixture.store.waitForRest());
        const int scans = fixture.store.installed.scans();
        click(refresh);
        QTRY_COMPARE(fixture.store.installed.scans(), scans + 1);
        QCOMPARE(fixture.application.terminations, 0);
        click(quit);
        QCOMPARE(fixture.application.terminations, 1);
    }

    void settingsPutTheWallAwayFirst() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        fixture.store.store->showOverlay();
        fixture.store.log.clear();
        QTest::mouseClick(&window, Qt::LeftButton, {}, fixture.center(fixture.control(settings)));
        QTRY_COMPARE(fixture.store.log, (QStringList{QStringLiteral("hide"), QStringLiteral("settings")}));
    }

    void theFirstTitleFollowsTheWall() {
        MenuBarFixture fixture;
        fixture.open();
        const QString hide = QStringLiteral("Hide App Wall");
        QVERIFY(fixture.control(show));
        fixture.store.store->showOverlay();
        QVERIFY(!fixture.control(show));
        QVERIFY(fixture.control(hide));
        QCOMPARE(accessible(QAccessible::queryAccessibleInterface(fixture.extra.panel()), hide)->role(),
                 QAccessible::Button);
        fixture.store.store->hideOverlay();
        QVERIFY(fixture.control(show));
    }

    void keysMoveBetweenTheControlsAndAct() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const auto focused = [&] { return window.activeFocusItem()->property("title").toString(); };
        QCOMPARE(focused(), show);
        for (const QString& title : {later, refresh, settings, quit, show}) {
            QTest::keyClick(&window, Qt::Key_Tab);
            QCOMPARE(focused(), title);
        }
        for (const QString& title : {quit, settings}) {
            QTest::keyClick(&window, Qt::Key_Backtab, Qt::ShiftModifier);
            QCOMPARE(focused(), title);
        }
        QTest::keyClick(&window, Qt::Key_Up);
        QCOMPARE(focused(), refresh);
        QTest::keyClick(&window, Qt::Key_Up);
        QCOMPARE(focused(), later);
        QTest::keyClick(&window, Qt::Key_Space);
        QVERIFY(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>());
        QTest::keyClick(&window, Qt::Key_Up);
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(fixture.store.log.last(), QStringLiteral("show"));
        QTest::keyClick(&window, Qt::Key_Enter);
        QCOMPARE(fixture.store.log.last(), QStringLiteral("hide"));
        QTest::keyClick(&window, Qt::Key_Down);
        QCOMPARE(focused(), later);
    }

    void theFocusRingShowsOnceKeysAreUsed() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const auto ring = [&](const QString& title) {
            for (const QQuickItem* child : fixture.control(title)->childItems()) {
                if (child->property("cornerRadius").isValid())
                    return child->isVisible();
            }
            qFatal("a control without a ring");
        };
        QVERIFY(!ring(show));
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(ring(later));
        QVERIFY(!ring(show));
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(ring(refresh));
        QVERIFY(!ring(later));
        // Opened anew, it begins anew.
        QTest::keyClick(&window, Qt::Key_Escape);
        fixture.open();
        QCOMPARE(window.activeFocusItem()->property("title").toString(), show);
        QVERIFY(!ring(show));
    }

    void altSuperSpaceActsAsTheFirstButton() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        QTest::keyClick(&window, Qt::Key_Tab);
        const bool stored = fixture.store.preferences->value<PreferenceKey::openAtLoginLater>();
        QTest::keyClick(&window, Qt::Key_Space, Qt::AltModifier | Qt::MetaModifier);
        QVERIFY(fixture.store.store->overlayIsVisible());
        QCOMPARE(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>(), stored);
        QTest::keyClick(&window, Qt::Key_Space, Qt::AltModifier | Qt::MetaModifier);
        QVERIFY(!fixture.store.store->overlayIsVisible());
        for (const auto other : {Qt::AltModifier, Qt::MetaModifier, Qt::ControlModifier}) {
            QTest::keyClick(&window, Qt::Key_Space, other);
            QVERIFY(!fixture.store.store->overlayIsVisible());
            QCOMPARE(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>(), stored);
        }
    }

    void aKeyThatIsHeldActsOnce() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        for (const int key : {int(Qt::Key_Return), int(Qt::Key_Space)}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QKeyEvent repeat(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
            const bool before = fixture.store.store->overlayIsVisible();
            QCoreApplication::sendEvent(&window, &press);
            QCoreApplication::sendEvent(&window, &repeat);
            QCOMPARE(fixture.store.store->overlayIsVisible(), !before);
        }
    }

    void controlCommaOpensTheSettings() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        QTest::keyClick(&window, Qt::Key_Comma);
        QTest::keyClick(&window, Qt::Key_Comma, Qt::ControlModifier);
        QTRY_COMPARE(fixture.store.log, QStringList{QStringLiteral("settings")});
    }

    void screenReadersFindEveryControl() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&window);
        for (const QString& title : {show, refresh, settings, quit}) {
            QAccessibleInterface* button = accessible(root, title);
            QVERIFY2(button, qPrintable(title));
            QCOMPARE(button->role(), QAccessible::Button);
            QVERIFY(button->state().focusable);
            QCOMPARE(bool(button->state().focused), title == show);
        }
        QAccessibleInterface* toggle = accessible(root, later);
        QCOMPARE(toggle->role(), QAccessible::CheckBox);
        QVERIFY(toggle->state().checkable);
        QVERIFY(!toggle->state().checked);
        toggle->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(toggle->state().checked);
        QVERIFY(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>());
        accessible(root, quit)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.application.terminations, 1);
    }

    void theSurfaceIsMadeOfWhatLiesBehind() {
        MenuBarFixture fixture;
        fixture.behind = QImage(294, 272, QImage::Format_RGB32);
        fixture.behind.fill(QColor(200, 40, 40));
        const MenuBarPanelWindow& window = fixture.open();
        QCOMPARE(fixture.captured, window.panelGeometry());
        const auto* plate = window.rootObject()->findChild<PanelPlateItem*>();
        QCOMPARE(plate->edge(), PanelEdge::blended);
        QCOMPARE(plate->behind(), fixture.behind);
        QVERIFY(window.mask().isEmpty());
        QVERIFY(plate->margin() > 0);
        QVERIFY(window.requestedFormat().hasAlpha());
    }

    void withoutACompositorTheWindowEndsAtTheCorners() {
        MenuBarFixture fixture;
        fixture.desktop.composited = false;
        const MenuBarPanelWindow& window = fixture.open();
        QCOMPARE(window.size(), window.panelGeometry().size());
        QVERIFY(!window.mask().contains(QPoint(0, 0)));
        QVERIFY(!window.mask().contains(QPoint(293, window.height() - 1)));
        QVERIFY(window.mask().contains(QPoint(24, 0)));
        QVERIFY(window.mask().contains(QPoint(0, 24)));
        QVERIFY(window.mask().contains(QPoint(293, 24)));
    }
};

QTEST_MAIN(MenuBarPanelTest)
#include "MenuBarPanelTest.moc"
