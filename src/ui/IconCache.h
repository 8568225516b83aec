#pragma once

#include "catalog/AppIcon.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QMutex>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <deque>

namespace zelmo {

class IconSource;

// One picture: which icon, at which side in points and how many pixels a point has.
struct IconRequest {
    AppIcon icon;
    int points = 0;
    double scale = 1;

    friend bool operator==(const IconRequest&, const IconRequest&) = default;
    friend size_t qHash(const IconRequest& request, size_t seed = 0) {
        return qHashMulti(seed, request.icon, request.points, request.scale);
    }
};

// Decoded icons with their shadow, most recently drawn ones kept, up to a limit in bytes. Decoding runs
// on worker threads in the order of asking; what nobody waits for any more is not decoded, so what
// is on the screen comes first. It begins when the frame that asked is drawn, which would otherwise share the
// processors with it. Everything public is for the main thread. Outlives the views.
class IconCache : public QObject {
    Q_OBJECT

public:
    static constexpr qsizetype defaultByteLimit = qsizetype{24} * 1024 * 1024;

    explicit IconCache(const IconSource& source, qsizetype byteLimit = defaultByteLimit);
    ~IconCache() override;

    // The picture on a canvas that is larger by `margin` on every side, or a null image when it has to be asked for.
    QImage find(const IconRequest& request) const;
    // In pixels, for one scale.
    static int margin(double scale);

    // Has the picture decoded; `available` tells when `find` has it. Each call is met by one `cancel` or `available`.
    void request(const IconRequest& request);
    void cancel(const IconRequest& request);
    // A frame is drawn: what was asked for is decoded now. Where no frame comes it is all the same, a moment later.
    void begin();

    // How many pictures are waited for.
    int pendingCount() const { return static_cast<int>(m_waiting.size()); }

Q_SIGNALS:
    void available(const zelmo::IconRequest& request);

private:
    void decodeNext();
    QImage decode(const IconRequest& request) const;
    void publish(const IconRequest& request, const QImage& picture);

    const IconSource& m_source;
    mutable QCache<IconRequest, QImage> m_pictures;
    QHash<IconRequest, int> m_waiting; // how many wait for each
    QMutex m_queueLock;
    std::deque<IconRequest> m_queue; // guarded by m_queueLock
    QTimer m_withoutFrame;
    int m_held = 0;        // asked for since the last `begin`
    QThreadPool m_workers; // last: its tasks end before anything they use
};

} // namespace zelmo
