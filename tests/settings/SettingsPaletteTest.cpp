#include "settings/SettingsPalette.h"
#include "SettingsFixture.h"

#include <QPalette>
#include <QSignalSpy>

using namespace zelmo;
using namespace zelmo::test;

class SettingsPaletteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingCanBeToldFromItsGround_data() {
        QTest::addColumn<SchemeWish>("wish");
        QTest::addColumn<QColor>("accent");
        for (const SchemeWish wish : {SchemeWish::light, SchemeWish::dark}) {
            for (const char* accent : {"", "#ffffff", "#000000", "#ffff00", "#2a2a2e", "#e01b24", "#3584e4", "#808080"})
                QTest::addRow("%s %s", wish == SchemeWish::dark ? "dark" : "light", accent)
                    << wish << QColor(QString::fromLatin1(accent));
        }
    }
    void everythingCanBeToldFromItsGround() {
        QFETCH(SchemeWish, wish);
        QFETCH(QColor, accent);
        FakeColorScheme scheme;
        scheme.scheme = wish;
        if (accent.isValid())
            scheme.accentColor = accent;
        const SettingsPalette palette(scheme);
        QCOMPARE(palette.isDark(), wish == SchemeWish::dark);
        const auto contrast = &SettingsPalette::contrast;
        for (const QColor& ground : {palette.window(), palette.group(), palette.popup()}) {
            QVERIFY(contrast(palette.text(), ground) >= 7);
            QVERIFY(contrast(palette.secondaryText(), ground) >= 4.5);
        }
        QVERIFY(contrast(palette.orange(), palette.group()) >= 4.5);
        QVERIFY(contrast(palette.green(), palette.group()) >= 3);
        QVERIFY(contrast(palette.track(), palette.group()) >= 3);
        QVERIFY(contrast(palette.accent(), palette.group()) >= 3);
        QVERIFY(contrast(palette.accentText(), palette.accent()) >= 4.5);
    }

    void anAccentThatStandsOutIsTakenAsItIs() {
        FakeColorScheme scheme;
        scheme.accentColor = QColor(0xe0, 0x1b, 0x24);
        QCOMPARE(SettingsPalette(scheme).accent(), *scheme.accentColor);
    }

    void withoutAWishTheToolkitsWindowColorDecides() {
        FakeColorScheme scheme;
        scheme.scheme = SchemeWish::unknown;
        const QPalette before = QGuiApplication::palette();
        const auto setWindow = [&before](const QColor& color) {
            QPalette changed = before;
            changed.setColor(QPalette::Window, color);
            QGuiApplication::setPalette(changed);
        };
        setWindow(QColor(0x20, 0x20, 0x20));
        const SettingsPalette palette(scheme);
        QVERIFY(palette.isDark());
        QSignalSpy changes(&palette, &SettingsPalette::changed);
        setWindow(QColor(0xf0, 0xf0, 0xf0));
        QVERIFY(!changes.isEmpty() || changes.wait());
        QVERIFY(!palette.isDark());
        // What the desktop says counts more.
        scheme.change(SchemeWish::dark);
        QVERIFY(palette.isDark());
        QGuiApplication::setPalette(before);
    }

    void aChangeOfTheDesktopIsFollowed() {
        FakeColorScheme scheme;
        const SettingsPalette palette(scheme);
        QCOMPARE(scheme.starts, 1);
        const QColor group = palette.group();
        const QSignalSpy changes(&palette, &SettingsPalette::changed);
        scheme.change(SchemeWish::dark, QColor(0xff, 0x80, 0x00));
        QCOMPARE(changes.size(), 1);
        QVERIFY(palette.group() != group);
        QCOMPARE(palette.accent(), QColor(0xff, 0x80, 0x00));
    }

    void afterItsEndTheDesktopReachesNobody() {
        FakeColorScheme scheme;
        { const SettingsPalette palette(scheme); }
        scheme.change(SchemeWish::dark);
    }

    void contrastsAreTheKnownOnes() {
        QCOMPARE(SettingsPalette::contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(SettingsPalette::contrast(Qt::red, Qt::red), 1.0);
        QVERIFY(std::abs(SettingsPalette::contrast(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
    }
};

QTEST_MAIN(SettingsPaletteTest)
#include "SettingsPaletteTest.moc"
