#include "ui/WallFixture.h"

#include <QSignalSpy>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// Neither the first text colour nor all of one component.
const PreferenceValues greenText{{QStringLiteral("launcherTextRed"), 0.2},
                                 {QStringLiteral("launcherTextGreen"), 0.8},
                                 {QStringLiteral("launcherTextBlue"), 0.4}};

QString green(double opacity) {
    return said(rgb(0.2, 0.8, 0.4, opacity));
}

struct ChipLook {
    const char* title;
    const char* symbol;
    QList<QColor> colors;
    QColor outline;
    std::optional<AppCategory> category;
};

const QList<ChipLook>& chipLooks() {
    static const QList<ChipLook> looks{
        {"Most Used", "chart.bar.fill", {rgb(1, 0.72, 0.36, 0.5), rgb(0.45, 0.78, 1, 0.44)}, whiteAt(0.18), {}},
        {"All Apps",
         "square.grid.2x2.fill",
         {rgb(0.53, 0.73, 1), rgb(0.55, 0.88, 0.8)},
         rgb(0.62, 0.79, 1, 0.34),
         AppCategory::all},
        {"Productivity & Finance",
         "bolt.horizontal.circle.fill",
         {rgb(0.46, 0.62, 1), rgb(0.32, 0.83, 0.84)},
         rgb(0.53, 0.74, 1, 0.34),
         AppCategory::productivity},
        {"Utilities",
         "sparkles",
         {rgb(0.42, 0.84, 0.78), rgb(0.39, 0.61, 1)},
         rgb(0.42, 0.84, 0.78, 0.34),
         AppCategory::utilities},
        {"Developer Tools",
         "chevron.left.forwardslash.chevron.right",
         {rgb(0.67, 0.57, 1), rgb(0.38, 0.56, 1)},
         rgb(0.72, 0.63, 1, 0.34),
         AppCategory::developer},
        {"Social",
         "bubble.left.and.bubble.right.fill",
         {rgb(0.99, 0.55, 0.62), rgb(0.86, 0.46, 0.9)},
         rgb(0.98, 0.57, 0.7, 0.34),
         AppCategory::social},
        {"Entertainment",
         "play.circle.fill",
         {rgb(0.98, 0.63, 0.42), rgb(0.94, 0.38, 0.49)},
         rgb(0.99, 0.68, 0.43, 0.34),
         AppCategory::entertainment},
        {"Creativity",
         "paintbrush.pointed.fill",
         {rgb(0.98, 0.72, 0.43), rgb(0.57, 0.84, 0.78)},
         rgb(0.96, 0.75, 0.43, 0.34),
         AppCategory::creativity},
        {"Information & Reading",
         "book.closed.fill",
         {rgb(0.67, 0.8, 1), rgb(0.84, 0.72, 0.97)},
         rgb(0.73, 0.81, 1, 0.34),
         AppCategory::reading},
        // The only one of translucent colours; its outline is fainter still.
        {"Other",
         "circle.hexagongrid.fill",
         {whiteAt(0.3), rgb(0.72, 0.78, 0.88)},
         whiteAt(0.82 * 0.34),
         AppCategory::other},
    };
    return looks;
}

QQuickItem* symbolOf(QQuickItem* chip) {
    return WallFixture::part(chip, "zelmo::SymbolItem");
}

QQuickItem* titleOf(QQuickItem* chip) {
    return WallFixture::textIn(chip, chip->property("title").toString());
}

bool looksSelected(QQuickItem* chip) {
    return chip->property("colors").value<QList<QColor>>().size() == 2;
}

QStringList selectedChips(WallFixture& fixture) {
    QStringList list;
    for (const ChipLook& look : chipLooks()) {
        if (looksSelected(fixture.chip(look.title)))
            list.append(QString::fromLatin1(look.title));
    }
    return list;
}

} // namespace

class CategoryBarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mostUsedAndTheNineCategoriesStandInTheirOrder() {
        WallFixture fixture(0);
        qreal right = fixture.place(fixture.panel()).left() + 24 - 10;
        for (const ChipLook& look : chipLooks()) {
            QQuickItem* chip = fixture.chip(look.title);
            QVERIFY2(chip, look.title);
            QVERIFY2(titleOf(chip), look.title);
            QCOMPARE(symbolOf(chip)->property("name").toString(), QString::fromLatin1(look.symbol));
            const QRectF place = fixture.place(chip);
            QCOMPARE(place.left(), right + 10);
            right = place.right();
        }
    }

    void aChipIsACapsuleWithSymbolAndTitle() {
        WallFixture fixture(0, greenText);
        for (const ChipLook& look : chipLooks()) {
            QQuickItem* chip = fixture.chip(look.title);
            const QRectF place = fixture.place(chip);
            const QRectF symbol = fixture.place(symbolOf(chip));
            const QRectF title = fixture.place(titleOf(chip));
            QCOMPARE(number(chip, "radius"), place.height() / 2);
            QCOMPARE(symbol.left(), place.left() + 16);
            QCOMPARE(title.left(), symbol.right() + 8);
            QCOMPARE(title.right(), place.right() - 16);
            QCOMPARE(std::min(title.top(), symbol.top()), place.top() + 10);
            QCOMPARE(std::max(title.bottom(), symbol.bottom()), place.bottom() - 10);
            QVERIFY(std::abs(symbol.center().y() - title.center().y()) <= 0.5);
            QCOMPARE(letters(symbolOf(chip)), QStringLiteral("12 700"));
            QCOMPARE(letters(titleOf(chip)), QStringLiteral("14 600"));
            QCOMPARE(number(chip, "strokeWidth"), 1.0);
        }
        fixture.store.preferences->setValue<PreferenceKey::categoryChipFontSize>(20);
        QCOMPARE(letters(titleOf(fixture.chip("Social"))), QStringLiteral("20 600"));
        QCOMPARE(letters(titleOf(fixture.chip("Most Used"))), QStringLiteral("20 600"));
        QCOMPARE(letters(symbolOf(fixture.chip("Social"))), QStringLiteral("12 700"));
    }

    void onlyTheChosenChipIsInItsColors() {
        WallFixture fixture(0, greenText);
        LauncherStore& store = *fixture.store.store;
        for (const ChipLook& chosen : chipLooks()) {
            store.setShowsMostUsed(!chosen.category);
            store.setSelectedCategory(chosen.category.value_or(AppCategory::all));
            for (const ChipLook& look : chipLooks()) {
                QQuickItem* chip = fixture.chip(look.title);
                const bool isChosen = &look == &chosen;
                QCOMPARE(fill(chip), isChosen ? said(look.colors) : said(whiteAt(0.08)));
                QCOMPARE(outline(chip), said(isChosen ? look.outline : whiteAt(0.08)));
                QCOMPARE(ink(titleOf(chip)), green(isChosen ? 1 : 0.72));
                QCOMPARE(ink(symbolOf(chip)), green(isChosen ? 1 : 0.72));
                QCOMPARE(chip->property("direction").toInt(), 0);
            }
        }
    }

    void theSelectedColorsRunFromCornerToCorner() {
        WallFixture fixture(0);
        const QImage wall = fixture.settle();
        const QRect place = fixture.place(fixture.chip("All Apps")).toRect();
        // What is drawn near the two ends of the capsule.
        QVERIFY(isNear(wall.pixelColor(place.left() + 6, place.center().y()), rgb(0.53, 0.73, 1), 12));
        QVERIFY(isNear(wall.pixelColor(place.right() - 6, place.center().y()), rgb(0.55, 0.88, 0.8), 12));
    }

    void onlyMostUsedHasSpacedLettersAndAHelpText() {
        WallFixture fixture(0, {{QStringLiteral("launcherFontStyle"), QStringLiteral("techno")}});
        for (const ChipLook& look : chipLooks()) {
            const bool isMostUsed = !look.category;
            QQuickItem* chip = fixture.chip(look.title);
            QVERIFY2(hasLetterSpacing(titleOf(chip), isMostUsed ? 0.35 * 1.4 : 0), look.title);
            QCOMPARE(chip->property("helpText").toString(),
                     isMostUsed ? QStringLiteral("Apps ranked by active time while Zelmo is running") : QString());
        }
    }

    void choosingAChipTurnsTheOthersOff() {
        WallFixture fixture(4);
        QVERIFY(fixture.waitForCards(4));
        LauncherStore& store = *fixture.store.store;
        QCOMPARE(selectedChips(fixture), QStringList{QStringLiteral("All Apps")});
        QStringList changes;
        connect(&store, &LauncherStore::showsMostUsedChanged, this, [&] { changes.append(QStringLiteral("ranking")); });
        connect(&store, &LauncherStore::selectedCategoryChanged, this,
                [&] { changes.append(QStringLiteral("category")); });

        fixture.click(fixture.chip("Developer Tools"));
        QCOMPARE(store.selectedCategory(), AppCategory::developer);
        QVERIFY(!store.showsMostUsed());
        QCOMPARE(selectedChips(fixture), QStringList{QStringLiteral("Developer Tools")});
        QVERIFY(fixture.waitForCards(2));
        changes.clear();

        fixture.click(fixture.chip("Most Used"));
        QVERIFY(store.showsMostUsed());
        QCOMPARE(store.selectedCategory(), AppCategory::all);
        QCOMPARE(selectedChips(fixture), QStringList{QStringLiteral("Most Used")});
        QCOMPARE(std::exchange(changes, {}), (QStringList{QStringLiteral("ranking"), QStringLiteral("category")}));

        fixture.click(fixture.chip("Social"));
        QVERIFY(!store.showsMostUsed());
        QCOMPARE(store.selectedCategory(), AppCategory::social);
        QCOMPARE(selectedChips(fixture), QStringList{QStringLiteral("Social")});
        QCOMPARE(changes, (QStringList{QStringLiteral("category"), QStringLiteral("ranking")}));
        // A click in the bar is none on the space behind it.
        QVERIFY(fixture.store.log.isEmpty());
    }

    void anotherFilterShowsItsBeginning() {
        WallFixture fixture(400);
        QVERIFY(QTest::qWaitFor([&] { return fixture.card(0); }));
        for (const char* title : {"Developer Tools", "All Apps", "Productivity & Finance"}) {
            fixture.area()->setProperty("contentY", 500);
            fixture.settle();
            QVERIFY(!fixture.card(0));
            fixture.click(fixture.chip(title));
            QCOMPARE(number(fixture.area(), "contentY"), 0.0);
        }
        // Going to Most Used and back from it.
        fixture.area()->setProperty("contentY", 500);
        fixture.click(fixture.chip("Most Used"));
        QCOMPARE(number(fixture.area(), "contentY"), 0.0);
    }

    void aBarWithoutRoomScrolls() {
        WallFixture fixture(0, {}, {800, 600});
        const QRectF panel = fixture.place(fixture.panel());
        // What is cut off is there, and within reach of the wheel.
        QVERIFY(fixture.place(fixture.chip("Other")).left() > panel.right());
        const QPointF place = fixture.place(fixture.chip("All Apps")).center();
        for (int turn = 0; turn < 30; ++turn) {
            QWheelEvent wheel(place, fixture.window.mapToGlobal(place), {}, QPoint(0, -120), {}, {}, {}, false);
            QCoreApplication::sendEvent(&fixture.window, &wheel);
        }
        QTRY_VERIFY(fixture.place(fixture.chip("Other")).right() <= panel.right() - 24);
        fixture.click(fixture.chip("Other"));
        QCOMPARE(fixture.store.store->selectedCategory(), AppCategory::other);
    }

    void theChipWithTheFocusIsInSight() {
        WallFixture fixture(0, {}, {800, 600});
        const QRectF panel = fixture.place(fixture.panel());
        const auto goTo = [&](Qt::Key key, const char* title) {
            for (int i = 0; i < 10 && !fixture.chip(title)->hasActiveFocus(); ++i)
                QTest::keyClick(&fixture.window, key);
        };
        fixture.chip("All Apps")->forceActiveFocus();
        goTo(Qt::Key_Right, "Other");
        QVERIFY(fixture.chip("Other")->hasActiveFocus());
        QCOMPARE(fixture.place(fixture.chip("Other")).right(), panel.right() - 24);
        goTo(Qt::Key_Left, "Most Used");
        QVERIFY(fixture.chip("Most Used")->hasActiveFocus());
        QCOMPARE(fixture.place(fixture.chip("Most Used")).left(), panel.left() + 24);
        // As it is left, the selected one is to be seen again.
        goTo(Qt::Key_Right, "Other");
        QTest::keyClick(&fixture.window, Qt::Key_Up);
        QVERIFY(fixture.place(fixture.chip("All Apps")).left() >= panel.left() + 24);
    }
};

QTEST_MAIN(CategoryBarTest)
#include "CategoryBarTest.moc"
