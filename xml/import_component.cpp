#include "xml/import_component.h"

#include <array>
#include <charconv>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/number_text.h"
#include "purecomp/tables.h"
#include "xml/code_words.h"
#include "xml/import_text.h"

namespace zel {

namespace {

// The bank of this name holds formulas of another kind, which are not checked.
constexpr std::string_view kOtherFormulas = "OLILIB";

enum BankNode : std::size_t { kMemo, kComponent };
constexpr std::array<NameRow, 2> kBankNodes{{{"memo", NameMode::kOnce}, {"comp", NameMode::kAny}}};

enum Element : std::size_t { kId, kFlags, kSmiles, kStructure, kProperty, kCorrelation };
constexpr std::array<NameRow, 6> kElements{{{"id", NameMode::kOnce},
                                            {"flags", NameMode::kOnce},
                                            {"smiles", NameMode::kOnce},
                                            {"structure", NameMode::kAny},
                                            {"property", NameMode::kAny},
                                            {"correlation", NameMode::kAny}}};

constexpr std::array<NameRow, 1> kFlagsAttributes{{{"phase", NameMode::kOnce}}};
constexpr std::array<NameRow, 1> kStructureAttributes{{{"model", NameMode::kOnce}}};

constexpr std::int32_t kMostGroups = 10;

// Removes the number at the start of a text; false, with the value unchanged, if the text does not
// start with one.
bool TakeInt(std::string_view& text, std::int32_t& value) {
  std::size_t const start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return false;
  std::size_t const signs = text[start] == '+' || text[start] == '-' ? 1 : 0;
  std::size_t end = start + signs;
  while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
  if (end == start + signs) return false;
  value = ParseInt(text.substr(start, end - start));
  text.remove_prefix(end);
  return true;
}

// Reads `number(count)`; a missing part leaves its value unchanged.
void TakeGroup(std::string_view text, std::int32_t& number, std::int32_t& count) {
  if (!TakeInt(text, number) || text.empty() || text.front() != '(') return;
  text.remove_prefix(1);
  TakeInt(text, count);
}

}  // namespace

ComponentImport::ComponentImport(ImportRun& run, std::string_view bankName)
    : run_(run),
      bankName_(bankName),
      checksFormulas_(!SameText(bankName, kOtherFormulas)),
      record_(NewPureComp()),
      component_(FaceRef<IZelPureComp>::Of(record_.Get(), IID_IZelPureComp)) {
  if (!component_) throw std::bad_alloc();
}

Verdict ComponentImport::Unrecognized(std::string_view what, std::string_view word,
                                      std::string_view kind, std::string_view name) {
  std::string text = "Unrecognized " + std::string(what) + " \"" + std::string(word) + "\" found";
  if (!kind.empty()) text += " for " + std::string(kind) + " \"" + std::string(name) + "\"";
  return Report(text);
}

Verdict ComponentImport::WalkBank(XmlNode bank) {
  ImportIterator_i walk = ImportIterator_i::OverChildren(run_, bank, kBankNodes, "component <bank>",
                                                         ImportTags::kFollowed);
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    if (match == kMemo) {
      run_.texts.Begin();
      run_.owner.SetBankMemo(kPureComponentType, bankName_.c_str(), run_.Memo(node).c_str());
      if (run_.texts.Ended()) return Verdict::kStop;
    } else if (WalkComponent(node) == Verdict::kStop) {
      return Verdict::kStop;
    }
  }
  return walk.Ending();
}

Verdict ComponentImport::ImportAlone(XmlNode component) {
  char const* bank = bankName_.c_str();
  if (!run_.owner.BankExists(kPureComponentType, bank) &&
      !run_.owner.CreateBank(kPureComponentType, bank, 0)) {
    return Report("Bank \"PURECOMP-" + bankName_ + "\" cannot be found or created");
  }
  return WalkComponent(component);
}

Verdict ComponentImport::WalkComponent(XmlNode component) {
  record_->Clear();
  run_.log.ClearTexts();
  number_ = 0;
  seen_.clear();
  identityRefused_ = false;
  ImportIterator_i walk =
      ImportIterator_i::OverChildren(run_, component, kElements, "<comp>", ImportTags::kUnknown);
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    if (ReadElement(match, node) == Verdict::kStop) return Verdict::kStop;
  }
  return walk.Aborted() ? Verdict::kStop : StoreComponent(component);
}

