// Libraries in order of preference, and the items that they return.
#include "search.h"

using zelc::CopyText;
using zelc::Guarded;
using zelc::MakeHandle;
using zelc::Need;
using zelc::NeedText;
using zelc::Refusal;

namespace desk = zel::desk;

namespace {

std::unique_ptr<zel_item> AsHandle(desk::Item item) {
  return std::unique_ptr<zel_item>(new zel_item{std::move(item)});
}

std::string const& TextOf(desk::Item const& item, std::int32_t which) {
  switch (which) {
    case ZEL_TEXT_SOURCE: return item.Source();
    case ZEL_TEXT_CITATION: return item.Citation();
    case ZEL_TEXT_DOI: return item.Doi();
    case ZEL_TEXT_EQUATION: return item.Equation();
    default: throw Refusal(ZEL_BAD_ARGUMENT, "an item has no such text");
  }
}

std::string const& TextOf(desk::ItemField const& field, std::int32_t which) {
  switch (which) {
    case ZEL_TEXT_VALUE: return field.text;
    case ZEL_TEXT_LABEL: return field.label;
    case ZEL_TEXT_UNIT: return field.unit;
    case ZEL_TEXT_MEANING: return field.meaning;
    default: throw Refusal(ZEL_BAD_ARGUMENT, "a field has no such text");
  }
}

desk::ItemField const& FieldOf(zel_item const* item, char const* field) {
  return Need(item, "item").item.Field(NeedText(field, "field"));
}

desk::Table FieldsOf(desk::Item const& item) {
  desk::Table fields =
      zelc::EmptyTable("fields", {"name", "label", "unit", "count", "value", "text", "meaning"});
  for (desk::ItemField const& field : item.Fields()) {
    desk::Cell first;
    if (!field.values.empty() && field.values[0] == field.values[0]) first = field.values[0];
    fields.Add(field.name, field.label, field.unit, static_cast<std::int64_t>(field.values.size()),
               first, field.text, field.meaning);
  }
  return fields;
}

}  // namespace

zel_status zel_search_open(char const* const* libraries, size_t count,
                           zel_search_options const* options, zel_search** search) {
  return MakeHandle(search, "search", [&] {
    zelc::Start();
    zel_search_options const given = zelc::OptionsOf(options);
    desk::LibrariesOptions how;
    how.names = zelc::TextOrEmpty(given.names);
    how.acceptIdentity = given.accept_identity != 0;
    how.waitSeconds = zelc::NeedSeconds(given.wait_seconds, "wait_seconds");
    how.path = zelc::NeedWords(given.path, given.path_count, "path");
    return std::unique_ptr<zel_search>(
        new zel_search{desk::Libraries(zelc::NeedWords(libraries, count, "libraries"), how)});
  });
}

zel_status zel_search_path(zel_table** table) {
  return MakeHandle(table, "table", [] {
    desk::Table folders = zelc::EmptyTable("search path", {"folder"});
    for (std::string const& folder : desk::SearchPath()) folders.Add(folder);
    return zelc::AsHandle(std::move(folders));
  });
}

zel_status zel_search_close(zel_search** search) { return zelc::EndHandle(search, "search"); }

zel_status zel_search_components(zel_search* search, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    desk::Table list =
        zelc::EmptyTable("components", {"number", "CAS number", "ID", "name", "formula"});
    for (desk::Identity const& one : Need(search, "search").libraries.Components()) {
      list.Add(std::int64_t{one.number}, one.cas, one.FirstId(), one.name, one.formula);
    }
    return zelc::AsHandle(std::move(list));
  });
}

zel_status zel_search_component(zel_search* search, char const* word, zel_component** component) {
  return MakeHandle(component, "component", [&] {
    desk::Libraries const& libraries = Need(search, "search").libraries;
    return std::unique_ptr<zel_component>(
        new zel_component{libraries.Component(NeedText(word, "word"))});
  });
}

zel_status zel_search_pair(zel_search* search, char const* type, char const* one, char const* other,
                           zel_item** item) {
  return MakeHandle(item, "item", [&] {
    desk::Libraries const& libraries = Need(search, "search").libraries;
    return AsHandle(
        libraries.Pair(NeedText(type, "type"), NeedText(one, "one"), NeedText(other, "other")));
  });
}

zel_status zel_search_item(zel_search* search, char const* type, char const* const* words,
                           size_t count, zel_item** item) {
  return MakeHandle(item, "item", [&] {
    desk::Libraries const& libraries = Need(search, "search").libraries;
    return AsHandle(libraries.Item(NeedText(type, "type"), zelc::NeedWords(words, count, "words")));
  });
}

zel_status zel_item_free(zel_item** item) { return zelc::EndHandle(item, "item"); }

zel_status zel_item_text(zel_item const* item, int32_t which, char* text, size_t size,
                         size_t* length) {
  return Guarded([&] { CopyText(TextOf(Need(item, "item").item, which), text, size, length); });
}

zel_status zel_item_fields(zel_item const* item, zel_table** table) {
  return MakeHandle(table, "table",
                    [&] { return zelc::AsHandle(FieldsOf(Need(item, "item").item)); });
}

zel_status zel_item_value(zel_item const* item, char const* field, double* value) {
  return Guarded([&] {
    std::optional<double> const found = Need(item, "item").item.Value(NeedText(field, "field"));
    if (!found) throw Refusal(ZEL_NO_VALUE, "the field ", field, " has no number");
    Need(value, "value") = *found;
  });
}

zel_status zel_item_values(zel_item const* item, char const* field, double* values, size_t size,
                           size_t* count) {
  return Guarded([&] {
    std::vector<double> const& found = FieldOf(item, field).values;
    zelc::NeedArray(values, size, "values");
    if (count != nullptr) *count = found.size();
    if (values == nullptr) return;
    if (size < found.size()) {
      throw Refusal(ZEL_TOO_SMALL, "the field has " + std::to_string(found.size()) +
                                       " values, the array room for " + std::to_string(size));
    }
    for (std::size_t i = 0; i < found.size(); ++i) values[i] = found[i];
  });
}

zel_status zel_item_field_text(zel_item const* item, char const* field, int32_t which, char* text,
                               size_t size, size_t* length) {
  return Guarded([&] { CopyText(TextOf(FieldOf(item, field), which), text, size, length); });
}
