// pirol-cli: what the designer does with files, without a window.

#include "app/Console.h"
#include "app/TestRun.h"
#include "app/UpdateCommands.h"
#include "app/UpdateRecord.h"
#include "app/VersionLookup.h"
#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/DesignComparison.h"
#include "codegen/DesignFacts.h"
#include "codegen/Hints.h"
#include "codegen/JavaGenerator.h"
#include "codegen/JavaImport.h"
#include "codegen/JavaReader.h"
#include "codegen/ProjectExport.h"
#include "programs/ListTransport.h"
#include "project/ProjectFile.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace pirol;

enum ExitStatus { done = 0, refused = 1, hintsGiven = 1, designsDiffer = 1, wrongCall = 2 };

constexpr std::string_view usage =
    "Aufruf:\n"
    "  pirol-cli generate P.prl [--menu] [--sql] [-o DATEI]   Java-Quelltext erzeugen\n"
    "  pirol-cli import [--all] SuMAnwendung.java -o P.prl    Java-Quelltext in ein Projekt einlesen\n"
    "  pirol-cli update P.prl SuMAnwendung.java [--menu] [--sql] [--no-menu] [--no-sql] [--dry-run]\n"
    "                                                         vorhandenen Java-Quelltext auf den Stand bringen\n"
    "  pirol-cli export P.prl ORDNER [--menu] [--sql]         BlueJ-Projektordner anlegen\n"
    "  pirol-cli copy P.prl ZIEL.prl                          Projekt laden und speichern\n"
    "  pirol-cli check P.prl ...                              zeigen, was das Projekt enthält\n"
    "  pirol-cli compare A.prl B.prl                          sagen, worin sich zwei Entwürfe unterscheiden\n"
    "  pirol-cli compare A.prl                                den Entwurf als Text ausgeben\n"
    "  pirol-cli lint P.prl ... [--menu] [--sql]              Hinweise zum erzeugten Programm geben\n"
    "  pirol-cli run P.prl [--menu] [--sql]                   Programm übersetzen und laufen lassen\n"
    "  pirol-cli update-check                                 sagen, ob es eine neuere Version gibt\n"
    "  pirol-cli hash DATEI                                   Inhalts-Hash der Datei ausgeben\n"
    "  pirol-cli --help | --version\n"
    "\n"
    "--menu und --sql erzeugen auch die Menüleiste und den Datenbankzugriff.\n"
    "Ohne -o geht der Quelltext an die Standardausgabe.\n"
    "import liest die Anweisungen, die Pirol selbst schreibt; mit --all alles, was vom Fenster dasteht, und nennt auf\n"
    "der Standardfehlerausgabe je Zeile, was davon nicht oder anders im Projekt ist.\n"
    "update behält, was im Quelltext davon schon da ist; --no-menu und --no-sql nehmen es heraus. Es sagt je Zeile, "
    "was es\n"
    "getan hat, und schreibt mit --dry-run nichts. Die zehn Fassungen davor bleiben als .bak, .bak1 bis .bak9.\n"
    "run braucht ein JDK und endet mit dem Programm; was es druckt, geht an die Standardausgabe, alles andere an die\n"
    "Standardfehlerausgabe. Nach einem Fehler ist der Status 1.\n"
    "lint endet mit 0, wenn es nichts zu sagen hat, und mit 1 nach Hinweisen, einem je Zeile.\n"
    "check und lint nennen bei mehreren Projekten jedes und gehen nach einem, das sich nicht lesen lässt, weiter.\n"
    "compare endet mit 0, wenn die Entwürfe gleich sind, und mit 1 nach Unterschieden, einem je Zeile.\n"
    "update-check lädt und ändert nichts; mit 1 endet es, wenn sich die Frage nicht beantworten lässt.\n";

/// The call does not look as it should.
struct UsageError {
    std::string message;
};

/// The file is not what the command needs.
struct Refusal {
    std::string_view message;
};

/// The words of a call: files and folders in order, and the options.
struct Arguments {
    std::vector<std::string> names;
    CodeOptions code;
    bool all = false;
    bool withoutMenu = false;
    bool withoutDatabase = false;
    bool dryRun = false;
    std::optional<std::string> output;
};

/// Which options a command knows, each a bit.
enum KnownOptions : unsigned { noOptions = 0, codeOptions = 1, outputOption = 2, updateOptions = 4, allOption = 8 };

/// An option that is on when it is there.
struct Switch {
    std::string_view word;
    KnownOptions known;
    void (*turnOn)(Arguments&);
};

