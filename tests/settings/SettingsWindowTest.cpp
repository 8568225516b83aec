#include "SettingsOnView.h"
#include "settings/DesktopBlurSwatchItem.h"
#include "settings/SettingsMetrics.h"
#include "settings/SettingsPalette.h"

#include <QPointer>
#include <QScreen>

using namespace zelmo;
using namespace zelmo::test;

namespace {

struct Control {
    QAccessible::Role role;
    const char* name;
};

// What a screen reader finds, from top to bottom.
const std::vector<Control>& form() {
    static const std::vector<Control> controls{
        {QAccessible::Heading, "Appearance"},
        {QAccessible::ComboBox, "Font"},
        {QAccessible::ComboBox, "Background"},
        {QAccessible::Button, "Background Color"},
        {QAccessible::Button, "App Text Color"},
        {QAccessible::Slider, "Title Size"},
        {QAccessible::Slider, "Subtitle Size"},
        {QAccessible::Slider, "Search Size"},
        {QAccessible::Slider, "Tab Size"},
        {QAccessible::Slider, "App Name Size"},
        {QAccessible::Slider, "App Label Size"},
        {QAccessible::CheckBox, "App Tile Backgrounds"},
        {QAccessible::Heading, "App Icon"},
        {QAccessible::RadioButton, "Mosaic"},
        {QAccessible::RadioButton, "Aurora"},
        {QAccessible::RadioButton, "Stack"},
        {QAccessible::RadioButton, "Spark"},
        {QAccessible::StaticText,
         "Four icon directions: Mosaic, Aurora, Stack, and Spark. The selected icon is applied to "
         "Zelmo while the app is running."},
        {QAccessible::StaticText, "Desktop Blur preview"},
        {QAccessible::Heading, "Launcher Shortcut"},
        {QAccessible::Button, "Launcher Shortcut"},
        {QAccessible::StaticText, "Option + Space is assigned to Zelmo."},
        {QAccessible::StaticText,
         "If Control + Space still opens the old launcher, quit that old app or clear its shortcut "
         "first, then click Use Control + Space again."},
        {QAccessible::Button, "Use Control + Space"},
        {QAccessible::Heading, "Hidden Apps"},
        {QAccessible::StaticText, "No apps are hidden from Zelmo."},
        {QAccessible::Button, "Restore Hidden Apps"},
        {QAccessible::Heading, "Coming Soon"},
        {QAccessible::Button, "Coming Soon"},
        {QAccessible::StaticText, "Tap three times to preview upcoming layouts."},
    };
    return controls;
}

bool isOperated(const Control& control) {
    return control.role != QAccessible::Heading && control.role != QAccessible::StaticText;
}

QString nameOf(const QQuickItem* item) {
    QAccessibleInterface* found = item ? QAccessible::queryAccessibleInterface(const_cast<QQuickItem*>(item)) : nullptr;
    return found ? found->text(QAccessible::Name) : QString();
}

} // namespace

