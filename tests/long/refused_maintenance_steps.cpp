// Steps of LibMaint.h, LibMaint_p.h and Key.h.
#include <cstdio>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

void Number(Bench& b, long first, long second) {
  b.key->ClearKey();
  b.key->SetKey(first, second);
}
void SetPair(Bench& b, double value) {
  b.pair->SetDoubleField("aij", &value);
  b.pair->SetDoubleField("aji", &value);
}
void AddPair(Bench& b, Outcome& o) {
  double values[2] = {};
  b.pair->GetDoubleField("aij", &values[0]);
  b.pair->GetDoubleField("aji", &values[1]);
  for (double value : values) o.Add(value);
}
void ReadFirstPair(Bench& b) {
  Number(b, kFirst, kFirst + 1);
  b.maint->ReadItem(b.pair.get(), kPairs, b.key.get());
}
void ReadFirstComponent(Bench& b) {
  b.key->ClearKey();
  b.key->SetKey(kFirst);
  b.maint->ReadItem(b.component.Def(), kComponents, b.key.get());
}
void BecomeAnother(Bench& b) {
  char ids[12][9] = {"NEW", "NEWER", "NEWEST"};
  b.component->SetIdentity(kFirst + 30, 110543, 1, ids, "another", "C6H14", 0);
  b.key->ClearKey();
  b.key->SetKey(kFirst + 30);
}
void WritePairs(Bench& b, char const* name, long from, long count) {
  SetPair(b, 5.0);
  for (long i = 0; i < count; ++i) {
    Number(b, kFirst + from, kFirst + 50 + i);
    b.maint->WriteItem(b.pair.get(), name, b.key.get());
  }
}
void FillLeaf(Bench& b) { WritePairs(b, kPairs, 31, 3); }
void FillRoot(Bench& b) { WritePairs(b, "D", 0, 4); }
void OpenStream(Bench& b) { b.stream = std::tmpfile(); }
void SetFullLog(Bench& b) {
  b.Log().SetLogLevel(0);
  b.Log().SetLogSink(nullptr);
}

void Identifiers(Bench& b, Outcome& o) {
  bool isFromIndex = false;
  o.Add(static_cast<long long>(b.maint->FindNumberByCas(casn("74-84-0"), isFromIndex)));
  o.Add(static_cast<long long>(b.maint->FindNumberById("d3", isFromIndex)));
  char id[9] = {};
  b.maint->GetIdOfNumber(kFirst + 2, id, isFromIndex);
  o.Add(id);
  casn cas;
  b.maint->GetCasOfNumber(kFirst + 2, cas, isFromIndex);
  o.Add(static_cast<char const*>(cas));
}

void KeysOfAllKinds(Bench& b, Outcome& o) {
  Key* made = Key::NewKey();
  Handle<Key> const key(made);
  char words[3][9] = {"C0", "C1", "C2"};
  key->SetKey("C0", casn("74-84-0"));
  bool isSwapped = false;
  auto& inside = dynamic_cast<Key_p&>(*key);
  inside.FitCompCount(2, 2);
  o.Add(static_cast<long long>(inside.ResolveKey(b.library.get(), 1, isSwapped)));
  for (int i = 0; i < 2; ++i) o.Add(static_cast<long long>(inside.GetKeyWords()[i]));
  o.Add(static_cast<long long>(inside.GetCompCount()));
  o.Add(static_cast<long long>(inside.GetCompKind(0)));
  char text[300] = {};
  inside.GetCompText(0, text);
  o.Add(text);
  casn cas;
  inside.GetCompCasn(1, cas);
  o.Add(static_cast<char const*>(cas));
  inside.ClearCache();
  key->ClearKey();
  std::int32_t const numbers[] = {kFirst, kFirst + 1};
  key->SetKeyWords(2, numbers);
  long number = 0;
  inside.GetCompNumber(1, number);
  o.Add(static_cast<long long>(number));
  key->SetKeyText(1, words[0]);
  inside.ReservedKey(nullptr, nullptr);
  o.Add(static_cast<long long>(inside.ResolveKey(b.library.get(), 1, isSwapped)));
}

