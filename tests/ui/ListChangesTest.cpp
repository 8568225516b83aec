#include "ui/ListChanges.h"

#include <QRandomGenerator>
#include <QTest>

using namespace zelmo;

namespace {

QList<FileUrl> urls(const QString& letters) {
    QList<FileUrl> list;
    for (const QChar letter : letters)
        list.append(FileUrl::fromPath(QString(letter)));
    return list;
}

QList<FileUrl> applied(QList<FileUrl> list, const QList<FileUrl>& target, const std::vector<ListChange>& changes) {
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
        QCOMPARE(listChanges(urls(QStringLiteral("abc")), urls(QStringLiteral("abc"))).size(), 0);
    }

    void neighboursGoAndComeTogether() {
        QCOMPARE(
            listChanges(urls(QStringLiteral("abcdef")), urls(QStringLiteral("adf"))),
            (Changes{{.kind = Kind::remove, .first = 4, .count = 1}, {.kind = Kind::remove, .first = 1, .count = 2}}));
        QCOMPARE(
            listChanges(urls(QStringLiteral("adf")), urls(QStringLiteral("abcdef"))),
            (Changes{{.kind = Kind::insert, .first = 1, .count = 2}, {.kind = Kind::insert, .first = 4, .count = 1}}));
    }

    void oneRowThatMovedIsOneMove() {
        QCOMPARE(listChanges(urls(QStringLiteral("abcd")), urls(QStringLiteral("bcda"))),
                 (Changes{{.kind = Kind::move, .first = 0, .count = 1, .to = 4}}));
        QCOMPARE(listChanges(urls(QStringLiteral("abcd")), urls(QStringLiteral("dabc"))),
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
            const QString from = pick();
            QString to = pick();
            if (round % 2 == 0)
                std::sort(to.begin(), to.end());
            const auto changes = listChanges(urls(from), urls(to));
            QVERIFY2(applied(urls(from), urls(to), changes) == urls(to), qPrintable(from + u" to " + to));
        }
    }

    void manyDifferencesAreTwoSteps() {
        QList<FileUrl> all;
        QList<FileUrl> everyOther;
        for (int i = 0; i < 1000; ++i) {
            all.append(FileUrl::fromPath(QString::number(i)));
            if (i % 2 == 0)
                everyOther.append(all.last());
        }
        for (const auto& [from, to] : {std::pair(all, everyOther), std::pair(everyOther, all)}) {
            const auto changes = listChanges(from, to);
            QCOMPARE(changes.size(), std::size_t{2});
            QCOMPARE(applied(from, to, changes), to);
        }
        const QList<FileUrl> reversed(all.crbegin(), all.crend());
        QVERIFY(listChanges(all, reversed).size() <= mostListChanges);
        QCOMPARE(applied(all, reversed, listChanges(all, reversed)), reversed);
    }
};

QTEST_GUILESS_MAIN(ListChangesTest)
#include "ListChangesTest.moc"
