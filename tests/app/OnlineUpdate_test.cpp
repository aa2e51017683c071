// The version list and the download against a server that misbehaves.

#include "app/cDownload.h"
#include "app/DownloadFolder.h"
#include "app/UpdateRecord.h"
#include "app/VersionLookup.h"
#include "base/Signature.h"
#include "base/Text.h"
#include "Cases.h"
#include "Signer.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <gcrypt.h>
#include <limits>

namespace pirol {
namespace {

namespace fs = std::filesystem;

using test::Signer;

const Signer& Author() {
    static const Signer signer;
    return signer;
}

std::string HashOf(std::string_view bytes) {
    Sha256 hash;
    hash.Add(bytes);
    return hash.Digits();
}

const std::string& Content() {
    static const std::string content = [] {
        std::string text;
        for (int i = 0; text.size() < 300'000; ++i)
            text += std::to_string(i * 7919) + "\n";
        text.resize(300'000);
        return text;
    }();
    return content;
}

OfferedFile ContentFile() {
    return {"debian", "pirol_2.0_amd64.deb", Content().size(), HashOf(Content())};
}

std::string ListText() {
    const OfferedFile file = ContentFile();
    return "#Pirol.Versions 1\nserial: 7\nexpires: 2027-11-21\nversion: 1.10.0\nnote: Größer\nnote: Schöner\nfile: "
           "windows Pirol-Setup.exe 6634859 " +
           std::string(64, 'a') + "\nfile: debian " + file.name + " " + std::to_string(file.size) + " " + file.hash +
           "\n";
}

constexpr std::time_t in2026 = 1'790'000'000;

/// What comes of a list: "neu" and the version, "aktuell", or the beginning of the message.
std::string Outcome(const std::string& bytes, const InstalledProgram& program = {"1.9.0", "debian", 7, in2026}) {
    try {
        const std::string keys[] = {std::string(publicKeySize, 'x'), Author().PublicKey()};
        const std::optional<Offer> offer = OfferOf(ReadVersionList(bytes, keys), program);
        return offer ? "neu " + offer->version : "aktuell";
    } catch (const UpdateError& error) {
        return error.what();
    }
}

std::string Message(UpdateFault fault) {
    return std::string(MessageOf(fault));
}

TEST(VersionList, IsReadWhole) {
    const std::string key = Author().PublicKey();
    const VersionList list = ReadVersionList(Author().Signed(ListText()), {&key, 1});
    EXPECT_EQ(list.serial, 7U);
    EXPECT_EQ(list.notes, (std::vector<std::string>{"Größer", "Schöner"}));
    ASSERT_EQ(list.files.size(), 2U);
    EXPECT_EQ(list.files[1], ContentFile());
}

TEST(VersionList, IsRefusedWithAnyByteChanged) {
    const std::string good = Author().Signed(ListText());
    ASSERT_EQ(Outcome(good), "neu 1.10.0");
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const int change : {1, 0x20, 0x80}) {
            std::string bad = good;
            bad[at] = static_cast<char>(bad[at] ^ change);
            EXPECT_FALSE(Outcome(bad).starts_with("neu")) << at << ' ' << change;
            EXPECT_FALSE(Outcome(bad) == "aktuell") << at << ' ' << change;
        }
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_FALSE(Outcome(good.substr(0, size)).starts_with("neu")) << size;
    EXPECT_EQ(Outcome(good + "\n"), Message(UpdateFault::ListUnreadable));
    EXPECT_EQ(Outcome(Signer().Signed(ListText())), Message(UpdateFault::ListNotSigned));
    EXPECT_EQ(Outcome(std::string(100'000'000, '#')), Message(UpdateFault::ListTooLong));
}

/// A right signature with the group's order added to its number is right for the library.
TEST(Signature, HasOneFormOnly) {
    const std::string text = ListText();
    std::string signature = Author().Signature(text);
    ASSERT_TRUE(IsSignedBy(Author().PublicKey(), text, signature));
    const std::string order("\xED\xD3\xF5\x5C\x1A\x63\x12\x58\xD6\x9C\xF7\xA2\xDE\xF9\xDE\x14\0\0\0\0\0\0\0\0\0\0\0\0\0"
                            "\0\0\x10",
                            32);
    unsigned carry = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const unsigned sum =
            static_cast<unsigned char>(signature[32 + i]) + carry + static_cast<unsigned char>(order[i]);
        signature[32 + i] = static_cast<char>(sum & 0xFFU);
        carry = sum >> 8U;
    }
    EXPECT_FALSE(IsSignedBy(Author().PublicKey(), text, signature));
    EXPECT_FALSE(IsBelowGroupOrder(order));
    for (std::size_t at = 0; at < order.size(); ++at)
        for (const char change : {'\1', '\xFF'}) {
            std::string other = order;
            other[at] = static_cast<char>(other[at] + change);
            EXPECT_EQ(IsBelowGroupOrder(other),
                      static_cast<unsigned char>(other[at]) < static_cast<unsigned char>(order[at]))
                << at;
        }
    const std::string good = Author().Signature(text);
    EXPECT_FALSE(IsSignedBy(Author().PublicKey() + "x", text, good));
    EXPECT_FALSE(IsSignedBy(Author().PublicKey().substr(1), text, good));
    EXPECT_FALSE(IsSignedBy(Author().PublicKey(), text, good + "x"));
    for (const char* const key : {"", "\0", "\1", "\xEC\xFF"}) { // for which the library would end the program
        std::string point(publicKeySize, key[0] == '\xEC' ? '\xFF' : '\0');
        point[0] = key[0];
        EXPECT_FALSE(IsSignedBy(point, text, signature));
    }
    EXPECT_EQ(HashOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i * 7);
    EXPECT_EQ(HashOf(ToBase64(all)), "ecbd1e394e7d3f83afc3bbea5f07a70985dc9d28c773b85c0f508fa0955c6dea")
        << "Python's base64";
    EXPECT_EQ(FromBase64(ToBase64(all)), all);
    EXPECT_EQ(FromBase64("TWE="), "Ma");
    for (const char* const text64 : {"TWF=", "TWE", "TW E=", "TWE=\n", "TWE==", "T"})
        EXPECT_FALSE(FromBase64(text64)) << text64;
}

/// Lists that are signed and mean nothing good, or differ where they may.
TEST(VersionList, CountsAsTheTableSays) {
    EXPECT_EQ(
        test::Deviations("version-list",
                         [](const test::TableRow& row) {
                             std::string text = ListText();
                             const std::size_t at = text.find(row[0]);
                             if (at == std::string::npos)
                                 return test::Fields{"not in the list"};
                             text.replace(at, row[0].size(), row[1]);
                             const InstalledProgram program{row[2], row[3], static_cast<std::uint32_t>(row.Number(4)),
                                                            std::stoll(row[5])};
                             return test::Fields{Outcome(Author().Signed(text), program).substr(0, row[6].size())};
                         }),
        "");
}

// --- The download -----------------------------------------------------------------------------------------------

/// A place in memory that fails where it is told.
class FakeTarget : public DownloadTarget {
  public:
    std::string bytes;
    std::string mark;
    std::uint64_t room = std::numeric_limits<std::uint64_t>::max();
    bool isTaken = false;
    bool failsAtEnd = false;
    bool isFinished = false;

