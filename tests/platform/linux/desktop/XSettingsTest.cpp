#include "XSettingsWriter.h"

#include "platform/linux/desktop/XSettings.h"

#include <QRandomGenerator>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Order = XSettingsWriter::Order;

constexpr const char* gtkName = "Gtk/EnableAnimations";
constexpr const char* netName = "Net/EnableAnimations";

// A setting of each type around one that is looked for.
QByteArray mixedSettings(Order order) {
    return XSettingsWriter(order)
        .text("Net/ThemeName", "Something")
        .color("Gtk/Color")
        .text("Gtk/FontName", "")
        .integer("Xft/DPI", 98304)
        .integer(gtkName, 0)
        .integer("Net/Negative", -2)
        .bytes();
}

} // namespace

class XSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void integersAreFoundAmongSettingsOfEachType_data() {
        QTest::addColumn<char>("order");
        QTest::newRow("least first") << static_cast<char>(Order::leastFirst);
        QTest::newRow("most first") << static_cast<char>(Order::mostFirst);
    }
    void integersAreFoundAmongSettingsOfEachType() {
        QFETCH(char, order);
        const QByteArray bytes = mixedSettings(static_cast<Order>(order));
        QCOMPARE(integerInXSettings(bytes, "Xft/DPI"), std::optional(98304));
        QCOMPARE(integerInXSettings(bytes, gtkName), std::optional(0));
        QCOMPARE(integerInXSettings(bytes, "Net/Negative"), std::optional(-2));
        QCOMPARE(integerInXSettings(bytes, "Net/Missing"), std::nullopt);
        // Of another type, or only the beginning of a name.
        QCOMPARE(integerInXSettings(bytes, "Net/ThemeName"), std::nullopt);
        QCOMPARE(integerInXSettings(bytes, "Gtk/Color"), std::nullopt);
        QCOMPARE(integerInXSettings(bytes, "Xft/DP"), std::nullopt);
    }

    void noAnimationsMeanLessMotion() {
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().integer(gtkName, 0).bytes()), std::optional(true));
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().integer(gtkName, 1).bytes()), std::optional(false));
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().integer(netName, 0).bytes()), std::optional(true));
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().text(gtkName, "0").bytes()), std::nullopt);
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().bytes()), std::nullopt);
    }

    void theSettingForEveryoneCountsBeforeTheToolkitsOwn() {
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().integer(gtkName, 1).integer(netName, 0).bytes()),
                 std::optional(true));
        QCOMPARE(xSettingsReduceMotion(XSettingsWriter().integer(gtkName, 0).integer(netName, 1).bytes()),
                 std::optional(false));
    }

    void settingsThatEndEarlySayNothing() {
        const QByteArray bytes = XSettingsWriter().text("Net/ThemeName", "Some").integer(gtkName, 0).bytes();
        for (qsizetype size = 0; size < bytes.size(); ++size)
            QCOMPARE(xSettingsReduceMotion(QByteArrayView(bytes).first(size)), std::nullopt);
        QCOMPARE(xSettingsReduceMotion(bytes), std::optional(true));
    }

    void whatComesBeforeDamageCounts() {
        const QByteArray bytes = XSettingsWriter().integer(gtkName, 0).ofUnknownType("New/Thing").bytes();
        QCOMPARE(xSettingsReduceMotion(bytes), std::optional(true));
        const QByteArray behind = XSettingsWriter().ofUnknownType("New/Thing").integer(gtkName, 0).bytes();
        QCOMPARE(xSettingsReduceMotion(behind), std::nullopt);
    }

    void countsBeyondTheEndAreHarmless() {
        const XSettingsWriter writer = XSettingsWriter().integer("Xft/DPI", 1);
        QCOMPARE(xSettingsReduceMotion(writer.bytesWithCount(0xffffffff)), std::nullopt);
        QCOMPARE(integerInXSettings(writer.bytesWithCount(0), "Xft/DPI"), std::nullopt);
        // A text of nearly four gigabytes, and a name of 65,535 bytes.
        QByteArray longText = XSettingsWriter().text("A", "b").integer(gtkName, 0).bytes();
        longText.replace(24, 4, QByteArray("\xfd\xff\xff\xff", 4));
        QCOMPARE(xSettingsReduceMotion(longText), std::nullopt);
        QByteArray longName = XSettingsWriter().integer("A", 1).integer(gtkName, 0).bytes();
        longName.replace(14, 2, QByteArray("\xff\xff", 2));
        QCOMPARE(xSettingsReduceMotion(longName), std::nullopt);
    }

    void anUnknownOrderOfBytesSaysNothing() {
        QByteArray bytes = XSettingsWriter().integer(gtkName, 0).bytes();
        for (const int order : {1, 2, 66, 255}) {
            bytes[0] = static_cast<char>(order);
            QCOMPARE(xSettingsReduceMotion(bytes), std::nullopt);
        }
    }

    void noBytesEndTheProgram() {
        QRandomGenerator random(20);
        const QByteArray sound = mixedSettings(Order::leastFirst);
        for (int round = 0; round < 20000; ++round) {
            QByteArray bytes = sound;
            for (int change = 0; change < 4; ++change)
                bytes[random.bounded(static_cast<int>(bytes.size()))] = static_cast<char>(random.bounded(256));
            // With the memory's end right behind, so that a sanitizer sees a look beyond it.
            const std::vector<char> copy(bytes.begin(), bytes.begin() + random.bounded(static_cast<int>(bytes.size())));
            const auto reduces = xSettingsReduceMotion(QByteArrayView(copy.data(), copy.data() + copy.size()));
            QVERIFY(!reduces || QByteArray(copy.data(), static_cast<qsizetype>(copy.size())).contains(gtkName));
        }
    }
};

QTEST_GUILESS_MAIN(XSettingsTest)
#include "XSettingsTest.moc"
