#pragma once

#include "menubar/StatusItem.h"
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>

namespace zelmo {

// The status item as the desktop's hosts see it on the session bus. Child of the item; main thread.
class StatusNotifierAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")

    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconThemePath READ noName)
    Q_PROPERTY(QString IconName READ noName)
    Q_PROPERTY(zelmo::NotifierPixmaps IconPixmap READ icons)
    Q_PROPERTY(QString OverlayIconName READ noName)
    Q_PROPERTY(zelmo::NotifierPixmaps OverlayIconPixmap READ noIcons)
    Q_PROPERTY(QString AttentionIconName READ noName)
    Q_PROPERTY(zelmo::NotifierPixmaps AttentionIconPixmap READ noIcons)
    Q_PROPERTY(QString AttentionMovieName READ noName)
    Q_PROPERTY(zelmo::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)

public:
    // The object path is that of the menu.
    StatusNotifierAdaptor(QObject* parent, const QString& menuPath);

    void setPainter(StatusItem::Painter painter);
    void setTitle(const QString& title);
    void setClickHandler(StatusItem::ClickHandler handler) { m_clicked = std::move(handler); }

    static QString category() { return QStringLiteral("ApplicationStatus"); }
    static QString id() { return QStringLiteral("org.zelmo.Zelmo"); }
    QString title() const { return m_title; }
    static QString status() { return QStringLiteral("Active"); }
    static int windowId() { return 0; }
    static QString noName() { return {}; }
    // In the sizes that panels have, at one and two pixels to the point; empty before there is a painter.
    NotifierPixmaps icons() const;
    static NotifierPixmaps noIcons() { return {}; }
    NotifierToolTip toolTip() const;
    static bool itemIsMenu() { return false; }
    QDBusObjectPath menu() const { return m_menu; }

public Q_SLOTS:
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    void NewTitle();
    void NewIcon();
    void NewToolTip();
    void NewStatus(const QString& status);

private:
    void click(int x, int y);

    QDBusObjectPath m_menu;
    QString m_title;
    StatusItem::Painter m_painter;
    mutable NotifierPixmaps m_icons; // painted when a host first asks
    QByteArray m_token;              // for the next click
    StatusItem::ClickHandler m_clicked;
};

} // namespace zelmo
