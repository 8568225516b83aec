#pragma once

#include <QtGlobal>

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelmo::test {

// Whether the function ends the process by an abort, tried in a process of its own.
template <typename Function>
bool endsTheProgram(Function function) {
    const pid_t child = fork();
    if (child == 0) {
        // Neither a core file nor the test library's report of a crash.
        const rlimit none{0, 0};
        setrlimit(RLIMIT_CORE, &none);
        std::signal(SIGABRT, SIG_DFL);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        function();
        _exit(EXIT_SUCCESS);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

} // namespace zelmo::test
