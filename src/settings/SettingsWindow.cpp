#include "settings/SettingsWindow.h"

#include "overlay/MotionPreference.h"
#include "settings/SettingsPalette.h"

#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_SettingsPlugin)

namespace zelmo {

SettingsWindow::SettingsWindow(const SettingsServices& services, ColorScheme& scheme, const MotionPreference& motion)
    : m_services(services), m_scheme(scheme), m_motion(motion) {
    setTitle(QStringLiteral("Zelmo Settings"));
    setFlags(Qt::Window | Qt::WindowStaysOnTopHint);
    for (const auto resized : {&QWindow::widthChanged, &QWindow::heightChanged})
        connect(this, resized, this, &SettingsWindow::layOut);
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
    m_engine = std::make_unique<QQmlEngine>();
    m_engine->addImportPath(QStringLiteral("qrc:/"));
    QQmlComponent component(m_engine.get(), QUrl(QStringLiteral("qrc:/Zelmo/Settings/ZelmoSettingsView.qml")));
    m_view.reset(qobject_cast<QQuickItem*>(
        component.createWithInitialProperties({{QStringLiteral("form"), QVariant::fromValue(m_form.get())},
                                               {QStringLiteral("colors"), QVariant::fromValue(m_palette.get())},
                                               {QStringLiteral("animates"), !m_motion.reducesMotion()}})));
    if (!m_view)
        qFatal("%s", qPrintable(component.errorString()));
    m_view->setParentItem(contentItem());
    layOut();
}

void SettingsWindow::layOut() {
    if (m_view)
        m_view->setSize(size());
}

void SettingsWindow::freeContent() {
    m_view.reset();
    m_engine.reset();
    m_form.reset();
    m_palette.reset();
    releaseResources();
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::Close)) {
        QQuickWindow::keyPressEvent(event);
        return;
    }
    event->accept();
    close();
}

bool SettingsWindow::event(QEvent* event) {
    const bool result = QQuickWindow::event(event);
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
