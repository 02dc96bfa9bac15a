#include "output/error_json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "desk/words/failure.h"
#include "output/report_forms.h"

namespace zelhost {
namespace {

template <typename Kind>
bool Is(std::exception const& error) {
  return dynamic_cast<Kind const*>(&error) != nullptr;
}

// The most special class comes first.
char const* KindOf(std::exception const& error) {
  if (Is<WrongUsage>(error)) return "WrongUsage";
  if (Is<LibraryInUse>(error)) return "LibraryInUse";
  if (Is<OpenError>(error)) return "OpenError";
  if (Is<DamagedLibrary>(error)) return "DamagedLibrary";
  if (Is<MissingComponent>(error)) return "MissingComponent";
  if (Is<ConflictingIdentity>(error)) return "ConflictingIdentity";
  if (Is<MissingItem>(error)) return "MissingItem";
  if (Is<MissingDatum>(error)) return "MissingDatum";
  if (Is<UnknownWord>(error)) return "UnknownWord";
  return "Error";
}

// The words that a message suggests, "did you mean NBP?" or "the nearest ID is WATER (Water)".
std::vector<std::string> SuggestedIn(std::string const& message) {
  std::vector<std::string> words;
  for (std::string const start : {"; did you mean ", "; the nearest ID is "}) {
    std::size_t const at = message.find(start);
    if (at == std::string::npos) continue;
    std::size_t const begin = at + start.size();
    std::size_t const end = std::min(message.find_first_of("? ", begin), message.size());
    words.push_back(message.substr(begin, end - begin));
  }
  return words;
}

}  // namespace

Problem ProblemOf(std::exception const& error) {
  auto const* const ofDesk = dynamic_cast<Error const*>(&error);
  return {KindOf(error), error.what(), ofDesk == nullptr ? "" : ofDesk->File()};
}

nlohmann::ordered_json ErrorMember(Problem const& problem) {
  nlohmann::ordered_json error = {{"kind", problem.kind}, {"message", problem.message}};
  if (!problem.file.empty()) error["file"] = problem.file;
  std::vector<std::string> const near = SuggestedIn(problem.message);
  if (!near.empty()) error["near"] = near;
  return error;
}

std::string ErrorJson(Problem const& problem, std::string const& command, int status) {
  using Json = nlohmann::ordered_json;
  Json const root = {{"schema", "zel/error"},
                     {"schema_version", kSchemaVersion},
                     {"command", command},
                     {"status", status},
                     {"error", ErrorMember(problem)}};
  return root.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace zelhost
