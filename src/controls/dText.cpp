#include "controls/dText.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dText::Table() const {
    static const ControlTable table(ComponentKind::TextField,
                                    {
                                        Property<&dText::Caption>(keys::value, 1),
                                        Property<&dText::Align>(keys::align, 2),
                                        Event<&dText::EventChanged>(keys::changed, suffixes::contentChanged, 3),
                                        Event<&dText::EventValidate>(keys::validate, suffixes::inputConfirmed, 6),
                                        Event<&dText::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 4),
                                        Event<&dText::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 5),
                                    });
    return table;
}

std::string dText::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", Quoted(Caption))) + Registrations();
}

} // namespace pirol
