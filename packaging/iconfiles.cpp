// Draws the program's icon in every size of an icon theme, into hicolor/ in the folder that is named.

#include "iconart/ZelmoIconCanvas.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <cstdio>

int main(int argc, char* argv[]) {
    using namespace zelmo;
    if (argc != 2) {
        std::fprintf(stderr, "usage: iconfiles FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const int points : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        for (const int scale : {1, 2}) {
            const QString suffix = scale == 1 ? QString() : QStringLiteral("@%1").arg(scale);
            const QString place = QStringLiteral("hicolor/%1x%1%2/apps").arg(points).arg(suffix);
            QImage image(points * scale, points * scale, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            {
                QPainter painter(&image);
                ZelmoIconCanvas(AppIconStyle::mosaic).paint(painter, image.rect());
            }
            const QString file = folder.filePath(place + QStringLiteral("/org.zelmo.Zelmo.png"));
            if (!folder.mkpath(place) || !image.save(file)) {
                std::fprintf(stderr, "%s can't be written\n", qPrintable(file));
                return 1;
            }
        }
    }
    return 0;
}
