#include "codegen/JavaImport.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/CallIndex.h"
#include "codegen/CreationIndex.h"

#include <algorithm>
#include <array>
#include <deque>
#include <unordered_map>

namespace pirol {
namespace {

constexpr std::string_view analyseLabel = "Main.File.Import.Analyse";

/// The fields of one creation statement: the object name, then the constructor's arguments.
class Fields {
  public:
    explicit Fields(std::string_view entry) : fields_(Split(entry, ',')) {}

    /// Raises RuntimeError::IndexOutOfRange when the statement has fewer arguments.
    std::string_view operator[](std::size_t index) const {
        if (index >= fields_.size())
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        return fields_[index];
    }
    std::int16_t Number(std::size_t index) const { return ToInt16((*this)[index]); }
    std::string_view Name() const { return fields_.front(); }

  private:
    std::vector<std::string_view> fields_;
};

/// The text to import and where its creation statements are.
struct Source {
    std::string_view text;
    CreationIndex creations;
};

/// Far more than any program has. In a bad source a single code 0 counts as a component, so a small file can ask for
/// very many.
constexpr std::size_t mostComponents = 1'000'000;

/// The creation statements of one class.
class Statements {
  public:
    Statements(Source& source, std::string_view javaClass) : lines_(source.creations.GetAllLines(javaClass)) {
        if (!lines_.empty())
            entries_ = Split(lines_, fieldSeparator, mostComponents + 1);
    }
    Statements(const Statements&) = delete;
    Statements& operator=(const Statements&) = delete;
    ~Statements() = default;

    const std::vector<std::string_view>& Entries() const { return entries_; }
    std::vector<std::string_view> Names() const {
        std::vector<std::string_view> names;
        for (const std::string_view entry : entries_)
            names.push_back(entry.substr(0, entry.find(',')));
        return names;
    }

  private:
    std::string lines_;
    std::vector<std::string_view> entries_;
};

std::string Caption(std::string_view field) {
    return std::string(TrimLeft(field));
}

/// A character or a file name: without single quotes and outer blanks, doubled backslashes made single.
std::string Unquoted(std::string_view field) {
    std::string text(Trim(field));
    std::erase(text, '\'');
    return ReplaceAll(text, "\\\\", "\\");
}

void SetBox(Control& control, const Fields& fields) {
    control.Left = fields.Number(1);
    control.Top = fields.Number(2);
    control.Width = fields.Number(3);
    control.Height = fields.Number(4);
}

/// Adds an element under the statement's name and lets `fill` set its properties. It becomes visible when it is
/// complete, so that a bad statement leaves no half component in the window.
template <class Fill>
void AddImported(ProjectModel& model, ComponentKind kind, std::string_view name, Fill&& fill) {
    if (model.CreationOrder().size() == mostComponents)
        throw RuntimeError(RuntimeError::OutOfMemory);
    Control& element = model.EditElement(model.AddElement(kind));
    element.Visible = false;
    fill(element);
    element.ObjectName = name;
    element.Visible = true;
}

/// How the statements of a class are read: where its box stands, if anywhere, and its own text.
struct ImportRow {
    ComponentKind kind;
    bool hasBox;
    std::string_view key; ///< property that receives the text, or empty
    std::size_t field;
    std::string (*clean)(std::string_view);
};

void ImportKind(Source& source, ProjectModel& model, const ImportRow& row) {
    const Statements statements(source, RowOf(row.kind).javaClass);
    for (const std::string_view entry : statements.Entries()) {
        const Fields fields(entry);
        AddImported(model, row.kind, fields.Name(), [&](Control& element) {
            if (row.hasBox)
                SetBox(element, fields);
            if (!row.key.empty())
                FindRow(element, row.key)->set(element, row.clean(fields[row.field]));
        });
    }
}

std::string AlignmentNumber(const std::string& value) {
    const std::string lower = LowerCase(value);
    constexpr std::string_view names[] = {"ausrichtung.links", "ausrichtung.mitte", "ausrichtung.rechts"};
    const auto* const found = std::find(std::begin(names), std::end(names), lower);
    return found == std::end(names) ? value : std::to_string(found - names);
}

void ImportLabels(Source& source, ProjectModel& model) {
    const Statements statements(source, RowOf(ComponentKind::Label).javaClass);
    CallIndex alignments(source.text, "setzeAusrichtung", statements.Names());
    CallIndex fontSizes(source.text, "setzeSchriftgroesse", statements.Names());
    const std::string defaultFontSize = std::to_string(dEtikett::defaultFontSize);
    for (const std::string_view entry : statements.Entries()) {
        const Fields fields(entry);
        AddImported(model, ComponentKind::Label, fields.Name(), [&](Control& element) {
            auto& label = static_cast<dEtikett&>(element);
            SetBox(label, fields);
            label.Caption = Caption(fields[5]);
            label.Align = ToInt16(AlignmentNumber(alignments.GetValue(fields.Name(), "0")));
            label.FontSize = ToInt16(fontSizes.GetValue(fields.Name(), defaultFontSize));
        });
    }
}

constexpr std::string_view radioButtonClass = "Radioknopf";

/// All radio buttons of the source, with positions in the window, found by name.
class RadioButtons {
  public:
    explicit RadioButtons(Source& source) {
        const Statements statements(source, radioButtonClass);
        for (const std::string_view entry : statements.Entries()) {
            const Fields fields(entry);
            byName_[std::string(fields.Name())].push_back({std::string(fields.Name()), Caption(fields[5]),
                                                           fields.Number(3), fields.Number(4), fields.Number(1),
                                                           fields.Number(2), false});
        }
    }

