#include "platform/linux/freedesktop/DesktopEntryFile.h"

#include "platform/linux/freedesktop/ExecCommand.h"

#include <QTest>

using namespace zelmo;
using Key = DesktopEntryKey;

namespace {

const LocaleNames noLocale{LocaleVariables{}};

std::optional<DesktopEntryFile> parse(const QByteArray& bytes, const LocaleNames& locales = noLocale) {
    return DesktopEntryFile::parse(bytes, locales);
}

// The name in a file that holds `lines` after the head of the group.
std::optional<QString> nameIn(const QByteArray& lines, const LocaleNames& locales = noLocale) {
    const auto file = parse("[Desktop Entry]\n" + lines, locales);
    return file ? file->localizedText(Key::name) : std::nullopt;
}

} // namespace

class DesktopEntryFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesOfTheGroupAreRead_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("plain") << QByteArray("[Desktop Entry]\nName=Foo\n");
        QTest::newRow("no end of line") << QByteArray("[Desktop Entry]\nName=Foo");
        QTest::newRow("carriage returns") << QByteArray("[Desktop Entry]\r\nName=Foo\r\n");
        QTest::newRow("comments and blank lines")
            << QByteArray("# x\n\n  #y\n[Desktop Entry]\n\n#Name=x\nName=Foo\n \t\n");
        QTest::newRow("spaces around the sign") << QByteArray("[Desktop Entry]\nName \t=\t  Foo\n");
        QTest::newRow("spaces before the line") << QByteArray(" [Desktop Entry]  \n\t Name=Foo\n");
        QTest::newRow("other groups") << QByteArray("[Desktop Entry]\nName=Foo\n[Desktop Action x]\nName=Bar\n");
        QTest::newRow("group opened again")
            << QByteArray("[Desktop Entry]\n[x]\nName=Bar\n[Desktop Entry]\nName=Foo\n");
        QTest::newRow("the later of two") << QByteArray("[Desktop Entry]\nName=Bar\nName=Foo\n");
        QTest::newRow("similar keys") << QByteArray(
            "[Desktop Entry]\nName=Foo\nname=a\nNames=b\nGenericName=c\nNam=d\n");
        QTest::newRow("end at a NUL byte") << QByteArray("[Desktop Entry]\nName=Foo\0Bar\n", 29);
        QTest::newRow("known encoding") << QByteArray("[Desktop Entry]\nEncoding=UTF-8\nName=Foo\n");
    }
    void linesOfTheGroupAreRead() {
        QFETCH(QByteArray, bytes);
        const auto file = parse(bytes);
        QVERIFY(file);
        QCOMPARE(file->localizedText(Key::name), QStringLiteral("Foo"));
    }

    void damagedFilesGiveNothing_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("comment alone") << QByteArray("# nothing\n");
        QTest::newRow("no group") << QByteArray("Name=Foo\n");
        QTest::newRow("another group first") << QByteArray("[x]\na=b\n[Desktop Entry]\nName=Foo\n");
        QTest::newRow("a line without a sign") << QByteArray("[Desktop Entry]\nName=Foo\nhello\n");
        QTest::newRow("a line without a key") << QByteArray("[Desktop Entry]\n=x\nName=Foo\n");
        QTest::newRow("damage in another group") << QByteArray("[Desktop Entry]\nName=Foo\n[x]\nhello\n");
        QTest::newRow("bracket in a key") << QByteArray("[Desktop Entry]\nName=Foo\nName]=x\n");
        QTest::newRow("open bracket in a key") << QByteArray("[Desktop Entry]\nName=Foo\nName[de=x\n");
        QTest::newRow("space in a locale") << QByteArray("[Desktop Entry]\nName=Foo\nName[d e]=x\n");
        QTest::newRow("group without a name") << QByteArray("[Desktop Entry]\nName=Foo\n[]\n");
        QTest::newRow("foreign encoding") << QByteArray("[Desktop Entry]\nEncoding=Legacy-Mixed\nName=Foo\n");
        QTest::newRow("mark of byte order") << QByteArray("\xef\xbb\xbf[Desktop Entry]\nName=Foo\n");
        QTest::newRow("not text") << QByteArray("\x7f"
                                                "ELF\x02\x01\x01",
                                                7);
    }
    void damagedFilesGiveNothing() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!parse(bytes));
    }

    void escapesAreResolved() {
        QCOMPARE(nameIn("Name=\\sa\\nb\\tc\\rd\\\\e\n"), QStringLiteral(" a\nb\tc\rd\\e"));
        QCOMPARE(nameIn("Name=a\\qb\\;c\n"), QStringLiteral("a\\qb\\;c"));
        QCOMPARE(nameIn("Name=a\\\n"), QStringLiteral("a"));
        QCOMPARE(nameIn("Name=a  \n"), QStringLiteral("a  "));
    }

    void valuesThatAreNotUtf8AreAbsent() {
        QCOMPARE(nameIn("Name=Caf\xe9\n"), std::nullopt);
        QCOMPARE(nameIn("Name=\xed\xa0\x80\n"), std::nullopt);
        QCOMPARE(nameIn("Name=Caf\xc3\xa9\n"), QStringLiteral("Caf\u00e9"));
        QCOMPARE(nameIn("Comment=Caf\xe9\nName=Foo\n"), QStringLiteral("Foo"));
    }

    void listsAreSplitAtSemicolons() {
        const auto listIn = [](const QByteArray& value) {
            return parse("[Desktop Entry]\nCategories=" + value + "\n")->list(Key::categories);
        };
        QCOMPARE(listIn("a;b c;;d"), (QList<QByteArray>{"a", "b c", "", "d"}));
        QCOMPARE(listIn("a;b;"), (QList<QByteArray>{"a", "b"}));
        QCOMPARE(listIn("a\\;b;c\\\\;"), (QList<QByteArray>{"a;b", "c\\"}));
        QCOMPARE(listIn(""), QList<QByteArray>());
        QCOMPARE(listIn("a\\q;b"), std::nullopt);
        QCOMPARE(listIn("a;b\\"), std::nullopt);
        QCOMPARE(parse("[Desktop Entry]\n")->list(Key::categories), std::nullopt);
    }

    void flagsAreTrueInTwoSpellings() {
        const auto flagIn = [](const QByteArray& value) {
            return parse("[Desktop Entry]\nHidden=" + value + "\n")->flag(Key::hidden);
        };
        QVERIFY(flagIn("true"));
        QVERIFY(flagIn("1 \t"));
        QVERIFY(!flagIn("True"));
        QVERIFY(!flagIn("yes"));
        QVERIFY(!flagIn("false"));
        QVERIFY(!flagIn(""));
        QVERIFY(!parse("[Desktop Entry]\n")->flag(Key::hidden));
    }

    void bestTranslationIsTaken_data() {
        QTest::addColumn<QByteArray>("locale");
        QTest::addColumn<QString>("name");
        QTest::newRow("all parts") << QByteArray("sr_RS.UTF-8@latin") << QStringLiteral("country and modifier");
        QTest::newRow("modifier before country") << QByteArray("sr_ME@latin") << QStringLiteral("modifier");
        QTest::newRow("country") << QByteArray("sr_RS") << QStringLiteral("country");
        QTest::newRow("language") << QByteArray("sr_BA@ijekavian") << QStringLiteral("language");
        QTest::newRow("none") << QByteArray("de_DE") << QStringLiteral("plain");
        QTest::newRow("a list of languages") << QByteArray("de:sr_RS:fr") << QStringLiteral("country");
        QTest::newRow("broken translation passed over") << QByteArray("fr:sr") << QStringLiteral("language");
    }
    void bestTranslationIsTaken() {
        QFETCH(QByteArray, locale);
        QFETCH(QString, name);
        const QByteArray lines = "Name[sr]=language\nName=plain\nName[sr_RS]=country\nName[sr@latin]=modifier\n"
                                 "Name[sr_RS@latin]=country and modifier\nName[fr]=Fran\xe7"
                                 "ais\n";
        QCOMPARE(nameIn(lines, LocaleNames({.language = locale})), name);
    }

    void iconsAndNamesAreTranslatedApart() {
        const LocaleNames german({.language = "de"});
        const auto file =
            parse("[Desktop Entry]\nName=n\nIcon=i\nName[de]=N\nIcon[de]=I\nExec[de]=x\nExec=e\n", german);
        QCOMPARE(file->localizedText(Key::name), QStringLiteral("N"));
        QCOMPARE(file->localizedText(Key::icon), QStringLiteral("I"));
        QCOMPARE(file->value(Key::exec), QByteArray("e"));
    }

    void programIsTheFirstWordOfACommand_data() {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<std::optional<QByteArray>>("program");
        const auto row = [](const char* command, std::optional<QByteArray> program) {
            QTest::newRow(command) << QByteArray(command) << program;
        };
        row("foo", "foo");
        row("  foo\t%U --bar", "foo");
        row("\"/opt/my app/run\" x", "/opt/my app/run");
        row("'it''s' x", "its");
        row("my\\ app x", "my app");
        row("\"a\\\"b\\$c\\d\"", "a\"b$c\\d");
        row("foo#bar baz", "foo#bar");
        row("\"\" x", "");
        row("", std::nullopt);
        row("  ", std::nullopt);
        row("# comment", std::nullopt);
        row("foo 'bar", std::nullopt);
        row("foo \"bar", std::nullopt);
        row("foo bar\\", std::nullopt);
    }
    void programIsTheFirstWordOfACommand() {
        QFETCH(QByteArray, command);
        QFETCH(std::optional<QByteArray>, program);
        QCOMPARE(ExecCommand::program(command), program);
    }
};

QTEST_APPLESS_MAIN(DesktopEntryFileTest)
#include "DesktopEntryFileTest.moc"
