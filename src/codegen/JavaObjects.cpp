#include "codegen/JavaObjects.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/JavaSyntax.h"

#include <algorithm>
#include <unordered_set>

namespace pirol {
namespace {

using enum ComponentKind;

constexpr std::string_view radioButtonClass = "Radioknopf";
constexpr std::string_view menuClass = "Menue";
/// The variable that the generator adds to a menu bar.
constexpr std::string_view subMenuVariable = "hatMenueTemp";

/// Far more than any program has.
constexpr std::size_t mostObjects = 1'000'000;
constexpr std::size_t mostColumns = 1'000'000;
constexpr std::size_t mostNameBytes = 1000;

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

/// A name of letters, digits and "_" that no keyword and nothing else has. Each costs constant time on average.
class NameGiver {
  public:
    bool Take(const std::string& name) {
        return IsJavaIdentifier(name) && !IsJavaKeyword(name) && name.size() <= mostNameBytes &&
               taken_.insert(name).second;
    }

    /// The name itself, or with a number from `first` on.
    std::string Unique(std::string_view wanted, int first) {
        std::string base = Cleaned(wanted);
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

std::string_view UsualName(const JavaTarget& target) {
    if (target.sort == JavaTarget::Component)
        return RowOf(target.component.kind).namePrefix;
    return target.sort == JavaTarget::RadioButton ? "hatRadioKnopf" : "hatMenue";
}

bool IsReadClass(std::string_view className) {
    return KindByJavaClass(className) || className == radioButtonClass || className == menuClass;
}

} // namespace

void JavaObjects::Make(const JavaStatement& statement, const JavaPlace& place) {
    if (statement.IsCut())
        remarks_.Add(statement[0].line, "Die Anweisung ist zu lang und wird nicht ganz gelesen.");
    for (const JavaCreation& creation : CreationsIn(statement, place, outline_.Constants()))
        MakeObject(statement, place, creation);
}

void JavaObjects::MakeObject(const JavaStatement& statement, const JavaPlace& place, const JavaCreation& creation) {
    const bool isOwn = outline_.IsOwnClass(creation.className);
    const std::string_view library = isOwn ? outline_.LibraryBase(creation.className) : creation.className;
    if (!IsReadClass(library) && !(isOwn && IsReadClass(creation.className)))
        return;
    JavaObject object{creation.key.value_or(Concatenate(creation.variable, "[?]")),
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
    object.target.method = place.method;
    if (object.target.sort != JavaTarget::Nothing && !outline_.RunsAtStart(place.method))
        remarks_.Add(object.line, Concatenate(Described(object), ": wird erst in »", Excerpt(place.method),
                                              "« erzeugt, im Projekt gleich zu Beginn."));
    objects_.push_back(std::move(object));
}

void JavaObjects::AddObject(JavaObject& object, const std::vector<JavaTokens>& arguments) {
    if (object.className == menuClass)
        AddMenu(object, arguments);
    else if (object.className == radioButtonClass)
        AddRadioButton(object, arguments);
    else
        AddComponent(object, arguments);
}

void JavaObjects::AddMenu(JavaObject& object, const std::vector<JavaTokens>& arguments) {
    const std::optional<std::string> caption = TextOf(arguments.empty() ? JavaTokens() : arguments.front());
    if (!caption)
        RemarkValue(object.line, Described(object), keys::value);
    object.target = {.sort = JavaTarget::MenuOrSubMenu, .menu = &menus_.Append(caption.value_or(""), {})};
}

/// Left, top, width and height from the first arguments; a remark and nothing when they cannot be read.
std::optional<JavaBox> JavaObjects::BoxOf(const JavaObject& object, const std::vector<JavaTokens>& arguments) {
    JavaBox box{};
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

void JavaObjects::AddRadioButton(JavaObject& object, const std::vector<JavaTokens>& arguments) {
    const auto box = BoxOf(object, arguments);
    if (!box)
        return;
    RadioButtonInSource radioButton{.button = {}, .object = objects_.size()};
    cRadioButton& button = radioButton.button;
    std::tie(button.Left, button.Top, button.Width, button.Height) = std::tuple_cat(*box);
    const std::optional<std::string> caption = TextOf(arguments.size() < 5 ? JavaTokens() : arguments[4]);
    if (!caption)
        RemarkValue(object.line, Described(object), keys::value);
    button.Caption = caption.value_or("");
    object.target = {.sort = JavaTarget::RadioButton, .radioButton = radioButtons_.size()};
    TakeHandler(object, arguments, 5);
    radioButtons_.push_back(std::move(radioButton));
}

void JavaObjects::AddComponent(JavaObject& object, const std::vector<JavaTokens>& arguments) {
    const ConstructorRow& row = constructors[Position(*KindByJavaClass(object.className))];
    std::size_t next = 0;
    const auto box = row.hasBox ? BoxOf(object, arguments) : JavaBox{};
    if (!box)
        return;
    object.target = {.sort = JavaTarget::Component, .component = model_.AddElement(row.kind)};
    Control& control = model_.EditElement(object.target.component);
    if (row.hasBox) {
        std::tie(control.Left, control.Top, control.Width, control.Height) = std::tuple_cat(*box);
        next = box->size();
    }
    for (const PropertyKey* property : row.properties) {
        if (property == nullptr)
            break;
        if (!SetProperty(control, *property, next < arguments.size() ? arguments[next] : JavaTokens()))
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
void JavaObjects::TakeHandler(JavaObject& object, const std::vector<JavaTokens>& arguments, std::size_t usual) {
    if (arguments.size() <= usual)
        return;
    const JavaTokens last = arguments[usual];
    if (arguments.size() == usual + 1 && last.size() == 1 && last.front().kind == TokenKind::Text)
        object.handler = last.front().text;
    else
        remarks_.Add(object.line, Concatenate(Described(object), ": Die weiteren Angaben sind unbekannt."));
}

/// Gives a property the value of an expression, if it can be read.
bool JavaObjects::SetProperty(Control& control, const PropertyKey& key, JavaTokens expression) {
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

bool JavaObjects::SetColumns(dTabelle& table, const std::optional<std::int16_t>& count) {
    if (!count || *count < 0 || columns_ + static_cast<std::size_t>(*count) > mostColumns)
        return false;
    columns_ += static_cast<std::size_t>(*count);
    table.Columns.assign(static_cast<std::size_t>(*count), {});
    return true;
}

void JavaObjects::Name() {
    NameGiver names;
    if (!menus_.IsEmpty())
        names.Take(std::string(subMenuVariable));
    std::vector<bool> isNamed(objects_.size());
    for (std::size_t index = 0; index < objects_.size(); ++index)
        if (objects_[index].target.sort != JavaTarget::Nothing && names.Take(objects_[index].key)) {
            isNamed[index] = true;
            SetName(objects_[index].target, objects_[index].key);
        }
    for (std::size_t index = 0; index < objects_.size(); ++index) {
        const JavaObject& object = objects_[index];
        if (object.target.sort == JavaTarget::Nothing || isNamed[index])
            continue;
        const bool hasName = !object.key.empty();
        std::string name = names.Unique(hasName ? NameOfKey(object.key) : UsualName(object.target), hasName ? 2 : 1);
        remarks_.Add(object.line, Concatenate(Described(object), ": heißt im Projekt »", Excerpt(name), "«."));
        SetName(object.target, std::move(name));
    }
}

void JavaObjects::SetName(const JavaTarget& target, std::string name) {
    if (target.sort == JavaTarget::Component)
        model_.EditElement(target.component).ObjectName = std::move(name);
    else if (target.sort == JavaTarget::RadioButton)
        radioButtons_[target.radioButton].button.Name = std::move(name);
    else
        target.menu->Name = std::move(name);
}

const std::string& JavaObjects::NameOf(const JavaTarget& target) const {
    return target.sort == JavaTarget::Component ? model_.Element(target.component).ObjectName
                                                : radioButtons_[target.radioButton].button.Name;
}

std::string JavaObjects::Described(const JavaObject& object) {
    return object.key.empty() ? Concatenate(Excerpt(object.className), " ohne Namen")
                              : Concatenate(Excerpt(object.className), " »", Excerpt(object.key), "«");
}

void JavaObjects::RemarkLeftOut(const JavaObject& object, std::string_view reason) {
    remarks_.Add(object.line, Concatenate(Described(object), ": nicht gelesen, weil ", reason, "."));
}

void JavaObjects::RemarkValue(std::size_t line, std::string_view what, const PropertyKey& key) {
    remarks_.Add(line, Concatenate(what, ", ", key.label, ": Der Wert ist nicht zu lesen."));
}

} // namespace pirol
