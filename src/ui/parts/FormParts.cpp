#include "ui/parts/FormParts.h"

#include "base/Conversions.h"
#include "ui/parts/Bitmaps.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr std::uint32_t byteMask = 0xFF;

template <class Button>
Button* NamedByCaption(Button* button, const char* name, const QString& toolTip) {
    Named(button, name, button->text().remove('&'));
    button->setToolTip(toolTip);
    return button;
}

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

QColor ToColor(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

QRect ToRect(const Rectangle& box) {
    return {box.left, box.top, box.width, box.height};
}

QPushButton* NewButton(const char* name, const QString& caption, const QString& toolTip) {
    auto* const button = NamedByCaption(new QPushButton(caption), name, toolTip);
    button->setAutoDefault(false);
    return button;
}

QPushButton* NewIconButton(const char* name, const QString& caption, std::string_view icon, const QString& toolTip) {
    QPushButton* const button = NewButton(name, caption, toolTip);
    button->setIcon(CommandIcon(icon));
    return button;
}

QPushButton* NewCloseButton(QDialog* form) {
    QPushButton* const button = NewButton("cmdClose", "&Schließen");
    button->setDefault(true);
    QObject::connect(button, &QPushButton::clicked, form, &QDialog::accept);
    return button;
}

QRadioButton* NewOption(const char* name, const QString& caption, const QString& toolTip) {
    return NamedByCaption(new QRadioButton(caption), name, toolTip);
}

QLayout* NewButtonRow(std::initializer_list<QPushButton*> buttons) {
    auto* const row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* const button : buttons)
        row->addWidget(button);
    return row;
}

void FitToScreen(QWidget* window, const QSize& size) {
    // The system draws the frame only when the window is shown; its title is about as high as the style's.
    const int title = window->style()->pixelMetric(QStyle::PM_TitleBarHeight) * 2;
    constexpr int sides = 16;
    window->resize(size.boundedTo(window->screen()->availableSize() - QSize(sides, title)));
}

QLabel* NewNote(const QString& text, int charactersPerLine) {
    auto* const note = new QLabel(text);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setMinimumWidth(note->fontMetrics().averageCharWidth() * charactersPerLine);
    return note;
}

void SetOff(QWidget* heading, double scale) {
    QFont font = heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * scale);
    heading->setFont(font);
}

QLabel* NewPicture(const QPixmap& pixmap) {
    auto* const picture = new QLabel;
    picture->setPixmap(pixmap);
    picture->setAlignment(Qt::AlignTop);
    return picture;
}

void LayOutNotice(QDialog* form, const QPixmap& picture, QLayout* texts) {
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(form->fontMetrics().averageCharWidth() * 3);
    columns->addWidget(NewPicture(picture));
    columns->addLayout(texts, 1);
    auto* const all = new QVBoxLayout(form);
    all->addLayout(columns, 1);
    all->addSpacing(form->fontMetrics().lineSpacing() / 2);
    all->addWidget(NewCloseButton(form), 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace pirol
