#include "menubar/MenuBarPanelWindow.h"

#include "catalog/LauncherStore.h"
#include "menubar/MenuBarActions.h"
#include "menubar/MenuBarMetrics.h"
#include "menubar/PanelDesktop.h"
#include "menubar/PanelPlacement.h"
#include "menubar/PanelPlateItem.h"
#include "menubar/PanelScreen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QtQml/qqmlextensionplugin.h>

#include <cmath>

Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)
Q_IMPORT_QML_PLUGIN(Zelmo_MenuBarPlugin)

namespace zelmo {

MenuBarPanelWindow::MenuBarPanelWindow(LauncherStore& store, MenuBarActions& actions, PanelServices services)
    : m_actions(actions), m_services(std::move(services)) {
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("Menu Panel"));
    QSurfaceFormat surface = format();
    surface.setAlphaBufferSize(8);
    setFormat(surface);
    setColor(Qt::transparent);
    setResizeMode(QQuickView::SizeViewToRootObject);
    resize(MenuBarMetrics::defaultWidth(), MenuBarMetrics::defaultHeight());
    engine()->addImportPath(QStringLiteral("qrc:/"));
    setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(&store)},
                          {QStringLiteral("actions"), QVariant::fromValue(&actions)}});
    setSource(QUrl(QStringLiteral("qrc:/Zelmo/MenuBar/MenuBarPanelScene.qml")));
}

MenuBarPanelWindow::~MenuBarPanelWindow() {
    m_services.desktop.endWatch();
}

void MenuBarPanelWindow::openAt(const StatusItemClick& click) {
    if (!rootObject())
        return;
    // Only then does it take a shape.
    create();
    rootObject()->setProperty("showsFocus", false);
    rootObject()->setProperty("animates", !m_services.reducesMotion || !m_services.reducesMotion());
    if (auto* first = rootObject()->findChild<QQuickItem*>(QStringLiteral("overlayButton")))
        first->forceActiveFocus(Qt::PopupFocusReason);
    place(click);
    m_services.desktop.watch(*this, {.pressed =
                                         [this] {
                                             if (!panelGeometry().contains(QCursor::pos()))
                                                 closeByPress();
                                         },
                                     .focusLost = [this] { dismiss(); }});
    show();
    raise();
    requestActivate();
    m_services.desktop.bringToFront(*this, click.activationToken);
}

void MenuBarPanelWindow::dismiss() {
    m_services.desktop.endWatch();
    hide();
}

QRect MenuBarPanelWindow::panelGeometry() const {
    return geometry().adjusted(m_margin, m_margin, -m_margin, -m_margin);
}

void MenuBarPanelWindow::place(const StatusItemClick& click) {
    const PanelScreen around = PanelScreen::of(click.place);
    if (around.screen)
        setScreen(around.screen);
    const double scale = around.screen ? around.screen->devicePixelRatio() : 1;
    const auto edge = m_services.desktop.isComposited() ? PanelEdge::blended : PanelEdge::cut;
    m_margin = static_cast<int>(std::ceil(panelMargin(edge, scale) / scale));
    rootObject()->setProperty("margin", m_margin);

    const QSize panel = rootObject()->size().toSize().shrunkBy({m_margin, m_margin, m_margin, m_margin});
    const QPoint corner = panelPosition(around.surroundings, panel, MenuBarMetrics::itemGap());
    setGeometry(QRect(corner, panel).marginsAdded({m_margin, m_margin, m_margin, m_margin}));
    setMask(edge == PanelEdge::cut ? panelOutlineRegion(panel) : QRegion());

    QImage behind;
    if (around.screen && m_services.captureDesktop)
        behind = m_services.captureDesktop(around.pixels(QRect(corner, panel)), *around.screen);
    if (auto* plate = rootObject()->findChild<PanelPlateItem*>())
        plate->setSurroundings(edge, behind);
}

void MenuBarPanelWindow::closeByPress() {
    if (!isVisible())
        return;
    dismiss();
    Q_EMIT closedByPress();
}

void MenuBarPanelWindow::moveFocus(FocusDirection direction) {
    QQuickItem* item = activeFocusItem();
    if (QQuickItem* next = item ? item->nextItemInFocusChain(direction == FocusDirection::forward) : nullptr)
        next->forceActiveFocus(direction == FocusDirection::forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    showFocus();
}

void MenuBarPanelWindow::showFocus() {
    rootObject()->setProperty("showsFocus", true);
}

void MenuBarPanelWindow::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    const bool acts = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                      event->key() == Qt::Key_Enter || event->key() == Qt::Key_Comma;
    event->accept();
    // A key that is held acts once.
    if (acts && event->isAutoRepeat())
        return;
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else if (event->key() == Qt::Key_Space && modifiers == (Qt::AltModifier | Qt::MetaModifier))
        m_actions.toggleOverlay();
    else if (event->key() == Qt::Key_Comma && modifiers == Qt::ControlModifier)
        m_actions.showSettings();
    else if (event->key() == Qt::Key_Down && modifiers == Qt::NoModifier)
        moveFocus(FocusDirection::forward);
    else if (event->key() == Qt::Key_Up && modifiers == Qt::NoModifier)
        moveFocus(FocusDirection::backward);
    else if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)
        moveFocus(event->key() == Qt::Key_Tab && modifiers == Qt::NoModifier ? FocusDirection::forward
                                                                             : FocusDirection::backward);
    else if (modifiers == Qt::NoModifier)
        QQuickView::keyPressEvent(event);
}

void MenuBarPanelWindow::mousePressEvent(QMouseEvent* event) {
    // Where there is only the shadow.
    if (!panelGeometry().contains(event->globalPosition().toPoint())) {
        closeByPress();
        return;
    }
    QQuickView::mousePressEvent(event);
}

bool MenuBarPanelWindow::event(QEvent* event) {
    if (event->type() == QEvent::Close)
        m_services.desktop.endWatch();
    return QQuickView::event(event);
}

} // namespace zelmo
