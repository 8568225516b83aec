#include "ui/WallFixture.h"

#include <QAccessible>

using namespace zelmo;
using namespace zelmo::test;

class WallViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sixColumnsOf154Stand22Apart() {
        WallFixture fixture(20);
        QVERIFY(fixture.waitForCards(20));
        QList<QRectF> icons;
        for (const QQuickItem* item : fixture.items("zelmo::AppIconItem"))
            icons.append(fixture.place(item));
        std::sort(icons.begin(), icons.end(), [](const QRectF& a, const QRectF& b) {
            return std::pair(a.top(), a.left()) < std::pair(b.top(), b.left());
        });
        for (const QRectF& icon : std::as_const(icons))
            QCOMPARE(icon.size(), QSizeF(104, 104));
        for (int column = 1; column < 6; ++column)
            QCOMPARE(icons[column].left() - icons[column - 1].left(), 176.0);
        QCOMPARE(icons[6].left(), icons[0].left());
        QVERIFY(icons[6].top() - icons[0].top() >= 166 + 24);
        // The grid is in the middle.
        QCOMPARE(icons[0].left() - 25, (1920 - (6 * 154 + 5 * 22)) / 2.0);
    }

    void narrowWindowsKeepTheColumns() {
        WallFixture fixture(20, {}, {800, 600});
        QVERIFY(QTest::qWaitFor([&] { return !fixture.items("zelmo::AppIconItem").isEmpty(); }));
        QSet<int> columns;
        for (const QQuickItem* item : fixture.items("zelmo::AppIconItem"))
            columns.insert(qRound(fixture.place(item).left()));
        QCOMPARE(columns.size(), 6);
    }

    void aCardShowsIconNameAndCategoryBelowEachOther() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        const auto name = fixture.texts(QStringLiteral("App 00001"));
        const auto label = fixture.texts(QStringLiteral("Builder"));
        QCOMPARE(name.size(), 1);
        QCOMPARE(label.size(), 1);
        const QFont nameFont = name[0]->property("font").value<QFont>();
        QCOMPARE(nameFont.pixelSize(), 15);
        QCOMPARE(nameFont.weight(), QFont::DemiBold);
        QCOMPARE(name[0]->opacity(), 0.94);
        QCOMPARE(name[0]->property("color").value<QColor>().rgba(), QColor::fromRgbF(1.0F, 0.98F, 0.92F).rgba());
        const QFont labelFont = label[0]->property("font").value<QFont>();
        QCOMPARE(labelFont.pixelSize(), 11);
        QCOMPARE(labelFont.weight(), QFont::Bold);
        QCOMPARE(labelFont.capitalization(), QFont::AllUppercase);
        QVERIFY(std::abs(labelFont.letterSpacing() - 1.1) < 1.0 / 64);
        QCOMPARE(label[0]->opacity(), 0.76);
        QCOMPARE(label[0]->property("color").value<QColor>().rgba(), QColor::fromRgbF(0.72F, 0.63F, 1.0F).rgba());
        QCOMPARE(fixture.place(label[0]).top(), fixture.place(name[0]).bottom() + 5);
    }

    void settingsShowAtOnce() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        fixture.store.preferences->setValue<PreferenceKey::appNameFontSize>(20);
        fixture.store.preferences->setValue<PreferenceKey::launcherTextBlue>(0.5);
        const auto name = fixture.texts(QStringLiteral("App 00001"));
        QCOMPARE(name[0]->property("font").value<QFont>().pixelSize(), 20);
        QCOMPARE(name[0]->property("color").value<QColor>().rgba(), QColor::fromRgbF(1.0F, 0.98F, 0.5F).rgba());
    }

    void theIconIsPaintedWhereTheCardIs() {
        WallFixture fixture(1);
        QVERIFY(fixture.waitForCards(1));
        const QPoint center = fixture.place(fixture.items("zelmo::AppIconItem")[0]).center().toPoint();
        QTRY_COMPARE(fixture.window.grabWindow().pixelColor(center), QColor(Qt::blue));
    }

    void theBackgroundRunsFromCornerToCorner() {
        WallFixture fixture(0, {{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("candyPop")}});
        QTRY_VERIFY(fixture.window.isExposed());
        const QImage wall = fixture.window.grabWindow();
        const auto isNear = [](QColor a, float red, float green, float blue) {
            const QColor b = QColor::fromRgbF(red, green, blue);
            return std::abs(a.red() - b.red()) <= 1 && std::abs(a.green() - b.green()) <= 1 &&
                   std::abs(a.blue() - b.blue()) <= 1;
        };
        QVERIFY(isNear(wall.pixelColor(0, 0), 1.00F, 0.34F, 0.55F));
        QVERIFY(isNear(wall.pixelColor(wall.width() - 1, wall.height() - 1), 0.42F, 0.42F, 1.00F));
        // Half way there on both edges that the middle line meets.
        const int x = (1920 * 1920 + 1080 * 1080) / 2 / 1920;
        QVERIFY(isNear(wall.pixelColor(x, 0), 0.71F, 0.38F, 0.775F));
        QVERIFY(isNear(wall.pixelColor(1919 - x, 1079), 0.71F, 0.38F, 0.775F));
    }

    void aPlainColorFillsTheBackground() {
        WallFixture fixture(0, {{QStringLiteral("launcherBackgroundStyle"), QStringLiteral("customColor")},
                                {QStringLiteral("launcherBackgroundRed"), 2.0},
                                {QStringLiteral("launcherBackgroundGreen"), QStringLiteral("0.3")}});
        QTRY_VERIFY(fixture.window.isExposed());
        const QImage wall = fixture.window.grabWindow();
        // Too red a red is the reddest; a text is no number, so the default green and blue stand.
        QCOMPARE(wall.pixelColor(5, 5), QColor(255, 20, 36));
        QCOMPARE(wall.pixelColor(1900, 1070), QColor(255, 20, 36));
    }

    void typingGoesToTheSearchFieldAndNarrows() {
        WallFixture fixture(12);
        QVERIFY(fixture.waitForCards(12));
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
        for (const char key : {'0', '0', '0', '0', '7'})
            QTest::keyClick(&fixture.window, key);
        QCOMPARE(fixture.store.store->searchText(), QStringLiteral("00007"));
        QVERIFY(fixture.waitForCards(1));
        QTest::keyClick(&fixture.window, Qt::Key_Backspace);
        QVERIFY(fixture.waitForCards(10));
        QTest::keyClick(&fixture.window, Qt::Key_Return);
        QVERIFY(fixture.store.log.isEmpty());
    }

    void aClickOnACardLaunchesIt() {
        WallFixture fixture(6);
        QVERIFY(fixture.waitForCards(6));
        fixture.store.store->showOverlay();
        const QPoint place = fixture.place(fixture.texts(QStringLiteral("App 00003"))[0]).center().toPoint();
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, place);
        // The wall behind the card does not take the click as well.
        QCOMPARE(fixture.store.log,
                 (QStringList{QStringLiteral("show"), QStringLiteral("open /Applications/App 00003.app"),
                              QStringLiteral("hide")}));
        QVERIFY(!fixture.store.store->overlayIsVisible());
    }

    void aClickOnEmptySpaceHidesTheWall() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        for (const QPoint place : {QPoint(5, 500), QPoint(1200, 1000)}) {
            fixture.store.store->showOverlay();
            QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, place);
            QVERIFY(!fixture.store.store->overlayIsVisible());
            QCOMPARE(std::exchange(fixture.store.log, {}),
                     (QStringList{QStringLiteral("show"), QStringLiteral("hide")}));
        }
    }

    void editModeSelectsInsteadOfLaunching() {
        WallFixture fixture(6);
        QVERIFY(fixture.waitForCards(6));
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        QAccessible::setActive(true);
        fixture.press("Select");
        QVERIFY(store.isEditingApps());
        QCOMPARE(fixture.texts(QStringLiteral("Select apps to hide from the launcher")).size(), 1);
        const QQuickItem* uninstall = fixture.button("Uninstall");
        QVERIFY(uninstall);
        QVERIFY(!uninstall->isEnabled());
        QCOMPARE(uninstall->opacity(), 0.42);
        QCOMPARE(uninstall->property("helpText").toString(), QStringLiteral("Select apps to uninstall"));

        const QPoint place = fixture.place(fixture.texts(QStringLiteral("App 00003"))[0]).center().toPoint();
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, place);
        QCOMPARE(store.selectedAppIDs(), QSet<FileUrl>{store.apps()[3].id});
        QVERIFY(uninstall->isEnabled());
        QCOMPARE(uninstall->opacity(), 1.0);
        QCOMPARE(uninstall->property("helpText").toString(), QStringLiteral("Move selected apps to Trash"));
        const QQuickItem* card = fixture.texts(QStringLiteral("App 00003"))[0]->parentItem()->parentItem();
        QTRY_COMPARE(card->scale(), 0.97);

        // Empty space does nothing now.
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, QPoint(5, 500));
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, QPoint(1200, 1000));
        QVERIFY(store.isEditingApps());
        QCOMPARE(fixture.store.log, QStringList{QStringLiteral("show")});

        fixture.store.alerts.answer = 1;
        fixture.press("Uninstall");
        QCOMPARE(fixture.store.log.last(), QStringLiteral("alert Uninstall App 00003?"));
        fixture.press("Done");
        QVERIFY(!store.isEditingApps());
        QVERIFY(store.selectedAppIDs().isEmpty());
        QTRY_COMPARE(card->scale(), 1.0);
        QVERIFY(!fixture.button("Uninstall"));
    }

    void removedCardsFadeAndTheOthersCloseUp() {
        WallFixture fixture(12);
        QVERIFY(fixture.waitForCards(12));
        LauncherStore& store = *fixture.store.store;
        fixture.store.waitForRest();
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[0]);
        const QQuickItem* last = fixture.texts(QStringLiteral("App 00011"))[0]->parentItem()->parentItem();
        const QQuickItem* removed = fixture.texts(QStringLiteral("App 00000"))[0]->parentItem()->parentItem();
        const QPointF start = last->position();
        store.hideSelectedAppsFromLauncher();
        bool wasBetween = false;
        bool wasFaint = false;
        QTRY_VERIFY((wasBetween = wasBetween || (last->x() < start.x() && last->x() > start.x() - 176),
                     wasFaint = wasFaint || (removed->opacity() > 0 && removed->opacity() < 1),
                     last->position() == start - QPointF(176, 0)));
        QVERIFY(wasBetween);
        QVERIFY(wasFaint);
        QTRY_VERIFY(!removed->isVisible());
        QCOMPARE(removed->opacity(), 1.0);
        QCOMPARE(fixture.items("zelmo::AppIconItem").size(), 11);
    }

    void withLessMovementCardsAreWhereTheyBelongAtOnce() {
        WallFixture fixture(12);
        fixture.motion.reduces = true;
        fixture.content.prepare(*fixture.window.screen());
        QVERIFY(fixture.waitForCards(12));
        LauncherStore& store = *fixture.store.store;
        fixture.store.waitForRest();
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[0]);
        const QQuickItem* last = fixture.texts(QStringLiteral("App 00011"))[0]->parentItem()->parentItem();
        const QPointF start = last->position();
        store.hideSelectedAppsFromLauncher();
        QVERIFY(fixture.waitForCards(11));
        QCOMPARE(last->position(), start - QPointF(176, 0));
    }

    void textsHaveTheChosenLetters_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<int>("nameWeight");
        QTest::addColumn<double>("subtitleSpacing");
        QTest::addColumn<double>("categorySpacing");
        QTest::newRow("the first") << QStringLiteral("appleDefault") << int(QFont::DemiBold) << 1.2 << 1.1;
        QTest::newRow("one weight for all") << QStringLiteral("techno") << int(QFont::ExtraBold) << 1.4 << 1.4;
        QTest::newRow("little spacing") << QStringLiteral("architect") << int(QFont::Thin) << 1.2 << 1.1;
        QTest::newRow("unknown") << QStringLiteral("Techno") << int(QFont::DemiBold) << 1.2 << 1.1;
    }
    void textsHaveTheChosenLetters() {
        QFETCH(QString, style);
        QFETCH(double, subtitleSpacing);
        QFETCH(double, categorySpacing);
        // Fonts keep it in 64ths.
        const auto isNear = [](double spacing, double wanted) { return std::abs(spacing - wanted) < 1.0 / 64; };
        WallFixture fixture(1);
        QVERIFY(fixture.waitForCards(1));
        fixture.store.preferences->setValue<PreferenceKey::launcherFontStyle>(style);
        const auto fontOf = [&](const char* text) {
            // Of two the one on the card, which comes after the chip.
            return fixture.texts(QString::fromLatin1(text)).last()->property("font").value<QFont>();
        };
        const QFont name = fontOf("App 00000");
        QTEST(int(name.weight()), "nameWeight");
        const QFont subtitle = fontOf("Colorful launchpad for your Mac");
        QCOMPARE(subtitle.capitalization(), QFont::AllUppercase);
        QVERIFY(isNear(subtitle.letterSpacing(), subtitleSpacing));
        const QFont category = fontOf("Other");
        QCOMPARE(category.capitalization(), QFont::AllUppercase);
        QVERIFY(isNear(category.letterSpacing(), categorySpacing));
    }

    void aLongNameEndsInAnEllipsis() {
        WallFixture fixture(0);
        fixture.store.installed.set({found(QStringLiteral("Donaudampfschifffahrtsgesellschaftskapit\u00e4n"))});
        fixture.store.store->refresh();
        QVERIFY(fixture.waitForCards(1));
        const auto name = fixture.texts(QStringLiteral("Donaudampfschifffahrtsgesellschaftskapit\u00e4n"));
        QCOMPARE(name.size(), 1);
        QVERIFY(name[0]->property("truncated").toBool());
        QCOMPARE(name[0]->width(), 126.0);
    }

    // In every layout, at every size that the settings allow and beyond.
    void longNamesStayOnTheirCards_data() {
        QTest::addColumn<QString>("layout");
        QTest::addColumn<QString>("name");
        for (const char* layout : {"grid", "list", "minimal", "tiles"}) {
            for (const char* name :
                 {"Donaudampfschifffahrtsgesellschaftskapit\u00e4nsm\u00fctzenverwaltung f\u00fcr alle F\u00e4lle",
                  "\u8d85\u9577\u5bff\u9650\u7121\u5bff\u9650\u7121\u4e94\u52ab\u306e\u64e6\u308a\u5207\u308c\u6d77"
                  "\u7802\u5229\u6c34\u9b5a"
                  "\u8d85\u9577\u5bff\u9650\u7121\u5bff\u9650\u7121\u4e94\u52ab\u306e\u64e6\u308a\u5207\u308c\u6d77"
                  "\u7802\u5229\u6c34\u9b5a"})
                QTest::addRow("%s, %.5s", layout, name) << QString::fromLatin1(layout) << QString::fromUtf8(name);
        }
    }
    void longNamesStayOnTheirCards() {
        QFETCH(QString, layout);
        QFETCH(QString, name);
        WallFixture fixture(0, {{QStringLiteral("launcherInterfaceStyle"), layout}});
        fixture.store.installed.set({found(name), found(QStringLiteral("Short"))});
        fixture.store.store->refresh();
        QVERIFY(fixture.waitForCards(2));
        for (double size = 9; size <= 26; ++size) {
            fixture.store.preferences->setValue<PreferenceKey::appNameFontSize>(size);
            fixture.store.preferences->setValue<PreferenceKey::appCategoryFontSize>(std::min(size, 16.0));
            QCoreApplication::processEvents();
            const QQuickItem* text = fixture.texts(name).value(0);
            QVERIFY(text);
            const QQuickItem* card = text->parentItem();
            while (card && !card->inherits("zelmo::CardGrid") && !card->property("usageSummary").isValid())
                card = card->parentItem();
            QVERIFY(card);
            const QRectF room = fixture.place(card);
            const QRectF taken = fixture.place(text);
            QVERIFY2(taken.left() >= room.left() && taken.right() <= room.right(), qPrintable(QString::number(size)));
            QVERIFY2(text->property("contentWidth").toReal() <= taken.width() + 0.5, qPrintable(QString::number(size)));
            // Into the space between two rows at the most.
            QVERIFY2(taken.top() >= room.top() - 0.5 && taken.bottom() <= room.bottom() + 20,
                     qPrintable(QString::number(size)));
            // How wide other letters are depends on the fonts there are.
            QVERIFY(layout == u"list" || !name.startsWith(u'D') || text->property("truncated").toBool());
        }
    }

    void namesAreNeverTakenForMarkup() {
        WallFixture fixture(0);
        fixture.store.installed.set({found(QStringLiteral("<b>Bold</b>"))});
        fixture.store.store->refresh();
        QVERIFY(fixture.waitForCards(1));
        QCOMPARE(fixture.texts(QStringLiteral("<b>Bold</b>"))[0]->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void tenThousandApplicationsNeedOnlyTheCardsInSight() {
        WallFixture fixture(10000);
        QVERIFY(QTest::qWaitFor([&] { return !fixture.items("zelmo::AppIconItem").isEmpty(); }, 20000));
        QVERIFY(fixture.items("zelmo::AppIconItem").size() <= 6 * 6);
    }

    void cardsAreButtonsWithTheirNamesForScreenReaders() {
        WallFixture fixture(3);
        QVERIFY(fixture.waitForCards(3));
        QAccessible::setActive(true);
        const auto name = fixture.texts(QStringLiteral("App 00002"));
        QQuickItem* card = name[0]->parentItem()->parentItem();
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(card);
        QVERIFY(accessible);
        QCOMPARE(accessible->role(), QAccessible::Button);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("App 00002"));
        accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(fixture.store.log.contains(QStringLiteral("open /Applications/App 00002.app")));
    }
};

QTEST_MAIN(WallViewTest)
#include "WallViewTest.moc"
