#include "codegen/NameMap.h"
#include "codegen/SourceLines.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace pirol {
namespace {

/// Every question about random texts answered by a look at each byte; ends of lines are near together and far apart.
TEST(SourceLines, AreWhatALookAtEachByteFinds) {
    std::mt19937 random(3);
    for (int round = 0; round < 3000; ++round) {
        const std::string_view bytes = round % 3 == 0 ? "a \t\r\n" : "abcdefgh \t\f\v\r\n";
        std::string text(random() % (round % 5 == 0 ? 1200 : 12), 'x');
        for (char& byte : text)
            byte = round % 2 == 0 || random() % 300 == 0 ? bytes[random() % bytes.size()] : 'x';
        const auto isEnd = [&](std::size_t at) { return text[at] == '\n' || text[at] == '\r'; };
        const std::size_t position = random() % (text.size() + 1);
        std::size_t end = position;
        while (end < text.size() && !isEnd(end))
            ++end;
        ASSERT_EQ(EndOfLine(text, position), end);
        ASSERT_EQ(BehindLine(text, position), end + (end == text.size()                  ? 0
                                                     : text.compare(end, 2, "\r\n") == 0 ? 2
                                                                                         : 1));
        std::size_t start = position;
        const std::size_t lowest = random() % (position + 1);
        while (start > lowest && (text[start - 1] == ' ' || text[start - 1] == '\t'))
            --start;
        ASSERT_EQ(LineStart(text, position, lowest), start == lowest || isEnd(start - 1) ? start : position);

        std::map<std::string_view, int> ends = {{"\r\n", 0}, {"\n", 0}, {"\r", 0}};
        for (std::size_t at = 0; at < text.size(); ++at)
            if (isEnd(at) && text.compare(at, 2, "\r\n") == 0)
                ++ends["\r\n"], ++at;
            else if (isEnd(at))
                ++ends[text.substr(at, 1) == "\n" ? "\n" : "\r"];
        ASSERT_EQ(LineBreaks(text), ends["\r\n"] + ends["\n"] + ends["\r"]);
        const int most = std::max({ends["\r\n"], ends["\n"], ends["\r"]});
        ASSERT_EQ(UsualLineEnd(text), ends["\r\n"] == most ? "\r\n" : ends["\n"] == most ? "\n" : "\r") << text;

        const std::size_t first = text.find_first_not_of(" \t\f\v\r\n");
        const std::size_t last = text.find_last_not_of(" \t\f\v\r\n");
        ASSERT_EQ(IsBlank(text), first == std::string::npos);
        ASSERT_EQ(Stripped(text), first == std::string::npos ? "" : text.substr(first, last + 1 - first));
    }
}

TEST(NameMap, KeepsTheFirstValueOfEachNameInTheirOrder) {
    std::vector<std::string> names(2000);
    for (std::size_t number = 0; number < names.size(); ++number)
        names[number] = "hat" + std::to_string(number * number % 1777);
    names.insert(names.end(), {"hat23124", "hat42159", "hat62506", "hat103029"}); // two and two of one hash here
    for (const std::size_t room : {0U, 5U, 8U, 3000U}) {
        NameMap<std::size_t> map;
        EXPECT_TRUE(map.Empty() && !map.Contains("hat0"));
        map.Reserve(room);
        std::map<std::string_view, std::size_t> numbers;
        for (const std::string& name : names) {
            ASSERT_EQ(map.Contains(name), numbers.contains(name));
            const auto [place, isNew] = numbers.emplace(name, numbers.size());
            const auto [entry, added] = map.Add(name, isNew ? place->second : 99999);
            ASSERT_EQ(added, isNew);
            ASSERT_EQ(entry->value, place->second);
            ASSERT_EQ(map.NumberOf(name), place->second);
            ASSERT_EQ(map[map.NumberOf(name)].name, name);
        }
        EXPECT_EQ(map.Size(), numbers.size());
        EXPECT_EQ(map.NumberOf("hatNichts"), map.none);
    }
}

} // namespace
} // namespace pirol
