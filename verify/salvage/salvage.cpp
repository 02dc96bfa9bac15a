// SalvageLibrary: everything that was found is written into the new library, and reported.
#include "zelaccess/Salvage.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "frame/ascii.h"
#include "frame/limits.h"
#include "frame/path_parts.h"
#include "store/packed_text.h"
#include "verify/open_library.h"
#include "verify/salvage/found_components.h"
#include "verify/salvage/found_identifiers.h"
#include "verify/salvage/found_memos.h"
#include "verify/salvage/rescued_library.h"
#include "verify/salvage/salvage.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::int32_t kMostCoded = 99'999'999;

std::string KeyText(std::int32_t const* words, std::int32_t count) {
  std::string text;
  for (std::int32_t i = 0; i < count; ++i) text += (i == 0 ? "" : " ") + std::to_string(words[i]);
  return text;
}

std::string Joined(std::vector<std::string> const& texts) {
  std::string joined;
  for (std::string const& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined;
}

zelSalvageWays WayOf(bool isScanned, bool isOutdated) {
  return isOutdated ? salvageOutdated : isScanned ? salvageByScan : salvageByWalk;
}

class Salvage {
 public:
  Salvage(BrokenLibrary const& from, LibFile_i& to, ZelSalvageSink* sink, ZelSalvageCounts& counts)
      : from_(from),
        library_(to),
        to_(to),
        sink_(sink),
        counts_(counts),
        records_(from),
        banks_(from, records_) {}

  void Run() {
    Header();
    DirectoryGaps();
    std::vector<ComponentBank> components = FindComponents(banks_, records_);
    identifiers_.NoteAll(components, records_);
    std::map<SalvagedTree const*, ComponentBank*> componentsOf;
    for (ComponentBank& bank : components) componentsOf[bank.bank] = &bank;
    for (SalvagedTree& bank : banks_.Banks()) {
      auto const at = componentsOf.find(&bank);
      BeginBank(bank);
      if (at != componentsOf.end()) {
        Components(*at->second);
      } else {
        Items(bank);
      }
      Gaps(bank, at != componentsOf.end());
      to_.EndBank(Memo(bank.heading));
    }
    identifiers_.Write(to_);
  }

 private:
  void Tell(zelSalvageKinds kind, zelSalvageStates state, zelSalvageWays way,
            std::string const& text, std::int32_t const* key = nullptr, std::int32_t count = 0) {
    if (sink_ == nullptr) return;
    bool const isBank = kind != salvageHeader;
    sink_->Salvaged({kind, state, way, isBank ? type_.c_str() : "", isBank ? name_.c_str() : "",
                     key, count, text.c_str()});
  }
  void TellHeader(zelSalvageStates state, std::string const& text) {
    Tell(salvageHeader, state, state == salvageTaken ? salvageByWalk : salvageByScan, text);
  }

  void Header();
  std::string Text(int word, int words, char const* what);
  void LibraryMemo(std::int32_t address, std::int32_t words);
  std::vector<std::string> LooseMemos();
  std::string Memo(BankHeading const& bank);
  void DirectoryGaps();
  void BeginBank(SalvagedTree& bank);
  void Items(SalvagedTree const& bank);
  void Item(SalvagedTree const& bank, FoundEntry const& entry);
  void Components(ComponentBank& bank);
  void Component(FoundComponent const& component);
  void Gaps(SalvagedTree const& bank, bool isComponents);

  BrokenLibrary const& from_;
  LibFile_i& library_;
  RescuedLibrary to_;
  ZelSalvageSink* sink_;
  ZelSalvageCounts& counts_;
  ComponentRecords records_;
  FoundBanks banks_;
  ItemChecks checks_;
  std::string type_;  // of the present bank
  std::string name_;
  FoundIdentifiers identifiers_{banks_};
};

// A text of the header; empty, with a record, for one that is not packed text.
std::string Salvage::Text(int word, int words, char const* what) {
  std::int32_t const* from = &from_.HeaderWords()[static_cast<std::size_t>(word)];
  std::vector<char> text(static_cast<std::size_t>(4 * words + 1));
  WordsToText(from, words, text.data());
  bool const isText = std::all_of(text.begin(), text.end(), [](char c) {
    return c == '\0' || static_cast<unsigned char>(c) >= ' ';
  });
  bool const isCoded =
      std::all_of(from, from + words, [](auto w) { return w >= 0 && w <= kMostCoded; });
  bool const isRaw = from[0] > kMostCoded || from[0] < 0;
  if (isText && (isCoded || isRaw)) return text.data();
  TellHeader(salvageLost, std::string("the ") + what + " cannot be read");
  return {};
}

void Salvage::Header() {
  for (std::string const& repair : from_.Repairs()) TellHeader(salvageAltered, repair);
  std::string const description = Text(f::kDescription, f::kDescriptionWords, "description");
  std::string const version = Text(f::kVersion, f::kVersionWords, "version");
  library_.SetDescriptionAndVersion(description.c_str(), version.c_str());
  BrokenLibrary::Header const& header = from_.HeaderWords();
  library_.SetReservedWords(header[f::kReservedA], header[f::kReservedB]);
  if (from_.PasswordIsGood()) {
    if (header[f::kPasswordLevel] != 0) {
      std::string const password = Text(f::kPassword, f::kPasswordWords, "password");
      library_.SetPassword(header[f::kPasswordLevel], password.c_str());
    }
  } else {
    TellHeader(salvageLost, "the password cannot be read; the rescued library has none");
  }
  LibraryMemo(header[f::kMemoAddress], header[f::kMemoWords]);
}

// If the address of the memo is lost, it is the only block of text that nothing leads to.
void Salvage::LibraryMemo(std::int32_t address, std::int32_t words) {
  bool const hasHeader = from_.HeaderWords()[f::kLibType] == from_.Type();
  std::optional<std::string> memo = MemoAt(from_, address, words);
  if (!memo || !hasHeader) {
    std::vector<std::string> const texts = LooseMemos();
    if (texts.size() == 1) {
      TellHeader(salvageAltered, "the memo was found without its address");
      memo = texts.front();
    }
  }
  if (!memo) TellHeader(salvageLost, "the memo cannot be read");
  if (memo && !memo->empty()) library_.SetMemo(memo->c_str());
}

std::vector<std::string> Salvage::LooseMemos() {
  std::set<std::int32_t> used;
  for (SalvagedTree const& bank : banks_.Banks()) {
    used.insert(bank.heading.memoAddress);
    used.insert(bank.contents.nodes.begin(), bank.contents.nodes.end());
  }
  std::vector<std::string> texts;
  for (int file = 1; file <= f::kMaxFiles; ++file) {
    for (std::int32_t block = 1; block <= from_.Blocks(file); ++block) {
      std::int32_t const address = BlockAddress{from_.Type(), file, block}.Word();
      if (used.count(address) != 0 || from_.IsFree(address)) continue;
      std::string text = LooseMemo(from_, address);
      if (!text.empty()) texts.push_back(std::move(text));
    }
  }
  return texts;
}

// The text of a bank's memo; empty, with a record, for one that cannot be read.
std::string Salvage::Memo(BankHeading const& bank) {
  std::optional<std::string> memo = MemoAt(from_, bank.memoAddress, bank.memoWords);
  if (!memo) Tell(salvageBank, salvageLost, salvageByWalk, "its memo cannot be read");
  return memo.value_or("");
}

void Salvage::DirectoryGaps() {
  if (banks_.DirectoryIsWhole()) return;
  TellHeader(salvageLost,
             "a part of the bank directory; banks without an entry were looked for by their trees");
}

void Salvage::BeginBank(SalvagedTree& bank) {
  bool const wasGood = bank.heading.keyIsGood;
  std::string const before = bank.heading.name;
  to_.BeginBank(bank.heading);
  type_ = bank.heading.type;
  name_ = bank.heading.name;
  ++counts_.banks;
  if (wasGood) {
    Tell(salvageBank, salvageTaken, salvageByWalk, "");
    return;
  }
  std::string text = before == name_ ? "its entry in the directory is damaged" : "its name is lost";
  if (!bank.heading.typeIsOneOf.empty()) {
    text += ", and its type is one of " + bank.heading.typeIsOneOf;
  }
  Tell(salvageBank, salvageAltered, salvageByScan, text);
}

void Salvage::Item(SalvagedTree const& bank, FoundEntry const& entry) {
  TreeShape const& shape = bank.heading.shape;
  std::vector<std::int32_t> data(entry.words + shape.keyWords,
                                 entry.words + shape.keyWords + shape.entryDataWords);
  zelSalvageWays const way = WayOf(entry.isScanned, entry.isOutdated);
  std::vector<std::string> mended;
  if (shape.isAddressed) {
    // A record of a type that is not known.
    std::vector<std::int32_t> run;
    std::int32_t const* from = from_.Run(data[0], shape.dataWords);
    if (from == nullptr) {
      ++counts_.lost;
      Tell(salvageItem, salvageLost, way, "its record cannot be read", entry.words, shape.keyWords);
      return;
    }
    data[0] = to_.WriteRun(shape.dataWords, from);
  } else {
    mended = checks_.Mend(bank.heading, data.data());
  }
  to_.AddItem(entry.words, data.data());
  ++counts_.items;
  if (way != salvageByWalk) ++counts_.scanned;
  if (!mended.empty()) ++counts_.altered;
  Tell(salvageItem, mended.empty() ? salvageTaken : salvageAltered, way,
       mended.empty() ? "" : "not a number: " + Joined(mended), entry.words, shape.keyWords);
}

void Salvage::Items(SalvagedTree const& bank) {
  for (FoundEntry const& entry : bank.contents.entries) Item(bank, entry);
  for (FoundEntry const& entry : bank.contents.keyless) {
    ++counts_.keyless;
    Tell(salvageItem, salvageKeyless, WayOf(entry.isScanned, entry.isOutdated),
         "its key is not in the order of the others", entry.words, bank.heading.shape.keyWords);
  }
}

void Salvage::Components(ComponentBank& bank) {
  for (FoundComponent const& component : bank.components) Component(component);
  for (FoundComponent const& component : bank.keyless) {
    ++counts_.keyless;
    Tell(salvageItem, salvageKeyless, salvageByScan, component.note, &component.number, 1);
  }
}

void Salvage::Component(FoundComponent const& component) {
  zelSalvageWays const way = WayOf(component.isScanned, component.isOutdated);
  ComponentWords words;
  if (component.address == 0 || !records_.Copy(component.address, component.number, words)) {
    ++counts_.lost;
    Tell(salvageItem, salvageLost, way, component.note, &component.number, 1);
    return;
  }
  identifiers_.DropForeign(words);
  to_.AddComponent(component.number, words);
  ++counts_.items;
  if (way != salvageByWalk) ++counts_.scanned;
  std::string text = component.note;
  if (!words.missing.empty()) {
    ++counts_.altered;
    text += (text.empty() ? "" : "; ") + ("missing: " + Joined(words.missing));
  }
  Tell(salvageItem, words.missing.empty() ? salvageTaken : salvageAltered, way, text,
       &component.number, 1);
}

void Salvage::Gaps(SalvagedTree const& bank, bool isComponents) {
  std::int32_t const keyWords = bank.heading.shape.keyWords;
  for (TreeGap const& gap : bank.contents.gaps) {
    if (gap.isFilled && (gap.height == 1 || gap.before == nullptr || gap.after == nullptr))
      continue;
    std::string text = gap.isFilled ? "an item" : "a part of the tree";
    if (gap.before != nullptr) text += " after " + KeyText(gap.before, keyWords);
    if (gap.after != nullptr) text += " before " + KeyText(gap.after, keyWords);
    if (isComponents) text += "; components without an entry were looked for by their records";
    ++counts_.gaps;
    Tell(salvageGap, salvageLost, salvageByWalk, text);
  }
}

std::string FullPath(char const* path) { return AbsolutePath(TextOrEmpty(path)); }

bool NamesLibrary(std::string const& path) {
  constexpr std::string_view kExtension = ".lb1";
  return path.size() > kExtension.size() &&
         SameText(std::string_view(path).substr(path.size() - kExtension.size()), kExtension);
}

}  // namespace

