#include "ui/DesktopBackdrop.h"

#include "iconart/Material.h"

#include <utility>

namespace zelmo {

void DesktopBackdrop::take(const QImage& desktop, double scale) {
    if (desktop.isNull() && isNull())
        return;
    m_desktop = desktop;
    m_picture = {};
    m_scale = scale;
    Q_EMIT changed();
}

const QImage& DesktopBackdrop::picture() {
    if (!m_desktop.isNull())
        m_picture = throughMaterial(std::exchange(m_desktop, {}), m_scale, MaterialStyle::ultraThin());
    return m_picture;
}

} // namespace zelmo
