#include "xml/import.h"

#include <array>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/number_text.h"
#include "maint/document_stack.h"
#include "xml/import_component.h"
#include "xml/import_items.h"
#include "xml/import_iterator.h"
#include "xml/import_text.h"

namespace zel {

namespace {

constexpr std::size_t kDescriptionSize = 101;
constexpr std::size_t kVersionSize = 13;

enum LibraryNode : std::size_t { kDescription, kVersion, kMemo, kBank };
constexpr std::array<NameRow, 4> kLibraryNodes{{{"description", NameMode::kOnce},
                                                {"version", NameMode::kOnce},
                                                {"memo", NameMode::kOnce},
                                                {"bank", NameMode::kAny}}};

}  // namespace

// The values of a bank's attributes, and what is wrong with them.
struct BankAttributes {
  std::string type;
  std::string givenName;  // as messages show it
  std::string name;       // of the bank
  std::string format = "0";
  std::string problem;

  explicit BankAttributes(XmlNode bank) {
    Take(bank, "type", true, type) && Take(bank, "name", true, givenName) &&
        Take(bank, "format", false, format);
    name = givenName.substr(0, kMostName);
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

std::string Import_i::MakeBank(XmlNode node, BankAttributes const& bank) {
  LibMaint_i& owner = run_.owner;
  if (!bank.problem.empty()) return bank.problem;
  FaceRef<IZelBankDef> const record(NewKnownBank(bank.type.c_str()));
  if (!record) return "Bank type \"" + bank.type + "\" is not a recognized type";
  BankInfo const info(record.Get());
  std::int32_t const format = run_.texts.Int(node, bank.format, "format");
  if (format < 0 || format > info.formatCount) {
    return "Bank format \"" + bank.format + "\" in invalid - must be between 0 and " +
           std::to_string(info.formatCount);
  }
  std::string const title = "Bank \"" + bank.type + "-" + bank.givenName + "\" ";
  if (owner.BankExists(bank.type.c_str(), bank.name.c_str())) {
    return title + "already exists in this library";
  }
  run_.texts.CheckText(node, bank.givenName, kMostName + 1, "name");
  if (run_.texts.Refused()) return {};
  if (!owner.CreateBank(bank.type.c_str(), bank.name.c_str(), format)) {
    return title + "cannot be created";
  }
  return {};
}

// Opens the document and walks it from its root. One that cannot be opened ends the import,
// whatever the report returns. The entries that it made in the document stacks remain.
template <typename Walk>
bool Import_i::Run(char const* path, bool replaceExisting, Walk const& walk) {
  run_.log.ClearLog();
  run_.replaceExisting = replaceExisting;
  std::string const fullPath = Documents().Push(TextOrEmpty(path));
  std::shared_ptr<ReadDocument> document;
  std::string problem;
  run_.progress.Expect(fullPath);
  try {
    if (run_.Open(fullPath, document, problem) != ImportRun::Opened::kOpened) {
      if (!run_.progress.IsCancelled()) run_.log.ReportError(problem);
    } else {
      walk(document->document.Root());
    }
  } catch (XmlDocumentChanged const& changed) {
    run_.ReportChange(changed);
  }
  run_.Finish();
  return !run_.log.HasErrors();
}

bool Import_i::Import(char const* path, bool replaceExisting) {
  return Run(path, replaceExisting, [&](XmlNode root) {
    if (SameText(root.Name(), "library")) {
      WalkLibrary(root);
    } else if (SameText(root.Name(), "bank")) {
      WalkBank(root);
    } else {
      run_.log.ReportError("Unrecognized root node <" + std::string(root.Name()) +
                           "> - Import allows either <library> or <bank>");
    }
  });
}

bool Import_i::ImportComponent(char const* path, char const* bankName, bool replaceExisting) {
  return Run(path, replaceExisting, [&](XmlNode root) {
    if (SameText(root.Name(), "comp")) {
      ComponentImport(run_, TextOrEmpty(bankName).substr(0, kMostName)).ImportAlone(root);
    } else {
      run_.log.ReportError("Unrecognized root node <" + std::string(root.Name()) +
                           "> - ImportComponent allows only <comp>");
    }
  });
}

Verdict Import_i::WalkLibrary(XmlNode library) {
  ImportIterator_i walk = ImportIterator_i::OverChildren(run_, library, kLibraryNodes, "<library>",
                                                         ImportTags::kFollowed);
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    Verdict const verdict = match == kBank ? WalkBank(node) : TakeText(node, match);
    if (verdict == Verdict::kStop) return verdict;
  }
  return walk.Ending();
}

// Reads one of the library's own texts.
Verdict Import_i::TakeText(XmlNode node, std::size_t match) {
  LibFile_i& file = *run_.owner.Library();
  TextChecks& checks = run_.texts;
  std::string_view const text = node.Text();
  checks.Begin();
  if (match == kMemo) {
    file.SetMemo(run_.Memo(node).c_str());
  } else if (match == kDescription) {
    std::string const dated = DatedText(text);
    checks.CheckKept(node, DatedText(text, text.npos), TextChecks::Packed(dated, kDescriptionSize));
    file.SetDescriptionAndVersion(dated.c_str(), nullptr);
  } else {
    checks.CheckText(node, text, kVersionSize);
    std::string const version(text.substr(0, kVersionSize - 1));
    file.SetDescriptionAndVersion(nullptr, version.c_str());
  }
  DocumentLedger::Arrived(node);
  return checks.Ended() ? Verdict::kStop : Verdict::kGoOn;
}

// A bank must be new. One that cannot be made is skipped completely if the import may continue.
Verdict Import_i::WalkBank(XmlNode bank) {
  run_.log.ClearTexts();
  run_.texts.Begin();
  BankAttributes const attributes(bank);
  std::string const problem = MakeBank(bank, attributes);
  if (!problem.empty()) return run_.log.ReportError(problem);
  if (run_.texts.Refused()) return run_.texts.LastVerdict();
  DocumentLedger::Arrived(bank);
  run_.log.ShowBankProgress(attributes.type, attributes.name);
  // Only the type in upper case is read as a bank of components.
  if (attributes.type == kPureComponentType) {
    return ComponentImport(run_, attributes.name).WalkBank(bank);
  }
  return ItemImport(run_, attributes.type, attributes.name, ParseInt(attributes.format))
      .WalkBank(bank);
}

}  // namespace zel
