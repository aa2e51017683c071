#pragma once

#include "designer/Selection.h"
#include "model/Differences.h"
#include "model/ProjectModel.h"

#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What a document tells its listeners.
struct DocumentChange {
    DesignChange design;       ///< what is another than before
    bool replaced = false;     ///< another design took the place of the one there was
    bool selection = false;    ///< other components are selected, or another one leads
    bool file = false;         ///< the path, or whether there are unsaved changes
    bool history = false;      ///< what can be undone or redone
    bool gestureEnded = false; ///< the user let go
    /// The property list shall show the selected component anew. While the mouse drags something it stays as it is.
    bool properties = false;
};

/// Who wants to know of every change of a document. Told after the change, in the order in which listeners were added.
class DocumentListener {
  public:
    virtual void DocumentChanged(const DocumentChange& change) = 0;

  protected:
    ~DocumentListener() = default;
};

/// The design that is being edited, its file and its history. The only place that changes a design while the designer
/// runs: an operation says what it changes and what the user calls it, the document compares, keeps the step and tells
/// its listeners. Asking never changes anything.
///
/// Every change is one step, but for those that belong together: all changes of a gesture, and changes with the same
/// merge key that follow one another. The history holds the last 200 steps or 64 megabytes, and always the last step.
class Document {
  public:
    static constexpr std::size_t mostSteps = 200;
    static constexpr std::size_t mostHistoryBytes = std::size_t{64} << 20U;

    const ProjectModel& Model() const { return state_.model; }
    /// The file that the design belongs to (UTF-8); empty for none.
    const std::string& FilePath() const { return file_.path; }
    /// Whether the design differs from what the file holds; a design without a file, from what it began as.
    bool IsChanged() const { return state_.revision != file_.savedRevision; }
    /// The number of the design's state. Every change gives a new one; undo and redo bring the former one back.
    std::uint64_t StateNumber() const { return state_.revision; }
    /// The components whose properties the property list shows; they can always be seen.
    const Selection& AllSelected() const { return selected_; }
    /// The one that leads them; the only one, mostly.
    std::optional<ComponentRef> Selected() const { return selected_.Leader(); }

    /// Selects those of the components that can be seen. No step of the history.
    void Select(const Selection& components);

    /// Changes the design. `label` is what the user calls the step, German; a merge key that is not empty joins it with
    /// the last step when that has the same key, until something else happens. When nothing differs afterwards there is
    /// no step. What a change that throws has done until then stays as a step, and the exception goes on.
    /// Raises std::bad_alloc with the design unchanged when the step cannot be kept.
    void Edit(std::string_view label, const std::function<void(ProjectModel&)>& change, std::string_view mergeKey = {});
    /// The same for a change that selects: the components that it gives.
    void EditAndSelect(std::string_view label, const std::function<Selection(ProjectModel&)>& change);

    /// Where a design that takes the place of another comes from.
    struct Origin {
        std::string path;     ///< its file, empty for none
        bool isSaved = false; ///< there is nothing to save: it is the file's, or an empty one
    };
    /// Puts another design in the place of this one, with nothing selected; the former one, with its path, is a step
    /// back. `fill` gets a copy of the design, makes it the new one and says where it comes from. When it throws, what
    /// it has made until then takes the place, without a path, and the exception goes on. A merge key that is not empty
    /// lets the edits with the same key that follow at once join the step.
    void Replace(std::string_view label, const std::function<Origin(ProjectModel&)>& fill,
                 std::string_view mergeKey = {});

    /// The design has been saved in this file.
    void MarkSaved(std::string path);

    /// From press to release all changes are one step, and nothing is undone.
    void BeginGesture();
    void EndGesture();
    /// Ends the gesture and takes back what it has done, as if it had not begun: there is nothing to redo of it.
    void CancelGesture();
    bool IsInGesture() const { return inGesture_; }

    bool CanUndo() const { return !inGesture_ && !undo_.empty(); }
    bool CanRedo() const { return !inGesture_ && !redo_.empty(); }
    /// What the user calls the step that would be undone or redone; empty when there is none.
    const std::string& UndoLabel() const;
    const std::string& RedoLabel() const;
    /// Go one step back or on: design, selection and, where a design was replaced, its file are those of then. Nothing
    /// happens when there is no step, or during a gesture.
    void Undo();
    void Redo();

    /// A listener must be removed before it ends.
    void AddListener(DocumentListener& listener) { listeners_.push_back(&listener); }
    void RemoveListener(DocumentListener& listener) { std::erase(listeners_, &listener); }

  private:
    using Revision = std::uint64_t;
    struct State {
        ProjectModel model;
        Revision revision = 1; ///< each state of the design has its own
    };
    struct File {
        std::string path;
        Revision savedRevision = 1; ///< none has the number 0
    };
    struct Step {
        std::string label;
        std::string mergeKey;
        State other; ///< on the other side of the step: before it while it can be undone, behind it afterwards
        std::optional<File> otherFile; ///< of a step that replaced the design
        Selection selectedBefore;
        Selection selectedAfter;
        std::size_t bytes = 0; ///< that the step does not share with the present state

        void Weigh(const ProjectModel& present);
    };
    using Steps = std::list<Step>;

    using Change = std::function<Selection(ProjectModel&)>;

    void Run(std::string_view label, std::string_view mergeKey, const Change& change);
    bool MergesWith(std::string_view mergeKey) const;
    Steps NewStep(std::string_view label, std::string_view mergeKey) const;
    void Commit(Steps step, const ProjectModel& before, const Selection& selected);
    void CommitReplaced(Steps step, ProjectModel model, Origin origin);
    void GoOver(Steps& from, Steps& to, Selection Step::*selected);
    void Trim();
    void Tell(DocumentChange change);

    State state_;
    File file_;
    Selection selected_;
    Revision lastRevision_ = 1;
    Steps undo_; ///< the last one is undone next
    Steps redo_; ///< the last one is redone next
    bool inGesture_ = false;
    bool merging_ = false; ///< nothing else has happened since the last step
    std::vector<DocumentListener*> listeners_;
};

} // namespace pirol
