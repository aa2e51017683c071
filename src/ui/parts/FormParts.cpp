#include "ui/parts/FormParts.h"

#include "base/Conversions.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace pirol {
namespace {

constexpr std::uint32_t byteMask = 0xFF;

} // namespace

QString ToText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToLines(std::string_view text) {
    return ToText(ReplaceAll(text, lineEnd, "\n"));
}

QColor ToColor(std::uint32_t color) {
    return {static_cast<int>(color & byteMask), static_cast<int>(color >> 8u & byteMask),
            static_cast<int>(color >> 16u & byteMask)};
}

std::uint32_t FromColor(const QColor& color) {
    return static_cast<std::uint32_t>(color.red()) | static_cast<std::uint32_t>(color.green()) << 8u |
           static_cast<std::uint32_t>(color.blue()) << 16u;
}

QPushButton* NewButton(const char* name, const QString& caption, const QString& toolTip) {
    auto* const button = Named(new QPushButton(caption), name, QString(caption).remove('&'));
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

QLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* const row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* const button : buttons)
        row->addWidget(button);
    return row;
}

QLabel* NewNote(const QString& text, int charactersPerLine) {
    auto* const note = new QLabel(text);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumWidth(note->fontMetrics().averageCharWidth() * charactersPerLine);
    return note;
}

} // namespace pirol
