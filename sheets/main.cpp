// Writes the contact sheets as PNG files into the folder that is named.

#include "Sheets.h"
#include "platform/linux/fonts/FontconfigFaces.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char* argv[]) {
    using namespace zelmo;
    const QGuiApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: sheets FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const FontconfigFaces faces(QGuiApplication::font().family());
    const std::pair<const char*, QImage> sheets[]{{"backgrounds", backgroundSheet()},
                                                  {"fonts", fontSheet(faces)},
                                                  {"icons", iconSheet()},
                                                  {"glyphs", glyphSheet()},
                                                  {"symbols", symbolSheet()}};
    for (const auto& [name, image] : sheets) {
        const QString path = folder.filePath(QString::fromLatin1(name) + QStringLiteral(".png"));
        if (!image.save(path)) {
            std::fprintf(stderr, "%s can't be written\n", qPrintable(path));
            return 1;
        }
        std::printf("%s\n", qPrintable(path));
    }
    return 0;
}
