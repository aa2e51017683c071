#include "codegen/Hints.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/PictureHead.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/JavaSyntax.h"
#include "sql/SQLModule.h"

#include <algorithm>
#include <unordered_set>

namespace pirol {
namespace {

namespace fs = std::filesystem;

using enum HintEffect;

// clang-format off
constexpr HintRule rules[] = {
    {"duplicate-name",      "Name doppelt",                 DoesNotCompile, "Den Namen »#« gibt es im Programm schon."},
    {"invalid-name",        "Kein Java-Name",               DoesNotCompile, "»#« ist kein Java-Name. Erlaubt sind Buchstaben, Ziffern und _, am Anfang keine Ziffer."},
    {"keyword-name",        "Schlüsselwort als Name",       DoesNotCompile, "»#« ist ein Schlüsselwort von Java."},
    {"duplicate-method",    "Ereignismethode doppelt",      DoesNotCompile, "Die Ereignismethode »#()« gibt es im Programm schon."},
    {"invalid-method",      "Kein Name für eine Methode",   DoesNotCompile, "Aus der Beschriftung wird »#«, und das ist kein Name einer Ereignismethode."},
    {"unescaped-quote",     "Anführungszeichen im Text",    DoesNotCompile, "Ein Anführungszeichen muss hier \\\" geschrieben werden."},
    {"unescaped-backslash", "Umgekehrter Schrägstrich",     DoesNotCompile, "Ein umgekehrter Schrägstrich muss hier \\\\ geschrieben werden."},
    {"line-break",          "Zeilenumbruch im Text",        DoesNotCompile, "Ein Zeilenumbruch muss hier \\n geschrieben werden."},
    {"bad-file-name",       "Unmöglicher Dateiname",        DoesNotCompile, "Ein Dateiname mit Anführungszeichen oder Zeilenumbruch ist in Java nicht möglich."},
    {"control-character",   "Steuerzeichen im Text",        DoesNotCompile, "Ein unsichtbares Steuerzeichen im Text kann Java nicht lesen."},
    {"text-too-long",       "Text zu lang",                 DoesNotCompile, "Der Text ist länger, als Java es zulässt."},
    {"password-character",  "Unmögliches Passwortzeichen",  DoesNotCompile, "Als Passwortzeichen geht genau ein Zeichen, aber nicht ' und nicht \\."},
    {"nested-submenu",      "Untermenü im Untermenü",       DoesNotCompile, "Ein Untermenü kann nicht in einem Untermenü liegen."},
    {"missing-server",      "Server fehlt",                 DoesNotCompile, "Ohne Server fehlt dem Programm die Klasse Datenbank."},
    {"not-generated",       "Programm nicht erzeugt",       DoesNotCompile, "Das Programm lässt sich nicht erzeugen: #."},
    {"program-too-large",   "Zu viele Komponenten",         DoesNotCompile, "Java übersetzt höchstens 64 KB Anweisungen für ein Fenster; es hat zu viele Komponenten."},
    {"unknown-character",   "Unbekanntes Zeichen",          WorksWrongly,   "Das Zeichen »#« gibt es in Windows-1252 nicht; das Programm zeigt dafür »?«."},
    {"outside-window",      "Außerhalb des Fensters",       WorksWrongly,   "#"},
    {"under-menu-bar",      "Unter der Menüleiste",         WorksWrongly,   "# in den 19 Pixeln, um die die Menüleiste das Fenster unten kürzt."},
    {"picture-size",        "Größe des Bildes",             WorksWrongly,   "Das Programm zeigt das Bild in seiner eigenen Größe #."},
    {"no-size",             "Ohne Größe",                   WorksWrongly,   "Mit der Größe # ist nichts zu sehen."},
    {"bad-value",           "Unmöglicher Wert",             WorksWrongly,   "#"},
    {"missing-caption",     "Beschriftung fehlt",           WorksWrongly,   "Die Beschriftung fehlt."},
    {"empty-group",         "Leere Radiogruppe",            WorksWrongly,   "Die Radiogruppe hat keine Radioknöpfe."},
    {"no-file",             "Keine Datei gewählt",          WorksWrongly,   "Es ist keine Datei gewählt."},
    {"missing-file",        "Datei fehlt",                  WorksWrongly,   "Die Datei »#« gibt es nicht."},
    {"missing-table",       "Name der Tabelle fehlt",       WorksWrongly,   "Ohne den Namen einer Tabelle ist die Abfrage unvollständig."},
    {"lost-menu-line",      "Verlorene Menüzeile",          WorksWrongly,   "Die Menüzeile liegt in keinem Menü und fehlt im Programm."},
};
// clang-format on

/// The rule of a key. A key that is not in the table does not compile.
consteval const HintRule& Rule(std::string_view key) {
    for (const HintRule& rule : rules)
        if (rule.key == key)
            return rule;
    throw "no such rule";
}

/// A name that the program has before the design adds any.
struct OwnName {
    std::string_view name;
    bool CodeOptions::*option; ///< with which option; null: always
};

constexpr OwnName ownFields[] = {
    {"hatMenueTemp", &CodeOptions::menu},
    {"hatDatenbank", &CodeOptions::database},
    {"hatErgebnisliste", &CodeOptions::database},
    {"System", &CodeOptions::database}, // a field of this name would hide the class that prints the connection's error
};

/// Behind the database's own method come those that every Java object has and that no handler can replace.
constexpr OwnName ownMethods[] = {
    {"VerbindeMitDatenbank", &CodeOptions::database},
    {"clone", nullptr},
    {"finalize", nullptr},
    {"getClass", nullptr},
    {"hashCode", nullptr},
    {"notify", nullptr},
    {"notifyAll", nullptr},
    {"toString", nullptr},
    {"wait", nullptr},
};

/// A number that the library's class cannot work with.
struct ValueCheck {
    ComponentKind kind;
    const PropertyKey& property;
    bool (*isRight)(const Control&);
    std::string_view message;
};

template <class Kind, bool (*isRight)(const Kind&)>
constexpr bool IsRight(const Control& control) {
    return isRight(static_cast<const Kind&>(control));
}

constexpr bool HasAlignment(const dEtikett& label) {
    return label.Align >= 0 && label.Align <= 2;
}
constexpr bool HasFontSize(const dEtikett& label) {
    return label.FontSize >= 1;
}
constexpr bool HasStart(const dRegler& slider) {
    return slider.Min <= slider.Value && slider.Value <= slider.Max;
}
constexpr bool HasRange(const dFortschritt& bar) {
    return bar.Min <= bar.Max;
}
constexpr bool HasRows(const dTabelle& table) {
    return table.Rows >= 0;
}

constexpr ValueCheck valueChecks[] = {
    {ComponentKind::Label, keys::align, IsRight<dEtikett, HasAlignment>, "Die Ausrichtung muss 0, 1 oder 2 sein."},
    {ComponentKind::Label, keys::fontsize, IsRight<dEtikett, HasFontSize>, "Die Schriftgröße muss mindestens 1 sein."},
    {ComponentKind::Slider, keys::currentvalue, IsRight<dRegler, HasStart>,
     "Der Anfangswert muss zwischen Minimum und Maximum liegen."},
    {ComponentKind::ProgressBar, keys::min, IsRight<dFortschritt, HasRange>,
     "Das Minimum darf nicht größer als das Maximum sein."},
    {ComponentKind::Table, keys::rows, IsRight<dTabelle, HasRows>, "Die Zahl der Zeilen darf nicht negativ sein."},
};

/// A side of the window over which something reaches, and the property that puts it back.
struct SideCheck {
    bool (*isBeyond)(const Rectangle& box, const Rectangle& window);
    const PropertyKey& property;
    std::string_view message;
};

constexpr SideCheck sideChecks[] = {
    {[](const Rectangle& box, const Rectangle&) { return box.left < 0; }, keys::left, "Ragt links aus dem Fenster."},
    {[](const Rectangle& box, const Rectangle&) { return box.top < 0; }, keys::top, "Ragt oben aus dem Fenster."},
    {[](const Rectangle& box, const Rectangle& window) { return box.Right() > window.width && box.left == 0; },
     keys::width, "Ist breiter als das Fenster."},
    {[](const Rectangle& box, const Rectangle& window) { return box.Right() > window.width; }, keys::left,
     "Ragt rechts aus dem Fenster."},
    {[](const Rectangle& box, const Rectangle& window) { return box.Bottom() > window.height && box.top == 0; },
     keys::height, "Ist höher als das Fenster."},
    {[](const Rectangle& box, const Rectangle& window) { return box.Bottom() > window.height; }, keys::top,
     "Ragt unten aus dem Fenster."},
};

/// A check of a text that will stand between two double quotes.
struct LiteralCheck {
    const HintRule& rule;
    bool LiteralText::*flaw;
};

constexpr LiteralCheck literalChecks[] = {
    {Rule("unescaped-quote"), &LiteralText::hasQuote},
    {Rule("unescaped-backslash"), &LiteralText::hasBackslash},
    {Rule("line-break"), &LiteralText::hasLineBreak},
};

/// The components whose rectangle can be seen in the running program.
constexpr bool ShowsItsBox(ComponentKind kind) {
    return kind != ComponentKind::OptionGroup && kind != ComponentKind::Sound && kind != ComponentKind::Movie;
}

/// The codes that Windows-1252 leaves undefined. Files hold them; the Java compiler does not read them.
constexpr std::string_view undefinedCodes = "\x81\x8D\x8F\x90\x9D";

/// The generator may write so much around a text in one literal or name.
constexpr std::size_t roomAroundTexts = 100;

/// The constructor's instructions besides the statements that the design gives it.
constexpr std::size_t ownConstructorBytes = 12;

/// A character outside ASCII, and how the generated file holds it.
struct WideCharacter {
    std::string_view text;
    char encoded;
};

/// Calls `function(WideCharacter)` for every character outside ASCII.
template <class Function>
void ForEachWideCharacter(std::string_view text, Function&& function) {
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin + 1;
        while (end < text.size() && !BeginsCharacter(text[end]))
            ++end;
        const std::string_view character = text.substr(begin, end - begin);
        if ((character.front() & '\x80') != 0)
            function(WideCharacter{character, ToWindows1252(std::string(character)).front()});
        begin = end;
    }
}

/// Where in the design something comes from.
struct Place {
    HintSubject subject;
    ComponentRef component = {};
    const Control* control = nullptr;
    const PropertyKey* property = nullptr;
    std::size_t row = 0;        ///< of a list property, from 1
    std::string_view what = {}; ///< of a menu line: what it is; of the database: which setting
    std::string_view name = {}; ///< of a menu line

