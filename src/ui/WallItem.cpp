#include "ui/WallItem.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

namespace zelmo {

namespace {

bool isTyping(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return event.key() == Qt::Key_Backspace || (!event.text().isEmpty() && event.text().front().isPrint());
}

} // namespace

WallItem::WallItem() {
    connect(qGuiApp, &QGuiApplication::layoutDirectionChanged, this, &WallItem::isRightToLeftChanged);
}

bool WallItem::isRightToLeft() const {
    return QGuiApplication::isRightToLeft();
}

void WallItem::focusSearchField() {
    if (m_searchField)
        m_searchField->forceActiveFocus(Qt::OtherFocusReason);
}

void WallItem::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        Q_EMIT pagesRequested(event->key() == Qt::Key_PageUp ? -1 : 1);
    } else if (m_searchField && !m_searchField->hasActiveFocus() && isTyping(*event)) {
        focusSearchField();
        QCoreApplication::sendEvent(m_searchField, event);
    } else {
        event->ignore();
    }
}

void WallItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(m_focusConnection);
        // Not at once: the change of the focus is still under way.
        if (data.window)
            m_focusConnection = connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &WallItem::catchFocus,
                                        Qt::QueuedConnection);
    }
    QQuickItem::itemChange(change, data);
}

void WallItem::catchFocus() {
    const QQuickItem* item = window() ? window()->activeFocusItem() : this;
    if (window() && window()->isActive() && (!item || item == window()->contentItem()))
        focusSearchField();
}

} // namespace zelmo
