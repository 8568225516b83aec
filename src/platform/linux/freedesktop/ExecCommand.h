#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace zelmo::ExecCommand {

// The words of an Exec value after their quotes are taken away, as a shell would; no more of them than `limit`.
// Nothing when the line has no word or leaves a quote open. Pure.
std::optional<QList<QByteArray>> words(const QByteArray& commandLine, qsizetype limit);

// The first word, which names a program. Pure.
std::optional<QByteArray> program(const QByteArray& commandLine);

} // namespace zelmo::ExecCommand
