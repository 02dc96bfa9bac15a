#include "frame/units/unit_system.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/platform/text_file.h"

namespace zel {

// Made from uomdata.txt by the build.
extern unsigned char const kUnitTable[];
extern std::size_t const kUnitTableSize;

namespace {

constexpr int kTableNotFound = -1;

struct FreeUnit {
  void operator()(uom_Unit* unit) const { uom_Free(&unit); }
};
using UnitHandle = std::unique_ptr<uom_Unit, FreeUnit>;

bool Understands(uom_Unit* unit, char const* text) {
  return uom_FillStructFromString(unit, text, 1) == 0 ||
         uom_FillStructFromString(unit, text, 2) == 0;
}

// The text cut before "-mol", or with "-mol" appended when it has none.
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
  platform::TemporaryFile const file(TableFilePrefix(platform::ProcessId()), kMostPath);
  std::string path = file.Path();
  // If the file is not complete, loading it fails and reports that.
  if (!path.empty()) {
    platform::TextFile text(path);
    text.Put(TableFileText(table));
    if (!text.Close()) path.clear();
  }
  std::array<char const*, 2> const arguments = {"-f", path.c_str()};
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
