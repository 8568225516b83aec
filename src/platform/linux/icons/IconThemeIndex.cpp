#include "platform/linux/icons/IconThemeIndex.h"

#include "platform/linux/icons/IconThemeName.h"

namespace zelmo {

namespace {

constexpr std::chrono::seconds checkInterval{5};
constexpr qsizetype missingLimit = 10'000;
constexpr qsizetype chainLimit = 32;

std::optional<QByteArray> withoutExtension(const QByteArray& name) {
    const QByteArray lower = name.toLower();
    for (const char* extension : {".png", ".svg", ".xpm"}) {
        if (lower.size() > 4 && lower.endsWith(extension))
            return name.chopped(4);
    }
    return std::nullopt;
}

} // namespace

IconThemeIndex::IconThemeIndex(IconFolders folders, std::optional<QByteArray> theme, Clock clock)
    : m_folders(std::move(folders)), m_chosenTheme(std::move(theme)), m_clock(std::move(clock)) {}

std::chrono::milliseconds IconThemeIndex::monotonicTime() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

QList<QByteArray> IconThemeIndex::files(const QByteArray& name, int points, double scale, int limit) {
    if (name.isEmpty() || name.contains('/') || name.contains('\0'))
        return {};
    const QMutexLocker lock(&m_mutex);
    forgetOutdated();
    if (m_plainFolders == nullptr)
        buildChain();
    if (m_missing.contains(name))
        return {};
    QList<QByteArray> paths = exactFiles(name, points, scale, limit);
    // Applications are told to name no file, but many do.
    const std::optional<QByteArray> stem = withoutExtension(name);
    if (paths.isEmpty() && stem)
        paths = exactFiles(*stem, points, scale, limit);
    if (paths.isEmpty()) {
        if (m_missing.size() >= missingLimit)
            m_missing.clear();
        m_missing.insert(name);
    }
    return paths;
}

QList<QByteArray> IconThemeIndex::exactFiles(const QByteArray& name, int points, double scale, int limit) {
    QList<QByteArray> paths;
    for (const QByteArray& link : std::as_const(m_chain)) {
        if (paths.size() >= limit)
            break;
        paths += theme(link)->files(name, points, scale);
    }
    if (paths.size() < limit)
        paths += m_plainFolders->files(name, points, scale);
    return paths.mid(0, limit);
}

// The theme of each link is there: the chain holds no others.
void IconThemeIndex::buildChain() {
    for (const QByteArray& base : m_folders.themed) {
        struct stat status {};
        const bool isThere = ::stat(base.constData(), &status) == 0;
        m_baseTimes.note(base, isThere ? &status : nullptr);
    }
    QSet<QByteArray> visited{"hicolor"};
    if (m_chosenTheme && theme(*m_chosenTheme) != nullptr)
        appendTheme(*m_chosenTheme, visited);
    else
        appendTheme("Adwaita", visited);
    if (theme("hicolor") != nullptr)
        m_chain.append("hicolor");
    m_plainFolders = IconTheme::ofPlainFolders(m_folders.themed + m_folders.plain);
}

void IconThemeIndex::appendTheme(const QByteArray& name, QSet<QByteArray>& visited) {
    if (visited.contains(name) || visited.size() >= chainLimit)
        return;
    visited.insert(name);
    const IconTheme* found = theme(name);
    if (found == nullptr)
        return;
    m_chain.append(name);
    for (const QByteArray& parent : found->parents())
        appendTheme(parent, visited);
}

IconTheme* IconThemeIndex::theme(const QByteArray& name) {
    const auto known = m_themes.find(name);
    if (known != m_themes.end())
        return known->second.get();
    return m_themes.emplace(name, IconTheme::open(name, m_folders.themed)).first->second.get();
}

void IconThemeIndex::forgetOutdated() {
    const std::chrono::milliseconds now = m_clock();
    if (m_plainFolders == nullptr) {
        m_checkTime = now;
        return;
    }
    if (now - m_checkTime < checkInterval)
        return;
    m_checkTime = now;
    const bool haveBasesChanged = m_baseTimes.haveChanged();
    bool isAnyOutdated = haveBasesChanged || m_plainFolders->isOutdated();
    for (auto link = m_themes.begin(); link != m_themes.end();) {
        const bool isOutdated = link->second == nullptr ? haveBasesChanged : link->second->isOutdated();
        isAnyOutdated = isAnyOutdated || isOutdated;
        link = isOutdated ? m_themes.erase(link) : std::next(link);
    }
    if (!isAnyOutdated)
        return;
    m_chain.clear();
    m_missing.clear();
    m_plainFolders.reset();
}

IconThemeIndex::Extent IconThemeIndex::extent() const {
    const QMutexLocker lock(&m_mutex);
    Extent extent;
    const auto add = [&](const IconTheme* counted) {
        if (counted == nullptr)
            return;
        extent.names += counted->names().nameCount();
        extent.files += counted->names().placeCount();
        extent.bytes += counted->names().byteCount();
    };
    for (const auto& link : m_themes)
        add(link.second.get());
    add(m_plainFolders.get());
    return extent;
}

} // namespace zelmo
