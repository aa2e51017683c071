#include "base/Conversions.h"
#include "base/Text.h"
#include "Cases.h"
#include "designer/Clipboard.h"
#include "project/Snapshot.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <random>

namespace pirol {
namespace {

using enum ComponentKind;

struct Designer {
    ComponentRef Place(ComponentKind kind, const Rectangle& box) {
        document.EditAndSelect("", [&](ProjectModel& model) { return model.PlaceComponent(kind, box); });
        return *document.Selected();
    }
    std::string Copied() const { return ClipboardBytes(document, SelectedPart(document)); }
    void Delete() {
        document.EditAndSelect("", [&](ProjectModel& model) {
            for (const ComponentRef component : document.AllSelected())
                model.DeleteComponent(component);
            return Selection();
        });
    }
    /// Names and places of what is selected.
    std::string Selected() const {
        std::string text;
        for (const ComponentRef component : document.AllSelected()) {
            const Control& control = document.Model().Element(component);
            Append(text, text.empty() ? "" : ", ", control.ObjectName, " ", control.Left, " ", control.Top);
        }
        return text;
    }

    Document document;
};

TEST(Clipboard, PastesWithFreeNamesBesideWhatIsThere) {
    Designer designer;
    designer.Place(Button, {10, 10, 60, 30});
    designer.Place(Button, {100, 10, 60, 30});
    designer.document.Select(AllComponents(designer.document.Model()));
    const std::string bytes = designer.Copied();
    EXPECT_EQ(PasteComponents(designer.document, bytes), "");
    EXPECT_EQ(designer.Selected(), "hatKnopf3 20 20, hatKnopf4 110 20");
    EXPECT_EQ(designer.document.UndoLabel(), "2 Komponenten einfügen");
    EXPECT_EQ(PasteComponents(designer.document, bytes), "");
    EXPECT_EQ(designer.Selected(), "hatKnopf5 30 30, hatKnopf6 120 30") << "those of before lie on the first step";
    designer.document.Undo();
    DuplicateSelected(designer.document);
    EXPECT_EQ(designer.Selected(), "hatKnopf5 30 30, hatKnopf6 120 30");
    designer.document.Undo();
    designer.document.Undo();
    EXPECT_EQ(designer.Selected(), "hatKnopf1 10 10, hatKnopf2 100 10");
    // What was cut keeps names and places, although it is still there, hidden.
    designer.document.Select(ComponentRef{Button, 2});
    const std::string cut = designer.Copied();
    designer.Delete();
    EXPECT_EQ(PasteComponents(designer.document, cut), "");
    EXPECT_EQ(designer.Selected(), "hatKnopf2 100 10");
}

TEST(Clipboard, EveryKindArrivesWithAllItHas) {
    Designer designer;
    Designer other;
    for (const KindRow& kind : KindRows()) {
        const ComponentRef original = designer.Place(kind.kind, {20, 100 * static_cast<int>(kind.kind), 90, 50});
        designer.document.Edit("", [&](ProjectModel& model) {
            Control& control = model.EditElement(original);
            for (const PropertyRow& row : control.Table().Rows())
                if (row.key->editor == EditorKind::Flag)
                    row.set(control, "Wahr");
            if (kind.kind == OptionGroup)
                FindRow(control, "optionbuttons")->set(control, JoinList({"hatA", "A", "60", "20", "0", "0", "Wahr"}));
        });
        EXPECT_EQ(PasteComponents(other.document, designer.Copied()), "") << kind.key;
        EXPECT_EQ(other.document.Model().Element(*other.document.Selected()),
                  designer.document.Model().Element(original))
            << kind.key;
    }
    // The buttons of a radio group have names that others may not take.
    EXPECT_EQ(PasteComponents(other.document,
                              [&] {
                                  designer.document.Select(ComponentRef{OptionGroup, 1});
                                  return designer.Copied();
                              }()),
              "");
    const auto& group = static_cast<const dOptionsgruppe&>(other.document.Model().Element(*other.document.Selected()));
    EXPECT_EQ(group.OptionButtons.at(0).Name, "hatA2");
    const std::string java = JavaLines(SelectedPart(other.document));
    EXPECT_NE(java.find("hatA2 = new Radioknopf("), std::string::npos) << java;
    EXPECT_NE(java.find("public void hatA2Geklickt()"), std::string::npos) << java;
}

TEST(Clipboard, MissingFilesAreReported) {
    Designer designer;
    const ComponentRef picture = designer.Place(Picture, {0, 0, 0, 0});
    designer.document.Edit(
        "", [&](ProjectModel& model) { static_cast<dBild&>(model.EditElement(picture)).File = "gibt-es-nicht.bmp"; });
    EXPECT_EQ(PasteComponents(designer.document, designer.Copied()), "") << "within a design nothing is missing anew";
    designer.document.MarkSaved("/nirgends/a.prl");
    Designer other;
    EXPECT_EQ(PasteComponents(other.document, designer.Copied()),
              "Hier fehlen Dateien eingefügter Komponenten: »gibt-es-nicht.bmp«.");
    for (char name = 'a'; name <= 'k'; ++name)
        designer.Place(Picture, {0, 0, 0, 0});
    designer.Place(Sound, {0, 0, 0, 0});
    designer.Place(Label, {0, 0, 50, 20});
    designer.document.Edit("", [](ProjectModel& model) {
        for (std::size_t i = 1; i <= 10; ++i)
            static_cast<dBild&>(model.EditElement({Picture, i})).File = std::string(i, 'x');
    });
    designer.document.Select(AllComponents(designer.document.Model()));
    const std::string ten = PasteComponents(other.document, designer.Copied());
    EXPECT_TRUE(ten.ends_with(", »xxxxxxxxxx«.")) << ten;
    designer.document.Edit("", [](ProjectModel& model) {
        static_cast<dBild&>(model.EditElement({Picture, 11})).File = "y";
        static_cast<dBild&>(model.EditElement({Picture, 12})).File = "z";
    });
    const std::string twelve = PasteComponents(other.document, designer.Copied());
    EXPECT_TRUE(twelve.ends_with(", »xxxxxxxxxx« und 2 weitere.")) << twelve;
}

TEST(Clipboard, WhatIsBrokenChangesNothingOrObeysTheRules) {
    Designer designer;
    for (const KindRow& kind : KindRows())
        designer.Place(kind.kind, {20, 30, 90, 50});
    designer.document.Select(AllComponents(designer.document.Model()));
    const std::string good = designer.Copied();
    std::mt19937 random(5);
    int refused = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string bytes = good;
        bytes[random() % bytes.size()] = static_cast<char>(random());
        if (i % 3 == 0)
            bytes.resize(random() % bytes.size());
        Designer other;
        refused += PasteComponents(other.document, bytes).empty() ? 0 : 1;
        EXPECT_TRUE(other.document.Model() == ProjectModel() || other.document.CanUndo());
        other.document.Model().ForEachVisible(
            [](const Control& control) { EXPECT_EQ(control.ObjectName.find_first_of("\r\n\1"), std::string::npos); });
    }
    EXPECT_GT(refused, 500);
    const auto pasted = [&designer](std::size_t bytes) {
        return PasteComponents(designer.document, std::string(bytes, '1')).find("mehr, als sich") != std::string::npos;
    };
    EXPECT_FALSE(pasted(16'777'216));
    EXPECT_TRUE(pasted(16'777'217));
    EXPECT_EQ(designer.document.Model().CreationOrder().size(), kindCount);
}

TEST(Clipboard, ThereIsNoRoomBeyond16Bits) {
    Designer designer;
    designer.Place(Button, {32765, 10, 60, 30});
    DuplicateSelected(designer.document);
    EXPECT_EQ(designer.Selected(), "hatKnopf2 32765 10");
    designer.Place(Label, {10, 32757, 60, 30});
    DuplicateSelected(designer.document);
    EXPECT_EQ(designer.Selected(), "hatEtikett2 20 32767") << "just enough";
}

TEST(Clipboard, ACopyTakesTheNextFreeName) {
    const std::pair<const char*, const char*> cases[] = {
        {"hatX", "hatX2 hatX3"},
        {"hatX9", "hatX10 hatX11"},
        {"hatX007", "hatX8 hatX9"},
        {"9", "10 11"},
        {"x1y", "x1y2 x1y3"},
        {"x99999999999999999999", "x2 x3"},
        {" ", "   "},
    };
    for (const auto& [name, copies] : cases) {
        Designer designer;
        const ComponentRef first = designer.Place(Label, {10, 10, 60, 30});
        designer.document.Edit(
            "", [&, wanted = name](ProjectModel& model) { model.EditElement(first).ObjectName = wanted; });
        EXPECT_EQ(JavaLines(SelectedPart(designer.document)).find("\r\n\r\n\r\n"), std::string::npos);
        std::string names;
        for (int i = 0; i < 2; ++i) {
            DuplicateSelected(designer.document);
            names += (i == 0 ? "" : " ") + designer.document.Model().Element(*designer.document.Selected()).ObjectName;
        }
        EXPECT_EQ(names, copies);
    }
}

/// A renamed component may have the name that the next one would get.
TEST(Clipboard, APlacedComponentTakesAFreeNumber) {
    Designer designer;
    const ComponentRef first = designer.Place(Label, {10, 10, 60, 30});
    designer.document.Edit("", [&](ProjectModel& model) {
        model.EditElement(first).ObjectName = "hatEtikett2";
        const ComponentRef second = model.PlaceComponent(Label, {10, 90, 60, 30});
        NumberFreely(model, second);
        EXPECT_EQ(model.Element(second).ObjectName, "hatEtikett3");
        EXPECT_EQ(static_cast<const dEtikett&>(model.Element(second)).Caption, "Etikett 3");
    });
}

} // namespace
} // namespace pirol