    /// The button of a name, or null. Buttons of the same name are given in the order of the source, so that each of
    /// two groups whose buttons share a name gets its own; the last one is given again and again.
    const cRadioButton* Next(const std::string& name) {
        const auto found = byName_.find(name);
        if (found == byName_.end())
            return nullptr;
        current_ = found->second.front();
        if (found->second.size() > 1)
            found->second.pop_front();
        return &current_;
    }

  private:
    std::unordered_map<std::string, std::deque<cRadioButton>> byName_;
    cRadioButton current_;
};

void ImportRadioGroups(Source& source, ProjectModel& model) {
    RadioButtons buttons(source);
    const Statements statements(source, RowOf(ComponentKind::OptionGroup).javaClass);
    CallIndex members(source.text, "fuegeEin", statements.Names());
    for (const std::string_view entry : statements.Entries()) {
        const Fields fields(entry);
        AddImported(model, ComponentKind::OptionGroup, fields.Name(), [&](Control& element) {
            auto& group = static_cast<dOptionsgruppe&>(element);
            group.EventClick = false; // events are not read back
            for (const std::string& name : members.GetValues(fields.Name()))
                if (const cRadioButton* button = buttons.Next(std::string(Trim(name))))
                    group.OptionButtons.push_back(*button);
            group.EncloseButtons();
        });
    }
}

/// Column titles of all tables together: far more than any program has. Without a limit a few bytes of a bad source
/// could ask for any number of them.
constexpr std::size_t mostColumns = 1'000'000;

void ImportTables(Source& source, ProjectModel& model) {
    const Statements statements(source, RowOf(ComponentKind::Table).javaClass);
    std::size_t columnsSoFar = 0;
    for (const std::string_view entry : statements.Entries()) {
        const Fields fields(entry);
        AddImported(model, ComponentKind::Table, fields.Name(), [&](Control& element) {
            auto& table = static_cast<dTabelle&>(element);
            SetBox(table, fields);
            table.Rows = fields.Number(5);
            const auto columns = static_cast<std::size_t>(std::max<std::int16_t>(fields.Number(6), 0));
            columnsSoFar += columns;
            if (columnsSoFar > mostColumns)
                throw RuntimeError(RuntimeError::OutOfMemory);
            table.Columns.assign(columns, {});
        });
    }
}

void ImportSounds(Source& source, ProjectModel& model) {
    const Statements statements(source, RowOf(ComponentKind::Sound).javaClass);
    CallIndex files(source.text, "ladeTon", statements.Names());
    for (const std::string_view entry : statements.Entries()) {
        const Fields fields(entry);
        AddImported(model, ComponentKind::Sound, fields.Name(), [&](Control& element) {
            static_cast<dMusik&>(element).File = Unquoted(files.GetValue(fields.Name(), {}));
        });
    }
}

void ImportPasswordTexts(Source& source, ProjectModel& model) {
    std::vector<std::string_view> names;
    for (std::size_t index = 1; index < model.ElementCount(ComponentKind::Password); ++index)
        names.push_back(model.Element({ComponentKind::Password, index}).ObjectName);
    CallIndex texts(source.text, "setzeInhalt", names);
    for (std::size_t index = 1; index <= names.size(); ++index) {
        auto& password = static_cast<dPassword&>(model.EditElement({ComponentKind::Password, index}));
        password.Caption = texts.GetValue(password.ObjectName, {});
    }
}

void ImportWindow(Source& source, ProjectModel& model) {
    const std::string size = ReplaceAll(GetValue(source.text, "super", {}, "640, 480"), " ", "");
    const Fields numbers(size);
    const std::int16_t width = numbers.Number(0);
    model.SetWindowSize(width, numbers.Number(1));
}

void ImportDatabase(Source& source, ProjectModel& model) {
    constexpr std::string_view database = "hatDatenbank";
    const std::string connection = CallIndex(source.text, "verbindeMySQL", {database}).GetValue(database, {});
    if (connection.empty())
        return;
    const Fields fields(connection);
    SQLSettings& sql = model.EditSql();
    // Database first, then server: the order the library's call expects.
    std::string SQLSettings::*const texts[] = {&SQLSettings::Database, &SQLSettings::Server, &SQLSettings::User,
                                               &SQLSettings::Password};
    std::size_t field = 0;
    for (const auto text : texts)
        sql.*text = TrimLeft(fields[field++]);
}

void ImportAll(std::string_view text, ProjectModel& model) {
    using enum ComponentKind;
    constexpr std::size_t ownField = 5;
    std::array<std::string_view, kindCount + 1> classes = {radioButtonClass};
    std::transform(KindRows().begin(), KindRows().end(), classes.begin() + 1,
                   [](const KindRow& row) { return row.javaClass; });
    Source source{text, CreationIndex(text, classes)};
    ImportWindow(source, model);
    ImportLabels(source, model);
    for (const ComponentKind kind : {Button, TextField, CharField, RowField})
        ImportKind(source, model, {kind, true, keys::value.key, ownField, Caption});
    ImportKind(source, model, {Password, true, keys::passchar.key, ownField, Unquoted});
    ImportPasswordTexts(source, model);
    ImportKind(source, model, {CheckBox, true, keys::value.key, ownField, Caption});
    ImportRadioGroups(source, model);
    ImportTables(source, model);
    ImportKind(source, model, {Picture, true, keys::pictureFile.key, ownField, Unquoted});
    ImportSounds(source, model);
    ImportKind(source, model, {Movie, false, keys::movieFile.key, 1, Unquoted});
    ImportDatabase(source, model);
}

} // namespace

void AnalyseCode(std::string_view source, ProjectModel& model) {
    UnderLabel(analyseLabel, [&] {
        model.Reset();
        if (source.find('\t') == std::string_view::npos)
            ImportAll(source, model); // a large source is not worth copying for nothing
        else
            ImportAll(ReplaceAll(source, "\t", "    "), model);
    });
}

std::string ReadSource(const std::filesystem::path& path) {
    return UnderLabel(analyseLabel, [&] { return FromWindows1252(ReadFileBytes(path)); });
}

bool FoundAnything(std::string_view source, const ProjectModel& imported) {
    return source.find("super(") != std::string_view::npos ||
           std::any_of(KindRows().begin(), KindRows().end(),
                       [&imported](const KindRow& row) { return imported.ElementCount(row.kind) > 1; });
}

std::string GetAllLines(std::string_view source, std::string_view javaClass) {
    return CreationIndex(source, {&javaClass, 1}).GetAllLines(javaClass);
}

std::string GetValue(std::string_view source, std::string_view variable, std::string_view method,
                     std::string_view defaultValue) {
    return UnderLabel("Main.File.Import.GetValue", [&] {
        const std::string call = Concatenate(variable, method.empty() ? "" : ".", method, "(");
        const std::size_t hit = source.find(call);
        if (hit == std::string_view::npos)
            return std::string(defaultValue);
        return WithoutQuotes(ArgumentScanner(source).Read(hit + call.size()));
    });
}

} // namespace pirol
