#include "SettingsSchemas.h"

#include "platform/linux/desktop/GnomeAnimations.h"

#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

using Choice = SettingsSchemas::Choice;

class GnomeAnimationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("GSETTINGS_BACKEND", "memory"); }

    void theUsersChoiceCounts() {
        const SettingsSchemas schemas(SettingsSchemas::animationSwitch("true"));
        schemas.choose(Choice::still);
        QCOMPARE(gnomeReducesMotion(schemas.source()), std::optional(true));
        schemas.choose(Choice::animated);
        QCOMPARE(gnomeReducesMotion(schemas.source()), std::optional(false));
        schemas.choose(Choice::none);
    }

    // The description is installed with programs of every desktop, whose own settings then still count.
    void animationsThatNobodyChoseSayNothing() {
        const SettingsSchemas schemas(SettingsSchemas::animationSwitch("true"));
        QCOMPARE(gnomeReducesMotion(schemas.source()), std::nullopt);
    }

    void aSystemWithoutAnimationsIsHeeded() {
        const SettingsSchemas schemas(SettingsSchemas::animationSwitch("false"));
        QCOMPARE(gnomeReducesMotion(schemas.source()), std::optional(true));
    }

    void descriptionsThatLackTheSwitchSayNothing_data() {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("path");
        const QByteArray path(" path='/org/gnome/desktop/interface/'");
        QTest::newRow("another key") << QByteArray("<key name='clock' type='b'><default>false</default></key>") << path;
        QTest::newRow("another type") << QByteArray("<key name='enable-animations' type='i'><default>0</default></key>")
                                      << path;
        QTest::newRow("many places") << SettingsSchemas::animationSwitch("false") << QByteArray();
    }
    void descriptionsThatLackTheSwitchSayNothing() {
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, path);
        const SettingsSchemas schemas(key, path);
        QCOMPARE(gnomeReducesMotion(schemas.source()), std::nullopt);
    }

    void withoutADescriptionNothingIsSaid() { QCOMPARE(gnomeReducesMotion(nullptr), std::nullopt); }
};

QTEST_GUILESS_MAIN(GnomeAnimationsTest)
#include "GnomeAnimationsTest.moc"
