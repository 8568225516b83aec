#include "app/RendererChoice.h"

#include <QQuickWindow>
#include <QSGRendererInterface>

#include <filesystem>
#include <unistd.h>

namespace zelmo {

namespace fs = std::filesystem;

namespace {

bool hasUsableRenderNode() {
    std::error_code error;
    for (fs::directory_iterator node("/dev/dri", error); !error && node != fs::directory_iterator();
         node.increment(error)) {
        if (node->path().filename().native().starts_with("renderD") && access(node->path().c_str(), R_OK | W_OK) == 0)
            return true;
    }
    return false;
}

} // namespace

void chooseRenderer() {
    if (!hasUsableRenderNode())
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    // Milliseconds between a change and the frame that shows it. The default of 5 is a third of a frame, which a
    // person who types waits for at every key. Icons that arrive while a frame is drawn share the next one anyway.
    if (!qEnvironmentVariableIsSet(updateDelayVariable))
        qputenv(updateDelayVariable, "0");
}

} // namespace zelmo
