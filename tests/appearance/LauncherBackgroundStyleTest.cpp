#include "appearance/LauncherBackgroundStyle.h"
#include "support/CatalogFakes.h"

#include <QTest>

using namespace zelmo;
using Style = LauncherBackgroundStyle;
using Colors = QList<StyleColor>;

class LauncherBackgroundStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyStyleHasItsRow_data() {
        QTest::addColumn<Style>("style");
        QTest::addColumn<QString>("title");
        QTest::addColumn<Colors>("stops");
        const auto row = [](Style style, const char* name, const char* title, const Colors& stops) {
            QTest::newRow(name) << style << QString::fromLatin1(title) << stops;
        };
        row(Style::desktopBlur, "desktopBlur", "Desktop Blur", {{0, 0, 0, 0}, {0, 0, 0, 0}});
        row(Style::customColor, "customColor", "Custom Color", {{0.05, 0.08, 0.14, 1}, {0.05, 0.08, 0.14, 1}});
        row(Style::linen, "linen", "Linen", {{0.99, 0.96, 0.90, 1}, {0.93, 0.88, 0.78, 1}, {0.88, 0.94, 0.93, 1}});
        row(Style::softSky, "softSky", "Soft Sky",
            {{0.90, 0.96, 1.00, 1}, {0.78, 0.88, 1.00, 1}, {0.99, 0.93, 0.88, 1}});
        row(Style::morningMist, "morningMist", "Morning Mist",
            {{0.96, 0.98, 0.95, 1}, {0.84, 0.93, 0.88, 1}, {0.93, 0.91, 0.98, 1}});
        row(Style::candyPop, "candyPop", "Candy Pop", {{1.00, 0.34, 0.55, 1}, {0.42, 0.42, 1.00, 1}});
        row(Style::sunsetPunch, "sunsetPunch", "Sunset Punch", {{1.00, 0.38, 0.25, 1}, {1.00, 0.78, 0.28, 1}});
        row(Style::citrusSplash, "citrusSplash", "Citrus Splash", {{0.98, 0.88, 0.22, 1}, {0.20, 0.78, 0.45, 1}});
        row(Style::grapeSoda, "grapeSoda", "Grape Soda", {{0.38, 0.18, 0.78, 1}, {0.92, 0.32, 0.86, 1}});
        row(Style::mintCoral, "mintCoral", "Mint Coral", {{0.18, 0.82, 0.72, 1}, {1.00, 0.46, 0.40, 1}});
        row(Style::magmaGlow, "magmaGlow", "Magma Glow",
            {{0.12, 0.08, 0.18, 1}, {0.94, 0.26, 0.20, 1}, {1.00, 0.66, 0.22, 1}});
        row(Style::electricGarden, "electricGarden", "Electric Garden", {{0.09, 0.72, 0.38, 1}, {0.00, 0.78, 0.92, 1}});
        row(Style::berrySky, "berrySky", "Berry Sky", {{0.52, 0.22, 0.92, 1}, {0.28, 0.72, 1.00, 1}});
        row(Style::graphiteGlow, "graphiteGlow", "Graphite Glow",
            {{0.08, 0.09, 0.12, 1}, {0.34, 0.38, 0.48, 1}, {0.88, 0.48, 0.32, 1}});
    }
    void everyStyleHasItsRow() {
        QFETCH(Style, style);
        QFETCH(QString, title);
        QFETCH(Colors, stops);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        test::FakeStorage storage;
        QCOMPARE(rawValue(style), name);
        QCOMPARE(zelmo::title(style), title);
        QCOMPARE(colors(style, Preferences(storage)), stops);
        QCOMPARE(backgroundStyleFromRawValue(name), std::optional(style));
        QCOMPARE(backgroundStyleFromRawValue(title), std::nullopt);
    }

    void stylesStandInTheOrderOfThePicker() {
        const QStringList names{
            QStringLiteral("desktopBlur"), QStringLiteral("customColor"),  QStringLiteral("linen"),
            QStringLiteral("softSky"),     QStringLiteral("morningMist"),  QStringLiteral("candyPop"),
            QStringLiteral("sunsetPunch"), QStringLiteral("citrusSplash"), QStringLiteral("grapeSoda"),
            QStringLiteral("mintCoral"),   QStringLiteral("magmaGlow"),    QStringLiteral("electricGarden"),
            QStringLiteral("berrySky"),    QStringLiteral("graphiteGlow"),
        };
        QStringList found;
        for (int i = 0; i < backgroundStyleCount; ++i)
            found.append(rawValue(static_cast<Style>(i)));
        QCOMPARE(found, names);
    }

    void otherTextsNameNoStyle() {
        for (const QStringView text : {u"", u"Linen", u"LINEN", u"linen ", u"line", u"plaid"})
            QCOMPARE(backgroundStyleFromRawValue(text), std::nullopt);
    }

    void customComponentsAreTakenOneByOne_data() {
        QTest::addColumn<PreferenceValues>("values");
        QTest::addColumn<StyleColor>("color");
        const QString red = QStringLiteral("launcherBackgroundRed");
        const QString green = QStringLiteral("launcherBackgroundGreen");
        const QString blue = QStringLiteral("launcherBackgroundBlue");
        const QString text = QStringLiteral("0.2");
        QTest::newRow("none stored") << PreferenceValues() << StyleColor{0.05, 0.08, 0.14};
        QTest::newRow("red stored") << PreferenceValues{{red, 0.3}} << StyleColor{0.3, 0.08, 0.14};
        QTest::newRow("green stored") << PreferenceValues{{green, 0.4}} << StyleColor{0.05, 0.4, 0.14};
        QTest::newRow("blue stored") << PreferenceValues{{blue, 0.5}} << StyleColor{0.05, 0.08, 0.5};
        QTest::newRow("all stored") << PreferenceValues{{red, 0.3}, {green, 0.4}, {blue, 0.5}}
                                    << StyleColor{0.3, 0.4, 0.5};
        QTest::newRow("all zero") << PreferenceValues{{red, 0.0}, {green, 0.0}, {blue, 0.0}} << StyleColor{0, 0, 0};
        QTest::newRow("red a text") << PreferenceValues{{red, text}, {green, 0.4}, {blue, 0.5}}
                                    << StyleColor{0.05, 0.4, 0.5};
        QTest::newRow("green a text") << PreferenceValues{{red, 0.3}, {green, text}, {blue, 0.5}}
                                      << StyleColor{0.3, 0.08, 0.5};
        QTest::newRow("blue a text") << PreferenceValues{{red, 0.3}, {green, 0.4}, {blue, text}}
                                     << StyleColor{0.3, 0.4, 0.14};
        QTest::newRow("outside 0 to 1") << PreferenceValues{{red, 1.5}, {green, -0.25}, {blue, 255.0}}
                                        << StyleColor{1.5, -0.25, 255};
    }
    void customComponentsAreTakenOneByOne() {
        QFETCH(PreferenceValues, values);
        QFETCH(StyleColor, color);
        test::FakeStorage storage;
        storage.values = values;
        const Preferences preferences(storage);
        QCOMPARE(customBackgroundColor(preferences), color);
        QCOMPARE(colors(Style::customColor, preferences), Colors(2, color));
    }

    void theCustomColorFollowsTheDefaults() {
        test::FakeStorage storage;
        Preferences preferences(storage);
        QCOMPARE(colors(Style::customColor, preferences), Colors(2, {0.05, 0.08, 0.14}));
        preferences.setValue<PreferenceKey::launcherBackgroundGreen>(0.6);
        QCOMPARE(colors(Style::customColor, preferences), Colors(2, {0.05, 0.6, 0.14}));
    }
};

QTEST_GUILESS_MAIN(LauncherBackgroundStyleTest)
#include "LauncherBackgroundStyleTest.moc"
