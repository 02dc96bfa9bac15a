#include "verify/salvage/bank_shapes.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "frame/limits.h"
#include "maint/block_info.h"
#include "maint/face_ref.h"
#include "store/bank_key.h"
#include "zelaccess/Casn.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::int32_t kNodeBaseOffset = 2'000'000;
constexpr std::int32_t kMostCoded = 99'999'999;

std::vector<BankShape> MakeShapes() {
  std::vector<BankShape> shapes;
  std::vector<std::array<char, kMostName + 1>> types(static_cast<std::size_t>(GetBankTypeCount()));
  GetBankTypeList(static_cast<long>(types.size()),
                  reinterpret_cast<char(*)[kMostName + 1]>(types.data()));
  for (auto const& type : types) {
    FaceRef<IZelBankDef> const bank(NewKnownBank(type.data()));
    auto const io = FaceRef<IZelBankIO>::Of(bank.Get(), IID_IZelBankIO);
    BlockInfo const info(io.Get());
    for (std::int32_t format = 1; format <= info.formatCount; ++format) {
      std::int32_t words = 0;
      io->GetRecordLength(format, &words);
      bool const isAddressed = info.fileResident != 0;
      shapes.push_back({type.data(),
                        format,
                        format > 1,
                        static_cast<KeyKind>(info.keyKind),
                        {info.keyWords, isAddressed ? 1 : words, words, isAddressed}});
    }
  }
  return shapes;
}

// True for a key that is equal to its type and name packed again.
bool IsPacked(std::int32_t const* key, std::string const& type, std::string const& name) {
  for (bool const marker : {false, true}) {
    std::array<std::int32_t, f::kBankKeyWords> again{};
    MakeBankKey(type, name, again.data(), marker);
    if (std::equal(again.begin(), again.end(), key)) return true;
  }
  return false;
}

TreeShape ShapeOfHead(std::int32_t const* head) noexcept {
  return {head[f::kHeadKeyWords],
          std::int32_t(std::int64_t{head[f::kHeadEntryWords]} - head[f::kHeadKeyWords]),
          head[f::kHeadDataWords], head[f::kHeadDigits] % 10 == f::kStorageAddressed};
}

// How many of the words of a head agree with a tree of this shape.
int Agreement(std::int32_t const* head, TreeShape const& shape) noexcept {
  TreeShape const own = ShapeOfHead(head);
  return int{own.keyWords == shape.keyWords} + int{own.entryDataWords == shape.entryDataWords} +
         int{own.dataWords == shape.dataWords} + int{own.isAddressed == shape.isAddressed} +
         int{head[f::kHeadMaxEntries] == shape.Capacity()};
}

// A head whose words agree with each other.
bool IsHead(BrokenLibrary const& library, std::int32_t const* head) {
  TreeShape const own = ShapeOfHead(head);
  std::int32_t const root = head[f::kHeadRootAddress];
  bool const hasBase = head[f::kHeadNodeBase] == library.Type() * f::kTypeFactor + kNodeBaseOffset;
  int const right = int{own.IsUsable()} + int{head[f::kHeadNodeWords] == f::kNodeWords} +
                    int{hasBase} + int{root == f::kNullAddress || library.IsAddress(root)} +
                    int{own.IsUsable() && head[f::kHeadMaxEntries] == own.Capacity()};
  return right >= 4;
}

int Distance(std::int32_t a, std::int32_t b) noexcept {
  return std::popcount(static_cast<std::uint32_t>(a) ^ static_cast<std::uint32_t>(b));
}

// The format whose key and head are nearest to the entry; null if no key is nearer than `far` bits.
BankShape const* NearestShape(std::int32_t const* entry, std::string const& type, int far) {
  std::int32_t const* head = entry + f::kBankKeyWords + f::kBankHead;
  BankShape const* best = nullptr;
  int bestScore = 0;
  for (BankShape const& shape : BankShapes()) {
    std::array<std::int32_t, f::kBankKeyWords> key{};
    MakeBankKey(shape.type, "", key.data(), shape.isMarked);
    int const distance = Distance(key[0], entry[0]) + Distance(key[1], entry[1]);
    int const agreement = Agreement(head, shape.shape);
    bool const isNamed = shape.type == type;
    if (!isNamed && (distance >= far || agreement < 4)) continue;
    int const score = 100 * int{isNamed} + 10 * agreement + far - std::min(distance, far) + 1;
    if (score <= bestScore) continue;
    bestScore = score;
    best = &shape;
  }
  return best;
}

