#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/CallIndex.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#include <random>

namespace pirol {
namespace {

using test::ErrorOf;
using test::OutcomeOf;

/// tests/data/import/*: SuMAnwendung.java gives expected.prl.
TEST(JavaImport, Cases) {
    for (const auto& folder : test::CaseFolders("import")) {
        ProjectModel model;
        AnalyseCode(FromWindows1252(ReadFileBytes(folder / "SuMAnwendung.java")), model);
        EXPECT_EQ(GeneratePRLCode(model), ReadFileBytes(folder / "expected.prl")) << folder;
        EXPECT_EQ(GenerateCode(model, {}).find("setzeBearbeiter"), std::string::npos) << "events are not read";
    }
}

TEST(JavaImport, TheIndexFindsWhatAPlainSearchFindsInRandomSources) {
    const std::string longName(1000, 'x'); // the longest that is taken
    const std::string_view pieces[] = {"a", "b", "a", longName, ".f(", ".f(", ".g(", ");", "\"", "1", ", ", " "};
    const std::vector<std::string_view> variables = {"a", "aa", "b", "c", "ba", "", longName};
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string source;
        for (auto count = random() % 40; count > 0; --count)
            source += pieces[random() % std::size(pieces)];
        CallIndex index(source, "f", variables);
        for (const std::string_view variable : variables) {
            EXPECT_EQ(OutcomeOf([&] { return index.GetValue(variable, "-"); }),
                      OutcomeOf([&] { return GetValue(source, variable, "f", "-"); }))
                << variable << " in " << source;
            std::string all;
            const std::string call = std::string(variable) + ".f(";
            for (std::size_t hit = source.find(call); hit != std::string::npos; hit = source.find(call, hit + 1)) {
                const std::size_t begin = hit + call.size();
                const std::size_t end = source.find(");", begin);
                all = end == std::string::npos || all == "Fehler 5"
                          ? "Fehler 5"
                          : all + WithoutQuotes(source.substr(begin, end - begin)) + "|";
            }
            EXPECT_EQ(OutcomeOf([&] {
                          std::string found;
                          for (const std::string& value : index.GetValues(variable))
                              found += value + "|";
                          return found;
                      }),
                      all)
                << variable << " in " << source;
        }
    }
    EXPECT_EQ(test::ErrorNumberOf([&] { CallIndex("", "f", {std::string(1001, 'x')}); }), RuntimeError::InvalidCall);
}

TEST(JavaImport, AnErrorKeepsWhatWasRead) {
    ProjectModel model;
    EXPECT_NE(ErrorOf([&] { AnalyseCode("a = new Knopf(1,2,3,4,\"\"); b = new Knopf(?,2,3,4,\"\");", model); }), "");
    EXPECT_EQ(model.ElementCount(ComponentKind::Button), 3U);
    EXPECT_FALSE(model.Element({ComponentKind::Button, 2}).Visible) << "the bad one must not be seen";
}

TEST(JavaImport, SourcesMadeToEatMemoryAreRefused) {
    std::string overlapping;
    for (int count = 0; count < 20000; ++count)
        overlapping += "x = new Knopf( ";
    std::string wide;
    for (int count = 0; count < 31; ++count)
        wide += "t = new Tabelle(0, 0, 0, 0, 1, 32767);";
    std::string groups;
    for (int count = 0; count < 10000; ++count)
        groups += " g = new Radiogruppe(); g.fuegeEin();"; // every group has all ten thousand
    const std::string emptyEntries = "t = new Ton(" + std::string(1'000'000, '\0') + ");";
    for (const std::string& source : {overlapping + ");", wide, groups, emptyEntries}) {
        ProjectModel model;
        EXPECT_NE(ErrorOf([&] { AnalyseCode(source, model); }).find("Nicht genügend Speicher"), std::string::npos);
    }
}

} // namespace
} // namespace pirol
