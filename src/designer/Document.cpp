#include "designer/Document.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace pirol {
namespace {

const DesignChange everything = {.components = {}, .allComponents = true, .window = true, .menus = true, .sql = true};

/// Where memory has run out, views must learn of the change all the same.
DesignChange DifferencesOrEverything(const ProjectModel& before, const ProjectModel& after) {
    try {
        return Differences(before, after);
    } catch (const std::bad_alloc&) {
        return everything;
    }
}

} // namespace

void Document::Select(const Selection& components) {
    if (components == selected_)
        return;
    merging_ = merging_ && inGesture_;
    const Selection visible = components.VisibleIn(Model());
    if (visible == selected_)
        return;
    selected_ = visible;
    Tell({.design = {}, .selection = true});
}

// --- Changing ---------------------------------------------------------------------------------------------------

void Document::Edit(std::string_view label, const std::function<void(ProjectModel&)>& change,
                    std::string_view mergeKey) {
    Run(label, mergeKey, [&](ProjectModel& model) {
        change(model);
        return selected_;
    });
}

void Document::EditAndSelect(std::string_view label, const Change& change) {
    Run(label, {}, change);
}

void Document::Run(std::string_view label, std::string_view mergeKey, const Change& change) {
    // All that the history needs comes first: without memory for it nothing is changed.
    Steps step = MergesWith(mergeKey) ? Steps() : NewStep(label, mergeKey);
    const ProjectModel before = state_.model;
    Selection selected = selected_;
    try {
        selected = change(state_.model);
    } catch (...) {
        Commit(std::move(step), before, selected);
        throw;
    }
    Commit(std::move(step), before, selected);
}

bool Document::MergesWith(std::string_view mergeKey) const {
    return merging_ && (inGesture_ || (!mergeKey.empty() && undo_.back().mergeKey == mergeKey));
}

Document::Steps Document::NewStep(std::string_view label, std::string_view mergeKey) const {
    Steps step;
    step.push_back({.label = std::string(label),
                    .mergeKey = std::string(mergeKey),
                    .other = state_,
                    .otherFile = {},
                    .selectedBefore = selected_,
                    .selectedAfter = {}});
    return step;
}

/// Keeps the step if the change was one. An empty list stands for a change that joins the last step.
void Document::Commit(Steps step, const ProjectModel& before, const Selection& selected) {
    DocumentChange change{.design = DifferencesOrEverything(before, state_.model)};
    const bool wasChanged = IsChanged();
    const Selection visible = selected.VisibleIn(state_.model);
    change.selection = std::exchange(selected_, visible) != visible;
    if (change.design.Any()) {
        state_.revision = ++lastRevision_;
        change.history = !step.empty();
        if (!step.empty()) {
            undo_.splice(undo_.end(), step);
            redo_.clear();
        }
        merging_ = true;
        Step& last = undo_.back();
        last.selectedAfter = selected_;
        last.Weigh(state_.model);
        if (!last.otherFile && last.other.model == state_.model) {
            // What came back to where it began is no step.
            state_.revision = last.other.revision;
            undo_.pop_back();
            merging_ = false;
            change.history = true;
        }
        Trim();
    }
    change.file = IsChanged() != wasChanged;
    if (change.design.Any() || change.selection)
        Tell(change);
}

void Document::Replace(std::string_view label, const std::function<Origin(ProjectModel&)>& fill,
                       std::string_view mergeKey) {
    Steps step = NewStep(label, mergeKey);
    step.front().otherFile = file_;
    ProjectModel empty = state_.model;
    empty.Reset();
    ProjectModel model = state_.model;
    try {
        Origin origin = fill(model);
        CommitReplaced(std::move(step), std::move(model), std::move(origin));
    } catch (...) {
        if (!step.empty())
            CommitReplaced(std::move(step), model, {.path = {}, .isSaved = model == empty});
        throw;
    }
}

