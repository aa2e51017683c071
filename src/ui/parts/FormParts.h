#pragma once

#include "base/Colour.h"
#include "base/Rectangle.h"

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

class QDialog;
class QLabel;
class QLayout;
class QPixmap;
class QPushButton;
class QRadioButton;

namespace pirol {

/// Parts that all forms are made of. Texts of the core are UTF-8.

QString ToText(std::string_view text);

/// The same with the line ends that labels know.
QString ToLines(std::string_view text);

/// A colour with red in the low byte, and back.
QColor ToColor(std::uint32_t color);
std::uint32_t FromColor(const QColor& color);
QColor ToColor(Colour colour);

QRect ToRect(const Rectangle& box);

/// Gives a widget its name and the name that a screen reader says; gives the widget back.
template <class Widget>
Widget* Named(Widget* widget, const char* name, const QString& accessibleName) {
    widget->setObjectName(name);
    widget->setAccessibleName(accessibleName);
    return widget;
}

/// A button that a screen reader calls by its caption. A form's default button is set by the form.
QPushButton* NewButton(const char* name, const QString& caption, const QString& toolTip = {});
/// The same with the drawing of that name before its caption.
QPushButton* NewIconButton(const char* name, const QString& caption, std::string_view icon, const QString& toolTip);
/// The button "Schließen", which is the form's default one and accepts the form.
QPushButton* NewCloseButton(QDialog* form);

/// One of several options, which a screen reader calls by its caption.
QRadioButton* NewOption(const char* name, const QString& caption, const QString& toolTip);

/// The row at the foot of a form: its closing buttons, at the right edge.
QLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons);

/// Makes a window that large, or as large as the screen lets a window with its frame be.
void FitToScreen(QWidget* window, const QSize& size);

/// A label that breaks its lines at the given number of average characters.
QLabel* NewNote(const QString& text, int charactersPerLine);

/// Sets a heading off: bold and so many times as large.
void SetOff(QWidget* heading, double scale = 1);

/// A picture that stands beside a text, at its top.
QLabel* NewPicture(const QPixmap& pixmap);

/// Lays out a form that only tells something: a picture, the texts beside it, and the closing button below. The form is
/// as large as they need.
void LayOutNotice(QDialog* form, const QPixmap& picture, QLayout* texts);

} // namespace pirol
