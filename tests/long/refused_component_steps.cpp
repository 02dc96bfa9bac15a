// Steps of PureComp.h, Correlation.h, Batch.h, BankDef.h, Identity.h, Units.h and the parts of
// Verify.h that work on a component.
#include <zelaccess/Batch.h>
#include <zelaccess/Identity.h>
#include <zelaccess/Units.h>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

void Ok(Outcome& o, ZelStatus status) { o.Done(status == kStatusOk); }

void ReadComponent(Bench& b) {
  b.key->ClearKey();
  b.key->SetKey(kFirst + 1);
  b.maint->ReadItem(b.component.Def(), kComponents, b.key.get());
}
IZelBankIO* Io(Bench& b) {
  void* face = nullptr;
  b.component->QueryInterface(IID_IZelBankIO, &face);
  auto* const io = static_cast<IZelBankIO*>(face);
  io->Release();  // the bank holds it
  return io;
}

void SetAll(Bench& b, Outcome& o) {
  char const ids[12][9] = {"ONE", "TWO"};
  Ok(o, b.component->SetIdentity(kFirst + 7, 110543, 2, ids, "name", "C6H14", 0));
  std::int32_t const groups[] = {1, 2};
  std::int32_t const counts[] = {2, 4};
  for (std::uint32_t model = 0; model < 7; ++model) {
    Ok(o, b.component->SetStructure(model, 2, groups, counts));
  }
  Ok(o, b.component->SetLegacyStructure(2, groups, counts));
  double values[100];
  for (int i = 0; i < 100; ++i) values[i] = i + 1.0;
  std::uint32_t codes[50] = {};
  Ok(o, b.component->SetAllProperties(values));
  Ok(o, b.component->SetProperty(propertyTC, 500.0));
  Ok(o, b.component->SetAllPropertyRefCodes(codes));
  Ok(o, b.component->SetPropertyRefCode(propertyTC, 3));
  double const coefficients[15] = {1.0, 2.0};
  for (std::uint32_t i = 0; i < 18; ++i) {
    Ok(o, b.component->SetCorrelation(i, 1, 10, 0, 1, 0, 2, 200.0, 500.0, coefficients));
  }
  Ok(o, b.component->SetCorrelationRefCode(correlationLiquidCp, 4));
  Ok(o, b.component->ResetCorrelation(correlationSolidCp));
  Ok(o, b.component->SetSmiles("CCCCCC"));
  Ok(o, b.component->SetPhase(3));
}

void GetConstants(Bench& b, Outcome& o) {
  double values[100] = {};
  double value = 0.0;
  o.Add(static_cast<long long>(b.component->GetAllProperties(values)));
  b.component->GetProperty(propertyTC, &value);
  o.Add(value);
  o.Add(static_cast<long long>(b.component->GetAllCompleted(values)));
  b.component->GetCompleted(propertyVC, &value);
  o.Add(value);
  o.Add(values[3]);
  std::uint32_t codes[100] = {};
  b.component->GetAllPropertyRefCodes(codes);
  std::uint32_t code = 0;
  b.component->GetPropertyRefCode(propertyTC, &code);
  o.Add(static_cast<long long>(code));
  o.Add(static_cast<long long>(GetConstantState(b.component.operator->(), propertyVC)));
}

