#include "app/ErrorReport.h"
#include "base/Conversions.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <tuple>

namespace pirol {
namespace {

RuntimeError ErrorWith(RuntimeError::Number number, std::string_view label) {
    RuntimeError error(number);
    error.SetLabel(label);
    return error;
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
    const std::tuple<std::function<void()>, int, std::string_view> cases[] = {
        {[] { throw ErrorWith(RuntimeError::PathNotFound, "Main.Project.Export"); }, 76, "Main.Project.Export"},
        {[] { throw std::bad_alloc(); }, 7, ""},
        {[] { std::string().reserve(std::string().max_size() + 1); }, 7, ""},
        {[] { throw std::runtime_error("unforeseen"); }, 5, ""},
    };
    for (const auto& [operation, number, label] : cases) {
        const std::optional<RuntimeError> error = ErrorOf(operation);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->ErrorNumber(), number);
        EXPECT_EQ(error->Label(), label);
    }
    EXPECT_FALSE(ErrorOf([] {}));
}

} // namespace
} // namespace pirol
