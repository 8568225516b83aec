#include "ui/DesktopBackdrop.h"

#include "iconart/Material.h"

namespace zelmo {

int DesktopBackdrop::reduction(double scale) {
    return materialReduction(scale, MaterialStyle::ultraThin());
}

void DesktopBackdrop::take(const SmallPicture& desktop, double scale) {
    if (desktop.isNull() && isNull())
        return;
    m_coming = {};
    if (!desktop.isNull())
        m_coming = std::async(std::launch::async, [desktop, scale]() -> Seen {
            const MaterialStyle style = MaterialStyle::ultraThin();
            const SmallPicture once = throughMaterial(desktop, scale, style);
            return {.picture = once.part(QRect(QPoint(), once.size)), .again = throughMaterial(once, scale, style)};
        });
    m_seen = {};
    m_scale = scale;
    Q_EMIT changed();
}

const DesktopBackdrop::Seen& DesktopBackdrop::seen() {
    if (m_coming.valid())
        m_seen = m_coming.get();
    return m_seen;
}

} // namespace zelmo
