#include "codegen/DesignComparison.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/DesignFacts.h"
#include "codegen/LineDifferences.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>

namespace pirol {
namespace {

constexpr std::size_t mostShownBytes = 80;

/// The part of a text that a reader needs to see a difference which begins at that byte.
std::string ShownFrom(std::string_view text, std::size_t difference) {
    constexpr std::size_t before = 20;
    std::size_t begin = text.size() <= mostShownBytes || difference < 2 * before ? 0 : difference - before;
    while (begin > 0 && begin < text.size() && !BeginsCharacter(text[begin]))
        --begin;
    return Concatenate(begin == 0 ? "" : "…", Shortened(text.substr(begin), mostShownBytes));
}

/// The visible components of one kind, in the order in which files hold them.
using Components = std::vector<const Control*>;

Components VisibleOf(const ProjectModel& model, ComponentKind kind) {
    Components components;
    for (std::size_t index = 1; index < model.ElementCount(kind); ++index)
        if (const Control& control = model.Element({kind, index}); control.Visible)
            components.push_back(&control);
    return components;
}

/// For each component of the design before, its place in the one after.
using Partners = std::vector<std::optional<std::size_t>>;

/// Finds partners for the components that have none: equal by `keyOf`, first come, first served.
template <class KeyOf>
void Pair(const Components& before, const Components& after, Partners& partners, std::vector<bool>& isTaken,
          const KeyOf& keyOf) {
    std::multimap<decltype(keyOf(*before.front())), std::size_t> free; // keeps the order of equal keys
    for (std::size_t place = 0; place < after.size(); ++place)
        if (!isTaken[place])
            free.emplace(keyOf(*after[place]), place);
    for (std::size_t place = 0; place < before.size(); ++place) {
        if (partners[place])
            continue;
        const auto found = free.lower_bound(keyOf(*before[place]));
        if (found == free.end() || found->first != keyOf(*before[place]))
            continue;
        partners[place] = found->second;
        isTaken[found->second] = true;
        free.erase(found);
    }
}

bool ChangesOrder(const Partners& partners) {
    std::size_t last = 0;
    for (const std::optional<std::size_t>& partner : partners) {
        if (partner && *partner < last)
            return true;
        last = partner.value_or(last);
    }
    return false;
}

std::string PlaceOf(const Control& control) {
    return Concatenate(" (Links ", control.Left, ", Oben ", control.Top, ", Breite ", control.Width, ", Höhe ",
                       control.Height, ")");
}

class DesignComparer {
  public:
    DesignComparer(const ProjectModel& before, const ProjectModel& after) : before_(before), after_(after) {}

    std::vector<std::string> Compare() {
        CompareFacts("Fenster", WindowFacts(before_), WindowFacts(after_));
        for (const KindRow& row : KindRows())
            CompareKind(row);
        if (!(before_.Menus() == after_.Menus()))
            CompareLists("Menüs", MenuFact(before_.Menus()), MenuFact(after_.Menus()));
        CompareFacts("Datenbank", DatabaseFacts(before_.Sql()), DatabaseFacts(after_.Sql()));
        return std::move(lines_);
    }

  private:
    template <class... Pieces>
    void Report(const Pieces&... pieces) {
        if (lines_.size() < mostDifferences)
            lines_.push_back(Concatenate(pieces...));
    }

    void CompareKind(const KindRow& kind) {
        const Components before = VisibleOf(before_, kind.kind);
        const Components after = VisibleOf(after_, kind.kind);
        Partners partners(before.size());
        std::vector<bool> isTaken(after.size());
        Pair(before, after, partners, isTaken,
             [](const Control& control) { return std::string_view(control.ObjectName); });
        Pair(before, after, partners, isTaken, [](const Control& control) {
            return std::tuple(control.Left, control.Top, control.Width, control.Height);
        });
        for (std::size_t place = 0; place < before.size(); ++place)
            if (partners[place])
                CompareComponents(*before[place], *after[*partners[place]]);
            else
                Report("entfernt: ", Excerpt(NameOf(*before[place])), PlaceOf(*before[place]));
        for (std::size_t place = 0; place < after.size(); ++place)
            if (!isTaken[place])
                Report("neu: ", Excerpt(NameOf(*after[place])), PlaceOf(*after[place]));
        if (ChangesOrder(partners))
            Report("geändert: Reihenfolge der Art ", kind.javaClass);
    }

    void CompareComponents(const Control& before, const Control& after) {
        if (lines_.size() == mostDifferences)
            return;
        if (before.ObjectName != after.ObjectName)
            Report("umbenannt: ", Excerpt(NameOf(before)), " in ", Excerpt(after.ObjectName));
        const std::string place = Excerpt(NameOf(after));
        for (const std::vector<PropertyRow>* rows : {&CommonRows(), &after.Table().Rows()})
            for (const PropertyRow& row : *rows)
                if (row.key != &keys::name && row.get(before) != row.get(after))
                    CompareFact(place, FactOf(before, row), FactOf(after, row));
    }

    void CompareFacts(std::string_view place, const std::vector<DesignFact>& before,
                      const std::vector<DesignFact>& after) {
        for (std::size_t i = 0; i < before.size(); ++i)
            if (before[i] != after[i])
                CompareFact(place, before[i], after[i]);
    }

    void CompareFact(std::string_view place, const DesignFact& before, const DesignFact& after) {
        if (before.isList)
            return CompareLists(Concatenate(place, ", ", before.label), before, after);
        if (before.isSecret || after.isSecret)
            return Report("geändert: ", place, ", ", before.label);
        const auto difference = static_cast<std::size_t>(
            std::mismatch(before.value.begin(), before.value.end(), after.value.begin(), after.value.end()).first -
            before.value.begin());
        Report("geändert: ", place, ", ", before.label, ": ", ShownFrom(before.value, difference), " → ",
               ShownFrom(after.value, difference));
    }

    void CompareLists(std::string_view place, const DesignFact& before, const DesignFact& after) {
        const std::vector<std::string_view> old(before.items.begin(), before.items.end());
        const std::vector<std::string_view> now(after.items.begin(), after.items.end());
        for (const DifferentLines& lines : LineDifferences(old, now)) {
            for (std::size_t line = lines.oldBegin; line < lines.oldEnd; ++line)
                Report("entfernt: ", place, ": ", Shortened(old[line], mostShownBytes));
            for (std::size_t line = lines.newBegin; line < lines.newEnd; ++line)
                Report("neu: ", place, ": ", Shortened(now[line], mostShownBytes));
        }
    }

    const ProjectModel& before_;
    const ProjectModel& after_;
    std::vector<std::string> lines_;
};

} // namespace

std::vector<std::string> CompareDesigns(const ProjectModel& before, const ProjectModel& after) {
    return DesignComparer(before, after).Compare();
}

} // namespace pirol
