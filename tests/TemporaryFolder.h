#pragma once

#include "catalog/FileUrl.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace zelmo {

// A folder of its own for one test, removed with everything in it. Paths are bytes.
class TemporaryFolder {
public:
    TemporaryFolder() : m_path(m_folder.path().toUtf8()) { m_folder.setAutoRemove(false); }
    // In an existing folder, which may be on another file system.
    explicit TemporaryFolder(const QString& place)
        : m_folder(place + QStringLiteral("/zelmo-test-XXXXXX")), m_path(m_folder.path().toUtf8()) {
        m_folder.setAutoRemove(false);
    }
    // Also what has a name that QTemporaryDir can't tell.
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(m_path.toStdString(), error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const QByteArray& path() const { return m_path; }
    QByteArray path(const QByteArray& name) const { return m_path + "/" + name; }
    FileUrl url(const QByteArray& name) const { return FileUrl::fromNativePath(path(name)); }

    QByteArray makeFolders(const QByteArray& name) const {
        QByteArray full = path(name);
        for (qsizetype slash = full.indexOf('/', m_path.size() + 1); slash > 0; slash = full.indexOf('/', slash + 1))
            mkdir(full.left(slash).constData(), 0755);
        require(mkdir(full.constData(), 0755) == 0 || errno == EEXIST, full);
        return full;
    }

    QByteArray writeFile(const QByteArray& name, const QByteArray& contents) const {
        QByteArray full = path(name);
        if (name.contains('/'))
            makeFolders(name.left(name.lastIndexOf('/')));
        FILE* file = std::fopen(full.constData(), "wb");
        require(file != nullptr, full);
        const auto size = static_cast<std::size_t>(contents.size());
        require(std::fwrite(contents.constData(), 1, size, file) == size, full);
        require(std::fclose(file) == 0, full);
        return full;
    }

    QByteArray link(const QByteArray& name, const QByteArray& target) const {
        QByteArray full = path(name);
        require(symlink(target.constData(), full.constData()) == 0, full);
        return full;
    }

    static QByteArray contentsOf(const QByteArray& path) {
        QByteArray contents;
        FILE* file = std::fopen(path.constData(), "rb");
        if (!file)
            return contents;
        char buffer[65536];
        for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, file)) > 0;)
            contents.append(buffer, static_cast<qsizetype>(count));
        std::fclose(file);
        return contents;
    }

    static bool exists(const QByteArray& path) {
        struct stat status {};
        return lstat(path.constData(), &status) == 0;
    }

private:
    // A test that can't lay out its files has nothing to say.
    static void require(bool done, const QByteArray& path) {
        if (!done)
            qFatal("%s can't be made", path.constData());
    }

    QTemporaryDir m_folder;
    QByteArray m_path;
};

// While it lives, the process has no more rights to files than an ordinary user: root would be let in
// everywhere. What the user is to reach must be open to everyone.
class OrdinaryUser {
public:
    OrdinaryUser() : m_wasRoot(geteuid() == 0) {
        if (m_wasRoot && seteuid(65534) != 0)
            qFatal("Root can't become an ordinary user");
    }
    ~OrdinaryUser() {
        if (m_wasRoot && seteuid(0) != 0)
            qFatal("The ordinary user can't become root again");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool m_wasRoot;
};

} // namespace zelmo
