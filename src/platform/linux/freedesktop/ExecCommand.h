#pragma once

#include <QByteArray>

#include <optional>

namespace zelmo::ExecCommand {

// The first word of an Exec value after its quotes are taken away, as a shell would. Nothing when the
// line has no word or leaves a quote open. Pure.
std::optional<QByteArray> program(const QByteArray& commandLine);

} // namespace zelmo::ExecCommand
