#include "ui/parts/Theme.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace pirol {
namespace {

double Linear(std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
    return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) + 0.0722 * Linear(colour.blue);
}

/// From 1, where nothing can be seen, to 21.
double Contrast(Colour a, Colour b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

using tokens::Colours;

struct Pair {
    const char* what;
    Colour Colours::*front;
    Colour Colours::*ground;
    double least;
};

constexpr double readable = 4.5;
constexpr double visible = 3;

constexpr Pair pairs[] = {
    {"text on window", &Colours::text, &Colours::window, readable},
    {"text on base", &Colours::text, &Colours::base, readable},
    {"text on row", &Colours::text, &Colours::row, readable},
    {"text on button", &Colours::text, &Colours::button, readable},
    {"text on hover", &Colours::text, &Colours::hover, readable},
    {"text on pressed", &Colours::text, &Colours::pressed, readable},
    {"quiet on window", &Colours::quiet, &Colours::window, readable},
    {"quiet on base", &Colours::quiet, &Colours::base, readable},
    {"text of the selection", &Colours::selectionText, &Colours::selection, readable},
    {"text on the accent", &Colours::accentText, &Colours::accent, readable},
    {"link on window", &Colours::link, &Colours::window, readable},
    {"link on base", &Colours::link, &Colours::base, readable},
    {"tip", &Colours::tipText, &Colours::tip, readable},
    {"error on base", &Colours::error, &Colours::base, readable},
    {"note on base", &Colours::note, &Colours::base, readable},
    {"outline on window", &Colours::outline, &Colours::window, visible},
    {"outline on base", &Colours::outline, &Colours::base, visible},
    {"focus on window", &Colours::focus, &Colours::window, visible},
    {"focus on base", &Colours::focus, &Colours::base, visible},
};

} // namespace

class ThemeTest : public QObject {
    Q_OBJECT

  private slots:
    void HasReadableColours() {
        constexpr double high = 7 / readable;
        const struct {
            const char* name;
            const Colours& colours;
            double factor;
        } looks[] = {{"light", tokens::light, 1},
                     {"dark", tokens::dark, 1},
                     {"light, high contrast", tokens::contrastLight, high},
                     {"dark, high contrast", tokens::contrastDark, high}};
        for (const auto& [look, colours, factor] : looks)
            for (const Pair& pair : pairs) {
                const double contrast = Contrast(colours.*pair.front, colours.*pair.ground);
                QVERIFY2(contrast >= pair.least * factor,
                         qPrintable(QString("%1, %2: %3").arg(look, pair.what).arg(contrast)));
            }
    }

    void ChangesAllWindowsAtOnce() {
        Theme theme(Appearance::Dark);
        QVERIFY(IsDark(QGuiApplication::palette()));
        theme.Choose(Appearance::Light);
        QVERIFY(!IsDark(QGuiApplication::palette()));
        QVERIFY(!IsDark(PaperPalette()));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::ThemeTest)
#include "theme_test.moc"
