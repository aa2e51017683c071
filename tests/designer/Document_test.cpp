#include "base/RuntimeError.h"
#include "designer/Document.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace pirol {
namespace {

using enum ComponentKind;

void Widen(Document& document, int width, std::string_view mergeKey = {}) {
    document.Edit(
        "Breite", [width](ProjectModel& model) { model.SetWindowSize(static_cast<std::int16_t>(width), 480); },
        mergeKey);
}

std::size_t UndoAll(Document& document) {
    std::size_t steps = 0;
    for (; document.CanUndo(); ++steps)
        document.Undo();
    return steps;
}

/// Sees that whatever is another than before was told of.
class Watcher final : DocumentListener {
  public:
    explicit Watcher(Document& document) : document_(document), before_(document) { document_.AddListener(*this); }
    ~Watcher() { document_.RemoveListener(*this); }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

  private:
    struct Look {
        explicit Look(const Document& document)
            : model(document.Model()), selected(document.AllSelected()), isChanged(document.IsChanged()),
              path(document.FilePath()), canUndo(document.CanUndo()), canRedo(document.CanRedo()),
              inGesture(document.IsInGesture()) {}
        ProjectModel model;
        Selection selected;
        bool isChanged;
        std::string path;
        bool canUndo;
        bool canRedo;
        bool inGesture;
    };

    void DocumentChanged(const DocumentChange& change) override {
        const Look now(document_);
        EXPECT_EQ(change.design.Any(), change.replaced || !(now.model == before_.model));
        EXPECT_TRUE(change.selection || now.selected == before_.selected);
        EXPECT_TRUE(change.replaced || change.selection == !(now.selected == before_.selected) ||
                    now.selected.IsEmpty());
        EXPECT_TRUE(change.file || (now.isChanged == before_.isChanged && now.path == before_.path));
        EXPECT_TRUE(change.history || (now.canUndo == before_.canUndo && now.canRedo == before_.canRedo));
        EXPECT_EQ(change.gestureEnded, before_.inGesture && !now.inGesture);
        EXPECT_EQ(change.properties,
                  change.selection || change.gestureEnded || (!now.inGesture && change.design.HasComponents()));
        before_ = now;
    }

    Document& document_;
    Look before_;
};

/// Does anything to a document, and says by itself what every step must lead back to.
class Walk {
  public:
    explicit Walk(unsigned seed) : random_(seed) {}

    void DoAnything() {
        const Step before = Present();
        const std::size_t buttons = document_.Model().ElementCount(Button);
        const ComponentRef any{Button, Below(buttons)};
        switch (Below(9)) {
        case 0:
            document_.MarkSaved("saved" + std::to_string(Below(3)));
            files_[file_] = {document_.FilePath(), state_};
            return;
        case 1:
            return Replace("", "", true);
        case 2:
            return Replace("opened", std::to_string(Below(2)), Below(2) == 0);
        case 3:
            if (any.index > 0)
                document_.EditAndSelect("", [&](ProjectModel& model) -> std::optional<ComponentRef> {
                    model.DeleteComponent(any);
                    return std::nullopt;
                });
            break;
        case 4:
            Widen(document_, static_cast<int>(600 + Below(3)));
            break;
        case 5:
            if (any.index > 0 && document_.Model().Element(any).Visible)
                document_.Select(any);
            return;
        default:
            document_.EditAndSelect("", [](ProjectModel& model) {
                return model.PlaceComponent(Button, {10, 20, 100, 30});
            });
        }
        if (!(document_.Model() == before.model))
            Note(before);
    }

    void CheckBothWays() {
        for (std::size_t i = befores_.size(); i-- > 0;) {
            document_.Undo();
            Check(befores_[i]);
        }
        EXPECT_FALSE(document_.CanUndo());
        for (const Step& after : afters_) {
            document_.Redo();
            Check(after);
        }
        EXPECT_FALSE(document_.CanRedo());
    }

