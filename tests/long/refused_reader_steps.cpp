// Steps of LibSearch.h, Columns.h, CompList.h, DataCheck.h, DataJudgement.h, and the parts of
// Verify.h that work on a library.
#include <zelaccess/DataJudgement.h>

#include <cstdio>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

void OpenOther(Bench& b) {
  openErrors error{};
  b.other.reset(LibFile::OpenLibFile(accRead, b.Path(kOtherFile), "", error));
}
void MakeSearch(Bench& b) {
  OpenOther(b);
  b.search.reset(LibSearch::NewLibSearch());
  b.key->SetKey(kFirst + 1);
}
void MakeList(Bench& b) { b.list.reset(CompList::NewCompList()); }
void ReadList(Bench& b) {
  MakeList(b);
  b.list->ReadList(b.Path(kListFile));
}

void Found(Bench& b, Outcome& o, bool isFound) {
  o.Add(static_cast<long long>(isFound));
  double value = 0.0;
  b.component->GetProperty(propertyTC, &value);
  o.Add(value);
}

void SearchPairs(Bench& b, Outcome& o) {
  LibFile* const libraries[] = {b.other.get(), b.library.get(), nullptr};
  char const names[3][9] = {"MINE", "MINE", "MINE"};
  b.search->SetLibraryBanks(3, libraries, names);
  Found(b, o, b.search->Search(b.key.get(), b.component.Def(), true));
  char source[600] = {};
  b.component.Def()->GetSource(source, nullptr);
  o.Add(source);
}
void SearchNames(Bench& b, Outcome& o) {
  LibFile* const libraries[] = {b.other.get(), b.library.get()};
  char const* const names[] = {"VLE", "MINE"};
  char const arrays[2][9] = {"VLE", "MINE"};
  b.search->SetLibraries(2, libraries);
  b.search->SetBankNames(2, names);
  Found(b, o, b.search->Search(b.key.get(), b.component.Def(), false));
  b.search->SetBankNames(2, arrays);
  dynamic_cast<LibSearch_p&>(*b.search).ReservedSearch();
  Found(b, o, b.search->Search(b.key.get(), b.component.Def(), false));
}

void Columns(Bench& b, Outcome& o) {
  ColumnReader* made = ColumnReader::NewColumnReader(b.library.get(), "PURECOMP", kComponents);
  o.Add(static_cast<long long>(made != nullptr));
  if (made == nullptr) return;
  b.columns.reset(made);
  std::int32_t keys[30] = {};
  std::int32_t numbers[3] = {};
  double values[3] = {};
  char names[3][41] = {};
  o.Add(static_cast<long long>(made->GetKeyWords()));
  o.Add(static_cast<long long>(made->AddKeys(keys)));
  o.Add(static_cast<long long>(made->AddReals("NBP", values)));
  o.Add(static_cast<long long>(made->AddIntegers("number", numbers)));
  o.Add(static_cast<long long>(made->AddTexts("name", names[0])));
  for (std::int32_t rows = made->Read(3); rows != 0; rows = made->Read(3)) {
    for (std::int32_t i = 0; i < rows; ++i) {
      o.Add(static_cast<long long>(numbers[i]));
      o.Add(values[i]);
      o.Add(names[i]);
    }
  }
  ColumnReader* reader = b.columns.release();
  ColumnReader::DelColumnReader(reader);
}

void WalkList(Bench& b, Outcome& o) {
  char name[41], id[13], formula[21], cas[21];
  double nbp = 0.0;
  double mw = 0.0;
  b.list->Rewind();
  while (b.list->GetNext(name, id, formula, cas, nbp, mw)) {
    for (char const* text : {name, id, formula, cas}) o.Add(text);
    o.Add(nbp);
    o.Add(mw);
  }
  b.list->Rewind();
  while (b.list->GetNextShort(id, name, formula)) o.Add(id);
}
void SortList(Bench& b, Outcome& o) {
  b.list->ResetFilter();
  b.list->ResetRange();
  b.list->ResetSort();
  for (std::int32_t key = 0; key < 6; ++key) {
    b.list->SetSort(key, key % 2);
    WalkList(b, o);
  }
  std::int32_t key = 0;
  std::int32_t isDescending = 0;
  b.list->GetSort(key, isDescending);
  o.Add(static_cast<long long>(key));
  b.list->SetRange(100.0, 103.0);
  double minimum = 0.0;
  double maximum = 0.0;
  b.list->GetRange(minimum, maximum);
  o.Add(maximum);
  WalkList(b, o);
  b.list->ResetRange();
  b.list->SetSort(sortByName, 0);
  b.list->SetFilter("a filter that is longer than a text within its object?3*");
  o.Add(b.list->GetFilter());
  b.list->SetFilter("*3");
  WalkList(b, o);
  b.list->ResetFilter();
}

