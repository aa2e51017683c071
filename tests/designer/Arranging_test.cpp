#include "base/Conversions.h"
#include "Cases.h"
#include "designer/Arranging.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <sstream>

namespace pirol {
namespace {

std::vector<ArrangedBox> BoxesFrom(const std::string& text) {
    std::vector<ArrangedBox> boxes;
    for (const std::string_view piece : Split(text, ',')) {
        std::string words(Trim(piece));
        ArrangedBox box;
        box.isLeader = words.front() == '*';
        box.canBeSized = words.front() != '!';
        if (box.isLeader || !box.canBeSized)
            words.erase(0, 1);
        std::istringstream(words) >> box.box.left >> box.box.top >> box.box.width >> box.box.height;
        boxes.push_back(box);
    }
    return boxes;
}

TEST(Arranging, FollowsItsTable) {
    EXPECT_EQ(test::Deviations("arranging",
                               [](const test::TableRow& row) {
                                   std::string boxes;
                                   for (const Rectangle& box :
                                        Arranged(static_cast<Arrangement>(row.Number(0)), BoxesFrom(row[1]), 640, 480))
                                       boxes += (boxes.empty() ? "" : ", ") + test::FieldText(box);
                                   return test::Answer(boxes);
                               }),
              "");
}

/// Which arrangements can do something with components of these kinds, the last one the leader, in their order.
TEST(Arranging, NeedsEnoughAndForSizesOneThatHasAny) {
    const std::pair<std::vector<ComponentKind>, const char*> cases[] = {
        {{}, "0000000000000000"},
        {{ComponentKind::Sound}, "0000000000000111"},
        {{ComponentKind::Sound, ComponentKind::Movie}, "1111110000000111"},
        {{ComponentKind::Button, ComponentKind::Sound}, "1111111110000111"},
        {{ComponentKind::Movie, ComponentKind::Sound, ComponentKind::Picture}, "1111110001111111"},
    };
    for (const auto& [kinds, possible] : cases) {
        std::vector<ComponentRef> components;
        for (const ComponentKind kind : kinds)
            components.push_back({kind, 1});
        std::string can;
        for (std::size_t i = 0; i < arrangementCount; ++i)
            can += CanArrange(static_cast<Arrangement>(i), Selection(components)) ? '1' : '0';
        EXPECT_EQ(can, possible) << kinds.size();
    }
}

TEST(Arranging, IsOneStepOfAllOrNone) {
    Document document;
    std::vector<ComponentRef> placed;
    document.Edit("", [&](ProjectModel& model) {
        for (const ComponentKind kind : {ComponentKind::Sound, ComponentKind::Button, ComponentKind::Label})
            placed.push_back(model.PlaceComponent(kind, {static_cast<int>(placed.size()) * 100, 20, 60, 30}));
    });
    const ProjectModel before = document.Model();
    for (std::size_t count = 0; count <= placed.size(); ++count) {
        document.Select(Selection(std::vector(placed.begin(), placed.begin() + static_cast<std::ptrdiff_t>(count))));
        for (std::size_t i = 0; i < arrangementCount; ++i) {
            const auto arrangement = static_cast<Arrangement>(i);
            Arrange(document, arrangement);
            EXPECT_TRUE(document.Model() == before || CanArrange(arrangement, document.AllSelected())) << i;
            if (!(document.Model() == before))
                document.Undo();
            EXPECT_EQ(document.Model(), before) << i;
        }
    }
    // A sound beside a leader has nothing to take a size.
    document.Select(Selection(std::vector{placed[0], placed[1]}));
    EXPECT_FALSE(CanArrange(Arrangement::SameSize, document.AllSelected()));
    document.Edit("", [&](ProjectModel& model) { model.EditElement(placed[1]).Left = 32767; });
    document.Select(Selection(std::vector{placed[2], placed[1]}));
    const ProjectModel far = document.Model();
    EXPECT_EQ(test::ErrorNumberOf([&] { MoveAll(document, document.AllSelected(), 1, 0); }), 6);
    EXPECT_EQ(document.Model(), far);
}

} // namespace
} // namespace pirol
