#include "codegen/JavaReader.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/JavaOutline.h"
#include "codegen/JavaSyntax.h"
#include "codegen/JavaValues.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace pirol {
namespace {

using enum ComponentKind;

constexpr std::string_view readLabel = "Main.File.Import.Analyse";
constexpr std::string_view radioButtonClass = "Radioknopf";
constexpr std::string_view menuClass = "Menue";
constexpr std::string_view registrationPrefix = "setzeBearbeiter";

/// Far more than any program has.
constexpr std::size_t mostObjects = 1'000'000;
constexpr std::size_t mostColumns = 1'000'000;
constexpr std::size_t mostNameBytes = 1000;
constexpr int deepestMenu = 100;

/// The arguments of a class's constructor: first left, top, width and height, if it has a place in the window, then the
/// values of properties.
struct ConstructorRow {
    ComponentKind kind;
    bool hasBox;
    std::array<const PropertyKey*, 3> properties;
};

constexpr std::array<ConstructorRow, kindCount> constructors = {{
    {Label, true, {&keys::value}},
    {Button, true, {&keys::value}},
    {TextField, true, {&keys::value}},
    {CharField, true, {&keys::value}},
    {RowField, true, {&keys::value}},
    {Password, true, {&keys::passchar}},
    {CheckBox, true, {&keys::value}},
    {OptionGroup, false, {}},
    {ComboBox, true, {}},
    {Slider, true, {&keys::currentvalue, &keys::min, &keys::max}},
    {ProgressBar, true, {&keys::min, &keys::max}},
    {Table, true, {&keys::rows, &keys::columns}},
    {Picture, true, {&keys::pictureFile}},
    {Sound, false, {}},
    {Movie, false, {&keys::movieFile}},
}};
static_assert(constructors.back().kind == Movie);

/// The methods that set a property to their argument.
struct SetterRow {
    std::string_view method;
    const PropertyKey& property;
};

constexpr SetterRow setters[] = {
    {"ladeTon", keys::soundFile},      {"schalteAn", keys::checked},
    {"setzeInhalt", keys::value},      {"setzeSchriftgroesse", keys::fontsize},
    {"setzeWert", keys::currentvalue}, {"setzeAusrichtung", keys::align},
};

/// The variable that the generator adds to a menu bar.
constexpr std::string_view subMenuVariable = "hatMenueTemp";

/// What a variable of the source stands for in the design.
struct Target {
    enum Sort { Nothing, Component, RadioButton, MenuOrSubMenu };

    Sort sort = Nothing;
    ComponentRef component = {};
    std::size_t radioButton = 0;
    cMenu* menu = nullptr;
};

/// An object that the source makes and the design may hold.
struct Object {
    std::string key; ///< the variable with its indices; empty for none
    std::string_view className;
    std::size_t line;
    Target target;
    std::optional<std::string_view> handler; ///< of the click, from the constructor
};

struct RadioButtonInSource {
    cRadioButton button; ///< its position is the window's
    std::size_t object;
    bool isRegistered = false;
    bool hasGroup = false;
};

struct GroupInSource {
    std::size_t object;
    std::vector<std::size_t> buttons = {};
};

/// One call "receiver.method(arguments)".
struct Call {
    const Statement& statement;
    std::size_t name; ///< the method's token
    std::vector<Tokens> arguments;
    Target receiver;
    std::string receiverText; ///< as the source names it
    std::string array;        ///< when the receiver is an element whose index is computed

    std::size_t Line() const { return statement[name].line; }
    std::string_view Method() const { return statement[name].text; }
};

/// A name of letters, digits and "_" that no keyword and nothing else has. Each costs constant time on average.
class NameGiver {
  public:
    bool Take(const std::string& name) {
        return IsJavaIdentifier(name) && !IsJavaKeyword(name) && name.size() <= mostNameBytes &&
               taken_.insert(name).second;
    }

    /// The name itself, or with a number from `first` on.
    std::string Unique(std::string_view wanted, int first) {
        const std::string base = Cleaned(wanted);
        if (first > 1 && Take(base))
            return base;
        const bool endsInDigit = base.back() >= '0' && base.back() <= '9';
        int& number = numbers_.try_emplace(base, first).first->second;
        for (;;) {
            std::string name = Concatenate(base, endsInDigit ? "_" : "", number++);
            if (Take(name))
                return name;
        }
    }

  private:
    static std::string Cleaned(std::string_view wanted) {
        constexpr std::size_t roomForNumber = 500;
        std::string bytes = ToWindows1252(std::string(wanted.substr(0, mostNameBytes)));
        bytes.resize(std::min(bytes.size(), mostNameBytes - roomForNumber));
        std::string name;
        for (const char byte : bytes) {
            const std::string character = FromWindows1252({&byte, 1});
            name += IsIdentifierPart(character) ? character : "_";
        }
        return IsJavaIdentifier(name) ? name : "_" + name;
    }

