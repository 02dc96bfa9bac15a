// The forms of tables that can be imported: what a row sets, and what that changed.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desk/findings/finding.h"
#include "desk/open/item_values.h"
#include "desk/open/library.h"
#include "desk/tables/table_columns.h"
#include "desk/words/display_units.h"

namespace zel::desk {

enum class RowState { kNew, kChanged, kSame, kRefused };
char const* ToText(RowState state);

struct RowResult {
  RowState state = RowState::kSame;
  std::string item;          // "ETHANOL" or "10000007 + 10000326"
  std::string what;          // what changed: "NBP 351.39 to 351.44", or why the row is refused
  std::string warning = {};  // about a row that is not refused
  std::vector<std::string> parts = {};  // what names the item
  std::string datum = {};               // the correlation that the row is about
  std::int32_t given = 0;  // the library's own number that a new component has got, else 0
};

// Where the rows go.
struct TableTarget {
  Library* library = nullptr;
  BankName bank;
  DisplayUnits units;  // of numbers whose head has no unit
};

class RowForm {
 public:
  RowForm() = default;
  RowForm(RowForm const&) = delete;
  RowForm& operator=(RowForm const&) = delete;
  virtual ~RowForm() = default;

  // Writes what the row sets. Throws Failure for a row that is refused; the item is then unchanged.
  virtual RowResult Apply(TextRow const& row) = 0;
  // Forgets what the row on this line, the last one passed to Apply, has set.
  void Forget(std::size_t line);
  // What the rows have made implausible; see WrittenComponents.
  virtual std::vector<Finding> Findings() const { return {}; }

 protected:
  // Throws Failure if an earlier row has set the same.
  void Once(std::string const& key, std::size_t line);

 private:
  std::map<std::string, std::size_t> lines_;
  std::string last_;  // what was set last
};

// The form that the columns are those of. Throws Failure for a column that is not of this form.
std::unique_ptr<RowForm> FormOf(TableTarget const& target, std::vector<TableColumn> columns);

// The differences in display units, as "NBP 351.39 to 351.44 K, TC - to 514 K"; of many, the first
// ones.
std::string Differences(std::vector<NamedValue> const& before, std::vector<NamedValue> const& after,
                        DisplayUnits const& units);

// The cell of a column, empty if the table does not have it.
std::string CellOf(std::optional<TableColumn> const& column, TextRow const& row);

// The forms of banks of fields and of components.
std::unique_ptr<RowForm> ItemForm(TableTarget const& target, std::vector<TableColumn> columns);
std::unique_ptr<RowForm> ConstantForm(TableTarget const& target, std::vector<TableColumn> columns);
std::unique_ptr<RowForm> WideForm(TableTarget const& target, std::vector<TableColumn> columns);
std::unique_ptr<RowForm> CorrelationForm(TableTarget const& target,
                                         std::vector<TableColumn> columns);
std::unique_ptr<RowForm> GroupForm(TableTarget const& target, std::vector<TableColumn> columns);

}  // namespace zel::desk
