#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zelmo {

// A temporary folder that tests put data folders, entries and programs in.
class EntryTree {
public:
    QByteArray path(const QByteArray& relative = QByteArray()) const {
        const QByteArray root = QFile::encodeName(m_folder.path());
        return relative.isEmpty() ? root : root + '/' + relative;
    }

    void write(const QByteArray& relative, const QByteArray& contents) const {
        const QString file = QFile::decodeName(path(relative));
        QDir().mkpath(QFileInfo(file).path());
        QFile output(file);
        if (!output.open(QIODevice::WriteOnly) || output.write(contents) != contents.size())
            qFatal("can't write %s", qPrintable(file));
    }
    // An application named `name` that can be started, with `lines` added.
    void writeApplication(const QByteArray& relative, const QByteArray& name,
                          const QByteArray& lines = QByteArray()) const {
        write(relative, "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=sh\n" + lines);
    }
    void writeProgram(const QByteArray& relative) const {
        write(relative, "#!/bin/sh\n");
        QFile::setPermissions(QFile::decodeName(path(relative)),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void makeFolder(const QByteArray& relative) const { QDir().mkpath(QFile::decodeName(path(relative))); }
    void link(const QByteArray& target, const QByteArray& relative) const {
        const QString file = QFile::decodeName(path(relative));
        QDir().mkpath(QFileInfo(file).path());
        if (!QFile::link(QFile::decodeName(target), file))
            qFatal("can't link %s", qPrintable(file));
    }

private:
    QTemporaryDir m_folder;
};

} // namespace zelmo
