#include "ui/AlertWindowPresenter.h"

#include "ui/AlertModel.h"
#include "ui/AlertWindow.h"

#include <QEventLoop>
#include <QGuiApplication>

namespace zelmo {

namespace {

QWindow* visibleWindow() {
    if (QWindow* focused = QGuiApplication::focusWindow())
        return focused;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible())
            return window;
    }
    return nullptr;
}

} // namespace

qsizetype AlertWindowPresenter::runModal(const Alert& alert) {
    // What stands when the alert goes without an answer, also because the program ends.
    int answer = static_cast<int>(alert.buttons.size()) - 1;
    AlertModel model(alert);
    QEventLoop loop;
    QWindow* parent = visibleWindow();
    AlertWindow window(model);
    QObject::connect(&model, &AlertModel::answered, &loop, [&](int button) {
        answer = button;
        loop.quit();
    });
    QObject::connect(&model, &AlertModel::dismissed, &loop, &QEventLoop::quit);
    QObject::connect(&window, &AlertWindow::closed, &loop, &QEventLoop::quit);
    window.openAbove(parent);
    loop.exec();
    window.hide();
    if (parent && parent->isVisible())
        parent->requestActivate();
    return answer;
}

} // namespace zelmo
