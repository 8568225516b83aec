#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QString>

#include <functional>
#include <optional>

class QPainter;

namespace zelmo {

// Where and how the item was clicked.
struct StatusItemClick {
    // Of the item, or of the pointer as an empty rectangle, in the root's pixels; nothing where the host doesn't tell.
    std::optional<QRect> place{};
    // With which the desktop lets the program take the focus; empty where the host gave none.
    QByteArray activationToken{};
};

enum class StatusMenuKind { action, checkbox, separator };
enum class StatusMenuState { enabled, disabled };
enum class StatusMenuMark { off, on }; // of a checkbox

// One line of the menu of a host that draws only menus. A separator has nothing but its kind.
struct StatusMenuEntry {
    StatusMenuKind kind = StatusMenuKind::action;
    QString title{};
    StatusMenuState state = StatusMenuState::enabled;
    StatusMenuMark mark = StatusMenuMark::off;
    std::function<void()> choose{};
};

enum class StatusItemVisibility { hidden, visible };

// The program's item among the status items of the desktop's panel, which may come and go with the panel. Nothing that
// is asked of it waits for the desktop. Main thread only.
class StatusItem {
public:
    // Paints the item into the rectangle, at whatever size the desktop asks for.
    using Painter = std::function<void(QPainter& painter, const QRectF& place)>;
    using ClickHandler = std::function<void(const StatusItemClick& click)>;

    virtual ~StatusItem() = default;

    virtual void setPainter(Painter painter) = 0;
    // What the desktop calls the item, also as its tool tip.
    virtual void setTitle(const QString& title) = 0;
    virtual void setMenu(const QList<StatusMenuEntry>& menu) = 0;
    virtual void setClickHandler(ClickHandler handler) = 0;
    virtual void setVisibility(StatusItemVisibility visibility) = 0;
};

} // namespace zelmo
