#include "settings/SettingsItems.h"

#include "appearance/AppIconStyle.h"
#include "iconart/ZelmoIconCanvas.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace zelmo {

AppIconCanvasItem::AppIconCanvasItem() {
    connect(this, &AppIconCanvasItem::changed, this, [this] { update(); });
}

void AppIconCanvasItem::paint(QPainter* painter) {
    const auto style = static_cast<AppIconStyle>(std::clamp(m_style, 0, appIconStyleCount - 1));
    ZelmoIconCanvas(style).paint(*painter, boundingRect().adjusted(m_margin, m_margin, -m_margin, -m_margin));
}

ColorFieldItem::ColorFieldItem() {
    connect(this, &ColorFieldItem::changed, this, [this] { update(); });
}

void ColorFieldItem::paint(QPainter* painter) {
    const QRectF area = boundingRect();
    QPainterPath outline;
    outline.addRoundedRect(area, m_radius, m_radius);
    painter->setRenderHint(QPainter::Antialiasing);
    QLinearGradient across(area.topLeft(), area.topRight());
    if (m_hue < 0) {
        constexpr int steps = 6;
        for (int i = 0; i <= steps; ++i)
            across.setColorAt(static_cast<double>(i) / steps,
                              QColor::fromHsvF(static_cast<float>(i % steps) / steps, 1, 1));
        painter->fillPath(outline, across);
        return;
    }
    across.setColorAt(0, Qt::white);
    across.setColorAt(1, QColor::fromHsvF(static_cast<float>(std::min(m_hue, 1.0)), 1, 1));
    painter->fillPath(outline, across);
    QLinearGradient down(area.topLeft(), area.bottomLeft());
    down.setColorAt(0, Qt::transparent);
    down.setColorAt(1, Qt::black);
    painter->fillPath(outline, down);
}

ChevronItem::ChevronItem() {
    connect(this, &ChevronItem::changed, this, [this] { update(); });
}

void ChevronItem::paint(QPainter* painter) {
    constexpr double stroke = 1.5;
    const QRectF area = boundingRect().adjusted(stroke / 2, stroke / 2, -stroke / 2, -stroke / 2);
    const double rise = area.height() * 0.32;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(m_color, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double middle = area.center().x();
    painter->drawPolyline(
        QPolygonF{{area.left(), area.top() + rise}, {middle, area.top()}, {area.right(), area.top() + rise}});
    painter->drawPolyline(
        QPolygonF{{area.left(), area.bottom() - rise}, {middle, area.bottom()}, {area.right(), area.bottom() - rise}});
}

} // namespace zelmo
