// What holds for every update, tried on random designs, edits and pupils' lines. ctest takes a sample; all of it:
//   PIROL_UPDATE_PAIRS=10000 build/release/tests/core-tests --gtest_filter='JavaUpdateLaws.*'
// PIROL_UPDATE_SEED begins with another pair; a failure names its own. That an update leaves what compiles compiling is
// tried by tests/java/update_compiles.py with the sources written here.

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/JavaUpdate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <set>

namespace pirol {
namespace {

constexpr std::string_view texts[] = {
    "",       "OK",         "Größe: 5 €", "a, b",         "// kein Kommentar", "/* auch nicht",
    "x); y",  "{",          "}",          "super(1, 2);", "Ä ö ü ß",           "eins  zwei",
    "import", "new Knopf(", "*/"};
constexpr std::string_view files[] = {"", "bild.gif", "C:\\Bilder\\Übung.jpg"};

class Dice {
  public:
    explicit Dice(unsigned seed) : random_(seed) {}
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <class List>
    const auto& OneOf(const List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
    }
    int Number() { return ++number_; }

  private:
    std::mt19937 random_;
    int number_ = 0; // makes names that nothing else has
};

std::string NewName(Dice& dice, std::string_view prefix) {
    return Concatenate(prefix, dice.Chance(10) ? "Übung" : "", dice.Number());
}

std::string ListOf(Dice& dice, bool buttons) {
    std::vector<std::string> items(static_cast<std::size_t>(dice.Below(4)));
    std::vector<cRadioButton> rows(items.size());
    for (std::string& item : items)
        item = dice.OneOf(texts).empty() ? "leer" : dice.OneOf(texts);
    std::erase(items, "");
    for (cRadioButton& row : rows)
        row = {NewName(dice, "hatRadioKnopf"),
               std::string(dice.OneOf(texts)),
               100,
               20,
               static_cast<std::int16_t>(dice.Below(50)),
               7,
               false};
    return buttons ? JoinRadioButtons(rows) : JoinList(items);
}

void ChangeProperty(Dice& dice, Control& element, const PropertyRow& row) {
    switch (row.key->editor) {
    case EditorKind::Flag:
        return row.set(element, FlagText(dice.Chance(50)));
    case EditorKind::Number:
    case EditorKind::Choice:
        return row.set(element, std::to_string(dice.Below(3) * 4 - 2));
    case EditorKind::Character:
        return row.set(element, dice.Chance(50) ? "*" : "ß");
    case EditorKind::File:
        return row.set(element, dice.OneOf(files));
    case EditorKind::List:
        return row.set(element, ListOf(dice, row.key->key == keys::optionbuttons.key));
    case EditorKind::Text:
        return row.set(element, dice.OneOf(texts));
    }
}

void Place(Dice& dice, ProjectModel& model) {
    const KindRow& kind = dice.OneOf(KindRows());
    Control& element =
        model.EditElement(model.PlaceComponent(kind.kind, {dice.Below(600), dice.Below(400) - 9, 90, 30}));
    element.ObjectName = NewName(dice, kind.namePrefix);
    for (const PropertyRow& row : element.Table().Rows())
        if (dice.Chance(60))
            ChangeProperty(dice, element, row);
}

/// Menus and entries of a small stock, so that many are in both designs.
void ChangeMenus(Dice& dice, MenuBar& bar) {
    bar = {};
    for (int number = 0; number < dice.Below(4); ++number) {
        const std::string name =
            Concatenate("hatMenue", std::string_view("ABCD").substr(static_cast<std::size_t>(number), 1));
        cMenu& menu = bar.Append(std::string(dice.OneOf(texts)), name);
        cMenu* parent = &menu;
        for (int entry = 0; entry < 6; ++entry) {
            if (dice.Chance(20))
                parent->AddEntry({}, cMenu::Separator);
            if (dice.Chance(60))
                parent->AddEntry(Concatenate("Öffnen ", (entry * 5 + number) % 6, " ..."), cMenu::Entry);
            if (dice.Chance(20))
                parent = dice.Chance(50) ? &menu : menu.AddEntry(std::string(dice.OneOf(texts)), cMenu::SubMenu);
        }
    }
}

void ChangeSql(Dice& dice, SQLSettings& sql) {
    for (const SQLField& field : sqlFields)
        if (dice.Chance(50))
            sql.*field.text = dice.OneOf(texts);
    for (std::int16_t& flag : sql.Flags)
        flag = static_cast<std::int16_t>(dice.Below(2));
}

std::vector<ComponentRef> Visible(const ProjectModel& model) {
    std::vector<ComponentRef> visible;
    for (const ComponentRef component : model.CreationOrder())
        if (model.Element(component).Visible)
            visible.push_back(component);
    return visible;
}

void Edit(Dice& dice, ProjectModel& model) {
    const std::vector<ComponentRef> visible = Visible(model);
    const int what = dice.Below(9);
    if (what == 0)
        return ChangeMenus(dice, model.EditMenus());
    if (what == 1)
        return ChangeSql(dice, model.EditSql());
    if (what == 2)
        return model.SetWindowSize(static_cast<std::int16_t>(dice.Below(900)), 480);
    if (what <= 4 || visible.empty())
        return Place(dice, model);
    const ComponentRef component = dice.OneOf(visible);
    if (what == 5)
        return model.DeleteComponent(component);
    Control& element = model.EditElement(component);
    Control& other = model.EditElement(dice.OneOf(visible));
    if (what == 6)
        dice.Chance(40) ? std::swap(element.ObjectName, other.ObjectName)
                        : static_cast<void>(element.ObjectName = NewName(dice, "hatDing"));
    else if (what == 7)
        element.Left = static_cast<std::int16_t>(dice.Below(600));
    else
        for (const PropertyRow& row : element.Table().Rows())
            if (dice.Chance(50))
                ChangeProperty(dice, element, row);
}

ProjectModel Edited(Dice& dice, ProjectModel model, int edits) {
    while (edits-- > 0)
        Edit(dice, model);
    return model;
}

/// What pupils write: @ becomes a number, so that every line can be told from all others; $ a component's name.
constexpr std::string_view wholeLines[] = {
    "    private int zaehler@ = 0;",
    "    Knopf eigenerKnopf@; // @",
    "        // Kommentar @ zu $",
    "        $.setzeFarbe(@);",
    "\t\tint tab@ = 3;",
    "import java.util.List; // @",
    "    public void eigene@()\n    { // @\n        $.verstecke(@); /* x */\n    } // @",
    "    /** Doku @\n     * zu $ @\n     */ // @",
    "    public int zahl@(int a) { return a; }",
    "        for (int i = 0; i < @; i++) { tue(i); }",
    "        System.out.println(\"$ } @\");",
    "        ende(); // @",
};
constexpr std::string_view brokenLines[] = {
    "        if (x > @) {",
    "        } // @",
    "        String s@ = \"offen;",
    "        /* offen @",
    "        foo@(",
    "        int halb@ =",
    "    public void neu@()",
    "        char c@ = 'x;",
    "    private // @",
    "        $ = // @",
    "        $.",
};

using Lines = std::vector<std::string>;

Lines LinesOf(std::string_view text) {
    Lines lines;
    for (const std::string_view line : Split(text, '\n'))
        lines.emplace_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    return lines;
}

/// The source with pupils' lines at random places, and these lines.
std::string WithPupilsLines(Dice& dice, const std::string& source, const ProjectModel& model, bool broken, Lines& own) {
    Lines lines = LinesOf(source);
    Lines mixed;
    std::set<std::size_t> places;
    for (int count = 1 + dice.Below(8); count > 0; --count)
        places.insert(static_cast<std::size_t>(dice.Below(static_cast<int>(lines.size()))));
    const std::vector<ComponentRef> visible = Visible(model);
    bool inConstructor = false;
    for (std::size_t place = 0; place < lines.size(); ++place) {
        inConstructor = inConstructor ? lines[place] != "    }" : lines[place] == "    public SuMAnwendung()";
        for (int count = places.contains(place) ? 1 + dice.Below(3) : 0; count > 0; --count) {
            std::string text(broken && dice.Chance(50) ? dice.OneOf(brokenLines) : dice.OneOf(wholeLines));
            // Where braces do not match, nobody could tell a method within the constructor from one behind it.
            if (broken && inConstructor && text.find("public") != std::string::npos)
                text = "        weiter(@);";
            text = ReplaceAll(text, "$", visible.empty() ? "hatNichts" : model.Element(dice.OneOf(visible)).ObjectName);
            for (std::string& line : LinesOf(text)) {
                line = line.find('@') == std::string::npos ? line + Concatenate(" //", dice.Number())
                                                           : ReplaceAll(line, "@", std::to_string(dice.Number()));
                own.push_back(line);
                mixed.push_back(line);
            }
        }
        mixed.push_back(lines[place]);
    }
    std::string text;
    for (const std::string& line : mixed)
        text += (&line == &mixed.front() ? "" : "\r\n") + line;
    return text;
}

bool IsLetter(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_' ||
           (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

bool Mentions(std::string_view line, std::string_view name) {
    for (std::size_t hit = line.find(name); hit != std::string_view::npos; hit = line.find(name, hit + 1))
        if ((hit == 0 || !IsLetter(line[hit - 1])) &&
            (hit + name.size() >= line.size() || !IsLetter(line[hit + name.size()])))
            return true;
    return false;
}

std::set<std::string> NamesOf(const ProjectModel& model) {
    std::set<std::string> names;
    model.ForEachVisible([&names](const Control& control) {
        names.insert(control.ObjectName);
        if (control.Kind() == ComponentKind::OptionGroup)
            for (const cRadioButton& row : static_cast<const dOptionsgruppe&>(control).OptionButtons)
                names.insert(row.Name);
    });
    return names;
}

/// The lines that are not the pupil's and not empty, up to the constructor's last statement.
Lines PirolsLines(const std::string& source, const std::set<std::string>& own) {
    Lines ours;
    bool inConstructor = false;
    for (const std::string& line : LinesOf(source)) {
        if (own.contains(line) || line.empty())
            continue;
        inConstructor |= line.starts_with("    public SuMAnwendung()");
        if (inConstructor && line == "    }")
            break;
        ours.push_back(line);
    }
    return ours;
}

/// Tells the first lines that differ, and where from.
testing::AssertionResult Same(const Lines& actual, const Lines& expected, std::string_view origin) {
    const auto [left, right] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
    if (left == actual.end() && right == expected.end())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << Concatenate(
               "line ", left - actual.begin() + 1, ": ", left == actual.end() ? "(end)" : *left,
               "\ninstead of: ", right == expected.end() ? "(end)" : *right, "\nfrom:\n", origin);
}

testing::AssertionResult Same(const std::string& actual, const std::string& expected, std::string_view origin) {
    if (actual == expected)
        return testing::AssertionSuccess();
    return Same(LinesOf(actual), LinesOf(expected), origin) << "\n=>\n" << actual;
}

struct Pair {
    ProjectModel a, b;
    CodeOptions marks; // of a
    UpdateOptions options;
    std::string expected;
};

Pair RandomPair(Dice& dice) {
    Pair pair;
    pair.a = Edited(dice, {}, 4 + dice.Below(20));
    pair.b = dice.Chance(5) ? Edited(dice, {}, 12) : Edited(dice, pair.a, 1 + dice.Below(8));
    pair.marks = {dice.Chance(50), dice.Chance(50)};
    pair.options.marks = {dice.Chance(50), dice.Chance(50)};
    pair.options.withoutMenu = dice.Chance(15);
    pair.options.withoutDatabase = dice.Chance(15);
    const CodeOptions marks{!pair.options.withoutMenu && (pair.marks.menu || pair.options.marks.menu),
                            !pair.options.withoutDatabase && (pair.marks.database || pair.options.marks.database)};
    pair.expected = GenerateCode(pair.b, marks);
    return pair;
}

/// What a pupil's own layout makes of the generator's, piece by piece.
constexpr std::pair<std::string_view, std::string_view> layout[] = {
    {" = new ", " =\r\n            new "}, {"\");\r\n", "\" ) ;\r\n"}, {"()\r\n    {\r\n", "() {\r\n"}};

std::string LaidOut(std::string source) {
    for (const auto& [before, after] : layout)
        source = ReplaceAll(source, before, after);
    return source;
}

std::string LaidBack(std::string source) {
    for (const auto& [before, after] : layout)
        source = ReplaceAll(source, after, before);
    return source;
}

void CheckPure(const Pair& pair, const std::string& source) {
    ASSERT_TRUE(Same(UpdateJava(source, pair.a, {}).source, source, "itself"));
    ASSERT_TRUE(Same(UpdateJava(source, pair.b, pair.options).source, pair.expected, source));
    const std::string feeds = ReplaceAll(source, "\r\n", "\n");
    ASSERT_EQ(UpdateJava(feeds, pair.b, pair.options).source, ReplaceAll(pair.expected, "\r\n", "\n"));
    const std::string laidOut = LaidOut(source);
    ASSERT_TRUE(Same(LaidBack(UpdateJava(laidOut, pair.b, pair.options).source), pair.expected, laidOut));
    for (const std::string& unchanged : {source, feeds, laidOut})
        for (const UpdateEntry& entry : UpdateJava(unchanged, pair.a, {}).entries)
            ADD_FAILURE() << "nothing to do: " << WordOf(entry.action) << ": " << entry.text;
}

void CheckPupils(Dice& dice, const Pair& pair, const std::string& source, bool broken) {
    Lines own;
    const std::string mixed = WithPupilsLines(dice, source, pair.a, broken, own);
    const std::set<std::string> isOwn(own.begin(), own.end());
    try {
        ASSERT_TRUE(Same(UpdateJava(mixed, pair.a, {}).source, mixed, "itself"));
        const std::string updated = UpdateJava(mixed, pair.b, pair.options).source;
        Lines left;
        for (const std::string& line : LinesOf(updated))
            if (isOwn.contains(line))
                left.push_back(line);
        ASSERT_TRUE(Same(left, own, mixed)) << updated;
        ASSERT_TRUE(Same(UpdateJava(updated, pair.b, pair.options).source, updated, mixed));
        ASSERT_TRUE(Same(PirolsLines(LaidBack(updated), isOwn), PirolsLines(pair.expected, isOwn), mixed)) << updated;
        const std::set<std::string> names = NamesOf(pair.b);
        for (const std::string& name : NamesOf(pair.a)) {
            if (names.contains(name))
                continue;
            for (const std::string& line : LinesOf(updated))
                ASSERT_FALSE(!isOwn.contains(line) && Mentions(line, name)) << name << "\n"
                                                                            << mixed << "\n=>\n"
                                                                            << updated;
        }
    } catch (const UpdateRefusal& refusal) {
        FAIL() << refusal.what() << "\n" << mixed;
    }
}

unsigned FromEnvironment(const char* name, unsigned otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : static_cast<unsigned>(std::stoul(text));
}

TEST(JavaUpdateLaws, HoldForRandomPairs) {
    const unsigned seed = FromEnvironment("PIROL_UPDATE_SEED", 1);
    for (unsigned pairNumber = seed; pairNumber < seed + FromEnvironment("PIROL_UPDATE_PAIRS", 200); ++pairNumber) {
        SCOPED_TRACE(Concatenate("PIROL_UPDATE_SEED=", pairNumber));
        Dice dice(pairNumber);
        const Pair pair = RandomPair(dice);
        const std::string source = GenerateCode(pair.a, pair.marks);
        CheckPure(pair, source);
        CheckPupils(dice, pair, source, pairNumber % 2 == 0);
        CheckPupils(dice, pair, ReplaceAll(source, layout[1].first, layout[1].second), pairNumber % 2 == 0);
        if (testing::Test::HasFailure())
            return;
    }
}

// --- sources for the compiler ---

/// What pupils write that compiles where it stands, as above.
constexpr std::string_view importLines[] = {"import java.util.List; // @", "// Import @"};
constexpr std::string_view memberLines[] = {
    "    private int zaehler@ = 0;",
    "    public int zahl@(int a) { return a + @; }",
    "    public void eigene@()\n    { // @\n        System.out.println($); /* x */\n    } // @",
    "    class Innen@ { int wert@ = @; }",
    "    /** Doku @ zu $ */",
};
constexpr std::string_view statementLines[] = {
    "        int lokal@ = 1 + @;",
    "        // Kommentar @ zu $",
    "        System.out.println(\"$ } @\");",
    "        for (int i@ = 0; i@ < 3; i@++) { System.out.println(i@); }",
    "        if ($ != null) { System.out.println($); } // @",
};

/// The source with lines that leave it compiling; names are those that they may speak of.
std::string WithCompilingLines(Dice& dice, const std::string& source, const std::vector<std::string>& names) {
    std::string text;
    const auto add = [&](const auto& stock) {
        const std::string line =
            ReplaceAll(dice.OneOf(stock), "$", names.empty() ? std::string("this") : dice.OneOf(names));
        const std::string numbered = ReplaceAll(line, "@", std::to_string(dice.Number()));
        Append(text, ReplaceAll(numbered, "\n", "\r\n"), "\r\n");
    };
    bool inClass = false;
    bool inConstructor = false;
    bool behind = false;
    for (const std::string& line : LinesOf(source)) {
        Append(text, line, line == "}" ? "" : "\r\n");
        inClass |= line.starts_with("public class");
        inConstructor |= line == "    public SuMAnwendung()";
        if (inConstructor && line == "    }") {
            inConstructor = false;
            behind = true;
        }
        if (!dice.Chance(12))
            continue;
        if (!inClass)
            add(importLines);
        else if (inConstructor && line.starts_with("        ") && line.ends_with(");"))
            add(statementLines);
        else if (behind && line == "    {")
            add(statementLines);
        else if (inClass && !inConstructor && (behind ? line.empty() : line.ends_with(";")))
            add(memberLines);
    }
    return text;
}

/// Writes random pairs for tests/java/update_compiles.py, which has a compiler: below PIROL_UPDATE_FOLDER a folder for
/// each, with a pupil's source, what the update makes of it, and the second design's own source.
TEST(JavaUpdateLaws, WritesSourcesForTheCompiler) {
    const char* const folder = std::getenv("PIROL_UPDATE_FOLDER");
    if (folder == nullptr)
        GTEST_SKIP() << "only where there is a compiler";
    const unsigned seed = FromEnvironment("PIROL_UPDATE_SEED", 1);
    for (unsigned number = seed; number < seed + FromEnvironment("PIROL_UPDATE_PAIRS", 200); ++number) {
        Dice dice(number);
        const Pair pair = RandomPair(dice);
        std::vector<std::string> both;
        const std::set<std::string> names = NamesOf(pair.b);
        for (const std::string& name : NamesOf(pair.a))
            if (names.contains(name))
                both.push_back(name);
        const std::string mixed = WithCompilingLines(dice, GenerateCode(pair.a, pair.marks), both);
        const std::pair<const char*, std::string> sources[] = {
            {"before", mixed}, {"after", UpdateJava(mixed, pair.b, pair.options).source}, {"own", pair.expected}};
        for (const auto& [name, source] : sources) {
            const auto place = std::filesystem::path(folder) / std::to_string(number) / name;
            std::filesystem::create_directories(place);
            ReplaceFileBytes(place / "SuMAnwendung.java", ToWindows1252(source));
        }
    }
}

} // namespace
} // namespace pirol
