#include "catalog/UninstallAlerts.h"

namespace zelmo {

namespace {

// The one name as it is, more than one as "3 apps".
QString nameOrCount(const QStringList& names) {
    return names.size() == 1 ? names.first() : QString(QString::number(names.size()) + QLatin1StringView(" apps"));
}

} // namespace

Alert uninstallQuestion(const QStringList& names) {
    return {
        .style = AlertStyle::warning,
        .message = QLatin1StringView("Uninstall ") + nameOrCount(names) + u'?',
        .informativeText =
            names.size() == 1
                ? QStringLiteral("Zelmo will move the selected app to Trash. You can restore from Trash if needed.")
                : QStringLiteral("Zelmo will move the selected apps to Trash. You can restore from Trash if needed."),
        .buttons = {QStringLiteral("Move to Trash"), QStringLiteral("Cancel")}};
}

Alert uninstallFailure(const QStringList& names) {
    return {.style = AlertStyle::informational,
            .message = QLatin1StringView("Could not uninstall ") + nameOrCount(names),
            .informativeText =
                QStringLiteral("macOS may block removing system apps or apps that need administrator permission."),
            .buttons = {QStringLiteral("OK")}};
}

} // namespace zelmo
