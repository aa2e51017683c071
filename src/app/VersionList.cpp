#include "app/VersionList.h"

#include "app/UpdateFault.h"
#include "base/Conversions.h"
#include "base/Signature.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>

namespace pirol {
namespace {

constexpr std::string_view heading = "#Pirol.Versions 1";
constexpr std::string_view signatureWord = "signature: ";
constexpr std::uint64_t largestFile = std::uint64_t{256} << 20U;
constexpr std::size_t longestName = 100;
constexpr std::size_t hashDigits = 64;
constexpr std::size_t mostNumbers = 4; ///< of a version

/// The systems with the ending that their own installer goes by.
struct SystemRow {
    std::string_view system;
    std::string_view ending;
};
constexpr SystemRow systems[] = {{"windows", ".exe"}, {"debian", ".deb"}};

void Require(bool condition) {
    if (!condition)
        throw UpdateError(UpdateFault::ListUnreadable);
}

bool IsDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

/// A number as it is written: without a sign, blanks or leading zeros.
template <class Number>
std::optional<Number> ReadNumber(std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit) || (text[0] == '0' && text.size() > 1) ||
        error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

template <class Number>
Number RequiredNumber(std::string_view text, Number smallest, Number largest) {
    const std::optional<Number> number = ReadNumber<Number>(text);
    Require(number && *number >= smallest && *number <= largest);
    return *number;
}

std::vector<std::uint32_t> VersionNumbers(std::string_view version) {
    std::vector<std::uint32_t> numbers;
    for (const std::string_view part : Split(version, '.', mostNumbers + 1)) {
        const std::optional<std::uint32_t> number = ReadNumber<std::uint32_t>(part);
        if (!number || numbers.size() == mostNumbers)
            return {};
        numbers.push_back(*number);
    }
    while (numbers.size() > 1 && numbers.back() == 0)
        numbers.pop_back();
    return numbers;
}

std::chrono::year_month_day ReadDay(std::string_view text) {
    constexpr std::string_view form = "0000-00-00";
    Require(text.size() == form.size());
    for (std::size_t i = 0; i < form.size(); ++i)
        Require(form[i] == '0' ? IsDigit(text[i]) : text[i] == form[i]);
    const auto number = [&](std::size_t begin, std::size_t count) {
        int value = 0;
        std::from_chars(text.data() + begin, text.data() + begin + count, value);
        return value;
    };
    const std::chrono::year_month_day day(std::chrono::year(number(0, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                          std::chrono::day(static_cast<unsigned>(number(8, 2))));
    Require(day.ok());
    return day;
}

bool IsPlainName(std::string_view name) {
    const auto isPlain = [](char sign) {
        return IsDigit(sign) || (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') ||
               std::string_view("._+-").find(sign) != std::string_view::npos;
    };
    return !name.empty() && name.size() <= longestName && name[0] != '.' && name[0] != '-' &&
           std::all_of(name.begin(), name.end(), isPlain);
}

bool IsHash(std::string_view text) {
    return text.size() == hashDigits && std::all_of(text.begin(), text.end(), [](char sign) {
               return IsDigit(sign) || (sign >= 'a' && sign <= 'f');
           });
}

OfferedFile ReadFile(std::string_view text) {
    const std::vector<std::string_view> words = Split(text, ' ');
    Require(words.size() == 4);
    const auto* const row = std::find_if(std::begin(systems), std::end(systems),
                                         [&](const SystemRow& candidate) { return candidate.system == words[0]; });
    Require(row != std::end(systems) && IsPlainName(words[1]) && words[1].ends_with(row->ending) && IsHash(words[3]));
    return {std::string(words[0]), std::string(words[1]), RequiredNumber<std::uint64_t>(words[2], 1, largestFile),
            std::string(words[3])};
}

/// Reads lines that begin with known words.
class Lines {
  public:
    explicit Lines(std::string_view text) : lines_(Split(text, '\n')) {
        Require(lines_.back().empty()); // the last line is ended, too
        lines_.pop_back();
    }

    bool AtEnd() const { return next_ == lines_.size(); }
    bool Follows(std::string_view word) const { return !AtEnd() && lines_[next_].starts_with(word); }
    /// What stands behind the word.
    std::string_view Take(std::string_view word) {
        Require(Follows(word));
        return lines_[next_++].substr(word.size());
    }

  private:
    std::vector<std::string_view> lines_;
    std::size_t next_ = 0;
};

bool HasControlCharacters(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char sign) {
        return (static_cast<unsigned char>(sign) < ' ' && sign != '\n') || sign == '\x7F';
    });
}

} // namespace

VersionList ReadSignedPart(std::string_view text) {
    Require(IsUtf8(text) && !HasControlCharacters(text));
    Lines lines(text);
    VersionList list;
    Require(lines.Take(heading).empty());
    list.serial = RequiredNumber<std::uint32_t>(lines.Take("serial: "), 1, std::numeric_limits<std::int32_t>::max());
    list.expires = lines.Take("expires: ");
    ReadDay(list.expires);
    list.version = lines.Take("version: ");
    Require(!VersionNumbers(list.version).empty());
    while (lines.Follows("note: "))
        list.notes.emplace_back(lines.Take("note: "));
    while (!lines.AtEnd())
        list.files.push_back(ReadFile(lines.Take("file: ")));
    return list;
}

VersionList ReadVersionList(std::string_view bytes, std::span<const std::string> keys) {
    if (bytes.size() > longestList)
        throw UpdateError(UpdateFault::ListTooLong);
    Require(bytes.starts_with(heading) && bytes.ends_with('\n'));
    const std::size_t lastLine = bytes.rfind('\n', bytes.size() - 2) + 1;
    const std::string_view line = bytes.substr(lastLine);
    Require(line.starts_with(signatureWord));
    const std::optional<std::string> signature =
        FromBase64(line.substr(signatureWord.size(), line.size() - signatureWord.size() - 1));
    const std::string_view content = bytes.substr(0, lastLine);
    // The signature first: nothing else is looked at in what a stranger has written.
    if (!signature || std::none_of(keys.begin(), keys.end(),
                                   [&](const std::string& key) { return IsSignedBy(key, content, *signature); }))
        throw UpdateError(UpdateFault::ListNotSigned);
    return ReadSignedPart(content);
}

std::partial_ordering CompareVersions(std::string_view a, std::string_view b) {
    const std::vector<std::uint32_t> left = VersionNumbers(a);
    const std::vector<std::uint32_t> right = VersionNumbers(b);
    if (left.empty() || right.empty())
        return std::partial_ordering::unordered;
    return left <=> right;
}

std::optional<Offer> OfferOf(const VersionList& list, const InstalledProgram& program) {
    using Days = std::chrono::sys_days;
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::from_time_t(program.now));
    if (today > Days(ReadDay(list.expires)))
        throw UpdateError(UpdateFault::ListExpired);
    if (list.serial < program.highestSerial)
        throw UpdateError(UpdateFault::ListOutdated);
    const std::partial_ordering order = CompareVersions(list.version, program.version);
    if (order == std::partial_ordering::equivalent)
        return std::nullopt;
    if (order != std::partial_ordering::greater)
        throw UpdateError(UpdateFault::OlderVersion);
    const auto file = std::find_if(list.files.begin(), list.files.end(),
                                   [&](const OfferedFile& candidate) { return candidate.system == program.system; });
    if (file == list.files.end())
        throw UpdateError(UpdateFault::NothingForThisSystem);
    return Offer{list.version, list.notes, *file};
}

} // namespace pirol