constexpr Switch switches[] = {
    {"--menu", codeOptions, [](Arguments& arguments) { arguments.code.menu = true; }},
    {"--sql", codeOptions, [](Arguments& arguments) { arguments.code.database = true; }},
    {"--no-menu", updateOptions, [](Arguments& arguments) { arguments.withoutMenu = true; }},
    {"--no-sql", updateOptions, [](Arguments& arguments) { arguments.withoutDatabase = true; }},
    {"--all", allOption, [](Arguments& arguments) { arguments.all = true; }},
    {"--dry-run", updateOptions, [](Arguments& arguments) { arguments.dryRun = true; }},
};

/// Which options a command knows and how many names it wants.
struct Command {
    std::string_view name;
    std::size_t fewestNames;
    std::size_t mostNames;
    unsigned options; ///< KnownOptions
    ExitStatus (*run)(const Arguments&);
};

void Print(std::FILE* stream, std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stream) != text.size() || std::fflush(stream) != 0)
        throw RuntimeError(RuntimeError::DeviceError);
}

ProjectModel Load(const std::string& name) {
    ProjectModel model;
    if (ReadPRLFile(PathOf(name), model) == ReadResult::Refused)
        throw Refusal{damagedProjectMessage};
    return model;
}

void Save(const std::string& name, const ProjectModel& model) {
    const std::string bytes = GeneratePRLCode(model);
    UnderLabel("Main.File.PRL.GeneratePRLCode", [&] { ReplaceFileBytes(PathOf(name), bytes); });
}

ExitStatus Generate(const Arguments& arguments) {
    constexpr std::string_view label = "Main.Project.Export";
    const ProjectModel model = Load(arguments.names[0]);
    const auto produce = [&](const ByteSink& write) {
        WriteCode(model, arguments.code, [&](std::string_view piece) {
            UnderLabel(label, [&] { write(ToWindows1252(std::string(piece))); });
        });
    };
    UnderLabel(label, [&] {
        if (arguments.output)
            ReplaceFile(PathOf(*arguments.output), produce);
        else
            produce([](std::string_view bytes) { Print(stdout, bytes); });
    });
    return done;
}

/// The simple import, which reads the generator's own statements.
ProjectModel ImportOwnStatements(const std::filesystem::path& path) {
    const std::string source = ReadSource(path);
    ProjectModel model;
    AnalyseCode(source, model);
    if (!FoundAnything(source, model))
        throw Refusal{nothingFoundMessage};
    return model;
}

/// What the report says is printed when the project is written, so that a refusal stands alone.
ExitStatus ImportAll(const Arguments& arguments) {
    const JavaReading reading = ReadJavaFile(PathOf(arguments.names[0]));
    if (!reading.FoundAnything())
        throw Refusal{nothingFoundMessage};
    std::string report;
    for (const ReadRemark& remark : reading.remarks)
        Append(report, RemarkLine(remark), "\n");
    Save(*arguments.output, reading.model);
    Print(stderr, report);
    return done;
}

ExitStatus Import(const Arguments& arguments) {
    if (!arguments.output)
        throw UsageError{"import braucht -o P.prl."};
    if (arguments.all)
        return ImportAll(arguments);
    Save(*arguments.output, ImportOwnStatements(PathOf(arguments.names[0])));
    return done;
}

ExitStatus Update(const Arguments& arguments) {
    if ((arguments.code.menu && arguments.withoutMenu) || (arguments.code.database && arguments.withoutDatabase))
        throw UsageError{"Ein Teil kann nicht zugleich hinein und heraus."};
    UpdateOptions options;
    options.marks = arguments.code;
    options.withoutMenu = arguments.withoutMenu;
    options.withoutDatabase = arguments.withoutDatabase;
    // What a project file does not hold is not known here.
    options.isUnknown = [](std::string_view, std::string_view) { return true; };
    const FileUpdate update = PrepareUpdate(PathOf(arguments.names[1]), Load(arguments.names[0]), options);
    std::string lines;
    for (const UpdateEntry& entry : update.update.entries)
        Append(lines, LineOf(entry), "\n");
    if (!update.Changes())
        Append(lines, "unverändert: ", arguments.names[1], "\n");
    if (!arguments.dryRun && !WriteUpdate(update)) {
        std::fprintf(stderr, "Die Datei wurde inzwischen geändert: %s\n", arguments.names[1].c_str());
        return refused;
    }
    Print(stdout, lines);
    return done;
}

ExitStatus Export(const Arguments& arguments) {
    ExportBlueJProject(PathOf(arguments.names[1]), GenerateCode(Load(arguments.names[0]), arguments.code));
    return done;
}

ExitStatus Copy(const Arguments& arguments) {
    Save(arguments.names[1], Load(arguments.names[0]));
    return done;
}

std::size_t CountEntries(const cMenu& menu) {
    std::size_t count = 0;
    for (const cMenu& child : menu.Children())
        count += 1 + CountEntries(child);
    return count;
}

