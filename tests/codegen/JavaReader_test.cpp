#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/ImportComparison.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaReader.h"
#include "codegen/JavaTokens.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace pirol {
namespace {

constexpr CodeOptions everything{.menu = true, .database = true};

/// What the design's constructor says, and the report.
std::string Described(const JavaReading& reading) {
    const std::string java = GenerateCode(reading.model, {true, reading.model.Sql().UsesDatabase()});
    const std::size_t begin = java.find("        super(");
    std::string text = ReplaceAll(java.substr(begin, java.find("    }\r\n\r\n", begin) - begin), "\r\n", "\n");
    text = ReplaceAll("\n" + text, "\n        ", "\n").substr(1);
    for (const ReadRemark& remark : reading.remarks)
        text += RemarkLine(remark) + "\n";
    return text;
}

/// tests/data/read/*: SuMAnwendung.java gives expected.txt, which PIROL_WRITE_CASES=1 writes anew.
TEST(JavaReader, Cases) {
    for (const auto& folder : test::CaseFolders("read")) {
        const std::string text = Described(ReadJava(ReadFileBytes(folder / "SuMAnwendung.java")));
        if (std::getenv("PIROL_WRITE_CASES") != nullptr)
            ReplaceFileBytes(folder / "expected.txt", text);
        EXPECT_EQ(text, ReadFileBytes(folder / "expected.txt")) << folder;
    }
}

/// A design of the designer's: valid and distinct names, texts without quotes, backslashes and control characters.
class RandomDesign {
  public:
    explicit RandomDesign(std::uint64_t seed) : engine_(seed) {}

    /// The source as somebody else might lay it out.
    std::string LaidOut(std::string_view source) {
        static constexpr const char* gaps[] = {" ", "\n", "\t", " /* = new Knopf( */ ", "// super(1, 2);\r\n", "\r"};
        std::string text;
        JavaTokenizer tokenizer(source);
        while (const std::optional<JavaToken> token = tokenizer.Next()) {
            const char* quote = token->kind == TokenKind::Text ? "\"" : token->kind == TokenKind::Character ? "'" : "";
            Append(text, quote, token->text, quote,
                   token->kind == TokenKind::Other ? "\n" : gaps[Below(std::size(gaps))]);
        }
        return text;
    }

    ProjectModel Make() {
        ProjectModel model;
        model.SetWindowSize(Number(), Number());
        model.SetAuthor(Text());
        for (int count = Below(40); count > 0; --count) {
            const auto kind = static_cast<ComponentKind>(1 + Below(kindCount));
            const ComponentRef component = model.PlaceComponent(kind, {Place(), Place(), Place(), Place()});
            Fill(model.EditElement(component));
            if (Below(8) == 0)
                model.EditElement(component).Visible = false;
        }
        for (int count = Below(4); count > 0; --count)
            FillMenu(model.EditMenus().Append(Text(), Name()), true);
        SQLSettings& sql = model.EditSql();
        for (const SQLField& field : sqlFields)
            sql.*field.text = Text();
        for (std::int16_t& flag : sql.Flags)
            flag = static_cast<std::int16_t>(Below(3));
        return model;
    }

  private:
    int Below(std::size_t limit) { return static_cast<int>(engine_() % limit); }
    std::int16_t Number() { return static_cast<std::int16_t>(engine_()); }
    int Place() { return Below(2000) - 500; }
    std::string Name() { return "hat" + std::string(Below(2) == 0 ? "Größe" : "X") + std::to_string(++names_); }

    std::string Text() {
        static constexpr const char* pieces[] = {"OK", "Straße ", "a, b",        ");",  "{",    "}", "//",
                                                 "/*", "*/",      "super(1, 2)", " = ", "new ", "€", "@",
                                                 "(",  "'s",      ";",           "%n ", "[0]"};
        std::string text;
        for (int count = Below(4); count > 0; --count)
            text += pieces[Below(std::size(pieces))];
        return text;
    }

    /// Every property by its editor, so that a new one is in the law by itself.
    void Fill(Control& control) {
        for (const PropertyRow& row : control.Table().Rows())
            switch (row.key->editor) {
            case EditorKind::Number:
            case EditorKind::Choice:
                row.set(control, std::to_string(Number()));
                break;
            case EditorKind::Flag:
                row.set(control, FlagText(Below(2) == 0));
                break;
            case EditorKind::Character:
                row.set(control, Below(2) == 0 ? "#" : "€");
                break;
            case EditorKind::List:
                row.set(control, List(control.Kind()));
                break;
            default:
                row.set(control, Text());
            }
        control.ObjectName = Name();
    }

    std::string List(ComponentKind kind) {
        std::vector<cRadioButton> buttons(static_cast<std::size_t>(Below(4)));
        for (cRadioButton& button : buttons)
            button = {Name(), Text(), Place16(), Place16(), Place16(), Place16(), Below(2) == 0};
        std::vector<std::string> texts(static_cast<std::size_t>(Below(4)));
        std::generate(texts.begin(), texts.end(), [this] { return Text() + "."; });
        return kind == ComponentKind::OptionGroup ? JoinRadioButtons(buttons) : JoinList(texts);
    }
    std::int16_t Place16() { return static_cast<std::int16_t>(Place()); }