  private:
    struct Step {
        ProjectModel model;
        std::optional<ComponentRef> selected;
        std::size_t state; ///< each state of the design has its own number
        std::size_t file;  ///< place in files_
    };
    struct File {
        std::string path;
        std::size_t savedState;
    };

    std::size_t Below(std::size_t limit) { return random_() % limit; }

    Step Present() const { return {document_.Model(), document_.Selected(), state_, file_}; }

    void Replace(const std::string& path, const std::string& author, bool isSaved) {
        const bool isSame = document_.FilePath() == path && document_.IsChanged() != isSaved;
        ProjectModel model = document_.Model();
        model.Reset();
        model.SetAuthor(author);
        const Step before = Present();
        document_.Replace("", [&](ProjectModel& filled) {
            filled = model;
            return Document::Origin{path, isSaved};
        });
        if (isSame && model == before.model)
            return;
        file_ = files_.size();
        files_.push_back({path, isSaved ? state_ + 1 : 0});
        Note(before);
    }

    void Note(const Step& before) {
        ++state_;
        befores_.push_back(before);
        afters_.push_back(Present());
    }

    void Check(const Step& expected) {
        const File& file = files_[expected.file];
        EXPECT_EQ(document_.Model(), expected.model);
        EXPECT_EQ(document_.Selected(), expected.selected);
        EXPECT_EQ(document_.FilePath(), file.path);
        EXPECT_EQ(document_.IsChanged(), file.savedState != expected.state);
    }

    std::mt19937 random_;
    Document document_;
    Watcher watcher_{document_};
    std::size_t state_ = 1;
    std::size_t file_ = 0;
    std::vector<File> files_ = {{"", 1}};
    std::vector<Step> befores_;
    std::vector<Step> afters_;
};

TEST(Document, LeadsBackAndForthThroughEveryState) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        SCOPED_TRACE(seed);
        Walk walk(seed);
        for (int step = 0; step < 150; ++step)
            walk.DoAnything();
        walk.CheckBothWays();
        walk.CheckBothWays();
    }
}

TEST(Document, JoinsChangesOfOneKeyUntilSomethingElseHappens) {
    Document document;
    const std::pair<const char*, void (*)(Document&)> ends[] = {
        {"nothing", [](Document&) {}},
        {"another key", [](Document& d) { Widen(d, 1, "other"); }},
        {"a save", [](Document& d) { d.MarkSaved(""); }},
        {"a selection",
         [](Document& d) {
             d.Select(ComponentRef{Button, 1});
         }},
        {"undo and redo", [](Document& d) { d.Undo(), d.Redo(); }},
        {"the same design", [](Document& d) { d.Replace("", [](ProjectModel&) { return Document::Origin{}; }); }},
        {"a gesture", [](Document& d) { d.BeginGesture(), d.EndGesture(); }},
    };
    std::size_t expected = 1;
    for (const auto& [name, end] : ends) {
        Document joined;
        Widen(joined, 700, "key");
        end(joined);
        Widen(joined, 701, "key");
        EXPECT_EQ(UndoAll(joined), name == ends[1].first ? 3U : expected) << name;
        expected = 2;
    }
    {
        // A gesture that changes nothing or is given up leaves what came before as it was; and it is told of its end.
        const Watcher watcher(document);
        Widen(document, 650);
        for (const bool givesUp : {false, true}) {
            document.BeginGesture();
            EXPECT_FALSE(document.CanUndo());
            Widen(document, 660);
            Widen(document, givesUp ? 670 : 650);
            givesUp ? document.CancelGesture() : document.EndGesture();
            EXPECT_EQ(document.Model().WindowWidth(), 650);
            EXPECT_FALSE(document.CanRedo() || document.IsInGesture());
        }
        document.BeginGesture();
        document.Replace("", [](ProjectModel&) { return Document::Origin{"a.prl", true}; });
        EXPECT_FALSE(document.IsInGesture());
        document.BeginGesture();
        document.CancelGesture();
        EXPECT_EQ(document.FilePath(), "a.prl");
        EXPECT_EQ(UndoAll(document), 2U);
    }
    // What comes back to where it began is no step, and what follows is one of its own.
    Widen(document, 700, "key");
    Widen(document, 640, "key");
    EXPECT_FALSE(document.CanUndo() || document.IsChanged());
    Widen(document, 701, "key");
    EXPECT_EQ(UndoAll(document), 1U);
}

