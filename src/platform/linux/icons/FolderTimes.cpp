#include "platform/linux/icons/FolderTimes.h"

#include <ctime>

namespace zelmo {

namespace {

constexpr qint64 second = 1'000'000'000;
constexpr qint64 missing = -1;
// Something that changes just now may change again without a new time.
constexpr qint64 unsettled = -2;

qint64 timeOf(const struct stat& status) {
    return static_cast<qint64>(status.st_mtim.tv_sec) * second + status.st_mtim.tv_nsec;
}

} // namespace

void FolderTimes::note(const QByteArray& path, const struct stat* status) {
    if (status == nullptr) {
        m_times.insert(path, missing);
        return;
    }
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const qint64 age = static_cast<qint64>(now.tv_sec) * second + now.tv_nsec - timeOf(*status);
    m_times.insert(path, age >= 0 && age < 2 * second ? unsettled : timeOf(*status));
}

bool FolderTimes::haveChanged() const {
    for (auto noted = m_times.cbegin(); noted != m_times.cend(); ++noted) {
        struct stat status {};
        const qint64 time = ::stat(noted.key().constData(), &status) == 0 ? timeOf(status) : missing;
        if (time != noted.value())
            return true;
    }
    return false;
}

} // namespace zelmo