    void Hold() override {
        if (isTaken)
            throw UpdateError(UpdateFault::AnotherProgram);
    }
    std::uint64_t Size() override { return bytes.size(); }
    void Append(std::string_view piece) override {
        bytes += piece.substr(0, std::min<std::uint64_t>(piece.size(), room - bytes.size()));
        if (bytes.size() == room)
            throw RuntimeError(RuntimeError::DiskFull);
    }
    void Clear() override { bytes.clear(), mark.clear(); }
    std::string Mark() override { return mark; }
    void SetMark(const std::string& newMark) override { mark = newMark; }
    std::string Hash() override { return HashOf(bytes); }
    fs::path Finish() override {
        if (failsAtEnd)
            throw RuntimeError(RuntimeError::PermissionDenied);
        isFinished = true;
        return "whole";
    }
};

/// Answers each request by the next of its scripts, by the last one for ever. A script's words: a status; "tag=X" and
/// "changed=X"; "size=N" and "range=X" for what the answer says of itself; "gzip", "identity", "html"; "from=N" and
/// "bytes=N" for what is sent
/// ("bytes=all" by default); "other" for another file; and how it ends: "cut", "timeout", "noconnection", "hangs".
class FakeServer : public Transport {
  public:
    std::vector<std::string> scripts;
    std::string requests; ///< from and mark of each

