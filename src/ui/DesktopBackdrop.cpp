#include "ui/DesktopBackdrop.h"

#include "iconart/Material.h"

namespace zelmo {

void DesktopBackdrop::take(const QImage& desktop, double scale) {
    if (desktop.isNull() && isNull())
        return;
    m_coming = {};
    if (!desktop.isNull())
        m_coming = std::async(std::launch::async,
                              [desktop, scale] { return throughMaterial(desktop, scale, MaterialStyle::ultraThin()); });
    m_picture = {};
    m_scale = scale;
    Q_EMIT changed();
}

const QImage& DesktopBackdrop::picture() {
    if (m_coming.valid())
        m_picture = m_coming.get();
    return m_picture;
}

} // namespace zelmo
