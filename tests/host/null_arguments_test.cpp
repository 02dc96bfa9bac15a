// Null pointers: every pointer argument of every public function. The last step compares the tested
// functions with the headers, so that a new function is not forgotten.
#include <zelaccess/Batch.h>
#include <zelaccess/Columns.h>
#include <zelaccess/CompList_p.h>
#include <zelaccess/DataJudgement.h>
#include <zelaccess/Identity.h>
#include <zelaccess/Interchange.h>
#include <zelaccess/Key_p.h>
#include <zelaccess/LibFile_p.h>
#include <zelaccess/LibMaint_p.h>
#include <zelaccess/LibSearch_p.h>
#include <zelaccess/OpenLibrary.h>
#include <zelaccess/Progress.h>
#include <zelaccess/Salvage.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>

#include <cctype>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host_fixture.h"
#include "null_sweep.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;  // the names of the tables are those of the headers
using zelnull::Remains;
using zelnull::Sweep;
using zelnull::SweepCall;

// Selects a member function among its overloads.
template <typename... Arguments>
struct With {
  template <typename Class, typename Result>
  static auto Pick(Result (Class::*function)(Arguments...)) {
    return function;
  }
};

class NullArgumentsTest : public HostFolderTest {
 protected:
  void SetUp() override {
    before_ = fs::current_path();
    fs::current_path(fs::path(Path("")));  // exports write here
    library_ = NewLibrary("a.lb1");
    maint_.reset(LibMaint::NewLibMaint(library_.get()));
    ASSERT_TRUE(maint_->CreateBank("VANLAAR", "VANLAAR", 0));
    key_->SetKey(1L, 2L);
    ASSERT_TRUE(maint_->WriteItem(bank_.get(), "VANLAAR", key_.get()));
    FillComponent();
    zelnull::TheWorld() = {library_.get(),          key_.get(),     bank_.get(),
                           component_.operator->(), std::tmpfile(), "VANLAAR"};
  }
  void TearDown() override {
    std::fclose(zelnull::TheWorld().stream);
    fs::current_path(before_);
  }

  void FillComponent() {
    char ids[12][9] = {"ID1"};
    component_->SetIdentity(10000112, 7732185, 1, ids, "Water", "H2O", 0);
    double const coefficients[15] = {1.0, 2.0};
    for (std::uint32_t i = 0; i < 18; ++i) {
      component_->SetCorrelation(i, 1, 10, 0, 0, 1, 2, 0.5, 600.0, coefficients);
    }
    std::int32_t const one[10] = {1};
    component_->SetStructure(1, 1, one, one);
    component_->SetSmiles("O");
  }

  void SweepFaces();
  void SweepBanks();
  void SweepKeys();
  void SweepLibrary();
  void SweepOpening();
  void SweepMaint();
  void SweepExports();
  void SweepSearchAndLists();
  void SweepColumns();
  void SweepFunctions();
  void SweepBatches();

  fs::path before_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
  Handle<Key> key_{Key::NewKey()};
  Handle<IZelBankDef> bank_{NewBank("VANLAAR")};
  BankFace<IZelPureComp> component_{"PURECOMP", IID_IZelPureComp};
};

#define NAME(Class, function) #Class "::" #function
#define SWEEP(object, Class, function) Sweep(NAME(Class, function), object, &Class::function)
#define SWEEP_AS(object, Class, function, ...) \
  Sweep(NAME(Class, function), object, With<__VA_ARGS__>::Pick(&Class::function))

