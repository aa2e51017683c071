#include "controls/dAuswahl.h"

#include "base/JavaText.h"

namespace pirol {

const ControlTable& dAuswahl::Table() const {
    static const ControlTable table(ComponentKind::ComboBox,
                                    {
                                        Property<&dAuswahl::Entries>(keys::combovalues, 1),
                                        Event<&dAuswahl::EventChanged>(keys::changed, suffixes::changed, 2),
                                        Event<&dAuswahl::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 3),
                                        Event<&dAuswahl::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 4),
                                    });
    return table;
}

std::string dAuswahl::CreateInitText(int left, int top) const {
    std::string text = Creation(Box(left, top));
    for (const std::string& entry : Entries)
        text += Call("haengeAn", Quoted(entry));
    return text + Registrations();
}

} // namespace pirol