void Walks(Bench& b, Outcome& o) {
  char type[9];
  char name[9];
  b.maint->BeginBankWalk();
  while (b.maint->NextBank(type, name)) o.Add(name);
  b.maint->EndBankWalk();
  b.maint->BeginBankWalk("VANLAAR");
  while (b.maint->NextBank(type, name)) o.Add(name);
  b.maint->EndBankWalk();
  std::int32_t number = 0;
  b.maint->BeginIdWalk();
  while (b.maint->NextId(number, name)) o.Add(static_cast<long long>(number));
  b.maint->EndIdWalk();
}

void ItemWalks(Bench& b, Outcome& o) {
  std::int32_t words[10] = {};
  o.Add(static_cast<long long>(b.maint->BeginItemWalk("VANLAAR", kPairs)));
  while (b.maint->NextItem(words, b.pair.get())) AddPair(b, o);
  b.maint->EndItemWalk();
  o.Add(static_cast<long long>(b.maint->BeginItemWalk("PURECOMP", kComponents)));
  while (b.maint->NextItem(words, b.component.Def())) {
    double value = 0.0;
    b.component->GetProperty(propertyNBP, &value);
    o.Add(value);
  }
  b.maint->EndItemWalk();
  o.Add(static_cast<long long>(b.maint->BeginItemWalk("PURECOMP", kComponents)));
  while (b.maint->NextItemKey(words)) o.Add(static_cast<long long>(words[0]));
}

Steps BankSteps() {
  return {
      {"make the object", "LibMaint::NewLibMaint LibMaint::DelLibMaint", Opens::kRead, kPlain,
       nullptr,
       [](Bench& b, Outcome& o) {
         b.extra.reset(LibMaint::NewLibMaint(b.library.get()));
         o.Add(static_cast<long long>(b.extra->BankExists("VANLAAR", kPairs)));
       }},
      {"create a bank", "LibMaint::CreateBank", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         o.Add(static_cast<long long>(b.maint->CreateBank("NRTL", "NEW", 0)));
       }},
      {"delete a bank", "LibMaint::DeleteBank", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         o.Add(static_cast<long long>(b.maint->DeleteBank("VANLAAR", "B")));
       }},
      {"facts of a bank", "LibMaint::GetBankMemo LibMaint::GetBankFormat LibMaint::BankExists",
       Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         char memo[4000] = {};
         b.maint->GetBankMemo("VANLAAR", kPairs, memo);
         o.Add(memo);
         o.Add(static_cast<long long>(b.maint->GetBankFormat("PURECOMP", kComponents)));
         o.Add(static_cast<long long>(b.maint->BankExists("VANLAAR", "A")));
       }},
      {"set the memo of a bank", "LibMaint::SetBankMemo", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.maint->SetBankMemo("VANLAAR", kPairs, "another memo of the pairs, longer than before");
         o.Done(true);
       }},
      {"banks referred to", "LibMaint::GetRefBankNames", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         char const types[1][9] = {"GRPDESC"};
         char names[1][9] = {};
         b.maint->GetRefBankNames("VANLAAR", kPairs, 1, types, names);
         o.Add(names[0]);
       }},
      {"indexes as texts", "LibMaint::WriteTextDump", Opens::kRead, kLeavesOut, nullptr,
       [](Bench& b, Outcome& o) {
         b.maint->WriteTextDump(b.library.get());
         o.Add("written, or left out");
       }},
      {"dump of a tree", "LibMaint_p::DumpBankTree", Opens::kRead, kPlain, OpenStream,
       [](Bench& b, Outcome& o) {
         o.Add(static_cast<long long>(b.Log().DumpBankTree("VANLAAR", kPairs, 2, b.stream, 9)));
       }},
      {"walks",
       "LibMaint::BeginBankWalk LibMaint::NextBank LibMaint::EndBankWalk LibMaint::BeginIdWalk "
       "LibMaint::NextId LibMaint::EndIdWalk",
       Opens::kRead, kPlain, nullptr, Walks},
      {"walks over items",
       "LibMaint::BeginItemWalk LibMaint::NextItem LibMaint::NextItemKey LibMaint::EndItemWalk",
       Opens::kRead, kPlain, nullptr, ItemWalks},
      {"walks over items of a library for update", "LibMaint::BeginItemWalk LibMaint::NextItem",
       Opens::kUpdate, kPlain, nullptr, ItemWalks},
  };
}

