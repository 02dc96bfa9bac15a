#include "desk/tables/row_form.h"

#include <algorithm>

#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {

char const* ToText(RowState state) {
  switch (state) {
    case RowState::kNew: return "new";
    case RowState::kChanged: return "changed";
    case RowState::kSame: return "the same";
    default: return "refused";
  }
}

void RowForm::Once(std::string const& key, std::size_t line) {
  auto const [at, isNew] = lines_.emplace(key, line);
  if (!isNew) throw Failure("the same as line " + std::to_string(at->second) + " sets");
}

std::string CellOf(std::optional<TableColumn> const& column, TextRow const& row) {
  return column ? column->In(row) : "";
}

std::string Differences(std::vector<NamedValue> const& before,
                        std::vector<NamedValue> const& after) {
  constexpr std::size_t kMostShown = 3;
  std::vector<std::string> found;
  auto const valueIn = [](std::vector<NamedValue> const& values, NamedValue const& like) {
    auto const at = std::find_if(values.begin(), values.end(),
                                 [&](NamedValue const& value) { return value.name == like.name; });
    return at == values.end() ? NamedValue{like.name, {}} : *at;
  };
  auto const note = [&](NamedValue const& one, NamedValue const& other) {
    auto const [was, is] = Beside(one, other);
    found.push_back(one.name + " " + CellText(was) + " to " + CellText(is));
  };
  for (NamedValue const& value : after) {
    NamedValue const old = valueIn(before, value);
    if (!(old.value == value.value && old.code == value.code)) note(old, value);
  }
  for (NamedValue const& value : before) {
    bool const isGone = std::none_of(after.begin(), after.end(),
                                     [&](NamedValue const& one) { return one.name == value.name; });
    if (isGone) note(value, {value.name, {}});
  }
  std::string text;
  for (std::size_t i = 0; i < found.size() && i < kMostShown; ++i) {
    text += (i == 0 ? "" : ", ") + found[i];
  }
  if (found.size() > kMostShown) {
    text += " and " + std::to_string(found.size() - kMostShown) + " more";
  }
  return text;
}

std::unique_ptr<RowForm> FormOf(TableTarget const& target, std::vector<TableColumn> columns) {
  auto const has = [&](char const* one, char const* other) {
    return std::any_of(columns.begin(), columns.end(), [&](TableColumn const& column) {
      return column.Is(one) || column.Is(other);
    });
  };
  if (target.bank.type != kPureType) return ItemForm(target, std::move(columns));
  if (has("correlation", "correlation")) return CorrelationForm(target, std::move(columns));
  if (has("keyword", "constant")) return ConstantForm(target, std::move(columns));
  if (has("groups", "groups")) return GroupForm(target, std::move(columns));
  return WideForm(target, std::move(columns));
}

}  // namespace zel::desk
