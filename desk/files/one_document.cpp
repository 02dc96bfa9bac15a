#include "desk/files/one_document.h"

#include <string_view>

#include "desk/files/folder.h"
#include "desk/files/input_file.h"
#include "desk/words/failure.h"

namespace zel::desk {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kHead = "  <import file=\"";
constexpr std::string_view kEnd = "\" />";

// The file that a line imports; empty for other lines. Lines of texts never begin like this: the
// export indents them further.
std::string ImportedBy(std::string_view line) {
  if (line.substr(0, kHead.size()) != kHead || line.size() < kHead.size() + kEnd.size() ||
      line.substr(line.size() - kEnd.size()) != kEnd) {
    return "";
  }
  return std::string(line.substr(kHead.size(), line.size() - kHead.size() - kEnd.size()));
}

void Append(fs::path const& folder, std::string const& name, bool isOuter, std::string& text) {
  std::ifstream file = OpenInput(Inside(folder, name));
  if (!file) throw Failure(Inside(folder, name).string() + ": cannot be read");
  bool isHeader = !isOuter;  // an imported document has none in the result
  for (std::string line; std::getline(file, line);) {
    if (isHeader) {
      if (line == "  -->") {
        isHeader = false;
        std::getline(file, line);  // the empty one
      }
      continue;
    }
    std::string const imported = ImportedBy(line);
    if (!imported.empty() && fs::exists(Inside(folder, imported))) {
      Append(folder, imported, false, text);
    } else {
      text += line + "\n";
    }
  }
  if (file.bad()) throw Failure(Inside(folder, name).string() + ": cannot be read");
}

}  // namespace

std::string OneDocument(fs::path const& folder, std::string const& name) {
  std::string text;
  Append(folder, name, true, text);
  return text;
}

}  // namespace zel::desk
