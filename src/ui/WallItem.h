#pragma once

#include <QPointer>
#include <QQuickItem>

namespace zelmo {

// The whole wall. What is typed goes to its search field, whichever of its parts has the focus and has no use for the
// key itself; the focus goes there too when the part that had it is gone or out of use.
class WallItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* searchField MEMBER m_searchField NOTIFY searchFieldChanged)
    // As the user's language is written.
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY isRightToLeftChanged)

public:
    WallItem();

    bool isRightToLeft() const;
    Q_INVOKABLE void focusSearchField();

Q_SIGNALS:
    void searchFieldChanged();
    void isRightToLeftChanged();
    // A key asks for what lies so many pages further down.
    void pagesRequested(int pages);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void catchFocus();

    QPointer<QQuickItem> m_searchField;
    QMetaObject::Connection m_focusConnection;
};

} // namespace zelmo