std::string Description(const ProjectModel& model) {
    std::string text;
    Append(text, "Fenster: ", model.WindowWidth(), " x ", model.WindowHeight(), "\n", "Autor: ", model.Author(), "\n");
    for (const KindRow& row : KindRows())
        Append(text, row.javaClass, ": ", model.ElementCount(row.kind) - 1, "\n");
    std::size_t entries = 0;
    for (const cMenu& menu : model.Menus().Menus())
        entries += CountEntries(menu);
    Append(text, "Menüs: ", model.Menus().Menus().size(), "\n", "Menüeinträge: ", entries, "\n");
    const SQLSettings& sql = model.Sql();
    Append(text, "Datenbank: ", sql.UsesDatabase() ? Concatenate(sql.Database, " auf ", sql.Server) : "keine", "\n");
    return text;
}

ExitStatus Fail(ExitStatus status, std::string_view message) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(message.size()), message.data());
    return status;
}

/// Among several projects one that cannot be read keeps nobody from looking at the others.
template <class Function>
ExitStatus ForEachProject(const std::vector<std::string>& names, const Function& look) {
    if (names.size() == 1)
        return look(names.front());
    ExitStatus status = done;
    for (const std::string& name : names) {
        Print(stdout, Concatenate("Projekt: ", name, "\n"));
        try {
            status = std::max(status, look(name));
        } catch (const Refusal& refusal) {
            status = Fail(refused, Concatenate(name, ": ", refusal.message));
        } catch (const RuntimeError& error) {
            status = Fail(refused, Concatenate(name, ": ", error.what()));
        }
    }
    return status;
}

ExitStatus Check(const Arguments& arguments) {
    return ForEachProject(arguments.names, [](const std::string& name) {
        Print(stdout, Description(Load(name)));
        return done;
    });
}

ExitStatus Lint(const Arguments& arguments) {
    return ForEachProject(arguments.names, [&arguments](const std::string& name) {
        const std::vector<Hint> hints = FindHints(Load(name), name, arguments.code);
        std::string lines;
        for (const Hint& hint : hints)
            Append(lines, hint.text, " [", hint.rule->key, "]\n");
        if (hints.size() == mostHints)
            Append(lines, "Weitere Hinweise werden nicht gezeigt.\n");
        Print(stdout, lines);
        return hints.empty() ? done : hintsGiven;
    });
}

/// One project alone is printed whole, for tools that compare texts.
ExitStatus Compare(const Arguments& arguments) {
    const ProjectModel before = Load(arguments.names[0]);
    if (arguments.names.size() == 1) {
        Print(stdout, DesignText(before));
        return done;
    }
    const std::vector<std::string> differences = CompareDesigns(before, Load(arguments.names[1]));
    std::string lines;
    for (const std::string& line : differences)
        Append(lines, line, "\n");
    if (differences.size() == mostDifferences)
        Append(lines, "Weitere Unterschiede werden nicht gezeigt.\n");
    Print(stdout, lines);
    return differences.empty() ? done : designsDiffer;
}

/// What a running program tells, as text. Handlers that are called and errors say so themselves.
void PrintEvent(const RunEvent& event) {
    const std::string_view lineEnd = event.isOpen ? "" : "\n";
    switch (event.kind) {
    case RunEvent::Kind::State:
        break;
    case RunEvent::Kind::Output:
        Print(stdout, Concatenate(event.text, lineEnd));
        break;
    case RunEvent::Kind::Call:
        Print(stderr, Concatenate("Aufruf: ", event.text, lineEnd));
        break;
    case RunEvent::Kind::Error:
        Print(stderr, event.line == 0 ? Concatenate("Fehler: ", event.text, lineEnd)
                                      : Concatenate("Fehler in Zeile ", event.line, ": ", event.text, lineEnd));
        break;
    case RunEvent::Kind::Complaint:
    case RunEvent::Kind::Note:
        Print(stderr, Concatenate(event.text, lineEnd));
        break;
    }
}

ExitStatus RunProgram(const Arguments& arguments) {
    const std::filesystem::path project = PathOf(arguments.names[0]);
    std::atomic<ExitStatus> status = done;
    const auto listen = [&status](const RunEvent& event) {
        if (event.kind == RunEvent::Kind::Error)
            status = refused;
        try {
            PrintEvent(event);
        } catch (const RuntimeError&) {
            status = refused; // nobody reads any more; the program runs on
        }
    };
    SystemProcessStarter starter;
    TestRun run(starter, JavaSurroundings::OfSystem(), listen, false);
    run.Start({GenerateCode(Load(arguments.names[0]), arguments.code), std::filesystem::absolute(project).parent_path(),
               Preferences::Load()});
    run.Wait();
    return status;
}

ExitStatus Hash(const Arguments& arguments) {
    Print(stdout, HashFunction(ReadFileBytes(PathOf(arguments.names[0]))) + "\n");
    return done;
}