    void FillMenu(cMenu& menu, bool maySubMenu) {
        for (int count = Below(5); count > 0; --count) {
            const auto type = static_cast<cMenu::Type>(cMenu::SubMenu + Below(3));
            if (type != cMenu::SubMenu || maySubMenu) {
                cMenu* line = menu.AddEntry(Text(), type);
                if (type == cMenu::SubMenu)
                    FillMenu(*line, false);
            }
        }
    }

    std::mt19937_64 engine_;
    int names_ = 0;
};

/// The design as far as its source holds it: what notInJava lists is taken from what was read, the rest by hand.
ProjectModel AsJavaHolds(const ProjectModel& design, const ProjectModel& read) {
    ProjectModel held;
    held.SetWindowSize(design.WindowWidth(), design.WindowHeight());
    held.EditMenus() = design.Menus();
    held.EditSql() = design.Sql();
    for (std::int16_t& flag : held.EditSql().Flags)
        flag = flag != 0 ? 1 : 0;
    design.ForEachVisible([&](const Control& original) {
        const ComponentRef component = held.AddElement(original.Kind());
        Control& control = held.EditElement(component);
        for (const std::vector<PropertyRow>* rows : {&CommonRows(), &original.Table().Rows()})
            for (const PropertyRow& row : *rows)
                row.set(control, row.get(original));
        if (original.Kind() == ComponentKind::OptionGroup) {
            auto& group = static_cast<dOptionsgruppe&>(control);
            for (cRadioButton& button : group.OptionButtons) {
                button.Left = static_cast<std::int16_t>(button.Left + group.Left);
                button.Top = static_cast<std::int16_t>(button.Top + group.Top);
                button.Selected = false;
            }
            group.EventClick = group.EventClick && !group.OptionButtons.empty();
            group.EncloseButtons();
        }
        if (component.index < read.ElementCount(component.kind))
            for (const NotInJava& row : notInJava)
                if (row.kind == component.kind && row.key != keys::optionbuttons.key)
                    FindRow(control, row.key)->set(control, FindRow(control, row.key)->get(read.Element(component)));
    });
    return held;
}

/// PIROL_RANDOM_DESIGNS says how many; 200 when it does not.
TEST(JavaReader, GivesGeneratedDesignsBack) {
    const char* wanted = std::getenv("PIROL_RANDOM_DESIGNS");
    const int designs = wanted != nullptr ? std::atoi(wanted) : 200;
    ASSERT_GT(designs, 0);
    for (int seed = 1; seed <= designs && !HasFailure(); ++seed) {
        RandomDesign random(static_cast<std::uint64_t>(seed));
        const ProjectModel design = random.Make();
        const std::string source = GenerateCode(design, everything);
        const JavaReading reading = ReadJava(seed % 2 == 0 ? ToWindows1252(source) : source);
        EXPECT_EQ(ToWindows1252(GenerateCode(reading.model, everything)), ToWindows1252(source)) << "seed " << seed;
        EXPECT_TRUE(reading.model == AsJavaHolds(design, reading.model)) << "seed " << seed;
        EXPECT_TRUE(ReadJava(random.LaidOut(source)).model == reading.model) << "seed " << seed;
        for (const ReadRemark& remark : reading.remarks)
            EXPECT_EQ(remark.line, 0U) << "seed " << seed << ": " << RemarkLine(remark);
    }
}

/// The statements of a constructor, or a whole source.
std::string SourceOf(const std::string& java) {
    return java.starts_with("class ")
               ? java
               : "class SuMAnwendung extends EBAnwendung { SuMAnwendung() { super(1, 2); " + java + " }}";
}

/// What the constructor says behind super(1, 2), the database's methods and the report, lines divided by "/".
std::string Summary(const std::string& java) {
    constexpr std::string_view usual = "super(1, 2); / ";
    JavaReading reading = ReadJava(SourceOf(java));
    std::erase_if(reading.remarks, [](const ReadRemark& remark) { return remark.line == 0; });
    std::string lines = Described(reading);
    for (std::size_t i = 0; i < sqlFunctionCount; ++i)
        lines += reading.model.Sql().HasFunction(i) ? "method " + std::to_string(i) + "\n" : "";
    lines = ReplaceAll(lines, "\n", " / ");
    lines.erase(0, lines.starts_with(usual) ? usual.size() : 0);
    return lines.substr(0, lines.rfind(" / "));
}

TEST(JavaReader, ReadsStatements) {
    const auto rule = [](const test::TableRow& row) { return test::Answer(Summary(row[0])); };
    EXPECT_EQ(test::Deviations("java-statements", rule), "");
}

TEST(JavaReader, WhatIsTooLargeKeepsTheRest) {
    const auto times = [](std::size_t count, std::string_view text) {
        return ReplaceAll(std::string(count, '#'), "#", text);
    };
    const std::string text = times(65535, "t");
    const std::string longName = times(1001, "n");
    const std::string longest = times(1000, "m");
    const std::string shortName = times(500, "n");
    const std::string button = "new Knopf(1, 2, 3, 4, \"x\");";
    const struct {
        std::string java;
        std::string end; ///< of the summary
    } cases[] = {
        {"} class H { void f() {" + times(1500, "{ ") + times(1500, "}") + "} Knopf k = " + button,
         "Zeile 1: Knopf »k«: nicht gelesen, weil die Klasse »H« nicht das Fenster ist."},
        {"x = " + times(140'000, "1+") + button + " k = " + button,
         "k = " + button + " / Zeile 1: Die Anweisung ist zu lang und wird nicht ganz gelesen."},
    };
    for (const auto& [java, end] : cases)
        EXPECT_TRUE(Summary(java).ends_with(end)) << end;
    const std::string caption = "k = new Knopf(1, 2, 3, 4, \"";
    EXPECT_EQ(Summary(caption + text + "\");"), caption + text + "\");");
    EXPECT_EQ(Summary(caption + text + "\" + \"t\");"),
              caption + "Knopf\"); / Zeile 1: Knopf »k«, Beschriftung: Der Wert ist nicht zu lesen.");
    const ProjectModel tables = ReadJava(times(31, "t = new Tabelle(1, 2, 3, 4, 5, 32767); ")).model;
    for (const auto& [index, columns] : {std::pair(30U, 32767U), {31U, 3U}})
        EXPECT_EQ(static_cast<const dTabelle&>(tables.Element({ComponentKind::Table, index})).Columns.size(), columns);
    for (const int count : {15, 16}) { // classes, each on the next one
        std::string classes;
        for (int i = 1; i <= count; ++i)
            classes += "class K" + std::to_string(i) + " extends " +
                       (i == count ? "Knopf" : "K" + std::to_string(i + 1)) + " { } ";
        const std::string own = Summary("class SuMAnwendung extends EBAnwendung { K1 k = new K1(1); } " + classes);
        EXPECT_EQ(own.find("K1 »k«: nicht gelesen") != std::string::npos, count == 15) << own;
    }
    const std::vector<ReadRemark> remarks = ReadJava(SourceOf("k = " + button + times(1500, "k.f(); "))).remarks;
    EXPECT_EQ(remarks.size(), 1000U);
    EXPECT_NE(remarks[998].text, remarks.back().text);
    EXPECT_EQ(RemarkLine(remarks.back()), "Weitere Bemerkungen werden nicht gezeigt.");
    const ProjectModel named =
        ReadJava(longName + " = " + button + shortName + " = " + button + longest + " = " + button).model;
    EXPECT_EQ(named.Element({ComponentKind::Button, 1}).ObjectName, shortName + "2");
    EXPECT_EQ(named.Element({ComponentKind::Button, 2}).ObjectName, shortName);
    EXPECT_EQ(named.Element({ComponentKind::Button, 3}).ObjectName, longest);
}

TEST(JavaReader, CalculatesNumbers) {
    const auto rule = [](const test::TableRow& row) {
        const JavaReading reading =
            ReadJava(SourceOf("k = new Knopf(" + row[1] + ", 0, 0, 0, \"\"); } " + row[0] + " void f() {"));
        const bool isRead = reading.model.ElementCount(ComponentKind::Button) == 2;
        return test::Answer(isRead ? std::to_string(reading.model.Element({ComponentKind::Button, 1}).Left) : "none");
    };
    EXPECT_EQ(test::Deviations("java-expressions", rule), "");
}

TEST(JavaReader, TheQuestionCountsWhatTheSimpleImportLacks) {
    for (const test::TableRow& row : test::Table("import-questions")) {
        const std::string source = SourceOf(row[0]);
        ProjectModel simple;
        AnalyseCode(source, simple);
        EXPECT_EQ(QuestionForAll(simple, ReadJava(source).model), row[1]) << row.line;
    }
}

TEST(JavaReader, SourcesMadeToEatTimeAndMemoryEnd) {
    for (const char* piece :
         {"{", "f(", "-", "x = {{", "new Knopf(", "a.setzeInhalt(", "\"\"\"\n", "/*", "g.fuegeEin(r);",
          "m = m.neuesUntermenue(\"\");", "t = new Tabelle(0, 0, 0, 0, 1, 32767);", "class A extends A {",
          "int a(int b,", "void a() {", "x[1].", "    public void a/*()", "g = new Radiogruppe();", "\xFF\0\1'",
          "new Ton();"}) {
        std::string source =
            "super(1, 2); g = new Radiogruppe(); a = new Etikett(1, 2, 3, 4, \"\"); m = new Menue(\"\");"
            "r = new Radioknopf(-32768, 0, 0, 0, \"\"); super(";
        for (int count = 0; count < 20000; ++count)
            source += piece;
        const JavaReading reading = ReadJava(source);
        EXPECT_TRUE(reading.hasWindowSize) << piece;
        EXPECT_LE(reading.remarks.size(), 1000U) << piece;
        EXPECT_GE(reading.model.ElementCount(ComponentKind::Label), 2U) << piece;
    }
    EXPECT_FALSE(ReadJava("Kein Java { new Foo(1, 2, 3, 4); }").FoundAnything());
}

} // namespace
} // namespace pirol
