#pragma once

#include <QByteArray>

#include <vector>

namespace zelmo {

// Takes the pictures out of a file that holds one icon in several sizes (.icns and .ico), without
// decoding them. A plain value that shares the file's bytes.
class IconContainer {
public:
    // Nothing in it when the bytes are no such file or are damaged throughout.
    static IconContainer parse(const QByteArray& bytes);
    static bool isContainer(const QByteArray& bytes);

    // Complete files of one picture each, to be tried in this order: the smallest that is at least
    // `pixels` wide first, then the larger ones, then the smaller ones, of equal ones the more colourful. No more than
    // `limit`: each is a copy, and all of them may be of the same bytes of the container.
    std::vector<QByteArray> pictures(int pixels, std::size_t limit) const;

private:
    struct Part {
        qsizetype offset = 0;
        qsizetype length = 0;
    };
    struct Entry {
        int side = 0;
        int depth = 0;
        Part picture;
        Part mask;               // of the same size, when the picture has none of its own
        qsizetype directory = 0; // where the entry of an .ico's directory is
    };

    void parseIcns();
    void parseIco();
    QByteArray standalone(const Entry& entry) const;

    QByteArray m_bytes;
    std::vector<Entry> m_entries;
};

} // namespace zelmo
