// Writes items of a bank of any type except pure components, by the field table of the type.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "frame/platform/text_file.h"
#include "maint/block_info.h"
#include "maint/lib_maint.h"
#include "store/progress_steps.h"
#include "xml/field_tags.h"

namespace zel {

class ItemExport {
 public:
  // `ids` caches the IDs of component numbers, also for the next bank.
  ItemExport(LibMaint_i& owner, platform::TextFile& out,
             std::unordered_map<std::int32_t, std::string>& ids, ProgressSteps* progress = nullptr);

  // Writes the fields of a format; the items are grouped by the length of their keys. Ends early if
  // the host cancels.
  void Write(IZelBankDef* record, std::string const& name, std::int32_t format);

 private:
  void PutKey(BankInfo const& info, std::int32_t const* words, std::int32_t length);
  void PutIds(std::int32_t const* words, std::int32_t length);
  // A field with the text around its values.
  struct Element {
    FieldTag const& tag;
    std::string start;
    std::string end;
  };

  void PutElement(IZelBankDef* record, Element const& element);
  void PutInteger(FieldTag const& tag, std::int32_t value);
  template <typename Value, typename IsUndefined, typename Put>
  void PutValues(Element const& element, std::vector<Value> const& values,
                 IsUndefined const& isUndefined, Put const& put);
  std::string const& IdOf(std::int32_t number);

  LibMaint_i& owner_;
  platform::TextFile& out_;
  std::unordered_map<std::int32_t, std::string>& ids_;
  ProgressSteps* progress_;  // null: nothing is reported
  std::vector<std::int32_t> intValues_;
  std::vector<double> realValues_;
  std::vector<char> textValue_;
};

}  // namespace zel
