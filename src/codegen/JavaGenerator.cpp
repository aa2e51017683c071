#include "codegen/JavaGenerator.h"

#include "codegen/JavaText.h"
#include "model/RuntimeError.h"

namespace pirol {
namespace {

/// Everything is appended to one string, section by section: the source is by far the largest thing in memory, and
/// three texts joined at the end would need it twice.
void AppendImports(std::string& out, const ProjectModel& model) {
    Append(out,
           "import sum.ereignis.*;\r\n"
           "import sum.komponenten.*;\r\n"
           "import sum.multimedia.*;\r\n",
           GenerateSQLImport(model.Sql()),
           "//import sum.werkzeuge.*;\r\n"
           "\r\n");
}

void AppendDeclarations(std::string& out, const ProjectModel& model, CodeOptions options) {
    model.ForEachVisible([&out](const Control& control) { out += control.CreateHeaderText(); });
    if (options.menu)
        out += model.Menus().GenerateCode(MenuSection::Init);
    if (options.database)
        out += GenerateSQLInitCode();
}

void AppendInitialisation(std::string& out, const ProjectModel& model, CodeOptions options) {
    model.ForEachVisible([&out](const Control& control) { out += control.CreateInitText(control.Left, control.Top); });
    if (options.menu)
        out += model.Menus().GenerateCode(MenuSection::Main);
    if (options.database)
        out += GenerateSQLCode(model.Sql());
}

void AppendEvents(std::string& out, const ProjectModel& model, CodeOptions options) {
    model.ForEachVisible([&out](const Control& control) { out += control.CreateEventText(); });
    if (options.menu)
        out += model.Menus().GenerateCode(MenuSection::Events);
    if (options.database)
        out += GenerateSQLMethods(model.Sql());
}

} // namespace

std::string GenerateCode(const ProjectModel& model, CodeOptions options) {
    return UnderLabel("Main.File.Java.GenerateCode", [&] {
        std::string source;
        AppendImports(source, model);
        source += "public class SuMAnwendung extends EBAnwendung\r\n"
                  "{\r\n"
                  "    // Objekte\r\n";
        AppendDeclarations(source, model, options);
        Append(source,
               "\r\n"
               "    public SuMAnwendung()\r\n"
               "    {\r\n"
               "        // Initialisierung der Oberklasse\r\n"
               "        super(",
               model.WindowWidth(), ", ", model.WindowHeight(), ");\r\n");
        AppendInitialisation(source, model, options);
        source += "    }\r\n"
                  "\r\n";
        AppendEvents(source, model, options);
        source += '}';
        return source;
    });
}

} // namespace pirol
