#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariant>

#include <functional>

namespace zelmo {

// Calls a method without starting a service for it and without waiting. `answered` gets the only value of an answer of
// that signature, and an invalid one for everything else; it is not called when `context` is gone by then.
void askBus(const QDBusConnection& bus, QDBusMessage question, QLatin1StringView signature, QObject* context,
            std::function<void(const QVariant&)> answered);

} // namespace zelmo
