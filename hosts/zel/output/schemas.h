// The JSON Schemas of what zel prints with --json: the files in docs/schemas, which are built in.
#pragma once

#include <string>
#include <vector>

namespace zelhost {

struct PublishedSchema {
  std::string command;  // or "error"
  char const* text;
};

std::vector<PublishedSchema> PublishedSchemas();

}  // namespace zelhost