void GetOthers(Bench& b, Outcome& o) {
  std::int32_t number = 0;
  std::int32_t cas = 0;
  std::int32_t refCode = 0;
  char ids[12][9] = {};
  char name[41] = {};
  char formula[21] = {};
  std::uint8_t keep = 0;
  b.component->GetIdentity(&number, &cas, &refCode, ids, name, formula, &keep);
  for (char const* text : {name, formula, ids[0]}) o.Add(text);
  std::int32_t count = 0;
  std::int32_t groups[100] = {};
  std::int32_t counts[100] = {};
  b.component->GetStructure(structureJoback, &count, groups, counts);
  b.component->GetRawStructure(structureJoback, &count, groups, counts);
  o.Add(static_cast<long long>(count));
  b.component->GetLegacyStructure(&count, groups, counts);
  char text[300] = {};
  b.component->GetSmiles(text);
  o.Add(text);
  std::int32_t phase = 0;
  b.component->GetPhase(&phase);
  o.Add(static_cast<long long>(phase));
  std::uint8_t flag = 0;
  o.Add(static_cast<long long>(b.component->GetConsistencyWarning(&flag, text)));
  std::uint32_t code = 0;
  b.component->GetCorrelationRefCode(correlationVaporPressure, &code);
  o.Add(static_cast<long long>(code));
}

void GetSources(Bench& b, Outcome& o) {
  static char texts[100][260];
  static std::uint8_t flags[100];
  char* rows[100];
  for (int i = 0; i < 100; ++i) rows[i] = texts[i];
  o.Add(static_cast<long long>(b.component->GetAllPropertySources(rows, flags)));
  o.Add(texts[1]);
  o.Add(static_cast<long long>(b.component->GetAllPropertySourcesFlat(texts[0], flags)));
  o.Add(static_cast<long long>(b.component->GetPropertySource(propertyVC, texts[0], flags)));
  o.Add(texts[0]);
  o.Add(static_cast<long long>(b.component->GetAllCorrelationSources(rows, flags)));
  o.Add(static_cast<long long>(b.component->GetAllCorrelationSourcesFlat(texts[0], flags)));
  o.Add(static_cast<long long>(b.component->GetCorrelationSource(0, texts[0], flags)));
  o.Add(texts[0]);
  o.Add(static_cast<long long>(b.component->GetAllIdentitySources(rows, flags)));
  o.Add(static_cast<long long>(b.component->GetAllIdentitySourcesFlat(texts[0], flags)));
  o.Add(static_cast<long long>(b.component->GetIdentitySource(0, texts[0], flags)));
  o.Add(texts[0]);
}

void Evaluate(Bench& b, Outcome& o) {
  double value = 0.0;
  double derivative = 0.0;
  double weights[15] = {};
  std::int32_t status = 0;
  Ok(o, b.component->EvaluateCorrelation(0, 350.0, 1, &value, &derivative, weights, &status));
  o.Add(value);
  o.Add(derivative);
  ZelCorrelation correlation;
  Ok(o, TakeCorrelation(b.component.operator->(), correlationVaporPressure, correlation));
  Ok(o, EvaluateOne(correlation, 350.0, 11, &value, &derivative, weights, &status));
  o.Add(weights[1]);
  o.Add(static_cast<long long>(
      GetCorrelationValue(b.component.operator->(), 0, 350.0, 1, value, derivative, status)));
  std::int32_t words[7] = {};
  double numbers[4] = {};
  double coefficients[15] = {};
  Ok(o, b.component->GetCorrelation(0, &words[0], &words[1], &words[2], &numbers[0], &words[3],
                                    &words[4], &words[5], &numbers[1], &numbers[2], coefficients));
  o.Add(coefficients[1]);
}

void EvaluateBatches(Bench& b, Outcome& o) {
  double const temperatures[] = {300.0, 320.0, 340.0, 360.0, 380.0, 400.0, 420.0, 440.0, 460.0};
  double values[18] = {};
  ZelBatch batch;
  batch.count = 9;
  batch.temperatures = temperatures;
  batch.values = values;
  ZelCorrelation each[9];
  for (ZelCorrelation& one : each) TakeCorrelation(b.component.operator->(), 0, one);
  for (zelBatchModes mode : {batchExact, batchVector}) {
    batch.mode = mode;
    Ok(o, EvaluateBatch(each[0], batch));
    o.Add(values[8]);
    Ok(o, EvaluateComponentBatch(b.component.operator->(), 0, batch));
    Ok(o, EvaluateEachCorrelation(each, batch));
    o.Add(values[8]);
  }
  IZelPureComp* const components[9] = {
      b.component.operator->(), b.component.operator->(), b.component.operator->(),
      b.component.operator->(), b.component.operator->(), b.component.operator->(),
      b.component.operator->(), b.component.operator->(), b.component.operator->()};
  Ok(o, EvaluateEachComponent(components, 0, batch));
  o.Add(values[8]);
  batch.count = 18;
  batch.temperatureStride = 0;
  o.Add(static_cast<long long>(EvaluateAllCorrelations(b.component.operator->(), batch)));
  o.Add(values[0]);
}

