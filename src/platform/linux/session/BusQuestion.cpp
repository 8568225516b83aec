#include "platform/linux/session/BusQuestion.h"

#include <QDBusPendingCallWatcher>

namespace zelmo {

void askBus(const QDBusConnection& bus, QDBusMessage question, QLatin1StringView signature, QObject* context,
            std::function<void(const QVariant&)> answered) {
    question.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [signature, answered = std::move(answered)](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         const QDBusMessage answer = finished->reply();
                         const bool expected =
                             answer.type() == QDBusMessage::ReplyMessage && answer.signature() == signature;
                         answered(expected ? answer.arguments().constFirst() : QVariant());
                     });
}

} // namespace zelmo
