#include "xml/import.h"

#include <array>

#include "frame/ascii.h"
#include "frame/number_text.h"
#include "frame/platform/text_file.h"
#include "maint/document_stack.h"
#include "xml/import_component.h"
#include "xml/import_items.h"
#include "xml/import_iterator.h"
#include "xml/import_text.h"

namespace zel {

namespace {

constexpr std::size_t kLongestKeyword = 8;
constexpr std::size_t kLongestVersion = 12;
constexpr std::string_view kComponentBank = "PURECOMP";

enum LibraryNode : std::size_t { kDescription, kVersion, kMemo, kBank };
constexpr std::array<NameRow, 4> kLibraryNodes{{{"description", NameMode::kOnce},
                                                {"version", NameMode::kOnce},
                                                {"memo", NameMode::kOnce},
                                                {"bank", NameMode::kAny}}};

// What the attributes of a bank say, and what is wrong with them.
struct BankAttributes {
  std::string type;
  std::string givenName;  // as messages show it
  std::string name;       // of the bank
  std::string format = "0";
  std::string problem;

  explicit BankAttributes(XmlNode bank) {
    Take(bank, "type", true, type) && Take(bank, "name", true, givenName) &&
        Take(bank, "format", false, format);
    name = givenName.substr(0, kLongestKeyword);
  }

 private:
  bool Take(XmlNode bank, std::string_view attribute, bool required, std::string& value) {
    std::optional<std::string> const found = bank.Attribute(attribute);
    if (!found && !required) return true;
    if (found && !found->empty()) {
      value = *found;
      return true;
    }
    problem = std::string(found ? "Empty" : "Missing") + " \"" + std::string(attribute) +
              "\" attribute on <bank> node";
    return false;
  }
};

// Makes the bank; gives what stands in the way, or nothing.
std::string MakeBank(LibMaint_i& owner, BankAttributes const& bank) {
  if (!bank.problem.empty()) return bank.problem;
  Held<IZelBankDef> const record(NewBank(bank.type.c_str()));
  if (!record) return "Bank type \"" + bank.type + "\" is not a recognized type";
  BankInfo const info(record.Get());
  std::int32_t const format = ParseInt(bank.format);
  if (format < 0 || format > info.formatCount) {
    return "Bank format \"" + bank.format + "\" in invalid - must be between 0 and " +
           std::to_string(info.formatCount);
  }
  std::string const title = "Bank \"" + bank.type + "-" + bank.givenName + "\" ";
  if (owner.BankExists(bank.type.c_str(), bank.name.c_str())) {
    return title + "already exists in this library";
  }
  if (!owner.CreateBank(bank.type.c_str(), bank.name.c_str(), format)) {
    return title + "cannot be created";
  }
  return {};
}

}  // namespace

// A document that cannot be opened ends the import whatever the verdict of the report. The entries
// that it made in the document stacks stay.
bool Import_i::OpenDocument(char const* path, bool replaceExisting) {
  run_.log.ClearLog();
  run_.replaceExisting = replaceExisting;
  std::string const fullPath = Documents().Push(TextOrEmpty(path));
  std::string text;
  platform::ReadResult const read = platform::ReadTextFile(fullPath, text);
  if (read == platform::ReadResult::kMissing) {
    run_.log.ReportError("Unable to locate XML document \"" + fullPath + "\"");
    return false;
  }
  if (read != platform::ReadResult::kRead || !document_.Load(text)) {
    run_.log.ReportError("Format error in XML document \"" + fullPath + "\"");
    return false;
  }
  run_.openPaths.assign(1, fullPath);
  return true;
}

bool Import_i::Import(char const* path, bool replaceExisting) {
  if (!OpenDocument(path, replaceExisting)) return false;
  XmlNode const root = document_.Root();
  if (SameText(root.Name(), "library")) {
    WalkLibrary(root);
  } else if (SameText(root.Name(), "bank")) {
    WalkBank(root);
  } else {
    run_.log.ReportError("Unrecognized root node <" + std::string(root.Name()) +
                         "> - Import allows either <library> or <bank>");
  }
  return !run_.log.HasErrors();
}

bool Import_i::ImportComponent(char const* path, char const* bankName, bool replaceExisting) {
  if (!OpenDocument(path, replaceExisting)) return false;
  XmlNode const root = document_.Root();
  if (SameText(root.Name(), "comp")) {
    ComponentImport(run_, TextOrEmpty(bankName).substr(0, kLongestKeyword)).ImportAlone(root);
  } else {
    run_.log.ReportError("Unrecognized root node <" + std::string(root.Name()) +
                         "> - ImportComponent allows only <comp>");
  }
  return !run_.log.HasErrors();
}

bool Import_i::WalkLibrary(XmlNode library) {
  ImportIterator_i walk = ImportIterator_i::OverChildren(run_, library, kLibraryNodes, "<library>",
                                                         ImportTags::kFollowed);
  LibFile_i& file = *run_.owner.Library();
  std::string scratch;
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    switch (match) {
      case kDescription:
        file.SetDescriptionAndVersion(DatedText(node.Text(scratch)).c_str(), nullptr);
        break;
      case kVersion: {
        std::string const version(node.Text(scratch).substr(0, kLongestVersion));
        file.SetDescriptionAndVersion(nullptr, version.c_str());
        break;
      }
      case kMemo: file.SetMemo(MemoText(node.Text(scratch)).c_str()); break;
      default:
        if (!WalkBank(node)) return false;
        break;
    }
  }
  return !walk.Aborted();
}

// A bank is always new. One that cannot be made is passed over whole, when the verdict lets the
// import go on.
bool Import_i::WalkBank(XmlNode bank) {
  run_.log.ClearTexts();
  BankAttributes const attributes(bank);
  std::string const problem = MakeBank(run_.owner, attributes);
  if (!problem.empty()) return run_.log.ReportError(problem);
  run_.log.ShowBankProgress(attributes.type, attributes.name);
  // Only the type in upper case goes by the form of components.
  if (attributes.type == kComponentBank) {
    return ComponentImport(run_, attributes.name).WalkBank(bank);
  }
  return ItemImport(run_, attributes.type, attributes.name, ParseInt(attributes.format))
      .WalkBank(bank);
}

}  // namespace zel
