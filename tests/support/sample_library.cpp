#include "tests/support/sample_library.h"
#include "tests/support/bank_types.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "maint/lib_maint.h"
#include "store/bank_key.h"
#include "store/key.h"
#include "store/lib_file.h"
#include "tests/support/file_words.h"
#include "tests/support/sample_component.h"

namespace zel::test {
namespace {

// Sets every field of a bank to its own values.
void FillBank(IZelBankDef* bank, std::int32_t format) {
  if (auto const component = FaceRef<IZelPureComp>::Of(bank, IID_IZelPureComp)) {
    FillComponent(component.Get());
    return;
  }
  char names[20][13];
  char labels[20][20];
  char units[20][20];
  std::int32_t types[20];
  std::int32_t counts[20];
  std::int32_t n = 0;
  bank->GetFieldCount(format, &n);
  bank->GetFieldList(format, names, labels, types, counts, units);
  double stamp = 0.0;
  for (std::int32_t i = 0; i < n; ++i) {
    auto const count = static_cast<std::size_t>(counts[i]);
    if (types[i] == fieldReal) {
      std::vector<double> values(count);
      for (double& value : values) value = stamp += 1.25;
      bank->SetDoubleField(names[i], values.data());
    } else if (types[i] == fieldText) {
      bank->SetStringField(names[i], "Text");
    } else {
      std::vector<std::int32_t> values(count);
      for (std::int32_t& value : values) value = static_cast<std::int32_t>(stamp += 1.0);
      bank->SetIntField(names[i], values.data());
    }
  }
}

void WriteOneItem(LibMaint_i& maint, char const* type, std::int32_t format, std::int32_t number) {
  FaceRef<IZelBankDef> const bank(NewBank(type));
  auto const io = FaceRef<IZelBankIO>::Of(bank.Get(), IID_IZelBankIO);
  BlockInfo const info(io.Get());
  std::string const name = "B" + std::to_string(format);
  if (!maint.CreateBank(type, name.c_str(), format)) throw std::logic_error(type);
  FillBank(bank.Get(), format);
  Key_i key;
  std::int32_t const words[] = {number, number + 1, number + 2, number + 3};
  key.SetKeyWords(info.keyWords, words);
  // The key of a component must fit its identity.
  if (info.fileResident != 0) key.SetKey(static_cast<long>(kSampleComponent));
  if (!maint.WriteItem(bank.Get(), name.c_str(), &key)) throw std::logic_error(type);
}

// The item that a bank holds: its words, or the whole text of a component.
std::string ItemText(IZelBankDef* bank, std::int32_t format) {
  if (auto const component = FaceRef<IZelPureComp>::Of(bank, IID_IZelPureComp)) {
    return TextOf(component.Get());
  }
  auto const io = FaceRef<IZelBankIO>::Of(bank, IID_IZelBankIO);
  std::int32_t words = 0;
  bank->GetRecordLength(format, &words);
  std::vector<std::int32_t> block(static_cast<std::size_t>(words));
  io->WriteBlock(block.data(), format);
  std::string text;
  for (std::int32_t word : block) text += std::to_string(word) + ' ';
  return text;
}

class Reader {
 public:
  Reader(LibFile_i& library, Finding& finding)
      : library_(library), finding_(finding), sink_(std::fopen("/dev/null", "w")) {}
  Reader(Reader const&) = delete;
  Reader& operator=(Reader const&) = delete;
  ~Reader() { std::fclose(sink_); }

  void Run() {
    Guarded([&] { Texts(); });
    Guarded([&] { Ids(); });
    Guarded([&] { Banks(); });
  }

 private:
  // No damage makes a library return more than its files can hold.
  static constexpr int kMostSteps = 5000;

  template <typename Action>
  bool Guarded(Action const& action) {
    try {
      action();
      return true;
    } catch (unsigned long) {
      finding_.threw = true;
      return false;
    }
  }

  void Texts() {
    char text[4000];
    char version[13];
    std::int32_t a = 0;
    std::int32_t b = 0;
    library_.GetDescriptionAndVersion(text, version);
    library_.GetPassword(a, text);
    library_.GetReservedWords(a, b);
    library_.GetMemo(text);
  }

  void Ids() {
    LibMaint_i maint(&library_);
    std::int32_t number = 0;
    char id[9];
    maint.BeginIdWalk();
    for (int i = 0; maint.NextId(number, id); ++i) Bound(i);
  }

  void Banks() {
    LibMaint_i maint(&library_);
    char type[9];
    char name[9];
    maint.BeginBankWalk();
    for (int i = 0; maint.NextBank(type, name); ++i) {
      Bound(i);
      OneBank(type, name);
    }
  }

