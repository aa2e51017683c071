#include "codegen/JavaGenerator.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>

namespace pirol {
namespace {

/// Collects the source and writes it in large pieces.
class Output {
  public:
    explicit Output(const std::function<void(std::string_view)>& write) : write_(write) {}

    template <class... Pieces>
    void Append(const Pieces&... pieces) {
        pirol::Append(piece_, pieces...);
        if (piece_.size() >= pieceSize)
            Flush();
    }

    void Flush() {
        write_(piece_);
        piece_.clear();
    }

  private:
    static constexpr std::size_t pieceSize = 65536;

    const std::function<void(std::string_view)>& write_;
    std::string piece_;
};

/// Raises what generating the components raises: only the place of a radio button can leave the 16-bit range.
void CheckPlaces(const ProjectModel& model) {
    for (std::size_t index = 1; index < model.ElementCount(ComponentKind::OptionGroup); ++index) {
        const Control& group = model.Element({ComponentKind::OptionGroup, index});
        if (group.Visible)
            group.CreateInitText(group.Left, group.Top);
    }
}

void AppendImports(Output& out, const ProjectModel& model) {
    out.Append("import sum.ereignis.*;\r\n"
               "import sum.komponenten.*;\r\n"
               "import sum.multimedia.*;\r\n",
               GenerateSQLImport(model.Sql()),
               "//import sum.werkzeuge.*;\r\n"
               "\r\n");
}

void AppendDeclarations(Output& out, const ProjectModel& model, CodeOptions options, std::string_view menuCode) {
    model.ForEachVisible([&out](const Control& control) { out.Append(control.CreateHeaderText()); });
    out.Append(menuCode);
    if (options.database)
        out.Append(GenerateSQLInitCode());
}

void AppendInitialisation(Output& out, const ProjectModel& model, CodeOptions options, std::string_view menuCode) {
    model.ForEachVisible(
        [&out](const Control& control) { out.Append(control.CreateInitText(control.Left, control.Top)); });
    out.Append(menuCode);
    if (options.database)
        out.Append(GenerateSQLCode(model.Sql()));
}

void AppendEvents(Output& out, const ProjectModel& model, CodeOptions options, std::string_view menuCode) {
    model.ForEachVisible([&out](const Control& control) { out.Append(control.CreateEventText()); });
    out.Append(menuCode);
    if (options.database)
        out.Append(GenerateSQLMethods(model.Sql()));
}

} // namespace

std::string GenerateCode(const ProjectModel& model, CodeOptions options) {
    // What a component usually takes; growing step by step would copy a large source several times.
    constexpr std::size_t usualLength = 512;
    std::string source;
    source.reserve(model.CreationOrder().size() * usualLength);
    WriteCode(model, options, [&source](std::string_view piece) { source += piece; });
    return source;
}

void WriteCode(const ProjectModel& model, CodeOptions options, const std::function<void(std::string_view)>& write) {
    UnderLabel("Main.File.Java.GenerateCode", [&] {
        // All that can fail comes first, so that a source is written whole or not at all.
        CheckPlaces(model);
        const auto menuCode = [&](MenuSection section) {
            return options.menu ? model.Menus().GenerateCode(section) : std::string();
        };
        const std::string menuDeclarations = menuCode(MenuSection::Init);
        const std::string menuInitialisation = menuCode(MenuSection::Main);
        const std::string menuEvents = menuCode(MenuSection::Events);

        Output out(write);
        AppendImports(out, model);
        out.Append("public class SuMAnwendung extends EBAnwendung\r\n"
                   "{\r\n"
                   "    // Objekte\r\n");
        AppendDeclarations(out, model, options, menuDeclarations);
        out.Append("\r\n"
                   "    public SuMAnwendung()\r\n"
                   "    {\r\n"
                   "        // Initialisierung der Oberklasse\r\n"
                   "        super(",
                   model.WindowWidth(), ", ", model.WindowHeight(), ");\r\n");
        AppendInitialisation(out, model, options, menuInitialisation);
        out.Append("    }\r\n"
                   "\r\n");
        AppendEvents(out, model, options, menuEvents);
        out.Append("}");
        out.Flush();
    });
}

std::size_t LineOfHandler(std::string_view source, std::string_view handler) {
    const std::size_t place = source.find(Concatenate("\n    public void ", handler, "()\r\n"));
    if (place == std::string_view::npos)
        return 0;
    return static_cast<std::size_t>(
               std::count(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(place), '\n')) +
           2;
}

} // namespace pirol
