#include "ui/AlertWindowPresenter.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <QTimer>

using namespace zelmo;

namespace {

Alert question(const QString& message = QStringLiteral("Uninstall Chess?")) {
    return {.style = AlertStyle::warning,
            .message = message,
            .informativeText = QStringLiteral("It can be restored."),
            .buttons = {QStringLiteral("Move to Trash"), QStringLiteral("Cancel")}};
}

QQuickView* alertView() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (auto* view = qobject_cast<QQuickView*>(window); view && view->isVisible())
            return view;
    }
    return nullptr;
}

QList<QAccessibleInterface*> accessibleItems(QAccessibleInterface* parent, QAccessible::Role role) {
    QList<QAccessibleInterface*> found;
    for (int i = 0; i < parent->childCount(); ++i) {
        QAccessibleInterface* child = parent->child(i);
        if (child->role() == role)
            found.append(child);
        found += accessibleItems(child, role);
    }
    return found;
}

void collectTexts(const QQuickItem* item, QList<const QQuickItem*>& texts) {
    if (item->inherits("QQuickText"))
        texts.append(item);
    for (const QQuickItem* child : item->childItems())
        collectTexts(child, texts);
}

} // namespace

class AlertWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keysAnswer_data() {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<qsizetype>("answer");
        const auto row = [](const char* name, const QList<int>& keys, qsizetype answer) {
            QTest::newRow(name) << keys << answer;
        };
        row("Return presses the default button", {Qt::Key_Return}, 0);
        row("Enter too", {Qt::Key_Enter}, 0);
        row("Space too", {Qt::Key_Space}, 0);
        row("Escape takes the last", {Qt::Key_Escape}, 1);
        row("Tab goes to the next", {Qt::Key_Tab, Qt::Key_Return}, 1);
        row("and around", {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}, 0);
        row("Backtab goes back", {Qt::Key_Backtab, Qt::Key_Return}, 1);
        row("arrows do as well", {Qt::Key_Left, Qt::Key_Return}, 1);
        row("there and back", {Qt::Key_Left, Qt::Key_Right, Qt::Key_Return}, 0);
        row("other keys do nothing", {Qt::Key_A, Qt::Key_Delete, Qt::Key_Return}, 0);
    }
    void keysAnswer() {
        QFETCH(QList<int>, keys);
        QFETCH(qsizetype, answer);
        QCOMPARE(runWith(question(),
                         [&](QQuickView& view) {
                             for (const int key : keys)
                                 QTest::keyClick(&view, static_cast<Qt::Key>(key));
                         }),
                 answer);
    }

    void aClickAnswers_data() {
        QTest::addColumn<int>("button");
        QTest::newRow("first") << 0;
        QTest::newRow("second") << 1;
    }
    void aClickAnswers() {
        QFETCH(int, button);
        QCOMPARE(runWith(question(),
                         [&](QQuickView& view) {
                             const auto buttons =
                                 accessibleItems(QAccessible::queryAccessibleInterface(&view), QAccessible::Button);
                             QCOMPARE(buttons.size(), 2);
                             const QPoint center = view.mapFromGlobal(buttons[button]->rect().center());
                             QTest::mouseClick(&view, Qt::LeftButton, {}, center);
                         }),
                 qsizetype(button));
    }

    void closingTakesTheLastButton() {
        QCOMPARE(runWith(question(), [](QQuickView& view) { view.close(); }), 1);
    }

    void theEndOfTheProgramTakesTheLastButton() {
        QCOMPARE(runWith(question(), [](QQuickView&) { QCoreApplication::exit(); }), 1);
    }

    void itIsModalWithTheDefaultButtonFocused() {
        runWith(question(), [](QQuickView& view) {
            QCOMPARE(view.modality(), Qt::ApplicationModal);
            QCOMPARE(view.title(), QStringLiteral("Uninstall Chess?"));
            QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&view);
            const auto alerts = accessibleItems(window, QAccessible::AlertMessage);
            QCOMPARE(alerts.size(), 1);
            QCOMPARE(alerts[0]->text(QAccessible::Name), QStringLiteral("Uninstall Chess?"));
            QCOMPARE(alerts[0]->text(QAccessible::Description), QStringLiteral("It can be restored."));
            const auto buttons = accessibleItems(window, QAccessible::Button);
            QCOMPARE(buttons.size(), 2);
            QCOMPARE(buttons[0]->text(QAccessible::Name), QStringLiteral("Move to Trash"));
            QVERIFY(buttons[0]->state().defaultButton);
            QVERIFY(buttons[0]->state().focused);
            QCOMPARE(buttons[1]->text(QAccessible::Name), QStringLiteral("Cancel"));
            QVERIFY(!buttons[1]->state().defaultButton);
            QVERIFY(!buttons[1]->state().focused);
            // The default one stands at the end of the line.
            QVERIFY(buttons[0]->rect().left() > buttons[1]->rect().right());
            view.close();
        });
    }

    void aLongNameStaysInside() {
        runWith(question(QStringLiteral("Uninstall <b>") + QString(300, u'W') + QStringLiteral("</b>?")),
                [](QQuickView& view) {
                    QCOMPARE(view.width(), 460);
                    QList<const QQuickItem*> texts;
                    collectTexts(view.rootObject(), texts);
                    QVERIFY(texts.size() >= 5);
                    for (const QQuickItem* text : std::as_const(texts)) {
                        const QRectF place = text->mapRectToScene(QRectF(0, 0, text->width(), text->height()));
                        QVERIFY(QRectF(0, 0, view.width(), view.height()).contains(place));
                        QVERIFY(text->property("paintedWidth").toReal() <= text->width() + 1);
                    }
                    view.close();
                });
    }

    void oneButtonIsBothTheDefaultAndTheWayOut() {
        Alert alert = question();
        alert.style = AlertStyle::informational;
        alert.buttons = {QStringLiteral("OK")};
        QCOMPARE(runWith(alert, [](QQuickView& view) { QTest::keyClick(&view, Qt::Key_Escape); }), 0);
        QCOMPARE(runWith(alert, [](QQuickView& view) { QTest::keyClick(&view, Qt::Key_Return); }), 0);
    }

private:
    // Does something with the alert once it is up; gives back its answer.
    static qsizetype runWith(const Alert& alert, const std::function<void(QQuickView&)>& act) {
        QTimer wait;
        connect(&wait, &QTimer::timeout, &wait, [&] {
            QQuickView* view = alertView();
            if (!view || !view->isActive())
                return;
            wait.stop();
            act(*view);
        });
        wait.start(1);
        AlertWindowPresenter presenter;
        return presenter.runModal(alert);
    }
};

QTEST_MAIN(AlertWindowTest)
#include "AlertWindowTest.moc"
