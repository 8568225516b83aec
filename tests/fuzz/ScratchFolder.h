#pragma once

#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zelmo::fuzz {

// A folder of this process, for what can only be read from files.
class ScratchFolder {
public:
    QByteArray path(const char* name) const { return QFile::encodeName(m_folder.path()) + '/' + name; }

    // In place of what was there; the folders above the file are made.
    void write(const char* name, const QByteArray& bytes) const {
        const QString file = QFile::decodeName(path(name));
        QDir().mkpath(QFileInfo(file).path());
        QFile output(file);
        require(output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size(), "scratch files can be made");
    }
    void remove(const char* name) const { QFile::remove(QFile::decodeName(path(name))); }

private:
    QTemporaryDir m_folder;
};

} // namespace zelmo::fuzz
