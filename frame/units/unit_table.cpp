#include "frame/units/unit_table.h"

#include <cmath>
#include <cstddef>
#include <system_error>

#include "frame/ascii.h"
#include "frame/number_text.h"

namespace zel {
namespace {

using Error = UnitTableError;

// Bounds of a table, several times what a real one needs.
constexpr std::size_t kMostTextLength = 127;
constexpr std::size_t kMostRows = 1000;
constexpr std::size_t kMostLists = 200;
constexpr std::size_t kMostSlates = 100;

constexpr char kBlanks[] = " \t\r";

std::string_view Trimmed(std::string_view text) {
  std::size_t const first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The columns of one line. The comma after a column may be missing.
class Columns {
 public:
  explicit Columns(std::string_view line) : rest_(line) {}

  Error Text(std::string& text) {
    if (rest_.empty() || rest_.front() != '"') return Error::kText;
    std::size_t const end = rest_.find('"', 1);
    if (end == std::string_view::npos || end - 1 > kMostTextLength) return Error::kText;
    text = rest_.substr(1, end - 1);
    EndColumn(end + 1);
    return Error::kNone;
  }

  Error Real(double& value) {
    auto const result = ReadReal(rest_.data(), rest_.data() + rest_.size(), value);
    if (result.ec != std::errc() || !std::isfinite(value)) return Error::kNumber;
    EndColumn(static_cast<std::size_t>(result.ptr - rest_.data()));
    return Error::kNone;
  }

  Error Flag(bool& flag) {
    double value = 0.0;
    Error const error = Real(value);
    if (error == Error::kNone && value != 0.0 && value != 1.0) return Error::kNumber;
    flag = value == 1.0;
    return error;
  }

  Error End() const { return rest_.empty() ? Error::kNone : Error::kRow; }

 private:
  void EndColumn(std::size_t length) {
    rest_ = Trimmed(rest_.substr(length));
    if (!rest_.empty() && rest_.front() == ',') rest_ = Trimmed(rest_.substr(1));
  }

  std::string_view rest_;
};

Error OnlyText(std::string_view line, std::string& text) {
  Columns columns(line);
  Error const error = columns.Text(text);
  return error == Error::kNone ? columns.End() : error;
}

// A text "name=value".
Error SplitSetting(std::string const& text, std::string& name, std::string& value) {
  std::size_t const sign = text.find('=');
  if (sign == std::string::npos || sign == 0) return Error::kRow;
  name = Trimmed(std::string_view(text).substr(0, sign));
  value = Trimmed(std::string_view(text).substr(sign + 1));
  return name.empty() || value.empty() ? Error::kRow : Error::kNone;
}

Error ReadUnit(std::string_view line, UnitTable& table) {
  UnitRow row;
  Columns columns(line);
  Error error = columns.Text(row.text);
  if (error == Error::kNone) error = columns.Text(row.keyword);
  if (error == Error::kNone) error = columns.Text(row.longText);
  if (error == Error::kNone) error = columns.Flag(row.millionsAsMm);
  if (error == Error::kNone) error = columns.Real(row.addition);
  if (error == Error::kNone) error = columns.Real(row.multiplication);
  if (error == Error::kNone) error = columns.End();
  if (error != Error::kNone) return error;
  if (row.multiplication == 0.0) return Error::kNumber;
  table.units.push_back(std::move(row));
  return Error::kNone;
}

Error ReadCustomClass(std::string_view line, UnitTable& table) {
  CustomClass row;
  std::string setting;
  Columns columns(line);
  Error error = columns.Text(setting);
  if (error == Error::kNone) error = SplitSetting(setting, row.name, row.definition);
  if (error == Error::kNone && columns.End() != Error::kNone) error = columns.Text(row.longName);
  if (error == Error::kNone) error = columns.End();
  if (error == Error::kNone) table.classes.push_back(std::move(row));
  return error;
}

Error ReadListLine(std::string_view line, UnitList& list) {
  std::string text;
  Error const error = OnlyText(line, text);
  if (error == Error::kNone) list.units.push_back(std::move(text));
  return error;
}

Error FlagOf(std::string const& value, bool& flag) {
  if (value != "0" && value != "1") return Error::kNumber;
  flag = value == "1";
  return Error::kNone;
}

Error ReadSlateLine(std::string_view line, UnitSlate& slate) {
  std::string setting;
  std::string name;
  std::string value;
  Error error = OnlyText(line, setting);
  if (error == Error::kNone) error = SplitSetting(setting, name, value);
  if (error != Error::kNone) return error;
  if (SameText(name, "isSystem")) return FlagOf(value, slate.isSystem);
  if (SameText(name, "isHidden")) return FlagOf(value, slate.isHidden);
  if (SameText(name, "allowDelete")) return FlagOf(value, slate.allowDelete);
  if (SameText(name, "allowModify")) return FlagOf(value, slate.allowModify);
  if (SameText(name, "GaugePresBasis")) {
    Columns number(value);
    error = number.Real(slate.gaugePressureBasis);
    return error == Error::kNone ? number.End() : error;
  }
  if (SameText(name, "Parent")) {
    slate.parent = value;
  } else if (SameText(name, "CopyFrom")) {
    slate.copyFrom = value;
  } else {
    slate.units.emplace_back(name, value);
  }
  return Error::kNone;
}

// The lines of the table except comments and empty lines.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) { Next(); }

  bool AtEnd() const { return atEnd_; }
  std::string_view Line() const { return line_; }

  bool IsMarker(std::string_view marker) const {
    return line_.size() == marker.size() + 2 && line_.front() == '"' && line_.back() == '"' &&
           line_.substr(1, marker.size()) == marker;
  }

  void Next() {
    while (!rest_.empty()) {
      std::size_t const end = rest_.find('\n');
      line_ = Trimmed(rest_.substr(0, end));
      rest_ = end == std::string_view::npos ? std::string_view{} : rest_.substr(end + 1);
      if (!line_.empty() && line_.substr(0, 2) != "//") return;
    }
    line_ = {};
    atEnd_ = true;
  }

 private:
  std::string_view rest_;
  std::string_view line_;
  bool atEnd_ = false;
};

// Hands out the lines of a section one by one, from its first marker to its last.
template <typename Take>
Error ReadSection(Lines& lines, std::string_view begin, std::string_view end, Take const& take) {
  if (lines.AtEnd()) return Error::kEnds;
  if (!lines.IsMarker(begin)) return Error::kOrder;
  std::size_t rows = 0;
  for (lines.Next(); !lines.AtEnd(); lines.Next()) {
    if (lines.IsMarker(end)) {
      lines.Next();
      return Error::kNone;
    }
    if (++rows > kMostRows) return Error::kTooLarge;
    Error const error = take(lines.Line());
    if (error != Error::kNone) return error;
  }
  return Error::kEnds;
}

// All sections of one kind; the first line of each is the name of the object that it fills.
template <typename Thing, typename Take>
Error ReadNamed(Lines& lines, std::string_view begin, std::string_view end, std::size_t most,
                std::vector<Thing>& things, Take const& take) {
  while (lines.IsMarker(begin)) {
    if (things.size() == most) return Error::kTooLarge;
    Thing& thing = things.emplace_back();
    Error const error = ReadSection(lines, begin, end, [&](std::string_view line) {
      if (!thing.name.empty()) return take(line, thing);
      Error const named = OnlyText(line, thing.name);
      return named == Error::kNone && thing.name.empty() ? Error::kRow : named;
    });
    if (error != Error::kNone) return error;
    if (thing.name.empty()) return Error::kRow;
  }
  return Error::kNone;
}

}  // namespace

UnitTableError ReadUnitTable(std::string_view text, UnitTable& table) {
  table = {};
  if (text.size() > kMostTableBytes) return Error::kTooLarge;
  Lines lines(text);
  Error error = ReadSection(lines, "BEGINUOMLIST", "ENDUOMLIST",
                            [&](std::string_view line) { return ReadUnit(line, table); });
  if (error == Error::kNone) {
    error = ReadNamed(lines, "BEGINLIST", "ENDLIST", kMostLists, table.lists, ReadListLine);
  }
  if (error == Error::kNone) {
    error = ReadSection(lines, "BEGINCLASSLIST", "ENDCLASSLIST",
                        [&](std::string_view line) { return ReadCustomClass(line, table); });
  }
  if (error == Error::kNone) {
    error = ReadNamed(lines, "BEGINCOMMONLIST", "ENDCOMMONLIST", kMostLists, table.commonLists,
                      ReadListLine);
  }
  if (error == Error::kNone) {
    error = ReadNamed(lines, "BEGINSLATE", "ENDSLATE", kMostSlates, table.slates, ReadSlateLine);
  }
  if (error == Error::kNone && !lines.AtEnd()) error = Error::kOrder;
  return error;
}

}  // namespace zel
