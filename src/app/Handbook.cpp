#include "app/Handbook.h"

#include "base/Conversions.h"
#include "codegen/Hints.h"
#include "controls/PropertyTable.h"

namespace pirol {
namespace {

struct ChapterRow {
    std::string_view window;
    std::string_view anchor;
};

constexpr ChapterRow chapters[] = {
    {"frmMain", "das-hauptfenster"},
    {"frmListEditor", "eigenschaften"},
    {"propertyDialog", "eigenschaften"},
    {"frmProjectSettings", "projekteinstellungen"},
    {"frmMenuGenerator", "der-menü-generator"},
    {"frmSQLGenerator", "der-sql-generator"},
    {"frmCode", "quelltext-erzeugen"},
    {"frmPrint", "quelltext-erzeugen"},
    {"pdfDialog", "quelltext-erzeugen"},
    {"fontDialog", "quelltext-erzeugen"},
    {"printDialog", "quelltext-erzeugen"},
    {"frmPreferences", "optionen"},
    {"programDialog", "optionen"},
    {"colorDialog", "optionen"},
    {"projectDialog", "projekte-speichern-und-öffnen"},
    {"exportDialog", "exportieren-und-bluej-starten"},
    {"frmPicture", "ein-bild-für-arbeitsblätter"},
    {"pictureDialog", "ein-bild-für-arbeitsblätter"},
    {"importDialog", "java-einlesen"},
    {"frmImportReport", "java-einlesen"},
    {"updateDialog", "java-datei-aktualisieren"},
    {"frmJavaUpdate", "java-datei-aktualisieren"},
    {"frmUpdate", "neue-versionen"},
    {"frmRecovery", "wiederherstellung"},
    {"frmKeptDesigns", "frühere-entwürfe"},
    {"frmError", "wenn-etwas-nicht-klappt"},
    {"message", "wenn-etwas-nicht-klappt"},
    {"frmAbout", "über-pirol"},
    {"frmDonation", "über-pirol"},
};

/// The capitals whose small letters this language needs.
constexpr std::pair<std::string_view, std::string_view> capitals[] = {{"Ä", "ä"}, {"Ö", "ö"}, {"Ü", "ü"}};

bool BelongsInAnchor(char sign) {
    const bool isAscii = static_cast<unsigned char>(sign) < 0x80;
    return !isAscii || (sign >= 'a' && sign <= 'z') || (sign >= '0' && sign <= '9') || sign == '-';
}

} // namespace

std::string ChapterAnchor(std::string_view heading) {
    std::string anchor = LowerCase(ReplaceAll(heading, " ", "-"));
    for (const auto& [capital, small] : capitals)
        anchor = ReplaceAll(anchor, capital, small);
    std::erase_if(anchor, [](char sign) { return !BelongsInAnchor(sign); });
    return anchor;
}

std::string AnchorOf(const HintRule& rule) {
    return ChapterAnchor(rule.title);
}

std::string AnchorOf(const PropertyKey& property) {
    return ChapterAnchor(property.label);
}

std::string AnchorOf(const KindRow& kind) {
    return ChapterAnchor(kind.javaClass);
}

std::string_view ChapterOf(std::string_view window) {
    for (const ChapterRow& row : chapters)
        if (row.window == window)
            return row.anchor;
    return chapters[0].anchor;
}

} // namespace pirol
