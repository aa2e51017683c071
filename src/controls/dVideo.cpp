#include "controls/dVideo.h"

#include "base/JavaText.h"

namespace pirol {

const ControlTable& dVideo::Table() const {
    static const ControlTable table(ComponentKind::Movie, {
                                                              Property<&dVideo::File>(keys::movieFile, 1),
                                                          });
    return table;
}

std::string dVideo::CreateInitText(int, int) const {
    return Creation(QuotedFileName(File));
}

} // namespace pirol
