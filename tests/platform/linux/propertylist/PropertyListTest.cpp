#include "platform/linux/propertylist/PropertyList.h"

#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>
#include <plist/plist.h>

using namespace zelmo;

namespace {

constexpr PropertyListLimits limits{.bytes = 64 * 1024 * 1024};

QByteArray dictionary(const QByteArray& entries) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Example//DTD PLIST 1.0//EN\" "
           "\"http://www.example.org/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n<dict>" +
           entries + "</dict>\n</plist>\n";
}

QByteArray binaryOf(const QByteArray& xml) {
    plist_t root = nullptr;
    plist_from_xml(xml.constData(), static_cast<std::uint32_t>(xml.size()), &root);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    const QByteArray result(bytes, static_cast<qsizetype>(length));
    plist_to_bin_free(bytes);
    plist_free(root);
    return result;
}

std::optional<PropertyListValue> valueIn(const QByteArray& bytes, const char* key = "k") {
    const auto list = PropertyList::parse(bytes, limits);
    if (!list)
        return std::nullopt;
    const auto values = list->values();
    const auto found = values.constFind(QString::fromLatin1(key));
    return found == values.cend() ? std::nullopt : std::optional(*found);
}

PropertyListValue throughAFile(const PropertyListValue& value) {
    PropertyList list;
    list.setValue(QStringLiteral("k"), value);
    return valueIn(list.serialized().value_or(QByteArray())).value_or(QStringLiteral("(lost)"));
}

} // namespace

class PropertyListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTypeIsReadInBothForms_data() {
        QTest::addColumn<QByteArray>("xml");
        QTest::addColumn<PropertyListValue>("value");
        const auto row = [](const char* name, const char* xml, const PropertyListValue& value) {
            QTest::newRow(name) << dictionary("<key>k</key>" + QByteArray(xml)) << value;
        };
        row("string", "<string>Größe &lt;&amp;&#x1F600;</string>", QStringLiteral("Größe <&\U0001F600"));
        row("mark of byte order", "<string>\xEF\xBB\xBF a</string>", QStringLiteral("\uFEFF a"));
        row("empty string", "<string></string>", QString(u""_qs));
        row("spaces", "<string>  a\n b </string>", QStringLiteral("  a\n b "));
        row("real", "<real>0.05</real>", 0.05);
        row("real with an exponent", "<real>-1.5e-300</real>", -1.5e-300);
        row("infinity", "<real>-infinity</real>", -std::numeric_limits<double>::infinity());
        row("integer", "<integer>32</integer>", 32.0);
        row("negative integer", "<integer>-32</integer>", -32.0);
        row("large integer", "<integer>9223372036854775808</integer>", 9223372036854775808.0);
        row("true", "<true/>", true);
        row("false", "<false/>", false);
        row("data", "<data>\n\tAAEC\n\t/w==\n</data>", QByteArray::fromHex("000102ff"));
        row("empty data", "<data></data>", QByteArray());
        row("strings", "<array><string>b</string><string></string><string>a</string></array>",
            QStringList{QStringLiteral("b"), QString(u""_qs), QStringLiteral("a")});
        row("no strings", "<array/>", QStringList());
    }
    void everyTypeIsReadInBothForms() {
        QFETCH(QByteArray, xml);
        QFETCH(PropertyListValue, value);
        QVERIFY(valueIn(xml) == value);
        QVERIFY(valueIn(binaryOf(xml)) == value);
        QVERIFY(valueIn("\xEF\xBB\xBF" + xml) == value);
        QVERIFY(throughAFile(value) == value);
    }

    void otherTypesDoNotShow_data() {
        QTest::addColumn<QByteArray>("xml");
        QTest::newRow("date") << QByteArray("<date>2024-02-29T12:00:00Z</date>");
        QTest::newRow("dictionary") << QByteArray("<dict><key>a</key><string>b</string></dict>");
        QTest::newRow("mixed array") << QByteArray("<array><string>a</string><integer>1</integer></array>");
        QTest::newRow("nested array") << QByteArray("<array><array/></array>");
    }
    void otherTypesDoNotShow() {
        QFETCH(QByteArray, xml);
        const QByteArray list = dictionary("<key>k</key>" + xml + "<key>other</key><true/>");
        QVERIFY(!valueIn(list));
        QVERIFY(valueIn(list, "other"));
        QVERIFY(!valueIn(binaryOf(list)));
        QVERIFY(valueIn(binaryOf(list), "other"));
    }

    void everyRealReadsBackAsItself() {
        const double highest = std::numeric_limits<double>::max();
        for (const double real : {0.0, 0.1, 1.0 / 3, 24.1, 1e22, 5e-324, -highest, highest, 12345678.987654321,
                                  std::numeric_limits<double>::infinity()})
            QVERIFY2(throughAFile(real) == PropertyListValue(real), qPrintable(QString::number(real, 'g', 17)));
        const PropertyListValue notANumber = throughAFile(std::nan(""));
        QVERIFY(std::holds_alternative<double>(notANumber) && std::isnan(std::get<double>(notANumber)));
    }

    void textsWithControlCharactersReadBack() {
        const QString text = QStringLiteral("a\rb\nc\td\x1b[0m]]>&amp;<!--\uFFFE\U0010FFFF");
        QVERIFY(throughAFile(text) == PropertyListValue(text));
        QVERIFY(throughAFile(QString(QChar(u'\0'))) == PropertyListValue(QStringLiteral("\uFFFD")));
    }

    void largeDataReadsBack() {
        QByteArray data(5 * 1024 * 1024, Qt::Uninitialized);
        for (qsizetype i = 0; i < data.size(); ++i)
            data[i] = static_cast<char>(i * 7 + (i >> 9));
        QVERIFY(throughAFile(data) == PropertyListValue(data));
    }

    void stringsAreGivenByKey() {
        const auto list = PropertyList::parse(
            dictionary("<key>s</key><string>text</string><key>n</key><integer>1</integer>"), limits);
        QVERIFY(list);
        QCOMPARE(list->string("s"), std::optional(QStringLiteral("text")));
        QCOMPARE(list->string("n"), std::nullopt);
        QCOMPARE(list->string("missing"), std::nullopt);
    }

    void numbersDoNotDependOnTheLocale() {
        // Made here, since none with a decimal comma need be installed.
        const QTemporaryDir folder;
        const int made = QProcess::execute(QStringLiteral("localedef"),
                                           {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                                            QStringLiteral("UTF-8"), folder.filePath(QStringLiteral("comma.UTF-8"))});
        const QByteArray old = qgetenv("LOCPATH");
        qputenv("LOCPATH", folder.path().toUtf8());
        const auto restore = qScopeGuard([&] {
            std::setlocale(LC_NUMERIC, "C");
            if (old.isNull())
                qunsetenv("LOCPATH");
            else
                qputenv("LOCPATH", old);
        });
        QVERIFY2(made == 0 && std::setlocale(LC_NUMERIC, "comma.UTF-8"), "localedef makes no locale");
        QCOMPARE(std::localeconv()->decimal_point, ",");
        QVERIFY(valueIn(dictionary("<key>k</key><real>0.5</real>")) == PropertyListValue(0.5));
        QVERIFY(throughAFile(0.5) == PropertyListValue(0.5));
    }

    void whatTheProgramDoesNotKnowStays_data() {
        QTest::addColumn<QByteArray>("entries");
        QTest::newRow("date") << QByteArray("<key>u</key><date>2150-12-31T23:59:59Z</date>");
        QTest::newRow("old date") << QByteArray("<key>u</key><date>1815-06-18T01:02:03Z</date>");
        QTest::newRow("numbers") << QByteArray("<key>u</key><array><integer>-5</integer>"
                                               "<integer>18446744073709551615</integer><real>0.1</real></array>");
        QTest::newRow("tree") << QByteArray("<key>u</key><dict><key>a</key><array><dict/><array/><true/>"
                                            "<data>AAEC</data></array></dict>");
        QTest::newRow("strange key") << QByteArray("<key>a &lt; b &#xFC;</key><string>x</string>");
    }
    void whatTheProgramDoesNotKnowStays() {
        QFETCH(QByteArray, entries);
        const QByteArray xml = dictionary(entries);
        for (const QByteArray& bytes : {xml, binaryOf(xml)}) {
            auto list = PropertyList::parse(bytes, limits);
            QVERIFY(list);
            list->setValue(QStringLiteral("k"), true);
            const QByteArray stored = list->serialized().value_or(QByteArray());
            const QByteArray expected = dictionary(entries + "<key>k</key><true/>");
            plist_t a = nullptr;
            plist_t b = nullptr;
            plist_from_memory(stored.constData(), static_cast<std::uint32_t>(stored.size()), &a);
            plist_from_memory(expected.constData(), static_cast<std::uint32_t>(expected.size()), &b);
            const auto asText = [](plist_t node) {
                char* text = nullptr;
                std::uint32_t length = 0;
                plist_to_xml(node, &text, &length);
                const QByteArray result(text, static_cast<qsizetype>(length));
                plist_to_xml_free(text);
                plist_free(node);
                return result;
            };
            QCOMPARE(asText(a), asText(b));
        }
    }

    void theFormOfTheFileStays() {
        const QByteArray xml = dictionary("<key>a</key><true/>");
        QVERIFY(PropertyList::parse(xml, limits)->serialized()->startsWith("<?xml"));
        QVERIFY(PropertyList::parse(binaryOf(xml), limits)->serialized()->startsWith("bplist00"));
        QVERIFY(PropertyList().serialized()->startsWith("<?xml"));
    }
};

QTEST_GUILESS_MAIN(PropertyListTest)
#include "PropertyListTest.moc"
