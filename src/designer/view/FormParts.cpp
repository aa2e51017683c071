#include "designer/view/FormParts.h"

#include "model/Conversions.h"

#include <QLabel>
#include <QPushButton>

namespace pirol {

QString ToText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToLines(std::string_view text) {
    return ToText(ReplaceAll(text, lineEnd, "\n"));
}

QPushButton* NewButton(const char* name, const QString& caption, const QString& toolTip) {
    auto* const button = Named(new QPushButton(caption), name, QString(caption).remove('&'));
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    return button;
}

QLabel* NewNote(const QString& text, int charactersPerLine) {
    auto* const note = new QLabel(text);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumWidth(note->fontMetrics().averageCharWidth() * charactersPerLine);
    return note;
}

} // namespace pirol