    Place At(const PropertyKey& key, std::size_t listRow = 0) const {
        Place place = *this;
        place.property = &key;
        place.row = listRow;
        return place;
    }
};

std::string PlaceText(const Place& place) {
    switch (place.subject) {
    case HintSubject::Program:
        return "Programm";
    case HintSubject::Window:
        return "Fenster";
    case HintSubject::MenuBar:
        return Concatenate(place.what, " »", Excerpt(place.name), "«");
    case HintSubject::Database:
        return Concatenate("Datenbank, ", place.what);
    case HintSubject::Component:
        break;
    }
    std::string text =
        Concatenate(RowOf(place.component.kind).javaClass, " »", Excerpt(place.control->ObjectName), "«");
    if (place.property != nullptr)
        Append(text, ", ", place.property->label);
    if (place.row != 0)
        Append(text, ", Zeile ", place.row);
    return text;
}

std::string_view MenuWord(const cMenu& line) {
    constexpr std::string_view words[] = {"Menü", "Untermenü", "Menüzeile", "Trennlinie"};
    return words[std::clamp<std::int32_t>(line.EntryType, cMenu::Menu, cMenu::Separator)];
}

class HintFinder {
  public:
    HintFinder(const ProjectModel& model, const std::string& projectFile, CodeOptions options,
               const std::stop_token& stop)
        : model_(model), folder_(PathOf(projectFile).parent_path()), options_(options), stop_(stop) {}

