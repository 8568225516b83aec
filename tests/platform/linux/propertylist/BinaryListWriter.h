#pragma once

#include <QByteArray>
#include <QList>

namespace zelmo {

// Puts a binary property list together object by object, sound or not.
class BinaryListWriter {
public:
    int referenceSize = 2;

    // The number of the object.
    int add(const QByteArray& bytes) {
        m_objects.append(bytes);
        return static_cast<int>(m_objects.size()) - 1;
    }
    int addString(const QByteArray& text) { return add(header(0x5, text.size()) + text); }
    int addArray(const QList<int>& items) { return add(header(0xA, items.size()) + references(items)); }
    int addDictionary(const QList<int>& keys, const QList<int>& values) {
        return add(header(0xD, keys.size()) + references(keys) + references(values));
    }

    QByteArray finish(int root) const {
        QByteArray bytes("bplist00");
        QByteArray table;
        for (const QByteArray& object : m_objects) {
            table += bigEndian(static_cast<quint64>(bytes.size()), 4);
            bytes += object;
        }
        const qsizetype tableOffset = bytes.size();
        bytes += table + QByteArray(6, '\0') + char(4) + static_cast<char>(referenceSize);
        bytes += bigEndian(static_cast<quint64>(m_objects.size()), 8) + bigEndian(static_cast<quint64>(root), 8);
        return bytes + bigEndian(static_cast<quint64>(tableOffset), 8);
    }

    static QByteArray bigEndian(quint64 value, int size) {
        QByteArray bytes;
        for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
            bytes += static_cast<char>(value >> shift & 0xFF);
        return bytes;
    }

    static QByteArray header(int kind, qsizetype count) {
        if (count < 15)
            return QByteArray(1, static_cast<char>(kind << 4 | static_cast<int>(count)));
        return QByteArray(1, static_cast<char>(kind << 4 | 0xF)) + '\x12' + bigEndian(static_cast<quint64>(count), 4);
    }

private:
    QByteArray references(const QList<int>& objects) const {
        QByteArray bytes;
        for (const int object : objects)
            bytes += bigEndian(static_cast<quint64>(object), referenceSize);
        return bytes;
    }

    QList<QByteArray> m_objects;
};

} // namespace zelmo
