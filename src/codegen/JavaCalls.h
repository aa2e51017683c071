#pragma once

#include "codegen/JavaObjects.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace pirol {

/// One call "receiver.method(arguments)".
struct JavaCall {
    const JavaStatement& statement;
    std::size_t name; ///< the method's token
    std::vector<JavaTokens> arguments;
    JavaTarget receiver;
    std::string receiverText; ///< as the source names it
    std::string array;        ///< when the receiver is an element whose index is computed

    std::size_t Line() const { return statement[name].line; }
    std::string_view Method() const { return statement[name].text; }
};

/// Reads what a source does with the objects that it makes, into the design that holds them: values, entries, titles,
/// events, radio groups, menu lines, the window's size and the database. Its statements come to Read one after another,
/// all of them the window's class's; Finish completes what only the end can tell.
class JavaCalls {
  public:
    /// The others must outlive it; all objects have been made and named.
    JavaCalls(const JavaOutline& outline, JavaObjects& objects, ProjectModel& model, RemarkList& remarks);

    void Read(const JavaStatement& statement, const JavaHead& head, const JavaPlace& place);
    void Finish();

    /// Whether the window's size was found.
    bool HasWindowSize() const { return hasWindowSize_; }

  private:
    void MeetObject(const JavaStatement& statement, const JavaCreation& creation);
    void ReadWindowSize(const JavaStatement& statement);
    void NoteLoop(const JavaStatement& statement);
    void ReadCall(const JavaStatement& statement, std::size_t name);
    bool FindReceiver(JavaCall& call);
    bool ReadKnownCall(const JavaCall& call);
    bool ReadSetter(const JavaCall& call, const PropertyKey& key);
    bool AddEntry(const JavaCall& call);
    bool SetColumnTitle(const JavaCall& call);
    bool FillGroup(const JavaCall& call);
    JavaTarget TargetOf(const JavaStatement& statement, JavaTokens expression) const;
    bool AddMenuLine(const JavaCall& call);
    bool AddSeparator(const JavaCall& call);
    bool AddSubMenu(const JavaCall& call);
    void CompareHandler(std::size_t line, std::string_view who, JavaTokens handler, std::string_view ours);
    bool ReadRegistration(const JavaCall& call);
    bool Register(const JavaTarget& target, std::string_view suffix);
    void NoteArrayEvent(const JavaCall& call, std::string_view suffix);
    void FinishEvents();
    void FinishGroups();
    bool ReadConnection(const JavaCall& call);
    bool ReadQuery(const JavaCall& call);
    void NoteMethod(const JavaHead& head);
    void FinishDatabase();

    const JavaOutline& outline_;
    JavaObjects& objects_;
    ProjectModel& model_;
    RemarkList& remarks_;

    std::unordered_map<std::string, JavaTarget> variables_;
    std::unordered_map<std::string, std::vector<std::string_view>> arrayEvents_; // by array, for all elements
    std::unordered_map<std::string_view, std::string_view> loopArrays_;          // by the variable of a loop

    // While statements are read:
    std::size_t nextObject_ = 0;
    std::vector<std::pair<std::size_t, JavaTarget>> made_; // the statement's objects by their tokens
    std::string_view method_;
    bool isAtStart_ = false;
    JavaTarget result_; // of the call before, whose parenthesis closes at resultEnd_
    std::string resultText_;
    std::size_t resultEnd_ = JavaStatement::none;

    bool hasWindowSize_ = false;
    bool hasDatabase_ = false;
    std::optional<std::string> tableName_;
    std::array<std::int16_t, sqlFunctionCount> sqlMethods_{};
};

} // namespace pirol