// Each type: its facts, its fields, and a record written and read.
void AllBanks(Bench& b, Outcome& o) {
  static char types[200][9];
  long const count = GetBankTypeCount();
  GetBankTypeList(count, types);
  o.Add(static_cast<long long>(count));
  for (long i = 0; i < count; ++i) {
    b.spare.reset(NewBank(types[i]));
    o.Done(b.spare != nullptr);
    if (b.spare == nullptr) continue;
    char type[9] = {};
    char description[200] = {};
    std::int32_t facts[6] = {};
    b.spare->GetBankInfo(type, description, &facts[0], &facts[1], &facts[2], &facts[3], &facts[4],
                         nullptr);
    o.Add(description);
    std::int32_t fields = 0;
    std::int32_t words = 0;
    b.spare->GetFieldCount(1, &fields);
    b.spare->GetRecordLength(1, &words);
    o.Add(static_cast<long long>(fields));
    static char names[200][13], labels[200][20], units[200][20];
    static std::int32_t kinds[200], counts[200];
    b.spare->GetFieldList(1, names, labels, kinds, counts, units);
    if (fields > 0) o.Add(labels[fields - 1]);
    std::int32_t enumerators = 0;
    for (int field = 0; field < fields; ++field) {
      if (b.spare->GetEnumCount(names[field], &enumerators) == kStatusOk) {
        static char texts[200][13];
        static std::int32_t values[200];
        std::int32_t first = 0;
        b.spare->GetEnumList(names[field], texts, values, &first);
        o.Add(texts[first]);
      }
      static double reals[200];
      static std::int32_t integers[200];
      static char text[1000];
      if (kinds[field] == fieldReal) b.spare->SetDoubleField(names[field], reals);
      if (kinds[field] == fieldReal) b.spare->GetDoubleField(names[field], reals);
      if (kinds[field] == fieldInteger) b.spare->SetIntField(names[field], integers);
      if (kinds[field] == fieldInteger) b.spare->GetIntField(names[field], integers);
      if (kinds[field] == fieldText) b.spare->SetStringField(names[field], "x");
      if (kinds[field] == fieldText) b.spare->GetStringField(names[field], text);
    }
    o.Add(static_cast<long long>(GetRefBankTypeCount(types[i])));
    char references[4][9] = {};
    GetRefBankTypeList(types[i], 4, references);
    if (*references[0] != '\0') b.spare->SetRefBankName(references[0], "REFERRED");
    char name[9] = {};
    if (*references[0] != '\0') b.spare->GetRefBankName(references[0], name);
    o.Add(name);
    b.spare->Clear();
  }
}