void Rows(Bench& b, Outcome& o) {
  CompListBuild_p& builder = b.Builder();
  b.list->ClearList();
  builder.SetShortForm(false);
  char name[41] = "  a  name ";
  char ids[12][9] = {"ONE", "", "TWO"};
  char formula[21] = "C2H5OH";
  char second[21] = {};
  std::int32_t idCount = 0;
  std::int32_t result = 0;
  std::int32_t cas = 64175;
  o.Add(static_cast<long long>(
      builder.CleanRecord(name, ids, idCount, formula, second, 1, result, cas)));
  builder.AddRecord(name, ids[0], formula, casn(64175), 351.4, 46.07);
  builder.AddIds(2, ids + 1);
  builder.AddId("THREE");
  builder.AddFormula("C2H6O");
  builder.SortRecords();
  o.Add(static_cast<long long>(builder.CountOrders()));
  static char text[1001];
  builder.FormatRecord(0, text);
  o.Add(text);
  double times[3] = {};
  builder.GetTimes(times[0], times[1], times[2]);
  o.Done(builder.WriteList(b.Path("rows.lst")));
}

class DataCounter final : public ZelDataFindingSink {
 public:
  void Found(zelFindings, char const*, char const*, char const*) override { ++found; }
  int found = 0;
};

void CheckData(Bench& b, Outcome& o) {
  DataCounter sink;
  ZelCheckedLibrary const libraries[] = {{b.library.get(), "one"}, {b.other.get(), "other"}};
  o.Done(CheckLibraryData(libraries[0], {}, sink));
  o.Done(CompareLibraryData(libraries, 2, {}, sink));
  o.Add(static_cast<long long>(sink.found));
}
void CheckOne(Bench& b, Outcome& o) {
  DataCounter sink;
  o.Done(CheckComponentData(b.component.operator->(), "library", kComponents, {}, sink));
  o.Add(static_cast<long long>(sink.found));
}
void Judge(Bench& b, Outcome& o) {
  DataCounter sink;
  ZelCheckedLibrary const libraries[] = {{b.library.get(), "one"}, {b.other.get(), "other"}};
  o.Done(JudgeLibraryData(libraries, 2, {}, sink));
  o.Add(static_cast<long long>(sink.found));
}

Steps ListSteps() {
  return {
      {"make a list", "CompList::NewCompList CompList::DelCompList CompList::GetBuilder",
       Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.list.reset(CompList::NewCompList());
         o.Add(static_cast<long long>(b.list->GetBuilder() != nullptr));
         CompList* list = b.list.release();
         CompList::DelCompList(list);
       }},
      {"build a list", "CompListBuild::BuildList", Opens::kRead, kPlain, MakeList,
       [](Bench& b, Outcome& o) {
         o.Done(b.list->GetBuilder()->BuildList(b.library.get(), kComponents, b.Path("new.lst")));
         if (!o.HasFailed()) WalkList(b, o);
       }},
      {"read a list", "CompList::ReadList", Opens::kNothing, kPlain, MakeList,
       [](Bench& b, Outcome& o) {
         o.Done(b.list->ReadList(b.Path(kListFile)));
         if (!o.HasFailed()) WalkList(b, o);
       }},
      {"sort and filter a list",
       "CompList::SetSort CompList::GetSort CompList::ResetSort CompList::SetFilter "
       "CompList::GetFilter CompList::ResetFilter CompList::SetRange CompList::GetRange "
       "CompList::ResetRange CompList::Rewind CompList::GetNext CompList::GetNextShort",
       Opens::kNothing, kPlain, ReadList, SortList},
      {"rows of a list",
       "CompListBuild_p::CleanRecord CompListBuild_p::AddRecord CompListBuild_p::AddIds "
       "CompListBuild_p::AddId CompListBuild_p::AddFormula CompListBuild_p::SortRecords "
       "CompListBuild_p::WriteList CompListBuild_p::CountOrders CompListBuild_p::FormatRecord "
       "CompListBuild_p::SetShortForm CompListBuild_p::GetTimes CompList::ClearList",
       Opens::kNothing, kPlain, MakeList, Rows},
  };
}

