#include "codegen/JavaOutline.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view windowBase = "EBAnwendung";
constexpr std::string_view usualWindow = "SuMAnwendung";
constexpr std::string_view mainMethod = "main";

/// A source made for it must not fill the memory with names; no program has so many.
constexpr std::size_t mostClasses = 10'000;
constexpr std::size_t mostCalls = 1'000'000;
/// Classes that extend each other in a ring have no first one.
constexpr int mostBases = 16;

} // namespace

JavaOutline::JavaOutline(std::string_view source) {
    unread_ = ForEachStatement(source, [this](const JavaStatement& statement, const JavaHead& head,
                                              const JavaPlace& place) { Visit(statement, head, place); });
    ChooseWindow();
    FollowCalls();
}

void JavaOutline::Visit(const JavaStatement& statement, const JavaHead& head, const JavaPlace& place) {
    constants_.Read(statement);
    if (head.kind == JavaHead::Class && bases_.size() < mostClasses) {
        bases_.try_emplace(head.name, head.base);
        if (head.base == windowBase)
            windows_.push_back({head.name, statement[0].line});
    }
    const bool isMain = place.method == mainMethod;
    for (std::size_t index = 0; index + 1 < statement.Size(); ++index) {
        if (!statement[index].IsWord() || !statement[index + 1].IsSign("(") || calls_.size() == mostCalls)
            continue;
        const bool isOfOther = index >= 2 && statement[index - 1].IsSign(".") && !statement[index - 2].IsWord("this");
        const bool isHead = head.kind == JavaHead::Method && index == head.nameToken;
        if (!isHead && (!isOfOther || isMain))
            calls_.push_back({place.className, place.method, statement[index].text});
    }
}

void JavaOutline::ChooseWindow() {
    const auto usual = std::find_if(windows_.begin(), windows_.end(),
                                    [](const ClassLine& window) { return window.name == usualWindow; });
    const auto chosen = usual != windows_.end() ? usual : windows_.begin();
    if (chosen != windows_.end()) {
        window_ = chosen->name;
        windows_.erase(chosen);
    } else if (bases_.contains(usualWindow)) {
        window_ = usualWindow;
    }
}

void JavaOutline::FollowCalls() {
    std::unordered_map<std::string_view, std::vector<std::string_view>> called;
    for (const JavaCall& call : calls_)
        if (IsOfWindow({.className = call.className}))
            called[call.caller].push_back(call.called);
    calls_ = {};
    std::vector<std::string_view> open = {{}, mainMethod};
    startMethods_.insert(open.begin(), open.end());
    while (!open.empty()) {
        const std::string_view method = open.back();
        open.pop_back();
        for (const std::string_view next : called[method])
            if (startMethods_.insert(next).second)
                open.push_back(next);
    }
}

bool JavaOutline::IsOfWindow(const JavaPlace& place) const {
    return window_.empty() || place.className.empty() || place.className == window_;
}

bool JavaOutline::RunsAtStart(std::string_view method) const {
    return startMethods_.contains(method);
}

std::string_view JavaOutline::LibraryBase(std::string_view ownClass) const {
    for (int step = 0; step < mostBases; ++step) {
        const auto found = bases_.find(ownClass);
        if (found == bases_.end())
            return ownClass;
        ownClass = found->second;
    }
    return {};
}

} // namespace pirol
