#include "controls/dPassword.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dPassword::Table() const {
    static const ControlTable table(ComponentKind::Password,
                                    {
                                        Property<&dPassword::Caption>(keys::value),
                                        Property<&dPassword::PassChar>(keys::passchar, 1),
                                        Property<&dPassword::Align>(keys::align),
                                        Event<&dPassword::EventChanged>(keys::changed, suffixes::contentChanged, 2),
                                        Event<&dPassword::EventValidate>(keys::validate, suffixes::inputConfirmed, 5),
                                        Event<&dPassword::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 3),
                                        Event<&dPassword::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 4),
                                    });
    return table;
}

std::string dPassword::CreateInitText(int left, int top) const {
    std::string text = Creation(Concatenate(Box(left, top), ", '", PassChar, "'"));
    if (!Caption.empty())
        text += Call("setzeInhalt", Quoted(Caption));
    return text + Registrations();
}

} // namespace pirol
