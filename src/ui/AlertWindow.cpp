#include "ui/AlertWindow.h"

#include "ui/AlertMetrics.h"
#include "ui/AlertModel.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QScreen>

namespace zelmo {

AlertWindow::AlertWindow(AlertModel& model) {
    setFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setModality(Qt::ApplicationModal);
    setTitle(model.message());
    setColor(AlertMetrics::background());
    setResizeMode(QQuickView::SizeViewToRootObject);
    engine()->addImportPath(QStringLiteral("qrc:/"));
    setInitialProperties({{QStringLiteral("alert"), QVariant::fromValue(&model)}});
    setSource(QUrl(QStringLiteral("qrc:/Zelmo/Ui/AlertView.qml")));
}

void AlertWindow::openAbove(QWindow* parent) {
    setTransientParent(parent);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect around = parent ? parent->geometry() : screen ? screen->availableGeometry() : QRect();
    setPosition(around.center() - QRect(QPoint(), size()).center());
    show();
    raise();
    requestActivate();
}

bool AlertWindow::event(QEvent* event) {
    if (event->type() == QEvent::Close)
        Q_EMIT closed();
    return QQuickView::event(event);
}

} // namespace zelmo