    std::unordered_set<std::string> taken_;
    std::unordered_map<std::string, int> numbers_;
};

/// "x[1][2]" becomes "x1_2".
std::string NameOfKey(std::string_view key) {
    std::string name = ReplaceAll(key, "][", "_");
    std::erase_if(name, [](char character) { return character == '[' || character == ']'; });
    return name;
}

std::string WithoutIndices(std::string_view key) {
    return std::string(key.substr(0, key.find('[')));
}

class Reader {
  public:
    explicit Reader(std::string_view source) : source_(source), outline_(source) {}

    JavaReading Read() {
        for (const JavaOutline::ClassLine& window : outline_.OtherWindows())
            Remark(window.line, Concatenate("Die Klasse »", Excerpt(window.name),
                                            "« ist ein weiteres Fenster und wird nicht gelesen."));
        ForEachStatement(source_, [this](const Statement& statement, const Head&, const Place& place) {
            MakeObjects(statement, place);
        });
        NameObjects();
        ForEachStatement(source_, [this](const Statement& statement, const Head& head, const Place& place) {
            if (outline_.IsOfWindow(place))
                ReadStatement(statement, head, place);
        });
        FinishEvents();
        FinishGroups();
        FinishDatabase();
        reading_.model.EditMenus() = std::move(menus_);
        FinishRemarks();
        return std::move(reading_);
    }

  private:
    // ---- Remarks

    void Remark(std::size_t line, std::string text) {
        if (reading_.remarks.size() < mostRemarks)
            reading_.remarks.push_back({line, std::move(text)});
    }

    static std::string Described(std::string_view className, std::string_view key) {
        return key.empty() ? Concatenate(Excerpt(className), " ohne Namen")
                           : Concatenate(Excerpt(className), " »", Excerpt(key), "«");
    }
    std::string Described(const Object& object) const { return Described(object.className, object.key); }

    void RemarkLeftOut(const Object& object, std::string_view reason) {
        Remark(object.line, Concatenate(Described(object), ": nicht gelesen, weil ", reason, "."));
    }

    void RemarkValue(std::size_t line, std::string_view what, const PropertyKey& key) {
        Remark(line, Concatenate(what, ", ", key.label, ": Der Wert ist nicht zu lesen."));
    }

    // ---- First the objects, as calls may stand before them

    static bool IsReadClass(std::string_view className) {
        return KindByJavaClass(className) || className == radioButtonClass || className == menuClass;
    }

    void MakeObjects(const Statement& statement, const Place& place) {
        if (statement.IsCut())
            Remark(statement[0].line, "Die Anweisung ist zu lang und wird nicht ganz gelesen.");
        for (const Creation& creation : CreationsIn(statement, place, outline_.Constants()))
            MakeObject(statement, place, creation);
    }

    void MakeObject(const Statement& statement, const Place& place, const Creation& creation) {
        const bool isOwn = outline_.IsOwnClass(creation.className);
        const std::string_view library = isOwn ? outline_.LibraryBase(creation.className) : creation.className;
        if (!IsReadClass(library) && !(isOwn && IsReadClass(creation.className)))
            return;
        Object object{creation.key.value_or(Concatenate(creation.variable, "[?]")),
                      creation.className,
                      statement[creation.token].line,
                      {},
                      {}};
        if (!outline_.IsOfWindow(place)) {
            RemarkLeftOut(object, Concatenate("die Klasse »", Excerpt(place.className), "« nicht das Fenster ist"));
            return;
        }
        if (objects_.size() == mostObjects) {
            if (!hasTooMany_)
                RemarkLeftOut(object, "der Quelltext zu viele Objekte erzeugt; auch alle weiteren fehlen");
            hasTooMany_ = true;
            return;
        }
        if (isOwn)
            RemarkLeftOut(object, "die Klasse eine eigene ist");
        else if (!creation.key)
            RemarkLeftOut(object, "der Platz im Feld berechnet wird");
        else
            AddObject(object, statement.Arguments(creation.arguments));
        if (object.target.sort != Target::Nothing && !outline_.RunsAtStart(place.method))
            Remark(object.line, Concatenate(Described(object), ": wird erst in »", Excerpt(place.method),
                                            "« erzeugt, im Projekt gleich zu Beginn."));
        if (!object.key.empty())
            variables_.try_emplace(object.key, object.target);
        if (object.key.find('[') != std::string::npos)
            arrayEvents_.try_emplace(WithoutIndices(object.key));
        objects_.push_back(std::move(object));
    }

