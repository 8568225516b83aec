#include "settings/SettingsForm.h"
#include "SettingsFixture.h"
#include "appearance/AppIconStyle.h"
#include "iconart/ZelmoIconFactory.h"
#include "settings/ColorPickerModel.h"

#include <QColorSpace>
#include <QSignalSpy>

#include <limits>

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Key = PreferenceKey;

FontSizeSetting& size(const SettingsForm& form, int place) {
    return *form.appearance()->sizes().at(place);
}

} // namespace

class SettingsFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFreshStartShowsTheDefaults() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        QCOMPARE(form.appearance()->font()->rows()[form.appearance()->font()->index()], text("Apple Default"));
        QCOMPARE(form.appearance()->background()->rows()[form.appearance()->background()->index()],
                 text("Desktop Blur"));
        QCOMPARE(form.appearance()->backgroundColor()->color().rgb(), QColor::fromRgbF(0.05F, 0.08F, 0.14F).rgb());
        QCOMPARE(form.appearance()->textColor()->color().rgb(), QColor::fromRgbF(1, 0.98F, 0.92F).rgb());
        QList<int> sizes;
        for (int i = 0; i < 6; ++i)
            sizes.append(size(form, i).size());
        QCOMPARE(sizes, (QList{32, 12, 18, 14, 15, 11}));
        QVERIFY(!form.appearance()->showsTileBackgrounds());
        QCOMPARE(form.appIcon()->index(), 0);
        QCOMPARE(form.shortcut()->title(), text("Option + Space"));
        QCOMPARE(form.shortcut()->status(), text("Option + Space is assigned to Zelmo."));
        QCOMPARE(form.hiddenApps()->sentence(), text("No apps are hidden from Zelmo."));
        QCOMPARE(form.comingSoon()->comingSoonTapCount(), 0);
        QVERIFY(!form.comingSoon()->showsComingSoonExtras());
        QCOMPARE(form.comingSoon()->interfaceStyle()->index(), 0);
        // Looking writes nothing.
        QVERIFY(!fixture.catalog.preferences->stored<Key::titleFontSize>());
    }

    void unknownStylesShowTheDefaultCase() {
        SettingsFixture fixture({{text("launcherFontStyle"), text("gothic")},
                                 {text("launcherBackgroundStyle"), text("plaid")},
                                 {text("launcherInterfaceStyle"), text("spiral")},
                                 {text("appIconStyle"), text("Mosaic")},
                                 {text("launcherKeyboardShortcut"), text("shiftSpace")}});
        const SettingsForm form(fixture.services());
        QCOMPARE(form.appearance()->font()->index(), 0);
        QCOMPARE(form.appearance()->background()->index(), 0);
        QCOMPARE(form.comingSoon()->interfaceStyle()->index(), 0);
        QCOMPARE(form.appIcon()->index(), 0);
        QVERIFY(form.appIcon()->previewIsCovered());
        QCOMPARE(form.appIcon()->previewCaption(), text("Desktop Blur preview"));
        QCOMPARE(form.shortcut()->title(), text("Option + Space"));
        // Picking what is shown stores it.
        form.appearance()->background()->setIndex(0);
        QCOMPARE(fixture.value<Key::launcherBackgroundStyle>(), text("desktopBlur"));
        form.shortcut()->stepToNext();
        QCOMPARE(fixture.value<Key::launcherKeyboardShortcut>(), text("controlSpace"));
    }

    void rowsThatAreNotThereStoreNothing() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        for (const int index : {-1, 30}) {
            form.appearance()->font()->setIndex(index);
            form.appIcon()->choose(index);
        }
        QVERIFY(!fixture.catalog.preferences->stored<Key::launcherFontStyle>());
        QVERIFY(!fixture.catalog.preferences->stored<Key::appIconStyle>());
        QVERIFY(fixture.application.icons.isEmpty());
    }

    void sizesAreWholeAndInTheirRange_data() {
        QTest::addColumn<double>("asked");
        QTest::addColumn<double>("stored");
        QTest::newRow("whole") << 30.0 << 30.0;
        QTest::newRow("broken up") << 30.5 << 31.0;
        QTest::newRow("broken down") << 30.4 << 30.0;
        QTest::newRow("smallest") << 24.0 << 24.0;
        QTest::newRow("largest") << 42.0 << 42.0;
        QTest::newRow("too small") << 23.0 << 24.0;
        QTest::newRow("too large") << 43.0 << 42.0;
        QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 42.0;
        QTest::newRow("negative") << -1.0 << 24.0;
    }
    void sizesAreWholeAndInTheirRange() {
        QFETCH(double, asked);
        QFETCH(double, stored);
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        size(form, 0).choose(asked);
        QCOMPARE(fixture.value<Key::titleFontSize>(), stored);
        QCOMPARE(size(form, 0).size(), static_cast<int>(stored));
    }

    void aStoredSizeOutsideIsShownWithinAndLeftAlone_data() {
        QTest::addColumn<double>("stored");
        QTest::addColumn<int>("shown");
        QTest::newRow("too large") << 50.0 << 42;
        QTest::newRow("too small") << 1.0 << 24;
        QTest::newRow("broken") << 30.7 << 31;
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 32;
    }
    void aStoredSizeOutsideIsShownWithinAndLeftAlone() {
        QFETCH(double, stored);
        QFETCH(int, shown);
        SettingsFixture fixture({{text("titleFontSize"), stored}});
        const SettingsForm form(fixture.services());
        QCOMPARE(size(form, 0).size(), shown);
        size(form, 0).choose(shown);
        const double left = fixture.value<Key::titleFontSize>();
        QVERIFY(left == stored || (std::isnan(left) && std::isnan(stored)));
        size(form, 0).choose(33);
        QCOMPARE(fixture.value<Key::titleFontSize>(), 33.0);
    }

    void colorsAreStoredInSrgb_data() {
        QTest::addColumn<QColor>("picked");
        QTest::addColumn<double>("red");
        QTest::addColumn<double>("green");
        QTest::addColumn<double>("blue");
        const auto row = [](const char* name, const QColor& picked, double red, double green, double blue) {
            QTest::newRow(name) << picked << red << green << blue;
        };
        row("plain", QColor(0x33, 0x66, 0x99), 0.2, 0.4, 0.6);
        row("translucent", QColor(0x33, 0x66, 0x99, 0x10), 0.2, 0.4, 0.6);
        row("hue and saturation", QColor::fromHsv(120, 255, 255), 0, 1, 0);
        row("hue and lightness", QColor::fromHsl(240, 255, 127).toHsl(), 0, 0, 254 / 255.0);
        row("ink", QColor::fromCmykF(0, 1, 1, 0), 1, 0, 0);
        row("beyond sRGB", QColor::fromRgbF(1.5F, -0.25F, 0.5F), 1, 0, 0.5);
    }
    void colorsAreStoredInSrgb() {
        QFETCH(QColor, picked);
        QFETCH(double, red);
        QFETCH(double, green);
        QFETCH(double, blue);
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        form.appearance()->backgroundColor()->setColor(picked);
        QVERIFY(std::abs(fixture.value<Key::launcherBackgroundRed>() - red) < 0.003);
        QVERIFY(std::abs(fixture.value<Key::launcherBackgroundGreen>() - green) < 0.003);
        QVERIFY(std::abs(fixture.value<Key::launcherBackgroundBlue>() - blue) < 0.003);
        QVERIFY(!fixture.catalog.preferences->stored<Key::launcherTextRed>());
        QCOMPARE(form.appearance()->backgroundColor()->color().alpha(), 255);
    }

    void aGreyStoresThreeEqualValues() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        form.appearance()->textColor()->setColor(QColor::fromHsv(-1, 0, 0x80));
        QVERIFY(std::abs(fixture.value<Key::launcherTextRed>() - 0x80 / 255.0) < 1e-9);
        QCOMPARE(fixture.value<Key::launcherTextGreen>(), fixture.value<Key::launcherTextRed>());
        QCOMPARE(fixture.value<Key::launcherTextBlue>(), fixture.value<Key::launcherTextRed>());
    }

    void whatIsNoColorStoresNothing() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        form.appearance()->textColor()->setColor(QColor());
        QVERIFY(!fixture.catalog.preferences->stored<Key::launcherTextRed>());
        QVERIFY(!srgbComponents(QColor()));
    }

    void theBackgroundColorCountsForOneBackgroundOnly() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        const PickerSetting& background = *form.appearance()->background();
        QSignalSpy changes(form.appearance(), &AppearanceSettings::backgroundChanged);
        for (int i = 0; i < background.rows().size(); ++i) {
            form.appearance()->background()->setIndex(i);
            QCOMPARE(form.appearance()->backgroundColorCounts(), background.rows()[i] == text("Custom Color"));
        }
        QVERIFY(changes.size() >= 13);
    }

    void thePreviewShowsTheChosenBackground() {
        SettingsFixture fixture({{text("launcherBackgroundStyle"), text("customColor")}});
        const SettingsForm form(fixture.services());
        QVERIFY(!form.appIcon()->previewIsCovered());
        QCOMPARE(form.appIcon()->previewCaption(), text("Custom Color preview"));
        const QSignalSpy changes(form.appIcon(), &AppIconSettings::previewChanged);
        fixture.set<Key::launcherBackgroundRed>(1.0);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(form.appIcon()->previewColors().constFirst().red(), 255);
        fixture.set<Key::launcherBackgroundStyle>(text("linen"));
        QCOMPARE(changes.size(), 2);
        QCOMPARE(form.appIcon()->previewCaption(), text("Linen preview"));
    }

    void anIconIsStoredAndShownByTheDesktop() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        for (int i = 3; i >= 0; --i) {
            form.appIcon()->choose(i);
            QCOMPARE(form.appIcon()->index(), i);
            QCOMPARE(fixture.application.icons.constLast(),
                     ZelmoIconFactory::appIcon(256, *fixture.catalog.preferences, static_cast<AppIconStyle>(i)));
        }
        QCOMPARE(fixture.application.icons.size(), 4);
        QCOMPARE(fixture.application.icons.constFirst().deviceIndependentSize(), QSizeF(256, 256));
        QVERIFY(fixture.application.icons[0] != fixture.application.icons[1]);
        QCOMPARE(fixture.value<Key::appIconStyle>(), text("mosaic"));
    }

    void theShortcutGoesRoundAndIsTakenEachTime() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        struct Step {
            const char* rawValue;
            const char* title;
            const char* status;
        };
        const auto steps = {Step{"controlSpace", "Control + Space", "Control + Space is assigned to Zelmo."},
                            Step{"commandSpace", "Command + Space", "Command + Space is assigned to Zelmo."},
                            Step{"off", "Off", "Shortcut is off."},
                            Step{"optionSpace", "Option + Space", "Option + Space is assigned to Zelmo."}};
        for (const Step& step : steps) {
            form.shortcut()->stepToNext();
            QCOMPARE(fixture.value<Key::launcherKeyboardShortcut>(), text(step.rawValue));
            QCOMPARE(form.shortcut()->title(), text(step.title));
            QCOMPARE(form.shortcut()->status(), text(step.status));
            QVERIFY(!form.shortcut()->statusIsFailure());
            QCOMPARE(form.shortcut()->isControlSpace(), qstrcmp(step.rawValue, "controlSpace") == 0);
        }
        QCOMPARE(fixture.hotKeyLog.filter(text("register 49")).filter(text("unregister")).size(), 0);
        QCOMPARE(fixture.hotKeyLog.filter(QRegularExpression(text("^register"))).size(), 3);
    }

    void controlSpaceIsTakenAgainEachTime() {
        SettingsFixture fixture({{text("launcherKeyboardShortcut"), text("controlSpace")}});
        fixture.hotKeyService.answer = FakeHotKeyService::Answer::refuse;
        const SettingsForm form(fixture.services());
        form.shortcut()->useControlSpace();
        QVERIFY(form.shortcut()->status().startsWith(text("Could not assign Control + Space.")));
        QVERIFY(form.shortcut()->statusIsFailure());
        fixture.hotKeyService.answer = FakeHotKeyService::Answer::accept;
        form.shortcut()->useControlSpace();
        QCOMPARE(form.shortcut()->status(), text("Control + Space is assigned to Zelmo."));
        QVERIFY(!form.shortcut()->statusIsFailure());
    }

    void onlyTheBeginningOfTheStatusTellsAFailure_data() {
        QTest::addColumn<QString>("status");
        QTest::addColumn<bool>("isFailure");
        QTest::newRow("beginning") << text("Could not do it.") << true;
        QTest::newRow("alone") << text("Could not") << true;
        QTest::newRow("middle") << text("It Could not") << false;
        QTest::newRow("other letters") << text("could not") << false;
        QTest::newRow("empty") << QString() << false;
    }
    void onlyTheBeginningOfTheStatusTellsAFailure() {
        QFETCH(QString, status);
        SettingsFixture fixture({{text("launcherKeyboardShortcutStatus"), status}});
        QTEST(SettingsForm(fixture.services()).shortcut()->statusIsFailure(), "isFailure");
    }

    void hiddenAppsAreCounted_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("none") << 0 << text("No apps are hidden from Zelmo.");
        QTest::newRow("one") << 1 << text("1 hidden app can be restored.");
        QTest::newRow("two") << 2 << text("2 hidden apps can be restored.");
        QTest::newRow("many") << 12345 << text("12345 hidden apps can be restored.");
    }
    void hiddenAppsAreCounted() {
        QFETCH(int, count);
        QStringList paths;
        for (int i = 0; i < count; ++i)
            paths.append(QStringLiteral("/Applications/%1.app").arg(i));
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        fixture.set<Key::hiddenAppPaths>(paths);
        QTEST(form.hiddenApps()->sentence(), "sentence");
    }

    void restoringForgetsWhatIsHidden() {
        SettingsFixture fixture({{text("hiddenAppPaths"), QStringList{text("/Applications/Chess.app")}}});
        const SettingsForm form(fixture.services());
        const QSignalSpy changes(form.hiddenApps(), &HiddenAppsSettings::changed);
        form.hiddenApps()->restore();
        QCOMPARE(changes.size(), 1);
        QCOMPARE(form.hiddenApps()->sentence(), text("No apps are hidden from Zelmo."));
        QVERIFY(fixture.value<Key::hiddenAppPaths>().isEmpty());
    }

    void theThirdTapReveals() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        ComingSoonSettings& comingSoon = *form.comingSoon();
        for (const char* needed : {"3", "2", "1"}) {
            QVERIFY(!comingSoon.showsComingSoonExtras());
            QCOMPARE(comingSoon.title(), text("Coming Soon"));
            QCOMPARE(comingSoon.symbol(), text("sparkles"));
            QCOMPARE(comingSoon.caption(), text(needed));
            comingSoon.revealComingSoonExtras();
        }
        const QSignalSpy changes(&comingSoon, &ComingSoonSettings::changed);
        for (int i = 0; i < 3; ++i) {
            QVERIFY(comingSoon.showsComingSoonExtras());
            QCOMPARE(comingSoon.comingSoonTapCount(), 3);
            QCOMPARE(comingSoon.title(), text("Experimental Interfaces"));
            QCOMPARE(comingSoon.symbol(), text("wand.and.stars"));
            QCOMPARE(comingSoon.caption(), text("Unlocked"));
            comingSoon.revealComingSoonExtras();
        }
        QCOMPARE(changes.size(), 0);
    }

    void theHueOfAGreyIsRemembered() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        ColorSetting& setting = *form.appearance()->textColor();
        setting.setColor(QColor(0, 0, 255));
        ColorPickerModel picker;
        picker.setSetting(&setting);
        QVERIFY(std::abs(picker.hue() - 2.0 / 3) < 1e-4);
        picker.setTone(0, 0.5);
        QCOMPARE(setting.hex(), text("#808080"));
        QVERIFY(std::abs(picker.hue() - 2.0 / 3) < 1e-4);
        picker.setTone(1, 1);
        QCOMPARE(setting.hex(), text("#0000ff"));
        // Small steps add up although the stored colour has fewer of them.
        picker.setTone(1, 0);
        for (int i = 0; i < 100; ++i)
            picker.setTone(picker.saturation(), picker.brightness() + 0.01);
        QCOMPARE(setting.hex(), text("#0000ff"));
    }

    void aColorCodeIsUnderstoodOrNotTaken_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("result");
        QTest::newRow("six digits") << text("#336699") << text("#336699");
        QTest::newRow("capitals") << text("#AABBCC") << text("#aabbcc");
        QTest::newRow("without a sign") << text("336699") << text("#336699");
        QTest::newRow("three digits") << text("#369") << text("#336699");
        QTest::newRow("blanks around") << text("  #369 ") << text("#336699");
        QTest::newRow("a name") << text("red") << text("#123456");
        QTest::newRow("with opacity") << text("#80336699") << text("#123456");
        QTest::newRow("empty") << QString() << text("#123456");
        QTest::newRow("other letters") << text("#33669g") << text("#123456");
    }
    void aColorCodeIsUnderstoodOrNotTaken() {
        QFETCH(QString, code);
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        form.appearance()->textColor()->setColor(QColor(text("#123456")));
        ColorPickerModel picker;
        picker.setSetting(form.appearance()->textColor());
        const QSignalSpy changes(&picker, &ColorPickerModel::changed);
        picker.setHex(code);
        QTEST(picker.hex(), "result");
        // Whatever was written is replaced by what counts.
        QVERIFY(!changes.isEmpty());
    }

    void changesFromElsewhereAreAnnounced() {
        SettingsFixture fixture;
        const SettingsForm form(fixture.services());
        const QSignalSpy font(form.appearance()->font(), &PickerSetting::indexChanged);
        const QSignalSpy color(form.appearance()->textColor(), &ColorSetting::colorChanged);
        const QSignalSpy title(&size(form, 0), &FontSizeSetting::sizeChanged);
        const QSignalSpy search(&size(form, 2), &FontSizeSetting::sizeChanged);
        const QSignalSpy tiles(form.appearance(), &AppearanceSettings::showsTileBackgroundsChanged);
        const QSignalSpy icon(form.appIcon(), &AppIconSettings::indexChanged);
        const QSignalSpy shortcut(form.shortcut(), &ShortcutSettings::shortcutChanged);
        const QSignalSpy status(form.shortcut(), &ShortcutSettings::statusChanged);
        fixture.set<Key::launcherFontStyle>(text("slate"));
        fixture.set<Key::launcherTextBlue>(0.5);
        fixture.set<Key::titleFontSize>(40.0);
        fixture.set<Key::showAppTileBackground>(true);
        fixture.set<Key::appIconStyle>(text("spark"));
        fixture.set<Key::launcherKeyboardShortcut>(text("off"));
        fixture.set<Key::launcherKeyboardShortcutStatus>(text("new"));
        for (const QSignalSpy* spy : {&font, &color, &title, &tiles, &icon, &shortcut, &status})
            QCOMPARE(spy->size(), 1);
        QCOMPARE(search.size(), 0);
    }
};

QTEST_MAIN(SettingsFormTest)
#include "SettingsFormTest.moc"