  void OneBank(char const* type, char const* name) {
    std::string& text = finding_.banks[std::string(type) + ":" + name];
    bool const whole = Guarded([&] {
      LibMaint_i maint(&library_);
      FaceRef<IZelBankDef> const bank(NewBank(type));
      if (!bank) return;  // a type that exists only through damage
      char memo[4000];
      maint.GetBankMemo(type, name, memo);
      std::int32_t const format = std::max(1, maint.GetBankFormat(type, name));
      std::vector<std::vector<std::int32_t>> keys;
      std::int32_t words[10] = {};
      maint.BeginItemWalk(type, name);
      for (int i = 0; maint.NextItem(words, bank.Get()); ++i) {
        Bound(i);
        text += ItemText(bank.Get(), format) + '|';
        if (keys.size() < 3) keys.emplace_back(words, words + 10);
      }
      Key_i key;
      auto const io = FaceRef<IZelBankIO>::Of(bank.Get(), IID_IZelBankIO);
      for (auto const& item : keys) {
        key.SetKeyWords(BlockInfo(io.Get()).keyWords, item.data());
        maint.ReadItem(bank.Get(), name, &key);
      }
      maint.DumpBankTree(type, name, 0, sink_, -1);
    });
    if (!whole) text += "error";
  }

  static void Bound(int steps) {
    if (steps > kMostSteps) throw std::logic_error("a walk without end");
  }

  LibFile_i& library_;
  Finding& finding_;
  std::FILE* sink_;
};

}  // namespace

void MakeSampleLibrary(MemoryFileSystem& files) {
  LibFile_i library(files, accUpdate, kSamplePath, "sample");
  library.CreateNew(libKind11);
  library.SetDescriptionAndVersion("A library of all types", "1");
  library.SetMemo("memo");
  LibMaint_i maint(&library);
  std::int32_t number = 100;
  for (char const* const type : BankTypes()) {
    FaceRef<IZelBankDef> const bank(NewBank(type));
    std::int32_t const formats =
        BlockInfo(FaceRef<IZelBankIO>::Of(bank.Get(), IID_IZelBankIO).Get()).formatCount;
    for (std::int32_t format = 1; format <= formats; ++format) {
      WriteOneItem(maint, type, format, number += 10);
    }
  }
  library.CloseLibFile();
}

std::int32_t SampleComponentAddress(MemoryFileSystem& files) {
  LibFile_i library(files, accRead, kSamplePath, "sample");
  std::int32_t const* entry = nullptr;
  if (library.OpenExisting({true, ""}, nullptr) != openOk ||
      !library.FindBank("PURECOMP", "B1", entry, false)) {
    throw std::logic_error("no component bank");
  }
  std::int32_t head[format::kHeadWords];
  std::copy_n(entry + format::kBankHead, format::kHeadWords, head);
  BTree_i tree(library.Store(), head);
  std::int32_t keyWords = 0;
  std::int32_t dataWords = 0;
  tree.WalkBegin(keyWords, dataWords);
  std::int32_t const* item = nullptr;
  if (!tree.WalkNext(item)) throw std::logic_error("no component");
  return item[keyWords];
}

Finding ReadEverything(MemoryFileSystem& files) {
  Finding finding;
  LibFile_i library(files, accRead, kSamplePath, "sample");
  try {
    libTypes type{};
    finding.openError = library.OpenExisting({true, ""}, &type);
  } catch (unsigned long) {
    finding.threw = true;
    finding.openError = openFailed;
  }
  if (finding.openError == openOk) Reader(library, finding).Run();
  return finding;
}

void SampleFiles::Put(char const* path, std::size_t byte, std::int32_t word) {
  PutFileWord(files_.Contents(path).data() + byte, word);
}

std::int32_t SampleFiles::Get(char const* path, std::size_t byte) {
  return FileWord(files_.Contents(path).data() + byte);
}

std::size_t SampleFiles::EntryOf(char const* type, char const* name) {
  auto const& bytes = files_.Contents(kSamplePath2);
  for (bool const marker : {true, false}) {
    std::int32_t key[4];
    MakeBankKey(type, name, key, marker);
    for (std::size_t at = 0; at + sizeof key <= bytes.size(); at += 4) {
      if (std::memcmp(bytes.data() + at, key, sizeof key) == 0) return at + sizeof key;
    }
  }
  throw std::invalid_argument("the sample library has no bank " + std::string(type));
}

}  // namespace zel::test
