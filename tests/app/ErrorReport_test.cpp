#include "app/ErrorReport.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <tuple>

namespace pirol {
namespace {

TEST(ErrorReport, EveryFailureIsAnError) {
    const std::tuple<std::function<void()>, int, std::string_view> cases[] = {
        {[] { UnderLabel("Main.Project.Export", [] { throw RuntimeError(RuntimeError::PathNotFound); }); }, 76,
         "Main.Project.Export"},
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
