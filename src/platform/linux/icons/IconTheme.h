#pragma once

#include "platform/linux/icons/FolderTimes.h"
#include "platform/linux/icons/IconNameTable.h"
#include "platform/linux/icons/IconThemeDescription.h"

#include <QList>

#include <memory>

namespace zelmo {

// One icon theme, collected from all base folders that it is spread over. Reads what the folders
// hold when an icon is first asked for, and never the icons themselves. Owned by IconThemeIndex,
// which guards it.
class IconTheme {
public:
    // Null when no base folder holds such a theme.
    static std::unique_ptr<IconTheme> open(const QByteArray& name, const QList<QByteArray>& baseFolders);
    // The icons that lie in the folders themselves, outside of any theme.
    static std::unique_ptr<IconTheme> ofPlainFolders(const QList<QByteArray>& folders);

    const QList<QByteArray>& parents() const { return m_description.parents; }

    // The paths of the icon's files, the one that fits this size and scale best first.
    QList<QByteArray> files(QByteArrayView name, int points, double scale);

    // Whether the folders have changed since they were read.
    bool isOutdated() const { return m_times.haveChanged(); }

    const IconNameTable& names() const { return m_names; }

private:
    // A folder of the theme in one of the base folders.
    struct Folder {
        std::uint16_t description;
        std::uint16_t root;
    };
    enum class State { opened, listed };

    void addConventionalFolders();
    void list();
    void listFolder(std::size_t root, int rootDescriptor, std::size_t description, IconNameTable::Builder& builder);
    void noteMissing(std::size_t root, int rootDescriptor, const QByteArray& path);
    QByteArray pathOf(QByteArrayView name, IconPlace place) const;

    QList<QByteArray> m_roots;
    IconThemeDescription m_description;
    std::vector<Folder> m_folders;
    IconNameTable m_names;
    FolderTimes m_times;
    State m_state = State::opened;
};

} // namespace zelmo
