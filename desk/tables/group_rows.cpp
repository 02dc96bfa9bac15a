// Rows that set the group structures of components.
#include <algorithm>

#include "desk/open/pure_component.h"
#include "desk/tables/component_rows.h"
#include "desk/tables/group_counts.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

class GroupRows final : public ComponentRows {
 public:
  GroupRows(TableTarget const& target, std::vector<TableColumn> columns)
      : ComponentRows(target, columns),
        model_(TakeColumn(columns, {"model"})),
        groups_(TakeColumn(columns, {"groups"})) {
    if (!model_) throw Failure("a table with a column groups needs a column model");
    RefuseRest(columns, {"number", "model", "groups"});
  }

 protected:
  std::string DatumOf(TextRow const& row) const override { return CellOf(model_, row); }

  void Set(TextRow const& row, PureComponent& component, bool isNew) override {
    if (isNew) throw Failure("is not in bank " + ToText(Target().bank));
    auto const& models = StructureModels();
    auto const model = std::find(models.begin(), models.end(), LowerCase(CellOf(model_, row)));
    if (model == models.end()) {
      std::string names;
      for (std::string const& name : models) names += (names.empty() ? "" : ", ") + name;
      throw Failure("\"" + CellOf(model_, row) + "\" is not one of the models " + names);
    }
    GroupCounts const groups = GroupCountsIn(CellOf(groups_, row));
    if (groups.numbers.empty()) return;
    component->SetStructure(static_cast<std::uint32_t>(model - models.begin()),
                            static_cast<std::int32_t>(groups.numbers.size()), groups.numbers.data(),
                            groups.counts.data());
  }

 private:
  std::optional<TableColumn> model_;
  std::optional<TableColumn> groups_;
};

}  // namespace

std::unique_ptr<RowForm> GroupForm(TableTarget const& target, std::vector<TableColumn> columns) {
  return std::make_unique<GroupRows>(target, std::move(columns));
}

}  // namespace zel::desk
