// Random operations on a library through the public headers, each compared with a model in memory:
// banks and their memos, items written, rewritten, read and deleted in any order, components with
// their IDs, walks, flushes, closing and opening again. At the end of each session the library must
// be whole (VerifyLibrary) and hold exactly what the model holds.
//   random_operations [--seconds N] [--operations N] [--seed N]
// Prints what was done; the exit status is 1 after the first difference, with the seed that shows
// it.
#include <unistd.h>
#include <zelaccess/Verify.h>
#include <zelaccess/ZelAccess.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/long/long_options.h"

namespace zel::test {
namespace {

namespace fs = std::filesystem;

struct Options {
  double seconds = 0.0;       // 0: as many operations as given
  long operations = 100'000;  // of all sessions
  unsigned seed = 1;
};

void Check(bool holds, std::string const& what) {
  if (!holds) throw std::runtime_error(what);
}

// Pairs of components whose two first fields are exchanged with the components.
struct PairType {
  char const* keyword;
  char const* first;
  char const* second;
};
constexpr PairType kPairTypes[] = {{"VANLAAR", "aij", "aji"}, {"WILSON", "aij", "aji"}};

struct Pair {
  double first = 0.0;
  double second = 0.0;
};

struct Bank {
  std::string memo;
  std::map<std::pair<long, long>, Pair> items;  // by the lower and the higher component number
};

struct Model {
  std::map<std::pair<int, std::string>, Bank> banks;  // by type and name
  std::map<std::int32_t, double> components;          // boiling points in K by number
};

class DamageSink final : public ZelFindingSink {
 public:
  void Found(zelFindings severity, char const*, char const* place, char const* text) override {
    if (severity == findingDamage) damage_ += std::string(place) + ": " + text + "\n";
  }
  std::string const& Damage() const { return damage_; }

 private:
  std::string damage_;
};

constexpr char kComponentBank[] = "MINE";
constexpr std::int32_t kFirstComponent = 21000000;

class Session {
 public:
  Session(std::string path, unsigned seed) : path_(std::move(path)), random_(seed) { Create(); }

  void Run(long operations) {
    for (long i = 0; i < operations; ++i) Step();
    CompareAll();
  }

