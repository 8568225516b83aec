#include "ui/WallItem.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace zelmo {

namespace {

bool isTyping(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    return event.key() == Qt::Key_Backspace || (!event.text().isEmpty() && event.text().front().isPrint());
}

} // namespace

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

} // namespace zelmo