// The settings as a whole: what stands in them, how one gets around, and their window.
class SettingsWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingStandsInItsPlace() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QStringList expected;
        for (const Control& control : form())
            expected.append(QStringLiteral("%1 %2").arg(control.role).arg(text(control.name)));
        QStringList found;
        double lowest = 0;
        for (QAccessibleInterface* control : view.controls()) {
            const QString name = control->text(QAccessible::Name);
            if (name.isEmpty() || control->role() == QAccessible::Client)
                continue;
            found.append(QStringLiteral("%1 %2").arg(control->role()).arg(name));
            const auto* item = qobject_cast<QQuickItem*>(control->object());
            QVERIFY2(SettingsOnView::place(*item).bottom() > lowest, qPrintable(name));
            lowest = std::max(lowest, SettingsOnView::place(*item).top());
        }
        QCOMPARE(found, expected);
    }

    void tabGoesFromTopToBottomAndRound() {
        const SettingsOnView view({{text("launcherBackgroundStyle"), text("customColor")}});
        QVERIFY(view.waitUntilShown());
        QStringList expected;
        for (const Control& control : form()) {
            // Of the icons, the chosen one.
            if (isOperated(control) &&
                (control.role != QAccessible::RadioButton || qstrcmp(control.name, "Mosaic") == 0))
                expected.append(text(control.name));
        }
        QStringList found;
        for (qsizetype i = 0; i < expected.size(); ++i) {
            view.type({Qt::Key_Tab});
            found.append(nameOf(view.window().activeFocusItem()));
            QVERIFY(focusRingIsShown(view));
        }
        QCOMPARE(found, expected);
        view.type({Qt::Key_Tab});
        QCOMPARE(nameOf(view.window().activeFocusItem()), text("Font"));
        QTest::keyClick(&view.window(), Qt::Key_Backtab);
        QCOMPARE(nameOf(view.window().activeFocusItem()), text("Coming Soon"));
    }

    void whatGetsTheFocusComesIntoSight() {
        const SettingsOnView view({}, {560, 330});
        QVERIFY(view.waitUntilShown());
        const QRectF sight(0, 0, view.window().width(), view.window().height());
        for (int round = 0; round < 2; ++round) {
            for (std::size_t i = 0; i < form().size(); ++i) {
                QTest::keyClick(&view.window(), round == 0 ? Qt::Key_Tab : Qt::Key_Backtab);
                const QQuickItem* item = view.window().activeFocusItem();
                QVERIFY(item);
                QVERIFY2(sight.contains(SettingsOnView::place(*item)), qPrintable(nameOf(item)));
            }
        }
    }

    void pagesAreTurnedByKeys() {
        const SettingsOnView view({}, {560, 500});
        QVERIFY(view.waitUntilShown());
        const auto top = [&] { return area(view).property("contentY").toDouble(); };
        const double lowest = area(view).property("contentHeight").toDouble() - 500;
        view.type({Qt::Key_PageDown});
        QVERIFY(top() > 300 && top() < 500);
        view.type({Qt::Key_PageUp});
        QCOMPARE(top(), 0.0);
        view.type({Qt::Key_End});
        QCOMPARE(top(), lowest);
        view.type({Qt::Key_PageDown});
        QCOMPARE(top(), lowest);
        view.type({Qt::Key_Home});
        QCOMPARE(top(), 0.0);
    }

    void theWheelOverAControlMovesTheForm_data() {
        QTest::addColumn<QAccessible::Role>("role");
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("slider") << QAccessible::Slider << QByteArray("Title Size");
        QTest::newRow("list") << QAccessible::ComboBox << QByteArray("Font");
        QTest::newRow("switch") << QAccessible::CheckBox << QByteArray("App Tile Backgrounds");
    }
    void theWheelOverAControlMovesTheForm() {
        QFETCH(QAccessible::Role, role);
        QFETCH(QByteArray, name);
        const SettingsOnView view({}, {560, 600});
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.focus(role, name.constData()));
        const QPointF place = SettingsOnView::place(*view.item(role, name.constData())).center();
        const double before = area(view).property("contentY").toDouble();
        QWheelEvent wheel(place, view.window().mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QGuiApplication::sendEvent(&view.window(), &wheel);
        QVERIFY(QTest::qWaitFor([&] { return area(view).property("contentY").toDouble() > before; }));
        view.catalog.preferences->flush();
        for (auto it = view.catalog.storage.values.cbegin(); it != view.catalog.storage.values.cend(); ++it)
            QVERIFY2(!it.key().contains(text("Font")) && !it.key().contains(text("show")), qPrintable(it.key()));
    }

    void whatChangesElsewhereIsShownAtOnce() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        view.set<PreferenceKey::launcherFontStyle>(text("slate"));
        QCOMPARE(view.item(QAccessible::ComboBox, "Font")->property("displayText").toString(), text("Slate"));
        view.set<PreferenceKey::searchFontSize>(25.0);
        QCOMPARE(view.item(QAccessible::Slider, "Search Size")->property("value").toDouble(), 25.0);
        QCOMPARE(view.texts(text("25")).size(), 1);
        view.set<PreferenceKey::showAppTileBackground>(true);
        QVERIFY(view.control(QAccessible::CheckBox, text("App Tile Backgrounds"))->state().checked);
        view.set<PreferenceKey::appIconStyle>(text("stack"));
        QVERIFY(view.control(QAccessible::RadioButton, text("Stack"))->state().checked);
        QVERIFY(!view.control(QAccessible::RadioButton, text("Mosaic"))->state().checked);
        view.set<PreferenceKey::launcherTextRed>(0.0);
        QCOMPARE(view.control(QAccessible::Button, text("App Text Color"))->text(QAccessible::Description),
                 text("#00faeb"));
        // Controls that were used follow as well.
        QVERIFY(view.focus(QAccessible::Slider, "Search Size"));
        view.type({Qt::Key_Left});
        QVERIFY(view.click(QAccessible::CheckBox, "App Tile Backgrounds"));
        QVERIFY(view.click(QAccessible::RadioButton, "Spark"));
        QVERIFY(view.focus(QAccessible::ComboBox, "Font"));
        view.type({Qt::Key_Down});
        view.set<PreferenceKey::searchFontSize>(20.0);
        view.set<PreferenceKey::showAppTileBackground>(true);
        view.set<PreferenceKey::appIconStyle>(text("aurora"));
        view.set<PreferenceKey::launcherFontStyle>(text("syne"));
        QCOMPARE(view.texts(text("20")).size(), 1);
        QVERIFY(view.control(QAccessible::CheckBox, text("App Tile Backgrounds"))->state().checked);
        QVERIFY(view.control(QAccessible::RadioButton, text("Aurora"))->state().checked);
        QVERIFY(!view.control(QAccessible::RadioButton, text("Spark"))->state().checked);
        QCOMPARE(view.item(QAccessible::ComboBox, "Font")->property("displayText").toString(), text("Syne"));
    }

    void thePreviewHasTheColorsOfTheBackground() {
        SettingsOnView view({{text("launcherBackgroundRed"), 0.0},
                             {text("launcherBackgroundGreen"), 1.0},
                             {text("launcherBackgroundBlue"), 0.0}});
        QVERIFY(view.waitUntilShown());
        const auto center = [&] {
            const QQuickItem* caption = view.item(QAccessible::StaticText, "Desktop Blur preview");
            const QPointF above(0, -50);
            return (SettingsOnView::place(*caption).center() + above).toPoint();
        };
        const QPoint swatch = center();
        const auto color = [&] { return view.window().grabWindow().pixelColor(swatch); };
        const QColor covered = color();
        const QRectF place = SettingsOnView::place(*view.items("zelmo::DesktopBlurSwatchItem").value(0));
        QCOMPARE(covered, blurredDesktop(place.size().toSize()).pixelColor(swatch - place.topLeft().toPoint()));
        view.set<PreferenceKey::launcherBackgroundStyle>(text("customColor"));
        QVERIFY(QTest::qWaitFor([&] { return color() == QColor(0, 255, 0); }));
        view.set<PreferenceKey::launcherBackgroundStyle>(text("unheard of"));
        QVERIFY(QTest::qWaitFor([&] { return color() == covered; }));
        QCOMPARE(view.texts(text("Desktop Blur preview")).size(), 1);
    }

    void itFollowsTheDesktopsColors() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto ground = [&] { return view.window().grabWindow().pixelColor(4, 4); };
        QVERIFY(ground().lightness() > 200);
        view.scheme.change(SchemeWish::dark, QColor(0xff, 0x40, 0x40));
        QVERIFY(QTest::qWaitFor([&] { return ground().lightness() < 60; }));
        QVERIFY(view.texts(text("Font"))[0]->property("color").value<QColor>().lightness() > 200);
        // The filled part of a slider.
        const QRectF slider = SettingsOnView::place(*view.item(QAccessible::Slider, "Title Size"));
        QCOMPARE(view.window().grabWindow().pixelColor(QPointF(slider.left() + 20, slider.center().y()).toPoint()),
                 QColor(0xff, 0x40, 0x40));
    }

    void theWindowIsBuiltOnceAndKept() {
        SettingsFixture fixture;
        AppSettingsWindowController controller(fixture.services(), fixture.windowServices());
        QVERIFY(!controller.window());
        QCOMPARE(fixture.scheme.starts, 0);
        controller.showSettingsWindow();
        const QPointer<SettingsWindow> window = controller.window();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QCOMPARE(window->title(), text("Zelmo Settings"));
        QVERIFY(window->flags() & Qt::WindowStaysOnTopHint);
        QVERIFY(!(window->flags() & Qt::FramelessWindowHint));
        QCOMPARE(window->size(), QSize(560, 680));
        const QRect around = window->screen()->availableGeometry();
        QVERIFY((window->geometry().center() - around.center()).manhattanLength() <= 1);
        // Shown again while it is open: nothing begins anew.
        const QQuickItem* content = window->view();
        controller.showSettingsWindow();
        QCOMPARE(controller.window(), window.get());
        QCOMPARE(window->view(), content);
        QCOMPARE(fixture.activation.count, 2);
        const QRect place(30, 40, 500, 450);
        window->setGeometry(place);
        QVERIFY(window->close());
        QVERIFY(QTest::qWaitFor([&] { return !window->form(); }));
        QVERIFY(window);
        QVERIFY(!window->view());
        controller.showSettingsWindow();
        QCOMPARE(controller.window(), window.get());
        QVERIFY(QTest::qWaitForWindowActive(window));
        QCOMPARE(window->geometry(), place);
        QVERIFY(window->view());
    }

    void closingStartsTheTapsAgain_data() {
        QTest::addColumn<bool>("atOnce");
        QTest::newRow("reopened later") << false;
        QTest::newRow("reopened at once") << true;
    }
    void closingStartsTheTapsAgain() {
        QFETCH(bool, atOnce);
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (const int taps : {1, 3}) {
            for (int i = 0; i < taps; ++i)
                QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
            view.window().close();
            if (!atOnce)
                QVERIFY(QTest::qWaitFor([&] { return !view.window().form(); }));
            view.controller.showSettingsWindow();
            QVERIFY(view.waitUntilShown());
            QCOMPARE(view.window().form()->comingSoon()->comingSoonTapCount(), 0);
            QCOMPARE(view.control(QAccessible::Button, text("Coming Soon"))->text(QAccessible::Description), text("3"));
            QVERIFY(!view.control(QAccessible::Grouping, text("Interface")));
        }
    }

    void controlWClosesAndEscapeDoesNot() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.focus(QAccessible::Slider, "Title Size"));
        view.type({Qt::Key_Escape});
        QVERIFY(view.window().isVisible());
        QTest::keyClick(&view.window(), Qt::Key_W);
        QVERIFY(view.window().isVisible());
        QTest::keyClick(&view.window(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!view.window().isVisible());
    }

    void largeLettersStayInside() {
        const QFont before = QGuiApplication::font();
        QFont large = before;
        large.setPixelSize(20);
        QGuiApplication::setFont(large);
        {
            const SettingsOnView view({}, {560, 2400});
            QVERIFY(view.waitUntilShown());
            QVERIFY(view.texts(text("App Label Size"))[0]->property("font").value<QFont>().pixelSize() >= 19);
            expectEveryTextInside(view);
            view.window().resize(view.window().minimumWidth(), 2400);
            QVERIFY(QTest::qWaitFor([&] { return view.window().view()->width() == view.window().minimumWidth(); }));
            expectEveryTextInside(view);
        }
        QGuiApplication::setFont(before);
    }

    void usualLettersHaveTheirSizes() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        expectEveryTextInside(view);
        const auto font = [&](const char* line) {
            return view.texts(text(line)).constLast()->property("font").value<QFont>();
        };
        for (const char* line : {"Launcher Shortcut", "Coming Soon"}) {
            QCOMPARE(font(line).pixelSize(), 13);
            QCOMPARE(font(line).weight(), QFont::DemiBold);
        }
        for (const char* line : {"Option + Space", "Option + Space is assigned to Zelmo.", "3",
                                 "Tap three times to preview upcoming layouts."})
            QCOMPARE(font(line).pixelSize(), 11);
    }

private:
    static QQuickItem& area(const SettingsOnView& view) { return *view.items("QQuickFlickable").constFirst(); }
    static bool focusRingIsShown(const SettingsOnView& view) {
        return std::ranges::any_of(view.items("QQuickRectangle"), [](const QQuickItem* item) {
            return QByteArray(item->metaObject()->className()).startsWith("SettingsFocusRing");
        });
    }
    static void expectEveryTextInside(const SettingsOnView& view) {
        for (const QQuickItem* line : view.items("QQuickText")) {
            const QString content = line->property("text").toString();
            QVERIFY2(!line->property("truncated").toBool(), qPrintable(content));
            QVERIFY2(line->property("contentWidth").toDouble() <= line->width() + 1, qPrintable(content));
            const QQuickItem* around = line->parentItem();
            QVERIFY2(line->y() >= -1 && line->y() + line->height() <= around->height() + 1, qPrintable(content));
        }
    }
};

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
