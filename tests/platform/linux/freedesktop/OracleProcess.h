#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>

#include <optional>

namespace zelmo {

// Runs gio-oracle with nothing but `environment`; nothing when it fails.
inline std::optional<QList<QByteArray>> askOracle(const QString& question, const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZELMO_GIO_ORACLE), {question});
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return std::nullopt;
    QList<QByteArray> fields = process.readAllStandardOutput().split('\0');
    fields.removeLast(); // what follows the last NUL byte
    return fields;
}

} // namespace zelmo