    std::vector<Hint> Find() {
        ReserveOwnNames();
        CheckWindow();
        for (const KindRow& row : KindRows())
            for (std::size_t index = 1; index < model_.ElementCount(row.kind) && !stop_.stop_requested(); ++index)
                CheckComponent({row.kind, index});
        if (options_.menu)
            CheckMenus();
        if (options_.database)
            CheckDatabase();
        if (constructorBytes_ > mostMethodBytes)
            Report(Rule("program-too-large"), {HintSubject::Program});
        return std::move(hints_);
    }

  private:
    void Report(const HintRule& rule, const Place& place, std::string_view detail = {}) {
        if (hints_.size() == mostHints)
            return;
        Hint hint{&rule,
                  Concatenate(PlaceText(place), ": ", ReplaceAll(rule.message, "#", detail)),
                  place.subject,
                  std::nullopt,
                  {}};
        if (place.subject == HintSubject::Component)
            hint.component = place.component;
        if (place.property != nullptr)
            hint.property = place.property->key;
        hints_.push_back(std::move(hint));
    }

    bool IsOwn(const OwnName& own) const { return own.option == nullptr || options_.*own.option; }

    void ReserveOwnNames() {
        for (const OwnName& own : ownFields)
            if (IsOwn(own))
                fields_.insert(own.name);
        for (const OwnName& own : ownMethods)
            if (IsOwn(own))
                methods_.emplace(own.name);
        if (!options_.database)
            return;
        for (std::size_t i = 0; i < sqlFunctionCount; ++i) {
            // A method with parameters stands beside a handler of the same name.
            std::string_view name = SQLFunctions()[i].Name();
            if (model_.Sql().HasFunction(i) && name.ends_with("()"))
                methods_.emplace(name.substr(0, name.size() - 2));
        }
    }

