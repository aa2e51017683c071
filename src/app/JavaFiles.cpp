#include "app/JavaFiles.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::size_t mostFiles = 20;

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Buttons have no serial number. One was renamed when its place in the list has a name that is new, and its former
/// name is nowhere else.
void AddButtonRenames(const std::vector<std::string>& before, const std::vector<std::string>& now,
                      std::vector<NameChange>& renames) {
    for (std::size_t index = 0; index < before.size() && index < now.size(); ++index)
        if (before[index] != now[index] && !Contains(now, before[index]) && !Contains(before, now[index]))
            renames.push_back({before[index], now[index]});
}

} // namespace

JavaFiles::Names JavaFiles::NamesOf(const Control& control) {
    Names names{control.ObjectName, {}};
    if (control.Kind() == ComponentKind::OptionGroup)
        for (const cRadioButton& button : static_cast<const dOptionsgruppe&>(control).OptionButtons)
            names.radioButtons.push_back(button.Name);
    return names;
}

std::vector<JavaFiles::File>::const_iterator JavaFiles::Find(std::string_view path) const {
    return std::find_if(files_.begin(), files_.end(), [path](const File& file) { return file.path == path; });
}

void JavaFiles::Remember(const std::string& path, const ProjectModel& model) {
    File file{path, {}};
    model.ForEachVisible([&file](const Control& control) { file.names[control.Serial.value] = NamesOf(control); });
    if (const auto former = Find(path); former != files_.end())
        files_.erase(former);
    else if (files_.size() == mostFiles)
        files_.erase(files_.begin());
    files_.push_back(std::move(file));
}

std::string JavaFiles::LastOf(const ProjectModel& model) const {
    for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
        bool isOfModel = false;
        model.ForEachVisible(
            [&](const Control& control) { isOfModel = isOfModel || file->names.contains(control.Serial.value); });
        if (isOfModel)
            return file->path;
    }
    return {};
}

std::vector<NameChange> JavaFiles::RenamesIn(const std::string& path, const ProjectModel& model) const {
    std::vector<NameChange> renames;
    const auto file = Find(path);
    if (file == files_.end())
        return renames;
    model.ForEachVisible([&](const Control& control) {
        const auto before = file->names.find(control.Serial.value);
        if (before == file->names.end())
            return;
        const Names now = NamesOf(control);
        if (before->second.component != now.component)
            renames.push_back({before->second.component, now.component});
        AddButtonRenames(before->second.radioButtons, now.radioButtons, renames);
    });
    return renames;
}

} // namespace pirol