void Document::CommitReplaced(Steps step, ProjectModel model, Origin origin) {
    const bool gestureEnded = std::exchange(inGesture_, false);
    merging_ = false;
    selected_ = {};
    if (model == state_.model && origin.path == file_.path && origin.isSaved == !IsChanged()) {
        Tell({.design = {}, .selection = true, .gestureEnded = gestureEnded});
        return;
    }
    state_ = {.model = std::move(model), .revision = ++lastRevision_};
    file_ = {.path = std::move(origin.path), .savedRevision = origin.isSaved ? lastRevision_ : 0};
    undo_.splice(undo_.end(), step);
    undo_.back().Weigh(state_.model);
    redo_.clear();
    merging_ = !undo_.back().mergeKey.empty();
    Trim();
    Tell({.design = everything,
          .replaced = true,
          .selection = true,
          .file = true,
          .history = true,
          .gestureEnded = gestureEnded});
}

void Document::MarkSaved(std::string path) {
    file_ = {.path = std::move(path), .savedRevision = state_.revision};
    merging_ = false;
    Tell({.design = {}, .file = true});
}

void Document::BeginGesture() {
    inGesture_ = true;
    merging_ = false;
    Tell({.design = {}, .history = true});
}

void Document::EndGesture() {
    if (!std::exchange(inGesture_, false))
        return;
    merging_ = false;
    Tell({.design = {}, .history = true, .gestureEnded = true});
}

void Document::CancelGesture() {
    Steps dropped;
    if (inGesture_ && merging_)
        GoOver(undo_, dropped, &Step::selectedBefore);
    EndGesture();
}

// --- The history ------------------------------------------------------------------------------------------------

const std::string& Document::UndoLabel() const {
    static const std::string none;
    return CanUndo() ? undo_.back().label : none;
}

const std::string& Document::RedoLabel() const {
    static const std::string none;
    return CanRedo() ? redo_.back().label : none;
}

void Document::Undo() {
    if (CanUndo())
        GoOver(undo_, redo_, &Step::selectedBefore);
}

void Document::Redo() {
    if (CanRedo())
        GoOver(redo_, undo_, &Step::selectedAfter);
}

/// Goes to the other side of the last step of `from`, which becomes the last one of `to`.
void Document::GoOver(Steps& from, Steps& to, Selection Step::*selected) {
    const bool wasChanged = IsChanged();
    to.splice(to.end(), from, std::prev(from.end()));
    Step& step = to.back();
    std::swap(state_, step.other);
    if (step.otherFile)
        std::swap(file_, *step.otherFile);
    merging_ = false;

    const bool replaced = step.otherFile.has_value();
    DocumentChange change{.design = replaced ? everything : DifferencesOrEverything(step.other.model, state_.model)};
    change.replaced = replaced;
    change.selection = std::exchange(selected_, step.*selected) != step.*selected;
    change.file = replaced || IsChanged() != wasChanged;
    change.history = true;
    step.Weigh(state_.model);
    Trim();
    Tell(change);
}

void Document::Step::Weigh(const ProjectModel& present) {
    bytes = other.model.UnsharedBytes(present);
    if (selectedAfter.IsSeveral())
        bytes += selectedAfter.Count() * sizeof(ComponentRef);
}

/// Forgets the oldest steps, and behind them the ones that are farthest ahead, but never the only one left.
void Document::Trim() {
    std::size_t bytes = 0;
    for (const Steps* steps : {&undo_, &redo_})
        for (const Step& step : *steps)
            bytes += step.bytes;
    while (undo_.size() + redo_.size() > 1 && (undo_.size() + redo_.size() > mostSteps || bytes > mostHistoryBytes)) {
        Steps& oldest = undo_.empty() ? redo_ : undo_;
        bytes -= oldest.front().bytes;
        oldest.pop_front();
    }
}

/// Every listener is told, also when one of them fails; the first failure goes on.
void Document::Tell(DocumentChange change) {
    change.properties = change.selection || change.gestureEnded || (!inGesture_ && change.design.HasComponents());
    std::exception_ptr failure;
    for (std::size_t i = 0; i < listeners_.size(); ++i) {
        try {
            listeners_[i]->DocumentChanged(change);
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace pirol
