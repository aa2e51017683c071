#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/Text.h"
#include "codegen/JavaUpdate.h"
#include "codegen/LineDifferences.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <span>
#include <stdexcept>

namespace pirol {
namespace {

/// Button with a click, switch that is on, radio buttons, sound, text area, menu bar and database.
ProjectModel Design() {
    ProjectModel model;
    const auto place = [&model](ComponentKind kind) -> Control& {
        return model.EditElement(model.PlaceComponent(kind, {10, 20, 80, 30}));
    };
    static_cast<dButton&>(place(ComponentKind::Button)).EventClick = true;
    static_cast<dSchalter&>(place(ComponentKind::CheckBox)).Checked = true;
    static_cast<dOptionsgruppe&>(place(ComponentKind::OptionGroup)).OptionButtons = {
        {"hatA", "A", 100, 20, 0, 0, false}, {"hatB", "B", 100, 20, 0, 20, false}};
    place(ComponentKind::Sound);
    place(ComponentKind::RowField);
    cMenu& menu = model.EditMenus().Append("Datei", "hatMenueDatei");
    menu.AddEntry("Neu", cMenu::Entry);
    menu.AddEntry({}, cMenu::Separator);
    menu.AddEntry("Als", cMenu::SubMenu)->AddEntry("Bild", cMenu::Entry);
    model.EditSql().Server = "localhost";
    model.EditSql().Flags[1] = 1;
    return model;
}

Control& Element(ProjectModel& model, std::string_view name) {
    for (const ComponentRef component : model.CreationOrder())
        if (model.Element(component).Visible && model.Element(component).ObjectName == name)
            return model.EditElement(component);
    throw std::runtime_error(Concatenate("no component ", name));
}

ComponentKind KindOf(std::string_view key) {
    for (const KindRow& kind : KindRows())
        if (kind.key == key)
            return kind.kind;
    throw std::runtime_error(Concatenate("no kind ", key));
}

/// One edit of a design, or one thing that the update is told, as it stands behind "!" in a file of cases.
void Take(std::string_view step, ProjectModel& model, UpdateOptions& options) {
    const auto next = [&step] {
        const std::string_view word = step.substr(0, step.find(' '));
        step.remove_prefix(std::min(word.size() + 1, step.size()));
        return std::string(word);
    };
    const std::string what = next();
    const std::string second = next();
    const std::string third(step);
    if (what == "place") {
        model.EditElement(model.PlaceComponent(KindOf(second), {10, 99, 80, 30})).ObjectName = third;
    } else if (what == "delete") {
        for (const ComponentRef component : model.CreationOrder())
            if (model.Element(component).ObjectName == second)
                return model.DeleteComponent(component);
    } else if (what == "rename") {
        Element(model, second).ObjectName = third;
        options.renames.push_back({second, third});
    } else if (what == "renamed") {
        options.renames.push_back({second, third});
    } else if (what == "window") {
        model.SetWindowSize(ToInt16(second), ToInt16(third));
    } else if (what == "entry") {
        model.EditMenus().Menus().begin()->AddEntry(second, cMenu::Entry);
    } else if (what == "separator") {
        model.EditMenus().Menus().begin()->AddEntry({}, cMenu::Separator);
    } else if (what == "sql") {
        model.EditSql().*sqlFields.at(std::stoul(second)).text = third;
    } else if (what == "query") {
        model.EditSql().Flags.at(std::stoul(second)) = ToInt16(third);
    } else if (what == "without") {
        (second == "menu" ? options.withoutMenu : options.withoutDatabase) = true;
    } else if (what == "mark") {
        (second == "menu" ? options.withoutMenu : options.withoutDatabase) = false;
        (second == "menu" ? options.marks.menu : options.marks.database) = true;
    } else if (what == "unknown") {
        options.isUnknown = [second](std::string_view name, std::string_view) {
            return second.empty() || name == second;
        };
    } else if (what == "windows-1252") {
        options.windows1252 = true;
    } else {
        Control& element = Element(model, what);
        FindRow(element, second)->set(element, ReplaceAll(third, "|", std::string_view("", 1)));
    }
}

/// A case of tests/data/update: what a pupil makes of a generated source, what becomes of the design, and the update.
/// "|" stands for the end of a line.
struct Case {
    std::string title;              ///< behind "="
    std::vector<std::string> both;  ///< behind "?": steps for the design that the source is of, and the new one
    std::vector<std::string> edits; ///< behind "!": steps for the new one only
    std::vector<std::pair<std::string, std::string>> changes; ///< behind "~": a text, "~" and what comes in its place
    std::string result; ///< all else: what differs behind the number of its first old line, and the report
};

std::vector<std::string> StepsBehind(std::string_view line, std::string_view sign) {
    std::vector<std::string> steps;
    if (const std::size_t begin = line.find(sign); begin != std::string_view::npos)
        for (const std::string_view step : Split(line.substr(begin + 3, line.find(" ! ", begin + 3) - begin - 3), ';'))
            steps.emplace_back(Trim(step));
    return steps;
}

std::vector<Case> CasesIn(const std::filesystem::path& file) {
    std::vector<Case> cases;
    const std::string text = ReadFileBytes(file);
    for (const std::string_view line : Split(text, '\n')) {
        if (line.empty() || line.starts_with('#'))
            continue;
        if (line.starts_with('=')) {
            cases.push_back({std::string(line), StepsBehind(line, " ? "), StepsBehind(line, " ! "), {}, {}});
        } else if (line.starts_with('~')) {
            const std::size_t middle = line.find('~', 1);
            cases.back().changes.emplace_back(ReplaceAll(line.substr(1, middle - 1), "|", "\r\n"),
                                              ReplaceAll(line.substr(middle + 1), "|", "\r\n"));
        } else {
            Append(cases.back().result, line, "\n");
        }
    }
    return cases;
}

std::string Joined(const auto& lines) {
    std::string text;
    for (const std::string_view line : lines)
        Append(text, line, "|");
    return text.substr(0, text.size() - 1);
}

/// "12: gone|and gone => come", "12: gone", "12: => come": the lines of each difference.
std::string Difference(const std::string& before, const std::string& after) {
    std::string shown;
    const auto oldLines = LinesOf(before);
    const auto newLines = LinesOf(after);
    for (const auto& [oldBegin, oldEnd, newBegin, newEnd] : LineDifferences(oldLines, newLines)) {
        Append(shown, oldBegin + 1, ":", oldBegin < oldEnd ? " " : "",
               Joined(std::span(oldLines).subspan(oldBegin, oldEnd - oldBegin)), newBegin < newEnd ? " => " : "",
               Joined(std::span(newLines).subspan(newBegin, newEnd - newBegin)), "\n");
    }
    return shown;
}

std::string ResultOf(const Case& test) {
    ProjectModel model = Design();
    UpdateOptions options;
    for (const std::string& step : test.both)
        Take(step, model, options);
    std::string source = GenerateCode(model, {.menu = !options.withoutMenu, .database = !options.withoutDatabase});
    for (const auto& [before, after] : test.changes) {
        EXPECT_NE(source.find(before), std::string::npos) << test.title << ": " << before;
        source = ReplaceAll(source, before, after);
    }
    for (const std::string& step : test.edits)
        Take(step, model, options);
    try {
        const JavaUpdate update = UpdateJava(source, model, options);
        for (const char* const lineEnd : {"\n", "\r"})
            EXPECT_EQ(UpdateJava(ReplaceAll(source, "\r\n", lineEnd), model, options).source,
                      ReplaceAll(update.source, "\r\n", lineEnd))
                << test.title;
        options.renames.clear();
        EXPECT_EQ(UpdateJava(update.source, model, options).source, update.source) << test.title;
        const std::string result = Difference(source, update.source);
        std::vector<std::string> report;
        for (const UpdateEntry& entry : update.entries)
            report.push_back(LineOf(entry));
        return report.empty() ? result : Concatenate(result, Joined(report), "\n");
    } catch (const UpdateRefusal& refusal) {
        return Concatenate(refusal.what(), "\n");
    }
}

TEST(JavaUpdate, ChangesWhatIsPirolsAndKeepsWhatIsThePupils) {
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(PIROL_TEST_DATA) / "update"))
        for (const Case& test : CasesIn(file))
            if (const std::string result = ResultOf(test); result != test.result)
                ADD_FAILURE() << test.title << "\n" << result << "instead of\n" << test.result;
}

TEST(UpdateReport, CountsWhatWasDone) {
    EXPECT_EQ(SummaryOf({}), "");
    EXPECT_EQ(SummaryOf({{UpdateAction::Reported, ""}, {UpdateAction::New, ""}, {UpdateAction::Reported, ""}}),
              "1 neu, 2 gemeldet");
}

} // namespace
} // namespace pirol
