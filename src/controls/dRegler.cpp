#include "controls/dRegler.h"

#include "base/Text.h"

namespace pirol {

const ControlTable& dRegler::Table() const {
    static const ControlTable table(ComponentKind::Slider,
                                    {
                                        Property<&dRegler::Value>(keys::currentvalue, 1),
                                        Property<&dRegler::Min>(keys::min, 2),
                                        Property<&dRegler::Max>(keys::max, 3),
                                        Event<&dRegler::EventChanged>(keys::changed, suffixes::changed, 4),
                                        Event<&dRegler::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 5),
                                        Event<&dRegler::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 6),
                                    });
    return table;
}

std::string dRegler::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", Value, ", ", Min, ", ", Max)) + Registrations();
}

} // namespace pirol
