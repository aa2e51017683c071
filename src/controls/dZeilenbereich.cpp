#include "controls/dZeilenbereich.h"

namespace pirol {

const ControlTable& dZeilenbereich::Table() const {
    static const ControlTable table(ComponentKind::RowField, Rows());
    return table;
}

} // namespace pirol
