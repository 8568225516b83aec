#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QTimer>

#include <optional>

namespace zelmo {

// Where the pointer has to come to rest for a help text to be shown beside it. A pointer that was there before the
// wall opened does not count until it moves.
class HelpArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    // Nothing is shown while it is empty.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    // The wall's one help text: an item with a property `text`, shown and placed from here.
    Q_PROPERTY(QQuickItem* tip READ tip WRITE setTip NOTIFY tipChanged)

public:
    HelpArea();
    ~HelpArea() override;

    const QString& text() const { return m_text; }
    void setText(const QString& text);
    QQuickItem* tip() const { return m_tip; }
    void setTip(QQuickItem* tip);

Q_SIGNALS:
    void textChanged();
    void tipChanged();

protected:
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void show();
    void hide();
    void startAnew();

    QString m_text;
    QPointer<QQuickItem> m_tip;
    QTimer m_timer;
    QMetaObject::Connection m_windowConnection;
    std::optional<QPointF> m_pointer; // where it was last, since the window came up
    bool m_isShown = false;
};

} // namespace zelmo
