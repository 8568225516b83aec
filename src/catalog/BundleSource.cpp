#include "catalog/BundleSource.h"

#include "catalog/BundleReader.h"

#include <filesystem>
#include <vector>

namespace zelmo {

namespace fs = std::filesystem;

namespace {

FileUrl toUrl(const fs::path& path) {
    return FileUrl::fromNativePath(QByteArray::fromStdString(path.native()));
}

fs::path toPath(const FileUrl& url) {
    return fs::path(url.nativePath().toStdString());
}

// The watched folder of a bundle: its property list changes there.
FileUrl contentsFolder(const FileUrl& bundle) {
    return FileUrl::fromPath(bundle.path() + QLatin1StringView("/Contents"));
}

} // namespace

BundleSource::BundleSource(QList<FileUrl> roots, const BundleReader& reader)
    : m_roots(std::move(roots)), m_reader(reader) {}

QList<FileUrl> BundleSource::standardRoots(const FileUrl& home) {
    return {FileUrl::fromPath(QStringLiteral("/Applications")),
            FileUrl::fromPath(QStringLiteral("/System/Applications")),
            FileUrl::fromPath(home.path() + QLatin1StringView("/Applications"))};
}

ApplicationListing BundleSource::list() const {
    ApplicationListing listing;
    QList<FileUrl> contents;
    for (const FileUrl& root : m_roots) {
        std::vector<fs::path> pending{toPath(root)};
        while (!pending.empty()) {
            const fs::path folder = std::move(pending.back());
            pending.pop_back();
            listing.folders.append(toUrl(folder));

            std::error_code error;
            fs::directory_iterator entry(folder, error);
            for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
                const std::string name = entry->path().filename().native();
                if (name.starts_with('.'))
                    continue;
                if (entry->path().extension() == ".app") {
                    listing.applications.append(describe(toUrl(entry->path())));
                    contents.append(contentsFolder(listing.applications.last().url));
                    continue;
                }
                std::error_code statusError;
                if (entry->symlink_status(statusError).type() == fs::file_type::directory)
                    pending.push_back(entry->path());
            }
        }
    }
    // Last, so that a watcher with a limit serves the folders that new bundles appear in first.
    listing.folders += contents;
    return listing;
}

FoundApplication BundleSource::describe(const FileUrl& bundle) const {
    const BundleInformation information = m_reader.read(bundle).value_or(BundleInformation{});
    QString name;
    if (information.displayName)
        name = *information.displayName;
    else if (information.bundleName)
        name = *information.bundleName;
    else
        name = FileUrl::displayText(bundle.stem());

    AppIcon icon;
    if (information.iconFile && !information.iconFile->isEmpty())
        icon = {.name = *information.iconFile, .bundlePath = bundle.path()};
    return {.url = bundle, .name = name, .categoryType = information.categoryType, .icon = icon};
}

} // namespace zelmo