void BankIo(Bench& b, Outcome& o) {
  IZelBankIO* const io = Io(b);
  char type[9] = {};
  std::int32_t facts[7] = {};
  io->GetBlockInfo(type, &facts[0], &facts[1], &facts[2], &facts[3], &facts[4], &facts[5],
                   &facts[6]);
  std::int32_t words = 0;
  io->GetRecordLength(1, &words);
  static std::int32_t block[2000];
  o.Add(static_cast<long long>(words));
  o.Add(static_cast<long long>(io->WriteBlock(block, 1)));
  o.Add(static_cast<long long>(io->ReadBlock(block, 1)));
  o.Add(static_cast<long long>(io->SwapPair()));
  Ok(o, io->SetSource(b.library.get(), kComponents, 0));
  std::uint8_t const found[] = {1, 1, 0};
  std::uint8_t const isProtected[] = {0, 1, 0};
  Ok(o, io->SetSourceList(3, found, isProtected));
  char source[600] = {};
  std::uint8_t flags[10] = {};
  b.component.Def()->GetSource(source, flags);
  o.Add(source);
  b.component.Def()->GetSourceFlags(flags);
  o.Add(static_cast<long long>(flags[0] + 2 * flags[1]));
  io->ReservedIO(nullptr, nullptr);
}

void RecordOnFile(Bench& b, Outcome& o) {
  IZelBankIO* const io = Io(b);
  std::int32_t block = 0;
  SetAll(b, o);
  Ok(o, io->WriteToFile(&block, b.library.get()));
  Ok(o, io->Clear());
  Ok(o, io->ReadFromFile(&block, b.library.get()));
  if (!o.HasFailed()) GetConstants(b, o);
}

void Identities(Bench& b, Outcome& o) {
  ZelIdentity identity;
  o.Done(GetComponentIdentity(b.component.operator->(), identity));
  static char text[1000];
  GetIdentityText(identity, text);
  o.Add(text);
  ZelIdentity other = identity;
  other.casNumber = 110543;
  o.Add(static_cast<long long>(CompareIdentities(identity, other)));
  o.Add(static_cast<long long>(FormulasAgree("C2H6O", "CH3CH2OH")));
  o.Add(GetFormulaWeight("C2H6O"));
}

void UnitCalls(Bench&, Outcome& o) {
  double values[] = {1.0, 2.0};
  char text[kUnitTextSize] = {};
  o.Add(static_cast<long long>(FindUnit("Temp", "C", text)));
  o.Add(text);
  o.Add(static_cast<long long>(ConvertUnits("Temp", "C", "K", values, 2)));
  o.Add(values[1]);
  o.Add(static_cast<long long>(GetDimensionCount()));
  o.Add(static_cast<long long>(GetDimension(0, text)));
  o.Add(static_cast<long long>(GetUnitCount("Temp")));
  o.Add(static_cast<long long>(GetUnit("Temp", 0, text)));
  o.Add(text);
  o.Add(static_cast<long long>(GetUnitSystemCount()));
  o.Add(static_cast<long long>(GetUnitSystem(0, text)));
  o.Add(GetDimensionOfUnit("K"));
  o.Add(GetConstantDimension(propertyTC));
  o.Add(GetCorrelationDimension(0));
  o.Add(GetUnitCodeName(10));
  o.Add(ConvertTemperature(25.0, 11, 10));
}

}  // namespace