    void AddObject(Object& object, const std::vector<Tokens>& arguments) {
        if (object.className == menuClass)
            AddMenu(object, arguments);
        else if (object.className == radioButtonClass)
            AddRadioButton(object, arguments);
        else
            AddComponent(object, constructors[Position(*KindByJavaClass(object.className))], arguments);
    }

    void AddMenu(Object& object, const std::vector<Tokens>& arguments) {
        const std::optional<std::string> caption = TextOf(arguments.empty() ? Tokens() : arguments.front());
        if (!caption)
            RemarkValue(object.line, Described(object), keys::value);
        object.target = {.sort = Target::MenuOrSubMenu, .menu = &menus_.Append(caption.value_or(""), {})};
    }

    /// Left, top, width and height from the first arguments; a remark and nothing when they cannot be read.
    std::optional<std::array<std::int16_t, 4>> BoxOf(const Object& object, const std::vector<Tokens>& arguments) {
        std::array<std::int16_t, 4> box{};
        if (arguments.size() < box.size()) {
            RemarkLeftOut(object, "Angaben fehlen");
            return std::nullopt;
        }
        for (std::size_t index = 0; index < box.size(); ++index) {
            const std::optional<std::int16_t> number = NumberOf(arguments[index], outline_.Constants());
            if (!number) {
                RemarkLeftOut(object, "Lage oder Größe nicht in Zahlen dasteht");
                return std::nullopt;
            }
            box[index] = *number;
        }
        return box;
    }

    void AddRadioButton(Object& object, const std::vector<Tokens>& arguments) {
        const auto box = BoxOf(object, arguments);
        if (!box)
            return;
        RadioButtonInSource radioButton{.button = {}, .object = objects_.size()};
        cRadioButton& button = radioButton.button;
        std::tie(button.Left, button.Top, button.Width, button.Height) = std::tuple_cat(*box);
        const std::optional<std::string> caption = TextOf(arguments.size() < 5 ? Tokens() : arguments[4]);
        if (!caption)
            RemarkValue(object.line, Described(object), keys::value);
        button.Caption = caption.value_or("");
        object.target = {.sort = Target::RadioButton, .radioButton = radioButtons_.size()};
        TakeHandler(object, arguments, 5);
        radioButtons_.push_back(std::move(radioButton));
    }

    void AddComponent(Object& object, const ConstructorRow& row, const std::vector<Tokens>& arguments) {
        std::size_t next = 0;
        const auto box = row.hasBox ? BoxOf(object, arguments) : std::array<std::int16_t, 4>{};
        if (!box)
            return;
        object.target = {.sort = Target::Component, .component = reading_.model.AddElement(row.kind)};
        Control& control = reading_.model.EditElement(object.target.component);
        if (row.hasBox) {
            std::tie(control.Left, control.Top, control.Width, control.Height) = std::tuple_cat(*box);
            next = box->size();
        }
        for (const PropertyKey* property : row.properties) {
            if (property == nullptr)
                break;
            if (!SetProperty(control, *property, next < arguments.size() ? arguments[next] : Tokens()))
                RemarkValue(object.line, Described(object), *property);
            ++next;
        }
        if (row.kind == OptionGroup) {
            static_cast<dOptionsgruppe&>(control).EventClick = false; // until a button is registered
            groups_.push_back({objects_.size()});
        }
        TakeHandler(object, arguments, next);
    }

    /// Every constructor also exists with the handler of the click behind its other arguments.
    void TakeHandler(Object& object, const std::vector<Tokens>& arguments, std::size_t usual) {
        if (arguments.size() <= usual)
            return;
        const Tokens last = arguments[usual];
        if (arguments.size() == usual + 1 && last.size() == 1 && last.front().kind == TokenKind::Text)
            object.handler = last.front().text;
        else
            Remark(object.line, Concatenate(Described(object), ": Die weiteren Angaben sind unbekannt."));
    }

    /// Gives a property the value of an expression, if it can be read.
    bool SetProperty(Control& control, const PropertyKey& key, Tokens expression) {
        const auto number = [](const std::optional<std::int16_t>& value) {
            return value ? std::optional(std::to_string(*value)) : std::nullopt;
        };
        std::optional<std::string> value;
        switch (key.editor) {
        case EditorKind::Text:
            value = TextOf(expression);
            break;
        case EditorKind::Number:
            value = number(NumberOf(expression, outline_.Constants()));
            break;
        case EditorKind::Choice:
            value = number(AlignmentOf(expression, outline_.Constants()));
            break;
        case EditorKind::Flag:
            value = FlagText(true);
            break;
        case EditorKind::Character:
            if (expression.size() == 1 && expression.front().kind == TokenKind::Character)
                value = SingleLine(expression.front().text);
            break;
        case EditorKind::File:
            value = FileNameOf(expression);
            break;
        case EditorKind::List:
            return SetColumns(static_cast<dTabelle&>(control), NumberOf(expression, outline_.Constants()));
        }
        if (value)
            FindRow(control, key.key)->set(control, *value);
        return value.has_value();
    }

