#include "BinaryListWriter.h"
#include "platform/linux/propertylist/PropertyList.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>
#include <QThread>

using namespace zelmo;

namespace {

constexpr PropertyListLimits limits{.bytes = 64 * 1024 * 1024};

bool parses(const QByteArray& bytes, const PropertyListLimits& given = limits) {
    return PropertyList::parse(bytes, given).has_value();
}

QByteArray inDictionary(const QByteArray& value) {
    return "<plist version=\"1.0\"><dict><key>k</key>" + value + "</dict></plist>";
}

QByteArray nestedXml(int depth) {
    return inDictionary(QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth));
}

QByteArray nestedBinary(int depth) {
    BinaryListWriter writer;
    writer.referenceSize = 4;
    int inner = writer.addArray({});
    for (int i = 1; i < depth; ++i)
        inner = writer.addArray({inner});
    return writer.finish(writer.addDictionary({writer.addString("k")}, {inner}));
}

// Each array holds the next one several times.
QByteArray doublingBinary(int depth, int copies, const QByteArray& leaf) {
    BinaryListWriter writer;
    int inner = writer.addString(leaf);
    for (int i = 0; i < depth; ++i)
        inner = writer.addArray(QList<int>(copies, inner));
    return writer.finish(writer.addDictionary({writer.addString("k")}, {inner}));
}

QByteArray soundBinary() {
    BinaryListWriter writer;
    const QList<int> keys{writer.addString("text"), writer.addString("list"), writer.addString("number")};
    const QList<int> values{writer.addString("a longer text than fits the header"),
                            writer.addArray({writer.addString("x"), writer.addString("y")}),
                            writer.add(QByteArray::fromHex("23") + QByteArray::fromHex("3fe0000000000000"))};
    return writer.finish(writer.addDictionary(keys, values));
}

} // namespace

class PropertyListLimitsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void soundListsPass() {
        QVERIFY(parses(soundBinary()));
        QVERIFY(parses(inDictionary("<true/>")));
        QVERIFY(parses(nestedXml(127)));
        QVERIFY(parses(nestedBinary(127)));
        QVERIFY(parses(inDictionary("<string>a<!-- > ' \" <dict> -->b<![CDATA[<dict>]]></string>")));
    }

    void deepNestingIsRefused() {
        QVERIFY(!parses(nestedXml(128)));
        QVERIFY(!parses(nestedBinary(128)));
        QVERIFY(!parses(nestedXml(100'000)));
        QVERIFY(!parses(nestedBinary(100'000)));
        QVERIFY(!parses(inDictionary(QByteArray("<dict><key>k</key>").repeated(100'000))));
        QVERIFY(!parses(QByteArray("<array>").repeated(100'000)));
        QVERIFY(!parses(QByteArray("<dict a='x'\n>").repeated(100'000)));
    }

    void nestingCanNotHideBehindOtherMarkup_data() {
        QTest::addColumn<QByteArray>("disguise");
        QTest::newRow("comment") << QByteArray("<array><!--</array>-->");
        QTest::newRow("unquoted comment") << QByteArray("<array><!-- ' --><!--</array>' -->");
        QTest::newRow("CDATA") << QByteArray("<array><![CDATA[</array>]]>");
        QTest::newRow("instruction") << QByteArray("<array><?x </array>?>");
        QTest::newRow("quoted instruction") << QByteArray("<array><?x '?></array>'?>");
        QTest::newRow("attribute") << QByteArray("<array a=\"</array>\">");
        QTest::newRow("quoted end") << QByteArray("<array a='>'><string b='></array>'/>");
        QTest::newRow("other name") << QByteArray("<array></dict>");
        QTest::newRow("unknown name") << QByteArray("<array></arrays>");
        QTest::newRow("text") << QByteArray("<array><string></array></string>");
    }
    void nestingCanNotHideBehindOtherMarkup() {
        QFETCH(QByteArray, disguise);
        QVERIFY(!parses(inDictionary(disguise.repeated(100'000))));
    }

    void refusalsAreSafeOnASmallStack() {
        bool refused = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            refused = !parses(nestedXml(500'000)) && !parses(nestedBinary(500'000)) && parses(nestedXml(127)) &&
                      parses(nestedBinary(127));
        }));
        thread->setStackSize(256 * 1024);
        thread->start();
        QVERIFY(thread->wait());
        QVERIFY(refused);
    }

    void entitiesAndDescriptionsAreRefused() {
        QVERIFY(!parses("<!DOCTYPE plist [<!ENTITY a \"b\">]>" + inDictionary("<string>&a;</string>")));
        QVERIFY(!parses("<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + inDictionary("<true/>")));
        QVERIFY(!parses("<!DOCTYPE plist []>" + inDictionary("<true/>")));
        QVERIFY(!parses("<!ENTITY a \"b\">" + inDictionary("<true/>")));
        QVERIFY(!parses(inDictionary("<string>&undefined;</string>")));
        QVERIFY(parses("<!DOCTYPE plist SYSTEM \"file://localhost/System/DTDs/PropertyList.dtd\">" +
                       inDictionary("<true/>")));
    }

    void filesBeyondTheSizeAreRefused() {
        const QByteArray list = inDictionary("<string>" + QByteArray(2000, 'x') + "</string>");
        const auto size = static_cast<std::size_t>(list.size());
        QVERIFY(parses(list, {.bytes = size}));
        QVERIFY(!parses(list, {.bytes = size - 1}));
    }

    void moreNodesThanTheLimitAreRefused() {
        const QByteArray list = inDictionary("<array>" + QByteArray("<true/>").repeated(1000) + "</array>");
        QVERIFY(parses(list, {.bytes = 100'000, .nodes = 1004}));
        QVERIFY(!parses(list, {.bytes = 100'000, .nodes = 1003}));
        QVERIFY(!parses(inDictionary("<string>" + QByteArray("<!---->").repeated(1'000'000) + "</string>")));
    }

    void sharedObjectsThatUnfoldBeyondTheLimitsAreRefused() {
        QVERIFY(parses(doublingBinary(10, 2, "x")));
        QVERIFY(!parses(doublingBinary(20, 2, "x")));
        QVERIFY(!parses(doublingBinary(100, 2, "x")));
        QVERIFY(!parses(doublingBinary(100, 200, "x")));
        // Few nodes, but each a copy of a long text.
        QVERIFY(!parses(doublingBinary(2, 100, QByteArray(10'000, 'x'))));
    }

    void aListThatContainsItselfIsRefused() {
        BinaryListWriter writer;
        const int key = writer.addString("k");
        writer.addDictionary({key}, {2});
        writer.addArray({3});
        writer.addArray({2});
        QVERIFY(!parses(writer.finish(1)));
        BinaryListWriter self;
        self.addDictionary({1}, {0});
        self.addString("k");
        QVERIFY(!parses(self.finish(0)));
    }

    void textsWithZeroCharactersAreRefused() {
        for (const char* text : {"53610062", "6200610000", "5100", "61d800"}) {
            BinaryListWriter asKey;
            const int key = asKey.add(QByteArray::fromHex(text));
            const bool hasZero = QByteArrayView(text) != QByteArrayView("61d800");
            QCOMPARE(parses(asKey.finish(asKey.addDictionary({key}, {asKey.addString("v")}))), !hasZero);
            BinaryListWriter asValue;
            const int value = asValue.add(QByteArray::fromHex(text));
            QCOMPARE(parses(asValue.finish(asValue.addDictionary({asValue.addString("k")}, {value}))), !hasZero);
        }
    }

    // The library would store them as something that it does not read.
    void everyTextThatIsReadCanBeStored_data() {
        QTest::addColumn<QByteArray>("text");
        for (const char* text : {"51ff", "5261c3", "52c3bc", "53eda080", "61d800", "61dc00", "62d83dde00", "62dc00d800",
                                 "61ffff", "617f", "517f", "50", "60"})
            QTest::newRow(text) << QByteArray::fromHex(text);
    }
    void everyTextThatIsReadCanBeStored() {
        QFETCH(QByteArray, text);
        BinaryListWriter writer;
        const int object = writer.add(text);
        auto list = PropertyList::parse(writer.finish(writer.addDictionary({object}, {object})), limits);
        if (!list)
            return;
        const auto before = list->values();
        list->setValue(QStringLiteral("added"), true);
        const auto again = PropertyList::parse(list->serialized().value_or(QByteArray()), limits);
        QVERIFY(again);
        QCOMPARE(again->values().size(), before.size() + 1);
    }
    void textsThatAreNoUtf8AreRefused() {
        for (const char* text : {"51ff", "5261c3", "53eda080"}) {
            BinaryListWriter writer;
            const int value = writer.add(QByteArray::fromHex(text));
            QVERIFY(!parses(writer.finish(writer.addDictionary({writer.addString("k")}, {value}))));
        }
    }

    void theFirstOfTwoEqualKeysCounts() {
        BinaryListWriter writer;
        const QList<int> keys{writer.addString("k"), writer.addString("k")};
        const QList<int> values{writer.addString("first"), writer.addString("second")};
        auto list = PropertyList::parse(writer.finish(writer.addDictionary(keys, values)), limits);
        QVERIFY(list);
        QCOMPARE(list->string("k"), std::optional(QStringLiteral("first")));
        QVERIFY(list->values().value(QStringLiteral("k")) == PropertyListValue(QStringLiteral("first")));
        list->setValue(QStringLiteral("k"), QStringLiteral("new"));
        const auto again = PropertyList::parse(list->serialized().value_or(QByteArray()), limits);
        QVERIFY(again && again->values().value(QStringLiteral("k")) == PropertyListValue(QStringLiteral("new")));
    }

    void charactersThatNoTextHoldsDoNoHarmInXml() {
        for (const char* character : {"&#0;", "&#x0;", "&#1;", "&#xD800;", "&#xFFFFFFFFFF;", "&#-1;", "&;", "&#;"}) {
            const QByteArray text = "a" + QByteArray(character) + "b";
            const auto list = PropertyList::parse(
                "<plist><dict><key>" + text + "</key><string>" + text + "</string></dict></plist>", limits);
            QVERIFY(!list || (list->values().size() <= 1 && list->serialized()));
        }
    }

    void keysThatAreNoStringsAreRefused() {
        BinaryListWriter writer;
        const int number = writer.add(QByteArray::fromHex("1001"));
        QVERIFY(!parses(writer.finish(writer.addDictionary({number}, {number}))));
    }

    void offsetsAndCountsBeyondTheFileAreRefused() {
        const QByteArray sound = soundBinary();
        const qsizetype trailer = sound.size() - 32;
        // Offset size, reference size, number of objects, root, table: the largest value in each.
        for (const auto& [position, size] : {std::pair{6, 1}, {7, 1}, {8, 8}, {16, 8}, {24, 8}}) {
            QByteArray damaged = sound;
            damaged.replace(trailer + position, size, QByteArray(size, '\xff'));
            QVERIFY(!parses(damaged));
            damaged.replace(trailer + position, size, QByteArray(size, '\0'));
            QVERIFY(position == 16 || !parses(damaged));
        }
        for (const char* object : {"5f13ffffffffffffffff", "5f137fffffffffffffff", "af13ffffffffffffffff",
                                   "df138000000000000001", "6f138000000000000000", "4f12ffffffff", "5f", "5f1f", "af50",
                                   "df13", "00", "0f", "70", "c1", "f0", "17", "24"}) {
            BinaryListWriter writer;
            const int value = writer.add(QByteArray::fromHex(object));
            QVERIFY2(!parses(writer.finish(writer.addDictionary({writer.addString("k")}, {value}))), object);
        }
    }

    void anIntegerThatDoesNotFitIsRefused() {
        BinaryListWriter writer;
        const int value = writer.add(QByteArray::fromHex("14") + QByteArray(16, '\x01'));
        QVERIFY(!parses(writer.finish(writer.addDictionary({writer.addString("k")}, {value}))));
    }

    void whatIsNoPropertyListIsRefused() {
        for (const char* text :
             {"", "x", "<", "<plist", "<plist>", "<plist></plist>", "<plist><string>a</string></plist>",
              "<plist><array/></plist>", "bplist00", "bplist", "bplist15", "{ a = b; }", "{\"a\":1}"})
            QVERIFY2(!parses(text), text);
        QVERIFY(!parses(QByteArray("\0\0\0", 3)));
        QVERIFY(!parses(inDictionary("<true/>") + QByteArray(1, '\0')));
        QVERIFY(!parses(inDictionary("<unknown/>")));
        QVERIFY(!parses(inDictionary("<array><true/></dict></array>")));
    }

    void aListCutShortAnywhereIsRefusedOrWhole() {
        const QByteArray xml = inDictionary("<array><string>a &amp; b</string><data>AAEC</data></array>");
        for (qsizetype length = 0; length < xml.indexOf("</plist>"); ++length)
            QVERIFY2(!parses(xml.left(length)), xml.left(length).constData());
        const QByteArray binary = soundBinary();
        for (qsizetype length = 0; length < binary.size(); ++length)
            QVERIFY(!parses(binary.left(length)));
    }

    void damageAnywhereDoesNoHarm() {
        QRandomGenerator random(20240229);
        const QList<QByteArray> seeds{soundBinary(), nestedBinary(20), doublingBinary(5, 3, "leaf"), nestedXml(20),
                                      inDictionary("<array><string>a &amp; b&#65;<!-- c --></string><data>AAEC</data>"
                                                   "<date>2024-02-29T12:00:00Z</date><integer>-0x1</integer>"
                                                   "<real>1e5</real><dict><key>a</key><false/></dict></array>")};
        int accepted = 0;
        for (int round = 0; round < 20'000; ++round) {
            QByteArray bytes = seeds[round % seeds.size()];
            const int changes = random.bounded(1, 4);
            for (int i = 0; i < changes; ++i) {
                const auto position = static_cast<qsizetype>(random.bounded(static_cast<int>(bytes.size())));
                if (random.bounded(4) == 0)
                    bytes.remove(position, random.bounded(1, 4));
                else
                    bytes[position] = static_cast<char>(random.bounded(256));
            }
            if (const auto list = PropertyList::parse(bytes, limits)) {
                ++accepted;
                QVERIFY(list->values().size() <= 64);
                QVERIFY(list->serialized());
            }
        }
        QVERIFY(accepted > 0);
    }

    void aFileMadeToTakeLongDoesNot() {
        QByteArray keys;
        for (int i = 0; keys.size() < 1'000'000; ++i)
            keys += "<key>" + QByteArray::number(i) + "</key><true/>";
        const PropertyListLimits small{.bytes = 1024 * 1024, .nodes = 50'000};
        const QByteArray entities = QByteArray("&amp;").repeated(150'000);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!parses("<plist><dict>" + keys + "</dict></plist>", small));
        QVERIFY(!parses(doublingBinary(100, 1000, "x"), small));
        QVERIFY(!parses(inDictionary("<string>" + entities + "</string>"), small));
        QVERIFY(
            !parses(inDictionary("<string>" + QByteArray(entities).replace("&amp;&amp;", "&amp;<!---->") + "</string>"),
                    small));
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(parses(inDictionary("<string>" + entities.left(5000) + "</string>"), small));
        // As much as is let through.
        keys.truncate(keys.indexOf("<key>20000<"));
        timer.start();
        QVERIFY(parses("<plist><dict>" + keys + "</dict></plist>", small));
        QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(PropertyListLimitsTest)
#include "PropertyListLimitsTest.moc"
