#include "designer/controls/dBild.h"

#include "codegen/JavaText.h"

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
