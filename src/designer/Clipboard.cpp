#include "designer/Clipboard.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "designer/Grid.h"
#include "designer/PropertyPanel.h"
#include "project/Snapshot.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <set>
#include <system_error>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace pirol {
namespace {

template <class Function>
void ForEachProperty(const Control& control, Function&& function) {
    for (const std::vector<PropertyRow>* rows : {&CommonRows(), &control.Table().Rows()})
        for (const PropertyRow& row : *rows)
            function(row);
}

/// The names of the visible components and of their radio buttons, but for those of one.
template <class Function>
void ForEachName(const ProjectModel& model, std::optional<ComponentRef> except, Function&& function) {
    const Control* const left = except ? &model.Element(*except) : nullptr;
    model.ForEachVisible([&](const Control& control) {
        if (&control == left)
            return;
        function(control.ObjectName);
        if (control.Kind() == ComponentKind::OptionGroup)
            for (const cRadioButton& button : static_cast<const dOptionsgruppe&>(control).OptionButtons)
                function(button.Name);
    });
}

/// The names that are taken, and the next ones that are free.
class FreeNames {
  public:
    explicit FreeNames(const ProjectModel& model, std::optional<ComponentRef> except = {}) {
        ForEachName(model, except, [this](const std::string& name) { names_.insert(name); });
    }

    /// The name itself when it is free, otherwise the same with the next free number. It is taken then.
    std::string Take(const std::string& wanted) {
        if (Trim(wanted).empty() || names_.insert(wanted).second)
            return wanted;
        const std::size_t digits = wanted.size() - (wanted.find_last_not_of("0123456789") + 1);
        const std::string base = wanted.substr(0, wanted.size() - digits);
        std::uint64_t number = 1;
        std::from_chars(wanted.data() + base.size(), wanted.data() + wanted.size(), number);
        // Names with the same beginning follow one another; none is looked for twice.
        std::uint64_t& last = lastGiven_[base];
        last = std::max(last, number);
        std::string name;
        do
            name = Concatenate(base, ++last);
        while (!names_.insert(name).second);
        return name;
    }

  private:
    std::unordered_set<std::string> names_;
    std::unordered_map<std::string, std::uint64_t> lastGiven_;
};

void TakeNames(FreeNames& names, Control& control) {
    control.ObjectName = names.Take(control.ObjectName);
    if (control.Kind() == ComponentKind::OptionGroup)
        for (cRadioButton& button : static_cast<dOptionsgruppe&>(control).OptionButtons)
            button.Name = names.Take(button.Name);
}

/// What stands in a file as one field must do so in every design.
ComponentRef AppendCopy(ProjectModel& model, const ProjectModel& source, ComponentRef component) {
    const ComponentRef added = model.AddElement(component.kind);
    model.SetPlacementNumber(added, static_cast<int>(added.index));
    Control& control = model.EditElement(added);
    const Control& original = source.Element(component);
    ForEachProperty(original,
                    [&](const PropertyRow& row) { row.set(control, OnOneLine(row.key->editor, row.get(original))); });
    return added;
}

std::vector<ComponentRef> VisibleInOrder(const ProjectModel& model) {
    std::vector<ComponentRef> components;
    for (const ComponentRef component : model.CreationOrder())
        if (model.Element(component).Visible)
            components.push_back(component);
    return components;
}

using Box = std::tuple<int, int, int, int>;

Box MovedBox(const Control& control, int by) {
    return {control.Left + by, control.Top + by, control.Width, control.Height};
}

/// By how much, down and to the right, the part is moved so that none lies exactly on another one; 0 where there is no
/// room left.
int FreeOffset(const ProjectModel& model, const ProjectModel& part) {
    std::set<Box> boxes;
    model.ForEachVisible([&boxes](const Control& control) { boxes.insert(MovedBox(control, 0)); });
    int farthest = std::numeric_limits<std::int16_t>::min();
    part.ForEachVisible([&farthest](const Control& control) {
        farthest = std::max<int>({farthest, control.Left, control.Top});
    });
    for (int by = 0; farthest + by <= std::numeric_limits<std::int16_t>::max(); by += gridSpacing) {
        bool isFree = true;
        part.ForEachVisible([&](const Control& control) { isFree = isFree && !boxes.contains(MovedBox(control, by)); });
        if (isFree)
            return by;
    }
    return 0;
}

/// Appends the visible components of a part and gives the copies, in the order of creation.
std::vector<ComponentRef> AppendPart(ProjectModel& model, const ProjectModel& part, int offset) {
    FreeNames names(model);
    std::vector<ComponentRef> copies;
    for (const ComponentRef component : VisibleInOrder(part)) {
        copies.push_back(AppendCopy(model, part, component));
        Control& copy = model.EditElement(copies.back());
        copy.Left = ToInt16(copy.Left + offset);
        copy.Top = ToInt16(copy.Top + offset);
        TakeNames(names, copy);
    }
    return copies;
}

void PastePart(Document& document, const ProjectModel& part, std::string_view deed, int offset) {
    const std::string label = StepLabel(AllComponents(part), deed);
    if (!label.empty())
        document.EditAndSelect(label, [&](ProjectModel& model) { return Selection(AppendPart(model, part, offset)); });
}

/// The files of the part's pictures, sounds and films that are not where a project in that folder would look.
std::string MissingFiles(const ProjectModel& part, const std::filesystem::path& folder) {
    std::set<std::string> missing;
    part.ForEachVisible([&](const Control& control) {
        for (const PropertyRow& row : control.Table().Rows()) {
            if (row.key->editor != EditorKind::File)
                continue;
            const std::string name = row.get(control);
            std::error_code unknown;
            if (!name.empty() && !std::filesystem::exists(folder / PathOf(name), unknown))
                missing.insert(Excerpt(name));
        }
    });
    constexpr std::size_t mostNamed = 10;
    std::string text;
    std::size_t named = 0;
    for (const std::string& name : missing)
        if (named++ < mostNamed)
            Append(text, text.empty() ? "" : ", ", "»", name, "«");
    if (missing.size() > mostNamed)
        Append(text, " und ", missing.size() - mostNamed, " weitere");
    return text;
}

} // namespace

