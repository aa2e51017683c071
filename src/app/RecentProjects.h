#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The project files that were used last, over all programs of the user; paths are UTF-8 and absolute. They are one
/// more value of the per-user store, a path a line. Nothing here looks at the files themselves.
namespace pirol::recentprojects {

constexpr std::size_t mostProjects = 10;

/// The newest first. What is no absolute path, comes twice or is one too many is left out.
std::vector<std::string> Load();

/// Puts a project first. A path that no line can hold is not kept. Failures are silent.
void Add(std::string_view path);
void Forget(std::string_view path);
void ForgetAll();

} // namespace pirol::recentprojects
