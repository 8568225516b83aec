#pragma once

#include <QPointer>
#include <QQuickItem>

namespace zelmo {

// The whole wall. What is typed goes to its search field, whichever of its parts has the focus and has no use for the
// key itself.
class WallItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* searchField MEMBER m_searchField NOTIFY searchFieldChanged)

public:
    using QQuickItem::QQuickItem;

    Q_INVOKABLE void focusSearchField();

Q_SIGNALS:
    void searchFieldChanged();
    // A key asks for what lies so many pages further down.
    void pagesRequested(int pages);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointer<QQuickItem> m_searchField;
};

} // namespace zelmo
