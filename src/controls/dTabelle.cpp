#include "controls/dTabelle.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dTabelle::Table() const {
    static const ControlTable table(
        ComponentKind::Table,
        {
            Property<&dTabelle::Rows>(keys::rows, 1),
            Property<&dTabelle::Columns>(keys::columns, 2),
            Event<&dTabelle::EventChanged>(keys::changed, suffixes::contentChanged, 3),
            Event<&dTabelle::EventSelectionChanged>(keys::selectionchanged, suffixes::selectionChanged, 4),
            Event<&dTabelle::EventGotFocus>(keys::gotfocus, suffixes::focusGot, 5),
            Event<&dTabelle::EventLostFocus>(keys::lostfocus, suffixes::focusLost, 6),
        });
    return table;
}

std::string dTabelle::CreateInitText(int left, int top) const {
    std::string text = Creation(Concatenate(Box(left, top), ", ", Rows, ", ", Columns.size()));
    std::size_t number = 0; // the library counts columns from 1
    for (const std::string& title : Columns)
        text += Call("setzeSpaltentitelAn", Concatenate(Quoted(title), ", ", ++number));
    return text + Registrations();
}

} // namespace pirol