// A component without a number is dropped without a message, but still ends the bank.
Verdict ComponentImport::StoreComponent(XmlNode component) {
  if (number_ == 0) return Verdict::kStop;
  if (identityRefused_) return Verdict::kGoOn;
  char const* bank = bankName_.c_str();
  key_.SetKey(static_cast<long>(number_));
  if (!run_.replaceExisting && run_.owner.ItemExists(record_.Get(), bank, &key_)) {
    return Report("Library number (" + std::to_string(number_) + ") already exists in this bank");
  }
  if (!run_.owner.WriteItem(record_.Get(), bank, &key_)) return Report("");
  DocumentLedger::Arrived(component);
  return Verdict::kGoOn;
}

void ComponentImport::CheckFirst(XmlNode node, std::string_view kind, std::uint32_t index,
                                 std::string_view key) {
  if (!run_.texts.On()) return;
  bool seen = !seen_.emplace(kind, index).second;
  run_.texts.CheckOnce(node, key, seen);
}

Verdict ComponentImport::ReadElement(std::size_t element, XmlNode node) {
  run_.texts.Begin();
  switch (element) {
    case kId: return ReadIdentity(node);
    case kFlags: return ReadPhase(node);
    case kSmiles: return ReadSmiles(node);
    case kStructure: return ReadStructure(node);
    case kProperty: return ReadProperty(node);
    default: return ReadCorrelation(node);
  }
}

Verdict ComponentImport::ReadPhase(XmlNode node) {
  ImportIterator_i walk =
      ImportIterator_i::OverAttributes(run_, node, kFlagsAttributes, "component <flags>");
  std::int32_t phase = 0;
  component_->GetPhase(&phase);
  XmlNode attribute;
  std::size_t match = 0;
  while (walk.NextNode(attribute, match)) {
    std::string_view const word = attribute.Value();
    if (!TakeCode(kPhaseWords, word, phase) &&
        Report("Unrecognized value \"" + std::string(word) + "\" found for \"phase\" attribute") ==
            Verdict::kStop) {
      return Verdict::kStop;
    }
  }
  if (walk.Aborted()) return Verdict::kStop;
  component_->SetPhase(phase);
  return Verdict::kGoOn;
}

Verdict ComponentImport::ReadSmiles(XmlNode node) {
  char text[101];
  run_.texts.CheckText(node, node.Text(), sizeof text);
  if (run_.texts.Refused()) return run_.texts.LastVerdict();
  CopyText(node.Text(), text, sizeof text);
  component_->SetSmiles(text);
  return Verdict::kGoOn;
}

// A second element of one model adds to the count of the first, but its groups replace the first
// ones from the start.
Verdict ComponentImport::ReadStructure(XmlNode node) {
  ImportIterator_i walk =
      ImportIterator_i::OverAttributes(run_, node, kStructureAttributes, "component <structure>");
  std::uint32_t model = 0;
  XmlNode attribute;
  std::size_t match = 0;
  while (walk.NextNode(attribute, match)) {
    std::string_view const word = attribute.Value();
    model = 1;  // model 0 has no name in documents
    while (model < kModelKeywords.size() && !SameText(kModelKeywords[model], word)) ++model;
    if (model == kModelKeywords.size()) {
      return Report("Unrecognized value \"" + std::string(word) +
                    "\" found for component structure \"model\" attribute");
    }
  }
  if (walk.Aborted()) return Verdict::kStop;
  std::int32_t count = 0;
  std::array<std::int32_t, kMostGroups> ids{};
  std::array<std::int32_t, kMostGroups> counts{};
  component_->GetRawStructure(model, &count, ids.data(), counts.data());
  Tokens tokens(node.Text());
  std::string_view token;
  std::size_t found = 0;
  CheckFirst(node, "structure", model, kModelKeywords[model]);
  while ((found < ids.size() || run_.texts.On()) && tokens.Next(token)) {
    if (found < ids.size()) {
      run_.texts.CheckGroup(node, token);
      TakeGroup(token, ids[found], counts[found]);
      ++count;
    }
    ++found;
  }
  run_.texts.CheckCount(node, found, ids.size());
  if (run_.texts.Refused()) return run_.texts.LastVerdict();
  component_->SetStructure(model, std::min(count, kMostGroups), ids.data(), counts.data());
  return Verdict::kGoOn;
}

}  // namespace zel
