#include "fuzz/ScratchFolder.h"
#include "platform/linux/identity/ApplicationIdentifier.h"

using namespace zelmo;

// What the system shows of another process, one file after the other with 0xFF between them; most of it is written by
// that process itself.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::ScratchFolder folder;
    const QList<QByteArray> parts = fuzz::copyOf(data, size).split('\xff');
    const QByteArray script = folder.path("script");
    folder.write("script", parts.value(0));
    folder.write("77/cmdline", parts.value(1).replace("SCRIPT", script));
    folder.write("77/environ", parts.value(2));
    folder.write("77/root/.flatpak-info", parts.value(3));
    folder.write("77/cgroup", parts.value(4));
    const ProcessFacts facts = ProcessFacts::read(77, folder.path(""));
    fuzz::require(facts.script.isEmpty() || facts.script.startsWith('/'), "a script is named by its whole path");

    const FileUrl listed = FileUrl::fromPath(QStringLiteral("/x/a.desktop"));
    ApplicationIdentifier identifier({FileUrl::fromPath(QStringLiteral("/Applications"))});
    identifier.setIndex(ApplicationIndex(
        {{.entryId = "a.desktop", .url = listed, .startupClass = parts.value(6), .program = parts.value(7)}}));
    const auto application = identifier.identify(
        {.instanceName = parts.value(5), .className = parts.value(6), .applicationIds = {parts.value(7)}}, facts);
    fuzz::require(!application || *application == listed || application->path().startsWith(u'/'),
                  "an application has a place");
    return 0;
}
