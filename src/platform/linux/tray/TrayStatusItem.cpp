#include "platform/linux/tray/TrayStatusItem.h"

namespace zelmo {

TrayStatusItem::TrayStatusItem(const QString& busAddress, X11Connection* connection)
    : m_notifier(busAddress), m_icon(connection) {
    QObject::connect(&m_notifier, &StatusNotifierItem::hostingChanged, &m_icon, [this] { choose(); });
}

void TrayStatusItem::setPainter(Painter painter) {
    m_notifier.setPainter(painter);
    m_icon.setPainter(std::move(painter));
}

void TrayStatusItem::setTitle(const QString& title) {
    m_notifier.setTitle(title);
    m_icon.setTitle(title);
}

void TrayStatusItem::setMenu(const QList<StatusMenuEntry>& menu) {
    m_notifier.setMenu(menu);
    m_icon.setMenu(menu);
}

void TrayStatusItem::setClickHandler(ClickHandler handler) {
    m_notifier.setClickHandler(handler);
    m_icon.setClickHandler(std::move(handler));
}

void TrayStatusItem::setVisibility(StatusItemVisibility visibility) {
    m_visibility = visibility;
    m_notifier.setVisibility(visibility);
    choose();
}

// While the bus has not answered, neither is shown: the item would jump from one place to another.
void TrayStatusItem::choose() {
    const bool asWindow =
        m_visibility == StatusItemVisibility::visible && m_notifier.hosting() == NotifierHosting::absent;
    m_icon.setVisibility(asWindow ? StatusItemVisibility::visible : StatusItemVisibility::hidden);
}

} // namespace zelmo
