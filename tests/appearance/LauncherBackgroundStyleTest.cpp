#include "appearance/LauncherBackgroundStyle.h"
#include "support/CatalogFakes.h"

#include <QTest>

using namespace zelmo;
using Style = LauncherBackgroundStyle;

class LauncherBackgroundStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyStyleIsFoundByItsCaseNameOnly() {
        const QStringList names{
            QStringLiteral("desktopBlur"), QStringLiteral("customColor"),  QStringLiteral("linen"),
            QStringLiteral("softSky"),     QStringLiteral("morningMist"),  QStringLiteral("candyPop"),
            QStringLiteral("sunsetPunch"), QStringLiteral("citrusSplash"), QStringLiteral("grapeSoda"),
            QStringLiteral("mintCoral"),   QStringLiteral("magmaGlow"),    QStringLiteral("electricGarden"),
            QStringLiteral("berrySky"),    QStringLiteral("graphiteGlow"),
        };
        QCOMPARE(qsizetype(backgroundStyleCount), names.size());
        for (int i = 0; i < backgroundStyleCount; ++i) {
            const auto style = static_cast<Style>(i);
            QCOMPARE(rawValue(style), names[i]);
            QCOMPARE(backgroundStyleFromRawValue(names[i]), style);
            QVERIFY(!backgroundStyleFromRawValue(title(style)));
        }
        QVERIFY(!backgroundStyleFromRawValue(u"Linen"));
        QVERIFY(!backgroundStyleFromRawValue(u""));
        QCOMPARE(title(Style::softSky), QStringLiteral("Soft Sky"));
    }

    void gradientsHaveTheirStops() {
        test::FakeStorage storage;
        const Preferences preferences(storage);
        QCOMPARE(colors(Style::desktopBlur, preferences), (QList<StyleColor>{{0, 0, 0, 0}, {0, 0, 0, 0}}));
        QCOMPARE(colors(Style::linen, preferences),
                 (QList<StyleColor>{{0.99, 0.96, 0.90}, {0.93, 0.88, 0.78}, {0.88, 0.94, 0.93}}));
        QCOMPARE(colors(Style::berrySky, preferences), (QList<StyleColor>{{0.52, 0.22, 0.92}, {0.28, 0.72, 1.00}}));
        QCOMPARE(colors(Style::graphiteGlow, preferences),
                 (QList<StyleColor>{{0.08, 0.09, 0.12}, {0.34, 0.38, 0.48}, {0.88, 0.48, 0.32}}));
    }

    void customComponentsAreTakenOneByOneAndNotClamped() {
        test::FakeStorage storage;
        storage.values = {{QStringLiteral("launcherBackgroundRed"), 1.5},
                          {QStringLiteral("launcherBackgroundGreen"), QStringLiteral("0.2")},
                          {QStringLiteral("launcherBackgroundBlue"), -0.25}};
        const Preferences preferences(storage);
        QCOMPARE(customBackgroundColor(preferences), (StyleColor{1.5, 0.08, -0.25}));
        QCOMPARE(colors(Style::customColor, preferences), (QList<StyleColor>{{1.5, 0.08, -0.25}, {1.5, 0.08, -0.25}}));
    }

    void aFreshCustomColorIsDarkNavy() {
        test::FakeStorage storage;
        const Preferences preferences(storage);
        QCOMPARE(customBackgroundColor(preferences), (StyleColor{0.05, 0.08, 0.14}));
    }
};

QTEST_GUILESS_MAIN(LauncherBackgroundStyleTest)
#include "LauncherBackgroundStyleTest.moc"
