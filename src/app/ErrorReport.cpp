#include "app/ErrorReport.h"

#include "base/Conversions.h"
#include "controls/Oddities.h"

#include <new>
#include <stdexcept>

namespace pirol {
namespace {

constexpr std::string_view adviceParagraphs[] = {
    "Sie können diese Beschreibung kopieren und per eMail an den Autor senden (support@pirol.example).",
    "Sollte dieser Fehler während eines Dateizugriffs (Importieren, Exportieren, Laden, Speichern, ...) aufgetreten "
    "sein, so senden Sie bitte die entsprechende Datei mit.",
    "Wir werden uns so schnell wie möglich um Ihr Problem kümmern und ein Update der Software herausbringen, sollte "
    "dies notwendig sein.",
    "Der Vorgang wurde abgebrochen um Folgefehler bzw. einen Programmabsturz zu verhindern.",
};

} // namespace

std::optional<RuntimeError> ErrorOf(const std::function<void()>& operation) {
    try {
        operation();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(RuntimeError::OutOfMemory);
    } catch (const std::length_error&) { // a text longer than the address space
        return RuntimeError(RuntimeError::OutOfMemory);
    } catch (const std::exception&) {
        return RuntimeError(RuntimeError::InvalidCall);
    }
}

std::string ErrorReportText(int number, std::string_view description, std::string_view label) {
    // One replacement after the other over the whole text, so a mark inside the description is replaced as well.
    std::string text = ReplaceAll(oddities::errorReportTemplate, "#nr", std::to_string(number));
    text = ReplaceAll(text, "#desc", description);
    return ReplaceAll(text, "#func", label.empty() ? "|Keine Angaben|" : label);
}

std::string ErrorAdvice() {
    std::string advice;
    for (const std::string_view paragraph : adviceParagraphs) {
        if (!advice.empty())
            advice.append(lineEnd).append(lineEnd);
        advice += paragraph;
    }
    return advice;
}

} // namespace pirol
