#include "platform/linux/tray/StatusNotifierAdaptor.h"

#include <QImage>
#include <QPainter>

namespace zelmo {

StatusNotifierAdaptor::StatusNotifierAdaptor(QObject* parent, const QString& menuPath)
    : QDBusAbstractAdaptor(parent), m_menu(menuPath) {}

void StatusNotifierAdaptor::setPainter(StatusItem::Painter painter) {
    m_painter = std::move(painter);
    m_icons.clear();
    Q_EMIT NewIcon();
}

void StatusNotifierAdaptor::setTitle(const QString& title) {
    m_title = title;
    Q_EMIT NewTitle();
    Q_EMIT NewToolTip();
}

NotifierPixmaps StatusNotifierAdaptor::icons() const {
    if (m_icons.isEmpty() && m_painter) {
        for (const int side : {16, 18, 22, 24, 32, 36, 44, 48, 64, 96}) {
            QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            m_painter(painter, QRectF(image.rect()));
            painter.end();
            m_icons.append(NotifierPixmap::of(image));
        }
    }
    return m_icons;
}

NotifierToolTip StatusNotifierAdaptor::toolTip() const {
    return {.iconName = {}, .icons = {}, .title = m_title, .description = {}};
}

void StatusNotifierAdaptor::Activate(int x, int y) {
    click(x, y);
}

void StatusNotifierAdaptor::SecondaryActivate(int x, int y) {
    click(x, y);
}

// Asked for by hosts that leave the menu to the program; the panel has all that the menu has.
void StatusNotifierAdaptor::ContextMenu(int x, int y) {
    click(x, y);
}

void StatusNotifierAdaptor::Scroll(int, const QString&) {}

void StatusNotifierAdaptor::ProvideXdgActivationToken(const QString& token) {
    m_token = token.toUtf8();
}

void StatusNotifierAdaptor::click(int x, int y) {
    const QByteArray token = std::exchange(m_token, {});
    if (!m_clicked)
        return;
    // A screen ends there; beyond, nothing is a place.
    constexpr int farthest = 32767;
    const bool isPlace = x >= -farthest && x <= farthest && y >= -farthest && y <= farthest;
    const auto place = isPlace ? std::optional(QRect(x, y, 0, 0)) : std::nullopt;
    // After the host has its answer.
    QMetaObject::invokeMethod(
        this,
        [this, place, token] {
            if (m_clicked)
                m_clicked({.place = place, .activationToken = token});
        },
        Qt::QueuedConnection);
}

} // namespace zelmo