    /// Whether the name can be declared; if not, what follows from it needs no hint of its own.
    bool CheckName(std::string_view name, const Place& place) {
        const HintRule* broken = nullptr;
        if (!IsJavaIdentifier(name))
            broken = &Rule("invalid-name");
        else if (IsJavaKeyword(name))
            broken = &Rule("keyword-name");
        else if (name.size() > longestConstant - roomAroundTexts)
            broken = &Rule("text-too-long");
        else if (!fields_.insert(name).second)
            broken = &Rule("duplicate-name");
        if (broken != nullptr)
            Report(*broken, place, Excerpt(name));
        return broken == nullptr;
    }

    void CheckMethod(std::string method, const Place& place) {
        if (!IsJavaIdentifier(method) || IsJavaKeyword(method))
            Report(Rule("invalid-method"), place, Excerpt(method));
        else if (method.size() > longestConstant)
            Report(Rule("text-too-long"), place);
        else if (const auto [found, isNew] = methods_.insert(std::move(method)); !isNew)
            Report(Rule("duplicate-method"), place, Excerpt(*found));
    }

    void CheckText(std::string_view text, const Place& place) {
        const LiteralText literal = ReadLiteral(text, '"');
        for (const LiteralCheck& check : literalChecks)
            if (literal.*check.flaw)
                Report(check.rule, place);
        if (text.size() > longestConstant - roomAroundTexts)
            Report(Rule("text-too-long"), place);
        CheckCharacters(text, place);
    }

    /// Says at most one thing of either sort about a text.
    void CheckCharacters(std::string_view text, const Place& place) {
        bool hasUndefined = false;
        std::string_view unknown;
        ForEachWideCharacter(text, [&](const WideCharacter& character) {
            if (undefinedCodes.find(character.encoded) != std::string_view::npos)
                hasUndefined = true;
            else if (character.encoded == '?' && unknown.empty())
                unknown = character.text;
        });
        if (hasUndefined)
            Report(Rule("control-character"), place);
        if (!unknown.empty())
            Report(Rule("unknown-character"), place, unknown);
    }

    void CheckPasswordCharacter(std::string_view text, const Place& place) {
        const LiteralText literal = ReadLiteral(text, '\'');
        if (!literal.Compiles() || literal.characters != 1)
            Report(Rule("password-character"), place);
        else
            CheckCharacters(text, place);
    }

    void CheckFile(std::string_view name, const Place& place) {
        if (name.empty())
            return Report(Rule("no-file"), place);
        CheckCharacters(name, place);
        // The generator doubles the backslashes of file names.
        const std::string inJava = ReplaceAll(name, "\\", "\\\\");
        std::error_code ignored;
        if (!ReadLiteral(inJava, '"').Compiles())
            Report(Rule("bad-file-name"), place);
        else if (inJava.size() > longestConstant)
            Report(Rule("text-too-long"), place);
        else if (!fs::exists(folder_ / PathOf(name), ignored))
            Report(Rule("missing-file"), place, Excerpt(name));
    }

