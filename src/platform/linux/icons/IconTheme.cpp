#include "platform/linux/icons/IconTheme.h"

#include "platform/linux/files/RegularFile.h"
#include "platform/linux/icons/DirectoryHandle.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <tuple>

namespace zelmo {

namespace {

constexpr std::size_t descriptionLimit = 1024 * 1024;
constexpr std::size_t folderLimit = std::numeric_limits<std::uint16_t>::max();
constexpr std::array<std::string_view, 3> extensions{".png", ".svg", ".xpm"}; // by IconFileType

struct RankedPlace {
    bool isInexact;
    double distance;
    double drawnPixels;
    IconPlace place;
};

} // namespace

std::unique_ptr<IconTheme> IconTheme::open(const QByteArray& name, const QList<QByteArray>& baseFolders) {
    auto theme = std::make_unique<IconTheme>();
    bool isDescribed = false;
    for (const QByteArray& base : baseFolders) {
        const QByteArray root = base + '/' + name;
        struct stat status {};
        const bool isThere = ::stat(root.constData(), &status) == 0;
        theme->m_times.note(root, isThere ? &status : nullptr);
        if (!isThere || !S_ISDIR(status.st_mode))
            continue;
        theme->m_roots.append(root);
        if (isDescribed)
            continue;
        const QByteArray file = root + "/index.theme";
        const bool hasFile = ::stat(file.constData(), &status) == 0;
        theme->m_times.note(file, hasFile ? &status : nullptr);
        const FileContents contents = readRegularFile(file, descriptionLimit);
        if (contents.status != FileReadStatus::read)
            continue;
        if (auto description = IconThemeDescription::parse(contents.bytes)) {
            theme->m_description = std::move(*description);
            isDescribed = true;
        }
    }
    if (theme->m_roots.isEmpty())
        return nullptr;
    if (!isDescribed)
        theme->addConventionalFolders();
    return theme;
}

std::unique_ptr<IconTheme> IconTheme::ofPlainFolders(const QList<QByteArray>& folders) {
    auto theme = std::make_unique<IconTheme>();
    theme->m_roots = folders;
    IconThemeFolder itself;
    itself.path = ".";
    itself.type = IconFolderType::scalable;
    itself.maximum = std::numeric_limits<int>::max();
    theme->m_description.folders.push_back(itself);
    return theme;
}

// A theme that lacks its description is read as its folders are conventionally named: "48x48/apps".
void IconTheme::addConventionalFolders() {
    for (const QByteArray& root : m_roots) {
        DirectoryHandle handle(AT_FDCWD, root.constData());
        QList<QByteArray> sizes;
        handle.forEachEntry([&](QByteArrayView name, unsigned char) { sizes.append(name.toByteArray()); });
        std::sort(sizes.begin(), sizes.end());
        for (const QByteArray& size : sizes) {
            const std::optional<IconThemeFolder> folder = IconThemeDescription::conventionalFolder(size);
            if (!folder)
                continue;
            DirectoryHandle contexts(handle.descriptor(), size.constData());
            const struct stat status = contexts.status();
            if (contexts.isOpen())
                m_times.note(root + '/' + size, &status);
            contexts.forEachEntry([&](QByteArrayView context, unsigned char) {
                IconThemeFolder inner = *folder;
                inner.path = size + '/' + context.toByteArray();
                const bool isKnown = std::any_of(m_description.folders.cbegin(), m_description.folders.cend(),
                                                 [&](const IconThemeFolder& f) { return f.path == inner.path; });
                if (!isKnown && m_description.folders.size() < 1024)
                    m_description.folders.push_back(inner);
            });
        }
    }
}

QList<QByteArray> IconTheme::files(QByteArrayView name, int points, double scale) {
    if (m_state == State::opened)
        list();
    const double pixels = points * scale;
    std::vector<RankedPlace> ranked;
    for (const IconPlace place : m_names.find(name)) {
        const IconThemeFolder& folder = m_description.folders[m_folders[place.folder].description];
        ranked.push_back({!folder.matches(points, scale), folder.distance(pixels), folder.drawnPixels(pixels), place});
    }
    // Folders that match exactly come in the theme's own order. Of the others those whose icons need not be
    // enlarged, which blurs them, the nearest size first; of two as near the one with more pixels to start from.
    std::stable_sort(ranked.begin(), ranked.end(), [pixels](const RankedPlace& a, const RankedPlace& b) {
        if (a.isInexact != b.isInexact)
            return b.isInexact;
        if (!a.isInexact)
            return false;
        const bool aIsEnlarged = a.drawnPixels < pixels;
        const bool bIsEnlarged = b.drawnPixels < pixels;
        return std::tie(aIsEnlarged, a.distance, b.drawnPixels) < std::tie(bIsEnlarged, b.distance, a.drawnPixels);
    });
    QList<QByteArray> paths;
    for (const RankedPlace& candidate : ranked)
        paths.append(pathOf(name, candidate.place));
    return paths;
}

void IconTheme::list() {
    m_state = State::listed;
    std::vector<std::unique_ptr<DirectoryHandle>> roots;
    for (const QByteArray& root : m_roots) {
        roots.push_back(std::make_unique<DirectoryHandle>(AT_FDCWD, root.constData()));
        if (!roots.back()->isOpen())
            m_times.note(root, nullptr);
    }
    IconNameTable::Builder builder;
    for (std::size_t description = 0; description < m_description.folders.size(); ++description) {
        for (std::size_t root = 0; root < roots.size(); ++root) {
            if (roots[root]->isOpen() && m_folders.size() < folderLimit)
                listFolder(root, roots[root]->descriptor(), description, builder);
        }
    }
    m_names = builder.build();
}

void IconTheme::listFolder(std::size_t root, int rootDescriptor, std::size_t description,
                           IconNameTable::Builder& builder) {
    const QByteArray& path = m_description.folders[description].path;
    DirectoryHandle handle(rootDescriptor, path.constData());
    if (!handle.isOpen()) {
        noteMissing(root, rootDescriptor, path);
        return;
    }
    const struct stat status = handle.status();
    m_times.note(m_roots[static_cast<qsizetype>(root)] + '/' + path, &status);
    const auto folder = static_cast<std::uint16_t>(m_folders.size());
    m_folders.push_back({static_cast<std::uint16_t>(description), static_cast<std::uint16_t>(root)});
    handle.forEachEntry([&](QByteArrayView entry, unsigned char kind) {
        if (kind == DT_DIR || entry.size() <= 4)
            return;
        for (std::size_t type = 0; type < extensions.size(); ++type) {
            if (entry.endsWith(QByteArrayView(extensions[type].data(), 4)))
                builder.add(entry.chopped(4), {folder, static_cast<IconFileType>(type)});
        }
    });
}

// A missing folder shows up as a change of the nearest folder above it that is there.
void IconTheme::noteMissing(std::size_t root, int rootDescriptor, const QByteArray& path) {
    for (qsizetype end = path.lastIndexOf('/'); end > 0; end = path.lastIndexOf('/', end - 1)) {
        const QByteArray above = path.left(end);
        const QByteArray fullPath = m_roots[static_cast<qsizetype>(root)] + '/' + above;
        if (m_times.holds(fullPath))
            return;
        struct stat status {};
        if (fstatat(rootDescriptor, above.constData(), &status, 0) == 0) {
            m_times.note(fullPath, &status);
            return;
        }
    }
}

QByteArray IconTheme::pathOf(QByteArrayView name, IconPlace place) const {
    const Folder folder = m_folders[place.folder];
    const std::string_view extension = extensions[static_cast<std::size_t>(place.type)];
    return m_roots[folder.root] + '/' + m_description.folders[folder.description].path + '/' + name.toByteArray() +
           QByteArray(extension.data(), 4);
}

} // namespace zelmo
