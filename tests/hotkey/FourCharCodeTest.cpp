#include "hotkey/FourCharCode.h"

#include <QTest>

using zelmo::fourCharCode;

class FourCharCodeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstByteIsTheHighest() { QCOMPARE(fourCharCode("ZLM1"), 0x5A4C4D31U); }
    void aShorterTextFillsTheLowBytes() {
        QCOMPARE(fourCharCode(""), 0U);
        QCOMPARE(fourCharCode("A"), 0x41U);
    }
    void theLastFourBytesOfALongerTextRemain() { QCOMPARE(fourCharCode("xyZLM1"), fourCharCode("ZLM1")); }
    void bytesBeyondAsciiCountAsTheyAre() { QCOMPARE(fourCharCode("\xC3\xA4"), 0xC3A4U); }
};

QTEST_GUILESS_MAIN(FourCharCodeTest)
#include "FourCharCodeTest.moc"