    /// The box is that of the list row which the place names, or else of the component.
    void CheckBox(const Rectangle& box, const Place& place) {
        const auto at = [&place](const PropertyKey& key) { return place.row != 0 ? place : place.At(key); };
        if (box.width < 1 || box.height < 1)
            return Report(Rule("no-size"), at(keys::width), Concatenate(box.width, " x ", box.height));
        const Rectangle window{0, 0, model_.WindowWidth(), model_.WindowHeight()};
        for (const SideCheck& side : sideChecks)
            if (side.isBeyond(box, window)) {
                const bool isHidden = !box.Intersects(window);
                return Report(Rule("outside-window"), at(side.property),
                              isHidden ? "Liegt ganz außerhalb des Fensters." : side.message);
            }
        const int shown = window.height - (HasMenuBar() ? MenuBar::runningHeight : 0);
        if (box.Bottom() > shown)
            Report(Rule("under-menu-bar"), at(keys::top), box.top >= shown ? "Liegt ganz" : "Liegt zum Teil");
    }

    /// Without menus the generated program has no bar.
    bool HasMenuBar() const { return options_.menu && !model_.Menus().IsEmpty(); }

    /// The library gives a picture the size that its file has.
    void CheckPictureSize(const dBild& picture, const Place& place) {
        const std::optional<PictureSize> size = SizeOfPicture(folder_ / PathOf(picture.File));
        if (size && *size != PictureSize{picture.Width, picture.Height})
            Report(Rule("picture-size"), place.At(keys::width),
                   Concatenate(size->width, " x ", size->height, " statt in ", picture.Width, " x ", picture.Height));
    }

    void CheckWindow() {
        if (model_.WindowWidth() < 1 || model_.WindowHeight() < 1)
            Report(Rule("no-size"), {HintSubject::Window},
                   Concatenate(model_.WindowWidth(), " x ", model_.WindowHeight()));
    }

    void CheckComponent(ComponentRef component) {
        const Control& control = model_.Element(component);
        if (!control.Visible)
            return;
        const Place place{HintSubject::Component, component, &control};
        const bool named = CheckName(control.ObjectName, place.At(keys::name));
        if (ShowsItsBox(component.kind))
            CheckBox({control.Left, control.Top, control.Width, control.Height}, place);
        for (const PropertyRow& row : control.Table().Rows())
            CheckProperty(row, control, place.At(*row.key));
        for (const ValueCheck& check : valueChecks)
            if (check.kind == component.kind && !check.isRight(control))
                Report(Rule("bad-value"), place.At(check.property), check.message);
        if (component.kind == ComponentKind::Picture)
            CheckPictureSize(static_cast<const dBild&>(control), place);
        if (component.kind == ComponentKind::OptionGroup)
            CheckRadioButtons(static_cast<const dOptionsgruppe&>(control), place);
        else if (named)
            for (const PropertyRow& row : control.Table().Rows())
                if (row.isOn != nullptr && row.isOn(control))
                    CheckMethod(Concatenate(control.ObjectName, row.handlerSuffix), place.At(*row.key));
        Measure(place, [&control] { return control.CreateInitText(control.Left, control.Top); });
    }

    void CheckProperty(const PropertyRow& row, const Control& control, const Place& place) {
        switch (row.key->editor) {
        case EditorKind::Text:
            return CheckText(row.get(control), place);
        case EditorKind::Character:
            return CheckPasswordCharacter(row.get(control), place);
        case EditorKind::File:
            return CheckFile(row.get(control), place);
        case EditorKind::List:
            if (row.key == &keys::optionbuttons)
                return;
            CheckItems(ListItems(row.get(control)), place);
            return;
        case EditorKind::Number:
        case EditorKind::Flag:
        case EditorKind::Choice:
            return;
        }
    }

    void CheckItems(const std::vector<std::string>& items, const Place& place) {
        std::size_t number = 0;
        for (const std::string& item : items)
            CheckText(item, place.At(*place.property, ++number));
    }

