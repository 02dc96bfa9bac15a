#include "verify/salvage/node_reading.h"

#include <algorithm>

namespace zel {

namespace f = format;

NodeReading::Link NodeReading::ClassOf(std::int32_t word) const noexcept {
  if (word == f::kNullAddress) return Link::kNull;
  return library_->IsAddress(word) ? Link::kChild : Link::kBad;
}

// Takes the count if at least half of its links are of the kind.
bool NodeReading::Fits(std::int32_t count, Link kind) {
  std::int32_t good = 0;
  for (std::int32_t i = 0; i <= count; ++i) good += ClassOf(LinkWord(i)) == kind ? 1 : 0;
  if (2 * good < count + 1) return false;
  double const share = static_cast<double>(good) / (count + 1);
  if (count == count_ && share <= goodLinks_) return false;
  count_ = count;
  own_ = kind;
  goodLinks_ = share;
  return true;
}

// The count that the links alone suggest: up to the last one of a kind. False if none does.
bool NodeReading::Derive() {
  std::int32_t best = 0;
  std::int32_t most = 0;
  Link kind = Link::kNull;
  for (Link const one : {Link::kNull, Link::kChild}) {
    std::int32_t good = 0;
    for (std::int32_t i = 0; i <= shape_.Capacity(); ++i) {
      if (ClassOf(LinkWord(i)) != one) continue;
      ++good;
      if (2 * good < i + 1 || good <= most) continue;
      most = good;
      best = i;
      kind = one;
    }
  }
  goodLinks_ = 0.0;
  return best > 0 && Fits(best, kind);
}

bool NodeReading::Read(BrokenLibrary const& library, std::int32_t address, TreeShape const& shape,
                       Tails tails) {
  library_ = &library;
  shape_ = shape;
  address_ = address;
  count_ = 0;
  goodLinks_ = 0.0;
  words_ = library.Run(address, f::kNodeWords);
  if (words_ == nullptr) return false;
  std::int32_t const said = words_[f::kNodeCount];
  bool good = false;
  if (said == 0) {
    // An empty leaf, which a delete leaves.
    good = ClassOf(LinkWord(0)) == Link::kNull && Fits(0, Link::kNull);
  } else if (said > 0 && said <= shape.Capacity()) {
    bool const asLeaf = Fits(said, Link::kNull);
    good = Fits(said, Link::kChild) || asLeaf;
  }
  if (good && tails == Tails::kUnknown) return true;
  if (good && TailIsClean()) return true;
  std::int32_t const count = count_;
  Link const kind = own_;
  double const share = goodLinks_;
  count_ = -1;
  if (Derive() && (!good || count_ > count)) return true;
  count_ = count;
  own_ = kind;
  goodLinks_ = share;
  return good;
}

bool NodeReading::EntryIsGood(std::int32_t i) const noexcept {
  if (!LinkIsGood(i - 1) && !LinkIsGood(i)) return false;
  std::int32_t const* entry = Entry(i);
  return std::any_of(entry, entry + shape_.keyWords + shape_.entryDataWords,
                     [](std::int32_t word) { return word != 0; });
}

bool NodeReading::TailIsClean() const noexcept {
  std::int32_t const* end = words_ + f::kNodeLinks + count_ * shape_.Width() + 1;
  return std::all_of(end, words_ + f::kNodeWords, [](std::int32_t word) { return word == 0; });
}

}  // namespace zel
