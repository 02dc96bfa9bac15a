#include "columns.h"

#include <sys/mman.h>
#include <zelaccess/Columns.h>
#include <zelaccess/Handles.h>
#include <zelaccess/Types.h>

#include <algorithm>
#include <limits>

namespace zelpython {
namespace {

// Rows that are read at once: their values are still in the processor's cache when they are moved
// to their place.
constexpr std::int32_t kPart = 512;

// Asks the system for large pages, as numpy does for its arrays: most of the time of writing a
// large array for the first time is that of getting its pages.
void AskForLargePages(void* memory, std::size_t bytes) {
#if defined(MADV_HUGEPAGE)
  constexpr std::size_t kLarge = std::size_t{1} << 22U;
  constexpr std::size_t kPage = 4096;
  if (bytes < kLarge) return;
  std::size_t const before = kPage - reinterpret_cast<std::uintptr_t>(memory) % kPage;
  ::madvise(static_cast<char*>(memory) + before, bytes - before, MADV_HUGEPAGE);
#endif
}

template <typename T>
void Prepare(ColumnOf<T>& column, std::size_t rows) {
  auto const count = static_cast<std::size_t>(column.count);
  column.values.reset(new T[std::max<std::size_t>(1, rows * count)]);
  AskForLargePages(column.values.get(), rows * count * sizeof(T));
  column.part.reset(new T[kPart * count]);
}

// Moves the rows that were read to their place.
template <typename T>
void Place(std::vector<ColumnOf<T>>& columns, std::size_t first, std::size_t rows) {
  for (ColumnOf<T>& column : columns) {
    auto const count = static_cast<std::size_t>(column.count);
    T const* const from = column.part.get();
    T* const to = column.values.get() + first * count;
    if constexpr (std::is_same_v<T, double>) {
      constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
      for (std::size_t i = 0; i < rows * count; ++i) {
        to[i] = zel::gen_IsUndefDouble(from[i]) ? kNan : from[i];
      }
    } else {
      std::copy_n(from, rows * count, to);
    }
    if constexpr (std::is_same_v<T, std::int32_t>) {
      bool isUndefined = false;
      for (std::size_t i = 0; i < rows * count; ++i) isUndefined |= zel::gen_IsUndefInt(from[i]);
      column.hasUndefined = column.hasUndefined || isUndefined;
    }
  }
}

void PlaceKeys(std::vector<ColumnOf<std::int32_t>>& keys, std::int32_t const* words,
               std::size_t first, std::size_t rows) {
  for (std::size_t k = 0; k < keys.size(); ++k) {
    std::int32_t* const to = keys[k].values.get() + first;
    for (std::size_t i = 0; i < rows; ++i) to[i] = words[i * keys.size() + k];
  }
}

void AddColumns(zel::ColumnReader& reader, ReadColumns& columns,
                std::vector<ColumnWish> const& wishes) {
  for (auto const& [name, kind, count] : wishes) {
    bool isThere = false;
    if (kind == "number") {
      columns.reals.push_back({name, count});
      Prepare(columns.reals.back(), columns.rows);
      isThere = reader.AddReals(name.c_str(), columns.reals.back().part.get());
    } else if (kind == "text") {
      columns.texts.push_back({name, count});
      Prepare(columns.texts.back(), columns.rows);
      isThere = reader.AddTexts(name.c_str(), columns.texts.back().part.get());
    } else {
      columns.integers.push_back({name, count});
      Prepare(columns.integers.back(), columns.rows);
      isThere = reader.AddIntegers(name.c_str(), columns.integers.back().part.get());
    }
    if (!isThere) throw desk::UnknownWord("", "there is no field " + name);
  }
}

// Whole numbers as doubles, with NaN for undefined ones.
ColumnOf<double> WithNan(ColumnOf<std::int32_t> const& column, std::size_t rows) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  std::size_t const count = rows * static_cast<std::size_t>(column.count);
  ColumnOf<double> made{column.name, column.count};
  made.values.reset(new double[std::max<std::size_t>(1, count)]);
  std::int32_t const* const from = column.values.get();
  for (std::size_t i = 0; i < count; ++i) {
    made.values[i] = zel::gen_IsUndefInt(from[i]) ? kNan : from[i];
  }
  return made;
}

// An array that owns its values.
template <typename T>
py::object ToArray(ColumnOf<T> column, std::size_t rows) {
  if constexpr (std::is_same_v<T, std::int32_t>) {
    if (column.hasUndefined) return ToArray(WithNan(column, rows), rows);
  }
  T* const values = column.values.release();
  py::capsule const owner(values, [](void* memory) { delete[] static_cast<T*>(memory); });
  auto const length = static_cast<py::ssize_t>(rows);
  if constexpr (std::is_same_v<T, char>) {
    py::dtype const texts("S" + std::to_string(column.count));
    return py::array(texts, {length}, {py::ssize_t{column.count}}, values, owner);
  } else {
    if (column.count == 1) return py::array_t<T>({length}, values, owner);
    return py::array_t<T>({length, py::ssize_t{column.count}}, values, owner);
  }
}

template <typename T>
void Append(std::vector<ColumnOf<T>>& columns, std::size_t rows, py::list& all) {
  for (ColumnOf<T>& column : columns) {
    py::str const name = Str(column.name);
    all.append(py::make_tuple(name, ToArray(std::move(column), rows)));
  }
}

}  // namespace

double NumberOrNan(double value) {
  return zel::gen_IsUndefDouble(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

ReadColumns ColumnsOf(desk::LibraryFile const& library, std::string const& type,
                      std::string const& name, std::vector<ColumnWish> const& wishes,
                      std::int64_t rows) {
  ReadColumns columns;
  columns.rows = static_cast<std::size_t>(rows);
  zel::Handle<zel::ColumnReader> const reader(
      zel::ColumnReader::NewColumnReader(&library.File(), type.c_str(), name.c_str()));
  if (!reader) throw desk::Error("", "bank " + type + ":" + name + " cannot be read by columns");
  auto const words = static_cast<std::size_t>(reader->GetKeyWords());
  for (std::size_t k = 0; k < words; ++k) {
    columns.keys.push_back({"key " + std::to_string(k + 1)});
    Prepare(columns.keys.back(), columns.rows);
  }
  std::vector<std::int32_t> keys(words * kPart);
  reader->AddKeys(keys.data());
  AddColumns(*reader, columns, wishes);
  std::size_t done = 0;
  while (done < columns.rows) {
    std::size_t const most = std::min<std::size_t>(kPart, columns.rows - done);
    auto const read = static_cast<std::size_t>(reader->Read(static_cast<std::int32_t>(most)));
    if (read == 0) break;
    PlaceKeys(columns.keys, keys.data(), done, read);
    Place(columns.reals, done, read);
    Place(columns.integers, done, read);
    Place(columns.texts, done, read);
    done += read;
  }
  if (done == columns.rows && reader->Read(kPart) != 0) {  // the bank has grown
    std::int64_t const now = library.Bank(type + ":" + name).items;
    return ColumnsOf(library, type, name, wishes, now);
  }
  columns.rows = done;
  return columns;
}

py::list ToPython(ReadColumns columns) {
  py::list all;
  Append(columns.keys, columns.rows, all);
  Append(columns.reals, columns.rows, all);
  Append(columns.integers, columns.rows, all);
  Append(columns.texts, columns.rows, all);
  return all;
}

}  // namespace zelpython
