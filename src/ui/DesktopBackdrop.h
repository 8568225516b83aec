#pragma once

#include "iconart/SmallPicture.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <future>

namespace zelmo {

// The desktop behind the wall as it looked when the wall opened, seen through the wall's material. It is worked out by
// a thread of its own while the window comes up. Owned by the wall's content; main thread, or the drawing thread while
// the scene is synchronized.
class DesktopBackdrop : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the wall's content")

public:
    // By how much a screen's picture is made smaller that is to be taken. A point has so many of its pixels.
    static int reduction(double scale);
    void take(const SmallPicture& desktop, double scale);
    void release() { take({}, 1); }

    bool isNull() const { return !m_coming.valid() && m_seen.picture.isNull(); }
    double scale() const { return m_scale; }
    // As large as what was taken. Waits for it.
    const QImage& picture() { return seen().picture; }
    // The same, seen through the material once more. Waits for it.
    const SmallPicture& throughMaterialAgain() { return seen().again; }

Q_SIGNALS:
    void changed();

private:
    struct Seen {
        QImage picture;
        SmallPicture again;
    };

    const Seen& seen();

    std::future<Seen> m_coming;
    Seen m_seen;
    double m_scale = 1;
};

} // namespace zelmo
