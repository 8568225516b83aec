#include "KeyFileOracle.h"

#include <QTest>

#include <random>

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QByteArray sample = "# A comment\n"
                          "[Desktop Entry]\n"
                          "Type=Application\n"
                          "Encoding=UTF-8\n"
                          "Name=Plain \\s\\t name\n"
                          "Name[de]=\xc3\x9c"
                          "bersicht\n"
                          "Name[de_AT]=\xc3\x96sterreich\r\n"
                          "Name[sr@latin]=Pregled\n"
                          "Icon = picture.png \n"
                          "Icon[de]=bild\n"
                          "Exec=env A=\"b c\" prog\\\\x %U\n"
                          "TryExec=/usr/bin/prog\n"
                          "Hidden=false\n"
                          "NoDisplay=1 \n"
                          "OnlyShowIn=GNOME;KDE\\;x;;\n"
                          "NotShowIn=\n"
                          "Categories=Office;Viewer;\n"
                          "DBusActivatable=true\n"
                          "\n"
                          "[Desktop Action new]\n"
                          "Name=New\n"
                          "[Desktop Entry]\n"
                          "Name=Later\n";

// Bytes and pieces that mean something to a reader of this syntax.
const QList<QByteArray> fragments{"\n",
                                  "\r",
                                  "\r\n",
                                  "=",
                                  "[",
                                  "]",
                                  ";",
                                  "\\",
                                  "\\s",
                                  "\\;",
                                  "#",
                                  " ",
                                  "\t",
                                  "\v",
                                  "\f",
                                  "\x01",
                                  "\x7f",
                                  QByteArray("\0", 1),
                                  "\xff",
                                  "\xc3",
                                  "\xe2\x82\xac",
                                  "\xed\xa0\x80",
                                  "\xef\xbb\xbf",
                                  "\xef\xbf\xbf",
                                  "\xf4\x90\x80\x80",
                                  "[Desktop Entry]\n",
                                  "\n[x]\n",
                                  "[de]",
                                  "[\xc3\xa9]",
                                  "[C]",
                                  "Name[de]=\n",
                                  "\nName=",
                                  "\nEncoding=utf-8\n",
                                  "true",
                                  "'",
                                  "\""};

class Mutator {
public:
    explicit Mutator(unsigned seed) : m_random(seed) {}

    QByteArray mutate(QByteArray bytes) {
        for (std::size_t count = 1 + number(4); count > 0; --count) {
            const auto position = static_cast<qsizetype>(number(static_cast<std::size_t>(bytes.size()) + 1));
            const auto length = static_cast<qsizetype>(number(12));
            switch (number(5)) {
            case 0:
                bytes.remove(position, length);
                break;
            case 1:
                bytes.insert(position, fragment());
                break;
            case 2:
                bytes.replace(position, std::min<qsizetype>(1, bytes.size() - position), fragment());
                break;
            case 3:
                bytes.insert(position, bytes.mid(static_cast<qsizetype>(number(300)), length * 4));
                break;
            default:
                bytes.insert(position, static_cast<char>(number(256)));
                break;
            }
        }
        return bytes;
    }

private:
    std::size_t number(std::size_t limit) { return m_random() % limit; }
    const QByteArray& fragment() {
        return fragments[static_cast<qsizetype>(number(static_cast<std::size_t>(fragments.size())))];
    }

    std::mt19937 m_random;
};

} // namespace

class KeyFileOracleTest : public QObject {
    Q_OBJECT

    LocaleNames m_locales = LocaleNames(LocaleVariables{});

    void compare(const QByteArray& bytes) { QCOMPARE(differenceFromGLib(bytes, m_locales), nullptr); }

private Q_SLOTS:
    void initTestCase() {
        // Before GLib looks for the first time.
        qputenv("LANGUAGE", "de_AT:sr@latin");
        m_locales = LocaleNames::fromEnvironment();
        QVERIFY(KeyFileOracle::load(sample));
        compare(sample);
    }

    void mutatedFilesReadAsGLibReadsThem() {
        int acceptedCount = 0;
        constexpr int total = 20'000;
        for (unsigned seed = 0; seed < total; ++seed) {
            const QByteArray bytes = Mutator(seed).mutate(sample);
            compare(bytes);
            if (QTest::currentTestFailed()) {
                qWarning() << "seed" << seed << bytes;
                return;
            }
            acceptedCount += DesktopEntryFile::parse(bytes, m_locales).has_value() ? 1 : 0;
        }
        // Both verdicts must have come up often, or the comparison says little.
        QVERIFY(acceptedCount > total / 10);
        QVERIFY(acceptedCount < total * 9 / 10);
    }

    void mutatedCommandsReadAsGLibReadsThem() {
        for (unsigned seed = 0; seed < 20'000; ++seed) {
            const QByteArray command = Mutator(seed).mutate("\"a b\"\\ c 'd\\e' #f\n g%u\\\"h \\$i");
            if (!readsCommandAsGLib(command))
                qWarning() << "seed" << seed << command;
            QVERIFY(readsCommandAsGLib(command));
        }
    }

    void longLinesAndManyLinesEnd() {
        compare("[Desktop Entry]\nName=" + QByteArray(1'000'000, '\\') + "\n");
        compare("[Desktop Entry]\n" + QByteArray(1'000'000, '\n') + "Name=x");
        compare("[Desktop Entry]\nCategories=" + QByteArray(300'000, ';') + "\n");
        compare("[Desktop Entry]\n" + QByteArray("Name[de]=x\n").repeated(50'000));
    }
};

QTEST_APPLESS_MAIN(KeyFileOracleTest)
#include "KeyFileOracleTest.moc"
