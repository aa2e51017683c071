#include "app/RunMessages.h"

#include "base/Conversions.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace pirol {
namespace {

/// "#" stands for what is at the place in the source, or for a thrown object's message.
struct MessageRow {
    std::string_view key;
    std::string_view german;
};

constexpr std::string_view compilerPrefix = "compiler.err.";

// A key stands for all that begin with it and a point.
constexpr MessageRow compileErrors[] = {
    {"already.defined", "Diesen Namen gibt es schon: »#«."},
    {"call.must.be.first", "Vor »super« darf keine andere Anweisung stehen."},
    {"cant.apply", "»#« passt nicht zu den Werten in den Klammern."},
    {"cant.ref", "Diese Variable darf hier nicht benutzt werden: »#«."},
    {"cant.resolve", "Diesen Namen kennt Java nicht: »#«."},
    {"does.not.override", "»#« ändert etwas Geerbtes, das sich nicht ändern lässt."},
    {"doesnt.exist", "Dieses Paket gibt es nicht: »#«."},
    {"duplicate.class", "Diese Klasse gibt es schon: »#«."},
    {"empty.char.lit", "Zwischen den einfachen Anführungszeichen steht kein Zeichen."},
    {"illegal.char", "Dieses Zeichen ist hier nicht erlaubt."},
    {"illegal.esc.char", "Hinter dem Rückwärtsstrich steht ein Zeichen, das dort nicht erlaubt ist."},
    {"illegal.start", "Hier beginnt keine gültige Anweisung und kein gültiger Ausdruck."},
    {"illegal.unicode.esc", "Hinter \\u müssen vier Hexadezimalziffern stehen."},
    {"incomparable.types", "Diese Werte lassen sich nicht vergleichen."},
    {"int.number.too.large", "Diese Zahl ist zu groß: #."},
    {"invalid.meth.decl.ret.type.req", "Der Methode fehlt der Typ ihres Ergebnisses."},
    {"limit.code", "Das Programm ist zu groß für Java: Eine Methode ist zu lang."},
    {"limit.pool", "Das Programm ist zu groß für Java: Es hat zu viele Namen und Texte."},
    {"limit.string", "Ein Text ist zu lang für Java."},
    {"malformed.fp.lit", "Diese Zahl ist falsch geschrieben: #."},
    {"missing.ret.stmt", "Der Methode fehlt die Anweisung »return«."},
    {"name.clash", "Dieser Name wird zweimal benutzt: »#«."},
    {"not.def.public", "»#« ist nicht zugänglich."},
    {"not.stmt", "Das ist keine Anweisung."},
    {"operator.cant.be.applied", "Dieser Operator passt nicht zu den Werten daneben."},
    {"premature.eof", "Der Quelltext endet zu früh: Es fehlt eine geschweifte Klammer."},
    {"prob.found.req", "Der Wert hat einen anderen Typ, als hier gebraucht wird."},
    {"report.access", "»#« ist nicht zugänglich."},
    {"unclosed.char.lit", "Es fehlt ein einfaches Anführungszeichen."},
    {"unclosed.comment", "Der Kommentar ist nicht geschlossen."},
    {"unclosed.str.lit", "Es fehlt ein Anführungszeichen: Der Text ist nicht geschlossen."},
    {"underscore.as.identifier", "Der Unterstrich allein ist kein Name."},
    {"unreachable.stmt", "Diese Anweisung wird nie erreicht."},
    {"unreported.exception", "Hier kann eine Ausnahme auftreten, die behandelt werden muss."},
    {"var.might.not.have.been.initialized", "Diese Variable hat vielleicht noch keinen Wert: »#«."},
};

constexpr MessageRow exceptions[] = {
    {"java.awt.AWTError", "Das Programm kann kein Fenster öffnen: Es fehlt ein Bildschirm. #"},
    {"java.awt.HeadlessException", "Das Programm kann kein Fenster öffnen: Es fehlt ein Bildschirm, oder dieses Java "
                                   "kennt keine Fenster."},
    {"java.lang.ArithmeticException", "Durch 0 kann nicht geteilt werden."},
    {"java.lang.ArrayIndexOutOfBoundsException", "Diese Stelle hat das Array nicht. #"},
    {"java.lang.ClassCastException", "Ein Objekt hat einen anderen Typ als erwartet. #"},
    {"java.lang.ClassNotFoundException", "Diese Klasse ist nicht zu finden: »#«."},
    {"java.lang.IllegalArgumentException", "Ein Wert ist nicht erlaubt. #"},
    {"java.lang.IllegalStateException", "Das geht jetzt nicht. #"},
    {"java.lang.IndexOutOfBoundsException", "Diese Stelle gibt es nicht. #"},
    {"java.lang.NegativeArraySizeException", "Ein Array kann nicht kleiner als leer sein. #"},
    {"java.lang.NoClassDefFoundError", "Diese Klasse ist nicht zu finden: »#«."},
    {"java.lang.NoSuchMethodError", "Die Bibliothek kennt diese Methode nicht: »#«."},
    {"java.lang.NullPointerException", "Eine Variable hat noch kein Objekt (null)."},
    {"java.lang.NumberFormatException", "Dieser Text ist keine Zahl. #"},
    {"java.lang.OutOfMemoryError", "Der Speicher reicht nicht. #"},
    {"java.lang.StackOverflowError", "Eine Methode ruft sich ohne Ende selbst auf."},
    {"java.lang.StringIndexOutOfBoundsException", "Diese Stelle hat der Text nicht. #"},
    {"java.lang.UnsatisfiedLinkError", "Diesem Java fehlt ein Teil, den Fenster brauchen. #"},
};

bool Covers(std::string_view rowKey, std::string_view key) {
    return key.starts_with(rowKey) && (key.size() == rowKey.size() || key[rowKey.size()] == '.');
}

std::string Filled(std::string_view german, std::string_view detail) {
    return std::string(Trim(ReplaceAll(german, "#", Excerpt(detail))));
}

/// "')' expected" and "class, interface, or enum expected".
std::string Expected(std::string_view words) {
    constexpr std::string_view end = " expected";
    words = words.substr(0, words.find('\n'));
    if (!words.ends_with(end))
        return "Hier fehlt etwas.";
    const std::string what = ReplaceAll(words.substr(0, words.size() - end.size()), " or ", " oder ");
    return Concatenate("Hier fehlt ", what == "<identifier>" ? "ein Name" : what, ".");
}

} // namespace

std::string CompileErrorText(std::string_view key, std::string_view place, std::string_view words) {
    if (key.starts_with(compilerPrefix))
        key.remove_prefix(compilerPrefix.size());
    if (key.starts_with("expected"))
        return Expected(words);
    const auto* const row = std::find_if(std::begin(compileErrors), std::end(compileErrors),
                                         [&](const MessageRow& candidate) { return Covers(candidate.key, key); });
    return row == std::end(compileErrors) ? Excerpt(words) : Filled(row->german, place);
}

std::string ExceptionText(std::string_view javaClass, std::string_view message) {
    const auto* const row = std::find_if(std::begin(exceptions), std::end(exceptions),
                                         [&](const MessageRow& candidate) { return candidate.key == javaClass; });
    if (message == "null")
        message = {};
    const std::string_view name = javaClass.substr(javaClass.rfind('.') + 1);
    return row == std::end(exceptions) ? std::string(Trim(Concatenate(name, ": ", Excerpt(message))))
                                       : Concatenate(Filled(row->german, message), " (", name, ")");
}

} // namespace pirol
