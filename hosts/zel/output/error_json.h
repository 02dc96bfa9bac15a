// A failure as a JSON object, for programs.
#pragma once

#include <exception>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "output/desk.h"

namespace zelhost {

struct Problem {
  std::string kind;     // the class of the error, "MissingComponent" for example
  std::string message;  // the line on standard error
  std::string file;     // what it is about; may be empty
};

// What an exception says; that of the desk's errors with their file.
Problem ProblemOf(std::exception const& error);
// The member `error` of a JSON object.
nlohmann::ordered_json ErrorMember(Problem const& problem);
// One object with the members schema, schema_version, command, status and error.
std::string ErrorJson(Problem const& problem, std::string const& command, int status);

}  // namespace zelhost
