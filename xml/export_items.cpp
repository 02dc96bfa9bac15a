#include "xml/export_items.h"

#include <algorithm>

#include "frame/limits.h"
#include "store/format.h"
#include "store/key.h"
#include "store/packed_text.h"
#include "xml/text_out.h"
#include "zelaccess/Types.h"

namespace zel {

namespace {

enum KeyKind : std::int32_t { kComponents = 0, kNumbers = 1, kCharacters = 2 };

// The number of key words to write: a component with itself is written as one, and words that were
// left out are not written. Character keys are always written completely.
std::int32_t LengthOf(BankInfo const& info, std::int32_t* words) {
  std::int32_t length = info.keyWords;
  if (info.minKeyWords >= info.keyWords || info.keyKind == kCharacters) return length;
  if (info.keyWords == 2 && words[0] == words[1]) words[1] = Key_i::kWildcard;
  while (length > info.minKeyWords && words[length - 1] == Key_i::kWildcard) --length;
  return length;
}

}  // namespace

ItemExport::ItemExport(LibMaint_i& owner, platform::TextFile& out,
                       std::unordered_map<std::int32_t, std::string>& ids, ProgressSteps* progress)
    : owner_(owner), out_(out), ids_(ids), progress_(progress) {}

void ItemExport::Write(IZelBankDef* record, std::string const& name, std::int32_t recordFormat) {
  BankInfo const info(record);
  FieldTags const fields(record, recordFormat);
  std::vector<Element> elements;
  for (FieldTag const& tag : fields.tags) {
    elements.push_back({tag, "    <" + tag.name + ">", " </" + tag.name + ">\n"});
  }
  intValues_.resize(fields.largest);
  realValues_.resize(fields.largest);
  textValue_.resize(fields.largest);
  for (std::int32_t length = info.minKeyWords; length <= info.keyWords; ++length) {
    std::int32_t words[format::kMaxKeyWords] = {};
    if (!owner_.BeginItemWalk(info.type, name.c_str())) return;
    while (owner_.NextItem(words, record)) {
      if (LengthOf(info, words) != length) continue;
      if (progress_ != nullptr && !progress_->DidItem(1.0)) return;
      out_ << "  <item>\n";
      PutKey(info, words, length);
      for (Element const& element : elements) PutElement(record, element);
      out_ << "  </item>\n";
    }
  }
}

void ItemExport::PutKey(BankInfo const& info, std::int32_t const* words, std::int32_t length) {
  if (length == 0) {
    out_ << "    <!-- no key -->\n";
    return;
  }
  if (info.keyKind == kCharacters) {
    char text[4 * format::kMaxKeyWords + 1];
    WordsToText(words, length, text);
    out_ << "    <characterkey> " << text << " </characterkey>\n";
    return;
  }
  out_ << (info.keyKind == kNumbers ? "    <numerickey>" : "    <keys>");
  for (std::int32_t i = 0; i < length; ++i) {
    out_ << " ";
    if (info.keyKind == kNumbers) {
      out_ << words[i];
    } else {
      out_ << Eight{words[i]};
    }
  }
  out_ << (info.keyKind == kNumbers ? " </numerickey>\n" : " </keys>\n");
  if (info.keyKind == kComponents) PutIds(words, length);
}

// Writes a comment that shows readers which components are meant.
void ItemExport::PutIds(std::int32_t const* words, std::int32_t length) {
  constexpr std::size_t kWidth = 9;
  std::string text;
  bool any = false;
  for (std::int32_t i = 0; i < length; ++i) {
    std::string const& id = IdOf(words[i]);
    any = any || !id.empty();
    text += id;
    text.append(kWidth - std::min(id.size(), kWidth), ' ');
  }
  if (any) out_ << "    <!--   " << text << "    -->\n";
}

std::string const& ItemExport::IdOf(std::int32_t number) {
  auto const known = ids_.find(number);
  if (known != ids_.end()) return known->second;
  char id[kMostName + 1] = {};
  try {
    owner_.GetIdOfNumber(number, id);
  } catch (unsigned long const address) {
    if (!owner_.TellUnread("component " + std::to_string(number), address)) throw;
  }
  return ids_.emplace(number, id).first->second;
}

// Writes the values up to the last one that is defined; nothing if the first one is undefined.
template <typename Value, typename IsUndefined, typename Put>
void ItemExport::PutValues(Element const& element, std::vector<Value> const& values,
                           IsUndefined const& isUndefined, Put const& put) {
  if (isUndefined(values[0])) return;
  std::size_t count = element.tag.count;
  while (isUndefined(values[count - 1])) --count;
  out_ << element.start;
  for (std::size_t i = 0; i < count; ++i) {
    out_.Put(' ');
    if (isUndefined(values[i])) {
      out_.Put('-');
    } else {
      put(values[i]);
    }
  }
  out_ << element.end;
}

void ItemExport::PutInteger(FieldTag const& tag, std::int32_t value) {
  auto const choice = std::find_if(tag.choices.begin(), tag.choices.end(),
                                   [&](auto const& row) { return row.value == value; });
  if (choice != tag.choices.end()) {
    out_ << choice->name;
  } else {
    out_ << value;
  }
}

void ItemExport::PutElement(IZelBankDef* record, Element const& element) {
  char const* name = element.tag.name.c_str();
  switch (element.tag.type) {
    case fieldText:
      record->GetStringField(name, textValue_.data());
      if (textValue_[0] == '\0') return;
      out_ << element.start << " " << textValue_.data() << element.end;
      return;
    case fieldReal:
      record->GetDoubleField(name, realValues_.data());
      PutValues(element, realValues_, gen_IsUndefDouble,
                [this](double value) { out_ << Seven{value}; });
      return;
    default:
      record->GetIntField(name, intValues_.data());
      PutValues(element, intValues_, gen_IsUndefInt,
                [&](std::int32_t value) { PutInteger(element.tag, value); });
      return;
  }
}

}  // namespace zel