    void Start(const WebRequest& request, TransportListener& listener) override {
        ASSERT_LT(++starts_, 1000U);
        const std::string script = scripts[std::min(starts_, scripts.size()) - 1];
        Append(requests, request.from, request.ifUnchanged.empty() ? "" : "?" + request.ifUnchanged, " ");
        isRunning_ = true;
        Answer(script, request, listener, starts_);
    }
    void Stop() override { isRunning_ = false; }

  private:
    static std::optional<std::string> Word(const std::string& script, const std::string& name) {
        for (const std::string_view word : Split(script, ' '))
            if (word.starts_with(name + "="))
                return std::string(word.substr(name.size() + 1));
        return std::nullopt;
    }
    static bool Has(const std::string& script, std::string_view name) {
        const auto words = Split(script, ' ');
        return std::find(words.begin(), words.end(), name) != words.end();
    }

    bool StillFor(std::size_t start) const { return isRunning_ && starts_ == start; }

    void Answer(const std::string& script, const WebRequest& request, TransportListener& listener, std::size_t start) {
        if (Has(script, "noconnection")) {
            listener.Ended(UpdateFault::NoConnection);
            return;
        }
        WebAnswer answer;
        answer.status = std::stoi(script);
        if (answer.status == 200)
            answer.length = Content().size();
        answer.range = "bytes " + std::to_string(request.from) + "-" + std::to_string(Content().size() - 1) + "/" +
                       std::to_string(Content().size());
        if (const auto size = Word(script, "size"))
            answer.length = *size == "none" ? std::nullopt : std::optional<std::uint64_t>(std::stoull(*size));
        answer.range = Word(script, "range").value_or(answer.range);
        answer.range = ReplaceAll(answer.range, "_", " ");
        answer.tag = Word(script, "tag").value_or("");
        answer.changed = Word(script, "changed").value_or("");
        answer.encoding = Has(script, "gzip") ? "gzip" : Has(script, "identity") ? "identity" : "";
        answer.type = Has(script, "html") ? "text/html; charset=utf-8" : "application/octet-stream";
        listener.Answered(answer);
        Send(script, request, listener, start);
    }

    void Send(const std::string& script, const WebRequest& request, TransportListener& listener, std::size_t start) {
        std::string all = Content();
        if (Has(script, "other"))
            std::reverse(all.begin(), all.end());
        all += "a few bytes more";
        const std::size_t from = script.starts_with("206") ? request.from : 0;
        std::string_view body =
            std::string_view(all).substr(std::stoull(Word(script, "from").value_or(std::to_string(from))));
        body.remove_suffix(Has(script, "longer") ? 0 : 16);
        body = body.substr(0, std::stoull(Word(script, "bytes").value_or("999999")));
        for (; !body.empty() && StillFor(start); body.remove_prefix(std::min<std::size_t>(body.size(), 1000)))
            listener.Received(body.substr(0, 1000));
        if (!StillFor(start) || Has(script, "hangs"))
            return;
        listener.Ended(Has(script, "cut")       ? std::optional(UpdateFault::ConnectionLost)
                       : Has(script, "timeout") ? std::optional(UpdateFault::TimedOut)
                                                : std::nullopt);
    }

