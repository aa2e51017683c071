#include "controls/dFortschritt.h"

#include "base/Text.h"

namespace pirol {

const ControlTable& dFortschritt::Table() const {
    static const ControlTable table(ComponentKind::ProgressBar, {
                                                                    Property<&dFortschritt::Min>(keys::min, 1),
                                                                    Property<&dFortschritt::Max>(keys::max, 2),
                                                                    Property<&dFortschritt::Value>(keys::currentvalue),
                                                                });
    return table;
}

std::string dFortschritt::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", Min, ", ", Max)) + Call("setzeWert", std::to_string(Value));
}

} // namespace pirol
