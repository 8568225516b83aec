// Launches what it is told to on its standard input, a command on each line, and says what it did and what its
// notifier was asked. Ends with its standard input.

#include "platform/linux/launching/GioLauncher.h"
#include "platform/linux/launching/StartupNotifier.h"
#include "platform/linux/propertylist/PlistBundleReader.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace zelmo;

namespace {

void say(const QByteArray& line) {
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

class TellingNotifier : public StartupNotifier {
public:
    QByteArray token(const StartupDescription& program) override { return give("quiet", program); }
    QByteArray announcedToken(const StartupDescription& program) override { return give("announced", program); }
    void cancel(const QByteArray& token) override { say("cancelled " + token); }

    bool givesTokens = true;

private:
    QByteArray give(const QByteArray& kind, const StartupDescription& program) const {
        say(kind + ' ' + program.name + '|' + program.entryId + '|' + program.startupClass);
        return givesTokens ? kind + "-token" : QByteArray();
    }
};

// Files as a library that knows no better opens them: programs that are started inherit them.
void openFilesForEveryone() {
    int ends[2];
    if (pipe(ends) != 0 || open("/proc/self/exe", O_RDONLY) < 0 || dup2(ends[1], 200) < 0)
        qFatal("no files can be opened");
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const PlistBundleReader reader;
    TellingNotifier notifier;
    GioLauncher launcher(reader, notifier, {"ZELMO_TEST_PRIVATE", "ZELMO_TEST_NEVER_SET"});
    QByteArray unread;
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char bytes[4096];
        const ssize_t length = read(STDIN_FILENO, bytes, sizeof bytes);
        if (length <= 0)
            return QCoreApplication::quit();
        unread.append(bytes, static_cast<qsizetype>(length));
        for (qsizetype end = 0; (end = unread.indexOf('\n')) >= 0; unread.remove(0, end + 1)) {
            const QByteArray command = unread.left(end);
            if (command == "open files")
                openFilesForEveryone();
            else if (command == "no tokens")
                notifier.givesTokens = false;
            else
                launcher.openApplication(FileUrl::fromNativePath(QByteArray::fromPercentEncoding(command)));
            say("done");
        }
    });
    return QCoreApplication::exec();
}