ExitStatus UpdateCheck(const Arguments&) {
    const UpdateSource source = ReadUpdateSource(PIROL_UPDATE_ADDRESS, PIROL_UPDATE_KEYS, PIROL_UPDATE_AUTHORITY);
    if (!source.IsThere())
        throw UpdateError(UpdateFault::NoSource);
    ListTransport transport(source.authority);
    VersionLookup lookup(transport, source,
                         {PIROL_VERSION, std::string(updateSystem), updaterecord::HighestSerial(), std::time(nullptr)},
                         std::chrono::steady_clock::now, [] {});
    lookup.Start();
    if (lookup.CurrentState() == VersionLookup::State::Failed)
        throw UpdateError(lookup.Fault());
    updaterecord::AddSerial(lookup.Serial());
    std::string lines = "Installiert: " PIROL_VERSION "\n";
    if (lookup.CurrentState() == VersionLookup::State::UpToDate) {
        Append(lines, "Das ist die neueste Version.\n");
    } else {
        const Offer& offer = lookup.Found();
        Append(lines, "Neu: ", offer.version, "\n");
        for (const std::string& note : offer.notes)
            Append(lines, "  ", note, "\n");
        Append(lines, "Datei: ", source.UrlOf(offer.file.name), "\nGröße: ", offer.file.size,
               " Bytes\nSHA-256: ", offer.file.hash, "\n");
    }
    Print(stdout, lines);
    return done;
}

constexpr std::size_t any = static_cast<std::size_t>(-1);

constexpr Command commands[] = {
    {"generate", 1, 1, codeOptions | outputOption, Generate},
    {"import", 1, 1, outputOption | allOption, Import},
    {"update", 2, 2, codeOptions | updateOptions, Update},
    {"export", 2, 2, codeOptions, Export},
    {"copy", 2, 2, noOptions, Copy},
    {"check", 1, any, noOptions, Check},
    {"compare", 1, 2, noOptions, Compare},
    {"lint", 1, any, codeOptions, Lint},
    {"run", 1, 1, codeOptions, RunProgram},
    {"update-check", 0, 0, noOptions, UpdateCheck},
    {"hash", 1, 1, noOptions, Hash},
};

Arguments ParseArguments(const Command& command, std::span<const std::string> words) {
    Arguments arguments;
    while (!words.empty()) {
        const std::string& word = words.front();
        words = words.subspan(1);
        const auto* const found = std::find_if(std::begin(switches), std::end(switches), [&](const Switch& candidate) {
            return candidate.word == word && (command.options & candidate.known) != 0;
        });
        if (found != std::end(switches)) {
            found->turnOn(arguments);
        } else if ((command.options & outputOption) != 0 && word == "-o") {
            if (words.empty() || arguments.output)
                throw UsageError{"-o braucht genau einen Dateinamen."};
            arguments.output = words.front();
            words = words.subspan(1);
        } else if (word.starts_with('-') && word.size() > 1) {
            throw UsageError{Concatenate("Unbekannte Option: ", word)};
        } else {
            arguments.names.push_back(word);
        }
    }
    if (arguments.names.size() < command.fewestNames || arguments.names.size() > command.mostNames)
        throw UsageError{Concatenate("Falsche Anzahl von Angaben für ", command.name, ".")};
    return arguments;
}

ExitStatus RunCall(std::span<const std::string> words) {
    if (words.empty())
        throw UsageError{"Es fehlt ein Befehl."};
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "--version")) {
        Print(stdout, words[0] == "--help" ? usage : "pirol-cli " PIROL_VERSION "\n");
        return done;
    }
    const auto* const command = std::find_if(std::begin(commands), std::end(commands),
                                             [&](const Command& candidate) { return candidate.name == words[0]; });
    if (command == std::end(commands))
        throw UsageError{Concatenate("Unbekannter Befehl: ", words[0])};
    return command->run(ParseArguments(*command, words.subspan(1)));
}

} // namespace

int main(int argc, char** argv) {
    const PlainOutput plainOutput;
    try {
        return RunCall(CallWords(argc, argv));
    } catch (const UsageError& error) {
        return Fail(wrongCall, Concatenate(error.message, "\n", usage));
    } catch (const Refusal& refusal) {
        return Fail(refused, refusal.message);
    } catch (const RuntimeError& error) {
        return Fail(refused, error.what());
    } catch (const UpdateError& error) {
        return Fail(refused, error.what());
    } catch (const UpdateRefusal& error) {
        return Fail(refused, error.what());
    } catch (const std::bad_alloc&) {
        return Fail(refused, RuntimeError::outOfMemoryText);
    } catch (const std::exception& error) {
        return Fail(refused, error.what());
    }
}
