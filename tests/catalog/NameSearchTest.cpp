#include "catalog/NameSearch.h"

#include <QTest>

using namespace zelmo;

namespace {

QList<LaunchableApp> named(const QStringList& names) {
    QList<LaunchableApp> apps;
    for (const QString& name : names)
        apps.append({.id = {}, .name = name, .url = {}, .icon = {}});
    return apps;
}

using Positions = std::vector<qsizetype>;

} // namespace

class NameSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesThatContainTheTextAreFoundInOrder() {
        const NameSearch search(named({QStringLiteral("Safari"), QStringLiteral("Notes"), QStringLiteral("saf saf"),
                                       QString(), QStringLiteral("ri")}),
                                QLocale(QLocale::English));
        QCOMPARE(search.find(QStringLiteral("saf")), (Positions{0, 2}));
        QCOMPARE(search.find(QStringLiteral("ri")), (Positions{0, 4}));
        QCOMPARE(search.find(QStringLiteral("s")), (Positions{0, 1, 2}));
        QCOMPARE(search.find(QString()), (Positions{0, 1, 2, 3, 4}));
        QCOMPARE(search.find(QStringLiteral("x")), Positions{});
    }

    void aMatchNeverReachesIntoTheNextName() {
        const NameSearch search(named({QStringLiteral("ab"), QStringLiteral("cd")}), QLocale(QLocale::English));
        QCOMPARE(search.find(QStringLiteral("bc")), Positions{});
        QCOMPARE(search.find(QString::fromUtf16(u"b\0c", 3)), Positions{});
    }

    void lettersMatchComposedAndDecomposed() {
        const QString composed = QStringLiteral("Caf\u00e9");
        const QString decomposed = QStringLiteral("Cafe\u0301");
        const NameSearch search(named({composed, decomposed, QStringLiteral("Cafe")}), QLocale(QLocale::French));
        QCOMPARE(search.find(composed), (Positions{0, 1}));
        QCOMPARE(search.find(decomposed), (Positions{0, 1}));
        QCOMPARE(search.find(QStringLiteral("CAF\u00c9")), (Positions{0, 1}));
        QCOMPARE(search.find(QStringLiteral("cafe")), Positions{2});
    }

    void aBaseLetterIsNoPartOfAnAccentedOne() {
        // There is no composed form of this letter.
        const NameSearch search(named({QStringLiteral("x\u0302yx")}), QLocale(QLocale::English));
        QCOMPARE(search.find(QStringLiteral("x\u0302")), Positions{0});
        QCOMPARE(search.find(QStringLiteral("yx")), Positions{0});
        QCOMPARE(search.find(QStringLiteral("x\u0302y")), Positions{0});
        QCOMPARE(NameSearch(named({QStringLiteral("ax\u0302")}), QLocale(QLocale::English)).find(QStringLiteral("ax")),
                 Positions{});
    }

    void turkishTellsDottedAndDotlessApart() {
        const QStringList names{QStringLiteral("\u0130stanbul"), QStringLiteral("Isparta")};
        const NameSearch turkish(named(names), QLocale(QLocale::Turkish));
        QCOMPARE(turkish.find(QStringLiteral("istanbul")), Positions{0});
        QCOMPARE(turkish.find(QStringLiteral("\u0131sparta")), Positions{1});
        QCOMPARE(turkish.find(QStringLiteral("isparta")), Positions{});
        QCOMPARE(turkish.find(QStringLiteral("ISPARTA")), Positions{1});
        const NameSearch english(named(names), QLocale(QLocale::English));
        QCOMPARE(english.find(QStringLiteral("isparta")), Positions{1});
    }

    void caseFoldsBeyondLatin() {
        const NameSearch search(
            named({QStringLiteral("\u0391\u03a3\u03a4\u03a1\u03a9"), QStringLiteral("Stra\u00dfe")}),
            QLocale(QLocale::Greek));
        QCOMPARE(search.find(QStringLiteral("\u03b1\u03c3\u03c4\u03c1\u03c9")), Positions{0});
        QCOMPARE(search.find(QStringLiteral("STRASSE")), Positions{1});
    }
};

QTEST_GUILESS_MAIN(NameSearchTest)
#include "NameSearchTest.moc"
