#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Moves a form under its window: what gets the focus comes into sight, and the keys for pages move it as everywhere.
// Made by the form's view; main thread.
class FormScroller : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // Has `contentItem`, `contentY`, `contentHeight` and `height`, as a Flickable.
    Q_PROPERTY(QQuickItem* area MEMBER m_area NOTIFY areaChanged)
    // The one with the focus, in the area or not.
    Q_PROPERTY(QQuickItem* focusItem MEMBER m_focusItem WRITE setFocusItem NOTIFY focusItemChanged)
    // How far the item stays from the edges of what is in sight.
    Q_PROPERTY(qreal margin MEMBER m_margin NOTIFY marginChanged)

public:
    using QObject::QObject;

    void setFocusItem(QQuickItem* item);
    // Whether the key moves the form.
    Q_INVOKABLE bool handle(int key);

Q_SIGNALS:
    void areaChanged();
    void focusItemChanged();
    void marginChanged();

private:
    void reveal(const QQuickItem& item);
    void moveTo(qreal top);

    QPointer<QQuickItem> m_area;
    QPointer<QQuickItem> m_focusItem;
    qreal m_margin = 0;
};

} // namespace zelmo