    bool SetColumns(dTabelle& table, const std::optional<std::int16_t>& count) {
        if (!count || *count < 0 || columns_ + static_cast<std::size_t>(*count) > mostColumns)
            return false;
        columns_ += static_cast<std::size_t>(*count);
        table.Columns.assign(static_cast<std::size_t>(*count), {});
        return true;
    }

    // ---- Names

    /// Whoever is called exactly so in the source keeps the name; all others get what is left.
    void NameObjects() {
        NameGiver names;
        if (!menus_.IsEmpty())
            names.Take(std::string(subMenuVariable));
        std::vector<bool> isNamed(objects_.size());
        for (std::size_t index = 0; index < objects_.size(); ++index)
            if (objects_[index].target.sort != Target::Nothing && names.Take(objects_[index].key)) {
                isNamed[index] = true;
                SetName(objects_[index].target, objects_[index].key);
            }
        for (std::size_t index = 0; index < objects_.size(); ++index) {
            const Object& object = objects_[index];
            if (object.target.sort == Target::Nothing || isNamed[index])
                continue;
            const bool hasName = !object.key.empty();
            std::string name =
                names.Unique(hasName ? NameOfKey(object.key) : UsualName(object.target), hasName ? 2 : 1);
            Remark(object.line, Concatenate(Described(object), ": heißt im Projekt »", Excerpt(name), "«."));
            SetName(object.target, std::move(name));
        }
    }

    static std::string_view UsualName(const Target& target) {
        if (target.sort == Target::Component)
            return RowOf(target.component.kind).namePrefix;
        return target.sort == Target::RadioButton ? "hatRadioKnopf" : "hatMenue";
    }

    void SetName(const Target& target, std::string name) {
        if (target.sort == Target::Component)
            reading_.model.EditElement(target.component).ObjectName = std::move(name);
        else if (target.sort == Target::RadioButton)
            radioButtons_[target.radioButton].button.Name = std::move(name);
        else
            target.menu->Name = std::move(name);
    }

    const std::string& NameOf(const Target& target) const {
        return target.sort == Target::Component ? reading_.model.Element(target.component).ObjectName
                                                : radioButtons_[target.radioButton].button.Name;
    }

    // ---- Then what is called on them

    void ReadStatement(const Statement& statement, const Head& head, const Place& place) {
        if (head.kind == Head::Method)
            NoteMethod(head);
        isAtStart_ = outline_.RunsAtStart(place.method);
        made_.clear();
        for (const Creation& creation : CreationsIn(statement, place, outline_.Constants()))
            MeetObject(statement, creation);
        if (statement.HasWord(0, "super") && statement.HasSign(1, "("))
            ReadWindowSize(statement);
        if (statement.HasWord(0, "for"))
            NoteLoop(statement);
        resultEnd_ = Statement::none;
        for (std::size_t index = 1; index + 1 < statement.Size(); ++index)
            if (statement[index].IsWord() && statement[index - 1].IsSign(".") && statement[index + 1].IsSign("("))
                ReadCall(statement, index);
    }

    /// The objects come in the same order as when they were made; from here on their variables mean them.
    void MeetObject(const Statement& statement, const Creation& creation) {
        if (nextObject_ == objects_.size() || objects_[nextObject_].className != creation.className ||
            objects_[nextObject_].line != statement[creation.token].line)
            return;
        const Object& object = objects_[nextObject_++];
        if (!object.key.empty())
            variables_[object.key] = object.target;
        made_.push_back({creation.token, object.target});
    }

    void ReadWindowSize(const Statement& statement) {
        if (reading_.hasWindowSize || statement.Partner(1) == Statement::none)
            return;
        const std::vector<Tokens> arguments = statement.Arguments(1);
        std::optional<std::int16_t> width;
        std::optional<std::int16_t> height;
        if (arguments.size() >= 2) {
            width = NumberOf(arguments[arguments.size() - 2], outline_.Constants());
            height = NumberOf(arguments.back(), outline_.Constants());
        }
        reading_.hasWindowSize = width && height;
        if (reading_.hasWindowSize)
            reading_.model.SetWindowSize(*width, *height);
        else
            Remark(statement[0].line, "Die Größe des Fensters steht nicht in Zahlen da.");
    }

