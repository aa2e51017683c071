// Drags one component through 1,000 mouse events, among ten components and among ten thousand, in turns in one run, and
// prints what one event costs in each design, painting included. Exits with 1 when the ratio is above the limit.

#include "Median.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QMouseEvent>

#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <vector>

namespace {

using namespace pirol;

constexpr int events = 1000;
constexpr int rounds = 7;
constexpr double largestRatio = 1.5;

/// Small components all over the window, so that the dragged one meets the same number of neighbours in both designs:
/// the many lie outside the way it is dragged.
void Fill(ProjectModel& model, int count) {
    constexpr int perRow = 100;
    model.SetWindowSize(800, 600);
    for (int index = 0; index < count; ++index) {
        const int number = 1 + index % 12;
        const int left = index < 10 ? 60 * index : (index % perRow) * 8;
        const int top = index < 10 ? 10 : 300 + (index / perRow) * 3;
        model.PlaceComponent(*KindByNumber(number), {left, top, 50, 26});
    }
}

void Send(QWidget& canvas, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, canvas.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
    QApplication::processEvents();
}

/// Processor time in microseconds for one event.
double DragOnce(frmMain& window) {
    QWidget& canvas = *window.findChild<QWidget*>("picContainer");
    constexpr QPoint grip(5, 15);
    Send(canvas, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    const std::clock_t begin = std::clock();
    for (int event = 0; event < events; ++event)
        Send(canvas, QEvent::MouseMove, grip + QPoint(event % 500, 60 + event % 97), Qt::NoButton, Qt::LeftButton);
    const std::clock_t end = std::clock();
    constexpr QPoint last((events - 1) % 500, 60 + (events - 1) % 97);
    const Rectangle box = window.Model().VisibleBox({ComponentKind::Label, 1});
    if (box.left != last.x() || box.top != 10 + last.y())
        throw std::runtime_error("the component was not dragged");
    Send(canvas, QEvent::MouseMove, grip, Qt::NoButton, Qt::LeftButton);
    Send(canvas, QEvent::MouseButtonRelease, grip, Qt::LeftButton, Qt::NoButton);
    return 1e6 * static_cast<double>(end - begin) / CLOCKS_PER_SEC / events;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    frmCommonDialog dialogs;
    frmProgramStarter starter;
    frmMain few(dialogs, starter);
    frmMain many(dialogs, starter);
    few.CurrentDocument().Edit({}, [](ProjectModel& model) { Fill(model, 10); });
    many.CurrentDocument().Edit({}, [](ProjectModel& model) { Fill(model, 10000); });
    std::vector<double> fewTimes;
    std::vector<double> manyTimes;
    for (frmMain* window : {&few, &many}) {
        window->resize(1200, 800);
        window->show();
        QApplication::processEvents();
    }
    for (int round = 0; round < rounds; ++round) {
        fewTimes.push_back(DragOnce(few));
        manyTimes.push_back(DragOnce(many));
    }
    const double ratio = Median(manyTimes) / Median(fewTimes);
    std::printf("| components | microseconds per mouse event (median of %d) |\n|---|---|\n", rounds);
    std::printf("| 10 | %.1f |\n| 10000 | %.1f |\n", Median(fewTimes), Median(manyTimes));
    std::printf("Ratio: %.2f (limit %.1f)\n", ratio, largestRatio);
    return ratio <= largestRatio ? 0 : 1;
}
