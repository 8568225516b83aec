#include "platform/linux/freedesktop/DesktopEntrySource.h"

#include "platform/linux/files/RegularFile.h"
#include "platform/linux/freedesktop/CategoryTable.h"
#include "platform/linux/freedesktop/DesktopEntryFile.h"
#include "platform/linux/freedesktop/EntryFolderWalk.h"
#include "platform/linux/freedesktop/ExecCommand.h"
#include "platform/linux/freedesktop/ProgramFinder.h"

#include <QSet>

#include <pwd.h>
#include <unistd.h>

namespace zelmo {

namespace {

constexpr std::size_t fileSizeLimit = 1024 * 1024;

QByteArray withoutTrailingSlashes(QByteArray path) {
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QByteArray homeFolder() {
    QByteArray home = qgetenv("HOME");
    if (!home.isEmpty())
        return home;
    std::array<char, 16384> buffer{};
    passwd record{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &record, buffer.data(), buffer.size(), &found) != 0 || !found)
        return QByteArray();
    return QByteArray(found->pw_dir);
}

// A theme knows its pictures by names without an ending, yet entries give one now and then.
QString iconName(QString icon) {
    if (icon.startsWith(u'/'))
        return icon;
    for (const QLatin1StringView ending :
         {QLatin1StringView(".png"), QLatin1StringView(".svg"), QLatin1StringView(".xpm")}) {
        if (icon.endsWith(ending)) {
            icon.chop(ending.size());
            break;
        }
    }
    return icon;
}

// The file name of the program that an entry runs; what only prepares its environment is passed over.
QByteArray programName(const DesktopEntryFile& entry) {
    constexpr qsizetype fewWords = 16;
    const auto fileName = [](const QByteArray& word) { return word.mid(word.lastIndexOf('/') + 1); };
    const QByteArray exec = entry.value(DesktopEntryKey::exec).value_or(QByteArray());
    QByteArray first = fileName(ExecCommand::program(exec).value_or(QByteArray()));
    if (first != "env")
        return first;
    const QList<QByteArray> words = ExecCommand::words(exec, fewWords).value_or(QList<QByteArray>());
    for (const QByteArray& word : words.sliced(1)) {
        if (!word.contains('=') && !word.startsWith('-'))
            return fileName(word);
    }
    return {};
}

// One pass over all folders: what has been seen so far, and the answers that are worth keeping.
class EntryPass {
public:
    explicit EntryPass(const DesktopEntrySettings& settings) : m_settings(settings), m_programs(settings.programPath) {}

    struct Result {
        ApplicationListing listing;
        std::vector<IndexedApplication> index;
    };

    Result run() {
        for (const QByteArray& folder : m_settings.applicationFolders) {
            walkEntryFolders(
                folder, [this](const QByteArray& path) { m_listing.folders.append(FileUrl::fromNativePath(path)); },
                [this](const EntryFileVisit& file) { visit(file); });
        }
        return {std::move(m_listing), std::move(m_index)};
    }

private:
    void visit(const EntryFileVisit& file) {
        // Also a file that turns out to be broken or hidden keeps those of later folders away.
        const qsizetype countBefore = m_seenIds.size();
        m_seenIds.insert(file.entryId);
        if (m_seenIds.size() == countBefore)
            return;
        FileContents contents = readRegularFile(file.folder, file.name, fileSizeLimit);
        if (contents.status != FileReadStatus::read)
            return;
        const std::optional<DesktopEntryFile> entry =
            DesktopEntryFile::parse(std::move(contents.bytes), m_settings.locales);
        if (entry && isShown(*entry) && isInstalled(*entry))
            keep(file, *entry);
    }

    void keep(const EntryFileVisit& file, const DesktopEntryFile& entry) {
        m_listing.applications.append(describe(file, entry));
        m_index.push_back({.entryId = file.entryId,
                           .url = m_listing.applications.last().url,
                           .startupClass = entry.value(DesktopEntryKey::startupWmClass).value_or(QByteArray()),
                           // In a terminal all windows are the terminal's.
                           .program = entry.flag(DesktopEntryKey::terminal) ? QByteArray() : programName(entry)});
    }

    bool isShown(const DesktopEntryFile& entry) const {
        return entry.value(DesktopEntryKey::type) == QByteArrayView("Application") &&
               !entry.flag(DesktopEntryKey::hidden) && !entry.flag(DesktopEntryKey::noDisplay) &&
               isForThisDesktop(entry);
    }

