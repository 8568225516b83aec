#include "platform/linux/freedesktop/LocaleNames.h"

#include "platform/linux/freedesktop/OracleProcess.h"

#include <QTest>

using namespace zelmo;

class LocaleNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void moreExactFormsComeFirst() {
        const LocaleNames names({.lcAll = "sr_RS.UTF-8@latin"});
        QCOMPARE(names.names(), (QList<QByteArray>{"sr_RS.UTF-8@latin", "sr_RS@latin", "sr.UTF-8@latin", "sr@latin",
                                                   "sr_RS.UTF-8", "sr_RS", "sr.UTF-8", "sr", "C"}));
    }

    void rankIsThePlaceInTheList() {
        const LocaleNames names({.language = "de_AT:fr"});
        QCOMPARE(names.rankOf("de_AT"), 0);
        QCOMPARE(names.rankOf("fr"), 2);
        QCOMPARE(names.rankOf("C"), 3);
        QCOMPARE(names.rankOf("d"), -1);
        QCOMPARE(names.rankOf("de_DE"), -1);
    }

    void variablesMeanWhatTheyMeanToGLib_data() {
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QByteArray>("lcAll");
        QTest::addColumn<QByteArray>("lcMessages");
        QTest::addColumn<QByteArray>("lang");
        const auto row = [](const char* name, const QByteArray& language, const QByteArray& lcAll,
                            const QByteArray& lcMessages,
                            const QByteArray& lang) { QTest::newRow(name) << language << lcAll << lcMessages << lang; };
        row("nothing set", "", "", "", "");
        row("the list before all", "de_AT:fr:en_GB", "it_IT", "es_ES", "pt_BR");
        row("the list also in the C locale", "de", "C", "", "");
        row("all before messages", "", "it_IT.UTF-8", "es_ES", "pt_BR");
        row("messages before the language", "", "", "es_ES@euro", "pt_BR");
        row("the language", "", "", "", "pt_BR.UTF-8");
        row("modifier", "", "ca_ES.UTF-8@valencia", "", "");
        row("modifier without a country", "", "sr@latin", "", "");
        row("codeset without a country", "", "de.ISO-8859-1", "", "");
        row("empty parts of the list", ":de::fr:", "", "", "");
        row("the C locale", "", "C.UTF-8", "", "");
        row("POSIX", "", "POSIX", "", "");
        row("marks in a strange order", "a@b_c.d:a.b_c@d:@x_y.z_q@r", "", "", "");
        row("marks alone", "_:.:@:_.@:a_:a_.b", "", "", "");
        row("repeated marks", "a_b_c.d.e@f@g", "", "", "");
    }
    void variablesMeanWhatTheyMeanToGLib() {
        QFETCH(QByteArray, language);
        QFETCH(QByteArray, lcAll);
        QFETCH(QByteArray, lcMessages);
        QFETCH(QByteArray, lang);
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("LANGUAGE"), QString::fromUtf8(language));
        environment.insert(QStringLiteral("LC_ALL"), QString::fromUtf8(lcAll));
        environment.insert(QStringLiteral("LC_MESSAGES"), QString::fromUtf8(lcMessages));
        environment.insert(QStringLiteral("LANG"), QString::fromUtf8(lang));
        const auto expected = askOracle(QStringLiteral("languages"), environment);
        QVERIFY(expected);
        QCOMPARE(LocaleNames({language, lcAll, lcMessages, lang}).names(), *expected);
    }

    void environmentIsRead() {
        qputenv("LANGUAGE", "");
        qputenv("LC_ALL", "nb_NO");
        QCOMPARE(LocaleNames::fromEnvironment().names(), (QList<QByteArray>{"nb_NO", "nb", "C"}));
        qputenv("LANGUAGE", "fr");
        QCOMPARE(LocaleNames::fromEnvironment().names(), (QList<QByteArray>{"fr", "C"}));
    }
};

QTEST_GUILESS_MAIN(LocaleNamesTest)
#include "LocaleNamesTest.moc"
