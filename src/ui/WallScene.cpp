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
    std::unique_ptr<QObject> root(component.createWithInitialProperties(properties));
    auto* item = qobject_cast<QQuickItem*>(root.get());
    if (!item)
        qFatal("The wall can't be made: %s", qPrintable(component.errorString()));
    root.release(); // NOLINT(bugprone-unused-return-value): it is `item`
    window.setRootItem(std::unique_ptr<QQuickItem>(item));
}

} // namespace zelmo
