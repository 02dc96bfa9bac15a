// What all tables of pure components have in common: which component a row is about, and how it is
// written.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/findings/written_data.h"
#include "desk/open/pure_component.h"
#include "desk/tables/row_form.h"

namespace zel::desk {

class ComponentRows : public RowForm {
 public:
  RowResult Apply(TextRow const& row) override;
  std::vector<Finding> Findings() const override { return written_.NewFindings(); }

 protected:
  // Takes the columns that name the component. Throws Failure if no column does.
  ComponentRows(TableTarget const& target, std::vector<TableColumn>& columns);

  // Sets what the row has. `isNew` if the bank does not have the component.
  virtual void Set(TextRow const& row, PureComponent& component, bool isNew) = 0;
  // What the row sets, besides the component: rows of the same component and the same datum are
  // refused. Empty if it is the component as a whole.
  virtual std::string DatumOf(TextRow const& row) const = 0;

  // Adds a warning about the row, unless it is empty.
  void Warn(std::string const& warning) { warning_ = warning; }

  TableTarget const& Target() const { return target_; }
  // The first of these columns that has a cell in the row: `component`, number, CAS number, ID.
  std::string CellOfCas(TextRow const& row) const { return CellOf(cas_, row); }
  std::string CellOfIds(TextRow const& row) const { return CellOf(ids_, row); }

 private:
  struct Found {
    std::int32_t number = 0;
    bool isThere = false;
    bool isGiven = false;  // the number is the next free one
    std::string shown;
  };
  Found Find(TextRow const& row);
  // The words that name the component, the surest first.
  std::vector<std::string> WordsOf(TextRow const& row) const;
  std::optional<Identity> Known(TextRow const& row) const;
  void SetNumberOfNew(TextRow const& row, Found& found) const;
  void Write(PureComponent& component, Found const& found) const;
  // Takes back what was written: the component is as `before`, or not in the bank if that is null.
  void TakeBack(PureComponent* before, Found const& found) const;

  TableTarget target_;
  WrittenComponents written_;
  std::string warning_;  // about the row that is being applied
  std::optional<TableColumn> component_;
  std::optional<TableColumn> number_;
  std::optional<TableColumn> cas_;
  std::optional<TableColumn> ids_;
};

}  // namespace zel::desk
