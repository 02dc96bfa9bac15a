#include "verify/salvage/rescued_library.h"

#include <algorithm>

#include "store/bank_key.h"
#include "store/memo.h"

namespace zel {

namespace f = format;
namespace r = record;

void RescuedLibrary::BeginBank(BankHeading& heading) {
  BTree_i& directory = *library_.GetBankTree();
  std::int32_t const* found = nullptr;
  std::int32_t const* other = nullptr;
  bool isTaken = heading.name.empty() && !heading.keyIsGood;
  key_ = heading.key;
  // A bank can be found with and without the mark of its format.
  while (isTaken || directory.Find(key_.data(), found) ||
         library_.FindBank(heading.type.c_str(), heading.name.c_str(), other, false)) {
    isTaken = false;
    constexpr int kLongName = 1000;  // a name has eight characters
    ++named_;
    heading.name = (named_ < kLongName ? "FOUND" : "F") + std::to_string(named_);
    heading.keyIsGood = false;
    bool isMarked = false;
    for (BankShape const& shape : BankShapes()) {
      if (shape.type == heading.type && shape.shape == heading.shape) isMarked = shape.isMarked;
    }
    MakeBankKey(heading.type, heading.name, key_.data(), isMarked);
  }
  entry_.fill(0);
  libTypes type{};
  accModes mode{};
  library_.GetLibInfo(type, mode);
  std::int32_t* head = &entry_[f::kBankHead];
  TreeShape const& shape = heading.shape;
  InitTreeHead(head, shape.isAddressed, shape.keyWords, shape.entryDataWords, type);
  head[f::kHeadDataWords] = shape.dataWords;
  entry_[f::kBankMemoWords] = f::kMemoWordsDefault;
  entry_[f::kBankMemoAddress] = f::kNullAddress;
  tree_.emplace(library_.Store(), &entry_[f::kBankHead]);
}

void RescuedLibrary::AddItem(std::int32_t const* key, std::int32_t const* data) {
  std::int32_t const* found = nullptr;
  if (!tree_->Find(key, found)) tree_->InsertWithData(key, data);
}

std::int32_t RescuedLibrary::WriteRun(std::int32_t words, std::int32_t const* buffer) {
  std::int32_t address = f::kNullAddress;
  if (library_.WriteBlock(address, words, buffer, 0) != words * f::kWordBytes) {
    library_.Store().Throw(address, BlockFault::kNotWritten);
  }
  return address;
}

void RescuedLibrary::AddComponent(std::int32_t number, ComponentWords& words) {
  if (words.hasStructures) {
    words.main[r::kStructureAddress] = WriteRun(r::kStructureWords, words.structures.data());
    words.main[r::kStructureLength] = r::kStructureWords;
  }
  if (words.hasCorrelations) {
    std::int32_t const address = WriteRun(r::kCorrelationWords, words.correlations.data());
    words.main[r::kCorrelationAddress] = address;
    words.main[r::kCorrelationLength] = r::kCorrelationWords;
    for (int i = 0; i < 20; ++i) {
      std::int32_t* entry =
          &words.main[static_cast<std::size_t>(r::kDirectory + r::kDirectoryEntry * i)];
      bool const isThere =
          words.correlations[static_cast<std::size_t>(r::kCorrelationEntry * i)] != 0;
      entry[0] = isThere ? r::kCorrelationEntry * i : 0;
      entry[1] = isThere ? std::max(entry[1], r::kCoefficientsAt + 0) : 0;
      entry[2] = isThere ? address : 0;
    }
  } else {
    std::fill_n(&words.main[r::kDirectory], 20 * r::kDirectoryEntry, 0);
  }
  std::int32_t const address = WriteRun(r::kMainWords, words.main.data());
  AddItem(&number, &address);
}

void RescuedLibrary::EndBank(std::string const& memo) {
  tree_.reset();  // writes the head
  if (!memo.empty()) {
    WriteMemo(library_.Store(), entry_[f::kBankMemoAddress], f::kMemoWordsDefault, memo);
  }
  BTree_i& directory = *library_.GetBankTree();
  std::int32_t const* found = nullptr;
  if (!directory.Find(key_.data(), found)) directory.InsertWithData(key_.data(), entry_.data());
}

void RescuedLibrary::AddId(std::int32_t const* key, std::int32_t number) {
  BTree_i& ids = *library_.GetCharIdTree();
  std::int32_t const* found = nullptr;
  if (!ids.Find(key, found)) ids.InsertWithData(key, &number);
}

void RescuedLibrary::AddCas(std::int32_t cas, std::int32_t number) {
  BTree_i& tree = *library_.GetCasTree();
  std::int32_t const* found = nullptr;
  if (!tree.Find(&cas, found)) tree.InsertWithData(&cas, &number);
}

}  // namespace zel
