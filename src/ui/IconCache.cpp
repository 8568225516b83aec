#include "ui/IconCache.h"

#include "iconart/FallbackIcon.h"
#include "iconart/Shadow.h"
#include "ui/IconSource.h"

#include <QMutexLocker>

#include <chrono>
#include <cmath>

namespace zelmo {

namespace {

using namespace std::chrono_literals;

// In points.
ShadowStyle iconShadow(double scale) {
    return {.opacity = 0.14, .radius = 5 * scale, .offset = 3 * scale};
}

constexpr int workerCount = 2;
constexpr auto longestFrame = 50ms;

} // namespace

IconCache::IconCache(const IconSource& source, qsizetype byteLimit) : m_source(source), m_pictures(byteLimit) {
    m_workers.setMaxThreadCount(workerCount);
    m_withoutFrame.setSingleShot(true);
    m_withoutFrame.setInterval(longestFrame);
    connect(&m_withoutFrame, &QTimer::timeout, this, &IconCache::begin);
}

IconCache::~IconCache() {
    {
        const QMutexLocker lock(&m_queueLock);
        m_queue.clear();
    }
    m_workers.waitForDone();
}

QImage IconCache::find(const IconRequest& request) const {
    const QImage* picture = m_pictures.object(request);
    return picture ? *picture : QImage();
}

int IconCache::margin(double scale) {
    return shadowMargin(iconShadow(scale));
}

void IconCache::request(const IconRequest& request) {
    if (m_waiting[request]++ > 0)
        return;
    {
        const QMutexLocker lock(&m_queueLock);
        m_queue.push_back(request);
    }
    ++m_held;
    if (!m_withoutFrame.isActive())
        m_withoutFrame.start();
}

void IconCache::begin() {
    m_withoutFrame.stop();
    for (; m_held > 0; --m_held)
        m_workers.start([this] { decodeNext(); });
}

void IconCache::cancel(const IconRequest& request) {
    const auto waiting = m_waiting.find(request);
    if (waiting == m_waiting.end() || --*waiting > 0)
        return;
    m_waiting.erase(waiting);
    const QMutexLocker lock(&m_queueLock);
    std::erase(m_queue, request);
}

void IconCache::decodeNext() {
    IconRequest request;
    {
        const QMutexLocker lock(&m_queueLock);
        if (m_queue.empty())
            return;
        request = std::move(m_queue.front());
        m_queue.pop_front();
    }
    QMetaObject::invokeMethod(
        this, [this, request, picture = decode(request)] { publish(request, picture); }, Qt::QueuedConnection);
}

QImage IconCache::decode(const IconRequest& request) const {
    QImage picture = m_source.icon(request.icon, request.points, request.scale);
    if (picture.isNull())
        picture = fallbackIcon(static_cast<int>(std::lround(request.points * request.scale)));
    return withShadow(picture, iconShadow(request.scale));
}

void IconCache::publish(const IconRequest& request, const QImage& picture) {
    m_pictures.insert(request, new QImage(picture), picture.sizeInBytes());
    m_waiting.remove(request);
    Q_EMIT available(request);
}

} // namespace zelmo
