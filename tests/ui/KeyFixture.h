#pragma once

#include "ui/WallFixture.h"

namespace zelmo::test {

// What has the focus, by what it is called.
inline QString focused(WallFixture& fixture) {
    const QQuickItem* item = fixture.window.activeFocusItem();
    if (!item)
        return QStringLiteral("nothing");
    if (item->inherits("QQuickTextInput"))
        return QStringLiteral("search");
    for (const char* property : {"title", "name"}) {
        if (item->property(property).isValid())
            return item->property(property).toString();
    }
    return QString::fromLatin1(item->metaObject()->className());
}

inline QString app(int number) {
    return QStringLiteral("App %1").arg(number, 5, 10, QLatin1Char('0'));
}

// The wall and its keyboard.
class Keys {
public:
    explicit Keys(int count, const PreferenceValues& values = {}, QSize size = {1920, 1080})
        : wall(count, values, size) {}
    bool isReady() {
        return QTest::qWaitForWindowActive(&wall.window) &&
               QTest::qWaitFor([this] { return wall.card(0) && wall.chip("All Apps"); });
    }
    // What has the focus after the key.
    QString press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&wall.window, key, modifiers);
        QCoreApplication::processEvents();
        return focused(wall);
    }

    WallFixture wall;
};

} // namespace zelmo::test
