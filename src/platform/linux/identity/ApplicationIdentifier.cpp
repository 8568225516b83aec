#include "platform/linux/identity/ApplicationIdentifier.h"

#include <array>
#include <filesystem>

namespace zelmo {

namespace {

constexpr QByteArrayView entryEnding(".desktop");

QByteArray fileName(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

// The outermost bundle on the way to the file: the programs inside a bundle are part of it.
std::optional<FileUrl> bundleAround(const QByteArray& file) {
    constexpr QByteArrayView ending(".app/");
    const qsizetype found = file.indexOf(ending);
    if (found <= 0 || file[found - 1] == '/')
        return std::nullopt;
    return FileUrl::fromNativePath(file.first(found + ending.size() - 1));
}

const IndexedApplication* withApplicationId(const ApplicationIndex& index, const QByteArray& id) {
    if (id.isEmpty())
        return nullptr;
    const QByteArray name = fileName(id);
    return index.withEntryId(name.endsWith(entryEnding) ? name : name + entryEnding);
}

// The marked entry, unless it says itself that its windows look different from this one: a program with several
// entries may show the window of another of them in the same process.
const IndexedApplication* launchedEntry(const ApplicationIndex& index, const WindowFacts& window,
                                        const QByteArray& path) {
    if (path.isEmpty())
        return nullptr;
    const IndexedApplication* entry = index.withPath(FileUrl::fromNativePath(path).path());
    const auto fits = [&](const QByteArray& name) {
        return name.compare(entry->startupClass, Qt::CaseInsensitive) == 0;
    };
    if (entry && !entry->startupClass.isEmpty() && !fits(window.instanceName) && !fits(window.className))
        return nullptr;
    return entry;
}

const IndexedApplication* findEntry(const ApplicationIndex& index, const WindowFacts& window,
                                    const ProcessFacts& process) {
    // A sandbox is set up from outside; what runs in it can't say anything else, but may bear another's class.
    if (!process.sandboxEntryId.isEmpty())
        return index.withEntryId(process.sandboxEntryId);
    for (const QByteArray& id : window.applicationIds) {
        if (const auto* entry = withApplicationId(index, id))
            return entry;
    }
    if (const auto* entry = launchedEntry(index, window, process.launchedEntry))
        return entry;
    const std::array classNames{window.instanceName, window.className};
    for (const QByteArray& name : classNames) {
        if (const auto* entry = index.withStartupClass(name))
            return entry;
    }
    for (const QByteArray& name : classNames) {
        if (const auto* entry = withApplicationId(index, name))
            return entry;
    }
    if (const auto* entry = index.withProgram(fileName(process.script)))
        return entry;
    return index.withProgram(fileName(process.executable));
}

} // namespace

ApplicationIdentifier::ApplicationIdentifier(QList<FileUrl> bundleFolders)
    : m_bundleFolders(std::move(bundleFolders)) {}

void ApplicationIdentifier::setIndex(ApplicationIndex index) {
    auto fresh = std::make_shared<const ApplicationIndex>(std::move(index));
    {
        const QMutexLocker guard(&m_lock);
        m_index.swap(fresh);
    }
    Q_EMIT indexChanged();
}

std::optional<FileUrl> ApplicationIdentifier::identify(const WindowFacts& window, const ProcessFacts& process) const {
    std::optional<FileUrl> bundle = bundleAround(process.executable);
    if (!bundle)
        bundle = bundleAround(process.script);
    if (bundle) {
        if (auto listed = listedBundle(*bundle))
            return listed;
    }
    const std::shared_ptr<const ApplicationIndex> entries = index();
    const IndexedApplication* entry = findEntry(*entries, window, process);
    return entry ? std::optional(entry->url) : bundle;
}

std::optional<FileUrl> ApplicationIdentifier::listedBundle(const FileUrl& bundle) const {
    const std::string path = bundle.nativePath().toStdString();
    for (const FileUrl& folder : m_bundleFolders) {
        const std::string listed = folder.nativePath().toStdString() + '/';
        std::error_code error;
        const std::string real = std::filesystem::canonical(listed, error).native() + '/';
        if (!error && path.starts_with(real))
            return FileUrl::fromNativePath(QByteArray::fromStdString(listed + path.substr(real.size())));
    }
    return std::nullopt;
}

std::shared_ptr<const ApplicationIndex> ApplicationIdentifier::index() const {
    const QMutexLocker guard(&m_lock);
    return m_index;
}

} // namespace zelmo
