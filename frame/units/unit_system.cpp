#include "frame/units/unit_system.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "frame/ascii.h"
#include "frame/platform/text_file.h"

namespace zel {

// Made from uomdata.txt by the build.
extern unsigned char const kUnitTable[];
extern std::size_t const kUnitTableSize;

namespace {

constexpr int kTableNotFound = -1;
constexpr std::size_t kMostPath = 259;

struct FreeUnit {
  void operator()(uom_Unit* unit) const { uom_Free(&unit); }
};
using UnitHandle = std::unique_ptr<uom_Unit, FreeUnit>;

// A file of this process alone, gone with the object. Its path is empty when it cannot be made.
class TableFile {
 public:
  TableFile() : made_(platform::MakeTemporaryFile(TableFilePrefix(platform::ProcessId()))) {}
  TableFile(TableFile const&) = delete;
  TableFile& operator=(TableFile const&) = delete;
  ~TableFile() {
    if (!made_.empty()) platform::RemoveFile(made_);
  }

  char const* Path() const noexcept { return made_.size() <= kMostPath ? made_.c_str() : ""; }

 private:
  std::string made_;
};

bool Understands(uom_Unit* unit, char const* text) {
  return uom_FillStructFromString(unit, text, 1) == 0 ||
         uom_FillStructFromString(unit, text, 2) == 0;
}

// Cut before "-mol", or with it behind.
std::string OtherBasis(char const* text) {
  constexpr std::string_view kMole = "-mol";
  constexpr std::size_t kMostText = 29;
  std::string word(TextOrEmpty(text).substr(0, kMostText));
  std::size_t const at = LowerText(word).find(kMole);
  if (at == std::string::npos) return word.append(kMole);
  word.resize(at);
  return word;
}

}  // namespace

std::string_view UnitTableResource() noexcept {
  return {reinterpret_cast<char const*>(kUnitTable), kUnitTableSize};
}

int StartUnitSystem(platform::ModuleHandle module) {
  return StartUnitSystemFrom(module == nullptr ? std::string_view() : UnitTableResource());
}

std::string TableFileText(std::string_view table) {
  std::string text(table);
  std::replace(text.begin(), text.end(), '\'', '"');
  return text;
}

std::string TableFilePrefix(int processId) {
  std::array<char, 32> prefix{};
  std::snprintf(prefix.data(), prefix.size(), "~uom%04d", processId);
  return prefix.data();
}

int StartUnitSystemFrom(std::string_view table) {
  if (table.empty()) return kTableNotFound;
  TableFile const file;
  // Without a file, or a whole one, the loading fails and says so.
  if (*file.Path() != '\0') {
    platform::TextFile text(file.Path());
    text.Put(TableFileText(table));
    if (!text.Close()) platform::RemoveFile(file.Path());
  }
  std::array<char const*, 2> const arguments = {"-f", file.Path()};
  return uom_Init2(static_cast<int>(arguments.size()), arguments.data());
}

uom_Unit* OpenUnit(char const* dimension, char const* text) {
  UnitHandle unit(uoms_New(dimension));
  if (unit == nullptr) return nullptr;
  bool const known =
      Understands(unit.get(), text) || Understands(unit.get(), OtherBasis(text).c_str());
  return known ? unit.release() : nullptr;
}

bool ConvertToInternal(char const* dimension, char const* text, double& value) {
  UnitHandle const source(OpenUnit(dimension, text));
  UnitHandle const target(uoms_New(dimension));
  if (source == nullptr || target == nullptr) return false;
  if (uom_FillStructFromString(target.get(), "qrinternal", 1) != 0) return false;
  return uom_ConvertArray(&value, 1, source.get(), target.get()) == 0;
}

}  // namespace zel
