#include "SettingsOnView.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

const char* const tileBackgrounds = "App Tile Backgrounds";

const QQuickItem* knobOf(const SettingsOnView& view) {
    const auto* indicator =
        view.item(QAccessible::CheckBox, tileBackgrounds)->property("indicator").value<QQuickItem*>();
    for (const QQuickItem* child : indicator->childItems()) {
        if (child->inherits("zelmo::PlateItem"))
            return child;
    }
    qFatal("a switch without a knob");
}

// What the third tap reveals, with the item that grows to its height.
const QQuickItem* extrasOf(const SettingsOnView& view) {
    const QString caption = QStringLiteral("Tap Coming Soon three times to reveal these playful previews.");
    for (const QQuickItem* text : view.window().view()->findChildren<QQuickItem*>()) {
        if (text->inherits("QQuickText") && text->property("text").toString() == caption)
            return text->parentItem()->parentItem();
    }
    qFatal("nothing to reveal");
}

void reveal(const SettingsOnView& view) {
    for (int i = 0; i < 3; ++i)
        QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
}

} // namespace

// What moves in the settings, and that it does not where the user asked the desktop for less movement.
class SettingsMotionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theKnobTravels() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const QQuickItem* knob = knobOf(view);
        QCOMPARE(knob->x(), 2.0);
        QVERIFY(view.click(QAccessible::CheckBox, tileBackgrounds));
        QVERIFY(knob->x() < 18);
        QTRY_COMPARE(knob->x(), 18.0);
    }
    void theKnobIsThereAtOnceForWhoWantsLessMovement() {
        SettingsOnView view;
        reduceMotion(view);
        const QQuickItem* knob = knobOf(view);
        QVERIFY(view.click(QAccessible::CheckBox, tileBackgrounds));
        QCOMPARE(knob->x(), 18.0);
        QVERIFY(view.click(QAccessible::CheckBox, tileBackgrounds));
        QCOMPARE(knob->x(), 2.0);
    }

    void theInterfacesUnfold() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const QQuickItem* extras = extrasOf(view);
        reveal(view);
        QVERIFY(extras->height() > 0);
        QVERIFY(extras->parentItem()->height() < extras->height());
        QVERIFY(extras->parentItem()->opacity() < 1);
        QTRY_COMPARE(extras->parentItem()->height(), extras->height());
        QTRY_COMPARE(extras->parentItem()->opacity(), 1.0);
    }
    void theInterfacesAreThereAtOnceForWhoWantsLessMovement() {
        SettingsOnView view;
        reduceMotion(view);
        const QQuickItem* extras = extrasOf(view);
        reveal(view);
        QVERIFY(extras->height() > 0);
        QCOMPARE(extras->parentItem()->height(), extras->height());
        QCOMPARE(extras->parentItem()->opacity(), 1.0);
    }

private:
    // The wish counts from the next opening on.
    static void reduceMotion(SettingsOnView& view) {
        view.motion.reduces = true;
        view.window().close();
        view.controller.showSettingsWindow();
        QVERIFY(view.waitUntilShown());
    }
};

QTEST_MAIN(SettingsMotionTest)
#include "SettingsMotionTest.moc"
