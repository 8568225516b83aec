#include "settings/SettingsWindow.h"

#include "settings/SettingsPalette.h"

#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_SettingsPlugin)

namespace zelmo {

SettingsWindow::SettingsWindow(const SettingsServices& services, ColorScheme& scheme)
    : m_services(services), m_scheme(scheme) {
    setTitle(QStringLiteral("Zelmo Settings"));
    setFlags(Qt::Window | Qt::WindowStaysOnTopHint);
    setResizeMode(QQuickView::SizeRootObjectToView);
    engine()->addImportPath(QStringLiteral("qrc:/"));
}

SettingsWindow::~SettingsWindow() {
    freeContent();
}

void SettingsWindow::loadContent() {
    if (m_form && isVisible())
        return;
    freeContent();
    m_form = std::make_unique<SettingsForm>(m_services);
    m_palette = std::make_unique<SettingsPalette>(m_scheme);
    const auto paintGround = [this] { setColor(m_palette->window()); };
    connect(m_palette.get(), &SettingsPalette::changed, this, paintGround);
    paintGround();
    setInitialProperties({{QStringLiteral("form"), QVariant::fromValue(m_form.get())},
                          {QStringLiteral("colors"), QVariant::fromValue(m_palette.get())}});
    setSource(QUrl(QStringLiteral("qrc:/Zelmo/Settings/ZelmoSettingsView.qml")));
}

void SettingsWindow::freeContent() {
    setSource({});
    m_form.reset();
    m_palette.reset();
    engine()->clearComponentCache();
    releaseResources();
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::Close)) {
        QQuickView::keyPressEvent(event);
        return;
    }
    event->accept();
    close();
}

bool SettingsWindow::event(QEvent* event) {
    const bool result = QQuickView::event(event);
    // Not while the content may be the one that asked for it.
    if (event->type() == QEvent::Close && event->isAccepted())
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (!isVisible())
                    freeContent();
            },
            Qt::QueuedConnection);
    return result;
}

} // namespace zelmo
