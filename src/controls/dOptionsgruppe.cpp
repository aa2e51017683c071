#include "controls/dOptionsgruppe.h"

#include "base/Conversions.h"
#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dOptionsgruppe::Table() const {
    static const ControlTable table(ComponentKind::OptionGroup,
                                    {
                                        Property<&dOptionsgruppe::OptionButtons>(keys::optionbuttons, 1),
                                        Event<&dOptionsgruppe::EventClick>(keys::click, suffixes::clicked),
                                    });
    return table;
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
