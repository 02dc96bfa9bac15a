#include "tests/long/refused_state.h"

#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

namespace zel::test {
namespace {

namespace fs = std::filesystem;

std::string Number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.9g ", value);
  return text;
}

std::string FieldsOf(IZelBankDef* bank, std::int32_t format) {
  static char names[200][13], labels[200][20], units[200][20];
  static std::int32_t kinds[200], counts[200];
  std::int32_t fields = 0;
  bank->GetFieldCount(format, &fields);
  bank->GetFieldList(format, names, labels, kinds, counts, units);
  std::string text;
  for (int i = 0; i < fields; ++i) {
    auto const count = static_cast<std::size_t>(counts[i]);
    std::vector<double> reals(count);
    std::vector<std::int32_t> integers(count);
    std::vector<char> word(count);
    if (bank->GetDoubleField(names[i], reals.data()) == kStatusOk) {
      for (double value : reals) text += Number(value);
    } else if (bank->GetIntField(names[i], integers.data()) == kStatusOk) {
      for (std::int32_t value : integers) text += Number(value);
    } else if (bank->GetStringField(names[i], word.data()) == kStatusOk) {
      text += word.data() + std::string(" ");
    }
  }
  return text;
}

std::string TextOf(IZelPureComp* component) {
  std::int32_t numbers[3] = {};
  char ids[12][9] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keep = 0;
  component->GetIdentity(&numbers[0], &numbers[1], &numbers[2], ids, name, formula, &keep);
  std::string text = std::string(name) + " " + formula + " ";
  for (auto const& id : ids) text += std::string(id) + " ";
  for (std::int32_t number : numbers) text += std::to_string(number) + " ";
  double values[100] = {};
  component->GetAllProperties(values);
  for (int i = 0; i < 50; ++i) text += Number(values[i]);
  for (std::uint32_t i = 0; i < 18; ++i) {
    std::int32_t words[6] = {};
    double reals[3] = {};
    double coefficients[15] = {};
    component->GetCorrelation(i, &words[0], &words[1], &words[2], &reals[0], &words[3], &words[4],
                              &words[5], &reals[1], &reals[2], coefficients);
    text += Number(words[0]);
    for (double value : coefficients) text += Number(value);
  }
  for (std::uint32_t model = 0; model < 7; ++model) {
    std::int32_t count = 0;
    std::int32_t groups[100] = {};
    std::int32_t counts[100] = {};
    component->GetRawStructure(model, &count, groups, counts);
    text += std::to_string(count) + ":" + std::to_string(counts[0]) + " ";
  }
  char smiles[300] = {};
  component->GetSmiles(smiles);
  return text + smiles;
}

// Calls `read`, which may throw a block error, and stores what it returns.
template <typename Read>
void Put(State& state, std::string const& place, Read const& read) {
  try {
    state[place] = read();
  } catch (unsigned long) {
    state[place] = kUnreadable;
  }
}

std::string ReadItem(LibMaint& maint, std::string const& type, std::string const& name,
                     std::int32_t const* words, std::int32_t count) {
  Handle<Key> const key(Key::NewKey());
  key->SetKeyWords(count, words);
  if (type == "PURECOMP") {
    BankFace<IZelPureComp> component("PURECOMP", IID_IZelPureComp);
    if (!maint.ReadItem(component.Def(), name.c_str(), key.get())) return "not found";
    return TextOf(component.operator->());
  }
  Handle<IZelBankDef> const bank(NewBank(type.c_str()));
  if (!maint.ReadItem(bank.get(), name.c_str(), key.get())) return "not found";
  return FieldsOf(bank.get(), maint.GetBankFormat(type.c_str(), name.c_str()));
}

std::int32_t KeyWordsOf(std::string const& type) {
  Handle<IZelBankDef> const bank(NewBank(type.c_str()));
  std::int32_t words = 0;
  bank->GetBankInfo(nullptr, nullptr, nullptr, &words, nullptr, nullptr, nullptr, nullptr);
  return words;
}

void PutItems(State& state, LibMaint& maint, std::string const& type, std::string const& name) {
  std::string const bank = type + " " + name;
  std::vector<std::vector<std::int32_t>> keys;
  Put(state, "keys " + bank, [&] {
    std::int32_t words[10] = {};
    if (!maint.BeginItemWalk(type.c_str(), name.c_str())) return "no bank";
    while (maint.NextItemKey(words)) keys.emplace_back(words, words + 10);
    return "walked";
  });
  std::int32_t const length = KeyWordsOf(type);
  for (auto const& key : keys) {
    std::string place = "item " + bank;
    for (int i = 0; i < length; ++i) place += " " + std::to_string(key[static_cast<unsigned>(i)]);
    Put(state, place, [&] { return ReadItem(maint, type, name, key.data(), length); });
  }
}

void PutFacts(State& state, LibFile* library) {
  char description[101] = {};
  char version[13] = {};
  std::int32_t words[2] = {};
  std::int32_t level = 0;
  library->GetDescriptionAndVersion(description, version);
  library->GetReservedWords(words[0], words[1]);
  library->GetPassword(level, nullptr);
  state["description"] = description;
  state["version"] = version;
  state["words"] = std::to_string(words[0]) + " " + std::to_string(words[1]);
  state["level"] = std::to_string(level);
  Put(state, "memo", [&] {
    char memo[4001] = {};
    library->GetMemo(memo);
    return std::string(memo);
  });
}

}  // namespace

State StateOf(LibFile* library) {
  State state;
  PutFacts(state, library);
  Handle<LibMaint> const maint(LibMaint::NewLibMaint(library));
  std::vector<std::pair<std::string, std::string>> banks;
  Put(state, "directory", [&] {
    char type[9];
    char name[9];
    maint->BeginBankWalk();
    while (maint->NextBank(type, name)) banks.emplace_back(type, name);
    return "walked";
  });
  for (auto const& bank : banks) {
    std::string const& type = bank.first;
    std::string const& name = bank.second;
    Put(state, "bank " + type + " " + name, [&] {
      char memo[4001] = {};
      maint->GetBankMemo(type.c_str(), name.c_str(), memo);
      return std::string(memo);
    });
    PutItems(state, *maint, type, name);
  }
  Put(state, "IDs", [&] {
    std::int32_t number = 0;
    char id[9];
    maint->BeginIdWalk();
    while (maint->NextId(number, id)) state[std::string("ID ") + id] = std::to_string(number);
    return "walked";
  });
  for (char const* cas : {"74-82-8", "74-84-0", "110-54-3", "111-84-2"}) {
    Put(state, std::string("CAS ") + cas,
        [&] { return std::to_string(maint->FindNumberByCas(casn(cas))); });
  }
  return state;
}

Files FilesIn(std::string const& folder) {
  Files files;
  for (auto const& entry : fs::directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::string text(entry.file_size(), '\0');
    std::ifstream(entry.path(), std::ios::binary)
        .read(text.data(), static_cast<std::streamsize>(text.size()));
    files[entry.path().filename().string()] = std::move(text);
  }
  return files;
}

void PutFiles(std::string const& folder, Files const& files, Files const& present) {
  for (auto const& [name, text] : present) {
    if (files.count(name) == 0) fs::remove(fs::path(folder) / name);
  }
  for (auto const& [name, text] : files) {
    auto const there = present.find(name);
    if (there != present.end() && there->second == text) continue;
    std::ofstream(fs::path(folder) / name, std::ios::binary | std::ios::trunc) << text;
  }
}

}  // namespace zel::test