Steps ComponentSteps() {
  return {
      {"a bank of each type",
       "NewBank GetBankTypeCount GetBankTypeList GetRefBankTypeCount GetRefBankTypeList "
       "IZelBankDef::GetBankInfo IZelBankDef::GetRecordLength IZelBankDef::Clear "
       "IZelBankDef::GetFieldCount IZelBankDef::GetFieldList IZelBankDef::GetEnumCount "
       "IZelBankDef::GetEnumList "
       "IZelBankDef::GetStringField IZelBankDef::GetDoubleField IZelBankDef::GetIntField "
       "IZelBankDef::SetStringField IZelBankDef::SetDoubleField IZelBankDef::SetIntField "
       "IZelBankDef::SetRefBankName IZelBankDef::GetRefBankName IUnknown::Release",
       Opens::kNothing, kPlain, nullptr, AllBanks},
      {"records of a component",
       "IUnknown::QueryInterface IZelBankIO::GetBlockInfo IZelBankIO::GetRecordLength "
       "IZelBankIO::WriteBlock IZelBankIO::ReadBlock IZelBankIO::SwapPair IZelBankIO::SetSource "
       "IZelBankIO::SetSourceList IZelBankIO::ReservedIO IZelBankDef::GetSource "
       "IZelBankDef::GetSourceFlags",
       Opens::kRead, kPlain, ReadComponent, BankIo},
      {"a record of a driver", "IZelBankIO::WriteToFile IZelBankIO::Clear IZelBankIO::ReadFromFile",
       Opens::kUpdate, kPlain, ReadComponent, RecordOnFile},
      {"set a component",
       "IZelPureComp::SetIdentity IZelPureComp::SetStructure IZelPureComp::SetLegacyStructure "
       "IZelPureComp::SetAllProperties IZelPureComp::SetProperty "
       "IZelPureComp::SetAllPropertyRefCodes IZelPureComp::SetPropertyRefCode "
       "IZelPureComp::SetCorrelation IZelPureComp::SetCorrelationRefCode "
       "IZelPureComp::ResetCorrelation IZelPureComp::SetSmiles IZelPureComp::SetPhase",
       Opens::kNothing, kPlain, nullptr, SetAll},
      {"complete", "IZelBankIO::Complete", Opens::kRead, kPlain, ReadComponent,
       [](Bench& b, Outcome& o) {
         Ok(o, Io(b)->Complete());
         if (!o.HasFailed()) GetConstants(b, o);
       }},
      {"constants",
       "IZelPureComp::GetAllProperties IZelPureComp::GetProperty IZelPureComp::GetAllCompleted "
       "IZelPureComp::GetCompleted IZelPureComp::GetAllPropertyRefCodes "
       "IZelPureComp::GetPropertyRefCode GetConstantState",
       Opens::kRead, kPlain, ReadComponent, GetConstants},
      {"other data of a component",
       "IZelPureComp::GetIdentity IZelPureComp::GetStructure IZelPureComp::GetRawStructure "
       "IZelPureComp::GetLegacyStructure IZelPureComp::GetSmiles IZelPureComp::GetPhase "
       "IZelPureComp::GetConsistencyWarning IZelPureComp::GetCorrelationRefCode",
       Opens::kRead, kPlain, ReadComponent, GetOthers},
      {"sources",
       "IZelPureComp::GetAllPropertySources IZelPureComp::GetAllPropertySourcesFlat "
       "IZelPureComp::GetPropertySource IZelPureComp::GetAllCorrelationSources "
       "IZelPureComp::GetAllCorrelationSourcesFlat IZelPureComp::GetCorrelationSource "
       "IZelPureComp::GetAllIdentitySources IZelPureComp::GetAllIdentitySourcesFlat "
       "IZelPureComp::GetIdentitySource",
       Opens::kRead, kPlain, ReadComponent, GetSources},
      {"evaluate",
       "IZelPureComp::EvaluateCorrelation IZelPureComp::GetCorrelation TakeCorrelation EvaluateOne "
       "GetCorrelationValue",
       Opens::kRead, kPlain, ReadComponent, Evaluate},
      {"evaluate batches",
       "EvaluateBatch EvaluateComponentBatch EvaluateEachCorrelation EvaluateEachComponent "
       "EvaluateAllCorrelations",
       Opens::kRead, kPlain, ReadComponent, EvaluateBatches},
      {"identities",
       "GetComponentIdentity GetIdentityText CompareIdentities FormulasAgree GetFormulaWeight",
       Opens::kRead, kPlain, ReadComponent, Identities},
      {"units",
       "FindUnit ConvertUnits GetDimensionCount GetDimension GetUnitCount GetUnit "
       "GetUnitSystemCount GetUnitSystem GetDimensionOfUnit GetConstantDimension "
       "GetCorrelationDimension GetUnitCodeName ConvertTemperature",
       Opens::kNothing, kPlain, nullptr, UnitCalls},
  };
}

}  // namespace zel::test
