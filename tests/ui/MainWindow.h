#pragma once

#include "FakeDialogs.h"
#include "ui/canvas/picContainer.h"
#include "ui/Forms.h"
#include "ui/main/frmMain.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

namespace pirol::test {

/// A main window on the screen with the mouse and the keyboard of a user.
struct MainWindow {
    explicit MainWindow(const Preferences& preferences = {},
                        std::chrono::milliseconds hintDelay = frmMain::usualHintDelay)
        : window(dialogs, starter, preferences, hintDelay) {
        window.resize(1080, 680);
        Show(window);
    }

    template <class Widget>
    Widget* Find(const QString& name) {
        return Part<Widget>(window, name);
    }
    QAction* Command(const QString& name) { return Part<QAction>(window, name); }

    /// What the screen shows of the canvas. Around it, hints come when they are found.
    QImage CanvasOnScreen() {
        QApplication::processEvents();
        const QRect shown = canvas->visibleRegion().boundingRect().translated(canvas->mapTo(&window, QPoint()));
        return window.screen()
            ->grabWindow(window.winId(), shown.x(), shown.y(), shown.width(), shown.height())
            .toImage();
    }

    void Press(int x, int y) { QTest::mousePress(canvas, Qt::LeftButton, {}, {x, y}); }
    void MoveTo(int x, int y, Qt::MouseButton held = Qt::LeftButton) {
        // QTest::mouseMove holds no button, and a drag needs one.
        QMouseEvent move(QEvent::MouseMove, QPointF(x, y), canvas->mapToGlobal(QPointF(x, y)), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
    }
    void Release(int x, int y) { QTest::mouseRelease(canvas, Qt::LeftButton, {}, {x, y}); }
    void Drag(int fromX, int fromY, int toX, int toY) {
        Press(fromX, fromY);
        MoveTo((fromX + toX) / 2, (fromY + toY) / 2);
        MoveTo(toX, toY);
        Release(toX, toY);
    }
    void Click(int x, int y) { Drag(x, y, x, y); }

    /// Changes the design as if a command had done so.
    void Edit(const std::function<void(ProjectModel&)>& change) {
        window.CurrentDocument().Edit("Entwurf ändern", change);
    }

    /// What the status bar's panel (1 to 3) shows.
    QString Status(int panel) { return Find<QLabel>(QString("sbPanel%1").arg(panel))->text(); }

    ComponentRef Selected() { return window.Canvas().Selected().value_or(ComponentRef{ComponentKind::Label, 0}); }
    Rectangle SelectedBox() { return window.Model().VisibleBox(Selected()); }

    /// Closes the error report that comes next and notes its text.
    void ExpectError() { test::ExpectError(errorText); }

    FakeDialogs dialogs;
    FakeStarter starter;
    frmMain window;
    picContainer* canvas = Find<picContainer>("picContainer");
    QString errorText;
};

} // namespace pirol::test