Steps ItemSteps() {
  return {
      {"exists", "LibMaint::ItemExists Key::SetKey Key::ClearKey", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 4, kFirst + 3);
         o.Add(static_cast<long long>(b.maint->ItemExists(b.pair.get(), kPairs, b.key.get())));
       }},
      {"read a pair", "LibMaint::ReadItem", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 4, kFirst + 3);
         o.Add(static_cast<long long>(b.maint->ReadItem(b.pair.get(), kPairs, b.key.get())));
         AddPair(b, o);
       }},
      {"read a component", "LibMaint::ReadItem", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.key->ClearKey();
         b.key->SetKey("C3");
         o.Add(static_cast<long long>(
             b.maint->ReadItem(b.component.Def(), kComponents, b.key.get())));
         double value = 0.0;
         b.component->GetProperty(propertyTC, &value);
         o.Add(value);
       }},
      {"write a pair", "LibMaint::WriteItem", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 20, kFirst + 21);
         SetPair(b, 7.0);
         o.Add(static_cast<long long>(b.maint->WriteItem(b.pair.get(), kPairs, b.key.get())));
       }},
      {"write the first pair of a bank", "LibMaint::WriteItem", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 20, kFirst + 21);
         SetPair(b, 7.0);
         o.Add(static_cast<long long>(b.maint->WriteItem(b.pair.get(), "C", b.key.get())));
       }},
      {"write a pair into a full leaf", "LibMaint::WriteItem", Opens::kUpdate, kPlain, FillLeaf,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 31, kFirst + 60);
         o.Add(static_cast<long long>(b.maint->WriteItem(b.pair.get(), kPairs, b.key.get())));
       }},
      {"write a pair into a full root", "LibMaint::WriteItem", Opens::kUpdate, kPlain, FillRoot,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst, kFirst + 60);
         o.Add(static_cast<long long>(b.maint->WriteItem(b.pair.get(), "D", b.key.get())));
       }},
      {"delete pairs one after the other", "LibMaint::DeleteItem", Opens::kUpdate, kParts | kOnce,
       FillLeaf,
       [](Bench& b, Outcome& o) {
         for (long i : {3, 1, 6, 0, 7, 2, 5, 4, 8}) {
           Number(b, kFirst + i, kFirst + i + 1);
           o.Add(static_cast<long long>(b.maint->DeleteItem("VANLAAR", kPairs, b.key.get())));
         }
       }},
      {"overwrite a pair", "LibMaint::WriteItem", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 3, kFirst + 4);
         SetPair(b, 8.0);
         o.Add(static_cast<long long>(b.maint->WriteItem(b.pair.get(), kPairs, b.key.get())));
       }},
      {"rewrite a pair", "LibMaint::RewriteItem", Opens::kUpdate, kPlain, ReadFirstPair,
       [](Bench& b, Outcome& o) {
         SetPair(b, 9.0);
         o.Add(static_cast<long long>(b.maint->RewriteItem(b.pair.get())));
       }},
      {"delete a pair", "LibMaint::DeleteItem", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         Number(b, kFirst + 2, kFirst + 3);
         o.Add(static_cast<long long>(b.maint->DeleteItem("VANLAAR", kPairs, b.key.get())));
       }},
      {"write a component", "LibMaint::WriteItem", Opens::kUpdate, kParts, nullptr,
       [](Bench& b, Outcome& o) {
         BecomeAnother(b);
         o.Add(static_cast<long long>(
             b.maint->WriteItem(b.component.Def(), kComponents, b.key.get())));
       }},
      {"rewrite a component", "LibMaint::RewriteItem", Opens::kUpdate, kParts, ReadFirstComponent,
       [](Bench& b, Outcome& o) {
         b.component->SetProperty(propertyNBP, 333.0);
         b.component->SetSmiles("CCCCCC");
         o.Add(static_cast<long long>(b.maint->RewriteItem(b.component.Def())));
       }},
      {"delete a component", "LibMaint::DeleteItem", Opens::kUpdate, kParts, nullptr,
       [](Bench& b, Outcome& o) {
         b.key->ClearKey();
         b.key->SetKey("C1");
         o.Add(static_cast<long long>(b.maint->DeleteItem("PURECOMP", kComponents, b.key.get())));
       }},
      {"check a component", "LibMaint::CheckComponent", Opens::kRead, kPlain, ReadFirstComponent,
       [](Bench& b, Outcome& o) {
         char ids[12][9] = {"C2"};
         b.component->SetIdentity(kFirst + 30, 74840, 1, ids, "another", "C6H14", 0);
         char text[300] = {};
         o.Add(static_cast<long long>(b.maint->CheckComponent(b.component.operator->(), text)));
         o.Add(text);
       }},
      {"renumber", "LibMaint_p::RenumberComponent", Opens::kUpdate, kParts, nullptr,
       [](Bench& b, Outcome& o) {
         char text[300] = {};
         o.Add(static_cast<long long>(
             b.Log().RenumberComponent(kComponents, kFirst + 1, kFirst + 40, text)));
         o.Add(text);
       }},
      {"identifiers",
       "LibMaint::FindNumberByCas LibMaint::FindNumberById LibMaint::GetIdOfNumber "
       "LibMaint::GetCasOfNumber",
       Opens::kRead, kPlain, nullptr, Identifiers},
      {"new numbers", "LibMaint::NextComponentNumber LibMaint::CollectUsedNumbers", Opens::kRead,
       kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.maint->CollectUsedNumbers();
         o.Add(static_cast<long long>(b.maint->NextComponentNumber()));
       }},
      {"keys",
       "Key::NewKey Key::DelKey Key::SetKeyWords Key::SetKeyText Key_p::FitCompCount "
       "Key_p::ResolveKey Key_p::GetKeyWords Key_p::GetCompCount Key_p::GetCompKind "
       "Key_p::GetCompText Key_p::GetCompCasn Key_p::GetCompNumber Key_p::ClearCache "
       "Key_p::ReservedKey",
       Opens::kRead, kPlain, nullptr, KeysOfAllKinds},
      {"settings of the log",
       "LibMaint_p::SetLogLevel LibMaint_p::SetLogSink LibMaint_p::SetWriteFormat "
       "LibMaint_p::SetWriteBanner LibMaint_p::SetWriteNotice LibMaint_p::SetComponentFiles "
       "LibMaint_p::SetImportChecks",
       Opens::kRead, kPlain, SetFullLog,
       [](Bench& b, Outcome& o) {
         b.Log().SetWriteFormat(true);
         b.Log().SetWriteBanner(false);
         b.Log().SetWriteNotice(false);
         b.Log().SetComponentFiles(true);
         b.Log().SetImportChecks(importChecked);
         o.Done(true);
       }},
  };
}

}  // namespace

Steps MaintenanceSteps() {
  Steps steps = BankSteps();
  for (Step const& step : ItemSteps()) steps.push_back(step);
  return steps;
}

}  // namespace zel::test
