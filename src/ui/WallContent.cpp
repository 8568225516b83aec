#include "ui/WallContent.h"

#include "catalog/LauncherStore.h"
#include "overlay/MotionPreference.h"
#include "overlay/OverlayWindow.h"
#include "ui/CategoryBarModel.h"
#include "ui/DesktopBackdrop.h"
#include "ui/DesktopPicture.h"
#include "ui/IconCache.h"
#include "ui/WallModel.h"
#include "ui/WallScene.h"
#include "ui/WallStyle.h"

#include <QScreen>

namespace zelmo {

WallContent::WallContent(const WallServices& services)
    : m_services(services), m_style(std::make_unique<WallStyle>(services.preferences, services.fontFaces)),
      m_backdrop(std::make_unique<DesktopBackdrop>()) {}

WallContent::~WallContent() = default;

void WallContent::prepare(const QScreen& screen) {
    m_style->setReducesMotion(m_services.motion.reducesMotion());
    if (m_style->blursDesktop())
        lookAt(screen);
}

void WallContent::lookAt(const QScreen& screen) {
    const double scale = screen.devicePixelRatio();
    m_backdrop->take(smallDesktop(m_services.desktopCapture, screen, DesktopBackdrop::reduction(scale)), scale);
}

void WallContent::load(OverlayWindow& window) {
    m_model = std::make_unique<WallModel>(m_services.store);
    m_categories = std::make_unique<CategoryBarModel>(m_services.store);
    m_services.scene.putInto(window, {{QStringLiteral("store"), QVariant::fromValue(&m_services.store)},
                                      {QStringLiteral("appModel"), QVariant::fromValue(m_model.get())},
                                      {QStringLiteral("categories"), QVariant::fromValue(m_categories.get())},
                                      {QStringLiteral("style"), QVariant::fromValue(m_style.get())},
                                      {QStringLiteral("icons"), QVariant::fromValue(&m_services.icons)},
                                      {QStringLiteral("backdrop"), QVariant::fromValue(m_backdrop.get())}});
    QObject::connect(&window, &QQuickWindow::frameSwapped, &m_services.icons, &IconCache::begin);
}

void WallContent::putAway() {
    m_backdrop->release();
}

} // namespace zelmo
