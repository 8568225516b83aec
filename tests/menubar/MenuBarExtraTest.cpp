#include "MenuBarFixture.h"
#include "menubar/ZelmoMenuLabel.h"

#include <QCursor>
#include <QSignalSpy>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QStringList titles(const QList<StatusMenuEntry>& menu) {
    QStringList list;
    for (const StatusMenuEntry& entry : menu)
        list.append(entry.kind == StatusMenuKind::separator ? QStringLiteral("-") : entry.title);
    return list;
}

QImage glyph(GlyphState state, int side) {
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(side / 18.0, side / 18.0);
    ZelmoGlyph(state).paint(painter, QRectF(0, 0, 18, 18));
    return image;
}

constexpr QPoint itemPlace(411, 11);

} // namespace

class MenuBarExtraTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QCursor::setPos(itemPlace); }

    void theLabelIsTheGlyphIn18Points() {
        for (const GlyphState state : {GlyphState::inactive, GlyphState::active}) {
            const ZelmoMenuLabel label(state);
            QCOMPARE(label.active(), state);
            QCOMPARE(label.image(1), glyph(state, 18));
            QCOMPARE(label.image(1).size(), QSize(18, 18));
            QCOMPARE(label.image(2).size(), QSize(36, 36));
            QCOMPARE(label.image(2), glyph(state, 36));
        }
        QVERIFY(ZelmoMenuLabel(GlyphState::active).image(1) != ZelmoMenuLabel(GlyphState::inactive).image(1));
    }

    void theLabelFillsTheMiddleOfItsPlace() {
        QImage wide(60, 18, QImage::Format_ARGB32_Premultiplied);
        wide.fill(Qt::transparent);
        {
            QPainter painter(&wide);
            ZelmoMenuLabel(GlyphState::active).paint(painter, QRectF(wide.rect()));
        }
        QCOMPARE(wide.copy(21, 0, 18, 18), glyph(GlyphState::active, 18));
        QImage nothing(4, 4, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        QPainter painter(&nothing);
        ZelmoMenuLabel(GlyphState::active).paint(painter, QRectF());
    }

    void theItemIsShownUnderItsName() {
        MenuBarFixture fixture;
        QCOMPARE(fixture.statusItem.title, QStringLiteral("Zelmo"));
        QCOMPARE(fixture.statusItem.visibility, StatusItemVisibility::visible);
        QCOMPARE(fixture.statusItem.picture(18), glyph(GlyphState::inactive, 18));
    }

    void theGlyphIsActiveWhileTheWallIsUp() {
        MenuBarFixture fixture;
        fixture.store.store->showOverlay();
        QCOMPARE(fixture.statusItem.picture(18), glyph(GlyphState::active, 18));
        fixture.store.store->hideOverlay();
        QCOMPARE(fixture.statusItem.picture(18), glyph(GlyphState::inactive, 18));
    }

    void theMenuHasWhatThePanelHas() {
        MenuBarFixture fixture;
        const auto& menu = fixture.statusItem.menu;
        const auto expected = [](const QString& first) {
            return QStringList{first,
                               QStringLiteral("-"),
                               QStringLiteral("Open At Login Later"),
                               QStringLiteral("Refresh Apps"),
                               QStringLiteral("Settings"),
                               QStringLiteral("-"),
                               QStringLiteral("Quit Zelmo")};
        };
        QCOMPARE(titles(menu), expected(QStringLiteral("Show App Wall")));
        menu[0].choose();
        QVERIFY(fixture.store.store->overlayIsVisible());
        QCOMPARE(titles(menu), expected(QStringLiteral("Hide App Wall")));
        menu[0].choose();
        QCOMPARE(titles(menu), expected(QStringLiteral("Show App Wall")));

        QCOMPARE(menu[2].kind, StatusMenuKind::checkbox);
        QCOMPARE(menu[2].mark, StatusMenuMark::off);
        menu[2].choose();
        QCOMPARE(menu[2].mark, StatusMenuMark::on);
        QVERIFY(fixture.store.preferences->value<PreferenceKey::openAtLoginLater>());
        menu[2].choose();
        QCOMPARE(menu[2].mark, StatusMenuMark::off);

        QVERIFY(fixture.store.waitForRest());
        const int scans = fixture.store.installed.scans();
        menu[3].choose();
        QTRY_COMPARE(fixture.store.installed.scans(), scans + 1);

        fixture.store.log.clear();
        menu[4].choose();
        fixture.store.log.removeOne(QStringLiteral("hide"));
        QTRY_COMPARE(fixture.store.log, QStringList{QStringLiteral("settings")});
        menu[6].choose();
        QCOMPARE(fixture.application.terminations, 1);
    }

    void aClickOpensThePanelAtTheItemWithTheKeyboard() {
        MenuBarFixture fixture;
        QVERIFY(!fixture.extra.panel());
        const MenuBarPanelWindow& panel = fixture.open({.place = QRect(400, 0, 22, 22), .activationToken = "token"});
        QCOMPARE(fixture.desktop.front, &panel);
        QCOMPARE(fixture.desktop.token, QByteArray("token"));
        QVERIFY(panel.isActive());
        QCOMPARE(panel.panelGeometry().topLeft(), QPoint(411 - 147, 22 + 6));
        QVERIFY(panel.screen()->availableGeometry().contains(panel.panelGeometry()));
    }

    void aPlaceThatIsNotToldIsThePointers_data() {
        QTest::addColumn<std::optional<QRect>>("place");
        QTest::newRow("nothing") << std::optional<QRect>();
        QTest::newRow("the origin") << std::optional(QRect(0, 0, 0, 0));
        QTest::newRow("on no screen") << std::optional(QRect(100000, -5, 0, 0));
        QTest::newRow("far beyond") << std::optional(QRect(-32767, 32767, 0, 0));
    }
    void aPlaceThatIsNotToldIsThePointers() {
        QFETCH(std::optional<QRect>, place);
        MenuBarFixture fixture;
        QCursor::setPos(500, 100);
        const MenuBarPanelWindow& panel = fixture.open({.place = place});
        QCOMPARE(panel.panelGeometry().topLeft(), QPoint(500 - 147, 100 + 6));
    }

    void aSecondClickClosesThePanel() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& panel = fixture.open();
        fixture.statusItem.click({});
        QVERIFY(!panel.isVisible());
        QVERIFY(!fixture.desktop.told.pressed);
        fixture.open();
        QVERIFY(panel.isVisible());
    }

    void escapeClosesThePanel() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& panel = fixture.open();
        QTest::keyClick(&panel, Qt::Key_Escape);
        QVERIFY(!panel.isVisible());
        QVERIFY(!fixture.desktop.told.pressed);
        fixture.open();
    }

    void losingTheFocusClosesThePanel() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& panel = fixture.open();
        const auto lost = fixture.desktop.told.focusLost;
        lost();
        QVERIFY(!panel.isVisible());
        QVERIFY(!fixture.desktop.told.focusLost);
        lost();
    }

    void aClickAfterTheFocusWentElsewhereOpensThePanel() {
        MenuBarFixture fixture;
        fixture.open();
        std::function(fixture.desktop.told.focusLost)();
        fixture.open();
    }

    void aPressOutsideClosesThePanel() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& panel = fixture.open();
        QCursor::setPos(panel.panelGeometry().center());
        fixture.desktop.told.pressed();
        QVERIFY(panel.isVisible());
        QCursor::setPos(panel.panelGeometry().bottomRight() + QPoint(5, 5));
        const auto pressed = fixture.desktop.told.pressed;
        pressed();
        QVERIFY(!panel.isVisible());
        // Told of once more, as by a press that was on its way.
        pressed();
    }

    void aPressOnTheShadowClosesThePanel() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& panel = fixture.open();
        QTest::mousePress(&panel, Qt::LeftButton, {}, QPoint(2, panel.height() / 2));
        QVERIFY(!panel.isVisible());
    }

    void theClickWhosePressClosedThePanelDoesNotOpenItAgain() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& panel = fixture.open();
        const auto pressed = fixture.desktop.told.pressed;
        pressed();
        QVERIFY(!panel.isVisible());
        QCursor::setPos(itemPlace + QPoint(2, 1));
        fixture.statusItem.click({});
        QVERIFY(!panel.isVisible());
        // The next one is another click.
        fixture.open();
    }

    void aClickAfterAPressElsewhereOpensThePanel() {
        MenuBarFixture fixture;
        const MenuBarPanelWindow& panel = fixture.open();
        QCursor::setPos(700, 500);
        const auto pressed = fixture.desktop.told.pressed;
        pressed();
        QVERIFY(!panel.isVisible());
        QCursor::setPos(itemPlace);
        fixture.open();
    }

    void theItemGoesWithTheExtra() {
        FakeStatusItem item;
        StoreFixture store;
        FakePanelDesktop desktop;
        FakeSharedApplication application;
        {
            const MenuBarExtra extra({.statusItem = item,
                                      .store = *store.store,
                                      .preferences = *store.preferences,
                                      .application = application,
                                      .panel = {.desktop = desktop}});
            item.click({});
            QVERIFY(extra.panel()->isVisible());
        }
        QCOMPARE(item.visibility, StatusItemVisibility::hidden);
        QVERIFY(!item.click);
        QVERIFY(item.menu.isEmpty());
        QVERIFY(!desktop.told.pressed);
    }
};

QTEST_MAIN(MenuBarExtraTest)
#include "MenuBarExtraTest.moc"
