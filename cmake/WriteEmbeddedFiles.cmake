# Run by embed_files: writes OUTPUT, a source file that holds the bytes of FILES.
set(arrays "")
set(rows "")
set(index 0)
foreach(file IN LISTS FILES)
    get_filename_component(name ${file} NAME)
    file(READ ${file} hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${hex}")
    string(APPEND arrays "constexpr char file${index}[] = {${bytes}};\n")
    string(APPEND rows "    {\"${name}\", {file${index}, sizeof file${index}}},\n")
    math(EXPR index "${index} + 1")
endforeach()
file(WRITE ${OUTPUT} "// Written by the build.
#include <string_view>

namespace pirol {
namespace {
${arrays}
struct EmbeddedFile {
    std::string_view name;
    std::string_view content;
};
constexpr EmbeddedFile embeddedFiles[] = {
${rows}};
} // namespace

std::string_view ${FUNCTION}(std::string_view name);

std::string_view ${FUNCTION}(std::string_view name) {
    for (const EmbeddedFile& file : embeddedFiles)
        if (file.name == name)
            return file.content;
    return {};
}
} // namespace pirol
")
