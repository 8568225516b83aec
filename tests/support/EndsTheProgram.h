#pragma once

#include <QtGlobal>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelmo::test {

// Whether the function ends the process by an abort, tried in a process of its own, whose last words nobody hears.
template <typename Function>
bool endsTheProgram(Function function) {
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        std::signal(SIGABRT, SIG_DFL);
        qInstallMessageHandler(nullptr); // the test's own would take the end for one of the test
        function();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}

} // namespace zelmo::test
