#include "platform/linux/session/LockFileProgramInstance.h"
#include "RecordedRequests.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// A folder of a test's own, with room for the one that is claimed in.
class Folder {
public:
    QByteArray path() const { return QFile::encodeName(m_folder.path()) + "/zelmo"; }
    QStringList entries() const {
        return QDir(QFile::decodeName(path())).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class LockFileProgramInstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSecondStartHandsOverToTheFirst() {
        const Folder folder;
        LockFileProgramInstance first(folder.path(), ":7");
        LockFileProgramInstance second(folder.path(), ":7");
        QCOMPARE(first.claim("ignored"), InstanceClaim::first);
        RecordedRequests requests;
        first.listen(requests.handler());
        QCOMPARE(answerOf(claimElsewhere(second, "a token_TIME42")), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list, QStringList{QStringLiteral("0 a token_TIME42")});
        QCOMPARE(answerOf(claimElsewhere(second)), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list.last(), QStringLiteral("0 "));
        QCOMPARE(answerOf(claimElsewhere(second, QByteArray(100'000, 'x'))), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list.last().size(), 2 + 4095);
    }

    void whatIsAskedBeforeItListensIsNotLost() {
        const Folder folder;
        LockFileProgramInstance first(folder.path(), ":7");
        QCOMPARE(first.claim({}), InstanceClaim::first);
        LockFileProgramInstance second(folder.path(), ":7");
        std::future<InstanceClaim> claim = claimElsewhere(second, "early");
        QTest::qWait(100);
        RecordedRequests requests;
        first.listen(requests.handler());
        QCOMPARE(answerOf(std::move(claim)), InstanceClaim::handedOver);
        QTRY_COMPARE(requests.list, QStringList{QStringLiteral("0 early")});
    }

    void eachDisplayHasAPlaceOfItsOwn() {
        const Folder folder;
        LockFileProgramInstance first(folder.path(), ":7");
        LockFileProgramInstance other(folder.path(), "a/b:8");
        QCOMPARE(first.claim({}), InstanceClaim::first);
        QCOMPARE(other.claim({}), InstanceClaim::first);
        QCOMPARE(folder.entries(),
                 (QStringList{QStringLiteral("display-%3A7.lock"), QStringLiteral("display-%3A7.socket"),
                              QStringLiteral("display-a%2Fb%3A8.lock"), QStringLiteral("display-a%2Fb%3A8.socket")}));
    }

    void allNamesOfADisplayStandForOnePlace() {
        const Folder folder;
        LockFileProgramInstance first(folder.path(), ":7");
        QCOMPARE(first.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        first.listen(requests.handler());
        for (const char* name : {":7.0", ":7.1", "unix:7", "unix:7.0"}) {
            LockFileProgramInstance other(folder.path(), name);
            QCOMPARE(answerOf(claimElsewhere(other)), InstanceClaim::handedOver);
        }
        LockFileProgramInstance other(folder.path(), "host.example:7");
        QCOMPARE(other.claim({}), InstanceClaim::first);
    }

    // A folder stands where the socket should.
    void aPlaceThatCannotBeReachedIsLetGo() {
        const Folder folder;
        QVERIFY(QDir().mkpath(QFile::decodeName(folder.path()) + QStringLiteral("/display-%3A7.socket/in-the-way")));
        QCOMPARE(chmod(folder.path().constData(), 0700), 0);
        LockFileProgramInstance first(folder.path(), ":7");
        QCOMPARE(first.claim({}), InstanceClaim::unavailable);
        LockFileProgramInstance second(folder.path(), ":7");
        QCOMPARE(second.claim({}), InstanceClaim::unavailable);
    }

    void aLinkInThePlaceOfTheLockIsNotFollowed() {
        const Folder folder;
        const Folder elsewhere;
        QVERIFY(QDir().mkpath(QFile::decodeName(folder.path())));
        QVERIFY(QDir().mkpath(QFile::decodeName(elsewhere.path())));
        QCOMPARE(chmod(folder.path().constData(), 0700), 0);
        const QByteArray target = elsewhere.path() + "/lock";
        const QByteArray lock = folder.path() + "/display-%3A7.lock";
        QCOMPARE(symlink(target.constData(), lock.constData()), 0);
        LockFileProgramInstance instance(folder.path(), ":7");
        QCOMPARE(instance.claim({}), InstanceClaim::unavailable);
        QVERIFY(elsewhere.entries().isEmpty());
    }

    void thePlaceIsFreeOnceTheFirstHasGone() {
        const Folder folder;
        auto first = std::make_unique<LockFileProgramInstance>(folder.path(), ":7");
        QCOMPARE(first->claim({}), InstanceClaim::first);
        first.reset();
        LockFileProgramInstance second(folder.path(), ":7");
        QCOMPARE(second.claim({}), InstanceClaim::first);
    }

    // The file and the socket stay behind.
    void aCrashLeavesNothingInTheWay() {
        const Folder folder;
        const pid_t child = fork();
        if (child == 0) {
            LockFileProgramInstance instance(folder.path(), ":7");
            if (instance.claim({}) == InstanceClaim::first)
                raise(SIGKILL);
            _exit(1);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(folder.entries().size(), 2);
        LockFileProgramInstance instance(folder.path(), ":7");
        QCOMPARE(instance.claim({}), InstanceClaim::first);
        RecordedRequests requests;
        instance.listen(requests.handler());
        LockFileProgramInstance second(folder.path(), ":7");
        QCOMPARE(answerOf(claimElsewhere(second)), InstanceClaim::handedOver);
    }

    void ofManyAtOnceOneIsTheFirst() {
        const Folder folder;
        std::vector<std::unique_ptr<LockFileProgramInstance>> instances;
        std::vector<std::future<InstanceClaim>> claims;
        for (int i = 0; i < 8; ++i)
            instances.push_back(std::make_unique<LockFileProgramInstance>(folder.path(), ":7"));
        for (const auto& instance : instances)
            claims.push_back(claimElsewhere(*instance));
        // Only the first has its answer before anybody listens.
        const auto isReady = [](const auto& claim) {
            return claim.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        };
        QTRY_COMPARE(std::count_if(claims.begin(), claims.end(), isReady), 1);
        RecordedRequests requests;
        for (std::size_t i = 0; i < claims.size(); ++i) {
            if (isReady(claims[i]))
                instances[i]->listen(requests.handler());
        }
        int firsts = 0;
        for (auto& claim : claims) {
            const InstanceClaim answer = answerOf(std::move(claim));
            firsts += answer == InstanceClaim::first;
            QVERIFY(answer == InstanceClaim::first || answer == InstanceClaim::handedOver);
        }
        QCOMPARE(firsts, 1);
        QTRY_COMPARE(requests.list.size(), 7);
    }

    void thePlaceOfOneThatEndsWithoutAnAnswerIsTaken() {
        const Folder folder;
        auto first = std::make_unique<LockFileProgramInstance>(folder.path(), ":7");
        QCOMPARE(first->claim({}), InstanceClaim::first);
        LockFileProgramInstance second(folder.path(), ":7");
        std::future<InstanceClaim> claim = claimElsewhere(second);
        QTest::qWait(100);
        first.reset();
        QCOMPARE(answerOf(std::move(claim)), InstanceClaim::first);
    }

    void oneThatDoesNotAnswerIsGivenUp() {
        const Folder folder;
        LockFileProgramInstance first(folder.path(), ":7");
        QCOMPARE(first.claim({}), InstanceClaim::first);
        LockFileProgramInstance second(folder.path(), ":7");
        QCOMPARE(second.claim({}), InstanceClaim::unanswered);
    }

    void aFolderThatIsNotTheUsersAloneIsNoPlace_data() {
        QTest::addColumn<QString>("obstacle");
        for (const char* name : {"open to others", "a link", "a file", "missing above", "locked away"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void aFolderThatIsNotTheUsersAloneIsNoPlace() {
        QFETCH(QString, obstacle);
        QTemporaryDir temporary;
        QByteArray path = QFile::encodeName(temporary.path()) + "/zelmo";
        if (obstacle == QLatin1StringView("open to others")) {
            QCOMPARE(mkdir(path.constData(), 0700), 0);
            QCOMPARE(chmod(path.constData(), 0750), 0);
        } else if (obstacle == QLatin1StringView("a link")) {
            QCOMPARE(symlink("/tmp", path.constData()), 0);
        } else if (obstacle == QLatin1StringView("a file")) {
            QFile file(QFile::decodeName(path));
            QVERIFY(file.open(QFile::WriteOnly));
        } else if (obstacle == QLatin1StringView("missing above")) {
            path += "/more/zelmo";
        } else {
            path = "/proc/zelmo";
        }
        LockFileProgramInstance instance(path, ":7");
        QCOMPARE(instance.claim({}), InstanceClaim::unavailable);
        instance.listen([](ApplicationRequest, const QByteArray&) {});
    }

    void theFolderIsBelowTheOneOfTheLogin() {
        qputenv("XDG_RUNTIME_DIR", "/run/user/7");
        QCOMPARE(LockFileProgramInstance::standardFolder(), QByteArray("/run/user/7/zelmo"));
        const QByteArray own = "/tmp/zelmo-" + QByteArray::number(geteuid());
        qputenv("XDG_RUNTIME_DIR", "relative");
        QCOMPARE(LockFileProgramInstance::standardFolder(), own);
        qunsetenv("XDG_RUNTIME_DIR");
        QCOMPARE(LockFileProgramInstance::standardFolder(), own);
    }
};

QTEST_GUILESS_MAIN(LockFileProgramInstanceTest)
#include "LockFileProgramInstanceTest.moc"
