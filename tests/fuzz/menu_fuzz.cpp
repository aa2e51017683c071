// Any lines as the menu section of a project file: the tree that they give can be written, read, generated and edited.

#include "base/Conversions.h"
#include "fuzz/Fuzz.h"
#include "menu/MenuEditor.h"

#include <functional>
#include <fuzzer/FuzzedDataProvider.h>

using namespace pirol;

namespace {

constexpr std::size_t mostFields = 32;

void ReadLines(std::string_view text, MenuBar& bar) {
    MenuBarReader reader(bar);
    for (std::size_t end = text.find(lineEnd); end != std::string_view::npos; end = text.find(lineEnd)) {
        reader.AddLine(Split(text.substr(0, end), fieldSeparator, mostFields));
        text.remove_prefix(end + lineEnd.size());
    }
}

/// Runs what the editor's buttons do, as the bytes say.
void Edit(MenuBar& bar, FuzzedDataProvider& input) {
    const MenuBar before = bar;
    MenuEditor editor(bar);
    while (input.remaining_bytes() > 0) {
        const auto row = input.ConsumeIntegralInRange<std::size_t>(0, editor.Rows().size() + 1);
        const auto option = input.ConsumeIntegralInRange<std::int32_t>(0, 3);
        const std::function<void()> buttons[] = {
            [&] { editor.Add(option, input.ConsumeRandomLengthString(8), input.ConsumeRandomLengthString(8)); },
            [&] { editor.SelectRow(row); },
            [&] { editor.LevelUp(option); },
            [&] { fuzz::Require(editor.MoveUp(row) <= row, "moving up goes up"); },
            [&] { editor.MoveDown(row); },
            [&] { editor.Delete(row); },
        };
        buttons[input.ConsumeIntegralInRange(0, 5)]();
        fuzz::Require(editor.SelectedRow() <= editor.Rows().size(), "the selected row exists");
        fuzz::Require(editor.Depth() >= 0 && !editor.StatusText().empty(), "the status says how deep");
    }
    editor.Cancel();
    fuzz::Require(bar == before, "cancelling restores the menu bar");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const std::string text = input.ConsumeRandomLengthString();
    MenuBar bar;
    fuzz::Succeeds([&] { UnderLabel("Fuzz", [&] { ReadLines(text, bar); }); });

    for (const MenuSection section : {MenuSection::Init, MenuSection::Main, MenuSection::Events})
        fuzz::Succeeds([&] { UnderLabel("Fuzz", [&] { bar.GenerateCode(section); }); });

    const std::string written = bar.CreatePRLString();
    MenuBar read;
    ReadLines(written, read);
    fuzz::Require(read == bar && read.CreatePRLString() == written, "what was written is read back");

    Edit(bar, input);
    return 0;
}