    /// In "for (Knopf b : tasten)" b stands for each of an array.
    void NoteLoop(const Statement& statement) {
        if (statement.Size() > 5 && statement[3].IsWord() && statement[4].IsSign(":") && statement[5].IsWord()) {
            variables_.erase(std::string(statement[3].text));
            loopArrays_[statement[3].text] = statement[5].text;
        }
    }

    void ReadCall(const Statement& statement, std::size_t name) {
        const std::string_view method = statement[name].text;
        const bool isRegistration = method.starts_with(registrationPrefix);
        if (!isRegistration && !isAtStart_ && method != "verbindeMySQL")
            return;
        Call call{statement, name, {}, {}, {}, {}};
        const bool isStatement =
            FindReceiver(call) && statement.End() == ';' && statement.Partner(name + 1) + 1 == statement.Size();
        call.arguments = statement.Arguments(name + 1);
        if (isRegistration ? ReadRegistration(call) : ReadKnownCall(call))
            return;
        if (isStatement && call.receiver.sort != Target::Nothing)
            Remark(call.Line(),
                   Concatenate("»", Excerpt(call.receiverText), ".", Excerpt(method), "(...)« kennt Pirol nicht."));
    }

    /// True when the statement begins with the receiver.
    bool FindReceiver(Call& call) {
        const std::size_t point = call.name - 1;
        if (point == resultEnd_ + 1 && resultEnd_ != Statement::none) {
            call.receiver = result_;
            call.receiverText = resultText_;
            return true;
        }
        const Variable variable = VariableBefore(call.statement, point);
        const std::optional<std::string> key = KeyOf(variable, outline_.Constants());
        if (const auto loop = loopArrays_.find(variable.name); loop != loopArrays_.end() || !key)
            call.array = key ? loop->second : variable.name;
        const auto found = key ? variables_.find(*key) : variables_.end();
        if (found != variables_.end()) {
            call.receiver = found->second;
            call.array.clear();
        }
        call.receiverText = key.value_or(std::string(variable.name));
        return variable.begin == 0;
    }

    /// False for a call that means nothing to the receiver.
    bool ReadKnownCall(const Call& call) {
        struct CallRow {
            std::string_view method;
            bool (Reader::*read)(const Call&);
        };
        static constexpr CallRow rows[] = {
            {"fuegeEin", &Reader::FillGroup},
            {"haengeAn", &Reader::AddEntry},
            {"haengeTrennungAn", &Reader::AddSeparator},
            {"haengeZeileAn", &Reader::AddMenuLine},
            {"neuesUntermenue", &Reader::AddSubMenu},
            {"sendeSQL", &Reader::ReadQuery},
            {"setzeSpaltentitelAn", &Reader::SetColumnTitle},
            {"verbindeMySQL", &Reader::ReadConnection},
        };
        for (const CallRow& row : rows)
            if (row.method == call.Method())
                return (this->*row.read)(call);
        for (const SetterRow& row : setters)
            if (row.method == call.Method())
                return ReadSetter(call, row.property);
        return false;
    }

    bool IsComponent(const Target& target, ComponentKind kind) const {
        return target.sort == Target::Component && target.component.kind == kind;
    }

    static Tokens ArgumentAt(const Call& call, std::size_t index) {
        return index < call.arguments.size() ? call.arguments[index] : Tokens();
    }

    std::string Receiver(const Call& call) const { return Concatenate("»", Excerpt(call.receiverText), "«"); }

    bool ReadSetter(const Call& call, const PropertyKey& key) {
        bool isRead = true;
        if (call.receiver.sort == Target::RadioButton && &key == &keys::value) {
            const std::optional<std::string> text = TextOf(ArgumentAt(call, 0));
            isRead = text.has_value();
            radioButtons_[call.receiver.radioButton].button.Caption = text.value_or("");
        } else if (call.receiver.sort == Target::Component) {
            Control& control = reading_.model.EditElement(call.receiver.component);
            const PropertyRow* row = FindRow(control, key.key);
            if (row == nullptr)
                return false;
            isRead = SetProperty(control, key, ArgumentAt(call, 0));
        } else {
            return false;
        }
        if (!isRead)
            RemarkValue(call.Line(), Receiver(call), key);
        return true;
    }

    bool AddEntry(const Call& call) {
        if (!IsComponent(call.receiver, ComboBox))
            return false;
        if (std::optional<std::string> entry = TextOf(ArgumentAt(call, 0)))
            static_cast<dAuswahl&>(reading_.model.EditElement(call.receiver.component))
                .Entries.push_back(std::move(*entry));
        else
            RemarkValue(call.Line(), Receiver(call), keys::combovalues);
        return true;
    }

