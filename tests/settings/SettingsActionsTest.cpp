#include "SettingsOnView.h"
#include "appearance/LauncherInterfaceStyle.h"

#include <QEasingCurve>

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Key = PreferenceKey;

} // namespace

// The rows and buttons that do something, by the pointer and by keys, down to what is stored.
class SettingsActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theShortcutRowStepsByPointerAndKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto shortcut = [&] { return view.value<Key::launcherKeyboardShortcut>(); };
        const auto shown = [&] {
            return view.control(QAccessible::Button, text("Launcher Shortcut"))->text(QAccessible::Description);
        };
        QCOMPARE(shown(), text("Option + Space"));
        QVERIFY(view.click(QAccessible::Button, "Launcher Shortcut"));
        QCOMPARE(shortcut(), text("controlSpace"));
        QCOMPARE(shown(), text("Control + Space"));
        QVERIFY(view.focus(QAccessible::Button, "Launcher Shortcut"));
        view.type({Qt::Key_Space});
        QCOMPARE(shortcut(), text("commandSpace"));
        QCOMPARE(shown(), text("Command + Space"));
        view.type({Qt::Key_Return});
        QCOMPARE(shortcut(), text("off"));
        QCOMPARE(shown(), text("Off"));
        QCOMPARE(view.texts(text("Shortcut is off.")).size(), 1);
        view.type({Qt::Key_Enter});
        QCOMPARE(shortcut(), text("optionSpace"));
        QCOMPARE(view.texts(text("Option + Space")).size(), 1);
        QCOMPARE(view.texts(text("Option + Space is assigned to Zelmo.")).size(), 1);
        QCOMPARE(view.hotKeyLog.filter(QRegularExpression(text("^register"))).size(), 3);
    }

    void aFailureIsOrangeUntilItIsOver() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto colorOf = [&](const char* status) {
            const auto found = view.texts(text(status));
            return found.size() == 1 ? found[0]->property("color").value<QColor>() : QColor();
        };
        const QColor secondary = colorOf("Tap three times to preview upcoming layouts.");
        QVERIFY(secondary.isValid());
        QCOMPARE(colorOf("Option + Space is assigned to Zelmo."), secondary);
        QVERIFY(!checkmarkIsShown(view));
        view.hotKeyService.answer = FakeHotKeyService::Answer::refuse;
        QVERIFY(view.click(QAccessible::Button, "Use Control + Space"));
        QCOMPARE(view.value<Key::launcherKeyboardShortcut>(), text("controlSpace"));
        const QColor failure =
            colorOf("Could not assign Control + Space. Quit the old launcher or remove its shortcut, then try again.");
        QVERIFY(failure.isValid());
        QVERIFY(failure != secondary);
        QVERIFY(failure.hsvHue() > 15 && failure.hsvHue() < 45);
        QVERIFY(checkmarkIsShown(view));
        view.hotKeyService.answer = FakeHotKeyService::Answer::accept;
        QVERIFY(view.focus(QAccessible::Button, "Use Control + Space"));
        view.type({Qt::Key_Space});
        QCOMPARE(colorOf("Control + Space is assigned to Zelmo."), secondary);
    }

    void theBadgesHaveTheirGradientsAndSymbols() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        struct Badge {
            const char* button;
            const char* symbol;
            double side;
            int weight;
            QList<QColor> colors;
        };
        const QList<Badge> badges{{"Use Control + Space",
                                   "keyboard.fill",
                                   12 * 1.25,
                                   QFont::DemiBold,
                                   {QColor::fromRgbF(0.38F, 0.61F, 1), QColor::fromRgbF(0.38F, 0.88F, 0.76F)}},
                                  {"Coming Soon",
                                   "sparkles",
                                   13 * 1.25,
                                   QFont::Black,
                                   {QColor::fromRgbF(1, 0.74F, 0.34F), QColor::fromRgbF(0.98F, 0.44F, 0.48F)}}};
        for (const Badge& badge : badges) {
            QQuickItem* symbol = nullptr;
            for (QQuickItem* candidate : view.items("zelmo::SymbolItem")) {
                if (candidate->property("name").toString() == text(badge.symbol))
                    symbol = candidate;
            }
            QVERIFY(symbol);
            QCOMPARE(symbol->width(), badge.side);
            QCOMPARE(symbol->property("weight").toInt(), badge.weight);
            const QQuickItem* circle = symbol->parentItem();
            QCOMPARE(circle->size(), QSizeF(28, 28));
            QCOMPARE(circle->property("radius").toDouble(), 14.0);
            QCOMPARE(circle->property("colors").value<QList<QColor>>(), badge.colors);
            QVERIFY(SettingsOnView::place(*view.item(QAccessible::Button, badge.button))
                        .contains(SettingsOnView::place(*circle)));
        }
    }

    void hiddenAppsComeBackByPointerAndKeys() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QCOMPARE(view.texts(text("No apps are hidden from Zelmo.")).size(), 1);
        view.set<Key::hiddenAppPaths>({text("/Applications/Chess.app")});
        QCOMPARE(view.texts(text("1 hidden app can be restored.")).size(), 1);
        QVERIFY(view.click(QAccessible::Button, "Restore Hidden Apps"));
        QVERIFY(view.value<Key::hiddenAppPaths>().isEmpty());
        QCOMPARE(view.texts(text("No apps are hidden from Zelmo.")).size(), 1);
        view.set<Key::hiddenAppPaths>({text("/Applications/Chess.app"), text("/Applications/Mail.app")});
        QCOMPARE(view.texts(text("2 hidden apps can be restored.")).size(), 1);
        QVERIFY(view.focus(QAccessible::Button, "Restore Hidden Apps"));
        view.type({Qt::Key_Return});
        QVERIFY(view.value<Key::hiddenAppPaths>().isEmpty());
    }

    void theThirdTapRevealsTheInterfaces() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto extras = [&] { return view.control(QAccessible::Grouping, text("Interface")); };
        const auto number = [&] {
            return view.control(QAccessible::Button, text("Coming Soon"))->text(QAccessible::Description);
        };
        for (const char* needed : {"3", "2", "1"}) {
            QVERIFY(!extras());
            QCOMPARE(number(), text(needed));
            QCOMPARE(view.texts(text("Tap three times to preview upcoming layouts.")).size(), 1);
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        }
        QVERIFY(QTest::qWaitFor([&] { return extras() != nullptr; }));
        QVERIFY(view.texts(text("Tap three times to preview upcoming layouts.")).isEmpty());
        QCOMPARE(view.texts(text("Tap Coming Soon three times to reveal these playful previews.")).size(), 1);
        QCOMPARE(view.texts(text("Unlocked")).size(), 1);
        QVERIFY(std::ranges::any_of(view.items("zelmo::SymbolItem"), [](const QQuickItem* symbol) {
            return symbol->property("name").toString() == QLatin1StringView("wand.and.stars");
        }));
        QVERIFY(view.click(QAccessible::Button, "Experimental Interfaces"));
        QVERIFY(extras());
    }

    void theInterfacesAppearSlowlyAtBothEnds() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (int i = 0; i < 3; ++i)
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        QObject* animation = nullptr;
        for (QObject* candidate : view.window().view()->findChildren<QObject*>()) {
            if (candidate->inherits("QQuickNumberAnimation") &&
                candidate->property("properties").toString().isEmpty() &&
                candidate->property("duration").toInt() == 180)
                animation = candidate;
        }
        QVERIFY(animation);
        const auto curve = animation->property("easing").value<QEasingCurve>();
        QCOMPARE(curve.type(), QEasingCurve::BezierSpline);
        QVERIFY(curve.valueForProgress(0.1) < 0.05);
        QVERIFY(curve.valueForProgress(0.9) > 0.95);
        QVERIFY(std::abs(curve.valueForProgress(0.5) - 0.5) < 0.01);
        QVERIFY(waitUntilRevealed(view));
    }

    void eachInterfaceCanBePickedByPointerAndKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (int i = 0; i < 3; ++i)
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        QVERIFY(waitUntilRevealed(view));
        const auto expect = [&](int i) {
            QCOMPARE(view.value<Key::launcherInterfaceStyle>(), rawValue(static_cast<LauncherInterfaceStyle>(i)));
            for (int other = 0; other < interfaceStyleCount; ++other) {
                const QString name = title(static_cast<LauncherInterfaceStyle>(other));
                QCOMPARE(view.control(QAccessible::RadioButton, name)->state().checked, other == i);
            }
        };
        for (const int i : {3, 2, 1, 0, 2, 2}) {
            const QString name = title(static_cast<LauncherInterfaceStyle>(i));
            QVERIFY(view.click(QAccessible::RadioButton, name.toLatin1().constData()));
            expect(i);
        }
        QVERIFY(view.focus(QAccessible::RadioButton, "Minimal"));
        view.type({Qt::Key_Right});
        expect(3);
        view.type({Qt::Key_Right, Qt::Key_Left, Qt::Key_Left});
        expect(1);
        view.type({Qt::Key_Left, Qt::Key_Left});
        expect(0);
    }

private:
    // All of it is there in the end.
    static bool waitUntilRevealed(const SettingsOnView& view) {
        return QTest::qWaitFor([&] {
            const auto captions = view.texts(text("Tap Coming Soon three times to reveal these playful previews."));
            if (captions.size() != 1)
                return false;
            const QQuickItem* extras = captions[0]->parentItem()->parentItem();
            return extras->height() > 0 && extras->parentItem()->height() == extras->height();
        });
    }
    static bool checkmarkIsShown(const SettingsOnView& view) {
        return std::ranges::any_of(view.items("zelmo::SymbolItem"), [](const QQuickItem* symbol) {
            const QColor color = symbol->property("color").value<QColor>();
            return symbol->property("name").toString() == QLatin1StringView("checkmark.circle.fill") &&
                   color.hsvHue() > 90 && color.hsvHue() < 150;
        });
    }
};

QTEST_MAIN(SettingsActionsTest)
#include "SettingsActionsTest.moc"
