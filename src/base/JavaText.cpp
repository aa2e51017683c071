#include "base/JavaText.h"

#include "base/Conversions.h"
#include "base/Text.h"

namespace pirol {

std::string Quoted(std::string_view text) {
    return Concatenate("\"", text, "\"");
}

std::string QuotedFileName(std::string_view fileName) {
    return Quoted(ReplaceAll(fileName, "\\", "\\\\"));
}

std::string CallStatement(std::string_view object, std::string_view method, std::string_view arguments) {
    return Concatenate("        ", object, ".", method, "(", arguments, ");\r\n");
}

std::string HandlerRegistration(std::string_view object, std::string_view suffix) {
    return Concatenate("        ", object, ".setzeBearbeiter", suffix, "(\"", object, suffix, "\");\r\n");
}

std::string HandlerStub(std::string_view object, std::string_view suffix) {
    return Concatenate("    public void ", object, suffix, "()\r\n",
                       "    {\r\n"
                       "        //   Hier wird der Methodeninhalt eingefügt\r\n"
                       "    }\r\n"
                       "\r\n");
}

std::string FieldDeclaration(std::string_view javaClass, std::string_view object) {
    return Concatenate("    ", javaClass, " ", object, ";\r\n");
}

} // namespace pirol
