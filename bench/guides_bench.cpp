// Drags one component of ten thousand through 1,000 mouse events, painting included, and then asks the guides alone
// what they were asked meanwhile. Prints what an event costs and which part of it the guides are. Exits with 1 when
// they add more than a fifth.

#include "designer/Guides.h"
#include "Median.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QMouseEvent>

#include <cstdio>
#include <ctime>
#include <vector>

namespace {

using namespace pirol;

constexpr int components = 10000;
constexpr int events = 1000;
constexpr int rounds = 7;
constexpr double largestShare = 0.2;
constexpr ComponentRef dragged{ComponentKind::Label, 1};

void Fill(ProjectModel& model) {
    model.SetWindowSize(800, 600);
    model.PlaceComponent(ComponentKind::Label, {0, 10, 50, 26});
    for (int index = 1; index < components; ++index)
        model.PlaceComponent(ComponentKind::Button, {index % 100 * 8, 300 + index / 100 * 3, 50, 26});
}

QPoint At(int event) {
    return {5 + event % 500, 75 + event % 97};
}

double Microseconds(std::clock_t begin, std::clock_t end, int count) {
    return 1e6 * static_cast<double>(end - begin) / CLOCKS_PER_SEC / count;
}

void Send(QWidget& canvas, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, canvas.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
    QApplication::processEvents();
}

double DragOnce(QWidget& canvas) {
    constexpr QPoint grip(5, 15);
    Send(canvas, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    Send(canvas, QEvent::MouseMove, grip + QPoint(1, 0), Qt::NoButton, Qt::LeftButton);
    const std::clock_t begin = std::clock();
    for (int event = 0; event < events; ++event)
        Send(canvas, QEvent::MouseMove, At(event), Qt::NoButton, Qt::LeftButton);
    const std::clock_t end = std::clock();
    Send(canvas, QEvent::MouseMove, grip, Qt::NoButton, Qt::LeftButton);
    Send(canvas, QEvent::MouseButtonRelease, grip, Qt::LeftButton, Qt::NoButton);
    return Microseconds(begin, end, events);
}

double AskOnce(const Guides& guides, std::size_t& lines) {
    const std::clock_t begin = std::clock();
    for (int event = 0; event < events; ++event)
        lines +=
            guides.Find({{At(event).x() - 5, At(event).y() - 5, 50, 26}, At(event).y() + 10}, {}, true).lines.size();
    return Microseconds(begin, std::clock(), events);
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    frmCommonDialog dialogs;
    frmProgramStarter starter;
    frmMain window(dialogs, starter);
    window.CurrentDocument().Edit({}, Fill);
    window.Canvas().SetSnapsToGrid(false);
    window.Canvas().SetAlignsToGuides(true);
    window.resize(1200, 800);
    window.show();
    QApplication::processEvents();
    QWidget& canvas = *window.findChild<QWidget*>("picContainer");
    std::vector<double> drags;
    std::vector<double> asks;
    std::vector<double> builds;
    std::size_t lines = 0;
    for (int round = 0; round < rounds; ++round) {
        drags.push_back(DragOnce(canvas));
        const std::clock_t begin = std::clock();
        const Guides guides = GuidesIn(window.Model(), [](ComponentRef component) { return component == dragged; });
        builds.push_back(Microseconds(begin, std::clock(), 1));
        asks.push_back(AskOnce(guides, lines));
    }
    const double share = Median(asks) / (Median(drags) - Median(asks));
    std::printf("| %d components | microseconds (median of %d) |\n|---|---|\n", components, rounds);
    std::printf("| mouse event with guides | %.1f |\n| guides of one event | %.2f |\n", Median(drags), Median(asks));
    std::printf("| making the guides, once for a drag | %.0f |\n", Median(builds));
    std::printf("%zu lines shown. Guides add %.3f (limit %.1f)\n", lines, share, largestShare);
    return share <= largestShare ? 0 : 1;
}