Steps CheckSteps() {
  return {
      {"verify", "VerifyLibrary SetItemFindings GetFileRoom", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.sink = {};
         SetItemFindings(b.library.get(), nullptr);
         o.Done(VerifyLibrary(b.library.get(), b.sink));
         o.Add(static_cast<long long>(b.sink.found));
         if (b.sink.damage != 0) o.Add(b.sink.last);
         ZelFileRoom room;
         o.Add(static_cast<long long>(GetFileRoom(b.library.get(), 2, room)));
         o.Add(static_cast<long long>(room.blocks));
       }},
      {"verify a library for update", "VerifyLibrary", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.sink = {};
         o.Done(VerifyLibrary(b.library.get(), b.sink));
         o.Add(static_cast<long long>(b.sink.found));
       }},
      {"check data", "CheckLibraryData CompareLibraryData", Opens::kRead, kPlain, OpenOther,
       CheckData},
      {"check a component's data", "CheckComponentData", Opens::kRead, kPlain,
       [](Bench& b) {
         b.key->SetKey(kFirst + 1);
         b.maint->ReadItem(b.component.Def(), kComponents, b.key.get());
       },
       CheckOne},
      {"judge data", "JudgeLibraryData", Opens::kRead, kPlain, OpenOther, Judge},
      {"catalogues",
       "GetConstantCatalogue GetCorrelationCatalogue GetDataChecks GetDataRules GetKeyText "
       "GetCorrelationFault GetZelAccessVersion TryInitZelAccess InitZelAccess SetDeleteTestFlag",
       Opens::kNothing, kPlain, nullptr,
       [](Bench&, Outcome& o) {
         std::int32_t count = 0;
         o.Add(GetConstantCatalogue(count)[0].label);
         o.Add(GetCorrelationCatalogue(count)[0].label);
         o.Add(GetDataChecks(count)[0].rule);
         o.Add(GetDataRules(count)[0].formula);
         static char text[1000];
         std::int32_t const words[] = {1, 2};
         GetKeyText(words, 2, text);
         o.Add(text);
         o.Add(static_cast<long long>(GetCorrelationFault(9999, 3, text)));
         o.Add(text);
         o.Add(GetZelAccessVersion());
         o.Done(TryInitZelAccess(text));
         InitZelAccess();
         SetDeleteTestFlag(true);
       }},
  };
}

}  // namespace

Steps ReaderSteps() {
  Steps steps = {
      {"search in pairs", "LibSearch::SetLibraryBanks LibSearch::Search", Opens::kRead, kPlain,
       MakeSearch, SearchPairs},
      {"search by names",
       "LibSearch::SetLibraries LibSearch::SetBankNames LibSearch::Search "
       "LibSearch_p::ReservedSearch",
       Opens::kRead, kPlain, MakeSearch, SearchNames},
      {"make a search", "LibSearch::NewLibSearch LibSearch::DelLibSearch", Opens::kNothing, kPlain,
       nullptr,
       [](Bench& b, Outcome& o) {
         b.search.reset(LibSearch::NewLibSearch());
         LibSearch* search = b.search.release();
         LibSearch::DelLibSearch(search);
         o.Done(true);
       }},
      {"columns",
       "ColumnReader::NewColumnReader ColumnReader::DelColumnReader ColumnReader::GetKeyWords "
       "ColumnReader::AddKeys ColumnReader::AddReals ColumnReader::AddIntegers "
       "ColumnReader::AddTexts ColumnReader::Read",
       Opens::kRead, kPlain, nullptr, Columns},
      {"columns of a library for update", "ColumnReader::Read", Opens::kUpdate, kPlain, nullptr,
       Columns},
  };
  for (Step const& step : ListSteps()) steps.push_back(step);
  for (Step const& step : CheckSteps()) steps.push_back(step);
  return steps;
}

}  // namespace zel::test
