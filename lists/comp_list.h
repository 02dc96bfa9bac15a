// CompList_i: the rows of a list and their six sort orders.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "lists/list_entry.h"
#include "zelaccess/CompList.h"

namespace zel {

class CompListBuild_i;

class CompList_i final : public CompList {
 public:
  static constexpr std::size_t kOrders = 6;  // by compListSorts
  using Order = std::vector<std::int32_t>;   // row numbers

  CompList_i();
  CompList_i(CompList_i const&) = delete;
  CompList_i& operator=(CompList_i const&) = delete;
  ~CompList_i() override;

  void ClearList() override;
  bool ReadList(char const* path) override;
  void SetSort(std::int32_t key, std::int32_t descending) override;
  void GetSort(std::int32_t& key, std::int32_t& descending) const override;
  void ResetSort() override { SetSort(sortByName, 0); }
  void SetFilter(char const* pattern) override;
  char const* GetFilter() const override;
  void ResetFilter() override { SetFilter(nullptr); }
  void SetRange(double minimum, double maximum) override;
  void GetRange(double& minimum, double& maximum) const override;
  void ResetRange() override { SetRange(gen_GetUndefDouble(), gen_GetUndefDouble()); }
  void Rewind() override { cursor_ = 0; }
  bool GetNext(char* name, char* id, char* formula, char* cas, double& nbp, double& mw) override;
  bool GetNextShort(char* id, char* name, char* formula) override;
  CompListBuild* GetBuilder() override;

  // For the builder and the reader.
  std::vector<ListEntry>& Entries() noexcept { return entries_; }
  Order& OrderBy(compListSorts sort) noexcept { return orders_[static_cast<std::size_t>(sort)]; }

 private:
  ListEntry const* Next();

  std::vector<ListEntry> entries_;
  std::array<Order, kOrders> orders_;
  std::size_t cursor_ = 0;           // positions already walked
  mutable std::string shownFilter_;  // what GetFilter returned
  std::unique_ptr<CompListBuild_i> builder_;
};

}  // namespace zel
