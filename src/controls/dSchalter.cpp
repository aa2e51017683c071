#include "controls/dSchalter.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dSchalter::Table() const {
    static const ControlTable table(ComponentKind::CheckBox,
                                    {
                                        Property<&dSchalter::Caption>(keys::value, 1),
                                        Property<&dSchalter::Checked>(keys::checked),
                                        Event<&dSchalter::EventClick>(keys::click, suffixes::clicked, 2),
                                        Event<&dSchalter::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 3),
                                        Event<&dSchalter::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 4),
                                    });
    return table;
}

std::string dSchalter::CreateInitText(int left, int top) const {
    std::string text = Creation(Concatenate(Box(left, top), ", ", Quoted(Caption)));
    if (Checked)
        text += Call("schalteAn", {});
    return text + Registrations();
}

} // namespace pirol
