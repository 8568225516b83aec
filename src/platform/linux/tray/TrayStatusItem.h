#pragma once

#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/tray/XEmbedTrayIcon.h"

namespace zelmo {

// The program's item in the desktop's tray by whichever means the tray has: on the session bus where that has hosts,
// else as a window. Owned by the application; main thread.
class TrayStatusItem : public StatusItem {
public:
    // As both kinds take them.
    TrayStatusItem(const QString& busAddress, X11Connection* connection);

    void setPainter(Painter painter) override;
    void setTitle(const QString& title) override;
    void setMenu(const QList<StatusMenuEntry>& menu) override;
    void setClickHandler(ClickHandler handler) override;
    void setVisibility(StatusItemVisibility visibility) override;

private:
    void choose();

    StatusNotifierItem m_notifier;
    XEmbedTrayIcon m_icon;
    StatusItemVisibility m_visibility = StatusItemVisibility::hidden;
};

} // namespace zelmo
