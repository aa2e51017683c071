// Shows two sources of many lines side by side, in which every fiftieth line differs, and prints the processor time
// until the first picture is painted and for each step of scrolling through them.
//
//   difference-bench [LINES]      100,000 when none is given

#include "Median.h"
#include "ui/code/DifferenceView.h"

#include <QApplication>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

using namespace pirol;

constexpr int rounds = 9;
constexpr int steps = 50;

/// Lines as the generator writes them, with an end that every fiftieth one has for itself.
std::string SourceOf(int lines, const char* changed) {
    std::string text;
    for (int line = 0; line < lines; ++line) {
        const std::string name = "hatKnopf" + std::to_string(line);
        if (line % 5 == 0)
            text += "    public void " + name + "Geklickt()\r\n    {\r\n        // Kommentar\r\n    }\r\n";
        text += "        " + name + " = new Knopf(10, 20, " + (line % 50 == 0 ? changed : "80") + ", 30, \"OK\");\r\n";
        line += line % 5 == 0 ? 4 : 0;
    }
    return text;
}

double Milliseconds(std::clock_t begin) {
    return 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    const int lines = argumentCount > 1 ? std::atoi(arguments[1]) : 100'000;
    const std::string before = SourceOf(lines, "80");
    const std::string after = SourceOf(lines, "90");
    DifferenceView view;
    view.resize(1100, 600);
    view.show();
    std::vector<double> opening;
    std::vector<double> scrolling;
    for (int round = 0; round < rounds; ++round) {
        const std::clock_t begin = std::clock();
        view.ShowSources(before, after);
        view.grab();
        opening.push_back(Milliseconds(begin));
        for (int step = 0; step < steps; ++step) {
            const std::clock_t moved = std::clock();
            view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() * step / steps);
            view.grab();
            scrolling.push_back(Milliseconds(moved));
        }
    }
    std::printf("| %d lines, %d differences | milliseconds |\n|---|---|\n", lines, view.DifferenceCount());
    std::printf("| until painted (median of %d) | %.1f |\n", rounds, Median(opening));
    std::printf("| a step of scrolling (median of %d) | %.2f |\n", rounds * steps, Median(scrolling));
    std::printf("| the longest step | %.2f |\n", *std::max_element(scrolling.begin(), scrolling.end()));
}