TEST(Document, AChangeThatFailsIsAStepBack) {
    Document document;
    EXPECT_THROW(document.Edit("Knöpfe",
                               [](ProjectModel& model) {
                                   model.PlaceComponent(Button, {0, 0, 100, 30});
                                   model.PlaceComponent(Button, {40000, 0, 100, 30});
                               }),
                 RuntimeError);
    EXPECT_EQ(document.Model().ElementCount(Button), 2U);
    EXPECT_EQ(document.UndoLabel(), "Knöpfe");
    document.Undo();
    EXPECT_EQ(document.Model(), ProjectModel());
    EXPECT_EQ(document.RedoLabel(), "Knöpfe");
}

TEST(Document, ForgetsTheOldestStepsButNeverTheLast) {
    Document document;
    for (int step = 0; step < 250; ++step)
        Widen(document, 1 + step);
    EXPECT_EQ(UndoAll(document), Document::mostSteps);
    EXPECT_EQ(document.Model().WindowWidth(), 50);

    const auto write = [&document](std::size_t megabytes) {
        document.Edit("Autor", [megabytes](ProjectModel& model) {
            model.SetAuthor(std::string(megabytes << 20U, static_cast<char>(model.Author().empty() ? 'a' : 'b')));
        });
    };
    write(100);
    write(1);
    EXPECT_EQ(UndoAll(document), 1U);
    EXPECT_EQ(document.Model().Author().size(), 100U << 20U);
    for (const std::size_t size : {20, 21, 22, 23, 24, 25})
        write(size);
    EXPECT_EQ(UndoAll(document), 2U) << "23 and 24 megabytes behind it";
}

TEST(Document, TellsEveryListenerWhatChanged) {
    struct Listener final : DocumentListener {
        Document& document;
        std::vector<DocumentChange> changes;
        bool fails = false;
        explicit Listener(Document& listened) : document(listened) { document.AddListener(*this); }
        ~Listener() { document.RemoveListener(*this); }
        Listener(const Listener&) = delete;
        Listener& operator=(const Listener&) = delete;
        void DocumentChanged(const DocumentChange& change) override {
            changes.push_back(change);
            if (fails)
                throw RuntimeError(RuntimeError::OutOfMemory);
        }
    };
    Document document;
    Listener first(document);
    Listener second(document);
    first.fails = true;
    const auto place = [&] {
        document.EditAndSelect("", [](ProjectModel& model) { return model.PlaceComponent(Button, {1, 2, 30, 40}); });
    };
    EXPECT_THROW(place(), RuntimeError);
    first.fails = false;
    Widen(document, 640); // as it is
    ASSERT_EQ(second.changes.size(), 1U) << "told after the first one failed, and only of changes";
    const DocumentChange& placed = second.changes[0];
    ASSERT_EQ(placed.design.components.size(), 1U);
    EXPECT_EQ(placed.design.components[0].after, (Rectangle{1, 2, 30, 40}));
    EXPECT_TRUE(placed.selection && placed.file && placed.history && placed.properties && !placed.replaced);
    document.BeginGesture();
    Widen(document, 600);
    EXPECT_TRUE(second.changes.back().design.window && !second.changes.back().properties);
    document.EndGesture();
    EXPECT_TRUE(second.changes.back().gestureEnded && second.changes.back().properties);
    document.Undo();
    EXPECT_FALSE(second.changes.back().file) << "there were changes before";
    document.Undo();
    EXPECT_TRUE(second.changes.back().file && second.changes.back().selection);
}

} // namespace
} // namespace pirol
