#include "ui/WallContent.h"

#include "catalog/LauncherStore.h"
#include "overlay/MotionPreference.h"
#include "overlay/OverlayWindow.h"
#include "ui/CategoryBarModel.h"
#include "ui/DesktopBackdrop.h"
#include "ui/DesktopCapture.h"
#include "ui/IconCache.h"
#include "ui/WallModel.h"
#include "ui/WallStyle.h"

#include <QQmlEngine>
#include <QScreen>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)

namespace zelmo {

WallContent::WallContent(const WallServices& services)
    : m_services(services), m_style(std::make_unique<WallStyle>(services.preferences, services.fontFaces)),
      m_backdrop(std::make_unique<DesktopBackdrop>()) {}

WallContent::~WallContent() = default;

void WallContent::prepare(const QScreen& screen) {
    m_style->setReducesMotion(m_services.motion.reducesMotion());
    if (m_style->blursDesktop())
        m_backdrop->take(m_services.desktopCapture.capture(screen), screen.devicePixelRatio());
}

void WallContent::load(OverlayWindow& window) {
    m_model = std::make_unique<WallModel>(m_services.store);
    m_categories = std::make_unique<CategoryBarModel>(m_services.store);
    window.engine()->addImportPath(QStringLiteral("qrc:/"));
    window.setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(&m_services.store)},
                                 {QStringLiteral("appModel"), QVariant::fromValue(m_model.get())},
                                 {QStringLiteral("categories"), QVariant::fromValue(m_categories.get())},
                                 {QStringLiteral("style"), QVariant::fromValue(m_style.get())},
                                 {QStringLiteral("icons"), QVariant::fromValue(&m_services.icons)},
                                 {QStringLiteral("backdrop"), QVariant::fromValue(m_backdrop.get())}});
    window.setSource(QUrl(QStringLiteral("qrc:/Zelmo/Ui/LauncherOverlayView.qml")));
}

void WallContent::putAway() {
    m_backdrop->release();
}

} // namespace zelmo
