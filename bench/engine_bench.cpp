// How fast the engine reads, checks, writes, generates, imports and updates, and how that grows with the size of a
// design.

#include "base/Conversions.h"
#include "base/HashFunction.h"
#include "base/Windows1252.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaUpdate.h"
#include "designer/DesignCanvas.h"
#include "project/ProjectFile.h"
#include "project/Snapshot.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string>

namespace {

using namespace pirol;

constexpr CodeOptions everything{.menu = true, .database = true};

/// What lists hold, by the key of their property.
std::string ListOf(std::string_view key, std::size_t number) {
    if (key != keys::optionbuttons.key)
        return JoinList({"Äpfel", "Birnen", "Süßkirschen", "Weintrauben"});
    std::vector<cRadioButton> buttons(3);
    for (std::size_t place = 0; place < buttons.size(); ++place) {
        buttons[place].Name = "hatRadioKnopf" + std::to_string(number) + "Nr" + std::to_string(place);
        buttons[place].Caption = "Möglichkeit";
        buttons[place].Top = static_cast<std::int16_t>(10 * place);
    }
    return JoinRadioButtons(buttons);
}

/// A design in which the fifteen kinds take turns, every second event is on and a menu has an entry for every hundred
/// components.
ProjectModel MixedDesign(std::size_t count) {
    ProjectModel model;
    model.SetAuthor("Jörg Müller");
    bool on = false;
    for (std::size_t index = 0; index < count; ++index) {
        const auto left = static_cast<int>(index % 50 * 10);
        const auto top = static_cast<int>(index / 50 % 3000 * 10);
        const ComponentRef component = model.PlaceComponent(KindRows()[index % kindCount].kind, {left, top, 120, 40});
        Control& element = model.EditElement(component);
        for (const PropertyRow& row : element.Table().Rows()) {
            if (row.isOn != nullptr)
                row.set(element, FlagText(on = !on));
            else if (row.key->editor == EditorKind::List)
                row.set(element, ListOf(row.key->key, component.index));
            else if (row.key->editor == EditorKind::File)
                row.set(element, "C:\\Bilder\\Übung.jpg");
        }
    }
    cMenu& menu = model.EditMenus().Append("Datei", "hatMenueDatei");
    for (std::size_t entry = 0; entry < count / 100; ++entry)
        menu.AddEntry("Öffnen " + std::to_string(entry), cMenu::Entry);
    return model;
}

std::size_t Components(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

/// Tells the time per component and the size that the time grows with.
void CountComponents(benchmark::State& state) {
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void CountBytes(benchmark::State& state, const std::string& bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void CheckHash(benchmark::State& state) {
    const std::string bytes = GeneratePRLCode(MixedDesign(Components(state)));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(HashFunction(bytes));
    CountComponents(state);
    CountBytes(state, bytes);
}

void ReadProject(benchmark::State& state) {
    const std::string bytes = GeneratePRLCode(MixedDesign(Components(state)));
    while (state.KeepRunning()) {
        ProjectModel model;
        if (ReadPRLBytes(bytes, model) != ReadResult::Loaded)
            state.SkipWithError("the project was refused");
    }
    CountComponents(state);
    CountBytes(state, bytes);
}

void WriteProject(benchmark::State& state) {
    const ProjectModel model = MixedDesign(Components(state));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(GeneratePRLCode(model));
    CountComponents(state);
}

/// What keeping a design for crash recovery costs the user's time.
void Snapshot(benchmark::State& state) {
    const ProjectModel model = MixedDesign(Components(state));
    while (state.KeepRunning())
        benchmark::DoNotOptimize(SnapshotOf({model, {}}));
    CountComponents(state);
}

/// A step of a drag: one component a pixel further, within the step of its gesture.
void DragStep(benchmark::State& state) {
    Document document;
    document.Edit({}, [&](ProjectModel& model) { model = MixedDesign(Components(state)); });
    document.BeginGesture();
    std::int16_t left = 0;
    while (state.KeepRunning()) {
        left = static_cast<std::int16_t>((left + 1) % 500);
        document.Edit({}, [&](ProjectModel& model) { model.EditElement({ComponentKind::Label, 1}).Left = left; });
    }
    CountComponents(state);
}

/// One step back and on again, of one component or of all.
void UndoAndRedo(benchmark::State& state, bool all) {
    Document document;
    DesignCanvas canvas(document);
    document.Edit({}, [&](ProjectModel& model) { model = MixedDesign(Components(state)); });
    document.Edit({}, [&](ProjectModel& model) {
        const PagedArray<ComponentRef> order = model.CreationOrder();
        for (std::size_t i = 0; i < (all ? order.size() : 1); ++i)
            model.EditElement(order[i]).Top = 3;
    });
    while (state.KeepRunning()) {
        document.Undo();
        benchmark::DoNotOptimize(canvas.HitTest(5, 5));
        document.Redo();
        benchmark::DoNotOptimize(canvas.HitTest(5, 5));
    }
    CountComponents(state);
}

/// As pirol-cli writes it: encoded piece by piece.
void Generate(const ProjectModel& model) {
    WriteCode(model, everything,
              [](std::string_view piece) { benchmark::DoNotOptimize(ToWindows1252(std::string(piece))); });
}

void GenerateJava(benchmark::State& state) {
    const ProjectModel model = MixedDesign(Components(state));
    while (state.KeepRunning())
        Generate(model);
    CountComponents(state);
}

/// What "pirol-cli generate" does, without process and files.
void ReadAndGenerate(benchmark::State& state) {
    const std::string bytes = GeneratePRLCode(MixedDesign(Components(state)));
    while (state.KeepRunning()) {
        ProjectModel model;
        ReadPRLBytes(bytes, model);
        Generate(model);
    }
    CountComponents(state);
}

void ImportJava(benchmark::State& state) {
    const std::string source = GenerateCode(MixedDesign(Components(state)), everything);
    while (state.KeepRunning()) {
        ProjectModel model;
        AnalyseCode(source, model);
    }
    CountComponents(state);
    CountBytes(state, source);
}

/// The same for a source of a given number of bytes.
void ImportBytes(benchmark::State& state) {
    std::size_t components = 1000;
    const std::size_t wanted = static_cast<std::size_t>(state.range(0));
    const std::size_t thousand = GenerateCode(MixedDesign(components), everything).size();
    components = components * wanted / thousand;
    const std::string source = GenerateCode(MixedDesign(components), everything);
    while (state.KeepRunning()) {
        ProjectModel model;
        AnalyseCode(source, model);
    }
    state.SetComplexityN(state.range(0));
    CountBytes(state, source);
}

/// A source in which every tenth component stands elsewhere, and lines of a pupil's in between.
std::string PupilsSource(const ProjectModel& model) {
    ProjectModel other = model;
    for (const KindRow& row : KindRows())
        for (std::size_t index = 1; index < other.ElementCount(row.kind); index += 10)
            other.EditElement({row.kind, index}).Left += 1;
    std::string source;
    std::size_t lines = 0;
    WriteCode(other, everything, [&](std::string_view piece) {
        for (const std::string_view line : Split(piece, '\n')) {
            source += line;
            if (line.data() + line.size() != piece.data() + piece.size())
                source += ++lines % 50 == 0 ? "\n        tue(7); // mein Text\r\n" : "\n";
        }
    });
    return source;
}

/// To be held against GenerateJava.
void UpdateSource(benchmark::State& state) {
    const ProjectModel model = MixedDesign(Components(state));
    const std::string source = PupilsSource(model);
    while (state.KeepRunning())
        benchmark::DoNotOptimize(UpdateJava(source, model, {}));
    CountComponents(state);
    CountBytes(state, source);
}

/// What "pirol-cli update" does, without process and files; to be held against ReadAndGenerate.
void ReadAndUpdate(benchmark::State& state) {
    const ProjectModel design = MixedDesign(Components(state));
    const std::string bytes = GeneratePRLCode(design);
    const std::string java = ToWindows1252(PupilsSource(design));
    UpdateOptions options;
    options.windows1252 = true;
    while (state.KeepRunning()) {
        ProjectModel model;
        ReadPRLBytes(bytes, model);
        benchmark::DoNotOptimize(ToWindows1252(UpdateJava(FromWindows1252(java), model, options).source));
    }
    CountComponents(state);
}

/// A source of so many bytes of which Pirol wrote little.
void UpdateBytes(benchmark::State& state) {
    const ProjectModel model = MixedDesign(100);
    std::string source = GenerateCode(model, everything);
    source.pop_back();
    for (std::size_t number = 0; source.size() < static_cast<std::size_t>(state.range(0)); ++number)
        source += "    public void eigene" + std::to_string(number) +
                  "()\r\n    {\r\n        hatKnopf1.setzeInhalt(\"Hallo\"); // { mein Text\r\n    }\r\n\r\n";
    source += "}";
    while (state.KeepRunning())
        benchmark::DoNotOptimize(UpdateJava(source, model, {}));
    CountBytes(state, source);
}

void DesignSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK(CheckHash)->Apply(DesignSizes);
BENCHMARK(ReadProject)->Apply(DesignSizes);
BENCHMARK(WriteProject)->Apply(DesignSizes);
BENCHMARK(Snapshot)->Apply(DesignSizes);
BENCHMARK(DragStep)->Apply(DesignSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(UndoAndRedo, one, false)->Apply(DesignSizes);
BENCHMARK_CAPTURE(UndoAndRedo, all, true)->Apply(DesignSizes);
BENCHMARK(GenerateJava)->Apply(DesignSizes);
BENCHMARK(ReadAndGenerate)->Apply(DesignSizes);
BENCHMARK(ImportJava)->Apply(DesignSizes);
BENCHMARK(UpdateSource)->Apply(DesignSizes);
BENCHMARK(ReadAndUpdate)->Apply(DesignSizes);
BENCHMARK(UpdateBytes)->Arg(1'000'000)->Arg(10'000'000)->Arg(100'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportBytes)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