ProjectModel SelectedPart(const Document& document) {
    ProjectModel part;
    for (const ComponentRef component : document.Model().CreationOrder())
        if (document.AllSelected().Contains(component))
            AppendCopy(part, document.Model(), component);
    return part;
}

std::string ClipboardBytes(const Document& document, const ProjectModel& part) {
    std::string bytes = SnapshotOf({part, document.FilePath()});
    return bytes.size() > mostClipboardBytes ? std::string() : bytes;
}

std::string JavaLines(const ProjectModel& part) {
    std::string declarations;
    std::string creations;
    std::string handlers;
    part.ForEachVisible([&](const Control& control) {
        declarations += control.CreateHeaderText();
        creations += control.CreateInitText(control.Left, control.Top);
        handlers += control.CreateEventText();
    });
    return Concatenate(declarations, lineEnd, creations, handlers.empty() ? "" : lineEnd, handlers);
}

std::string PasteComponents(Document& document, std::string_view bytes) {
    if (bytes.size() > mostClipboardBytes)
        return "Die Zwischenablage enthält mehr, als sich einfügen lässt.";
    OpenDesign pasted;
    try {
        if (!IsUtf8(bytes))
            throw RuntimeError(RuntimeError::TypeMismatch);
        pasted = DesignOfSnapshot(bytes);
    } catch (const RuntimeError&) {
        return "Was die Zwischenablage enthält, ist beschädigt oder stammt aus einer anderen Version von Pirol.";
    }
    PastePart(document, pasted.model, "einfügen", FreeOffset(document.Model(), pasted.model));
    if (pasted.filePath == document.FilePath())
        return {};
    const std::string missing = MissingFiles(pasted.model, PathOf(document.FilePath()).parent_path());
    return missing.empty() ? std::string() : Concatenate("Hier fehlen Dateien eingefügter Komponenten: ", missing, ".");
}

void DuplicateSelected(Document& document) {
    const ProjectModel part = SelectedPart(document);
    PastePart(document, part, "duplizieren", FreeOffset(document.Model(), part));
}

ComponentRef DuplicateInPlace(Document& document, ComponentRef component) {
    std::vector<ComponentRef> originals;
    for (const ComponentRef original : VisibleInOrder(document.Model()))
        if (document.AllSelected().Contains(original))
            originals.push_back(original);
    const auto place = std::find(originals.begin(), originals.end(), component) - originals.begin();
    const ProjectModel part = SelectedPart(document);
    ComponentRef copy = component;
    document.EditAndSelect(StepLabel(document.AllSelected(), "duplizieren"), [&](ProjectModel& model) {
        const std::vector<ComponentRef> copies = AppendPart(model, part, 0);
        copy = copies.at(static_cast<std::size_t>(place));
        return Selection(copies);
    });
    return copy;
}

void NumberFreely(ProjectModel& model, ComponentRef placed) {
    const std::string name = model.Element(placed).ObjectName;
    bool isTaken = false;
    ForEachName(model, placed, [&](const std::string& other) { isTaken = isTaken || other == name; });
    if (!isTaken)
        return;
    const std::string free = FreeNames(model, placed).Take(name);
    Control& control = model.EditElement(placed);
    control.ObjectName = free;
    const KindRow& kind = RowOf(placed.kind);
    if (const PropertyRow* caption = FindRow(control, keys::value.key);
        caption != nullptr && !kind.captionPrefix.empty())
        caption->set(control, Concatenate(kind.captionPrefix, free.substr(kind.namePrefix.size())));
}

} // namespace pirol
