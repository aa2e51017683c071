#include "app/Handbook.h"
#include "base/Conversions.h"
#include "base/FileAccess.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace pirol {
namespace {

namespace fs = std::filesystem;

std::string Handbook() {
    return ReplaceAll(ReadFileBytes(fs::path(PIROL_DOCS) / "Handbuch.md"), "\r", "");
}

std::set<std::string> Anchors() {
    std::set<std::string> anchors;
    const std::string text = Handbook();
    for (const std::string_view line : Split(text, '\n'))
        if (line.starts_with("## ") || line.starts_with("### ")) {
            EXPECT_TRUE(anchors.insert(ChapterAnchor(line.substr(line.find(' ') + 1))).second) << line;
        }
    return anchors;
}

/// What stands between the parentheses of all links or pictures.
std::vector<std::string> Targets(const std::regex& pattern) {
    const std::string text = Handbook();
    std::vector<std::string> targets;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern); match != std::sregex_iterator(); ++match)
        targets.push_back((*match)[1]);
    return targets;
}

TEST(Handbook, AnchorsAreThoseOfMarkdown) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"Das Hauptfenster", "das-hauptfenster"},
        {"Der Menü-Generator", "der-menü-generator"},
        {"Über Pirol (1.0)!", "über-pirol-10"},
        {"", ""},
    };
    for (const auto& [heading, anchor] : cases)
        EXPECT_EQ(ChapterAnchor(heading), anchor);
}

TEST(Handbook, EveryWindowHasItsChapter) {
    const std::set<std::string> anchors = Anchors();
    const std::string_view mainChapter = ChapterOf("frmMain");
    EXPECT_TRUE(anchors.contains(std::string(mainChapter)));
    EXPECT_EQ(ChapterOf("unknown"), mainChapter);
    for (const std::string_view window :
         {"frmListEditor",  "propertyDialog", "frmProjectSettings", "frmMenuGenerator", "frmSQLGenerator",
          "frmCode",        "frmPrint",       "pdfDialog",          "fontDialog",       "printDialog",
          "frmPreferences", "programDialog",  "colorDialog",        "projectDialog",    "exportDialog",
          "importDialog",   "frmRecovery",    "frmKeptDesigns",     "frmError",         "message",
          "frmAbout",       "frmDonation"}) {
        EXPECT_TRUE(anchors.contains(std::string(ChapterOf(window)))) << window;
        EXPECT_NE(ChapterOf(window), mainChapter) << window;
    }
}

TEST(Handbook, LinksAndPicturesLeadSomewhere) {
    const std::set<std::string> anchors = Anchors();
    const std::vector<std::string> links = Targets(std::regex("\\]\\(#([^)]*)\\)"));
    EXPECT_FALSE(links.empty());
    for (const std::string& link : links)
        EXPECT_TRUE(anchors.contains(link)) << link;
    const std::vector<std::string> pictures = Targets(std::regex("!\\[[^\\]]*\\]\\(([^)]*)\\)"));
    EXPECT_FALSE(pictures.empty());
    for (const std::string& picture : pictures)
        EXPECT_TRUE(ReadFileBytes(fs::path(PIROL_DOCS) / picture).starts_with("\x89PNG")) << picture;
}

} // namespace
} // namespace pirol
