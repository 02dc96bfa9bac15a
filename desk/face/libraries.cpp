#include <zelaccess/Desk.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <set>

#include "desk/face/data.h"
#include "desk/face/guarded.h"
#include "desk/notes/item_codes.h"
#include "desk/notes/parameter_meanings.h"
#include "desk/open/configuration.h"
#include "desk/open/fields.h"
#include "desk/open/item_key.h"
#include "desk/open/library_path.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// Opens the library for names, if there is one, before the others.
Session& WithNames(Session& session, LibrariesOptions const& options) {
  session.patience = PatienceOf(options.waitSeconds);
  session.namesPath = LibraryPath(options.path).Find(options.names);
  OpenNames(session);
  return session;
}

// The libraries as files, with banks as they are named.
std::vector<std::string> FoundOnPath(std::vector<std::string> words,
                                     LibrariesOptions const& options) {
  LibraryPath const path(options.path);
  for (std::string& word : words) word = path.FindSource(word);
  return words;
}

double OrNan(double value) {
  return zel::gen_IsUndefDouble(value) ? std::numeric_limits<double>::quiet_NaN() : value;
}

ItemField FieldOf(zel::IZelBankDef& bank, Field const& field) {
  ItemField result{field.name, field.label, field.unit, {}, "", ""};
  auto const count = static_cast<std::size_t>(field.count > 1 ? field.count : 1);
  if (field.type == zel::fieldReal) {
    result.values.assign(count, zel::gen_GetUndefDouble());
    bank.GetDoubleField(field.name.c_str(), result.values.data());
    for (double& value : result.values) value = OrNan(value);
  } else if (field.type == zel::fieldInteger) {
    std::vector<std::int32_t> whole(count, zel::gen_GetUndefInt());
    bank.GetIntField(field.name.c_str(), whole.data());
    for (std::int32_t const value : whole) {
      bool const isNone = zel::gen_IsUndefInt(value);
      result.values.push_back(isNone ? std::numeric_limits<double>::quiet_NaN() : value);
    }
  } else {
    Cell const cell = ValueOf(bank, field);
    if (!std::holds_alternative<std::monostate>(cell)) result.text = CellText(cell);
  }
  return result;
}

void AddNotes(Library const& library, BankName const& bank, zel::IZelBankDef& item,
              Citations& citations, ItemData& data) {
  ModelMeaning const model = MeaningIn(library, bank, item);
  data.equation = model.equation;
  for (ParameterMeaning const& parameter : model.parameters) {
    auto const field =
        std::find_if(data.fields.begin(), data.fields.end(),
                     [&](ItemField const& one) { return one.name == parameter.field; });
    field->unit = parameter.unit;
    field->meaning = parameter.meaning;
  }
  CodeCounts codes;
  AddCodes(item, codes);
  if (codes.empty()) return;
  Citation const* const citation = citations.Find(library, bank, codes.begin()->first);
  if (citation == nullptr) return;
  data.citation = citation->text;
  data.doi = citation->doi;
}

// The words of a key of components as numbers, so that a library that does not know the IDs is
// searched as well. A number stays as it is.
std::vector<std::string> AsNumbers(PreferenceList const& list,
                                   std::vector<std::string> const& words) {
  std::vector<std::string> numbers;
  for (std::string const& word : words) {
    std::string number = word;
    for (std::size_t i = 0; i < list.Count(); ++i) {
      PureComponent const component;
      if (!list.Read(i, word, component)) continue;
      number = std::to_string(component.ReadIdentity().number);
      break;
    }
    numbers.push_back(number);
  }
  return numbers;
}

}  // namespace

std::chrono::milliseconds PatienceOf(double seconds) {
  constexpr double kLongestWait = 86400.0;  // in s, a day
  constexpr double kMillisecondsPerSecond = 1000.0;
  return std::chrono::milliseconds(
      static_cast<std::int64_t>(std::clamp(seconds, 0.0, kLongestWait) * kMillisecondsPerSecond));
}

LibrariesData::LibrariesData(std::vector<std::string> const& libraries,
                             LibrariesOptions const& options)
    : list(WithNames(session, options),
           {FoundOnPath(libraries, options), options.acceptIdentity, true}) {}

std::vector<std::string> SearchPath() {
  Session const before;
  return Guarded(before, [] { return SearchFolders(ReadConfiguration(ConfigurationFile())); });
}

Libraries::Libraries(std::vector<std::string> const& libraries, LibrariesOptions const& options) {
  Session const before;
  data_ = Guarded(before, [&] { return std::make_unique<LibrariesData>(libraries, options); });
}
Libraries::Libraries(Libraries&&) noexcept = default;
Libraries& Libraries::operator=(Libraries&&) noexcept = default;
Libraries::~Libraries() = default;

desk::Component Libraries::Component(std::string const& word) const {
  return Guarded(data_->session, [&] {
    auto const found = std::make_shared<ComponentData>();
    found->word = word;
    data_->list.Search(word, found->component);
    found->citations = CitationsOf(data_->list, word, data_->citations);
    return desk::Component(found);
  });
}

std::vector<Identity> Libraries::Components() const {
  return Guarded(data_->session, [&] {
    std::vector<Identity> all;
    std::set<std::int32_t> numbers;
    for (Library const& library : data_->list.Libraries()) {
      for (BankName const& bank : library.Banks(kPureType)) {
        PureComponent const component;
        std::int32_t words[10] = {};
        library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
        while (library.Maint().NextItem(words, component.Def())) {
          Identity identity = component.ReadIdentity();
          if (numbers.insert(identity.number).second) all.push_back(std::move(identity));
        }
        library.Maint().EndItemWalk();
      }
    }
    return all;
  });
}

desk::Item Libraries::Item(std::string const& type, std::vector<std::string> const& words) const {
  return Guarded(data_->session, [&] {
    zel::Handle<zel::IZelBankDef> const item = BankOrNone(UpperCase(type));
    if (!item) throw UnknownWord("", "there is no bank type " + type);
    BankFacts const facts(*item);
    bool const isOfComponents = facts.keyKind == 0;
    std::string looked;
    for (Library const& library : data_->list.Libraries()) {
      zel::Handle<zel::Key> const key =
          KeyIn(library, *item, isOfComponents ? AsNumbers(data_->list, words) : words);
      for (BankName const& bank : library.Banks(facts.type)) {
        if (!library.Maint().ReadItem(item.get(), bank.name.c_str(), key.get())) continue;
        auto const data = std::make_shared<ItemData>();
        data->type = facts.type;
        data->source = library.Path() + ":" + ToText(bank);
        for (Field const& field : FieldsOf(*item)) data->fields.push_back(FieldOf(*item, field));
        AddNotes(library, bank, *item, data_->citations, *data);
        return desk::Item(data);
      }
      looked += (looked.empty() ? "" : ", ") + library.Path();
    }
    throw MissingItem("",
                      "no " + facts.type + " bank of " + looked + " has an item " + Joined(words));
  });
}

desk::Item Libraries::Pair(std::string const& type, std::string const& one,
                           std::string const& other) const {
  return Item(type, {one, other});
}

}  // namespace zel::desk
