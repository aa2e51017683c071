#include "controls/dOptionsgruppe.h"

#include "base/Conversions.h"
#include "base/JavaText.h"
#include "base/Text.h"

#include <algorithm>
#include <limits>

namespace pirol {

const ControlTable& dOptionsgruppe::Table() const {
    static const ControlTable table(ComponentKind::OptionGroup,
                                    {
                                        Property<&dOptionsgruppe::OptionButtons>(keys::optionbuttons, 1),
                                        Event<&dOptionsgruppe::EventClick>(keys::click, suffixes::clicked),
                                    });
    return table;
}

void dOptionsgruppe::EncloseButtons() {
    if (OptionButtons.empty())
        return;
    int left = std::numeric_limits<int>::max();
    int top = left;
    int right = std::numeric_limits<int>::min();
    int bottom = right;
    for (const cRadioButton& button : OptionButtons) {
        left = std::min<int>(left, button.Left);
        top = std::min<int>(top, button.Top);
        right = std::max(right, button.Left + button.Width);
        bottom = std::max(bottom, button.Top + button.Height);
    }
    Left = ToInt16(left);
    Top = ToInt16(top);
    Width = ToInt16(right - left);
    Height = ToInt16(bottom - top);
    for (cRadioButton& button : OptionButtons) {
        button.Left = ToInt16(button.Left - left);
        button.Top = ToInt16(button.Top - top);
    }
}

std::string dOptionsgruppe::CreateHeaderText() const {
    std::string text = Control::CreateHeaderText();
    for (const cRadioButton& row : OptionButtons)
        text += FieldDeclaration("Radioknopf", row.Name);
    return text;
}

std::string dOptionsgruppe::CreateInitText(int left, int top) const {
    std::string text = Creation({});
    for (const cRadioButton& row : OptionButtons) {
        Append(text, "        ", row.Name, " = new Radioknopf(", ToInt16(left + row.Left), ", ", ToInt16(top + row.Top),
               ", ", row.Width, ", ", row.Height, ", ", Quoted(row.Caption), ");\r\n");
        if (EventClick)
            text += HandlerRegistration(row.Name, suffixes::clicked);
        text += Call("fuegeEin", row.Name);
    }
    return text;
}

std::string dOptionsgruppe::CreateEventText() const {
    std::string text;
    if (EventClick)
        for (const cRadioButton& row : OptionButtons)
            text += HandlerStub(row.Name, suffixes::clicked);
    return text;
}

} // namespace pirol
