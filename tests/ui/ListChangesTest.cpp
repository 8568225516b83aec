#include "ui/ListChanges.h"

#include <QRandomGenerator>
#include <QTest>

using namespace zelmo;

namespace {

using Apps = QList<LaunchableApp>;

LaunchableApp appAt(const QString& path) {
    LaunchableApp app;
    app.id = app.url = FileUrl::fromPath(path);
    return app;
}

Apps apps(const QString& letters) {
    Apps list;
    for (const QChar letter : letters)
        list.append(appAt(QString(letter)));
    return list;
}

Apps applied(Apps list, const Apps& target, const std::vector<ListChange>& changes) {
    for (const ListChange& change : changes) {
        switch (change.kind) {
        case ListChange::Kind::remove:
            list.remove(change.first, change.count);
            break;
        case ListChange::Kind::insert:
            for (int i = change.first; i < change.first + change.count; ++i)
                list.insert(i, target[i]);
            break;
        case ListChange::Kind::move:
            // A move to itself or to behind itself is no move.
            if (change.to == change.first || change.to == change.first + 1)
                return {};
            list.move(change.first, change.to > change.first ? change.to - 1 : change.to);
            break;
        }
    }
    return list;
}

using Changes = std::vector<ListChange>;
using Kind = ListChange::Kind;

} // namespace

class ListChangesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void equalListsNeedNothing() {
        QCOMPARE(listChanges(apps(QStringLiteral("abc")), apps(QStringLiteral("abc"))).size(), 0);
    }

    void neighboursGoAndComeTogether() {
        QCOMPARE(
            listChanges(apps(QStringLiteral("abcdef")), apps(QStringLiteral("adf"))),
            (Changes{{.kind = Kind::remove, .first = 4, .count = 1}, {.kind = Kind::remove, .first = 1, .count = 2}}));
        QCOMPARE(
            listChanges(apps(QStringLiteral("adf")), apps(QStringLiteral("abcdef"))),
            (Changes{{.kind = Kind::insert, .first = 1, .count = 2}, {.kind = Kind::insert, .first = 4, .count = 1}}));
    }

    void oneRowThatMovedIsOneMove() {
        QCOMPARE(listChanges(apps(QStringLiteral("abcd")), apps(QStringLiteral("bcda"))),
                 (Changes{{.kind = Kind::move, .first = 0, .count = 1, .to = 4}}));
        QCOMPARE(listChanges(apps(QStringLiteral("abcd")), apps(QStringLiteral("dabc"))),
                 (Changes{{.kind = Kind::move, .first = 3, .count = 1, .to = 0}}));
    }

    void anyListBecomesAnyOther() {
        QRandomGenerator random(7);
        for (int round = 0; round < 3000; ++round) {
            const auto pick = [&] {
                QString letters = QStringLiteral("abcdefghijklmnop");
                std::shuffle(letters.begin(), letters.end(), random);
                return letters.left(random.bounded(16));
            };
            QString from = pick();
            QString to = pick();
            if (round % 2 == 0)
                std::sort(to.begin(), to.end());
            // The same in the same order, less some.
            if (round % 4 == 1)
                to = QString(from).removeIf([&](QChar) { return random.bounded(3) == 0; });
            if (round % 8 == 1)
                std::swap(from, to);
            const auto changes = listChanges(apps(from), apps(to));
            QVERIFY2(applied(apps(from), apps(to), changes) == apps(to), qPrintable(from + u" to " + to));
        }
    }

    void manyDifferencesAreTwoSteps() {
        Apps all;
        Apps everyOther;
        for (int i = 0; i < 1000; ++i) {
            all.append(appAt(QString::number(i)));
            if (i % 2 == 0)
                everyOther.append(all.last());
        }
        for (const auto& [from, to] : {std::pair(all, everyOther), std::pair(everyOther, all)}) {
            const auto changes = listChanges(from, to);
            QCOMPARE(changes.size(), std::size_t{2});
            QCOMPARE(applied(from, to, changes), to);
        }
        const Apps reversed(all.crbegin(), all.crend());
        QVERIFY(listChanges(all, reversed).size() <= mostListChanges);
        QCOMPARE(applied(all, reversed, listChanges(all, reversed)), reversed);
    }
};

QTEST_GUILESS_MAIN(ListChangesTest)
#include "ListChangesTest.moc"
