#include "TemporaryFolder.h"

#include "platform/linux/desktop/KdeAnimations.h"

#include <QTest>

using namespace zelmo;

class KdeAnimationsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TemporaryFolder> m_folder;

    std::optional<bool> reduces() const { return kdeReducesMotion({m_folder->path("own"), m_folder->path("shared")}); }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<TemporaryFolder>(); }

    void onlyAFactorOfZeroMeansLessMotion_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<std::optional<bool>>("wanted");
        const std::optional<bool> nothing;
        QTest::newRow("zero") << QByteArray("0") << std::optional(true);
        QTest::newRow("zero with places") << QByteArray(" 0.00 ") << std::optional(true);
        QTest::newRow("fast") << QByteArray("0.1") << std::optional(false);
        QTest::newRow("as designed") << QByteArray("1") << std::optional(false);
        QTest::newRow("negative") << QByteArray("-1") << nothing;
        QTest::newRow("no number") << QByteArray("nan") << nothing;
        QTest::newRow("text") << QByteArray("slow") << nothing;
        QTest::newRow("empty") << QByteArray("") << nothing;
    }
    void onlyAFactorOfZeroMeansLessMotion() {
        QFETCH(QByteArray, value);
        QFETCH(std::optional<bool>, wanted);
        m_folder->writeFile("own/kdeglobals", "[General]\nfont=x\n[KDE]\nAnimationDurationFactor=" + value + "\n");
        QCOMPARE(reduces(), wanted);
    }

    void theFactorOfAnotherGroupIsAnotherThing() {
        m_folder->writeFile("own/kdeglobals", "AnimationDurationFactor=0\n[General]\nAnimationDurationFactor=0\n");
        QCOMPARE(reduces(), std::nullopt);
    }

    void theUsersOwnSettingsCountFirst() {
        QCOMPARE(reduces(), std::nullopt);
        m_folder->writeFile("shared/kdeglobals", "[KDE]\nAnimationDurationFactor=0\n");
        QCOMPARE(reduces(), std::optional(true));
        m_folder->writeFile("own/kdedefaults/kdeglobals", "[KDE]\nAnimationDurationFactor=1\n");
        QCOMPARE(reduces(), std::optional(false));
        m_folder->writeFile("own/kdeglobals", "[KDE]\nAnimationDurationFactor[$i]=0\n");
        QCOMPARE(reduces(), std::optional(true));
        m_folder->writeFile("own/kdeglobals", "[KDE]\nSingleClick=false\n");
        QCOMPARE(reduces(), std::optional(false));
    }

    void whatIsNoFileOfSettingsSaysNothing() {
        m_folder->makeFolders("own/kdeglobals");
        QCOMPARE(reduces(), std::nullopt);
        QCOMPARE(kdeReducesMotion({}), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(KdeAnimationsTest)
#include "KdeAnimationsTest.moc"
