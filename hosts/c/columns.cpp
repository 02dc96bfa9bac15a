// Fields of all items of a bank, read into arrays of the host.
#include <zelaccess/Columns.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/Types.h>
#include <zelaccess/Verify.h>

#include <algorithm>
#include <cstring>

#include "library.h"

namespace {

using zelc::Guarded;
using zelc::Need;
using zelc::Refusal;

struct Width {
  std::string field;  // in upper case
  std::size_t count;
};

// An array of the host.
struct HostColumn {
  std::size_t width;
  std::size_t length;
  double* reals;  // null for an array of something else
};

std::string Upper(std::string text) {
  for (char& letter : text) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  return text;
}

// The elements of each field of a type. Those of pure components are listed in Columns.h.
std::vector<Width> WidthsOf(std::string const& type, std::int32_t keyWords) {
  std::vector<Width> widths = {{"", static_cast<std::size_t>(keyWords)}};
  for (zel::desk::FieldInfo const& field : zel::desk::FieldsOfType(type)) {
    widths.push_back({Upper(field.name), static_cast<std::size_t>(std::max(1, field.count))});
  }
  if (widths.size() > 1) return widths;
  for (char const* const name : {"NUMBER", "CAS", "REFCODE", "KEEPFORMULA"}) {
    widths.push_back({name, 1});
  }
  for (auto const& [name, count] : {std::pair<char const*, std::size_t>{"IDS", 108},
                                    {"NAME", 41},
                                    {"FORMULA", 21},
                                    {"SMILES", 101}}) {
    widths.push_back({name, count});
  }
  std::int32_t count = 0;
  zel::ZelConstantInfo const* const constants = zel::GetConstantCatalogue(count);
  for (std::int32_t i = 0; i < count; ++i) widths.push_back({constants[i].keyword, 1});
  return widths;
}

}  // namespace

struct zel_columns {
  std::shared_ptr<zel::LibFile> file;  // ends after the reader, even if the host closes it before
  zel::Handle<zel::ColumnReader> reader;
  std::vector<Width> widths;
  std::vector<HostColumn> columns;
};

namespace {

std::size_t WidthOf(zel_columns const& columns, std::string const& field) {
  std::string const name = Upper(field);
  for (Width const& one : columns.widths) {
    if (one.field == name) return one.count;
  }
  throw Refusal(ZEL_UNKNOWN_WORD, "the bank has no field " + field);
}

// Adds an array with a function of the reader, which refuses fields of another type.
template <typename T, typename Add>
void AddColumn(zel_columns* columns, char const* field, T* array, std::size_t length, double* reals,
               Add const& add) {
  Need(columns, "columns");
  std::string const name = zelc::NeedText(field, "field");
  Need(array, "array");
  std::size_t const width = WidthOf(*columns, name);
  columns->columns.reserve(columns->columns.size() + 1);
  if (!add(*columns->reader, name.c_str())) {
    throw Refusal(ZEL_UNKNOWN_WORD, "the bank has no field " + name + " of this type");
  }
  columns->columns.push_back({width, length, reals});
}

void MarkUndefined(double* values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (zel::gen_IsUndefDouble(values[i])) values[i] = zelc::kNan;
  }
}

}  // namespace

zel_status zel_columns_open(zel_library* library, char const* type, char const* name,
                            zel_columns** columns) {
  return zelc::MakeHandle(columns, "columns", [&] {
    std::shared_ptr<zel::LibFile> file = Need(library, "library").file;
    zel::Handle<zel::ColumnReader> reader(
        zel::ColumnReader::NewColumnReader(file.get(), &Need(type, "type"), &Need(name, "name")));
    if (!reader) {
      throw Refusal(ZEL_MISSING_BANK, std::string("the library has no bank ") + type + ":" + name +
                                          " that can be read by columns");
    }
    std::vector<Width> widths = WidthsOf(type, reader->GetKeyWords());
    return std::unique_ptr<zel_columns>(
        new zel_columns{std::move(file), std::move(reader), std::move(widths), {}});
  });
}

zel_status zel_columns_close(zel_columns** columns) { return zelc::EndHandle(columns, "columns"); }

zel_status zel_columns_width(zel_columns* columns, char const* field, size_t* width) {
  return Guarded([&] {
    std::size_t const found = WidthOf(Need(columns, "columns"), zelc::NeedText(field, "field"));
    Need(width, "width") = found;
  });
}

zel_status zel_columns_add_keys(zel_columns* columns, int32_t* words, size_t length) {
  return Guarded([&] {
    AddColumn(columns, "", words, length, nullptr,
              [&](zel::ColumnReader& reader, char const*) { return reader.AddKeys(words); });
  });
}

zel_status zel_columns_add_reals(zel_columns* columns, char const* field, double* values,
                                 size_t length) {
  return Guarded([&] {
    AddColumn(columns, field, values, length, values,
              [&](auto& reader, char const* name) { return reader.AddReals(name, values); });
  });
}

zel_status zel_columns_add_integers(zel_columns* columns, char const* field, int32_t* values,
                                    size_t length) {
  return Guarded([&] {
    AddColumn(columns, field, values, length, nullptr,
              [&](auto& reader, char const* name) { return reader.AddIntegers(name, values); });
  });
}

zel_status zel_columns_add_texts(zel_columns* columns, char const* field, char* texts,
                                 size_t length) {
  return Guarded([&] {
    AddColumn(columns, field, texts, length, nullptr,
              [&](auto& reader, char const* name) { return reader.AddTexts(name, texts); });
  });
}

zel_status zel_columns_read(zel_columns* columns, size_t rows, size_t* read) {
  return Guarded([&] {
    zel_columns& walk = Need(columns, "columns");
    Need(read, "read");
    for (HostColumn const& column : walk.columns) {
      if (rows > column.length / column.width) {
        throw Refusal(ZEL_TOO_SMALL, "an array of " + std::to_string(column.length) +
                                         " elements has no room for " + std::to_string(rows) +
                                         " rows of " + std::to_string(column.width));
      }
    }
    *read = 0;
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    auto const done = static_cast<std::size_t>(
        walk.reader->Read(static_cast<std::int32_t>(std::min(rows, kMost))));
    for (HostColumn const& column : walk.columns) {
      if (column.reals != nullptr) MarkUndefined(column.reals, done * column.width);
    }
    *read = done;
  });
}
