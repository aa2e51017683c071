#include "controls/dZeichenbereich.h"

namespace pirol {

const ControlTable& dZeichenbereich::Table() const {
    static const ControlTable table(ComponentKind::CharField, Rows());
    return table;
}

} // namespace pirol