    bool SetColumnTitle(const Call& call) {
        if (!IsComponent(call.receiver, Table))
            return false;
        auto& columns = static_cast<dTabelle&>(reading_.model.EditElement(call.receiver.component)).Columns;
        std::optional<std::string> title = TextOf(ArgumentAt(call, 0));
        const std::optional<std::int16_t> number = NumberOf(ArgumentAt(call, 1), outline_.Constants());
        if (title && number && *number >= 1 && static_cast<std::size_t>(*number) <= columns.size())
            columns[static_cast<std::size_t>(*number) - 1] = std::move(*title); // the library counts from 1
        else
            RemarkValue(call.Line(), Receiver(call), keys::columns);
        return true;
    }

    bool FillGroup(const Call& call) {
        if (!IsComponent(call.receiver, OptionGroup))
            return false;
        const Target member = TargetOf(call.statement, ArgumentAt(call, 0));
        if (member.sort != Target::RadioButton) {
            Remark(call.Line(), Concatenate(Receiver(call), ": Der Radioknopf ist unbekannt."));
        } else if (radioButtons_[member.radioButton].hasGroup) {
            Remark(call.Line(),
                   Concatenate(Receiver(call), ": »", Excerpt(NameOf(member)), "« ist schon in einer Gruppe."));
        } else {
            radioButtons_[member.radioButton].hasGroup = true;
            groups_[call.receiver.component.index - 1].buttons.push_back(member.radioButton);
        }
        return true;
    }

    /// What an argument stands for: a variable, or an object made in place.
    Target TargetOf(const Statement& statement, Tokens expression) const {
        if (expression.empty())
            return {};
        const auto begin = static_cast<std::size_t>(expression.data() - statement.All().data());
        if (expression.front().IsWord("new")) {
            const auto found = std::lower_bound(made_.begin(), made_.end(), begin,
                                                [](const auto& made, std::size_t token) { return made.first < token; });
            return found == made_.end() || found->first != begin ? Target() : found->second;
        }
        const Variable variable = VariableBefore(statement, begin + expression.size());
        const std::optional<std::string> key = KeyOf(variable, outline_.Constants());
        const auto found = key && variable.begin == begin ? variables_.find(*key) : variables_.end();
        return found == variables_.end() ? Target() : found->second;
    }

    // ---- Menus

    bool AddMenuLine(const Call& call) {
        if (call.receiver.sort != Target::MenuOrSubMenu)
            return false;
        std::optional<std::string> caption = TextOf(ArgumentAt(call, 0));
        if (!caption) {
            Remark(call.Line(),
                   Concatenate(Receiver(call), ": Die Menüzeile fehlt, weil ihre Beschriftung nicht zu lesen ist."));
            return true;
        }
        const cMenu* line = call.receiver.menu->AddEntry(std::move(*caption), cMenu::Entry);
        CompareHandler(call.Line(), line->Caption, ArgumentAt(call, 1), line->EventMethod());
        return true;
    }

    bool AddSeparator(const Call& call) {
        if (call.receiver.sort != Target::MenuOrSubMenu)
            return false;
        call.receiver.menu->AddEntry({}, cMenu::Separator);
        return true;
    }

    bool AddSubMenu(const Call& call) {
        if (call.receiver.sort != Target::MenuOrSubMenu)
            return false;
        std::optional<std::string> caption = TextOf(ArgumentAt(call, 0));
        if (!caption)
            RemarkValue(call.Line(), Receiver(call), keys::value);
        int depth = 0;
        for (const cMenu* menu = call.receiver.menu; menu->Parent() != nullptr; menu = menu->Parent())
            ++depth;
        if (depth > 0)
            Remark(call.Line(),
                   Concatenate(Receiver(call), ": Ein Untermenü in einem Untermenü kann Pirol nicht erzeugen."));
        if (depth == deepestMenu)
            return true;
        result_ = {.sort = Target::MenuOrSubMenu,
                   .menu = call.receiver.menu->AddEntry(caption.value_or(""), cMenu::SubMenu)};
        resultEnd_ = call.statement.Partner(call.name + 1);
        const std::size_t begin = VariableBefore(call.statement, call.name - 1).begin;
        const bool isAssigned = begin > 0 && call.statement[begin - 1].IsSign("=");
        const Variable variable = isAssigned ? VariableBefore(call.statement, begin - 1) : Variable();
        resultText_ = isAssigned ? variable.name : caption.value_or("");
        if (const std::optional<std::string> key = KeyOf(variable, outline_.Constants()); key && isAssigned)
            variables_[*key] = result_;
        return true;
    }

    // ---- Events

