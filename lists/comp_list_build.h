// CompListBuild_i: collects rows from a library and sorts them into a list.
#pragma once

#include <string>
#include <vector>

#include "lists/comp_list.h"
#include "store/progress_steps.h"
#include "zelaccess/CompList_p.h"

namespace zel {

class CompListBuild_i final : public CompListBuild_p {
 public:
  explicit CompListBuild_i(CompList_i& list) : list_(list) {}
  CompListBuild_i(CompListBuild_i const&) = delete;
  CompListBuild_i& operator=(CompListBuild_i const&) = delete;
  ~CompListBuild_i() override = default;

  bool BuildList(LibFile* library, char const* bankName, char const* path) override;
  bool CleanRecord(char* name, char (*ids)[9], std::int32_t& idCount, char* formula,
                   char* secondFormula, std::uint8_t keepFormula, std::int32_t& formulaResult,
                   std::int32_t& casNumber) override;
  void AddRecord(char const* name, char const* id, char const* formula, casn cas, double nbp,
                 double mw) override;
  void AddIds(std::int32_t count, char const (*ids)[9]) override;
  void AddId(char const* id) override;
  void AddFormula(char const* formula) override;
  void SortRecords() override;
  bool WriteList(char const* path) override;
  std::int32_t CountOrders() override;
  void FormatRecord(std::int32_t row, char* text) override;
  void SetShortForm(bool on) override { shortForm_ = on; }
  void GetTimes(double& total, double& sort, double& order) const override;

  void ClearRecords() noexcept {
    records_.clear();
    sorted_ = false;
  }

 private:
  bool WalkBank(LibFile* library, char const* bankName, ProgressSteps& progress);
  void Append();
  void TakeSortedBack();
  template <typename Takes, typename Key>
  void MakeTextOrder(compListSorts sort, Takes const& takes, Key const& key);
  void MakeIdOrder();
  template <typename Takes, typename Value>
  void MakeNumberOrder(compListSorts sort, Takes const& takes, Value const& value);

  CompList_i& list_;
  bool shortForm_ = false;
  double totalSeconds_ = 0.0;
  double sortSeconds_ = 0.0;
  double orderSeconds_ = 0.0;
  ListEntry record_;                // the one being built
  std::vector<ListEntry> records_;  // before sorting, which moves them into the list
  bool sorted_ = false;             // they are in the list
};

}  // namespace zel
