#include "ui/WallScene.h"

#include "overlay/OverlayWindow.h"

#include <QQuickItem>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)

namespace zelmo {

namespace {

QUrl description() {
    return QUrl(QStringLiteral("qrc:/Zelmo/Ui/LauncherOverlayView.qml"));
}

} // namespace

WallScene::WallScene() : m_reading(&m_engine) {
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_reading.loadUrl(description(), QQmlComponent::Asynchronous);
}

void WallScene::putInto(OverlayWindow& window, const QVariantMap& properties) {
    m_engine.setIncubationController(window.incubationController());
    // Waits for what is still being read.
    QQmlComponent component(&m_engine, description(), QQmlComponent::PreferSynchronous);
    std::unique_ptr<QQuickItem> root(qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
    if (!root)
        qFatal("The wall can't be made: %s", qPrintable(component.errorString()));
    window.setRootItem(std::move(root));
}

} // namespace zelmo
