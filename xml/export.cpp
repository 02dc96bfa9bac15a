#include "xml/export.h"

#include <utility>
#include <vector>

#include "banks/catalogue.h"
#include "frame/date_text.h"
#include "frame/file_name.h"
#include "frame/limits.h"
#include "maint/component_identity.h"
#include "store/key.h"
#include "xml/export_component.h"
#include "xml/export_items.h"
#include "xml/text_out.h"

namespace zel {

using platform::TextFile;

namespace {

constexpr std::string_view kUsualExtension = ".xml";
constexpr std::size_t kLongestLabel = 99;
// A component takes about the time of so many items.
constexpr double kItemsOfComponent = 8.0;
constexpr std::string_view kEmptyLine = "  -\n";
constexpr std::size_t kStars = 75;

void PutStars(TextFile& out) { out << "  -  " << std::string(kStars, '*') << "\n"; }

void PutNotice(TextFile& out) {
  out << "  -  Copyright " << CurrentYear() << " by the owners of the data. All rights reserved.\n"
      << "  -  Names of products and of data collections are marks of their owners.\n"
      << "  -  Names of companies and of their libraries are marks of theirs.\n";
}

// Writes an element of the library that holds one line of text, unless the text is empty.
void PutText(TextFile& out, std::string_view name, std::string_view text) {
  if (text.empty()) return;
  out << "  <" << name << ">\n    " << text << "\n  </" << name << ">\n";
}

std::string BankLabel(std::string_view type, std::string_view name) {
  return "bank type \"" + std::string(type) + "\", name \"" + std::string(name) + "\"";
}

}  // namespace

Export_i::Export_i(LibMaint_i& owner, ExportSwitches const& switches, std::string_view path)
    : owner_(owner),
      library_(*owner.Library()),
      switches_(switches),
      progress_(owner.Library()->Progress()) {
  PathParts const parts = SplitPath(path);
  folder_ = parts.folder.empty() ? SplitPath(library_.GetLibPath()).folder : parts.folder;
  base_ = parts.name;
  extension_ = parts.extension.empty() ? std::string(kUsualExtension) : parts.extension;
}

// Returns an empty path, which cannot be opened, if the path is too long.
std::string Export_i::PathOf(std::string const& file) const {
  std::string path = folder_ + file;
  return path.size() > kMostPath ? std::string() : path;
}

std::string Export_i::Named(std::string_view base, std::string const& fallback) const {
  return (base.empty() ? fallback : std::string(base)) + extension_;
}

std::string Export_i::NamedAfter(std::string_view base, std::string const& contents) const {
  return base.empty() ? FileNameOf(contents + extension_) : Named(base, {});
}

void Export_i::PutHeader(TextFile& out, std::string label) const {
  label.resize(std::min(label.size(), kLongestLabel));
  out << "<!--\n";
  PutStars(out);
  out << kEmptyLine;
  if (switches_.writeBanner) {
    out << "  -  *** Maintenance Log ***\n" << kEmptyLine;
    PutStars(out);
    out << kEmptyLine;
  }
  out << "  -  Package:    HALVIK Thermo\n"
      << "  -  Component:  ZelLibraryData - Component library data\n"
      << "  -  Purpose:    XML data file for " << label << "\n";
  if (switches_.writeNotice) {
    out << kEmptyLine;
    PutNotice(out);
  }
  out << kEmptyLine;
  PutStars(out);
  out << "  -->\n\n";
}

// Writes one CDATA section with a blank after its opening and a mark at the start of every further
// line.
void Export_i::PutMemo(TextFile& out, std::string memo) {
  if (memo.empty()) return;
  memo += "]]>";
  out << "  <memo>\n";
  std::string_view rest = memo;
  std::string_view prefix = "<![CDATA[ ";
  while (!rest.empty()) {
    std::size_t const end = std::min(rest.find('\n'), rest.size() - 1) + 1;
    out << "    " << prefix << rest.substr(0, end);
    rest.remove_prefix(end);
    prefix = "        [ ";
  }
  out << "\n  </memo>\n";
}

bool Export_i::ExportLibrary() {
  std::vector<std::pair<std::string, std::string>> banks;
  std::vector<std::pair<std::string, std::string>> others;
  char type[kMostName + 1];
  char name[kMostName + 1];
  owner_.BeginBankWalk();
  while (owner_.NextBank(type, name)) {
    (std::string_view(type) == kPureComponentType ? banks : others).emplace_back(type, name);
  }
  banks.insert(banks.end(), others.begin(), others.end());  // components first

  std::string const stem = SplitPath(library_.GetLibPath()).name;
  TextFile out(PathOf(Named(base_, stem)));
  if (!out) return false;
  PutHeader(out, "library \"" + stem + "\"");
  char description[101];
  char version[13];
  char memo[4000];
  library_.GetDescriptionAndVersion(description, version);
  library_.GetMemo(memo);
  out << "<library>\n";
  PutText(out, "description", description);
  PutText(out, "version", version);
  PutMemo(out, memo);
  double work = 0.0;
  for (auto const& [bankType, bankName] : banks) work += WorkOf(bankType, bankName);
  progress_.Expect(work);
  for (auto const& [bankType, bankName] : banks) {
    std::string file;
    if (!WriteBank(bankType, bankName, "", file)) return false;
    if (!file.empty()) out << "  <import file=\"" << file << "\" />\n";
  }
  out << "</library>\n";
  bool const written = out.Close();
  progress_.End();
  return written;
}

bool Export_i::ExportBank(char const* type, char const* name) {
  std::string file;
  progress_.Expect(WorkOf(type, name));
  bool const written = WriteBank(type, name, base_, file);
  progress_.End();
  return written;
}

double Export_i::WorkOf(std::string const& type, std::string const& name) {
  if (!progress_.IsWatched()) return 0.0;
  std::int32_t words[format::kMaxKeyWords] = {};
  double items = 0.0;
  try {
    if (!owner_.BeginItemWalk(type.c_str(), name.c_str())) return 0.0;
    while (owner_.NextItemKey(words)) ++items;
  } catch (unsigned long) {  // reported when the bank is written
  }
  return type == kPureComponentType ? kItemsOfComponent * items : items;
}

// Sets `file` to the name of the file; leaves it empty if the bank is left out.
bool Export_i::WriteBank(std::string const& type, std::string const& name, std::string_view base,
                         std::string& file) {
  FaceRef<IZelBankDef> const record(NewKnownBank(type.c_str()));
  if (!owner_.BankExists(type.c_str(), name.c_str()) || !record) return false;
  BankInfo const info(record.Get());
  std::int32_t const stored =
      info.formatCount == 1 ? 0 : owner_.GetBankFormat(type.c_str(), name.c_str());
  bool const withFormat = switches_.writeFormat && stored != 0;
  if (!withFormat && stored > 1) return true;
  owner_.Log().ShowBankProgress(type, name);
  file = NamedAfter(base, "Bank-" + type + "-" + name);
  TextFile out(PathOf(file));
  if (!out) return false;
  PutHeader(out, BankLabel(type, name));
  out << "<bank type=\"" << type << "\" name=\"" << name << "\"";
  if (withFormat) out << " format=\"" << stored << "\"";
  out << ">\n";
  char memo[4000];
  owner_.GetBankMemo(type.c_str(), name.c_str(), memo);
  PutMemo(out, memo);
  bool isWhole = true;
  try {
    if (type != kPureComponentType) {
      ItemExport(owner_, out, ids_, &progress_).Write(record.Get(), name, withFormat ? stored : 1);
    } else {
      isWhole = WriteComponents(out, name);
    }
  } catch (unsigned long const address) {  // in the tree: the rest of it is lost
    if (!owner_.TellUnread(type + ":" + name, address)) throw;
  }
  if (IsCancelled()) return false;
  out << "</bank>\n";
  return out.Close() && isWhole;
}

// Each component is looked up again by its first ID and left out if it is not found. False when the
// file of one cannot be written: the bank's file does not name it, and the others follow.
bool Export_i::WriteComponents(TextFile& out, std::string const& bank) {
  constexpr std::size_t kIndent = 2;
  FaceRef<IZelBankDef> const record(NewKnownBank(kPureComponentType));
  auto const component = FaceRef<IZelPureComp>::Of(record.Get(), IID_IZelPureComp);
  LibMaint_i reader(&library_);
  Key_i key;
  std::int32_t words[format::kMaxKeyWords] = {};
  bool areWritten = true;
  if (!component || !owner_.BeginItemWalk(kPureComponentType, bank.c_str())) return true;
  while (owner_.NextItem(words, record.Get())) {
    if (!progress_.DidItem(kItemsOfComponent)) return false;
    ComponentIdentity const identity(component.Get());
    key.SetKey(static_cast<char const*>(identity.ids[0]));
    std::string file;
    bool isThere = true;
    if (switches_.componentFiles) {
      Written const written = WriteComponentFile(bank.c_str(), &key, identity.ids[0], "", file);
      areWritten = areWritten && written != Written::kNotWhole;
      isThere = written != Written::kNoComponent;
      if (written == Written::kWhole) out << "  <import file=\"" << file << "\" />\n";
    } else {
      isThere = reader.ReadItem(record.Get(), bank.c_str(), &key);
      if (isThere) PutComponent(out, component.Get(), kIndent);
    }
    if (!isThere) {
      owner_.TellLeftOut(
          std::string(kPureComponentType) + ":" + bank + " " + std::to_string(words[0]),
          "its first ID does not lead to it");
    }
  }
  return areWritten;
}

Export_i::Written Export_i::WriteComponentFile(char const* bank, Key* key,
                                               std::string const& component, std::string_view base,
                                               std::string& file) {
  FaceRef<IZelBankDef> const record(NewKnownBank(kPureComponentType));
  auto const read = FaceRef<IZelPureComp>::Of(record.Get(), IID_IZelPureComp);
  if (!read || !LibMaint_i(&library_).ReadItem(record.Get(), bank, key)) {
    return Written::kNoComponent;
  }
  file = NamedAfter(base, "Comp-" + std::string(bank) + "-" + component);
  TextFile out(PathOf(file));
  if (!out) return Written::kNotWhole;
  PutHeader(out, BankLabel(kPureComponentType, bank) + ", component \"" + component + "\"");
  PutComponent(out, read.Get(), 0);
  return out.Close() ? Written::kWhole : Written::kNotWhole;
}

bool Export_i::ExportComponentByNumber(char const* bank, std::int32_t number) {
  Key_i key;
  key.SetKey(static_cast<long>(number));
  return WriteOneComponent(bank, &key, std::to_string(number));
}

bool Export_i::ExportComponentById(char const* bank, char const* id) {
  Key_i key;
  key.SetKey(id);
  return WriteOneComponent(bank, &key, id);
}

bool Export_i::WriteOneComponent(char const* bank, Key* key, std::string const& component) {
  std::string file;
  bool const written = WriteComponentFile(bank, key, component, base_, file) == Written::kWhole;
  progress_.End();
  return written;
}

}  // namespace zel