    /// Compares the handler that the source registers with the name that the generator gives it.
    void CompareHandler(std::size_t line, std::string_view who, Tokens handler, std::string_view ours) {
        if (handler.empty())
            return;
        const std::optional<std::string> theirs = TextOf(handler);
        if (theirs && *theirs == ours)
            return;
        Remark(line, Concatenate("»", Excerpt(who), "«: Die Ereignismethode heißt in Pirol »", Excerpt(ours), "«",
                                 theirs ? Concatenate(", im Quelltext »", Excerpt(*theirs), "«.") : "."));
    }

    bool ReadRegistration(const Call& call) {
        const std::string_view suffix = call.Method().substr(registrationPrefix.size());
        if (!call.array.empty()) {
            NoteArrayEvent(call, suffix);
            return true;
        }
        if (call.receiver.sort != Target::Component && call.receiver.sort != Target::RadioButton)
            return call.receiver.sort == Target::Nothing;
        if (!Register(call.receiver, suffix))
            Remark(call.Line(),
                   Concatenate(Receiver(call), ": Das Ereignis »", Excerpt(suffix), "« gibt es in Pirol nicht."));
        else
            CompareHandler(call.Line(), call.receiverText, ArgumentAt(call, 0),
                           Concatenate(NameOf(call.receiver), suffix));
        return true;
    }

    /// Switches an event on; false when the component does not have it.
    bool Register(const Target& target, std::string_view suffix) {
        if (target.sort == Target::RadioButton) {
            radioButtons_[target.radioButton].isRegistered |= suffix == suffixes::clicked;
            return suffix == suffixes::clicked;
        }
        if (target.sort != Target::Component || target.component.kind == OptionGroup)
            return false; // a group's click is that of its buttons
        Control& control = reading_.model.EditElement(target.component);
        for (const PropertyRow& row : control.Table().Rows())
            if (row.isOn != nullptr && row.handlerSuffix == suffix) {
                row.set(control, FlagText(true));
                return true;
            }
        return false;
    }

    /// A loop registers the same handler for all elements, those with a number included.
    void NoteArrayEvent(const Call& call, std::string_view suffix) {
        constexpr std::size_t mostEvents = 16;
        const auto found = arrayEvents_.find(call.array);
        if (found == arrayEvents_.end())
            return;
        std::vector<std::string_view>& events = found->second;
        if (std::find(events.begin(), events.end(), suffix) == events.end() && events.size() < mostEvents)
            events.push_back(suffix);
        Remark(call.Line(),
               Concatenate("»", Excerpt(call.array), "«: Die Ereignismethoden heißen in Pirol nach jeder Komponente, »",
                           Excerpt(call.array), "0", Excerpt(suffix), "« und so fort."));
    }

    void FinishEvents() {
        for (const Object& object : objects_) {
            if (object.target.sort == Target::Nothing)
                continue;
            if (object.handler && Register(object.target, suffixes::clicked)) {
                const std::string ours = Concatenate(NameOf(object.target), suffixes::clicked);
                const Token theirs{TokenKind::Text, *object.handler, object.line};
                CompareHandler(object.line, NameOf(object.target), {&theirs, 1}, ours);
            } else if (object.handler) {
                Remark(object.line,
                       Concatenate(Described(object), ": Die Angabe »", Excerpt(*object.handler), "« ist unbekannt."));
            }
            if (object.key.find('[') != std::string::npos)
                for (const std::string_view suffix : arrayEvents_.find(WithoutIndices(object.key))->second)
                    Register(object.target, suffix);
        }
    }

    // ---- What is complete only at the end

    void FinishGroups() {
        for (std::size_t index = 0; index < groups_.size(); ++index) {
            auto& group = static_cast<dOptionsgruppe&>(reading_.model.EditElement({OptionGroup, index + 1}));
            std::size_t registered = 0;
            for (const std::size_t member : groups_[index].buttons) {
                group.OptionButtons.push_back(radioButtons_[member].button);
                registered += radioButtons_[member].isRegistered ? 1 : 0;
            }
            group.EventClick = registered > 0;
            const Object& object = objects_[groups_[index].object];
            if (registered > 0 && registered < group.OptionButtons.size())
                Remark(object.line,
                       Described(object) + ": In Pirol bekommen alle ihre Radioknöpfe eine Ereignismethode.");
            try {
                group.EncloseButtons();
            } catch (const RuntimeError&) {
                group.OptionButtons.clear();
                Remark(object.line, Described(object) + ": Die Radioknöpfe liegen zu weit auseinander und fehlen.");
            }
        }
        for (const RadioButtonInSource& radioButton : radioButtons_)
            if (!radioButton.hasGroup)
                RemarkLeftOut(objects_[radioButton.object], "er in keiner Radiogruppe ist");
    }

    // ---- Database

