// How long one pass over desktop entries takes: by this program, by reading the same files and doing
// nothing with them, and by GIO. GIO keeps what it finds and rereads a folder after it has seen it
// change, so each of its passes has a child process of its own that reports the time of its first call.

#include "catalog/AppScanner.h"
#include "platform/linux/files/RegularFile.h"
#include "platform/linux/freedesktop/DesktopEntrySource.h"

#include <benchmark/benchmark.h>
#include <gio/gio.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const char* childArgument = "--gio-pass";

// A data folder with as many entries as asked for, each with forty translations of three keys as the
// larger desktops' programs have. Removed at the end.
class EntryFolder {
public:
    explicit EntryFolder(int count) {
        std::string pattern = (fs::temp_directory_path() / "zelmo-bench-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::abort();
        m_path = pattern;
        fs::create_directories(applications());
        for (int i = 0; i < count; ++i)
            writeEntry(i);
    }
    ~EntryFolder() {
        std::error_code error;
        fs::remove_all(m_path, error);
    }
    EntryFolder(const EntryFolder&) = delete;
    EntryFolder& operator=(const EntryFolder&) = delete;

    const fs::path& path() const { return m_path; }
    fs::path applications() const { return m_path / "applications"; }

private:
    void writeEntry(int number) const {
        const std::string text = std::to_string(number);
        std::ofstream file(applications() / ("org.example.Program" + text + ".desktop"));
        file << "[Desktop Entry]\nType=Application\nVersion=1.0\n";
        for (const char* key : {"Name", "GenericName", "Comment"}) {
            file << key << "=Program " << text << '\n';
            for (int locale = 0; locale < 40; ++locale)
                file << key << '[' << static_cast<char>('a' + locale % 26) << static_cast<char>('a' + locale / 2)
                     << "]=\u00dcbersetzung " << text << '\n';
        }
        file << "Exec=sh %U\nIcon=org.example.Program" << text << "\nTerminal=false\nStartupNotify=true\n"
             << "Categories=Qt;Office;Viewer;\nMimeType=application/pdf;image/png;\nActions=new;\n\n"
             << "[Desktop Action new]\nName=New\nExec=sh --new\n";
    }

    fs::path m_path;
};

const EntryFolder& folderWith(int64_t count) {
    static std::map<int64_t, std::unique_ptr<EntryFolder>> folders;
    std::unique_ptr<EntryFolder>& folder = folders[count];
    if (!folder)
        folder = std::make_unique<EntryFolder>(static_cast<int>(count));
    return *folder;
}

void listEntries(benchmark::State& state) {
    const EntryFolder& folder = folderWith(state.range(0));
    const zelmo::DesktopEntrySource source(
        {.applicationFolders = {QByteArray::fromStdString(folder.applications().string())},
         .currentDesktops = {"KDE"},
         .programPath = "/usr/local/bin:/usr/bin:/bin",
         .locales = zelmo::LocaleNames({.language = "de_AT:en_GB"})});
    for (auto iteration : state) {
        if (source.list().applications.size() != state.range(0))
            state.SkipWithError("entries are missing");
    }
}

// All that a refresh does off the main thread: the pass over the entries, categories and the order of names.
void scanAndSort(benchmark::State& state) {
    const EntryFolder& folder = folderWith(state.range(0));
    std::vector<std::unique_ptr<zelmo::ApplicationSource>> sources;
    sources.push_back(std::make_unique<zelmo::DesktopEntrySource>(
        zelmo::DesktopEntrySettings{.applicationFolders = {QByteArray::fromStdString(folder.applications().string())},
                                    .currentDesktops = {"KDE"},
                                    .programPath = "/usr/local/bin:/usr/bin:/bin",
                                    .locales = zelmo::LocaleNames({.language = "de_AT:en_GB"})}));
    const zelmo::AppScanner scanner(std::move(sources), QLocale(QLocale::German));
    for (auto iteration : state) {
        if (scanner.scan().apps.size() != state.range(0))
            state.SkipWithError("entries are missing");
    }
}

void readFiles(benchmark::State& state) {
    const std::string path = folderWith(state.range(0)).applications().string();
    for (auto iteration : state) {
        const int descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        DIR* folder = fdopendir(descriptor);
        qsizetype size = 0;
        while (const dirent* entry = readdir(folder)) {
            if (entry->d_name[0] != '.')
                size += zelmo::readRegularFile(descriptor, entry->d_name, std::size_t{1024} * 1024).bytes.size();
        }
        closedir(folder);
        benchmark::DoNotOptimize(size);
    }
}

int runGioPass() {
    const auto start = std::chrono::steady_clock::now();
    GList* all = g_app_info_get_all();
    unsigned count = 0;
    for (const GList* item = all; item; item = item->next)
        count += g_app_info_should_show(G_APP_INFO(item->data)) ? 1 : 0;
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("%u %.9f\n", count, time.count());
    g_list_free_full(all, g_object_unref);
    return 0;
}

void listWithGio(benchmark::State& state) {
    const std::string path = folderWith(state.range(0)).path().string();
    setenv("XDG_DATA_HOME", "/nonexistent", 1);
    setenv("XDG_DATA_DIRS", path.c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "KDE", 1);
    setenv("LANGUAGE", "de_AT:en_GB", 1);
    const std::string command = fs::read_symlink("/proc/self/exe").string() + ' ' + childArgument;
    for (auto iteration : state) {
        FILE* child = popen(command.c_str(), "r");
        unsigned count = 0;
        double seconds = 0;
        if (!child || std::fscanf(child, "%u %lf", &count, &seconds) != 2 || count != state.range(0))
            state.SkipWithError("GIO finds other entries");
        if (child)
            pclose(child);
        state.SetIterationTime(seconds);
    }
}

BENCHMARK(listEntries)->Arg(200)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(scanAndSort)->Arg(200)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(readFiles)->Arg(200)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(listWithGio)->Arg(200)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount > 1 && std::string_view(arguments[1]) == childArgument)
        return runGioPass();
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
