#include "controls/TextArea.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

std::vector<PropertyRow> TextArea::Rows() {
    return {
        Property<&TextArea::Caption>(keys::value, 1),
        Event<&TextArea::EventChanged>(keys::changed, suffixes::contentChanged, 2),
        Event<&TextArea::EventSelectionChanged>(keys::selectionchanged, suffixes::selectionChanged, 5),
        Event<&TextArea::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 3),
        Event<&TextArea::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 4),
    };
}

std::string TextArea::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", Quoted(Caption))) + Registrations();
}

} // namespace pirol
