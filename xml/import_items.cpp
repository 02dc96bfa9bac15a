#include "xml/import_items.h"

#include <algorithm>
#include <array>

#include "banks/catalogue.h"
#include "frame/ascii.h"
#include "frame/number_text.h"
#include "xml/import_text.h"
#include "zelaccess/Types.h"

namespace zel {

namespace {

enum BankNode : std::size_t { kMemo, kItem };
constexpr std::array<NameRow, 2> kBankNodes{{{"memo", NameMode::kOnce}, {"item", NameMode::kAny}}};

// Tags by key kind.
constexpr std::array<std::string_view, 3> kKeyTags{"keys", "numerickey", "characterkey"};

constexpr std::string_view kUndefinedMark = "-";

}  // namespace

ItemImport::ItemImport(ImportRun& run, std::string_view type, std::string_view name,
                       std::int32_t format)
    : run_(run),
      bankName_(name),
      record_(NewKnownBank(std::string(type).c_str())),
      info_(record_.Get()),
      fields_(record_.Get(), format),
      intValues_(fields_.largest),
      realValues_(fields_.largest),
      textValue_(fields_.largest) {
  for (FieldTag const& tag : fields_.tags) names_.push_back({tag.name, NameMode::kOnce});
  names_.push_back({kKeyTags[static_cast<std::size_t>(info_.keyKind)], NameMode::kOnce});
}

Verdict ItemImport::WalkBank(XmlNode bank) {
  ImportIterator_i walk =
      ImportIterator_i::OverChildren(run_, bank, kBankNodes, "<bank>", ImportTags::kFollowed);
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    if (match == kMemo) {
      run_.texts.Begin();
      run_.owner.SetBankMemo(info_.type, bankName_.c_str(), run_.Memo(node).c_str());
      if (run_.texts.Ended()) return Verdict::kStop;
    } else if (WalkItem(node) == Verdict::kStop) {
      return Verdict::kStop;
    }
  }
  return walk.Ending();
}

Verdict ItemImport::Report(std::string_view message) {
  verdict_ = run_.log.ReportError(message);
  return verdict_;
}

// An item whose walk was aborted is still written, with what was read so far, if its key is
// complete; only then does the result false end the bank. If a value is not on its list, the item
// is not written when the import must stop; if a number is refused, it is never written.
Verdict ItemImport::WalkItem(XmlNode item) {
  record_->Clear();
  run_.log.ClearTexts();
  run_.texts.Begin();
  verdict_ = Verdict::kGoOn;
  std::int32_t keyCount = 0;
  ImportIterator_i walk =
      ImportIterator_i::OverChildren(run_, item, names_, "<item>", ImportTags::kFollowed);
  XmlNode node;
  std::size_t match = 0;
  while (walk.NextNode(node, match)) {
    std::string_view const text = node.Text();
    if (match == fields_.tags.size()) {
      keyCount = ReadKey(node, text);
    } else if (ReadTag(fields_.tags[match], node, text) == Verdict::kStop) {
      return Verdict::kStop;
    }
    if (run_.texts.Ended()) return Verdict::kStop;
  }
  Verdict const verdict =
      run_.texts.Refused() ? run_.texts.LastVerdict() : StoreItem(item, keyCount);
  return walk.Aborted() ? Verdict::kStop : verdict;
}

// Returns whether the import may continue after the last report; true without a report.
Verdict ItemImport::StoreItem(XmlNode item, std::int32_t keyCount) {
  if (keyCount == 0) key_.ClearKey();
  if (keyCount < info_.minKeyWords || keyCount > info_.keyWords) {
    return Report(KeyCountProblem(keyCount));
  }
  LibMaint_i& owner = run_.owner;
  // The bank is new, so an existing item comes from the same documents.
  if ((!run_.replaceExisting || run_.texts.On()) &&
      owner.ItemExists(record_.Get(), bankName_.c_str(), &key_)) {
    if (!run_.replaceExisting) return Report("Item already exists in this bank");
    run_.texts.Warn(item, "replaces an item of the same key in the same documents");
  }
  if (!owner.WriteItem(record_.Get(), bankName_.c_str(), &key_)) return Report("");
  DocumentLedger::Arrived(item);
  return verdict_;
}

// Values that the text leaves out are not changed in the record.
Verdict ItemImport::ReadTag(FieldTag const& tag, XmlNode node, std::string_view text) {
  switch (tag.type) {
    case fieldInteger: ReadIntegers(tag, node, text); return Verdict::kGoOn;
    case fieldReal: ReadReals(tag, node, text); return Verdict::kGoOn;
    case fieldText: ReadText(tag, node, text); return Verdict::kGoOn;
    default: return ReadChoice(tag, text);
  }
}

template <typename Take>
void ItemImport::ForEachValue(FieldTag const& tag, XmlNode node, std::string_view text,
                              Take const& take) {
  Tokens tokens(text);
  std::string_view token;
  std::size_t found = 0;
  while ((found < tag.count || run_.texts.On()) && tokens.Next(token)) {
    if (found < tag.count) take(found, token);
    ++found;
  }
  run_.texts.CheckCount(node, found, tag.count);
}

void ItemImport::ReadIntegers(FieldTag const& tag, XmlNode node, std::string_view text) {
  record_->GetIntField(tag.name.c_str(), intValues_.data());
  ForEachValue(tag, node, text, [&](std::size_t i, std::string_view token) {
    intValues_[i] = token == kUndefinedMark ? gen_GetUndefInt() : run_.texts.Int(node, token);
  });
  record_->SetIntField(tag.name.c_str(), intValues_.data());
}

void ItemImport::ReadReals(FieldTag const& tag, XmlNode node, std::string_view text) {
  record_->GetDoubleField(tag.name.c_str(), realValues_.data());
  ForEachValue(tag, node, text, [&](std::size_t i, std::string_view token) {
    realValues_[i] = token == kUndefinedMark ? gen_GetUndefDouble() : run_.texts.Real(node, token);
  });
  record_->SetDoubleField(tag.name.c_str(), realValues_.data());
}

void ItemImport::ReadText(FieldTag const& tag, XmlNode node, std::string_view text) {
  run_.texts.CheckText(node, text, tag.count);
  CopyText(text, textValue_.data(), tag.count);
  record_->SetStringField(tag.name.c_str(), textValue_.data());
}

Verdict ItemImport::ReadChoice(FieldTag const& tag, std::string_view text) {
  auto const choice =
      std::find_if(tag.choices.begin(), tag.choices.end(),
                   [&](FieldTag::Choice const& c) { return SameText(c.name, text); });
  if (choice == tag.choices.end()) {
    return Report("\"" + std::string(text) + "\" is not a valid value for tag <" + tag.name + ">");
  }
  record_->GetIntField(tag.name.c_str(), intValues_.data());
  intValues_[0] = choice->value;
  record_->SetIntField(tag.name.c_str(), intValues_.data());
  return Verdict::kGoOn;
}

}  // namespace zel
