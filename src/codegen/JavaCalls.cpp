#include "codegen/JavaCalls.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>

namespace pirol {
namespace {

using enum ComponentKind;

constexpr std::string_view registrationPrefix = "setzeBearbeiter";
constexpr int deepestMenu = 100;

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

std::string WithoutIndices(std::string_view key) {
    return std::string(key.substr(0, key.find('[')));
}

bool IsComponent(const JavaTarget& target, ComponentKind kind) {
    return target.sort == JavaTarget::Component && target.component.kind == kind;
}

JavaTokens ArgumentAt(const JavaCall& call, std::size_t index) {
    return index < call.arguments.size() ? call.arguments[index] : JavaTokens();
}

/// What remarks call the receiver.
std::string Receiver(const JavaCall& call) {
    return Concatenate("»", Excerpt(call.receiverText), "«");
}

} // namespace

JavaCalls::JavaCalls(const JavaOutline& outline, JavaObjects& objects, ProjectModel& model, RemarkList& remarks)
    : outline_(outline), objects_(objects), model_(model), remarks_(remarks) {
    for (const JavaObject& object : objects.All()) {
        // A call may stand before its object is made, in a method further up.
        if (!object.key.empty())
            variables_.try_emplace(object.key, object.target);
        if (object.key.find('[') != std::string::npos)
            arrayEvents_.try_emplace(WithoutIndices(object.key));
    }
}

void JavaCalls::Finish() {
    FinishEvents();
    FinishGroups();
    FinishDatabase();
    model_.EditMenus() = std::move(objects_.Menus());
}

void JavaCalls::Read(const JavaStatement& statement, const JavaHead& head, const JavaPlace& place) {
    if (head.kind == JavaHead::Method)
        NoteMethod(head);
    method_ = place.method;
    isAtStart_ = outline_.RunsAtStart(place.method);
    made_.clear();
    for (const JavaCreation& creation : CreationsIn(statement, place, outline_.Constants()))
        MeetObject(statement, creation);
    if (statement.HasWord(0, "super") && statement.HasSign(1, "("))
        ReadWindowSize(statement);
    if (statement.HasWord(0, "for"))
        NoteLoop(statement);
    resultEnd_ = JavaStatement::none;
    for (std::size_t index = 1; index + 1 < statement.Size(); ++index)
        if (statement[index].IsWord() && statement[index - 1].IsSign(".") && statement[index + 1].IsSign("("))
            ReadCall(statement, index);
}

/// The objects come in the same order as when they were made; from here on their variables mean them.
void JavaCalls::MeetObject(const JavaStatement& statement, const JavaCreation& creation) {
    if (nextObject_ == objects_.All().size() || objects_.All()[nextObject_].className != creation.className ||
        objects_.All()[nextObject_].line != statement[creation.token].line)
        return;
    const JavaObject& object = objects_.All()[nextObject_++];
    if (!object.key.empty())
        variables_[object.key] = object.target;
    made_.push_back({creation.token, object.target});
}

void JavaCalls::ReadWindowSize(const JavaStatement& statement) {
    if (hasWindowSize_)
        return;
    const std::vector<JavaTokens> arguments = statement.Arguments(1);
    std::optional<std::int16_t> width;
    std::optional<std::int16_t> height;
    if (arguments.size() >= 2) {
        width = NumberOf(arguments[arguments.size() - 2], outline_.Constants());
        height = NumberOf(arguments.back(), outline_.Constants());
    }
    hasWindowSize_ = width && height;
    if (hasWindowSize_)
        model_.SetWindowSize(*width, *height);
    else
        remarks_.Add(statement[0].line, "Die Größe des Fensters steht nicht in Zahlen da.");
}

/// In "for (Knopf b : tasten)" b stands for each of an array.
void JavaCalls::NoteLoop(const JavaStatement& statement) {
    if (statement.Size() > 5 && statement[3].IsWord() && statement[4].IsSign(":") && statement[5].IsWord()) {
        variables_.erase(std::string(statement[3].text));
        loopArrays_[statement[3].text] = statement[5].text;
    }
}

void JavaCalls::ReadCall(const JavaStatement& statement, std::size_t name) {
    const std::string_view method = statement[name].text;
    const bool isRegistration = method.starts_with(registrationPrefix);
    JavaCall call{statement, name, {}, {}, {}, {}};
    const bool isStatement =
        FindReceiver(call) && statement.End() == ';' && statement.Partner(name + 1) + 1 == statement.Size();
    // What a handler does is the program's; what a method does with its own objects belongs to them.
    const bool isOwn = call.receiver.sort != JavaTarget::Nothing && call.receiver.method == method_;
    if (!isRegistration && !isAtStart_ && !isOwn && method != "verbindeMySQL")
        return;
    call.arguments = statement.Arguments(name + 1);
    if (isRegistration ? ReadRegistration(call) : ReadKnownCall(call))
        return;
    if (isStatement && call.receiver.sort != JavaTarget::Nothing)
        remarks_.Add(call.Line(),
                     Concatenate("»", Excerpt(call.receiverText), ".", Excerpt(method), "(...)« kennt Pirol nicht."));
}

/// True when the statement begins with the receiver.
bool JavaCalls::FindReceiver(JavaCall& call) {
    const std::size_t point = call.name - 1;
    if (point == resultEnd_ + 1 && resultEnd_ != JavaStatement::none) {
        call.receiver = result_;
        call.receiverText = resultText_;
        return true;
    }
    const JavaVariable variable = VariableBefore(call.statement, point);
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
bool JavaCalls::ReadKnownCall(const JavaCall& call) {
    struct CallRow {
        std::string_view method;
        bool (JavaCalls::*read)(const JavaCall&);
    };
    static constexpr CallRow rows[] = {
        {"fuegeEin", &JavaCalls::FillGroup},
        {"haengeAn", &JavaCalls::AddEntry},
        {"haengeTrennungAn", &JavaCalls::AddSeparator},
        {"haengeZeileAn", &JavaCalls::AddMenuLine},
        {"neuesUntermenue", &JavaCalls::AddSubMenu},
        {"sendeSQL", &JavaCalls::ReadQuery},
        {"setzeSpaltentitelAn", &JavaCalls::SetColumnTitle},
        {"verbindeMySQL", &JavaCalls::ReadConnection},
    };
    for (const CallRow& row : rows)
        if (row.method == call.Method())
            return (this->*row.read)(call);
    for (const SetterRow& row : setters)
        if (row.method == call.Method())
            return ReadSetter(call, row.property);
    return false;
}

bool JavaCalls::ReadSetter(const JavaCall& call, const PropertyKey& key) {
    bool isRead = true;
    if (call.receiver.sort == JavaTarget::RadioButton && &key == &keys::value) {
        const std::optional<std::string> text = TextOf(ArgumentAt(call, 0));
        isRead = text.has_value();
        objects_.RadioButtons()[call.receiver.radioButton].button.Caption = text.value_or("");
    } else if (call.receiver.sort == JavaTarget::Component) {
        Control& control = model_.EditElement(call.receiver.component);
        const PropertyRow* row = FindRow(control, key.key);
        if (row == nullptr)
            return false;
        isRead = objects_.SetProperty(control, key, ArgumentAt(call, 0));
    } else {
        return false;
    }
    if (!isRead)
        objects_.RemarkValue(call.Line(), Receiver(call), key);
    return true;
}

bool JavaCalls::AddEntry(const JavaCall& call) {
    if (!IsComponent(call.receiver, ComboBox))
        return false;
    if (std::optional<std::string> entry = TextOf(ArgumentAt(call, 0)))
        static_cast<dAuswahl&>(model_.EditElement(call.receiver.component)).Entries.push_back(std::move(*entry));
    else
        objects_.RemarkValue(call.Line(), Receiver(call), keys::combovalues);
    return true;
}

bool JavaCalls::SetColumnTitle(const JavaCall& call) {
    if (!IsComponent(call.receiver, Table))
        return false;
    auto& columns = static_cast<dTabelle&>(model_.EditElement(call.receiver.component)).Columns;
    std::optional<std::string> title = TextOf(ArgumentAt(call, 0));
    const std::optional<std::int16_t> number = NumberOf(ArgumentAt(call, 1), outline_.Constants());
    if (title && number && *number >= 1 && static_cast<std::size_t>(*number) <= columns.size())
        columns[static_cast<std::size_t>(*number) - 1] = std::move(*title); // the library counts from 1
    else
        objects_.RemarkValue(call.Line(), Receiver(call), keys::columns);
    return true;
}

bool JavaCalls::FillGroup(const JavaCall& call) {
    if (!IsComponent(call.receiver, OptionGroup))
        return false;
    const JavaTarget member = TargetOf(call.statement, ArgumentAt(call, 0));
    if (member.sort != JavaTarget::RadioButton) {
        remarks_.Add(call.Line(), Concatenate(Receiver(call), ": Der Radioknopf ist unbekannt."));
    } else if (objects_.RadioButtons()[member.radioButton].hasGroup) {
        remarks_.Add(call.Line(), Concatenate(Receiver(call), ": »", Excerpt(objects_.NameOf(member)),
                                              "« ist schon in einer Gruppe."));
    } else {
        objects_.RadioButtons()[member.radioButton].hasGroup = true;
        objects_.Groups()[call.receiver.component.index - 1].buttons.push_back(member.radioButton);
    }
    return true;
}

/// What an argument stands for: a variable, or an object made in place.
JavaTarget JavaCalls::TargetOf(const JavaStatement& statement, JavaTokens expression) const {
    if (expression.empty())
        return {};
    const auto begin = static_cast<std::size_t>(expression.data() - statement.All().data());
    if (expression.front().IsWord("new")) {
        const auto found = std::lower_bound(made_.begin(), made_.end(), begin,
                                            [](const auto& made, std::size_t token) { return made.first < token; });
        return found == made_.end() || found->first != begin ? JavaTarget() : found->second;
    }
    const JavaVariable variable = VariableBefore(statement, begin + expression.size());
    const std::optional<std::string> key = KeyOf(variable, outline_.Constants());
    const auto found = key && variable.begin == begin ? variables_.find(*key) : variables_.end();
    return found == variables_.end() ? JavaTarget() : found->second;
}

bool JavaCalls::AddMenuLine(const JavaCall& call) {
    if (call.receiver.sort != JavaTarget::MenuOrSubMenu)
        return false;
    std::optional<std::string> caption = TextOf(ArgumentAt(call, 0));
    if (!caption) {
        remarks_.Add(call.Line(),
                     Concatenate(Receiver(call), ": Die Menüzeile fehlt, weil ihre Beschriftung nicht zu lesen ist."));
        return true;
    }
    const cMenu* line = call.receiver.menu->AddEntry(std::move(*caption), cMenu::Entry);
    CompareHandler(call.Line(), line->Caption, ArgumentAt(call, 1), line->EventMethod());
    return true;
}

bool JavaCalls::AddSeparator(const JavaCall& call) {
    if (call.receiver.sort != JavaTarget::MenuOrSubMenu)
        return false;
    call.receiver.menu->AddEntry({}, cMenu::Separator);
    return true;
}

bool JavaCalls::AddSubMenu(const JavaCall& call) {
    if (call.receiver.sort != JavaTarget::MenuOrSubMenu)
        return false;
    std::optional<std::string> caption = TextOf(ArgumentAt(call, 0));
    if (!caption)
        objects_.RemarkValue(call.Line(), Receiver(call), keys::value);
    int depth = 0;
    for (const cMenu* menu = call.receiver.menu; menu->Parent() != nullptr; menu = menu->Parent())
        ++depth;
    if (depth > 0)
        remarks_.Add(call.Line(),
                     Concatenate(Receiver(call), ": Ein Untermenü in einem Untermenü kann Pirol nicht erzeugen."));
    if (depth == deepestMenu)
        return true;
    result_ = {.sort = JavaTarget::MenuOrSubMenu,
               .menu = call.receiver.menu->AddEntry(caption.value_or(""), cMenu::SubMenu),
               .method = method_};
    resultEnd_ = call.statement.Partner(call.name + 1);
    const std::size_t begin = VariableBefore(call.statement, call.name - 1).begin;
    const bool isAssigned = begin > 0 && call.statement[begin - 1].IsSign("=");
    const JavaVariable variable = isAssigned ? VariableBefore(call.statement, begin - 1) : JavaVariable();
    resultText_ = isAssigned ? variable.name : caption.value_or("");
    if (const std::optional<std::string> key = KeyOf(variable, outline_.Constants()); key && isAssigned)
        variables_[*key] = result_;
    return true;
}

/// Compares the handler that the source registers with the name that the generator gives it.
void JavaCalls::CompareHandler(std::size_t line, std::string_view who, JavaTokens handler, std::string_view ours) {
    if (handler.empty())
        return;
    const std::optional<std::string> theirs = TextOf(handler);
    if (theirs && *theirs == ours)
        return;
    remarks_.Add(line, Concatenate("»", Excerpt(who), "«: Die Ereignismethode heißt in Pirol »", Excerpt(ours), "«",
                                   theirs ? Concatenate(", im Quelltext »", Excerpt(*theirs), "«.") : "."));
}

bool JavaCalls::ReadRegistration(const JavaCall& call) {
    const std::string_view suffix = call.Method().substr(registrationPrefix.size());
    if (!call.array.empty()) {
        NoteArrayEvent(call, suffix);
        return true;
    }
    if (call.receiver.sort != JavaTarget::Component && call.receiver.sort != JavaTarget::RadioButton)
        return call.receiver.sort == JavaTarget::Nothing;
    if (!Register(call.receiver, suffix))
        remarks_.Add(call.Line(),
                     Concatenate(Receiver(call), ": Das Ereignis »", Excerpt(suffix), "« gibt es in Pirol nicht."));
    else
        CompareHandler(call.Line(), call.receiverText, ArgumentAt(call, 0),
                       Concatenate(objects_.NameOf(call.receiver), suffix));
    return true;
}

/// Switches an event on; false when the component does not have it.
bool JavaCalls::Register(const JavaTarget& target, std::string_view suffix) {
    if (target.sort == JavaTarget::RadioButton) {
        objects_.RadioButtons()[target.radioButton].isRegistered |= suffix == suffixes::clicked;
        return suffix == suffixes::clicked;
    }
    if (target.sort != JavaTarget::Component || target.component.kind == OptionGroup)
        return false; // a group's click is that of its buttons
    Control& control = model_.EditElement(target.component);
    for (const PropertyRow& row : control.Table().Rows())
        if (row.isOn != nullptr && row.handlerSuffix == suffix) {
            row.set(control, FlagText(true));
            return true;
        }
    return false;
}

/// A loop registers the same handler for all elements, those with a number included.
void JavaCalls::NoteArrayEvent(const JavaCall& call, std::string_view suffix) {
    constexpr std::size_t mostEvents = 16;
    const auto found = arrayEvents_.find(call.array);
    if (found == arrayEvents_.end())
        return;
    std::vector<std::string_view>& events = found->second;
    if (std::find(events.begin(), events.end(), suffix) == events.end() && events.size() < mostEvents)
        events.push_back(suffix);
    remarks_.Add(call.Line(), Concatenate("»", Excerpt(call.array),
                                          "«: Die Ereignismethoden heißen in Pirol nach jeder Komponente, »",
                                          Excerpt(call.array), "0", Excerpt(suffix), "« und so fort."));
}

void JavaCalls::FinishEvents() {
    for (const JavaObject& object : objects_.All()) {
        if (object.target.sort == JavaTarget::Nothing)
            continue;
        if (object.handler && Register(object.target, suffixes::clicked)) {
            const std::string ours = Concatenate(objects_.NameOf(object.target), suffixes::clicked);
            const JavaToken theirs{TokenKind::Text, *object.handler, object.line};
            CompareHandler(object.line, objects_.NameOf(object.target), {&theirs, 1}, ours);
        } else if (object.handler) {
            remarks_.Add(object.line, Concatenate(JavaObjects::Described(object), ": Die Angabe »",
                                                  Excerpt(*object.handler), "« ist unbekannt."));
        }
        if (object.key.find('[') != std::string::npos)
            for (const std::string_view suffix : arrayEvents_.find(WithoutIndices(object.key))->second)
                Register(object.target, suffix);
    }
}

void JavaCalls::FinishGroups() {
    for (std::size_t index = 0; index < objects_.Groups().size(); ++index) {
        auto& group = static_cast<dOptionsgruppe&>(model_.EditElement({OptionGroup, index + 1}));
        std::size_t registered = 0;
        for (const std::size_t member : objects_.Groups()[index].buttons) {
            group.OptionButtons.push_back(objects_.RadioButtons()[member].button);
            registered += objects_.RadioButtons()[member].isRegistered ? 1 : 0;
        }
        group.EventClick = registered > 0;
        const JavaObject& object = objects_.All()[objects_.Groups()[index].object];
        if (registered > 0 && registered < group.OptionButtons.size())
            remarks_.Add(object.line, JavaObjects::Described(object) +
                                          ": In Pirol bekommen alle ihre Radioknöpfe eine Ereignismethode.");
        try {
            group.EncloseButtons();
        } catch (const RuntimeError&) {
            group.OptionButtons.clear();
            remarks_.Add(object.line,
                         JavaObjects::Described(object) + ": Die Radioknöpfe liegen zu weit auseinander und fehlen.");
        }
    }
    for (const RadioButtonInSource& radioButton : objects_.RadioButtons())
        if (!radioButton.hasGroup)
            objects_.RemarkLeftOut(objects_.All()[radioButton.object], "er in keiner Radiogruppe ist");
}

bool JavaCalls::ReadConnection(const JavaCall& call) {
    if (hasDatabase_)
        return true;
    hasDatabase_ = true;
    // Database first, then server: the order the library's call expects.
    std::string SQLSettings::*const texts[] = {&SQLSettings::Database, &SQLSettings::Server, &SQLSettings::User,
                                               &SQLSettings::Password};
    SQLSettings& sql = model_.EditSql();
    for (std::size_t index = 0; index < std::size(texts); ++index) {
        const std::optional<std::string> text = TextOf(ArgumentAt(call, index));
        if (!text)
            remarks_.Add(call.Line(),
                         Concatenate("Datenbank: Die ", index + 1, ". Angabe der Verbindung ist nicht zu lesen."));
        sql.*texts[index] = text.value_or("");
    }
    return true;
}

bool JavaCalls::ReadQuery(const JavaCall& call) {
    constexpr std::string_view begin = "SELECT * FROM ";
    const std::optional<std::string> query = TextOf(ArgumentAt(call, 0));
    if (query && query->starts_with(begin) && !tableName_)
        tableName_ = query->substr(begin.size());
    else
        remarks_.Add(call.Line(),
                     "Datenbank: Die Abfrage ist nicht die eine, mit der das Programm beginnt; sie fehlt.");
    return true;
}

void JavaCalls::NoteMethod(const JavaHead& head) {
    for (std::size_t index = 0; index < sqlFunctionCount; ++index) {
        const std::string_view signature = SQLFunctions()[index].Name();
        const std::size_t bracket = signature.find('(');
        const std::size_t parameters = signature.ends_with("()") ? 0 : 1;
        if (head.name == signature.substr(0, bracket) && head.parameters == parameters)
            sqlMethods_[index] = 1;
    }
}

void JavaCalls::FinishDatabase() {
    if (!hasDatabase_)
        return;
    model_.EditSql().TableName = tableName_.value_or("");
    model_.EditSql().Flags = sqlMethods_;
}

} // namespace pirol
