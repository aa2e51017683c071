#pragma once

#include "app/Preferences.h"
#include "ui/parts/Tokens.h"

#include <QObject>
#include <QPalette>

#include <optional>

namespace pirol {

/// The roles of a palette that Qt has no name for. What is painted asks its palette for them, so that it follows every
/// palette, that of a system with high contrast too.
namespace roles {
constexpr QPalette::ColorRole hover = QPalette::Light;
constexpr QPalette::ColorRole line = QPalette::Midlight;
constexpr QPalette::ColorRole outline = QPalette::Mid;
constexpr QPalette::ColorRole pressed = QPalette::Dark;
constexpr QPalette::ColorRole surround = QPalette::Shadow;
constexpr QPalette::ColorRole accent = QPalette::BrightText;
constexpr QPalette::ColorRole focus = QPalette::LinkVisited;
} // namespace roles

/// The palette of a set of colours.
QPalette PaletteOf(const tokens::Colours& colours);

/// For what is paper in every look, such as source in the colours that it has on white.
QPalette PaperPalette();

/// Whether light letters stand on a dark ground.
bool IsDark(const QPalette& palette);

/// What is written on the palette's accent.
QColor AccentText(const QPalette& palette);

/// What the desktop asks for.
struct DesktopLook {
    bool isDark = false;
    bool hasHighContrast = false;

    bool operator==(const DesktopLook&) const = default;
};

/// Gives all windows their colours, at once and whenever the choice or the desktop's changes. Where the desktop asks
/// for high contrast all windows have it; a palette that the system brings for it stays. There is one, made after the
/// application and before the first window.
class Theme : public QObject {
    Q_OBJECT

  public:
    explicit Theme(Appearance appearance);

    /// The desktop is asked only when it has the choice.
    void Choose(Appearance appearance);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AskDesktop();
    void Apply();

    Appearance appearance_;
    DesktopLook desktop_;
    QPalette systemPalette_;
    class DesktopWatch* watch_ = nullptr; ///< made when the desktop is asked first
};

} // namespace pirol