    void CheckRadioButtons(const dOptionsgruppe& group, const Place& place) {
        if (group.OptionButtons.empty())
            Report(Rule("empty-group"), place.At(keys::optionbuttons));
        std::size_t number = 0;
        for (const cRadioButton& button : group.OptionButtons) {
            const Place row = place.At(keys::optionbuttons, ++number);
            if (CheckName(button.Name, row) && group.EventClick)
                CheckMethod(Concatenate(button.Name, suffixes::clicked), row);
            CheckText(button.Caption, row);
            if (button.Caption.empty())
                Report(Rule("missing-caption"), row);
            CheckBox({group.Left + button.Left, group.Top + button.Top, button.Width, button.Height}, row);
        }
    }

    /// Adds the size of statements to the constructor's; false when the generator refuses to write them.
    template <class Generate>
    bool Measure(const Place& place, Generate&& generate) {
        try {
            constructorBytes_ += MethodBytes(generate());
            return true;
        } catch (const RuntimeError& error) {
            Report(Rule("not-generated"), place, error.Description());
            return false;
        }
    }

    void CheckMenus() {
        if (!Measure({HintSubject::Program}, [this] { return model_.Menus().GenerateCode(MenuSection::Main); }))
            return;
        for (const cMenu& menu : model_.Menus().Menus()) {
            const Place place = PlaceOf(menu);
            const bool named = CheckName(menu.Name, place);
            CheckCaption(menu, place);
            CheckMenuLines(menu, named);
        }
    }

    static Place PlaceOf(const cMenu& line) {
        Place place{HintSubject::MenuBar};
        place.what = MenuWord(line);
        place.name = line.Caption;
        return place;
    }

    void CheckCaption(const cMenu& line, const Place& place) {
        CheckText(line.Caption, place);
        if (line.Caption.empty())
            Report(Rule("missing-caption"), place);
    }

    /// `named`: whether the event methods below begin with a name that can be declared.
    void CheckMenuLines(const cMenu& container, bool named) {
        for (const cMenu& line : container.Children()) {
            const Place place = PlaceOf(line);
            if (line.EntryType == cMenu::SubMenu) {
                CheckCaption(line, place);
                const bool nested = container.EntryType == cMenu::SubMenu;
                if (nested)
                    Report(Rule("nested-submenu"), place);
                CheckMenuLines(line, named && !nested);
                continue;
            }
            if (line.EntryType == cMenu::Entry) {
                CheckCaption(line, place);
                if (named)
                    CheckMethod(line.EventMethod(), place);
            } else if (line.EntryType == cMenu::Menu) {
                Report(Rule("lost-menu-line"), place);
            }
            for (const cMenu& lost : line.Children())
                Report(Rule("lost-menu-line"), PlaceOf(lost));
        }
    }

    void CheckDatabase() {
        const SQLSettings& sql = model_.Sql();
        for (const SQLField& field : sqlFields) {
            Place place{HintSubject::Database};
            place.what = field.Name();
            CheckText(sql.*field.text, place);
            if (field.text == &SQLSettings::Server && !sql.UsesDatabase())
                Report(Rule("missing-server"), place);
            if (field.text == &SQLSettings::TableName && sql.TableName.empty())
                Report(Rule("missing-table"), place);
        }
        constructorBytes_ += MethodBytes(GenerateSQLCode(sql));
    }

    const ProjectModel& model_;
    fs::path folder_; ///< of the project
    CodeOptions options_;
    const std::stop_token& stop_;
    std::unordered_set<std::string_view> fields_;
    std::unordered_set<std::string> methods_;
    std::size_t constructorBytes_ = ownConstructorBytes;
    std::vector<Hint> hints_;
};

} // namespace

std::span<const HintRule> HintRules() {
    return rules;
}

std::string_view WhereToMend(HintSubject subject) {
    switch (subject) {
    case HintSubject::Program:
        break;
    case HintSubject::Window:
        return "Ändern: Projekt → Einstellungen … (Strg+E)";
    case HintSubject::Component:
        return "Ein Klick oder die Eingabetaste führt zur Eigenschaft.";
    case HintSubject::MenuBar:
        return "Ändern: Funktionen → Menü-Generator … (Strg+M)";
    case HintSubject::Database:
        return "Ändern: Funktionen → SQL-Generator … (Strg+D)";
    }
    return {};
}

std::vector<Hint> FindHints(const ProjectModel& model, const std::string& projectFile, CodeOptions options,
                            const std::stop_token& stop) {
    return HintFinder(model, projectFile, options, stop).Find();
}

} // namespace pirol