// The first format of that shape, or null.
BankShape const* ShapeOf(TreeShape const& shape) {
  auto const& all = BankShapes();
  auto const at = std::find_if(all.begin(), all.end(),
                               [&](BankShape const& one) { return one.shape == shape; });
  return at == all.end() ? nullptr : &*at;
}

}  // namespace

std::vector<BankShape> const& BankShapes() {
  static std::vector<BankShape> const shapes = MakeShapes();
  return shapes;
}

bool IsIdEntry(std::int32_t const* entry) noexcept {
  return entry[0] > 0 && entry[0] <= kMostCoded && entry[1] >= 0 && entry[1] <= kMostCoded &&
         entry[2] > 0;
}

bool IsCasEntry(std::int32_t const* entry) {
  return static_cast<long>(casn(static_cast<long>(entry[0]))) != 0 && entry[1] > 0;
}

bool IsBankEntry(BrokenLibrary const& library, std::int32_t const* entry) {
  if (IsHead(library, entry + f::kBankKeyWords + f::kBankHead)) return true;
  char type[kMostName + 1] = {};
  char name[kMostName + 1] = {};
  UnpackBankKey(entry, type, name);
  return FindBankType(type) != nullptr && IsPacked(entry, type, name);
}

BankHeading ReadBankEntry(BrokenLibrary const& library, std::int32_t const* entry) {
  BankHeading heading;
  char type[kMostName + 1] = {};
  char name[kMostName + 1] = {};
  UnpackBankKey(entry, type, name);
  std::copy_n(entry, heading.key.size(), heading.key.begin());
  std::int32_t const* data = entry + f::kBankKeyWords;
  std::int32_t const* head = data + f::kBankHead;
  heading.type = type;
  heading.name = name;
  heading.shape = ShapeOfHead(head);
  heading.digits = head[f::kHeadDigits];
  heading.root = head[f::kHeadRootAddress];
  if (data[f::kBankOldMark] != 1) {
    heading.memoAddress = data[f::kBankMemoAddress];
    heading.memoWords = data[f::kBankMemoWords];
  }
  bool const isPacked = IsPacked(entry, heading.type, heading.name);
  // An undamaged text is hardly that of another type, but a byte of it can be damaged.
  BankShape const* known = NearestShape(entry, heading.type, isPacked ? 2 : 9);
  // Only components have records in blocks of their own, as far as is known here.
  if (known == nullptr && !isPacked && heading.shape.isAddressed) known = ShapeOf(heading.shape);
  bool const isText = std::all_of(heading.name.begin(), heading.name.end(),
                                  [](char c) { return c >= ' ' && c <= '~'; });
  if (!isText) heading.name.clear();
  heading.keyIsGood = isPacked && (known == nullptr || known->type == heading.type);
  if (known == nullptr) return heading;  // a host's own type, or hopeless
  heading.type = known->type;
  // A record length that no format has is accepted if the head agrees with itself.
  bool const isOwn =
      !known->shape.isAddressed && IsHead(library, head) && Agreement(head, known->shape) < 3;
  if (!isOwn) heading.shape = known->shape;
  if (!heading.keyIsGood) {
    MakeBankKey(heading.type, heading.name, heading.key.data(), known->isMarked);
  }
  return heading;
}

BankHeading MakeHeading(BankShape const& shape, std::string name, std::int32_t root) {
  BankHeading heading;
  heading.type = shape.type;
  heading.name = std::move(name);
  heading.shape = shape.shape;
  heading.root = root;
  heading.keyIsGood = false;
  MakeBankKey(heading.type, heading.name, heading.key.data(), shape.isMarked);
  return heading;
}

}  // namespace zel