 private:
  // A number from 0 to `below` - 1.
  long Any(long below) { return std::uniform_int_distribution<long>(0, below - 1)(random_); }
  // Exact as a float, and in seven digits.
  double AnyValue() { return 0.25 * static_cast<double>(Any(10'000)); }

  void Create() {
    openErrors error{};
    library_.reset(LibFile::NewLibFile(libKind11, path_.c_str(), error));
    Check(error == openOk, "NewLibFile");
    maint_.reset(LibMaint::NewLibMaint(library_.get()));
    Check(maint_->CreateBank("PURECOMP", kComponentBank, 0), "CreateBank of components");
    AddBank(0, "FIRST");
  }

  void AddBank(int type, std::string const& name) {
    bool const isNew = model_.banks.count({type, name}) == 0;
    Check(maint_->CreateBank(kPairTypes[type].keyword, name.c_str(), 0) == isNew, "CreateBank");
    if (isNew) model_.banks[{type, name}] = {};
  }

  void Step() {
    long const what = Any(1000);
    if (what < 450) return WritePair();
    if (what < 600) return ReadPair();
    if (what < 800) return DeletePair();
    if (what < 900) return WriteComponent();
    if (what < 960) return FindComponent();
    if (what < 970) return WalkPairs();
    if (what < 980) return AddBank(static_cast<int>(Any(2)), "B" + std::to_string(Any(90)));
    if (what < 984) return DropBank();
    if (what < 992) return WriteMemo();
    if (what < 996) return library_->FlushLibFile();
    OpenAgain();
  }

  using BankPlace = std::pair<std::pair<int, std::string> const, Bank>;
  BankPlace& AnyBank() {
    auto at = model_.banks.begin();
    std::advance(at, Any(static_cast<long>(model_.banks.size())));
    return *at;
  }

  // A key in either order, of few enough components that many keys are there already.
  struct PairKey {
    long first;
    long second;
    bool IsSwapped() const { return first > second; }
    std::pair<long, long> Stored() const { return std::minmax(first, second); }
  };
  PairKey AnyKey() {
    long const first = 1 + Any(60);
    long second = 1 + Any(60);
    if (second == first) ++second;
    return {first, second};
  }

  void WritePair() {
    auto& [place, bank] = AnyBank();
    PairType const& type = kPairTypes[place.first];
    PairKey const key = AnyKey();
    Pair const value{AnyValue(), AnyValue()};
    Handle<IZelBankDef> const item(NewBank(type.keyword));
    Handle<Key> const words(Key::NewKey());
    words->SetKey(key.first, key.second);
    item->SetDoubleField(type.first, &value.first);
    item->SetDoubleField(type.second, &value.second);
    Check(maint_->WriteItem(item.get(), place.second.c_str(), words.get()), "WriteItem");
    Pair& stored = bank.items[key.Stored()];
    stored = key.IsSwapped() ? Pair{value.second, value.first} : value;
    if (Any(4) != 0) return;
    double const other = AnyValue();
    item->SetDoubleField(type.first, &other);
    Check(maint_->RewriteItem(item.get()), "RewriteItem");
    (key.IsSwapped() ? stored.second : stored.first) = other;
  }

  void ReadPair() {
    auto const& [place, bank] = AnyBank();
    PairType const& type = kPairTypes[place.first];
    PairKey const key = AnyKey();
    Handle<IZelBankDef> const item(NewBank(type.keyword));
    Handle<Key> const words(Key::NewKey());
    words->SetKey(key.first, key.second);
    auto const stored = bank.items.find(key.Stored());
    bool const isThere = stored != bank.items.end();
    Check(maint_->ItemExists(item.get(), place.second.c_str(), words.get()) == isThere,
          "ItemExists");
    Check(maint_->ReadItem(item.get(), place.second.c_str(), words.get()) == isThere, "ReadItem");
    if (!isThere) return;
    double first = 0.0;
    double second = 0.0;
    item->GetDoubleField(type.first, &first);
    item->GetDoubleField(type.second, &second);
    if (key.IsSwapped()) std::swap(first, second);
    Check(first == stored->second.first && second == stored->second.second, "values of a pair");
  }

  void DeletePair() {
    auto& [place, bank] = AnyBank();
    PairKey key = AnyKey();
    if (!bank.items.empty() && Any(2) == 0) {
      auto at = bank.items.begin();
      std::advance(at, Any(static_cast<long>(bank.items.size())));
      key = {at->first.second, at->first.first};
    }
    Handle<Key> const words(Key::NewKey());
    words->SetKey(key.first, key.second);
    bool const isThere = bank.items.erase(key.Stored()) != 0;
    Check(maint_->DeleteItem(kPairTypes[place.first].keyword, place.second.c_str(), words.get()) ==
              isThere,
          "DeleteItem");
  }

  static std::string IdOf(std::int32_t number) {
    return "C" + std::to_string(number - kFirstComponent);
  }

  void WriteComponent() {
    auto const number = static_cast<std::int32_t>(kFirstComponent + Any(900));
    double const boiling = 100.0 + 0.25 * static_cast<double>(Any(2000));
    BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
    char ids[12][9] = {};
    std::snprintf(ids[0], sizeof ids[0], "%s", IdOf(number).c_str());
    component->SetIdentity(number, 0, 0, ids, "a component", "", 0);
    component->SetProperty(propertyNBP, boiling);
    Handle<Key> const key(Key::NewKey());
    key->SetKey(static_cast<long>(number));
    Check(maint_->WriteItem(component.Def(), kComponentBank, key.get()),
          "WriteItem of a component");
    model_.components[number] = boiling;
  }

  void FindComponent() {
    auto const number = static_cast<std::int32_t>(kFirstComponent + Any(900));
    auto const known = model_.components.find(number);
    bool const isThere = known != model_.components.end();
    Check(maint_->FindNumberById(IdOf(number).c_str()) == (isThere ? number : 0), "FindNumberById");
    if (isThere) CompareComponent(*maint_, number, known->second);
  }

  static void CompareComponent(LibMaint& maint, std::int32_t number, double boiling) {
    BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
    Handle<Key> const key(Key::NewKey());
    key->SetKey(IdOf(number).c_str());
    Check(maint.ReadItem(component.Def(), kComponentBank, key.get()), "ReadItem of a component");
    double stored = 0.0;
    component->GetProperty(propertyNBP, &stored);
    Check(stored == boiling, "boiling point");
  }

  void WalkPairs() {
    auto const& [place, bank] = AnyBank();
    CompareItems(*maint_, place, bank);
  }

  static void CompareItems(LibMaint& maint, std::pair<int, std::string> const& place,
                           Bank const& bank) {
    PairType const& type = kPairTypes[place.first];
    Handle<IZelBankDef> const item(NewBank(type.keyword));
    Check(maint.BeginItemWalk(type.keyword, place.second.c_str()), "BeginItemWalk");
    std::int32_t words[10] = {};
    auto expected = bank.items.begin();
    while (maint.NextItem(words, item.get())) {
      Check(expected != bank.items.end(), "a walk with an item too many");
      Check(words[0] == expected->first.first && words[1] == expected->first.second,
            "key of a walk");
      double first = 0.0;
      double second = 0.0;
      item->GetDoubleField(type.first, &first);
      item->GetDoubleField(type.second, &second);
      Check(first == expected->second.first && second == expected->second.second,
            "values of a walk");
      ++expected;
    }
    Check(expected == bank.items.end(), "a walk with too few items");
  }

  void DropBank() {
    if (model_.banks.size() < 2) return;
    auto const place = AnyBank().first;
    Check(maint_->DeleteBank(kPairTypes[place.first].keyword, place.second.c_str()), "DeleteBank");
    model_.banks.erase(place);
  }

  void WriteMemo() {
    auto& [place, bank] = AnyBank();
    bank.memo = "memo " + std::to_string(Any(1000));
    maint_->SetBankMemo(kPairTypes[place.first].keyword, place.second.c_str(), bank.memo.c_str());
  }

  void OpenAgain() {
    library_->CloseLibFile();
    if (Any(2) == 0) {
      Check(library_->ReopenLibFile() == openOk, "ReopenLibFile");
      return;
    }
    openErrors error{};
    maint_.reset();
    library_.reset(LibFile::OpenLibFile(accUpdate, path_.c_str(), "", error));
    Check(error == openOk, "OpenLibFile");
    maint_.reset(LibMaint::NewLibMaint(library_.get()));
  }

  // Closes the library and compares all of it, open for reading.
  void CompareAll() {
    library_->CloseLibFile();
    maint_.reset();
    openErrors error{};
    library_.reset(LibFile::OpenLibFile(accRead, path_.c_str(), "", error));
    Check(error == openOk, "OpenLibFile for reading");
    DamageSink sink;
    Check(VerifyLibrary(library_.get(), sink), "VerifyLibrary");
    Check(sink.Damage().empty(), sink.Damage());
    Handle<LibMaint> const maint(LibMaint::NewLibMaint(library_.get()));
    std::size_t banks = 0;
    char type[9];
    char name[9];
    maint->BeginBankWalk();
    while (maint->NextBank(type, name)) ++banks;
    Check(banks == model_.banks.size() + 1, "number of banks");
    for (auto const& [place, bank] : model_.banks) {
      CompareItems(*maint, place, bank);
      char memo[4001];
      maint->GetBankMemo(kPairTypes[place.first].keyword, place.second.c_str(), memo);
      Check(memo == bank.memo, "memo of a bank");
    }
    for (auto const& [number, boiling] : model_.components) {
      CompareComponent(*maint, number, boiling);
    }
    std::int32_t number = 0;
    std::size_t ids = 0;
    maint->BeginIdWalk();
    while (maint->NextId(number, name)) ++ids;
    Check(ids == model_.components.size(), "number of IDs");
  }

  std::string path_;
  std::mt19937 random_;
  Model model_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
};

int Run(Options const& options) {
  constexpr long kOfSession = 20'000;
  fs::path const folder =
      fs::temp_directory_path() / ("zel_operations_" + std::to_string(::getpid()));
  fs::create_directories(folder);
  InitZelAccess();
  auto const start = std::chrono::steady_clock::now();
  auto const elapsed = [&] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  long done = 0;
  unsigned seed = options.seed;
  int status = 0;
  while (options.seconds > 0.0 ? elapsed() < options.seconds : done < options.operations) {
    try {
      Session((folder / "own.lb1").string(), seed).Run(kOfSession);
    } catch (std::exception const& error) {
      std::printf("seed %u: %s\n", seed, error.what());
      status = 1;
      break;
    } catch (unsigned long address) {
      std::printf("seed %u: %s\n", seed, BlockError(address).what());
      status = 1;
      break;
    }
    done += kOfSession;
    ++seed;
    for (auto const& file : fs::directory_iterator(folder)) fs::remove(file.path());
  }
  fs::remove_all(folder);
  std::printf("%ld operations in %u sessions, %d differences\n", done, seed - options.seed, status);
  return status;
}

}  // namespace
}  // namespace zel::test

int main(int count, char** words) {
  zel::test::Options options;
  bool const good = zel::test::ReadOptions(
      count, words,
      {{"--seconds", [&](char const* word) { options.seconds = std::atof(word); }},
       {"--operations", [&](char const* word) { options.operations = std::atol(word); }},
       {"--seed",
        [&](char const* word) { options.seed = static_cast<unsigned>(std::atol(word)); }}});
  if (!good) return 2;
  return zel::test::Run(options);
}
