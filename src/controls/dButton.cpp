#include "controls/dButton.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dButton::Table() const {
    static const ControlTable table(ComponentKind::Button,
                                    {
                                        Property<&dButton::Caption>(keys::value, 1),
                                        Event<&dButton::EventClick>(keys::click, suffixes::clicked, 2),
                                        Event<&dButton::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 3),
                                        Event<&dButton::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 4),
                                    });
    return table;
}

std::string dButton::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", Quoted(Caption))) + Registrations();
}

} // namespace pirol
