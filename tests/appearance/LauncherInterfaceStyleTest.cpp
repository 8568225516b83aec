#include "appearance/LauncherInterfaceStyle.h"

#include <QTest>

using namespace zelmo;
using Style = LauncherInterfaceStyle;

class LauncherInterfaceStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyStyleHasItsRow_data() {
        QTest::addColumn<Style>("style");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("title");
        QTest::addColumn<AppTileVariant>("variant");
        QTest::newRow("grid") << Style::grid << 0 << QStringLiteral("Grid") << AppTileVariant::grid;
        QTest::newRow("list") << Style::list << 1 << QStringLiteral("List") << AppTileVariant::list;
        QTest::newRow("minimal") << Style::minimal << 2 << QStringLiteral("Minimal") << AppTileVariant::minimal;
        QTest::newRow("tiles") << Style::tiles << 3 << QStringLiteral("Tiles") << AppTileVariant::tile;
    }
    void everyStyleHasItsRow() {
        QFETCH(Style, style);
        QFETCH(int, position);
        QFETCH(QString, title);
        QFETCH(AppTileVariant, variant);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QCOMPARE(static_cast<int>(style), position);
        QCOMPARE(rawValue(style), name);
        QCOMPARE(zelmo::title(style), title);
        QCOMPARE(tileVariant(style), variant);
        QCOMPARE(interfaceStyleFromRawValue(name), std::optional(style));
        QCOMPARE(interfaceStyleFromRawValue(title), std::nullopt);
    }

    void thereAreFourStylesAndAsManyVariantsInOrder() {
        QCOMPARE(interfaceStyleCount, 4);
        QCOMPARE(static_cast<int>(AppTileVariant::grid), 0);
        QCOMPARE(static_cast<int>(AppTileVariant::list), 1);
        QCOMPARE(static_cast<int>(AppTileVariant::minimal), 2);
        QCOMPARE(static_cast<int>(AppTileVariant::tile), 3);
    }

    void otherTextsNameNoStyle() {
        // The variant's own name is none of the layout's.
        for (const QStringView text : {u"", u"tile", u"GRID", u"grid ", u" list", u"mini", u"columns"})
            QCOMPARE(interfaceStyleFromRawValue(text), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(LauncherInterfaceStyleTest)
#include "LauncherInterfaceStyleTest.moc"
