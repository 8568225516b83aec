#include "menubar/PanelPicture.h"

#include "iconart/Material.h"
#include "iconart/Shadow.h"
#include "menubar/MenuBarMetrics.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace zelmo {

namespace {

ShadowStyle shadow(double scale) {
    return {.opacity = MenuBarMetrics::shadowOpacity(),
            .radius = MenuBarMetrics::shadowRadius() * scale,
            .offset = MenuBarMetrics::shadowOffset() * scale};
}

QPainterPath outline(QSizeF size) {
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(), size), MenuBarMetrics::panelRadius(), MenuBarMetrics::panelRadius());
    return path;
}

QImage canvas(QSize pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// White where the panel is.
QImage maskOf(QSize pixels, QSizeF size, double scale) {
    QImage mask = canvas(pixels);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.fillPath(outline(size), Qt::white);
    return mask;
}

} // namespace

int panelMargin(PanelEdge edge, double scale) {
    return edge == PanelEdge::blended ? shadowMargin(shadow(scale)) : 0;
}

QImage paintPanel(const PanelLook& look) {
    const QSize pixels(static_cast<int>(std::ceil(look.size.width() * look.scale)),
                       static_cast<int>(std::ceil(look.size.height() * look.scale)));
    if (pixels.isEmpty())
        return {};
    const MaterialStyle material = MaterialStyle::ultraThin();
    QImage panel = canvas(pixels);
    {
        QPainter painter(&panel);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor tint = material.tint;
        tint.setAlpha(255);
        painter.fillRect(panel.rect(), tint);
        if (!look.behind.isNull())
            painter.drawImage(panel.rect(), throughMaterial(look.behind, look.scale, material));
        painter.fillRect(panel.rect(), MenuBarMetrics::panelFill());
        painter.save();
        painter.scale(look.scale, look.scale);
        painter.strokePath(outline(look.size),
                           QPen(MenuBarMetrics::panelOutline(), MenuBarMetrics::panelOutlineWidth()));
        painter.restore();
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, maskOf(pixels, look.size, look.scale));
    }
    if (look.edge == PanelEdge::blended)
        return withShadow(panel, shadow(look.scale));
    if (look.behind.isNull())
        return panel;
    // Half-covered pixels of the corners blend with what they cover.
    QImage whole = canvas(pixels);
    QPainter painter(&whole);
    painter.drawImage(whole.rect(), look.behind);
    painter.drawImage(0, 0, panel);
    return whole;
}

QRegion panelOutlineRegion(QSize size) {
    const QImage mask = maskOf(size, size, 1);
    QRegion region;
    for (int y = 0; y < mask.height(); ++y) {
        int left = 0;
        while (left < mask.width() && qAlpha(mask.pixel(left, y)) == 0)
            ++left;
        // Both sides are alike.
        region += QRect(left, y, mask.width() - 2 * left, 1);
    }
    return region;
}

} // namespace zelmo
