#pragma once

#include <QImage>
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
    // A picture in a screen's pixels, of which a point has so many. Null when the desktop can't be seen.
    void take(const QImage& desktop, double scale);
    void release() { take({}, 1); }

    bool isNull() const { return !m_coming.valid() && m_picture.isNull(); }
    double scale() const { return m_scale; }
    // As large as what was taken. Waits for it.
    const QImage& picture();

Q_SIGNALS:
    void changed();

private:
    std::future<QImage> m_coming;
    QImage m_picture;
    double m_scale = 1;
};

} // namespace zelmo