    // The first of this session's desktops that one of the two lists names decides.
    bool isForThisDesktop(const DesktopEntryFile& entry) const {
        const auto onlyShowIn = entry.list(DesktopEntryKey::onlyShowIn);
        const auto notShowIn = entry.list(DesktopEntryKey::notShowIn);
        if (!onlyShowIn && !notShowIn)
            return true;
        for (const QByteArray& desktop : m_settings.currentDesktops) {
            if (onlyShowIn && onlyShowIn->contains(desktop))
                return true;
            if (notShowIn && notShowIn->contains(desktop))
                return false;
        }
        return !onlyShowIn;
    }

    // An entry without a command passes: it may be started by other means than a command.
    bool isInstalled(const DesktopEntryFile& entry) {
        const QByteArray tryExec = entry.value(DesktopEntryKey::tryExec).value_or(QByteArray());
        if (!tryExec.isEmpty() && !m_programs.exists(tryExec))
            return false;
        const QByteArray exec = entry.value(DesktopEntryKey::exec).value_or(QByteArray());
        if (exec.isEmpty())
            return true;
        const std::optional<QByteArray> program = ExecCommand::program(exec);
        return program && m_programs.exists(*program);
    }

    static FoundApplication describe(const EntryFileVisit& file, const DesktopEntryFile& entry) {
        FoundApplication application;
        application.url = FileUrl::fromNativePath(file.path + '/' + file.name);
        application.name = entry.localizedText(DesktopEntryKey::name).value_or(QStringLiteral("Unnamed"));
        application.icon.name = iconName(entry.localizedText(DesktopEntryKey::icon).value_or(QString()));
        if (const auto categories = entry.list(DesktopEntryKey::categories))
            application.categoryType = CategoryTable::categoryType(*categories);
        return application;
    }

    const DesktopEntrySettings& m_settings;
    ProgramFinder m_programs;
    QSet<QByteArray> m_seenIds;
    ApplicationListing m_listing;
    std::vector<IndexedApplication> m_index;
};

} // namespace

DesktopEntrySettings DesktopEntrySettings::fromEnvironment() {
    return {.applicationFolders = standardFolders(qgetenv("XDG_DATA_HOME"), qgetenv("XDG_DATA_DIRS"), homeFolder()),
            .currentDesktops = desktopNames(qgetenv("XDG_CURRENT_DESKTOP")),
            .programPath = qEnvironmentVariableIsSet("PATH") ? qgetenv("PATH") : QByteArrayLiteral("/bin:/usr/bin:."),
            .locales = LocaleNames::fromEnvironment()};
}

QList<QByteArray> DesktopEntrySettings::desktopNames(const QByteArray& currentDesktop) {
    const auto isNameCharacter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    QList<QByteArray> names;
    for (const QByteArray& name : currentDesktop.split(':')) {
        if (!name.isEmpty() && std::all_of(name.cbegin(), name.cend(), isNameCharacter))
            names.append(name);
    }
    return names;
}

QList<QByteArray> DesktopEntrySettings::standardFolders(const QByteArray& dataHome, const QByteArray& dataDirs,
                                                        const QByteArray& home) {
    QList<QByteArray> dataFolders{dataHome.startsWith('/') ? dataHome : withoutTrailingSlashes(home) + "/.local/share"};
    dataFolders += (dataDirs.isEmpty() ? QByteArrayLiteral("/usr/local/share:/usr/share") : dataDirs).split(':');

    QList<QByteArray> folders;
    for (const QByteArray& dataFolder : std::as_const(dataFolders)) {
        if (!dataFolder.startsWith('/'))
            continue;
        const QByteArray parent = withoutTrailingSlashes(dataFolder);
        const QByteArray folder = (parent == "/" ? QByteArray() : parent) + "/applications";
        if (!folders.contains(folder))
            folders.append(folder);
    }
    return folders;
}

DesktopEntrySource::DesktopEntrySource(DesktopEntrySettings settings, IndexHandler indexHandler)
    : m_settings(std::move(settings)), m_indexHandler(std::move(indexHandler)) {}

ApplicationListing DesktopEntrySource::list() const {
    EntryPass::Result result = EntryPass(m_settings).run();
    if (m_indexHandler)
        m_indexHandler(ApplicationIndex(std::move(result.index)));
    return std::move(result.listing);
}

} // namespace zelmo
