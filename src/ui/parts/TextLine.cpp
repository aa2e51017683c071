#include "ui/parts/TextLine.h"

#include "base/Text.h"
#include "ui/parts/FormParts.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>
#include <QValidator>

#include <algorithm>
#include <limits>

namespace pirol {
namespace {

constexpr int mostCharacters = mostTextCharacters;

bool IsControl(QChar sign) {
    return sign.category() == QChar::Other_Control || sign == QChar::LineSeparator || sign == QChar::ParagraphSeparator;
}

/// The field takes one character too many, so that a text that is too long comes here and is put back.
class TextRule final : public QValidator {
  public:
    explicit TextRule(QWidget* field) : QValidator(field), field_(field) {
        untilMessage_.setSingleShot(true);
        // In the end of the paste the field is what it was; only then may a window open.
        connect(&untilMessage_, &QTimer::timeout, field,
                [this] { QMessageBox::information(field_->window(), "Pirol", ToText(textTooLong)); });
    }

    State validate(QString& text, int&) const override {
        if (text.size() > mostCharacters) {
            untilMessage_.start(0);
            return Invalid;
        }
        std::replace_if(text.begin(), text.end(), IsControl, u' ');
        return Acceptable;
    }

  private:
    QWidget* field_;
    mutable QTimer untilMessage_;
};

class NumberRule final : public QValidator {
  public:
    NumberRule(QObject* field, bool takesSteps) : QValidator(field), takesSteps_(takesSteps) {}

    State validate(QString& text, int&) const override {
        text = text.trimmed();
        if (takesSteps_ && (text.startsWith("+=") || text.startsWith("-="))) {
            QString step = text.mid(2);
            return step.isEmpty() ? Intermediate : ValidateNumber(step);
        }
        return ValidateNumber(text);
    }

  private:
    static State ValidateNumber(const QString& text) {
        if (text.isEmpty() || text == "-" || text == "+")
            return Intermediate;
        const bool hasSign = text.front() == u'-' || text.front() == u'+';
        const bool areDigits = std::all_of(text.cbegin() + (hasSign ? 1 : 0), text.cend(),
                                           [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
        bool isWithinRange = false;
        text.toShort(&isWithinRange);
        return areDigits && isWithinRange ? Acceptable : Invalid;
    }

    bool takesSteps_;
};

} // namespace

TextLine::TextLine(const QString& text, QWidget* parent) : QLineEdit(parent) {
    setMaxLength(mostCharacters + 1);
    setValidator(new TextRule(this));
    ShowText(text);
}

void TextLine::ShowText(const QString& text) {
    const bool isTooLong = text.size() > mostCharacters;
    setPlaceholderText(isTooLong ? "Zu lang zum Bearbeiten" : "");
    setText(isTooLong ? QString() : text);
}

NumberLine::NumberLine(QWidget* parent, bool takesSteps) : QLineEdit(parent), takesSteps_(takesSteps) {
    // Longer than any number; a paste of millions of characters is cut before it is looked at.
    constexpr int room = 100;
    setMaxLength(room);
    setValidator(new NumberRule(this, takesSteps));
}

/// A letter does nothing, not even to what is marked.
void NumberLine::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isLetter = !isCommand && !text.isEmpty() && text.front().isPrint() && !text.front().isDigit() &&
                          text != "-" && text != "+" && !(takesSteps_ && text == "=");
    if (!isLetter)
        QLineEdit::keyPressEvent(event);
}

} // namespace pirol