    bool ReadConnection(const Call& call) {
        if (hasDatabase_)
            return true;
        hasDatabase_ = true;
        // Database first, then server: the order the library's call expects.
        std::string SQLSettings::*const texts[] = {&SQLSettings::Database, &SQLSettings::Server, &SQLSettings::User,
                                                   &SQLSettings::Password};
        SQLSettings& sql = reading_.model.EditSql();
        for (std::size_t index = 0; index < std::size(texts); ++index) {
            const std::optional<std::string> text = TextOf(ArgumentAt(call, index));
            if (!text)
                Remark(call.Line(),
                       Concatenate("Datenbank: Die ", index + 1, ". Angabe der Verbindung ist nicht zu lesen."));
            sql.*texts[index] = text.value_or("");
        }
        return true;
    }

    bool ReadQuery(const Call& call) {
        constexpr std::string_view begin = "SELECT * FROM ";
        const std::optional<std::string> query = TextOf(ArgumentAt(call, 0));
        if (query && query->starts_with(begin) && !tableName_)
            tableName_ = query->substr(begin.size());
        else
            Remark(call.Line(), "Datenbank: Die Abfrage ist nicht die eine, mit der das Programm beginnt; sie fehlt.");
        return true;
    }

    void NoteMethod(const Head& head) {
        for (std::size_t index = 0; index < sqlFunctionCount; ++index) {
            const std::string_view signature = SQLFunctions()[index].Name();
            const std::size_t bracket = signature.find('(');
            const std::size_t parameters = signature.ends_with("()") ? 0 : 1;
            if (head.name == signature.substr(0, bracket) && head.parameters == parameters)
                sqlMethods_[index] = 1;
        }
    }

    void FinishDatabase() {
        if (!hasDatabase_)
            return;
        reading_.model.EditSql().TableName = tableName_.value_or("");
        reading_.model.EditSql().Flags = sqlMethods_;
    }

    void FinishRemarks() {
        std::vector<ReadRemark>& remarks = reading_.remarks;
        if (outline_.Unread().openComment != 0)
            Remark(outline_.Unread().openComment, "Der Kommentar hat kein Ende; alles danach fehlt.");
        if (outline_.Unread().tooLong != 0)
            Remark(outline_.Unread().tooLong, "Der Quelltext ist zu lang; ab hier fehlt alles.");
        for (const NotInJava& row : notInJava)
            if (!row.remark.empty() && reading_.model.ElementCount(row.kind) > 1)
                Remark(0, std::string(row.remark));
        const bool isFull = remarks.size() == mostRemarks;
        if (isFull)
            remarks.pop_back();
        // Unsigned arithmetic puts line 0 last.
        std::stable_sort(remarks.begin(), remarks.end(), [](const ReadRemark& left, const ReadRemark& right) {
            return left.line - 1 < right.line - 1;
        });
        if (isFull)
            remarks.push_back({0, "Weitere Bemerkungen werden nicht gezeigt."});
    }

    std::string_view source_;
    JavaOutline outline_;
    JavaReading reading_;
    MenuBar menus_;

    std::vector<Object> objects_;
    std::vector<RadioButtonInSource> radioButtons_;
    std::vector<GroupInSource> groups_; // in the order of their elements
    std::size_t columns_ = 0;
    bool hasTooMany_ = false;

    std::unordered_map<std::string, Target> variables_;
    std::unordered_map<std::string, std::vector<std::string_view>> arrayEvents_; // by array, for all elements
    std::unordered_map<std::string_view, std::string_view> loopArrays_;          // by the variable of a loop

    // While statements are read:
    std::size_t nextObject_ = 0;
    std::vector<std::pair<std::size_t, Target>> made_; // the statement's objects by their tokens
    bool isAtStart_ = false;
    Target result_; // of the call before, whose parenthesis closes at resultEnd_
    std::string resultText_;
    std::size_t resultEnd_ = Statement::none;

    bool hasDatabase_ = false;
    std::optional<std::string> tableName_;
    std::array<std::int16_t, sqlFunctionCount> sqlMethods_{};
};

} // namespace

std::string RemarkLine(const ReadRemark& remark) {
    return remark.line == 0 ? remark.text : Concatenate("Zeile ", remark.line, ": ", remark.text);
}

bool JavaReading::FoundAnything() const {
    return hasWindowSize || std::any_of(KindRows().begin(), KindRows().end(),
                                        [this](const KindRow& row) { return model.ElementCount(row.kind) > 1; });
}

JavaReading ReadJava(std::string_view bytes) {
    return UnderLabel(readLabel, [&] {
        const std::string source = DecodeSource(bytes);
        return Reader(source).Read();
    });
}

JavaReading ReadJavaFile(const std::filesystem::path& path) {
    return ReadJava(UnderLabel(readLabel, [&] { return ReadFileBytes(path); }));
}

} // namespace pirol
