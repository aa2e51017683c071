#include "controls/dBild.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dBild::Table() const {
    static const ControlTable table(ComponentKind::Picture, {
                                                                Property<&dBild::File>(keys::pictureFile, 1),
                                                            });
    return table;
}

std::string dBild::CreateInitText(int left, int top) const {
    return Creation(Concatenate(Box(left, top), ", ", QuotedFileName(File)));
}

} // namespace pirol