    std::size_t starts_ = 0;
    bool isRunning_ = false;
};

/// One download with what it meets, and its outcome in a word.
struct Loading {
    explicit Loading(const std::string& scripts) {
        for (const std::string_view script : Split(scripts, ';'))
            server.scripts.emplace_back(Trim(script));
    }
    std::string Outcome() const {
        switch (download.CurrentState()) {
        case cDownload::State::Complete:
            return target.isFinished && target.bytes == Content() ? "complete" : "not what was signed";
        case cDownload::State::Failed:
            return std::string(MessageOf(download.Fault()));
        default:
            return "waits";
        }
    }

    FakeServer server;
    FakeTarget target;
    std::chrono::steady_clock::time_point now;
    cDownload download{server, target, ContentFile(), "url", [this] { return now += std::chrono::milliseconds(10); },
                       [] {}};
};

TEST(Download, ComesToTheEndThatTheTableSays) {
    EXPECT_EQ(test::Deviations("download",
                               [](const test::TableRow& row) {
                                   Loading loading(row[2]);
                                   const std::string& part = row[0];
                                   loading.target.bytes = Content().substr(0, std::stoull(part));
                                   if (part.find("other") != std::string::npos)
                                       std::reverse(loading.target.bytes.begin(), loading.target.bytes.end());
                                   if (part.find("longer") != std::string::npos)
                                       loading.target.bytes += Content();
                                   loading.target.mark = row[1];
                                   loading.download.Start();
                                   EXPECT_EQ(loading.download.Loaded(), loading.target.bytes.size()) << row.line;
                                   std::string requests = loading.server.requests;
                                   if (!requests.empty())
                                       requests.pop_back();
                                   return test::Fields{requests, loading.Outcome().substr(0, row[4].size()),
                                                       std::to_string(loading.target.bytes.size())};
                               }),
              "");
}

TEST(Download, IsPausedAndGoesOn) {
    Loading loading("200 bytes=100000 hangs tag=\"a\"; 206 tag=\"a\"");
    loading.download.Start();
    EXPECT_GT(loading.download.BytesPerSecond(), 0);
    loading.now += std::chrono::hours(3); // the server is silent, or the machine was asleep
    EXPECT_EQ(loading.download.BytesPerSecond(), 0);
    loading.download.Pause();
    EXPECT_EQ(loading.download.BytesPerSecond(), 0);
    EXPECT_EQ(loading.download.Loaded(), 100'000U);
    loading.download.Start();
    EXPECT_EQ(loading.Outcome(), "complete");
    EXPECT_EQ(loading.server.requests, "0 100000?\"a\" ");

    Loading cancelled("200 bytes=5 hangs");
    cancelled.download.Start();
    cancelled.download.Cancel();
    EXPECT_EQ(cancelled.target.bytes, "");
    EXPECT_EQ(cancelled.Outcome(), "waits");
}

TEST(Download, BeginsWithWhatIsThere) {
    const std::tuple<std::size_t, const char*, std::size_t> cases[] = {{0, "waits", 0},
                                                                       {200'000, "waits", 200'000},
                                                                       {300'000, "complete", 300'000},
                                                                       {300'001, "Die geladene Datei", 0}};
    for (const auto& [there, outcome, loaded] : cases) {
        Loading loading("500");
        loading.target.bytes = (Content() + Content()).substr(0, there);
        loading.download.Prepare();
        EXPECT_TRUE(loading.Outcome().starts_with(outcome)) << there;
        EXPECT_EQ(loading.download.Loaded(), loaded);
        EXPECT_EQ(loading.server.requests, "");
    }
    Loading cut("200 bytes=100000 hangs");
    cut.download.Start();
    cut.download.Start();
    EXPECT_EQ(cut.server.requests, "0 ") << "it is loading";
    cut.download.Cancel();
    EXPECT_EQ(cut.download.Loaded(), 0U);
    Loading whole("200");
    whole.download.Start();
    EXPECT_EQ(whole.download.File(), "whole");
    whole.download.Pause();
    whole.download.Start();
    EXPECT_EQ(whole.server.requests, "0 ") << "it is complete";
    // No mark is longer than 200, or has other signs than these.
    for (const auto& [mark, kept] : {std::pair{std::string(198, 'x'), true},
                                     {std::string(199, 'x'), false},
                                     {std::string(" ~"), true},
                                     {std::string("\x7F"), false},
                                     {std::string("\x1F"), false},
                                     {std::string("ä"), false}}) {
        Loading loading("200 hangs tag=\"" + ReplaceAll(mark, " ", "!") + "\"");
        loading.download.Start();
        EXPECT_EQ(loading.target.mark.empty(), !kept) << mark;
    }
}

/// A server whose bytes the test sends.
struct QuietServer : Transport {
    void Start(const WebRequest&, TransportListener& listener) override { told = &listener; }
    void Stop() override { told = nullptr; }
    TransportListener* told = nullptr;
};

/// When, in milliseconds, how many bytes came, and how many a second were said at the end.
TEST(Download, TellsTheSpeedOfTheLastSeconds) {
    const std::pair<const char*, double> cases[] = {
        {"", 0},
        {"0:100", 0},
        {"0:100,249:100", 0},
        {"0:100,250:100", 400},
        {"0:100,250:100,499:100", 400},
        {"0:100,250:100,499:100,500:100", 600},
        {"0:1000,1000:1000,2000:1000,4000:1000", 750},
        {"0:1000,1000:2000,4000:1000,4001:9", 1000. / 3},
        {"0:1000,9000:900", 100},
        {"0:1000,9000:1000,9500:1000", 2000},
    };
    for (const auto& [pieces, speed] : cases) {
        QuietServer server;
        FakeTarget target;
        std::chrono::steady_clock::time_point now;
        int changes = 0;
        {
            cDownload download(
                server, target, ContentFile(), "", [&now] { return now; }, [&changes] { ++changes; });
            download.Start();
            ASSERT_EQ(changes, 1);
            for (const std::string_view piece : Split(*pieces != 0 ? pieces : "0:0", ',')) {
                const std::size_t colon = piece.find(':');
                now = std::chrono::steady_clock::time_point(
                    std::chrono::milliseconds(std::stoi(std::string(piece.substr(0, colon)))));
                server.told->Received(std::string(std::stoul(std::string(piece.substr(colon + 1))), 'x'));
            }
            EXPECT_NEAR(download.BytesPerSecond(), speed, 0.01) << pieces;
            EXPECT_GT(changes, 1) << pieces;
        }
        EXPECT_EQ(server.told, nullptr) << "the end stops it";
    }
}

TEST(Download, GoesOnWhenTheDiskWasFullAtAnyByte) {
    for (const std::uint64_t room : {1, 999, 1000, 1001, 150'000, 299'999}) {
        Loading loading("200; 206");
        loading.target.room = room;
        loading.download.Start();
        EXPECT_EQ(loading.Outcome(), Message(UpdateFault::DiskFull));
        loading.target.room *= 1'000'000;
        loading.download.Start();
        EXPECT_EQ(loading.Outcome(), "complete");
        EXPECT_EQ(loading.server.requests, "0 " + std::to_string(room) + " ");
    }
}

TEST(Download, SaysWhatFailsAtTheEnd) {
    Loading loading("200");
    loading.target.failsAtEnd = true;
    loading.download.Start();
    ASSERT_TRUE(loading.download.Error());
    EXPECT_EQ(loading.download.Error()->Label(), "Update.DownloadCompleted");
    loading.target.isTaken = true;
    loading.download.Start();
    EXPECT_EQ(loading.Outcome(), Message(UpdateFault::AnotherProgram));
}

TEST(Download, IsRefusedWithAnyByteChanged) {
    for (std::size_t at = 0; at < Content().size(); at += 9973) {
        Loading loading("206");
        loading.target.bytes = Content();
        loading.target.bytes[at] = static_cast<char>(loading.target.bytes[at] ^ 1);
        loading.download.Start();
        EXPECT_EQ(loading.Outcome(), Message(UpdateFault::FileDamaged)) << at;
        EXPECT_EQ(loading.target.bytes, "") << at;
    }
}

// --- The folder -------------------------------------------------------------------------------------------------

TEST(DownloadFolder, KeepsAPartFromOneRunToTheNext) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "update";
    {
        DownloadFolder first(folder, ContentFile());
        first.Hold();
        first.Append("ab");
        first.SetMark("\"x\"");
        DownloadFolder second(folder, ContentFile());
        EXPECT_THROW(second.Hold(), UpdateError) << "two at once";
    }
    ReplaceFileBytes(folder / "Pirol-Setup-1.0.exe", "an older one");
    DownloadFolder again(folder, ContentFile());
    again.Hold();
    EXPECT_FALSE(fs::exists(folder / "Pirol-Setup-1.0.exe"));
    EXPECT_EQ(again.Mark(), "\"x\"");
    again.Append("c");
    EXPECT_EQ(again.Size(), 3U);
    EXPECT_EQ(ReadFileBytes(folder / (ContentFile().hash.substr(0, 16) + ".part").c_str()), "abc") << "as before";
    EXPECT_EQ(again.Hash(), HashOf("abc"));
    const fs::path whole = again.Finish();
    EXPECT_EQ(whole, folder / ContentFile().name);
    EXPECT_EQ(ReadFileBytes(whole), "abc");
    EXPECT_EQ(again.Mark(), "") << "the next part is another file's";
    again.SetMark("\"y\"");
    again.Append("d");
    again.Clear();
    EXPECT_EQ(again.Mark() + std::to_string(again.Size()), "0");

#ifndef _WIN32 // where a folder stays as long as a file in it is open
    ReplaceFileBytes(whole, "abcd");
    fs::remove(folder / "lock");
    again.Hold();
    EXPECT_EQ(again.Size(), 4U) << "what was whole is looked at again";
    again.SetMark("x");
    again.SetMark("");
    EXPECT_EQ(again.Mark(), "");
    fs::remove_all(folder);
    again.Hold();
    EXPECT_EQ(again.Size(), 0U) << "the folder may vanish";
    again.Append("d");
    EXPECT_EQ(again.Size(), 1U);
#endif
}

#ifndef _WIN32
TEST(DownloadFolder, IsTheUsersAlone) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "update";
    fs::create_directory(scratch / "elsewhere");
    fs::create_directory_symlink(scratch / "elsewhere", folder);
    EXPECT_THROW(DownloadFolder(folder, ContentFile()).Hold(), UpdateError) << "a link";
    fs::remove(folder);
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms::all);
    DownloadFolder(folder, ContentFile()).Hold();
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
}
#endif

// --- Looking ----------------------------------------------------------------------------------------------------

/// A server with one list, sent in pieces of a size, a while apart.
class ListServer : public Transport {
  public:
    WebAnswer answer{.status = 200, .length = {}, .type = {}, .encoding = {}, .range = {}, .tag = {}, .changed = {}};
    std::string body;
    std::optional<UpdateFault> end;
    std::chrono::steady_clock::time_point now;
    std::chrono::seconds pause{0};

