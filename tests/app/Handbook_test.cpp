#include "app/Handbook.h"
#include "base/Text.h"
#include "codegen/Hints.h"
#include "model/ProjectModel.h"
#include "Tables.h"

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
        if (line.starts_with("## ") || line.starts_with("### ") || line.starts_with("#### ")) {
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

TEST(Handbook, EveryWindowHasItsChapter) {
    const std::set<std::string> anchors = Anchors();
    for (const test::TableRow& row : test::Table("handbook-chapters"))
        EXPECT_TRUE(anchors.contains(row[1])) << row.line;
}

TEST(Handbook, EveryHintHasItsPlace) {
    const std::set<std::string> anchors = Anchors();
    for (const HintRule& rule : HintRules())
        EXPECT_TRUE(anchors.contains(AnchorOf(rule))) << rule.title;
}

/// Each kind's page leads to all its properties and events, and each of these has its place.
TEST(Handbook, EveryPropertyOfEveryKindHasItsPlace) {
    const std::set<std::string> anchors = Anchors();
    const ProjectModel model;
    for (const KindRow& kind : KindRows()) {
        const std::string text = Handbook();
        const std::size_t begin = text.find(Concatenate("\n### ", kind.javaClass, "\n"));
        ASSERT_NE(begin, std::string::npos) << kind.javaClass;
        const std::string page = text.substr(begin, text.find("\n#", begin + 1) - begin);
        EXPECT_NE(page.find("```java\n"), std::string::npos) << kind.javaClass;
        for (const PropertyRow& row : model.Element({kind.kind, 0}).Table().Rows()) {
            EXPECT_NE(page.find("(#" + AnchorOf(*row.key) + ")"), std::string::npos) << page << row.key->label;
            EXPECT_TRUE(anchors.contains(AnchorOf(*row.key))) << row.key->label;
        }
    }
    for (const PropertyRow& row : CommonRows())
        EXPECT_TRUE(anchors.contains(AnchorOf(*row.key))) << row.key->label;
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
