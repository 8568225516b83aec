#include "appearance/AppIconStyle.h"
#include "support/CatalogFakes.h"

#include <QTest>

using namespace zelmo;

class AppIconStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyStyleHasItsRow_data() {
        QTest::addColumn<AppIconStyle>("style");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("title");
        QTest::newRow("mosaic") << AppIconStyle::mosaic << 0 << QStringLiteral("Mosaic");
        QTest::newRow("aurora") << AppIconStyle::aurora << 1 << QStringLiteral("Aurora");
        QTest::newRow("stack") << AppIconStyle::stack << 2 << QStringLiteral("Stack");
        QTest::newRow("spark") << AppIconStyle::spark << 3 << QStringLiteral("Spark");
    }
    void everyStyleHasItsRow() {
        QFETCH(AppIconStyle, style);
        QFETCH(int, position);
        QFETCH(QString, title);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QCOMPARE(appIconStyleCount, 4);
        QCOMPARE(static_cast<int>(style), position);
        QCOMPARE(rawValue(style), name);
        QCOMPARE(zelmo::title(style), title);
        QCOMPARE(appIconStyleFromRawValue(name), std::optional(style));
        QCOMPARE(appIconStyleFromRawValue(title), std::nullopt);
    }

    void otherTextsNameNoStyle() {
        for (const QStringView text : {u"", u"STACK", u"spark ", u" aurora", u"mos", u"prism"})
            QCOMPARE(appIconStyleFromRawValue(text), std::nullopt);
    }

    void theChosenStyleIsTheStoredOne_data() { everyStyleHasItsRow_data(); }
    void theChosenStyleIsTheStoredOne() {
        QFETCH(AppIconStyle, style);
        test::FakeStorage storage;
        storage.values = {{QStringLiteral("appIconStyle"), QString::fromLatin1(QTest::currentDataTag())}};
        QCOMPARE(chosenAppIconStyle(Preferences(storage)), style);
    }

    void aLaterChoiceCounts() {
        test::FakeStorage storage;
        Preferences preferences(storage);
        preferences.setValue<PreferenceKey::appIconStyle>(QStringLiteral("spark"));
        QCOMPARE(chosenAppIconStyle(preferences), AppIconStyle::spark);
        preferences.setValue<PreferenceKey::appIconStyle>(QStringLiteral("aurora"));
        QCOMPARE(chosenAppIconStyle(preferences), AppIconStyle::aurora);
    }

    void theFirstStyleStandsInForWhatNamesNone_data() {
        QTest::addColumn<PreferenceValues>("values");
        const QString key = QStringLiteral("appIconStyle");
        QTest::newRow("absent") << PreferenceValues();
        QTest::newRow("unknown") << PreferenceValues{{key, QStringLiteral("prism")}};
        QTest::newRow("empty") << PreferenceValues{{key, QString()}};
        QTest::newRow("title") << PreferenceValues{{key, QStringLiteral("Spark")}};
        QTest::newRow("number") << PreferenceValues{{key, 3.0}};
        QTest::newRow("boolean") << PreferenceValues{{key, true}};
        QTest::newRow("data") << PreferenceValues{{key, QByteArray("spark")}};
        QTest::newRow("array") << PreferenceValues{{key, QStringList(QStringLiteral("spark"))}};
    }
    void theFirstStyleStandsInForWhatNamesNone() {
        QFETCH(PreferenceValues, values);
        test::FakeStorage storage;
        storage.values = values;
        QCOMPARE(chosenAppIconStyle(Preferences(storage)), AppIconStyle::mosaic);
    }
};

QTEST_GUILESS_MAIN(AppIconStyleTest)
#include "AppIconStyleTest.moc"
