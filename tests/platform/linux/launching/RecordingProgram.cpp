// Writes what it was started with into the file that ZELMO_TEST_RECORD names, a word and a value in hexadecimal digits
// on each line. With ZELMO_TEST_STAY it stays until it is ended.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <dirent.h>
#include <unistd.h>

extern char** environ;

namespace {

void write(FILE* file, const char* word, const std::string& value) {
    std::fprintf(file, "%s ", word);
    for (const char c : value)
        std::fprintf(file, "%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
    std::fputc('\n', file);
}

void writeOpenFiles(FILE* file) {
    DIR* folder = opendir("/proc/self/fd");
    while (const dirent* entry = folder ? readdir(folder) : nullptr) {
        const int descriptor = std::atoi(entry->d_name);
        if (entry->d_name[0] == '.' || descriptor == dirfd(folder) || descriptor == fileno(file))
            continue;
        char target[4096];
        const ssize_t length = readlinkat(dirfd(folder), entry->d_name, target, sizeof target);
        write(file, "open", entry->d_name + (' ' + std::string(target, static_cast<std::size_t>(length))));
    }
    if (folder)
        closedir(folder);
}

} // namespace

int main(int count, char** arguments) {
    const char* record = std::getenv("ZELMO_TEST_RECORD");
    if (!record)
        return 1;
    const std::string unfinished = std::string(record) + ".unfinished";
    FILE* file = std::fopen(unfinished.c_str(), "w");
    if (!file)
        return 1;
    for (int i = 0; i < count; ++i)
        write(file, "argument", arguments[i]);
    for (char** variable = environ; *variable; ++variable)
        write(file, "variable", *variable);
    char folder[4096];
    write(file, "folder", getcwd(folder, sizeof folder) ? folder : "");
    write(file, "process", std::to_string(getpid()));
    write(file, "parent", std::to_string(getppid()));
    write(file, "session", std::to_string(getsid(0)));
    writeOpenFiles(file);
    if (std::fclose(file) != 0 || std::rename(unfinished.c_str(), record) != 0)
        return 1;
    if (std::getenv("ZELMO_TEST_STAY")) {
        alarm(120); // should nobody end it
        pause();
    }
    return 0;
}
