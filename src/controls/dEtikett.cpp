#include "controls/dEtikett.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dEtikett::Table() const {
    static const ControlTable table(ComponentKind::Label, {
                                                              Property<&dEtikett::Caption>(keys::value, 1),
                                                              Property<&dEtikett::Align>(keys::align, 2),
                                                              Property<&dEtikett::FontSize>(keys::fontsize, 3),
                                                          });
    return table;
}

std::string dEtikett::CreateInitText(int left, int top) const {
    std::string text = Creation(Concatenate(Box(left, top), ", ", Quoted(Caption)));
    if (Align != 0)
        text += Call("setzeAusrichtung", std::to_string(Align));
    if (FontSize != defaultFontSize)
        text += Call("setzeSchriftgroesse", std::to_string(FontSize));
    return text;
}

} // namespace pirol