void NullArgumentsTest::SweepFaces() {
  // NOLINTBEGIN(bugprone-macro-parentheses): names, which cannot be in parentheses
#define SWEEP_FACE(keyword, Interface, function)                                \
  {                                                                             \
    BankFace<Interface> face(keyword, IID_##Interface);                         \
    ASSERT_TRUE(face) << keyword;                                               \
    Sweep(NAME(Interface, function), *face.operator->(), &Interface::function); \
  }
#include "null_faces.inc"
#undef SWEEP_FACE
  // NOLINTEND(bugprone-macro-parentheses)
  SWEEP(*component_.operator->(), IZelPureComp, EvaluateCorrelation);
  SWEEP(*component_.operator->(), IZelPureComp, GetCorrelation);
  SWEEP(*component_.operator->(), IZelPureComp, GetStructure);
  SWEEP(*component_.operator->(), IZelPureComp, GetSmiles);
}

void SweepBank(char const* type) {
  SCOPED_TRACE(type);
  Handle<IZelBankDef> const bank(NewBank(type));
  IZelBankDef& def = *bank;
  SWEEP(def, IUnknown, QueryInterface);
  EXPECT_NE(def.QueryInterface(IID_IUnknown, nullptr), kStatusOk);
  SWEEP(def, IZelBankDef, GetBankInfo);
  SWEEP(def, IZelBankDef, GetRecordLength);
  SWEEP(def, IZelBankDef, GetFieldCount);
  SWEEP(def, IZelBankDef, GetFieldList);
  for (char const* field : {"aij", "form", "name", "no field"}) {
    zelnull::TheWorld().text = field;
    SWEEP(def, IZelBankDef, GetEnumCount);
    SWEEP(def, IZelBankDef, GetEnumList);
    SWEEP(def, IZelBankDef, GetStringField);
    SWEEP(def, IZelBankDef, GetDoubleField);
    SWEEP(def, IZelBankDef, GetIntField);
    SWEEP(def, IZelBankDef, SetStringField);
    SWEEP(def, IZelBankDef, SetDoubleField);
    SWEEP(def, IZelBankDef, SetIntField);
  }
  zelnull::TheWorld().text = "ALPHA";
  SWEEP(def, IZelBankDef, GetSource);
  SWEEP(def, IZelBankDef, GetSourceFlags);
  SWEEP(def, IZelBankDef, SetRefBankName);
  SWEEP(def, IZelBankDef, GetRefBankName);
  void* face = nullptr;
  ASSERT_EQ(def.QueryInterface(IID_IZelBankIO, &face), kStatusOk);
  auto& io = *static_cast<IZelBankIO*>(face);
  SWEEP(io, IZelBankIO, GetBlockInfo);
  SWEEP(io, IZelBankIO, GetRecordLength);
  SWEEP(io, IZelBankIO, ReadBlock);
  SWEEP(io, IZelBankIO, ReadFromFile);
  SWEEP(io, IZelBankIO, WriteBlock);
  SWEEP(io, IZelBankIO, WriteToFile);
  SWEEP(io, IZelBankIO, ReservedIO);
  SWEEP(io, IZelBankIO, SetSource);
  SWEEP(io, IZelBankIO, SetSourceList);
  io.Release();
}

void NullArgumentsTest::SweepBanks() {
  std::vector<char> names(static_cast<std::size_t>(GetBankTypeCount()) * 9);
  auto* list = reinterpret_cast<char(*)[9]>(names.data());
  GetBankTypeList(GetBankTypeCount(), list);
  for (long i = 0; i < GetBankTypeCount(); ++i) SweepBank(list[i]);
  zelnull::TheWorld().text = "VANLAAR";
}

template <typename... Parts>
void SweepSetKey(Key& key) {
  Sweep("Key::SetKey", key, static_cast<void (Key::*)(Parts...)>(&Key::SetKey));
  if constexpr (sizeof...(Parts) < 3) {
    SweepSetKey<Parts..., casn const&>(key);
    SweepSetKey<Parts..., char const*>(key);
    SweepSetKey<Parts..., long>(key);
  }
}

void NullArgumentsTest::SweepKeys() {
  Handle<Key> const key(Key::NewKey());
  auto& inner = dynamic_cast<Key_p&>(*key);
  SweepSetKey<casn const&>(*key);
  SweepSetKey<char const*>(*key);
  SweepSetKey<long>(*key);
  SWEEP(*key, Key, SetKeyWords);
  key->SetKeyWords(2, nullptr);
  EXPECT_EQ(inner.GetCompCount(), 0) << "words that are not there make an empty key";
  SWEEP(*key, Key, SetKeyText);
  SWEEP(inner, Key_p, GetCompText);
  SWEEP(inner, Key_p, ResolveKey);
  SWEEP(inner, Key_p, ReservedKey);
  Key* none = nullptr;
  Key::DelKey(none);
}

void NullArgumentsTest::SweepLibrary() {
  SWEEP(*library_, LibFile, GetDescriptionAndVersion);
  SWEEP(*library_, LibFile, SetDescriptionAndVersion);
  SWEEP(*library_, LibFile, GetMemo);
  SWEEP(*library_, LibFile, SetMemo);
  SWEEP(*library_, LibFile, GetPassword);
  SWEEP(*library_, LibFile, SetPassword);
  library_->SetPassword(0, nullptr);
  auto& inner = dynamic_cast<LibFile_p&>(*library_);
  SWEEP(inner, LibFile_p, ReadBlock);
  SWEEP(inner, LibFile_p, WriteBlock);
  constexpr std::int32_t kNode = 112000001;
  EXPECT_EQ(inner.ReadBlock(kNode, 1, nullptr), -1);
  std::int32_t address = 990000000;
  EXPECT_EQ(inner.WriteBlock(address, 1, nullptr, 0), -1);
  EXPECT_EQ(address, 990000000) << "nothing was allocated";
  SWEEP(inner, LibFile_p, FindBank);
  SWEEP(inner, LibFile_p, HasBank);
  SWEEP(inner, LibFile_p, FindIdNumbers);
  SWEEP(inner, LibFile_p, ReservedLib1);
  SWEEP(inner, LibFile_p, ReservedLib2);
  SWEEP(inner, LibFile_p, ReservedLib3);
  SWEEP(inner, LibFile_p, GetHeaderBlocks);
}

void NullArgumentsTest::SweepOpening() {
  using Path = char const*;
  char const* const create = "LibFile::NewLibFile";
  Sweep(create, static_cast<LibFile* (*)(libTypes, Path, Path, openErrors&)>(&LibFile::NewLibFile));
  Sweep(create, static_cast<LibFile* (*)(libTypes, Path, openErrors&)>(&LibFile::NewLibFile));
  char const* const open = "LibFile::OpenLibFile";
  Sweep(open,
        static_cast<LibFile* (*)(accModes, Path, Path, Path, openErrors&)>(&LibFile::OpenLibFile));
  Sweep(open, static_cast<LibFile* (*)(accModes, Path, Path, Path, openErrors&, libTypes&)>(
                  &LibFile::OpenLibFile));
  Sweep(open, static_cast<LibFile* (*)(accModes, Path, Path, openErrors&)>(&LibFile::OpenLibFile));
  Sweep(open, static_cast<LibFile* (*)(accModes, Path, Path, openErrors&, libTypes&)>(
                  &LibFile::OpenLibFile));
  Sweep("LibFile::StatusLibFile", &LibFile::StatusLibFile);
  SweepCall<LibFile*>("LibFile::SetOrdwinNameIndex", [](LibFile* library) {
    LibFile::SetOrdwinNameIndex(library);
    LibFile::ClearOrdwinNameIndex();
  });
  SweepCall<LibFile*>("LibMaint::NewLibMaint", [](LibFile* library) {
    Handle<LibMaint> const maint(LibMaint::NewLibMaint(library));
    char type[9], name[9];
    maint->BeginBankWalk();
    return maint->NextBank(type, name);
  });
}

void NullArgumentsTest::SweepMaint() {
  using Text = char const*;
  LibMaint& m = *maint_;
  SWEEP_AS(m, LibMaint, FindNumberById, Text, bool&);
  SWEEP_AS(m, LibMaint, FindNumberById, Text);
  SWEEP_AS(m, LibMaint, GetIdOfNumber, std::int32_t, char*, bool&);
  SWEEP_AS(m, LibMaint, GetIdOfNumber, std::int32_t, char*);
  SweepCall<IZelPureComp*, Key*, char*>(
      "LibMaint::CheckComponent",
      [&](IZelPureComp* c, Key* key, char* text) { return m.CheckComponent(c, key, text); },
      Remains::kResult);
  SweepCall<IZelPureComp*, char*>(
      "LibMaint::CheckComponent",
      [&](IZelPureComp* c, char* text) { return m.CheckComponent(c, text); }, Remains::kResult);
  SWEEP(m, LibMaint, CreateBank);
  SWEEP(m, LibMaint, GetBankMemo);
  SWEEP(m, LibMaint, SetBankMemo);
  SWEEP(m, LibMaint, GetBankFormat);
  SWEEP(m, LibMaint, BankExists);
  SWEEP(m, LibMaint, ItemExists);
  SWEEP(m, LibMaint, ReadItem);
  SWEEP(m, LibMaint, WriteItem);
  SWEEP(m, LibMaint, RewriteItem);
  EXPECT_FALSE(m.ReadItem(nullptr, "VANLAAR", key_.get()));
  EXPECT_FALSE(m.ReadItem(bank_.get(), "VANLAAR", nullptr));
  EXPECT_FALSE(m.WriteItem(nullptr, "VANLAAR", key_.get()));
  EXPECT_FALSE(m.WriteItem(bank_.get(), "VANLAAR", nullptr));
  SWEEP_AS(m, LibMaint, BeginBankWalk, Text);
  SWEEP(m, LibMaint, BeginItemWalk);
  SweepCall<std::int32_t&, char*>("LibMaint::NextId", [&](std::int32_t& number, char* id) {
    m.BeginIdWalk();
    return m.NextId(number, id);
  });
  SweepCall<char*, char*>("LibMaint::NextBank", [&](char* type, char* name) {
    m.BeginBankWalk();
    return m.NextBank(type, name);
  });
  SweepCall<std::int32_t*, IZelBankDef*>(
      "LibMaint::NextItem",
      [&](std::int32_t* words, IZelBankDef* bank) {
        return m.BeginItemWalk("VANLAAR", "VANLAAR") && m.NextItem(words, bank);
      },
      Remains::kResult);
  SweepCall<std::int32_t*>("LibMaint::NextItemKey", [&](std::int32_t* words) {
    return m.BeginItemWalk("VANLAAR", "VANLAAR") && m.NextItemKey(words);
  });
  SWEEP(m, LibMaint, GetRefBankNames);
  SWEEP(m, LibMaint, WriteTextDump);
  auto& wider = dynamic_cast<LibMaint_p&>(m);
  SWEEP(wider, LibMaint_p, DumpBankTree);
  EXPECT_FALSE(wider.DumpBankTree("VANLAAR", "VANLAAR", 0, nullptr, -1));
  SweepCall<char const*, char*>("LibMaint_p::RenumberComponent", [&](char const* bank, char* text) {
    return wider.RenumberComponent(bank, 1, 2, text);
  });
  // Without a sink the log goes to standard output again.
  struct Sink final : ZelLogSink {
    void Line(ZelLogLine const&) override { ++lines; }
    void BankBegins(char const*, char const*) override {}
    int lines = 0;
  } sink;
  wider.SetLogSink(&sink);
  wider.SetLogSink(nullptr);
  wider.SetLogLevel(1);
  ::testing::internal::CaptureStdout();
  EXPECT_FALSE(m.Import("none.xml", false));
  EXPECT_NE(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(sink.lines, 0);
  wider.SetLogLevel(0);
  ++zelnull::Swept()["LibMaint_p::SetLogSink"];
}

void NullArgumentsTest::SweepExports() {
  using Text = char const*;
  LibMaint& m = *maint_;
  SWEEP_AS(m, LibMaint, ExportLibrary, Text, bool, bool);
  SWEEP_AS(m, LibMaint, ExportLibrary, Text, bool);
  SWEEP_AS(m, LibMaint, ExportLibrary, Text);
  SWEEP_AS(m, LibMaint, ExportBank, Text, Text, Text, bool, bool);
  SWEEP_AS(m, LibMaint, ExportBank, Text, Text, Text, bool);
  SWEEP_AS(m, LibMaint, ExportBank, Text, Text, Text);
  SWEEP_AS(m, LibMaint, ExportComponentByNumber, Text, std::int32_t, Text, bool);
  SWEEP_AS(m, LibMaint, ExportComponentByNumber, Text, std::int32_t, Text);
  SWEEP_AS(m, LibMaint, ExportComponentById, Text, Text, Text, bool);
  SWEEP_AS(m, LibMaint, ExportComponentById, Text, Text, Text);
  SWEEP(m, LibMaint, Import);
  SWEEP(m, LibMaint, ImportComponent);
  SWEEP(m, LibMaint, DeleteItem);
  SWEEP(m, LibMaint, DeleteBank);
}

void NullArgumentsTest::SweepSearchAndLists() {
  Handle<LibSearch> const search(LibSearch::NewLibSearch());
  SWEEP(*search, LibSearch, SetLibraries);
  SWEEP_AS(*search, LibSearch, SetBankNames, long, char const(*)[9]);
  SWEEP_AS(*search, LibSearch, SetBankNames, long, char const* const*);
  SWEEP(*search, LibSearch, Search);
  SWEEP(*search, LibSearch, SetLibraryBanks);
  search->SetLibraryBanks(2, nullptr, nullptr);
  EXPECT_FALSE(search->Search(key_.get(), bank_.get(), true));

  Handle<CompList> const list(CompList::NewCompList());
  SWEEP(*list, CompList, ReadList);
  SWEEP(*list, CompList, SetFilter);
  list->ResetFilter();
  auto& builder = dynamic_cast<CompListBuild_p&>(*list->GetBuilder());
  builder.AddRecord("Ethane", "C2", "C2H6", casn("74-84-0"), 184.6, 30.07);
  builder.SortRecords();
  SweepCall<char*, char*, char*, char*, double&, double&>(
      "CompList::GetNext",
      [&](char* name, char* id, char* formula, char* cas, double& nbp, double& mw) {
        list->Rewind();
        return list->GetNext(name, id, formula, cas, nbp, mw);
      });
  SweepCall<char*, char*, char*>("CompList::GetNextShort",
                                 [&](char* id, char* name, char* formula) {
                                   list->Rewind();
                                   return list->GetNextShort(id, name, formula);
                                 });
  SweepCall<std::int32_t, char*>("CompListBuild_p::FormatRecord",
                                 [&](std::int32_t, char* text) { builder.FormatRecord(0, text); });
  // Texts that are changed in place.
  SweepCall<char*>(
      "CompListBuild_p::CleanRecord",
      [&](char* second) {
        char name[41] = "ethane", ids[12][9] = {"C2"}, formula[21] = "C2H6";
        std::int32_t count = 0, result = 0, cas = 0;
        EXPECT_FALSE(builder.CleanRecord(nullptr, ids, count, formula, second, 0, result, cas));
        EXPECT_FALSE(builder.CleanRecord(name, nullptr, count, formula, second, 0, result, cas));
        EXPECT_FALSE(builder.CleanRecord(name, ids, count, nullptr, second, 0, result, cas));
        return builder.CleanRecord(name, ids, count, formula, second, 0, result, cas);
      },
      Remains::kResult);
  SWEEP(builder, CompListBuild_p, AddRecord);
  SWEEP(builder, CompListBuild_p, AddIds);
  SWEEP(builder, CompListBuild_p, AddId);
  SWEEP(builder, CompListBuild_p, AddFormula);
  SWEEP(builder, CompListBuild_p, WriteList);
  SWEEP(builder, CompListBuild, BuildList);
}

// Columns are only added: nothing is read into them.
void NullArgumentsTest::SweepColumns() {
  SweepCall<LibFile*, char const*, char const*>(
      "ColumnReader::NewColumnReader", [](LibFile* library, char const* type, char const* name) {
        return Handle<ColumnReader>(ColumnReader::NewColumnReader(library, type, name)) != nullptr;
      });
  Handle<ColumnReader> const reader(
      ColumnReader::NewColumnReader(library_.get(), "VANLAAR", "VANLAAR"));
  ASSERT_TRUE(reader);
  EXPECT_FALSE(reader->AddReals("aij", nullptr));
  EXPECT_FALSE(reader->AddIntegers("refCode", nullptr));
  SWEEP(*reader, ColumnReader, AddKeys);
  SWEEP(*reader, ColumnReader, AddReals);
  SWEEP(*reader, ColumnReader, AddIntegers);
  SWEEP(*reader, ColumnReader, AddTexts);
}

// A batch is a structure of pointers, which are the arguments here.
void NullArgumentsTest::SweepBatches() {
  ZelCorrelation taken;
  SweepCall<IZelPureComp*>("TakeCorrelation", [&](IZelPureComp* component) {
    return TakeCorrelation(component, correlationIdealEnthalpy, taken);
  });
  SweepCall<double*, double*, double*, std::int32_t*>(
      "EvaluateOne", [&](auto... outputs) { return EvaluateOne(taken, 300.0, 1, outputs...); });
  double const temperature = 300.0;
  ZelBatch one;
  one.count = 1;
  one.temperatures = &temperature;
  auto const sweep = [&](char const* name, auto const& evaluate) {
    SweepCall<double*, double*, double*, std::int32_t*>(
        name, [&](double* values, double* derivatives, double* weights, std::int32_t* statuses) {
          ZelBatch batch = one;
          batch.values = values;
          batch.derivatives = derivatives;
          batch.weights = weights;
          batch.statuses = statuses;
          return evaluate(batch);
        });
  };
  sweep("a batch", [&](ZelBatch const& batch) { return EvaluateBatch(taken, batch); });
  double value = 0.0;
  one.values = &value;
  std::uint32_t const index = correlationIdealEnthalpy;
  IZelPureComp* const component = component_.operator->();
  auto const sweepObject = [&](char const* name, auto const& evaluate) {
    SweepCall<IZelPureComp*>(name, [&](IZelPureComp* given) { return evaluate(given); });
  };
  sweepObject("EvaluateComponentBatch",
              [&](IZelPureComp* given) { return EvaluateComponentBatch(given, index, one); });
  sweepObject("EvaluateAllCorrelations",
              [&](IZelPureComp* given) { return EvaluateAllCorrelations(given, one); });
  sweepObject("EvaluateEachComponent", [&](IZelPureComp* given) {
    EXPECT_EQ(EvaluateEachComponent(nullptr, index, one), kStatusFailed);
    return EvaluateEachComponent(&given, index, one);
  });
  sweepObject("EvaluateEachCorrelation", [&](IZelPureComp* given) {
    return EvaluateEachCorrelation(given != nullptr ? &taken : nullptr, one);
  });
  one.temperatures = nullptr;
  EXPECT_EQ(EvaluateBatch(taken, one), kStatusFailed);
  EXPECT_EQ(EvaluateComponentBatch(component, index, one), kStatusFailed);
}

void NullArgumentsTest::SweepFunctions() {
  Sweep("GetBankTypeList", &GetBankTypeList);
  Sweep("GetRefBankTypeCount", &GetRefBankTypeCount);
  Sweep("GetRefBankTypeList", &GetRefBankTypeList);
  SweepCall<char const*>(
      "NewBank", [](char const* type) { return Handle<IZelBankDef>(NewBank(type)) != nullptr; });
  Sweep("GetKeyText", &GetKeyText);
  char text[41] = "x";
  GetKeyText(nullptr, 2, text);
  EXPECT_STREQ(text, "");
  Sweep("GetFormulaWeight", &GetFormulaWeight);
  SweepCall<IZelPureComp*>("GetComponentIdentity", [](IZelPureComp* component) {
    ZelIdentity identity;
    return GetComponentIdentity(component, identity);
  });
  Sweep("FormulasAgree", &FormulasAgree);
  SweepCall<char*>("GetIdentityText", [](char* buffer) { GetIdentityText({}, buffer); });
  SweepCall<std::int32_t, std::int32_t, char*>(
      "GetCorrelationFault",
      [](std::int32_t, std::int32_t, char* buffer) { return GetCorrelationFault(99, 1, buffer); },
      Remains::kResult);
  Sweep("GetCorrelationValue", &GetCorrelationValue);
  Sweep("GetConstantState", &GetConstantState);
  SweepCall<char const*>("ReadDocumentContents", [](char const* path) {
    ZelDocumentContents contents;
    return ReadDocumentContents(path, contents);
  });
  SweepCall<char const*, char*>("GetFileName",
                                [](char const* name, char* file) { GetFileName(name, file, 8); });
  SweepBatches();
  SweepCall<char*>(
      "TryInitZelAccess", [](char* reason) { return TryInitZelAccess(reason); }, Remains::kResult);
  double pressure = 1.0;
  SweepCall<char const*, char const*, char const*, double*>(
      "ConvertUnits", [&](char const* dimension, char const* from, char const* to, double* values) {
        return ConvertUnits(dimension, from, to, values, 1);
      });
  EXPECT_TRUE(ConvertUnits("Pres", "bar", "kPa", &pressure, 1));
  Sweep("FindUnit", &FindUnit);
  Sweep("GetDimensionOfUnit", &GetDimensionOfUnit);
  SweepCall<char*>("GetDimension", [](char* name) { return GetDimension(0, name); });
  Sweep("GetUnitCount", &GetUnitCount);
  SweepCall<char const*, char*>(
      "GetUnit", [](char const* name, char* unit) { return GetUnit(name, 0, unit); });
  SweepCall<char*>("GetUnitSystem", [](char* name) { return GetUnitSystem(0, name); });
  Sweep("GetFileRoom", &GetFileRoom);
  Sweep("GetLostFlushes", &GetLostFlushes);
  auto const opens = [](LibFile* library) { return Handle<LibFile>(library) != nullptr; };
  openErrors error = openOk;
  SweepCall<char const*, char const*, char const*>(
      "OpenLibrary", [&](char const* path, char const* name, char const* password) {
        ZelOpenOptions options;
        options.name = name;
        options.password = password;
        return opens(OpenLibrary(path, options, error));
      });
  EXPECT_EQ(OpenLibrary(nullptr, {}, error), nullptr);
  EXPECT_EQ(error, openNotFound);
  SweepCall<char const*>("NewLibrary", [&](char const* path) {
    return opens(zel::NewLibrary(libKind11, path, {}, error));
  });
  EXPECT_EQ(zel::NewLibrary(libKind11, nullptr, {}, error), nullptr);
  EXPECT_EQ(error, openNotLibrary);
  ZelLastClose state;
  SweepCall<LibFile*>("GetLastClose",
                      [&](LibFile* library) { return GetLastClose(library, state); });
  EXPECT_EQ(FinishLastFlush(nullptr, false), openOk);
  EXPECT_TRUE(ForgetUncleanClose(nullptr));
  SweepCall<char const*>(
      "FinishLastFlush", [](char const* path) { return FinishLastFlush(path, false) == openOk; },
      Remains::kResult);
  SweepCall<char const*>(
      "ForgetUncleanClose", [](char const* path) { return ForgetUncleanClose(path); },
      Remains::kResult);
  struct Sink final : ZelFindingSink {
    void Found(zelFindings, char const*, char const*, char const*) override {}
  } sink;
  SweepCall<LibFile*>("VerifyLibrary",
                      [&](LibFile* library) { return VerifyLibrary(library, sink); });
  struct SalvageSink final : ZelSalvageSink {
    void Salvaged(ZelSalvageRecord const&) override {}
  } salvageSink;
  Sweep("FindLibraryType", &FindLibraryType);
  SweepCall<char const*, char const*, LibFile*>(
      "SalvageLibrary", [&](char const* path, char const* password, LibFile* rescued) {
        ZelSalvageCounts counts;
        SalvageLibrary(path, password, rescued, nullptr, counts);
        return SalvageLibrary(path, password, rescued, &salvageSink, counts);
      });
  struct DataSink final : ZelDataFindingSink {
    void Found(zelFindings, char const*, char const*, char const*) override {}
  } dataSink;
  SweepCall<LibFile*, char const*>("CheckLibraryData", [&](LibFile* library, char const* name) {
    return CheckLibraryData({library, name}, {}, dataSink);
  });
  SweepCall<IZelPureComp*, char const*, char const*>(
      "CheckComponentData", [&](IZelPureComp* component, char const* library, char const* bank) {
        return CheckComponentData(component, library, bank, {}, dataSink);
      });
  SweepCall<LibFile* const*, char const* const*>(
      "CompareLibraryData", [&](LibFile* const* library, char const* const* silent) {
        ZelDataCheckOptions options;
        options.silent = silent;
        options.silentCount = 1;
        ZelCheckedLibrary const checked{library != nullptr ? *library : nullptr, nullptr};
        return CompareLibraryData(library != nullptr ? &checked : nullptr, 1, options, dataSink);
      });
  SweepCall<LibFile* const*, char const* const*>(
      "JudgeLibraryData", [&](LibFile* const* library, char const* const* silent) {
        ZelJudgementOptions options;
        options.silent = silent;
        options.silentCount = 1;
        ZelCheckedLibrary const checked{library != nullptr ? *library : nullptr, nullptr};
        return JudgeLibraryData(library != nullptr ? &checked : nullptr, 1, options, dataSink);
      });
  struct Steps final : ZelProgress {
    bool OnProgress(double) noexcept override { return true; }
  } steps;
  SweepCall<LibFile*>("SetProgress", [&](LibFile* library) {
    SetProgress(library, &steps);
    SetProgress(library, nullptr);
  });
  SweepCall<LibFile*>("SetItemFindings", [&](LibFile* library) {
    SetItemFindings(library, &sink);
    SetItemFindings(library, nullptr);
  });
}

// --- what the headers declare --------------------------------------------------------------------

std::string WithoutComments(fs::path const& header) {
  std::ifstream file(header);
  std::string text, line;
  while (std::getline(file, line)) {
    if (line.rfind('#', 0) != 0) text += line.substr(0, line.find("//")) + ' ';
  }
  return text;
}

void Replace(std::string& text, std::string const& what, std::string const& by) {
  for (std::size_t at; (at = text.find(what)) != std::string::npos;)
    text.replace(at, what.size(), by);
}

// The name of a declared function that takes a pointer; empty for anything else. A reference to a
// handle does not count.
std::string PointerFunction(std::string statement) {
  Replace(statement, "*&", "&");
  std::size_t const first = statement.find_first_not_of(' ');
  std::size_t const open = statement.find('(');
  if (first == std::string::npos || open == std::string::npos) return {};
  bool const declared = statement.compare(first, 8, "virtual ") == 0 ||
                        statement.compare(first, 7, "static ") == 0 ||
                        statement.compare(first, 8, "ZEL_API ") == 0;
  if (!declared || statement.find('*', open) == std::string::npos) return {};
  std::size_t start = open;
  while (start > 0 && (std::isalnum(static_cast<unsigned char>(statement[start - 1])) != 0 ||
                       statement[start - 1] == '_')) {
    --start;
  }
  return statement.substr(start, open - start);
}

// How often each function is declared, by "Class::Function".
std::map<std::string, int> Declared() {
  std::map<std::string, int> functions;
  for (fs::directory_entry const& header : fs::directory_iterator(ZEL_HEADERS)) {
    std::string const text = WithoutComments(header.path());
    std::string classOf;
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (text[at] != ';' && text[at] != '{' && text[at] != '}' &&
          !(text[at] == ':' && at > 6 && text.compare(at - 6, 7, "public:") == 0) &&
          !(text[at] == ':' && at > 9 && text.compare(at - 9, 10, "protected:") == 0) &&
          !(text[at] == ':' && at > 7 && text.compare(at - 7, 8, "private:") == 0)) {
        continue;
      }
      std::string const statement = text.substr(from, at - from);
      from = at + 1;
      std::size_t const name = statement.find("class ZEL_API ");
      if (name != std::string::npos && text[at] != ';') {
        classOf = statement.substr(name + 14, statement.find_first_of(" :", name + 14) - name - 14);
      }
      std::string const function = PointerFunction(statement);
      bool const isFree = statement.find("ZEL_API ") != std::string::npos;
      std::string whole = isFree ? std::string() : classOf + "::";
      if (!function.empty()) ++functions[whole.append(function)];
    }
  }
  functions.erase("ZelFindingSink::Found");  // implemented by the host
  functions.erase("ZelLogSink::BankBegins");
  functions.erase("ZelDataFindingSink::Checked");
  functions.erase("casn::casnI2C");  // private
  functions.erase("casn::casnS2C");
  return functions;
}

TEST_F(NullArgumentsTest, EveryPointerOfEveryFunctionMayBeNull) {
  SweepColumns();
  SweepFaces();
  SweepBanks();
  SweepKeys();
  SweepLibrary();
  SweepOpening();
  SweepMaint();
  SweepExports();
  SweepSearchAndLists();
  SweepFunctions();
  std::map<std::string, int> const declared = Declared();
  EXPECT_GT(declared.size(), 200U) << "the headers are read";
  for (auto const& [name, count] : declared) EXPECT_GE(zelnull::Swept()[name], count) << name;
}

TEST_F(NullArgumentsTest, NoSlopeIsWantedOfACorrelation) {
  double value = 0.0;
  EXPECT_EQ(component_->EvaluateCorrelation(0, 300.0, 1, &value, nullptr, nullptr, nullptr),
            kStatusOk);
  EXPECT_EQ(value, 601.0);
  double slope = 0.0;
  EXPECT_EQ(component_->EvaluateCorrelation(0, 300.0, 1, nullptr, &slope, nullptr, nullptr),
            kStatusOk);
  EXPECT_EQ(slope, 2.0);
  EXPECT_EQ(component_->EvaluateCorrelation(0, 300.0, 1, nullptr, nullptr, nullptr, nullptr),
            kStatusFailed);
  EXPECT_EQ(component_->GetProperty(1, nullptr), kStatusFailed);
}

TEST_F(NullArgumentsTest, NullArrayChangesNothing) {
  BankFace<IZelHenry> henry("HENRY", IID_IZelHenry);
  double const c[5] = {1, 2, 3, 4, 5};
  ASSERT_EQ(henry->PutData(c, 300.0, 400.0, 1.0, 2.0, 3), kStatusOk);
  EXPECT_EQ(henry->PutData(nullptr, 0.0, 0.0, 0.0, 0.0, 0), kStatusFailed);
  double kept[5] = {};
  double tMin = 0.0;
  EXPECT_EQ(henry->GetData(kept, &tMin, nullptr, nullptr, nullptr, nullptr), kStatusOk);
  EXPECT_EQ(kept[4], 5.0);
  EXPECT_EQ(tMin, 300.0);
}

}  // namespace
