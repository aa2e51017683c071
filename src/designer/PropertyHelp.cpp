#include "designer/PropertyHelp.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace pirol {
namespace {

struct HelpRow {
    const PropertyKey& key;
    std::string_view text;
};

constexpr HelpRow rows[] = {
    {keys::name, "So heißt die Komponente im Java-Quelltext."},
    {keys::width, "Breite in Pixeln."},
    {keys::height, "Höhe in Pixeln."},
    {keys::left, "Abstand vom linken Rand des Fensters in Pixeln."},
    {keys::top, "Abstand vom oberen Rand des Fensters in Pixeln."},
    {keys::value, "Der Text, der beim Start zu sehen ist."},
    {keys::align, "Wo der Text in der Komponente steht."},
    {keys::fontsize, "Größe der Schrift. 8 ist die fette Schrift, die auch Knöpfe haben."},
    {keys::gotfocus, "Die Komponente bekommt die Tastatur."},
    {keys::lostfocus, "Die Tastatur geht zu einer anderen Komponente."},
    {keys::click, "Die Komponente wird angeklickt."},
    {keys::changed, "Der Inhalt ändert sich."},
    {keys::validate, "Die Eingabetaste beendet die Eingabe."},
    {keys::selectionchanged, "Ein anderer Teil des Textes wird markiert."},
    {keys::passchar, "Das Zeichen, das statt jedes Buchstabens zu sehen ist."},
    {keys::checked, "Der Schalter ist beim Start an."},
    {keys::optionbuttons, "Die Knöpfe der Gruppe; einer von ihnen ist gewählt."},
    {keys::combovalues, "Die Zeilen, aus denen gewählt wird."},
    {keys::currentvalue, "Der Wert beim Start."},
    {keys::min, "Der kleinste Wert."},
    {keys::max, "Der größte Wert."},
    {keys::rows, "Wie viele Zeilen die Tabelle hat."},
    {keys::columns, "Die Überschriften der Spalten."},
    {keys::pictureFile, "Die Datei, die gezeigt oder abgespielt wird."},
};

} // namespace

std::string_view PropertyHelp(std::string_view key) {
    const auto* const row =
        std::find_if(std::begin(rows), std::end(rows), [key](const HelpRow& other) { return other.key.key == key; });
    return row == std::end(rows) ? std::string_view() : row->text;
}

std::string RowHelp(const PropertyPanelRow& row) {
    if (row.isCategory)
        return {};
    const std::string_view help = PropertyHelp(row.key);
    if (row.handler.empty())
        return std::string(help);
    return Concatenate(help, " Dann läuft ", row.handler, ". Ein Doppelklick auf »", row.caption,
                       "« zeigt die Methode.");
}

} // namespace pirol