openErrors FindTypeOnFiles(platform::FileSystem& system, std::string const& path, libTypes& type) {
  type = libKind11;
  if (!NamesLibrary(path)) return openNotLibrary;
  BrokenLibrary library;
  openErrors const error = library.Open(system, path);
  if (error == openOk) type = static_cast<libTypes>(library.Type());
  return error;
}

openErrors SalvageFiles(platform::FileSystem& system, std::string const& path,
                        std::string_view password, LibFile* rescued, ZelSalvageSink* sink,
                        ZelSalvageCounts& counts) {
  counts = {};
  if (!NamesLibrary(path)) return openNotLibrary;
  LibFile_i* const to = OpenLibrary(rescued);
  if (to == nullptr || to->Store().Mode() == accRead) return openFailed;
  BrokenLibrary library;
  openErrors const error = library.Open(system, path);
  if (error != openOk) return error;
  if (library.PasswordIsGood() && library.HeaderWords()[f::kPasswordLevel] != 0) {
    char own[4 * f::kPasswordWords + 1];
    WordsToText(&library.HeaderWords()[f::kPassword], f::kPasswordWords, own);
    if (password.empty()) return openPasswordNeeded;
    if (password != own) return openBadPassword;
  }
  Salvage(library, *to, sink, counts).Run();
  return openOk;
}

openErrors FindLibraryType(char const* path, libTypes& type) {
  return FindTypeOnFiles(platform::SystemFileSystem(), FullPath(path), type);
}

openErrors SalvageLibrary(char const* path, char const* password, LibFile* rescued,
                          ZelSalvageSink* sink, ZelSalvageCounts& counts) {
  return SalvageFiles(platform::SystemFileSystem(), FullPath(path), TextOrEmpty(password), rescued,
                      sink, counts);
}

}  // namespace zel
