#pragma once

#include "codegen/JavaNumbers.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace pirol {

/// What must be known of a whole source before its statements can be understood: its classes, which of its methods run
/// when the window appears, and its constants. Linear in the length of the source.
class JavaOutline {
  public:
    explicit JavaOutline(std::string_view source);

    /// Whether a place belongs to the class of the window: the one that extends EBAnwendung, or else SuMAnwendung. In a
    /// source without either, and outside of all classes, everything does.
    bool IsOfWindow(const JavaPlace& place) const;
    /// Whether a method of the window's class runs before the user does anything: called by the constructor or by main,
    /// directly or through others. A constructor and a field's initial value do.
    bool RunsAtStart(std::string_view method) const;

    /// Whether the source itself holds a class of that name.
    bool IsOwnClass(std::string_view name) const { return bases_.contains(name); }
    /// The first class above one of the source's own classes that is none itself; empty when there is none.
    std::string_view LibraryBase(std::string_view ownClass) const;

    /// A further window's class, for telling that it is not read.
    struct ClassLine {
        std::string_view name;
        std::size_t line;
    };
    const std::vector<ClassLine>& OtherWindows() const { return windows_; }

    const JavaConstants& Constants() const { return constants_; }
    const UnreadLines& Unread() const { return unread_; }

  private:
    void Visit(const JavaStatement& statement, const JavaHead& head, const JavaPlace& place);
    void ChooseWindow();
    void FollowCalls();

    struct JavaCall {
        std::string_view className;
        std::string_view caller;
        std::string_view called;
    };

    std::unordered_map<std::string_view, std::string_view> bases_; // by class
    std::vector<ClassLine> windows_;
    std::string_view window_;
    std::vector<JavaCall> calls_;
    std::unordered_set<std::string_view> startMethods_;
    JavaConstants constants_;
    UnreadLines unread_;
};

} // namespace pirol
