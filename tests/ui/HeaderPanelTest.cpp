#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

const PreferenceValues onBlack{{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("customColor")},
                               {QStringLiteral("launcherBackgroundRed"), 0.0},
                               {QStringLiteral("launcherBackgroundGreen"), 0.0},
                               {QStringLiteral("launcherBackgroundBlue"), 0.0}};
const PreferenceValues onWhite{{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("customColor")},
                               {QStringLiteral("launcherBackgroundRed"), 1.0},
                               {QStringLiteral("launcherBackgroundGreen"), 1.0},
                               {QStringLiteral("launcherBackgroundBlue"), 1.0}};

// Neither the first text colour nor all of one component.
const PreferenceValues greenText{{QStringLiteral("launcherTextRed"), 0.2},
                                 {QStringLiteral("launcherTextGreen"), 0.8},
                                 {QStringLiteral("launcherTextBlue"), 0.4}};

QString green(double opacity) {
    return said(rgb(0.2, 0.8, 0.4, opacity));
}

constexpr auto browsing = "Colorful launchpad for your Mac";
constexpr auto editing = "Select apps to hide from the launcher";

} // namespace

class HeaderPanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itIsAtMost1440WideInTheMiddleOfTheWall() {
        WallFixture wide(0);
        QCOMPARE(wide.place(wide.panel()).topLeft(), QPointF(240, 24));
        QCOMPARE(wide.panel()->width(), 1440.0);
        WallFixture narrow(0, {}, {1000, 700});
        QCOMPARE(narrow.place(narrow.panel()).topLeft(), QPointF(34, 24));
        QCOMPARE(narrow.panel()->width(), 932.0);
    }

    void itIsAPaneOfMaterialWithAVeilAndAnOutline() {
        WallFixture fixture(0);
        const QQuickItem* panel = fixture.panel();
        QCOMPARE(number(panel, "radius"), 32.0);
        QCOMPARE(shadow(panel), QStringLiteral("0.14 24 10"));
        const QList<QQuickItem*> plates = platesIn(panel);
        QCOMPARE(plates.size(), 1);
        QCOMPARE(fixture.place(plates[0]), fixture.place(panel));
        QCOMPARE(number(plates[0], "radius"), 32.0);
        QCOMPARE(fill(plates[0]), said({whiteAt(0.08), whiteAt(0.03)}));
        QCOMPARE(outline(plates[0]), said(whiteAt(0.13)));
        QCOMPARE(number(plates[0], "strokeWidth"), 1.0);
    }

    void theVeilGetsThinnerFromTopToBottom() {
        WallFixture fixture(0, onBlack);
        const QImage wall = fixture.settle();
        const QRect panel = fixture.place(fixture.panel()).toRect();
        const int x = panel.left() + 200;
        // The same plain colour shows through everywhere, so the top tells what is to be seen at the bottom.
        const QColor top = wall.pixelColor(x, panel.top() + 2);
        const QColor bottom = wall.pixelColor(x, panel.bottom() - 2);
        const QColor material =
            rgb((top.redF() - 0.08) / 0.92, (top.greenF() - 0.08) / 0.92, (top.blueF() - 0.08) / 0.92);
        QVERIFY2(isNear(bottom, over(material, whiteAt(0.03))), qPrintable(top.name() + bottom.name()));
        QVERIFY(top.red() > bottom.red() + 8);
        // As far from one side as from the other, it is the same.
        QVERIFY(isNear(wall.pixelColor(panel.right() - 200, panel.top() + 2), top));
        // The outermost pixel has the outline over it.
        QVERIFY(isNear(wall.pixelColor(x, panel.top()), over(top, whiteAt(0.13))));
        QVERIFY(isNear(wall.pixelColor(x, panel.bottom()), over(bottom, whiteAt(0.13))));
    }

    void theShadowFallsDownwards() {
        WallFixture fixture(0, onWhite);
        const QImage wall = fixture.settle();
        const QRect panel = fixture.place(fixture.panel()).toRect();
        const int x = panel.center().x();
        // Half of it is left ten points below the panel, where its edge is.
        const int edge =
            (wall.pixelColor(x, panel.bottom() + 10).red() + wall.pixelColor(x, panel.bottom() + 11).red()) / 2;
        QVERIFY2(std::abs(edge - 237) <= 1, qPrintable(QString::number(edge)));
        // Its radius is two standard deviations.
        QVERIFY(std::abs(wall.pixelColor(x, panel.bottom() + 10 + 12).red() - 249) <= 1);
        QVERIFY(wall.pixelColor(x, panel.top() - 20).red() >= 254);
        QCOMPARE(wall.pixelColor(x, panel.bottom() + 10 + 50), QColor(Qt::white));
    }

    void itsPartsStand24And18WithinIt() {
        WallFixture fixture(0);
        const QRectF panel = fixture.place(fixture.panel());
        const QRectF titles = fixture.place(fixture.item("zelmo::ZelmoGlyphItem")->parentItem());
        const QRectF search = fixture.place(fixture.searchRow());
        const QRectF chip = fixture.place(fixture.chip("Most Used"));
        QCOMPARE(titles.topLeft(), panel.topLeft() + QPointF(24, 18));
        QCOMPARE(titles.right(), panel.right() - 24);
        QCOMPARE(search.left(), panel.left() + 24);
        QCOMPARE(search.right(), panel.right() - 24);
        QVERIFY(search.top() > titles.bottom());
        QCOMPARE(chip.left(), panel.left() + 24);
        QCOMPARE(chip.top(), search.bottom() + 18);
        QCOMPARE(chip.bottom(), panel.bottom() - 18);
    }

    void theTitleRowHasGlyphTitlesAndCloseButton() {
        WallFixture fixture(0);
        const QRectF panel = fixture.place(fixture.panel());
        const QRectF glyph = fixture.place(fixture.item("zelmo::ZelmoGlyphItem"));
        const QRectF title = fixture.place(fixture.text("Zelmo"));
        const QRectF subtitle = fixture.place(fixture.text(browsing));
        const QRectF close = fixture.place(fixture.button("Close"));
        QCOMPARE(glyph.size(), QSizeF(30, 30));
        QCOMPARE(glyph.left(), panel.left() + 24);
        QCOMPARE(title.left(), glyph.right() + 16);
        QCOMPARE(subtitle.left(), title.left());
        QCOMPARE(subtitle.top(), title.bottom() + 2);
        QCOMPARE(close.size(), QSizeF(32, 32));
        QCOMPARE(close.right(), panel.right() - 24);
        QVERIFY(title.right() <= close.left() - 16);
    }

    void titlesFollowTheSettings() {
        WallFixture fixture(0, greenText);
        const QQuickItem* title = fixture.text("Zelmo");
        const QQuickItem* subtitle = fixture.text(browsing);
        QCOMPARE(letters(title), QStringLiteral("32 800"));
        QCOMPARE(ink(title), green(0.95));
        QCOMPARE(letters(subtitle), QStringLiteral("12 600"));
        QCOMPARE(ink(subtitle), green(0.48));
        QCOMPARE(fontOf(subtitle).capitalization(), QFont::AllUppercase);
        QVERIFY(hasLetterSpacing(subtitle, 1.2));
        fixture.store.preferences->setValue<PreferenceKey::titleFontSize>(45);
        fixture.store.preferences->setValue<PreferenceKey::subtitleFontSize>(17);
        fixture.store.preferences->setValue<PreferenceKey::launcherFontStyle>(QStringLiteral("techno"));
        QCOMPARE(letters(title), QStringLiteral("45 800"));
        QCOMPARE(letters(subtitle), QStringLiteral("17 800"));
        QVERIFY(hasLetterSpacing(subtitle, 1.4));
    }

    void theSubtitleSaysWhatAClickDoes() {
        WallFixture fixture(0);
        QVERIFY(fixture.text(browsing));
        QVERIFY(!fixture.text(editing));
        fixture.store.store->setIsEditingApps(true);
        QVERIFY(!fixture.text(browsing));
        QVERIFY(fixture.text(editing));
        QCOMPARE(fontOf(fixture.text(editing)).capitalization(), QFont::AllUppercase);
    }

    void theCloseButtonIsAFaintCircleWithACross() {
        WallFixture fixture(0, greenText);
        QQuickItem* close = fixture.button("Close");
        QCOMPARE(number(close, "radius"), 16.0);
        QCOMPARE(fill(close), said(whiteAt(0.1)));
        QQuickItem* symbol = WallFixture::part(close, "zelmo::SymbolItem");
        QVERIFY(symbol);
        QCOMPARE(symbol->property("name").toString(), QStringLiteral("xmark"));
        QCOMPARE(letters(symbol), QStringLiteral("12 700"));
        QCOMPARE(ink(symbol), green(0.78));
        QVERIFY(isCentred(fixture.place(symbol), fixture.place(close)));
    }

    void theSearchRowIsPaddedAndCentred() {
        WallFixture fixture(0);
        const QRectF row = fixture.place(fixture.searchRow());
        QQuickItem* symbol = nullptr;
        for (QQuickItem* candidate : fixture.items("zelmo::SymbolItem")) {
            if (candidate->property("name").toString() == QLatin1String("magnifyingglass"))
                symbol = candidate;
        }
        QVERIFY(symbol);
        const QQuickItem* badge = symbol->parentItem();
        const QRectF badgePlace = fixture.place(badge);
        const QRectF field = fixture.place(fixture.searchField());
        const QRectF select = fixture.place(fixture.button("Select"));
        const QRectF settings = fixture.place(fixture.button("Settings"));
        QCOMPARE(badgePlace.size(), QSizeF(28, 28));
        QCOMPARE(badgePlace.left(), row.left() + 14);
        QCOMPARE(field.left(), badgePlace.right() + 10);
        QCOMPARE(select.left(), field.right() + 10);
        QCOMPARE(settings.left(), select.right() + 10);
        QCOMPARE(settings.right(), row.right() - 14);
        QCOMPARE(settings.top(), row.top() + 12);
        QCOMPARE(settings.bottom(), row.bottom() - 12);
        QCOMPARE(badgePlace.center().y(), row.center().y());
        QVERIFY(std::abs(field.center().y() - row.center().y()) <= 0.5);

        QCOMPARE(number(badge, "radius"), 14.0);
        QCOMPARE(fill(badge), said({rgb(0.48, 0.82, 1), rgb(0.93, 0.48, 0.92), rgb(1, 0.74, 0.38)}));
        QCOMPARE(letters(symbol), QStringLiteral("13 900"));
        QCOMPARE(ink(symbol), said(whiteAt(1)));
        QVERIFY(isCentred(fixture.place(symbol), badgePlace));
    }

    void theSearchRowHasAColorWashOnAFaintPlate() {
        WallFixture fixture(0);
        const QQuickItem* row = fixture.searchRow();
        QCOMPARE(number(row, "radius"), 18.0);
        QCOMPARE(fill(row), said(whiteAt(0.1)));
        const QQuickItem* wash = platesIn(row).value(0);
        QVERIFY(wash);
        QCOMPARE(fixture.place(wash), fixture.place(row));
        QCOMPARE(number(wash, "radius"), 18.0);
        QCOMPARE(outline(wash), said(whiteAt(0.14)));
        QCOMPARE(number(wash, "strokeWidth"), 1.0);
        const auto colors = wash->property("colors").value<QList<QColor>>();
        QCOMPARE(colors.size(), 3);
        QCOMPARE(said(colors.first(2)), said({rgb(0.37, 0.78, 1, 0.13), rgb(0.98, 0.47, 0.7, 0.12)}));
        // The last one is as faint as the others.
        QCOMPARE(said(rgb(colors[2].redF(), colors[2].greenF(), colors[2].blueF())), said(rgb(1, 0.82, 0.34)));
        QVERIFY(colors[2].alphaF() > 0 && colors[2].alphaF() <= 0.13F);
    }

    void theSearchFieldFollowsTheSettings() {
        WallFixture fixture(0, greenText);
        const QQuickItem* field = fixture.searchField();
        QVERIFY(fixture.text("Search apps"));
        QCOMPARE(letters(field), QStringLiteral("18 500"));
        QCOMPARE(letters(fixture.text("Search apps")), QStringLiteral("18 500"));
        QCOMPARE(ink(field), green(0.92));
        fixture.store.preferences->setValue<PreferenceKey::searchFontSize>(27);
        QCOMPARE(letters(field), QStringLiteral("27 500"));
    }

    void theSearchFieldAndTheStoreHaveTheSameText() {
        WallFixture fixture(0);
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
        QTest::keyClick(&fixture.window, 'n');
        QCOMPARE(fixture.store.store->searchText(), QStringLiteral("n"));
        QVERIFY(!fixture.text("Search apps"));
        fixture.store.store->setSearchText(QStringLiteral("mail"));
        QCOMPARE(fixture.searchField()->property("text").toString(), QStringLiteral("mail"));
        QTest::keyClick(&fixture.window, 's');
        QCOMPARE(fixture.store.store->searchText(), QStringLiteral("mails"));
        fixture.store.store->setSearchText({});
        QCOMPARE(fixture.searchField()->property("text").toString(), QString());
        QVERIFY(fixture.text("Search apps"));
    }
};

QTEST_MAIN(HeaderPanelTest)
#include "HeaderPanelTest.moc"
