#include "app/ImportCommands.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/JavaGenerator.h"
#include "FakeDialogs.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

using test::ErrorOf;

constexpr const char* dialog = "open <SuMAnwendung.java|SuMAnwendung.java> 4096 <>\n";
constexpr const char* nothing =
    "information Im Quelltext steht weder eine Fenstergröße noch eine Komponente; es wurde nichts eingelesen.\n";

/// A design with a menu and a database that is in a file.
Document OwnDesign() {
    Document document;
    document.Edit("", [](ProjectModel& model) {
        model.EditMenus().Append("Datei", "hatMenueDatei");
        model.EditSql().Server = "localhost";
    });
    document.MarkSaved("a.prl");
    return document;
}

struct ImportCase {
    const char* file;
    const char* bytes; ///< null for a file that is not there
    bool yes;
    const char* error; ///< that ends the import
    const char* seen;  ///< behind the file dialog
    std::size_t components;
    std::size_t remarks;
};

const ImportCase cases[] = {
    {"missing.java", nullptr, true, "Fehler 53: Datei nicht gefunden (Main.File.Import.Analyse)", "", 0, 0},
    {"letter.java", "Liebe Oma, \xFF danke!", true, "", nothing, 0, 0},
    {"own.java", "super(1, 2); a = new Knopf(1, 2, 3, 4, \"x\");", true, "", "", 1, 0},
    {"yes.java", "class A extends EBAnwendung { A() { super(1, 2);\na=new Knopf(1, 2, 3, 4);\nb=new Foo(1, 2); } }",
     true, "", "question Die vollständige Auswertung findet 1 Komponente mehr. Alles übernehmen?\n", 1, 1},
    {"no.java", "super(1, 2); a=new Knopf(1, 2, 3, 4);", false, "",
     "question Die vollständige Auswertung findet 1 Komponente mehr. Alles übernehmen?\n", 0, 0},
    {"comment.java", "// a = new Knopf(1, 2, 3, 4, \"x\");", true, "", "", 1, 0},
    {"odd.java", "class A extends EBAnwendung { A() { super ( 1 , 2 ) ; } }", true, "",
     "question Die vollständige Auswertung findet 2 Angaben mehr. Alles übernehmen?\n", 0, 1},
    {"fault.java",
     "super(1, 2); a = new Etikett(eins, 2, 3, 4, \"\"); b = new Knopf(1, 2, 3, 4, \"\"); c=new Knopf(5, 6, 7, 8);",
     true, "",
     "fault Fehler 13: Typen unverträglich (Main.File.Import.Analyse)\n"
     "question Die vollständige Auswertung findet 2 Komponenten mehr. Alles übernehmen?\n",
     2, 2},
};

TEST(ImportCommands, TheSimpleReadingComesFirstAndOneQuestionForTheRest) {
    const test::ScratchFolder folder;
    for (const ImportCase& row : cases) {
        if (row.bytes != nullptr)
            CreateFileBytes(folder / row.file, row.bytes);
        Document document = OwnDesign();
        const ProjectModel before = document.Model();
        const std::string label = document.UndoLabel();
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(folder / row.file)};
        dialogs.yes = {row.yes};
        std::string seen;
        std::size_t remarks = 0;
        const auto error = ErrorOf([&] {
            remarks = ImportJava(document, dialogs, [&](const RuntimeError& fault) {
                          seen += dialogs.TakeSeen() + "fault " + fault.what() + "\n";
                      }).remarks.size();
        });
        EXPECT_EQ(error, row.error) << row.file;
        EXPECT_EQ(seen + dialogs.TakeSeen(), std::string(dialog) + row.seen);
        EXPECT_EQ(document.Model().CreationOrder().size(), row.components) << row.file;
        EXPECT_GE(remarks, row.remarks) << row.file;
        EXPECT_EQ(remarks == 0, row.remarks == 0) << row.file;
        EXPECT_EQ(document.Model().Sql().Server, "localhost") << row.file;
        // All of it is one step, and a file that cannot be read changes nothing.
        EXPECT_EQ(document.UndoLabel(), row.bytes == nullptr ? label : "Java importieren") << row.file;
        if (row.bytes != nullptr) {
            EXPECT_EQ(document.FilePath(), "");
            document.Undo();
        }
        EXPECT_EQ(document.Model(), before) << row.file;
        EXPECT_EQ(document.FilePath(), "a.prl") << row.file;
    }
}

TEST(ImportCommands, CancellingChangesNothing) {
    Document document = OwnDesign();
    test::FakeDialogs dialogs;
    EXPECT_EQ(ImportJava(document, dialogs, {}).path, "");
    EXPECT_EQ(dialogs.TakeSeen(), dialog);
    EXPECT_EQ(document.FilePath(), "a.prl");
}

} // namespace
} // namespace pirol
