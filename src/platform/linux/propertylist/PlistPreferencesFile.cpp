#include "platform/linux/propertylist/PlistPreferencesFile.h"

#include "platform/linux/files/FileReplacement.h"
#include "platform/linux/files/RegularFile.h"
#include "platform/linux/propertylist/PropertyList.h"

#include <QDebug>

#include <cmath>
#include <pwd.h>
#include <unistd.h>

namespace zelmo {

namespace {

QByteArray homeFolder() {
    QByteArray home = qgetenv("HOME");
    if (home.isEmpty()) {
        if (const passwd* user = getpwuid(getuid()))
            home = user->pw_dir;
    }
    return home;
}

// Unlike ==, takes "not a number" to be the same as itself.
bool isSame(const PreferenceValue& a, const PreferenceValue& b) {
    const auto* realA = std::get_if<double>(&a);
    const auto* realB = std::get_if<double>(&b);
    return a == b || (realA && realB && std::isnan(*realA) && std::isnan(*realB));
}

bool areSame(const PreferenceValues& a, const PreferenceValues& b) {
    if (a.size() != b.size())
        return false;
    for (auto it = a.cbegin(); it != a.cend(); ++it) {
        const auto other = b.constFind(it.key());
        if (other == b.cend() || !isSame(*it, *other))
            return false;
    }
    return true;
}

} // namespace

PlistPreferencesFile::PlistPreferencesFile(const FileUrl& file, std::size_t sizeLimit)
    : m_path(file.nativePath()), m_sizeLimit(sizeLimit) {
    FileReplacement::removeAbandoned(linkTarget(m_path));
    // Before the first read, so that no change falls between the two.
    m_watcher.setChangeHandler([this] { reportOutsideChange(); });
    watch();
}

FileUrl PlistPreferencesFile::standardFile() {
    QByteArray folder = qgetenv("XDG_CONFIG_HOME");
    // A relative path would mean another folder wherever the program is started.
    if (!folder.startsWith('/'))
        folder = homeFolder() + "/.config";
    return FileUrl::fromNativePath(folder + "/zelmo/preferences.plist");
}

PreferenceValues PlistPreferencesFile::read() {
    if (load() == LoadResult::unreadable && m_isFirstRead)
        setAside(linkTarget(m_path));
    m_isFirstRead = false;
    m_knownValues = m_values;
    return m_values;
}

bool PlistPreferencesFile::write(const PreferenceValues& changes) {
    const LoadResult result = load();
    const PropertyListLimits limits{.bytes = m_sizeLimit};
    std::optional<PropertyList> list;
    if (m_contents)
        list = PropertyList::parse(*m_contents, limits);
    if (!list)
        list.emplace();
    for (auto it = changes.cbegin(); it != changes.cend(); ++it)
        list->setValue(it.key(), it.value());
    const std::optional<QByteArray> contents = list->serialized();
    // What could not be read again must not take the place of what can.
    const std::optional<PropertyList> proof = contents ? PropertyList::parse(*contents, limits) : std::nullopt;
    if (!proof)
        return false;

    const QByteArray target = linkTarget(m_path);
    FileReplacement replacement(target);
    if (!replacement.prepare(*contents))
        return false;
    if (result == LoadResult::unreadable && !setAside(target))
        return false;
    if (!replacement.commit())
        return false;
    m_contents = contents;
    m_values = proof->values();
    m_isFirstRead = false;
    m_knownValues.insert(changes);
    return true;
}

void PlistPreferencesFile::setOutsideChangeHandler(std::function<void()> handler) {
    m_outsideChangeHandler = std::move(handler);
}

// Leaves everything as it was when the file can't be read.
PlistPreferencesFile::LoadResult PlistPreferencesFile::load() {
    FileContents file = readRegularFile(m_path, m_sizeLimit);
    if (file.status == FileReadStatus::missing) {
        m_contents.reset();
        m_values.clear();
        return LoadResult::loaded;
    }
    if (file.status != FileReadStatus::read)
        return LoadResult::unreadable;
    if (m_contents == file.bytes)
        return LoadResult::loaded;
    const auto list = PropertyList::parse(file.bytes, {.bytes = m_sizeLimit});
    if (!list)
        return LoadResult::unreadable;
    m_values = list->values();
    m_contents = std::move(file.bytes);
    return LoadResult::loaded;
}

bool PlistPreferencesFile::setAside(const QByteArray& path) const {
    const std::optional<QByteArray> aside = setFileAside(path);
    if (aside)
        qWarning("The preferences in %s can't be read. They were kept as %s", path.constData(), aside->constData());
    else
        qWarning("The preferences in %s can't be read, and the file can't be renamed", path.constData());
    return aside.has_value();
}

// The file's folder and, where the file is a link, those of the links and of the file that they lead to.
void PlistPreferencesFile::watch() {
    QList<FileUrl> folders;
    for (const QByteArray& path : linkSteps(m_path))
        folders.append(FileUrl::fromNativePath(parentFolder(path)));
    m_watcher.setFolders(folders);
}

void PlistPreferencesFile::reportOutsideChange() {
    watch();
    if (m_isFirstRead || load() == LoadResult::unreadable || areSame(m_values, m_knownValues))
        return;
    m_knownValues = m_values;
    const std::function<void()> handler = m_outsideChangeHandler;
    if (handler)
        handler();
}

} // namespace zelmo
