#include "LaunchFixture.h"

#include <QTest>

using namespace zelmo::test;
using zelmo::TemporaryFolder;

using Arguments = QList<QByteArray>;

class GioLauncherEntryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<LaunchFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void fieldCodesStandForWhatIsKnown_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Arguments>("arguments");
        QTest::newRow("no files") << QByteArray("a %f b %F c") << Arguments{"a", "b", "c"};
        QTest::newRow("no addresses") << QByteArray("a %u b %U") << Arguments{"a", "b"};
        QTest::newRow("name") << QByteArray("--name %c end") << Arguments{"--name", "Ein 'schöner' $Name", "end"};
        QTest::newRow("icon") << QByteArray("%i end") << Arguments{"--icon", "an icon", "end"};
        QTest::newRow("percent") << QByteArray("100%% %%c") << Arguments{"100%", "%c"};
        QTest::newRow("deprecated") << QByteArray("a %d %D b %n %N c %v %m") << Arguments{"a", "b", "c"};
    }
    void fieldCodesStandForWhatIsKnown() {
        QFETCH(const QByteArray, text);
        QFETCH(const Arguments, arguments);
        m_fixture->setVariable("LC_ALL", "de_DE.UTF-8");
        m_fixture->setVariable("LANGUAGE", "de");
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry(
            "a.desktop", text, "Name=Plain name\nName[de]=Ein 'schöner' $Name\nIcon=an icon"));
        QVERIFY(record);
        QCOMPARE(record->arguments, arguments);
    }

    void theEntrysPathIsOneArgument() {
        const QByteArray entry = m_fixture->writeRecordingEntry("a 'b' $c.desktop", "%k");
        const auto record = m_fixture->launch(entry);
        QVERIFY(record);
        QCOMPARE(record->arguments, Arguments{entry});
    }

    void anEntryWithoutAnIconGivesNone() {
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", "a %i b"));
        QVERIFY(record);
        QCOMPARE(record->arguments, (Arguments{"a", "b"}));
    }

    // Each backslash is written twice in an entry: once for the value, once for the quotes.
    void quotesHoldAnArgumentTogether_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Arguments>("arguments");
        QTest::newRow("spaces") << QByteArray("one \"two  words\" three") << Arguments{"one", "two  words", "three"};
        QTest::newRow("backslash") << QByteArray("\"a\\\\\\\\b\"") << Arguments{"a\\b"};
        QTest::newRow("dollar") << QByteArray("\"\\\\$HOME\"") << Arguments{"$HOME"};
        QTest::newRow("backquote") << QByteArray("\"\\\\`id\\\\`\"") << Arguments{"`id`"};
        QTest::newRow("quote") << QByteArray("\"say \\\\\"yes\\\\\"\"") << Arguments{"say \"yes\""};
        QTest::newRow("empty") << QByteArray("a \"\" b") << Arguments{"a", "", "b"};
        QTest::newRow("single quotes") << QByteArray("'two words' '\"'") << Arguments{"two words", "\""};
        QTest::newRow("escaped space") << QByteArray("two\\\\ words") << Arguments{"two words"};
    }
    void quotesHoldAnArgumentTogether() {
        QFETCH(const QByteArray, text);
        QFETCH(const Arguments, arguments);
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", text));
        QVERIFY(record);
        QCOMPARE(record->arguments, arguments);
    }

    void noShellReadsTheArguments_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("semicolon") << QByteArray("a ;touch made ; touch made");
        QTest::newRow("substitution") << QByteArray("$(touch made) `touch made`");
        QTest::newRow("and") << QByteArray("a && touch made");
        QTest::newRow("pipe") << QByteArray("a | touch made");
        QTest::newRow("redirection") << QByteArray("a > made");
        QTest::newRow("background") << QByteArray("a & touch made");
        QTest::newRow("pattern") << QByteArray("* ~ $HOME ${PATH} {a,b}");
    }
    void noShellReadsTheArguments() {
        QFETCH(const QByteArray, text);
        m_fixture->writeCommand("touch", "#!/bin/sh\n> \"$1\"\n");
        const QByteArray place = m_fixture->folder().makeFolders("place");
        const auto record =
            m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", text, "Path=" + place + "\n"));
        QVERIFY(record);
        QCOMPARE(record->arguments, text.split(' '));
        // What a shell would have begun is over as well.
        QVERIFY(m_fixture->waitForEnds());
        QVERIFY(!TemporaryFolder::exists(place + "/made"));
    }

    void theProgramStartsInItsFolder() {
        const QByteArray place = m_fixture->folder().makeFolders("a place");
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", {}, "Path=" + place));
        QVERIFY(record);
        QCOMPARE(record->folder, place);
    }

    // Wherever the launching program happens to be.
    void withoutAFolderTheProgramStartsAtHome_data() {
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("empty") << QByteArray("Path=\n");
    }
    void withoutAFolderTheProgramStartsAtHome() {
        QFETCH(const QByteArray, lines);
        const auto record = m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", {}, lines));
        QVERIFY(record);
        QCOMPARE(record->folder, m_fixture->folder().path("home"));
    }

    void aMissingFolderStartsNothing() {
        const QByteArray place = m_fixture->folder().path("missing");
        QVERIFY(m_fixture->launchesNothing(m_fixture->writeRecordingEntry("a.desktop", {}, "Path=" + place)));
        QVERIFY(m_fixture->launch(m_fixture->writeRecordingEntry("b.desktop")));
    }

    void aProgramForATerminalRunsInOne_data() {
        QTest::addColumn<QByteArray>("terminal");
        QTest::newRow("xterm") << QByteArray("xterm");
        QTest::newRow("gnome-terminal") << QByteArray("gnome-terminal");
    }
    void aProgramForATerminalRunsInOne() {
        QFETCH(const QByteArray, terminal);
        // It takes the command after one option.
        m_fixture->writeCommand(terminal, "#!/bin/sh\nshift\nSHOWN_IN=" + terminal + " exec \"$@\"\n");
        const auto record =
            m_fixture->launch(m_fixture->writeRecordingEntry("a.desktop", "\"two words\" ;b", "Terminal=true"));
        QVERIFY(record);
        QCOMPARE(record->environment.value("SHOWN_IN"), terminal);
        QCOMPARE(record->arguments, (Arguments{"two words", ";b"}));
    }

    void withoutATerminalAProgramForOneDoesNotStart() {
        QVERIFY(m_fixture->launchesNothing(m_fixture->writeRecordingEntry("a.desktop", {}, "Terminal=true")));
        QVERIFY(m_fixture->launch(m_fixture->writeRecordingEntry("b.desktop")));
    }

    void programsAreFoundByTheirNames() {
        m_fixture->writeCommand("some-program", "#!/bin/sh\nexec " ZELMO_RECORDING_PROGRAM " found\n");
        const auto record = m_fixture->launch(m_fixture->writeEntry("a.desktop", "Name=A\nExec=some-program"));
        QVERIFY(record);
        QCOMPARE(record->arguments, Arguments{"found"});
    }

    void whatIsNoEntryStartsNothing_data() {
        QTest::addColumn<QByteArray>("contents");
        const QByteArray program("Exec=" ZELMO_RECORDING_PROGRAM "\n");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("no group") << "Type=Application\nName=A\n" + program;
        QTest::newRow("another group") << "[Other]\nType=Application\nName=A\n" + program;
        QTest::newRow("no program") << QByteArray("[Desktop Entry]\nType=Application\nName=A\n");
        QTest::newRow("unknown program") << QByteArray("[Desktop Entry]\nType=Application\nName=A\nExec=missing-one\n");
        QTest::newRow("open quotes") << "[Desktop Entry]\nType=Application\nName=A\n" + program.trimmed() + " \"a\n";
        QTest::newRow("link") << "[Desktop Entry]\nType=Link\nName=A\nURL=file:///\n" + program;
        QTest::newRow("bytes") << QByteArray(512, '\xfe');
        QTest::newRow("missing test program")
            << "[Desktop Entry]\nType=Application\nName=A\nTryExec=missing-one\n" + program;
    }
    void whatIsNoEntryStartsNothing() {
        QFETCH(const QByteArray, contents);
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().writeFile("a.desktop", contents)));
        QVERIFY(m_fixture->launch(m_fixture->writeRecordingEntry("b.desktop")));
    }

    void aMissingEntryStartsNothing() {
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("missing.desktop")));
        m_fixture->folder().makeFolders("folder.desktop");
        QVERIFY(m_fixture->launchesNothing(m_fixture->folder().path("folder.desktop")));
        QVERIFY(m_fixture->launch(m_fixture->writeRecordingEntry("b.desktop")));
    }

    void anEntryWithANameThatIsNotUnicodeStarts() {
        const QByteArray entry = m_fixture->writeRecordingEntry("a\xff\xe9.desktop", "a");
        const auto record = m_fixture->launch(entry);
        QVERIFY(record);
        QCOMPARE(record->arguments, Arguments{"a"});
    }

private:
    std::unique_ptr<LaunchFixture> m_fixture;
};

QTEST_GUILESS_MAIN(GioLauncherEntryTest)
#include "GioLauncherEntryTest.moc"
