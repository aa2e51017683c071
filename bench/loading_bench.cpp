// Loads one project file into the main window until the design is painted, with the loading form and without it, in
// turns in one run, and prints what showing the progress costs. Exits with 1 when that is above the limit.
//
//   loading-bench [COMPONENTS]      50,000 when none is given

#include "app/FileCommands.h"
#include "base/FileAccess.h"
#include "Median.h"
#include "project/ProjectFile.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

using namespace pirol;

constexpr int rounds = 15;
constexpr double largestShare = 0.05;

std::string ProjectOf(int components) {
    ProjectModel model;
    model.SetWindowSize(800, 600);
    for (int index = 0; index < components; ++index)
        model.PlaceComponent(*KindByNumber(1 + index % 12), {index % 70 * 10, index / 70 % 55 * 10, 90, 30});
    return GeneratePRLCode(model);
}

/// Processor time in milliseconds until the window shows what `load` has loaded.
template <class Load>
double Time(frmMain& window, Load load) {
    NewProject(window.CurrentDocument());
    QApplication::processEvents();
    const std::clock_t begin = std::clock();
    load();
    QApplication::processEvents();
    return 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    const int components = argumentCount > 1 ? std::atoi(arguments[1]) : 50'000;
    const QTemporaryDir folder;
    const std::string path = folder.filePath("a.prl").toStdString();
    CreateFileBytes(PathOf(path), ProjectOf(components));

    frmCommonDialog dialogs;
    frmProgramStarter starter;
    frmMain window(dialogs, starter);
    window.show();
    QApplication::processEvents();
    std::vector<double> with;
    std::vector<double> without;
    for (int round = 0; round < rounds; ++round) {
        with.push_back(Time(window, [&] { window.ReadPRLFile(path); }));
        without.push_back(Time(window, [&] { LoadProject(path, window.CurrentDocument(), dialogs, nullptr); }));
    }
    const double share = Median(with) / Median(without) - 1;
    std::printf("| loading %d components | milliseconds (median of %d) |\n|---|---|\n", components, rounds);
    std::printf("| with the loading form | %.1f |\n| without it | %.1f |\n", Median(with), Median(without));
    std::printf("Cost of progress: %.1f %% (limit %.0f %%)\n", 100 * share, 100 * largestShare);
    return share <= largestShare ? 0 : 1;
}
