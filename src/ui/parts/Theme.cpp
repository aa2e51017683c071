#include "ui/parts/Theme.h"

#include "app/Registry.h"
#include "ui/parts/DesktopWatch.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/TitleBar.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

#include <string_view>

namespace pirol {
namespace {

// What the desktop said last: a window in the other colours would flash before the answer comes.
constexpr std::string_view storeKey = "Software\\Pirol";
constexpr std::string_view storedName = "DesktopIsDark";

constexpr int darkBelow = 128; // of 255

/// Windows brings palettes with high contrast that the user chose among; elsewhere the desktop only says that it wants
/// one.
#ifdef _WIN32
constexpr bool bringsContrastPalette = true;
#else
constexpr bool bringsContrastPalette = false;
#endif

/// A palette with high contrast has no colours to spare: what marks something does so with the colours of its text.
QPalette WithRoles(QPalette palette) {
    const QBrush text = palette.brush(QPalette::WindowText);
    palette.setBrush(roles::hover, palette.brush(QPalette::Button));
    palette.setBrush(roles::pressed, palette.brush(QPalette::Button));
    palette.setBrush(roles::line, text);
    palette.setBrush(roles::outline, text);
    palette.setBrush(roles::focus, palette.brush(QPalette::Highlight));
    palette.setBrush(roles::accent, palette.brush(QPalette::Highlight));
    palette.setBrush(roles::surround, palette.brush(QPalette::Window));
    return palette;
}

} // namespace

QPalette PaletteOf(const tokens::Colours& colours) {
    const struct {
        QPalette::ColorRole role;
        Colour colour;
        Colour disabled;
    } rows[] = {
        {QPalette::Window, colours.window, colours.window},
        {QPalette::WindowText, colours.text, colours.disabled},
        {QPalette::Base, colours.base, colours.window},
        {QPalette::AlternateBase, colours.row, colours.window},
        {QPalette::Text, colours.text, colours.disabled},
        {QPalette::PlaceholderText, colours.quiet, colours.disabled},
        {QPalette::Button, colours.button, colours.window},
        {QPalette::ButtonText, colours.text, colours.disabled},
        {QPalette::Highlight, colours.selection, colours.pressed},
        {QPalette::HighlightedText, colours.selectionText, colours.text},
        {QPalette::Link, colours.link, colours.disabled},
        {QPalette::ToolTipBase, colours.tip, colours.tip},
        {QPalette::ToolTipText, colours.tipText, colours.tipText},
        {roles::hover, colours.hover, colours.hover},
        {roles::pressed, colours.pressed, colours.pressed},
        {roles::line, colours.line, colours.line},
        {roles::outline, colours.outline, colours.line},
        {roles::surround, colours.surround, colours.surround},
        {roles::accent, colours.accent, colours.line},
        {roles::focus, colours.focus, colours.line},
    };
    QPalette palette;
    for (const auto& row : rows) {
        palette.setColor(QPalette::All, row.role, ToColor(row.colour));
        palette.setColor(QPalette::Disabled, row.role, ToColor(row.disabled));
    }
    return palette;
}

QPalette PaperPalette() {
    return PaletteOf(tokens::light);
}

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < darkBelow;
}

QColor AccentText(const QPalette& palette) {
    return palette.color(roles::accent).lightness() < darkBelow / 2 ? QColor(Qt::white)
                                                                    : ToColor(tokens::light.accentText);
}

Theme::Theme(Appearance appearance) : appearance_(appearance), systemPalette_(QGuiApplication::palette()) {
    desktop_.isDark = appearance == Appearance::System && registry::ReadNumber(storeKey, storedName) == 1;
    Apply();
#ifdef _WIN32
    qApp->installEventFilter(this); // each window that comes
#endif
    if (appearance == Appearance::System)
        QTimer::singleShot(0, this, &Theme::AskDesktop); // the window comes first
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    if (const auto* const window = qobject_cast<QWidget*>(watched);
        event->type() == QEvent::Show && window != nullptr && window->isWindow())
        ShowTitleDark(*window, IsDark(QApplication::palette()));
    return QObject::eventFilter(watched, event);
}

void Theme::Choose(Appearance appearance) {
    appearance_ = appearance;
    if (appearance == Appearance::System)
        AskDesktop();
    Apply();
}

void Theme::AskDesktop() {
    if (watch_ == nullptr) {
        watch_ = new DesktopWatch(this);
        connect(watch_, &DesktopWatch::Told, this, [this](const DesktopLook& look) {
            if (look.isDark != desktop_.isDark)
                registry::WriteNumber(storeKey, storedName, look.isDark ? 1 : 0);
            if (std::exchange(desktop_, look) != look)
                Apply();
        });
    }
    watch_->Ask();
}

void Theme::Apply() {
    const bool isDark = appearance_ == Appearance::Dark || (appearance_ == Appearance::System && desktop_.isDark);
    const bool hasContrast = appearance_ == Appearance::System && desktop_.hasHighContrast;
    const tokens::Colours& colours =
        hasContrast ? (isDark ? tokens::contrastDark : tokens::contrastLight) : (isDark ? tokens::dark : tokens::light);
    const QPalette palette = hasContrast && bringsContrastPalette ? WithRoles(systemPalette_) : PaletteOf(colours);
    if (palette == QApplication::palette())
        return;
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    for (const QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            ShowTitleDark(*window, IsDark(palette));
}

} // namespace pirol
