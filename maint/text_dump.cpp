#include "maint/text_dump.h"

#include <array>
#include <vector>

#include "banks/catalogue.h"
#include "frame/file_name.h"
#include "frame/limits.h"
#include "frame/number_text.h"
#include "frame/path_parts.h"
#include "frame/platform/system.h"
#include "frame/platform/text_file.h"
#include "maint/component_identity.h"
#include "store/format.h"
#include "zelaccess/Verify.h"

namespace zel {

namespace {

using platform::TextFile;

constexpr std::string_view kNotIndexed = "OLILIB";
constexpr std::string_view kVersionLine = "1\n";
constexpr std::string_view kComponentExtension = ".cmp";

constexpr std::array<std::string_view, 8> kPhases = {"", "V", "L", "VL", "S", "VS", "LS", "VLS"};
constexpr std::int32_t kSolid = 4;

constexpr double kLowTc = 400.0;  // K

std::string VersionOf(LibFile* library) {
  char description[101];
  char version[13];
  library->GetDescriptionAndVersion(description, version);
  return version;
}

std::string StemOf(LibFile* library) { return SplitPath(library->GetLibPath()).name; }

// Writes the fields separated by tabs, without a line end.
void PutFields(TextFile& file, std::initializer_list<std::string_view> fields) {
  bool first = true;
  for (std::string_view field : fields) {
    if (!first) file.Put('\t');
    file.Put(field);
    first = false;
  }
}

double PropertyOf(IZelPureComp* component, zelProperties property) {
  double value = gen_GetUndefDouble();
  component->GetProperty(property, &value);
  return value;
}

// Undefined values are negative numbers, too.
std::string PropertyText(IZelPureComp* component, zelProperties property) {
  constexpr int kDigits = 6;
  double const value = PropertyOf(component, property);
  return value < 0.0 ? std::string() : RealText(value, kDigits);
}

void PutComponent(TextFile& file, IZelPureComp* component) {
  ComponentIdentity const identity(component);
  std::int32_t phase = 0;
  component->GetPhase(&phase);
  auto const known = phase >= 0 && phase < static_cast<std::int32_t>(kPhases.size());
  PutFields(file, {identity.name, known ? kPhases[static_cast<std::size_t>(phase)] : "",
                   identity.ids[0], identity.formula, static_cast<char const*>(identity.Cas()),
                   PropertyText(component, propertyNBP), PropertyText(component, propertyMW)});
  double const tc = PropertyOf(component, propertyTC);
  if (tc > 0.0 && tc < kLowTc) file.Put("\thsol");
  file.Put(phase == kSolid ? "\tSolid\n" : "\n");
  bool others = false;
  for (int i = 1; i < ComponentIdentity::kIds; ++i) {
    if (identity.ids[i][0] == '\0') continue;
    file.Put('\t');
    file.Put(identity.ids[i]);
    others = true;
  }
  if (others) file.Put('\n');
}

}  // namespace

namespace {

// If an index was not written completely, reports this to the host's sink for items, if it has one.
void Close(TextFile& file, LibFile* library, std::string const& path) {
  if (file.Close()) return;
  auto const* const inner = dynamic_cast<LibFile_i*>(library);
  ZelFindingSink* const sink = inner == nullptr ? nullptr : inner->ItemFindings();
  if (sink != nullptr) sink->Found(findingDamage, "file", path.c_str(), "cannot be written whole");
}

}  // namespace

void WriteBankIndex(LibFile* library, std::string const& folder, std::string const& name) {
  std::string const path = folder + name + ".bnk";
  TextFile file(path);
  if (!file) return Close(file, library, path);
  file.Put(kVersionLine);
  PutFields(file, {StemOf(library), VersionOf(library)});
  file.Put('\n');
  LibMaint_i walk(library);
  char type[kMostName + 1];
  char bank[kMostName + 1];
  walk.BeginBankWalk();
  while (walk.NextBank(type, bank)) {
    PutFields(file, {type, bank});
    file.Put('\n');
  }
  Close(file, library, path);
}

void WriteComponentIndex(LibFile* library, char const* bank, std::string const& path) {
  TextFile file(path);
  if (!file) return Close(file, library, path);
  file.Put(kVersionLine);
  PutFields(file, {StemOf(library), bank, VersionOf(library)});
  file.Put('\n');
  FaceRef<IZelBankDef> const record(NewKnownBank(kPureComponentType));
  auto const component = FaceRef<IZelPureComp>::Of(record.Get(), IID_IZelPureComp);
  LibMaint_i walk(library);
  std::int32_t key[format::kMaxKeyWords];  // a damaged bank may claim this many
  try {
    if (component && walk.BeginItemWalk(kPureComponentType, bank)) {
      while (walk.NextItem(key, record.Get())) PutComponent(file, component.Get());
    }
  } catch (unsigned long const address) {  // in the tree: the rest of it is lost
    if (!walk.TellUnread(std::string(kPureComponentType) + ":" + bank, address)) throw;
  }
  Close(file, library, path);
}

// The name is used literally, even if it has characters of a pattern.
void DeleteTextDump(std::string const& folder, std::string const& name) {
  platform::RemoveFile(folder + name + ".bnk");
  std::string const start = name + ".";
  for (platform::FolderEntry const& entry : platform::ListFolder(folder)) {
    std::string_view const file = entry.name;
    bool const old = file.size() >= start.size() + kComponentExtension.size() &&
                     file.substr(0, start.size()) == start &&
                     file.substr(file.size() - kComponentExtension.size()) == kComponentExtension;
    if (old && (entry.attributes & platform::kFolderAttribute) == 0) {
      platform::RemoveFile(folder + entry.name);
    }
  }
}

void WriteTextDumps(LibFile* library) {
  PathParts const path = SplitPath(library->GetLibPath());
  DeleteTextDump(path.folder, path.name);
  WriteBankIndex(library, path.folder, path.name);
  LibMaint_i walk(library);
  char type[kMostName + 1];
  char bank[kMostName + 1];
  walk.BeginBankWalk(kPureComponentType);
  while (walk.NextBank(type, bank)) {
    if (bank == kNotIndexed) continue;
    WriteComponentIndex(
        library, bank,
        path.folder + path.name + "." + FileNameOf(bank + std::string(kComponentExtension)));
  }
}

void LibMaint_i::WriteTextDump(LibFile* library) {
  if (library != nullptr) WriteTextDumps(library);
}

}  // namespace zel
