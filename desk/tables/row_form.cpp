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
  last_ = key;
}

void RowForm::Forget(std::size_t line) {
  auto const at = lines_.find(last_);
  if (at != lines_.end() && at->second == line) lines_.erase(at);
}

std::string CellOf(std::optional<TableColumn> const& column, TextRow const& row) {
  return column ? column->In(row) : "";
}

std::string Differences(std::vector<NamedValue> const& before, std::vector<NamedValue> const& after,
                        DisplayUnits const& units) {
  constexpr std::size_t kMostShown = 3;
  std::vector<DifferingValue> const found = DifferingValues(before, after);
  std::string text;
  for (std::size_t i = 0; i < found.size() && i < kMostShown; ++i) {
    DifferingValue const& value = found[i];
    DisplayUnits const none;
    DisplayUnits const& shown = value.isNoteUnit ? none : units;
    std::string const unit = shown.UnitFor(value.unit);
    text += (i == 0 ? "" : ", ") + value.name + " " +
            CellText(ShownCell(value.one, shown, value.unit)) + " to " +
            CellText(ShownCell(value.other, shown, value.unit));
    if (!unit.empty()) text += " " + unit;
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
