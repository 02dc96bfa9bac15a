// Reads the items of one bank of any type except pure components, by the field table of the type.
//
// All items of a bank use the same record, key and buffers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maint/block_info.h"
#include "store/key.h"
#include "xml/field_tags.h"
#include "xml/import_iterator.h"

namespace zel {

class ItemImport {
 public:
  // `format` is the one with which the bank was made; 0 means all fields of the highest format.
  ItemImport(ImportRun& run, std::string_view type, std::string_view name, std::int32_t format);

  // Reads the memo and the items of a bank.
  Verdict WalkBank(XmlNode bank);

 private:
  Verdict WalkItem(XmlNode item);
  Verdict StoreItem(XmlNode item, std::int32_t keyCount);
  Verdict Report(std::string_view message);

  // import_keys.cpp: read the key from its text; return the number of keys entered.
  std::int32_t ReadKey(XmlNode node, std::string_view text);
  std::int32_t ReadComponents(std::string_view text);
  std::int32_t ReadNumbers(XmlNode node, std::string_view text);
  std::int32_t ReadWord(XmlNode node, std::string_view text);
  std::string KeyCountProblem(std::int32_t keyCount) const;

  Verdict ReadTag(FieldTag const& tag, XmlNode node, std::string_view text);
  void ReadIntegers(FieldTag const& tag, XmlNode node, std::string_view text);
  void ReadReals(FieldTag const& tag, XmlNode node, std::string_view text);
  void ReadText(FieldTag const& tag, XmlNode node, std::string_view text);
  // Calls `take` for each value of a text that has a place, with the place.
  template <typename Take>
  void ForEachValue(FieldTag const& tag, XmlNode node, std::string_view text, Take const& take);
  Verdict ReadChoice(FieldTag const& tag, std::string_view text);

  ImportRun& run_;
  std::string bankName_;
  FaceRef<IZelBankDef> record_;
  BankInfo info_;
  Key_i key_;
  FieldTags fields_;
  std::vector<NameRow> names_;  // of the tags, followed by that of the key
  std::vector<std::int32_t> intValues_;
  std::vector<double> realValues_;
  std::vector<char> textValue_;
  Verdict verdict_ = Verdict::kGoOn;  // of the last report on the item
};

}  // namespace zel
