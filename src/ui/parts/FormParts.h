#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

class QLabel;
class QLayout;
class QPushButton;

namespace pirol {

/// Parts that all forms are made of. Texts of the core are UTF-8.

QString ToText(std::string_view text);

/// The same with the line ends that labels know.
QString ToLines(std::string_view text);

/// A colour with red in the low byte, and back.
QColor ToColor(std::uint32_t color);
std::uint32_t FromColor(const QColor& color);

/// Gives a widget its name and the name that a screen reader says; gives the widget back.
template <class Widget>
Widget* Named(Widget* widget, const char* name, const QString& accessibleName) {
    widget->setObjectName(name);
    widget->setAccessibleName(accessibleName);
    return widget;
}

/// A button that a screen reader calls by its caption. A form's default button is set by the form.
QPushButton* NewButton(const char* name, const QString& caption, const QString& toolTip = {});

/// The row at the foot of a form: its closing buttons, at the right edge.
QLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons);

/// A label that breaks its lines at the given number of average characters.
QLabel* NewNote(const QString& text, int charactersPerLine);

} // namespace pirol
