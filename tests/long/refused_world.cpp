// The world of the steps: a library of a few banks with deep trees, another one, and documents.
#include <zelaccess/DataCheck.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include "tests/long/refused_steps.h"

namespace zel::test {

void Outcome::Add(char const* text) noexcept {
  std::size_t const length = std::min(std::strlen(text), kRoom - 2 - used_);
  std::memcpy(text_ + used_, text, length);
  used_ += length;
  text_[used_] = '\n';
  used_ = std::min(used_ + 1, kRoom - 2);
}
void Outcome::Add(long long value) noexcept {
  char text[32];
  std::snprintf(text, sizeof text, "%lld", value);
  Add(text);
}
void Outcome::Add(double value) noexcept {
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  Add(text);
}
void Outcome::Done(bool isGood) noexcept {
  hasFailed_ = hasFailed_ || !isGood;
  Add(isGood ? "good" : "failed");
}
void Outcome::Opened(LibFile const* library, openErrors error) noexcept {
  Done(library != nullptr && error == openOk);
  if ((library != nullptr) != (error == openOk)) Add("a library and its reason contradict");
}
bool Outcome::operator==(Outcome const& other) const noexcept {
  return used_ == other.used_ && std::memcmp(text_, other.text_, used_) == 0;
}

void FindingCounter::Found(zelFindings severity, char const* id, char const* place,
                           char const* text) {
  ++found;
  if (severity == findingDamage) ++damage;
  std::snprintf(last, sizeof last, "%s, %s: %s", id, place, text);
}

Bench::Bench(std::string const& folderOfWorld)
    : folder(folderOfWorld),
      key(Key::NewKey()),
      pair(NewBank("VANLAAR")),
      component("PURECOMP", IID_IZelPureComp) {}

char const* Bench::Path(char const* name) {
  std::snprintf(path, sizeof path, "%s/%s", folder.c_str(), name);
  return path;
}

namespace {

void Check(bool holds, char const* what) {
  if (!holds) throw std::runtime_error(what);
}

void FillComponent(Bench& bench, int at) {
  char ids[12][9] = {};
  std::snprintf(ids[0], sizeof ids[0], "C%d", at);
  std::snprintf(ids[1], sizeof ids[1], "D%d", at);
  char name[41];
  std::snprintf(name, sizeof name, "component %d", at);
  std::int32_t const cas[] = {74828, 74840, 74986, 106978, 109660};  // alkanes from methane on
  char formula[21];
  std::snprintf(formula, sizeof formula, "C%dH%d", at + 2, 2 * at + 6);
  bench.component.Def()->Clear();
  bench.component->SetIdentity(static_cast<std::int32_t>(kFirst + at), cas[at], 3, ids, name,
                               formula, 0);
  for (std::uint32_t i : {propertyMW, propertyTC, propertyPC, propertyNBP, propertySG60F}) {
    bench.component->SetProperty(i, 100.0 + 10.0 * i + at);
  }
  double const coefficients[15] = {20.0, -4000.0, -1.5};
  bench.component->SetCorrelation(correlationVaporPressure, 20, 10, 0, 1, 0, 3, 200.0, 500.0,
                                  coefficients);
  std::int32_t const groups[] = {1, 2};
  std::int32_t const counts[] = {2, at + 1};
  bench.component->SetStructure(structureJoback, 2, groups, counts);
  bench.component->SetSmiles("CCC");
}

void MakeLibrary(Bench& bench, char const* file, int components, int pairs) {
  openErrors error{};
  bench.maint.reset();  // before the library that it belongs to
  bench.library.reset(LibFile::NewLibFile(libKind11, bench.Path(file), error));
  Check(error == openOk, "NewLibFile");
  bench.maint.reset(LibMaint::NewLibMaint(bench.library.get()));
  bench.library->SetDescriptionAndVersion("a small world", "1");
  bench.library->SetMemo("memo of the library");
  Check(bench.maint->CreateBank("PURECOMP", kComponents, 0), "CreateBank");
  for (char const* name : {kPairs, "A", "B", "C", "D"}) {
    Check(bench.maint->CreateBank("VANLAAR", name, 0), "CreateBank");
  }
  bench.maint->SetBankMemo("VANLAAR", kPairs, "memo of the pairs");
  for (int i = 0; i < components; ++i) {
    FillComponent(bench, i);
    bench.key->ClearKey();
    bench.key->SetKey(kFirst + i);
    Check(bench.maint->WriteItem(bench.component.Def(), kComponents, bench.key.get()),
          "WriteItem of a component");
  }
  for (int i = 0; i < pairs; ++i) {
    double const value = 0.25 * i;
    bench.pair->SetDoubleField("aij", &value);
    bench.key->ClearKey();
    bench.key->SetKey(kFirst + i, kFirst + i + 1);
    Check(bench.maint->WriteItem(bench.pair.get(), kPairs, bench.key.get()), "WriteItem");
  }
}

void MakeFile(Bench& bench, char const* name, char const* text) {
  std::ofstream(bench.Path(name)) << text;
}

constexpr char kPairsText[] = R"(<bank type="VANLAAR" name="READ">
  <memo><![CDATA[ read from a document]]></memo>
  <item><keys> 21000000 21000001 </keys><aij> 1.5 </aij><aji> 2.5 </aji></item>
  <item><keys> 21000001 21000002 </keys><aij> 3.5 </aij><aji> 4.5 </aji></item>
</bank>
)";
constexpr char kComponentText[] = R"(<comp>
  <id number="21000009" name="Read" formula="C9H20" casNum="111-84-2"> READ NONANE </id>
  <smiles> CCCCCCCCC </smiles>
  <structure model="joback"> 1(2) 2(7) </structure>
  <property name="TC" value="240.8" uom="C" refCode="12" />
  <correlation name="VaporPressure" equation="20" tempUnit="k" propUnit="kpa" tMin="159" tMax="514">
    66.396 -7122.3 -7.1424 2.8853e-06 2
  </correlation>
</comp>
)";
constexpr char kLibraryText[] = R"(<!DOCTYPE library [<!ENTITY place "read">]>
<library>
  <description> Data that are &place; </description>
  <version> 7 </version>
  <memo><![CDATA[ First line
            [ second line]]></memo>
  <import file="pairs.xml" />
  <bank type="NRTL" name="READ2" format="2">
    <item><keys> 21000000 21000001 </keys><aij> 0 </aij><bij> -29.17 </bij></item>
  </bank>
  <bank type="PURECOMP" name="READ3">
    <comp><id number="21000009" name="Read" formula="C9H20"> READ </id></comp>
  </bank>
</library>
)";

}  // namespace

void MakeWorld(std::string const& folder) {
  SetDeleteTestFlag(true);  // deep trees
  Bench bench(folder);
  MakeLibrary(bench, kOtherFile, 2, 3);
  MakeLibrary(bench, kLibraryFile, 5, 9);
  MakeFile(bench, kBankDocument, kPairsText);
  MakeFile(bench, kComponentDocument, kComponentText);
  MakeFile(bench, kLibraryDocument, kLibraryText);
  MakeFile(bench, kDamagedDocument, "<bank type=\"VANLAAR\" name=\"READ\">\n<item>");
  bench.list.reset(CompList::NewCompList());
  Check(
      bench.list->GetBuilder()->BuildList(bench.library.get(), kComponents, bench.Path(kListFile)),
      "BuildList");
}

}  // namespace zel::test
