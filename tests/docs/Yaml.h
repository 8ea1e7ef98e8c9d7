#pragma once

#include <map>
#include <string>
#include <string_view>

namespace plotvane::test {

// Every value of a YAML text by its path: "jobs.debian.steps.0.run". Sequences count from 0. Throws
// std::runtime_error, with the line, if the text is no YAML.
std::map<std::string, std::string> ReadYaml(std::string_view text);

}  // namespace plotvane::test
