// trash-mover [--ordinary-user] [--without-exclusive-renames]
// Moves the path in each line of the standard input, which may have bytes as %XX, to the Trash and prints what came of
// it. As an ordinary user it does so without root's rights, and without exclusive renames as on a file system that
// lacks them.

#include "platform/linux/trash/XdgTrash.h"
#include "support/ExclusiveRenames.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstring>
#include <grp.h>
#include <iostream>
#include <string>
#include <unistd.h>

using namespace zelmo;

namespace {

constexpr unsigned nobody = 65534;

bool becomeOrdinaryUser() {
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
}

} // namespace

int main(int argc, char* argv[]) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--ordinary-user") == 0 && !becomeOrdinaryUser())
            return 2;
        if (std::strcmp(argv[i], "--without-exclusive-renames") == 0 && !test::refuseExclusiveRenames())
            return 2;
    }
    const QCoreApplication application(argc, argv);
    XdgTrash trash;
    for (std::string line; std::getline(std::cin, line);) {
        const QByteArray path = QByteArray::fromPercentEncoding(QByteArray::fromStdString(line));
        const TrashResult result = trash.moveToTrash(FileUrl::fromNativePath(path));
        std::puts(result == TrashResult::moved ? "moved" : "refused");
    }
    return 0;
}
