#include "ui/CardGrid.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStandardItemModel>
#include <QTest>

using namespace zelmo;

namespace {

constexpr int nameRole = Qt::UserRole;

class NamesModel : public QStandardItemModel {
public:
    QHash<int, QByteArray> roleNames() const override { return {{nameRole, "name"}}; }

    void append(const QString& name) { insert(rowCount(), name); }
    void insert(int row, const QString& name) {
        auto* item = new QStandardItem;
        item->setData(name, nameRole);
        insertRow(row, item);
    }
};

// Three columns of 100 by 50, 10 apart each way, in a window that shows a part of it.
class Fixture {
public:
    explicit Fixture(int rows) : component(&engine) {
        for (int i = 0; i < rows; ++i)
            model.append(QString::number(i));
        component.setData("import QtQuick\nItem { required property string name; width: 100; height: 50 }", QUrl());
        grid.setParentItem(window.contentItem());
        grid.setProperty("columns", 3);
        grid.setProperty("columnWidth", 100);
        grid.setProperty("columnSpacing", 10);
        grid.setProperty("cardHeight", 50);
        grid.setProperty("rowSpacing", 10);
        grid.setProperty("visibleHeight", 120);
        grid.setCard(&component);
        grid.setModel(&model);
        grid.classBegin();
        grid.componentComplete();
        window.resize(400, 300);
        window.show();
    }

    // The visible cards' names, by their places.
    QStringList shown() {
        grid.ensurePolished();
        QList<QQuickItem*> cards;
        for (QQuickItem* item : grid.childItems()) {
            if (item->isVisible() && item->property("name").isValid())
                cards.append(item);
        }
        std::sort(cards.begin(), cards.end(), [](const QQuickItem* a, const QQuickItem* b) {
            return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
        });
        QStringList names;
        for (const QQuickItem* card : cards)
            names.append(card->property("name").toString());
        return names;
    }
    QQuickItem* cardNamed(const QString& name) {
        for (QQuickItem* item : grid.childItems()) {
            if (item->isVisible() && item->property("name").toString() == name)
                return item;
        }
        return nullptr;
    }

    QQmlEngine engine;
    NamesModel model;
    QQmlComponent component;
    QQuickWindow window;

    class Grid : public CardGrid {
    public:
        using CardGrid::classBegin;
        using CardGrid::componentComplete;
    } grid;
};

QStringList numbers(int from, int to) {
    QStringList list;
    for (int i = from; i < to; ++i)
        list.append(QString::number(i));
    return list;
}

} // namespace

class CardGridTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cardsStandInColumnsFromLeftToRight() {
        Fixture fixture(5);
        QCOMPARE(fixture.shown(), numbers(0, 5));
        QCOMPARE(fixture.cardNamed(QStringLiteral("2"))->position(), QPointF(220, 0));
        QCOMPARE(fixture.cardNamed(QStringLiteral("4"))->position(), QPointF(110, 60));
        QCOMPARE(fixture.grid.implicitWidth(), 320.0);
        QCOMPARE(fixture.grid.implicitHeight(), 110.0);
    }

    void onlyCardsInSightExist() {
        Fixture fixture(10000);
        QCOMPARE(fixture.shown(), numbers(0, 6));
        QCOMPARE(fixture.grid.cardCount(), 6);
        QCOMPARE(fixture.grid.implicitHeight(), 3334 * 60.0 - 10);
    }

    void scrollingUsesTheSameCardsAgain() {
        Fixture fixture(10000);
        QCOMPARE(fixture.shown(), numbers(0, 6));
        for (int top = 0; top < 60 * 200; top += 7)
            fixture.grid.setProperty("visibleTop", top);
        fixture.grid.setProperty("visibleTop", 60 * 100 + 30);
        QCOMPARE(fixture.shown(), numbers(300, 309));
        fixture.grid.setProperty("visibleTop", 60 * 3333);
        QCOMPARE(fixture.shown(), numbers(9999, 10000));
        QCOMPARE(fixture.grid.cardCount(), 9);
    }

    void aCardMovesWithItsRow() {
        Fixture fixture(6);
        QCOMPARE(fixture.shown(), numbers(0, 6));
        const QQuickItem* last = fixture.cardNamed(QStringLiteral("5"));
        fixture.model.removeRows(0, 4);
        QCOMPARE(fixture.shown(), numbers(4, 6));
        QCOMPARE(fixture.cardNamed(QStringLiteral("5")), last);
        QCOMPARE(last->position(), QPointF(110, 0));
        fixture.model.insert(0, QStringLiteral("new"));
        QCOMPARE(fixture.shown(), (QStringList{QStringLiteral("new"), QStringLiteral("4"), QStringLiteral("5")}));
        QCOMPARE(fixture.cardNamed(QStringLiteral("5")), last);
        QCOMPARE(fixture.grid.cardCount(), 6);
    }

    void aChangedRowIsWrittenToItsCard() {
        Fixture fixture(3);
        QCOMPARE(fixture.shown(), numbers(0, 3));
        fixture.model.item(1)->setData(QStringLiteral("changed"), nameRole);
        QCOMPARE(fixture.shown(), (QStringList{QStringLiteral("0"), QStringLiteral("changed"), QStringLiteral("2")}));
    }

    void anEmptyModelShowsNothing() {
        Fixture fixture(3);
        QCOMPARE(fixture.shown(), numbers(0, 3));
        fixture.model.clear();
        QCOMPARE(fixture.shown(), QStringList());
        QCOMPARE(fixture.grid.implicitHeight(), 0.0);
        fixture.model.append(QStringLiteral("again"));
        QCOMPARE(fixture.shown(), QStringList{QStringLiteral("again")});
    }

    void aGridWithoutHeightMakesNoCards() {
        Fixture fixture(100);
        fixture.grid.setProperty("cardHeight", 0);
        fixture.grid.setProperty("rowSpacing", 0);
        QCOMPARE(fixture.shown(), QStringList());
    }
};

QTEST_MAIN(CardGridTest)
#include "CardGridTest.moc"