    void Start(const WebRequest& request, TransportListener& listener) override {
        url = request.url;
        isRunning_ = true;
        listener.Answered(answer);
        for (std::string_view rest = body; !rest.empty() && isRunning_; now += pause) {
            listener.Received(rest.substr(0, 50));
            rest.remove_prefix(std::min<std::size_t>(rest.size(), 50));
        }
        if (isRunning_)
            listener.Ended(end);
    }
    void Stop() override { isRunning_ = false; }

    std::string url;

  private:
    bool isRunning_ = false;
};

TEST(VersionLookup, SaysWhatItFound) {
    struct Case {
        const char* name;
        std::optional<UpdateFault> fault;
        std::function<void(ListServer&)> change;
    };
    const Case cases[] = {
        {"good", std::nullopt, [](ListServer&) {}},
        {"page", UpdateFault::WebPage, [](ListServer& server) { server.answer.type = "text/html"; }},
        {"gzip", UpdateFault::BadAnswer, [](ListServer& server) { server.answer.encoding = "gzip"; }},
        {"gone", UpdateFault::NotOnServer, [](ListServer& server) { server.answer.status = 404; }},
        {"redirected", UpdateFault::Redirected, [](ListServer& server) { server.answer.status = 302; }},
        {"proxy", UpdateFault::ProxyWantsPassword, [](ListServer& server) { server.answer.status = 407; }},
        {"part", UpdateFault::BadAnswer, [](ListServer& server) { server.answer.status = 206; }},
        {"said to be long", UpdateFault::ListTooLong, [](ListServer& server) { server.answer.length = 100'000'000; }},
        {"long", UpdateFault::ListTooLong, [](ListServer& server) { server.body.append(100'000'000, 'x'); }},
        {"slow", UpdateFault::TimedOut, [](ListServer& server) { server.pause = std::chrono::seconds(20); }},
        {"cut", UpdateFault::ConnectionLost, [](ListServer& server) { server.end = UpdateFault::ConnectionLost; }},
        {"short", UpdateFault::ListUnreadable, [](ListServer& server) { server.body.resize(200); }},
        {"empty", UpdateFault::ListUnreadable, [](ListServer& server) { server.body.clear(); }},
    };
    const UpdateSource source{"http://h/", {Author().PublicKey()}, ""};
    for (const Case& row : cases) {
        ListServer server;
        server.body = Author().Signed(ListText());
        row.change(server);
        VersionLookup lookup(
            server, source, {"1.0", "debian", 0, in2026}, [&] { return server.now; }, [] {});
        lookup.Start();
        EXPECT_EQ(server.url, "http://h/pirol_version.ver");
        if (row.fault) {
            EXPECT_EQ(lookup.CurrentState(), VersionLookup::State::Failed) << row.name;
            EXPECT_EQ(MessageOf(lookup.Fault()), MessageOf(*row.fault)) << row.name;
        } else {
            EXPECT_EQ(lookup.CurrentState(), VersionLookup::State::Found) << row.name;
            EXPECT_EQ(lookup.Found().file, ContentFile());
            EXPECT_EQ(lookup.Serial(), 7U);
        }
    }
}

TEST(VersionLookup, EndsAtItsLimitsAndWhenItIsStopped) {
    using State = VersionLookup::State;
    const UpdateSource source{"http://h/", {Author().PublicKey()}, ""};
    QuietServer server;
    std::chrono::steady_clock::time_point now;
    {
        int changes = 0;
        VersionLookup lookup(
            server, source, {"1.10.0", "debian", 7, in2026}, [&now] { return now; }, [&changes] { ++changes; });
        EXPECT_EQ(lookup.CurrentState(), State::Idle);
        EXPECT_EQ(lookup.Serial(), 0U);
        lookup.Start();
        EXPECT_EQ(changes, 1);
        EXPECT_EQ(lookup.CurrentState(), State::Looking);
        lookup.Stop();
        EXPECT_EQ(server.told, nullptr);
        EXPECT_EQ(lookup.CurrentState(), State::Idle);
        const auto outcome = [&](std::optional<std::uint64_t> length, std::size_t bytes,
                                 std::chrono::milliseconds after) {
            lookup.Start();
            WebAnswer answer;
            answer.status = 200;
            answer.length = length;
            server.told->Answered(answer);
            now += after;
            if (server.told != nullptr)
                server.told->Received(std::string(bytes, '#'));
            return lookup.CurrentState() == State::Looking ? "" : MessageOf(lookup.Fault());
        };
        EXPECT_EQ(outcome(65536, 65536, std::chrono::seconds(60)), "");
        EXPECT_EQ(outcome(65537, 1, {}), MessageOf(UpdateFault::ListTooLong));
        EXPECT_EQ(server.told, nullptr);
        EXPECT_EQ(outcome({}, 65537, {}), MessageOf(UpdateFault::ListTooLong));
        EXPECT_EQ(outcome({}, 1, std::chrono::milliseconds(60'001)), MessageOf(UpdateFault::TimedOut));
        for (const auto& [text, state] : {std::pair{ListText(), State::UpToDate},
                                          {ReplaceAll(ListText(), "serial: 7", "serial: 9"), State::UpToDate},
                                          {ReplaceAll(ListText(), "serial: 7", "serial: 8"), State::Failed}}) {
            lookup.Start();
            server.told->Received(Author().Signed(text));
            server.told->Ended({});
            EXPECT_EQ(lookup.CurrentState(), state) << text;
        }
        EXPECT_EQ(lookup.Serial(), 9U);
        lookup.Start();
    }
    EXPECT_EQ(server.told, nullptr) << "the end stops it";
}

/// Each letter is what the statuses from there on mean, "-" for those that bring what was asked for.
TEST(UpdateFaults, BelongToTheirStatuses) {
    const auto letter = [](int status) {
        const std::optional<UpdateFault> fault = FaultOfStatus(status);
        return !fault                                     ? '-'
               : fault == UpdateFault::Redirected         ? 'r'
               : fault == UpdateFault::ProxyWantsPassword ? 'p'
               : fault == UpdateFault::NotOnServer        ? 'n'
               : fault == UpdateFault::WebPage            ? 'w'
               : fault == UpdateFault::ServerBusy         ? 'b'
               : fault == UpdateFault::BadAnswer          ? '?'
                                                          : '!';
    };
    std::string changes;
    for (int status = 0; status < 1000; ++status)
        if (status == 0 || letter(status) != letter(status - 1))
            Append(changes, status, std::string(1, letter(status)), " ");
    EXPECT_EQ(changes, "0? 200- 201? 206- 207? 300r 400? 404n 405? 407p 408? 410n 411? 416- 417? 429b 430? 500b 511w "
                       "512b 600? ");
}

TEST(UpdateSource, IsWholeOrNone) {
    const std::string key = ToBase64(Author().PublicKey());
    EXPECT_EQ(ReadUpdateSource("https://h/p", key, "").UrlOf("x"), "https://h/p/x");
    EXPECT_EQ(ReadUpdateSource("http://h/", key + " " + key, "").keys.size(), 2U);
    for (const auto& [address, keys] : {std::pair<std::string, std::string>{"", key},
                                        {"https://h/", ""},
                                        {"ftp://h/", key},
                                        {"https://h/ x", key},
                                        {"https://h/", key + "="},
                                        {"https://h/", "TWE="}})
        EXPECT_FALSE(ReadUpdateSource(address, keys, "").IsThere()) << address << ' ' << keys;
}

#ifndef _WIN32
TEST(UpdateRecord, RemembersTheHighestSerialAndTheWeek) {
    const test::ScratchFolder scratch;
    setenv("XDG_CONFIG_HOME", (scratch / "").c_str(), 1);
    for (const std::uint32_t serial : {5, 3})
        updaterecord::AddSerial(serial);
    EXPECT_EQ(updaterecord::HighestSerial(), 5U);
    constexpr std::time_t day = 86400;
    EXPECT_TRUE(updaterecord::IsLookDue(in2026));
    updaterecord::AddLook(in2026);
    EXPECT_FALSE(updaterecord::IsLookDue(in2026));
    EXPECT_FALSE(updaterecord::IsLookDue(in2026 + 6 * day));
    EXPECT_TRUE(updaterecord::IsLookDue(in2026 + 7 * day));
    EXPECT_TRUE(updaterecord::IsLookDue(in2026 - day)) << "a clock that was set back";
    updaterecord::AddLook(20'455 * day - 1); // in the last second of a day
    EXPECT_FALSE(updaterecord::IsLookDue(20'461 * day - 1));
    EXPECT_TRUE(updaterecord::IsLookDue(20'461 * day));
    unsetenv("XDG_CONFIG_HOME");
}
#endif

} // namespace
} // namespace pirol
