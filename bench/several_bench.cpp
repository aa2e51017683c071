// Ten thousand components, of which one or a thousand are selected: prints what a mouse move of a drag costs, painting
// included, and what aligning, pasting and a property of the thousand cost. Exits with 1 when a limit is passed.

#include "designer/Arranging.h"
#include "designer/Clipboard.h"
#include "designer/PropertyPanel.h"
#include "Median.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QMouseEvent>

#include <cstdio>
#include <ctime>
#include <functional>
#include <stdexcept>
#include <vector>

namespace {

using namespace pirol;

constexpr int components = 10000;
constexpr int selected = 1000;
constexpr int events = 1000;
constexpr int rounds = 7;
constexpr double largestRatio = 2;
constexpr double mostMilliseconds = 30;

/// All over the window and one upon another, every tenth selected.
std::vector<ComponentRef> Fill(ProjectModel& model) {
    constexpr int perRow = 100;
    model.SetWindowSize(800, 600);
    std::vector<ComponentRef> every;
    for (int index = 0; index < components; ++index) {
        const ComponentRef placed =
            model.PlaceComponent(*KindByNumber(1 + index % 12), {index % perRow * 7, 60 + index / perRow * 4, 50, 26});
        if (index % (components / selected) == 0)
            every.push_back(placed);
    }
    return every;
}

double Milliseconds(const std::function<void()>& work) {
    const std::clock_t begin = std::clock();
    work();
    return 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

void Send(QWidget& canvas, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, canvas.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
    QApplication::processEvents();
}

/// Processor time in microseconds for one mouse move of a drag that begins on the component.
double Drag(frmMain& window, ComponentRef component) {
    QWidget& canvas = *window.findChild<QWidget*>("picContainer");
    const Rectangle box = window.Model().VisibleBox(component);
    const QPoint grip(box.left + 2, box.top + 2);
    Send(canvas, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    // The first picture of a drag takes in what does not move.
    Send(canvas, QEvent::MouseMove, grip + QPoint(1, 1), Qt::NoButton, Qt::LeftButton);
    const double time = Milliseconds([&] {
        for (int event = 0; event < events; ++event)
            Send(canvas, QEvent::MouseMove, grip + QPoint(event % 50, event % 37), Qt::NoButton, Qt::LeftButton);
    });
    if (!window.Canvas().IsInGesture())
        throw std::runtime_error("nothing was dragged");
    window.Canvas().Escape();
    Send(canvas, QEvent::MouseButtonRelease, grip, Qt::LeftButton, Qt::NoButton);
    return 1e3 * time / events;
}

/// Of a change: until the document has told everybody, and until the screen shows it.
struct Cost {
    double change;
    double picture;
};

/// The median times of a change, which is undone each time.
Cost Change(Document& document, const Selection& selection, const std::function<void()>& change) {
    std::vector<double> changes;
    std::vector<double> pictures;
    for (int round = 0; round < rounds; ++round) {
        document.Select(selection);
        QApplication::processEvents();
        changes.push_back(Milliseconds(change));
        pictures.push_back(Milliseconds([] { QApplication::processEvents(); }));
        document.Undo();
        QApplication::processEvents();
    }
    return {Median(changes), Median(pictures)};
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    frmCommonDialog dialogs;
    frmProgramStarter starter;
    frmMain window(dialogs, starter);
    Document& document = window.CurrentDocument();
    std::vector<ComponentRef> thousand;
    document.Edit({}, [&](ProjectModel& model) { thousand = Fill(model); });
    window.resize(1200, 800);
    window.show();
    QApplication::processEvents();

    // The last one lies above all others, so that the mouse grips it.
    const ComponentRef last = document.Model().CreationOrder()[components - 1];
    thousand.push_back(last);
    const Selection several(thousand);
    std::vector<double> one;
    std::vector<double> many;
    for (int round = 0; round < rounds; ++round) {
        document.Select(last);
        one.push_back(Drag(window, last));
        document.Select(several);
        many.push_back(Drag(window, last));
    }
    const double ratio = Median(many) / Median(one);
    std::printf("| selected of %d | microseconds per mouse move (median of %d) |\n|---|---|\n", components, rounds);
    std::printf("| 1 | %.1f |\n| %zu | %.1f |\n", Median(one), several.Count(), Median(many));
    std::printf("Ratio: %.2f (limit %.1f)\n\n", ratio, largestRatio);

    document.Select(several);
    const std::string bytes = ClipboardBytes(document, SelectedPart(document));
    const struct {
        const char* name;
        std::function<void()> change;
    } changes[] = {
        {"align", [&] { Arrange(document, Arrangement::Left); }},
        {"paste", [&] { PasteComponents(document, bytes); }},
        {"property", [&] { PropertyChanged(document, "width", "+=10"); }},
    };
    bool isFast = ratio <= largestRatio;
    std::printf("| of %zu | milliseconds (limit %.0f) | of which the picture |\n|---|---|---|\n", several.Count(),
                mostMilliseconds);
    for (const auto& [name, change] : changes) {
        const Cost cost = Change(document, several, change);
        std::printf("| %s | %.1f | %.1f |\n", name, cost.change + cost.picture, cost.picture);
        isFast = isFast && cost.change + cost.picture <= mostMilliseconds;
    }
    return isFast ? 0 : 1;
}
