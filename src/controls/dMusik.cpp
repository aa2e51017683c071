#include "controls/dMusik.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {

const ControlTable& dMusik::Table() const {
    static const ControlTable table(ComponentKind::Sound, {
                                                              Property<&dMusik::File>(keys::soundFile, 1),
                                                          });
    return table;
}

std::string dMusik::CreateInitText(int, int) const {
    return Creation({}) + Call("ladeTon", QuotedFileName(File)) +
           Concatenate("        //", ObjectName,
                       ".spieleTon();  // <- zum sofortigen Abspielen dekommentieren\r\n\r\n");
}

} // namespace pirol
