#include "ui/WallView.h"

#include "catalog/LauncherStore.h"
#include "ui/IconCache.h"
#include "ui/WallModel.h"
#include "ui/WallStyle.h"

#include <QQmlEngine>
#include <QQuickView>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)

namespace zelmo {

void loadWall(QQuickView& view, LauncherStore& store, const Preferences& preferences, const FontFaces& faces,
              IconCache& icons) {
    auto* model = new WallModel(store);
    auto* style = new WallStyle(preferences, faces);
    model->setParent(&view);
    style->setParent(&view);
    view.engine()->addImportPath(QStringLiteral("qrc:/"));
    view.setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(&store)},
                               {QStringLiteral("appModel"), QVariant::fromValue(model)},
                               {QStringLiteral("style"), QVariant::fromValue(style)},
                               {QStringLiteral("icons"), QVariant::fromValue(&icons)}});
    view.setSource(QUrl(QStringLiteral("qrc:/Zelmo/Ui/LauncherOverlayView.qml")));
}

} // namespace zelmo
