// Writes pictures of the panel and of each section of the settings, light and dark, into the folder that is named. They
// have as many pixels to the point as the toolkit is told to use.

#include "appearance/LauncherBackgroundStyle.h"
#include "iconart/DiagonalGradient.h"
#include "menubar/MenuBarFixture.h"
#include "settings/SettingsOnView.h"
#include "ui/StyleColors.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QQuickItemGrabResult>
#include <QSignalSpy>

#include <cstdio>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr int roomAround = 16; // points

class PictureFolder {
public:
    explicit PictureFolder(const QString& path) : m_folder(path) {}

    // As a file of that name, which says how many pixels a point has when that is not one. What the smaller kind of
    // file leaves out, nobody sees in a picture that is enlarged.
    void save(const QImage& picture, const QString& name) const {
        const double scale = picture.devicePixelRatio();
        const bool isEnlarged = scale > 1;
        const QString ending = isEnlarged ? QStringLiteral("@%1x.jpg").arg(scale) : QStringLiteral(".png");
        QFile file(m_folder.filePath(name + ending));
        const QByteArray content = isEnlarged ? smallEnough(picture) : encoded(picture, "png", -1);
        if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
            qFatal("%s can't be written", qPrintable(file.fileName()));
        std::printf("%s\n", qPrintable(file.fileName()));
    }

private:
    static QByteArray encoded(const QImage& picture, const char* format, int quality) {
        QByteArray content;
        QBuffer buffer(&content);
        if (!picture.convertToFormat(QImage::Format_RGB32).save(&buffer, format, quality))
            qFatal("the toolkit writes no %s", format);
        return content;
    }
    // For a page with many of them.
    static QByteArray smallEnough(const QImage& picture) {
        constexpr int largest = 60'000;
        QByteArray content;
        for (int quality = 90; quality > 0 && (content.isEmpty() || content.size() > largest); quality -= 5)
            content = encoded(picture, "jpg", quality);
        return content;
    }

    QDir m_folder;
};

QImage cut(const QImage& picture, const QRectF& points) {
    const double scale = picture.devicePixelRatio();
    return picture.copy(QRectF(points.topLeft() * scale, points.size() * scale).toRect());
}

bool isSection(const QQuickItem& item) {
    const QByteArray type = item.metaObject()->className();
    return type.startsWith("SettingsSection") || type.startsWith("ComingSoonSection");
}

bool isFullyShown(const QQuickItem* item) {
    if (!item)
        return false;
    for (; item; item = item->parentItem()) {
        if (item->opacity() < 1)
            return false;
    }
    return true;
}

// With something to be seen in every section.
void drawSettings(const PictureFolder& folder) {
    SettingsOnView view({{QStringLiteral("hiddenAppPaths"), QStringList{QStringLiteral("/Applications/Chess.app"),
                                                                        QStringLiteral("/Applications/Notes.app")}},
                         {QStringLiteral("showAppTileBackground"), true}});
    if (!view.waitUntilShown())
        qFatal("no settings open");
    for (int i = 0; i < 3; ++i)
        view.click(QAccessible::Button, "Coming Soon");
    if (!QTest::qWaitFor([&] { return isFullyShown(view.item(QAccessible::RadioButton, "Tiles")); }))
        qFatal("nothing is revealed");
    for (const auto& [scheme, name] : {std::pair(SchemeWish::light, "light"), {SchemeWish::dark, "dark"}}) {
        view.scheme.change(scheme);
        QImage whole = view.window().grabWindow();
        whole.setDevicePixelRatio(view.window().effectiveDevicePixelRatio());
        for (const QQuickItem* section : view.items("QQuickColumn")) {
            if (!isSection(*section))
                continue;
            const QString title = section->property("title").toString().toLower().replace(u' ', u'-');
            const QRectF place =
                SettingsOnView::place(*section).adjusted(-roomAround, -roomAround, roomAround, roomAround);
            folder.save(cut(whole, place), QStringLiteral("settings/%1-%2").arg(title, QLatin1StringView(name)));
        }
    }
}

// A window's own picture has no transparent parts.
QImage transparentPicture(QQuickItem& item, double scale) {
    const auto result = item.grabToImage((item.size() * scale).toSize());
    QSignalSpy ready(result.get(), &QQuickItemGrabResult::ready);
    if (!ready.wait())
        qFatal("no picture comes");
    QImage picture = result->image();
    picture.setDevicePixelRatio(scale);
    return picture;
}

QImage desktop(LauncherBackgroundStyle style, QSize pixels, const Preferences& preferences) {
    QList<QColor> stops;
    for (const StyleColor& stop : colors(style, preferences))
        stops.append(toQColor(stop));
    return DiagonalGradient(stops, pixels).part(QRect(QPoint(), pixels));
}

void drawPanel(const PictureFolder& folder) {
    using Style = LauncherBackgroundStyle;
    for (const auto& [style, name] : {std::pair(Style::softSky, "light"), {Style::grapeSoda, "dark"}}) {
        MenuBarFixture fixture;
        const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
        // Of the panel and what is around it; its size is known once it has been open.
        const QRect place = fixture.open().panelGeometry();
        QTest::keyClick(fixture.extra.panel(), Qt::Key_Escape);
        const QSize points = fixture.extra.panel()->size();
        QImage picture = desktop(style, points * scale, *fixture.store.preferences);
        picture.setDevicePixelRatio(scale);
        fixture.behind = cut(picture, QRectF(place.translated(-fixture.extra.panel()->position())));
        const MenuBarPanelWindow& window = fixture.open();
        QPainter(&picture).drawImage(QPoint(), transparentPicture(*window.rootObject(), scale));
        folder.save(cut(picture, QRectF(QPointF(), window.size())), QStringLiteral("panel-") + QLatin1StringView(name));
    }
}

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]) + QStringLiteral("/settings"))) {
        std::fprintf(stderr, "usage: windowsheets FOLDER\n");
        return 2;
    }
    const PictureFolder folder(QString::fromLocal8Bit(argv[1]));
    drawSettings(folder);
    drawPanel(folder);
    return 0;
}
