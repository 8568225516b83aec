// trash-mover [--ordinary-user]
// Moves each path of the standard input, which NUL bytes separate, to the Trash and prints what came of it. As an
// ordinary user it does so without root's rights.

#include "platform/linux/trash/XdgTrash.h"

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
    if (argc > 1 && std::strcmp(argv[1], "--ordinary-user") == 0 && !becomeOrdinaryUser())
        return 2;
    XdgTrash trash;
    for (std::string path; std::getline(std::cin, path, '\0');) {
        const TrashResult result = trash.moveToTrash(FileUrl::fromNativePath(QByteArray::fromStdString(path)));
        std::puts(result == TrashResult::moved ? "moved" : "refused");
    }
    return 0;
}
