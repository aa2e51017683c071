#pragma once

#include "codegen/JavaOutline.h"
#include "codegen/JavaRemarks.h"
#include "codegen/JavaValues.h"
#include "model/ProjectModel.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What a variable of the source stands for in the design.
struct JavaTarget {
    enum Sort { Nothing, Component, RadioButton, MenuOrSubMenu };

    Sort sort = Nothing;
    ComponentRef component = {};
    std::size_t radioButton = 0;
    cMenu* menu = nullptr;
    std::string_view method = {}; ///< the one that makes it; empty for the constructor
};

/// An object that the source makes and the design may hold.
struct JavaObject {
    std::string key; ///< the variable with its indices; empty for none
    std::string_view className;
    std::size_t line;
    JavaTarget target;
    std::optional<std::string_view> handler; ///< of the click, from the constructor
};

/// A radio button, whose position is the window's.
struct RadioButtonInSource {
    cRadioButton button;
    std::size_t object;
    bool isRegistered = false;
    bool hasGroup = false;
};

/// A radio group and the radio buttons that were put into it.
struct GroupInSource {
    std::size_t object;
    std::vector<std::size_t> buttons = {};
};

/// Left, top, width and height.
using JavaBox = std::array<std::int16_t, 4>;

/// The components, radio buttons and top-level menus that a source makes, put into a design. Its statements come to
/// Make one after another; Name gives all of them their names at the end.
class JavaObjects {
  public:
    /// The others must outlive it.
    JavaObjects(const JavaOutline& outline, ProjectModel& model, RemarkList& remarks)
        : outline_(outline), model_(model), remarks_(remarks) {}

    /// Makes what a statement makes.
    void Make(const JavaStatement& statement, const JavaPlace& place);
    /// Gives valid and distinct names. Who is called exactly so in the source keeps the name.
    void Name();

    const std::vector<JavaObject>& All() const { return objects_; }
    const std::string& NameOf(const JavaTarget& target) const;
    std::vector<RadioButtonInSource>& RadioButtons() { return radioButtons_; }
    /// In the order of the design's groups.
    std::vector<GroupInSource>& Groups() { return groups_; }
    /// The top-level menus, for the design.
    MenuBar& Menus() { return menus_; }

    /// Gives a property the value of an expression, and says whether it can be read.
    bool SetProperty(Control& control, const PropertyKey& key, JavaTokens expression);
    void RemarkValue(std::size_t line, std::string_view what, const PropertyKey& key);
    void RemarkLeftOut(const JavaObject& object, std::string_view reason);

    /// What remarks call an object: its class and variable.
    static std::string Described(const JavaObject& object);

  private:
    void MakeObject(const JavaStatement& statement, const JavaPlace& place, const JavaCreation& creation);
    void AddObject(JavaObject& object, const std::vector<JavaTokens>& arguments);
    void AddMenu(JavaObject& object, const std::vector<JavaTokens>& arguments);
    void AddRadioButton(JavaObject& object, const std::vector<JavaTokens>& arguments);
    void AddComponent(JavaObject& object, const std::vector<JavaTokens>& arguments);
    std::optional<JavaBox> BoxOf(const JavaObject& object, const std::vector<JavaTokens>& arguments);
    void TakeHandler(JavaObject& object, const std::vector<JavaTokens>& arguments, std::size_t usual);
    bool SetColumns(dTabelle& table, const std::optional<std::int16_t>& count);
    void SetName(const JavaTarget& target, std::string name);

    const JavaOutline& outline_;
    ProjectModel& model_;
    RemarkList& remarks_;
    MenuBar menus_;
    std::vector<JavaObject> objects_;
    std::vector<RadioButtonInSource> radioButtons_;
    std::vector<GroupInSource> groups_;
    std::size_t columns_ = 0;
    bool hasTooMany_ = false;
};

} // namespace pirol
