#include "app/ErrorReport.h"
#include "model/Conversions.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace pirol {
namespace {

RuntimeError ErrorWith(RuntimeError::Number number, std::string_view label) {
    RuntimeError error(number);
    error.SetLabel(label);
    return error;
}

TEST(ErrorReport, FillsTheTemplate) {
    const struct {
        int number;
        std::string_view description;
        std::string_view label;
        std::string_view text;
    } cases[] = {
        {13, "Typen unverträglich", "Main.File.Properties.PropertyChanged",
         "Fehlernummer: 13\r\nFehlerbeschreibung: Typen unverträglich\r\n\r\n"
         "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\r\nMain.File.Properties.PropertyChanged"},
        {6, "Überlauf", "",
         "Fehlernummer: 6\r\nFehlerbeschreibung: Überlauf\r\n\r\n"
         "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\r\n|Keine Angaben|"},
        {-7, "#nr, #desc, #func", "A.#nr.#desc.#func",
         "Fehlernummer: -7\r\nFehlerbeschreibung: #nr, #desc, A.#nr.#desc.#func\r\n\r\n"
         "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\r\nA.#nr.#desc.#func"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(ErrorReportText(row.number, row.description, row.label), row.text);
}

TEST(ErrorReport, AdviceHasFourParagraphs) {
    const std::string marked = ReplaceAll(ErrorAdvice(), "\r\n\r\n", "\n");
    const std::vector<std::string_view> paragraphs = Split(marked, '\n');
    ASSERT_EQ(paragraphs.size(), 4U);
    EXPECT_TRUE(paragraphs[0].starts_with("Sie können diese Beschreibung kopieren und per eMail an den Autor senden"));
    EXPECT_TRUE(paragraphs[0].ends_with("(support@pirol.example)."));
    EXPECT_TRUE(paragraphs[1].ends_with("so senden Sie bitte die entsprechende Datei mit."));
    EXPECT_TRUE(paragraphs[2].starts_with("Wir werden uns so schnell wie möglich"));
    EXPECT_EQ(paragraphs[3], "Der Vorgang wurde abgebrochen um Folgefehler bzw. einen Programmabsturz zu verhindern.");
    EXPECT_EQ(marked.find('\r'), std::string::npos);
}

TEST(ErrorReport, EveryFailureIsAnError) {
    const struct {
        std::function<void()> operation;
        int number;
        std::string_view label;
    } cases[] = {
        {[] { throw ErrorWith(RuntimeError::PathNotFound, "Main.Project.Export"); }, 76, "Main.Project.Export"},
        {[] { throw std::bad_alloc(); }, 7, ""},
        {[] { std::string().reserve(std::string().max_size() + 1); }, 7, ""},
        {[] { throw std::runtime_error("unforeseen"); }, 5, ""},
    };
    for (const auto& row : cases) {
        const std::optional<RuntimeError> error = ErrorOf(row.operation);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->ErrorNumber(), row.number);
        EXPECT_EQ(error->Label(), row.label);
    }
}

TEST(ErrorReport, WhatWasDoneBeforeStaysDone) {
    int done = 0;
    EXPECT_FALSE(ErrorOf([&] { done = 1; }));
    EXPECT_EQ(done, 1);
    EXPECT_TRUE(ErrorOf([&] {
        done = 2;
        throw RuntimeError(RuntimeError::DeviceError);
    }));
    EXPECT_EQ(done, 2);
}

} // namespace
} // namespace pirol
