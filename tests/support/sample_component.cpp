#include "tests/support/sample_component.h"

#include <array>
#include <stdexcept>
#include <vector>

#include "frame/ascii.h"

namespace zel::test {
namespace {

void* FaceOf(IZelBankDef* bank, ZelIid const& id) {
  void* face = nullptr;
  if (bank == nullptr || bank->QueryInterface(id, &face) != kStatusOk) {
    throw std::logic_error("no pure component bank");
  }
  static_cast<IUnknown*>(face)->Release();  // the bank's own reference keeps it
  return face;
}

class TextMaker {
 public:
  explicit TextMaker(IZelPureComp* component) : c_(component) {}

  std::string Make() {
    Identity();
    Structures();
    Constants();
    for (std::uint32_t i = 0; i < 20; ++i) Correlation(i);
    Texts();
    return std::move(text_);
  }

 private:
  void Add(char const* text) { text_.append(text).push_back(' '); }
  void Add(double value) { text_.append(reinterpret_cast<char const*>(&value), sizeof value); }
  template <typename Integer>
  void AddInt(Integer value) {
    text_ += std::to_string(value) + ' ';
  }
  void EndLine() { text_.push_back('\n'); }

  void Identity() {
    std::int32_t number, cas, ref, phase;
    char ids[12][9], name[41], formula[21], smiles[101];
    std::uint8_t keep;
    c_->GetIdentity(&number, &cas, &ref, ids, name, formula, &keep);
    c_->GetPhase(&phase);
    c_->GetSmiles(smiles);
    for (std::int32_t n : {number, cas, ref, phase}) AddInt(n);
    for (auto const& id : ids) Add(id);
    for (char const* text : {name, formula, smiles}) Add(text);
    AddInt(keep);
    EndLine();
  }

  void Structures() {
    for (std::uint32_t model = 0; model < 8; ++model) {
      std::int32_t count = 0, ids[10] = {}, counts[10] = {};
      AddInt(c_->GetRawStructure(model, &count, ids, counts));
      for (std::int32_t i = 0; i < count; ++i) AddInt(ids[i]), AddInt(counts[i]);
      AddInt(c_->GetStructure(model, &count, ids, counts));
      for (std::int32_t i = 0; i < count; ++i) AddInt(ids[i]), AddInt(counts[i]);
      EndLine();
    }
  }

  void Constants() {
    std::array<double, 100> values{};
    c_->GetAllProperties(values.data());
    for (double value : values) Add(value);
    EndLine();
    IZelBankIO* io = static_cast<IZelBankIO*>(Face(IID_IZelBankIO));
    AddInt(io->Complete());
    io->Release();
    c_->GetAllCompleted(values.data());
    for (double value : values) Add(value);
    EndLine();
    std::array<std::uint32_t, 50> codes{};
    c_->GetAllPropertyRefCodes(codes.data());
    for (std::uint32_t code : codes) AddInt(code);
    EndLine();
  }

  void* Face(ZelIid const& id) {
    void* face = nullptr;
    c_->QueryInterface(id, &face);
    return face;
  }

  void Correlation(std::uint32_t index) {
    std::int32_t equation = 0, tempUnit = 0, propUnit = 0, logBasis = 0, basis = 0, count = 0;
    double factor = 0.0, tMin = 0.0, tMax = 0.0, coefficients[15] = {};
    std::uint32_t code = 0;
    AddInt(c_->GetCorrelation(index, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                              &count, &tMin, &tMax, coefficients));
    for (std::int32_t n : {equation, tempUnit, propUnit, logBasis, basis, count}) AddInt(n);
    for (double x : {factor, tMin, tMax}) Add(x);
    for (double x : coefficients) Add(x);
    AddInt(c_->GetCorrelationRefCode(index, &code));
    AddInt(code);
    for (double temperature : {100.0, 298.15, 1000.0}) {
      for (std::int32_t order : {1, 2, 3, 11}) {
        double value = 0.0, derivative = 0.0, weights[15] = {};
        std::int32_t status = 0;
        AddInt(c_->EvaluateCorrelation(index, temperature, order, &value, &derivative, weights,
                                       &status));
        Add(value);
        Add(derivative);
        AddInt(status);
        for (double weight : weights) Add(weight);
      }
    }
    EndLine();
  }

  template <typename Get>
  void Sources(std::size_t count, Get const& get) {
    std::vector<char> texts(count * 260);
    std::vector<std::uint8_t> flags(count);
    get(texts.data(), flags.data());
    for (std::size_t i = 0; i < count; ++i) Add(texts.data() + 260 * i), AddInt(flags[i]);
    EndLine();
  }

  void Texts() {
    Sources(100, [&](char* t, std::uint8_t* f) { c_->GetAllPropertySourcesFlat(t, f); });
    Sources(20, [&](char* t, std::uint8_t* f) { c_->GetAllCorrelationSourcesFlat(t, f); });
    Sources(5, [&](char* t, std::uint8_t* f) { c_->GetAllIdentitySourcesFlat(t, f); });
    std::uint8_t warning = 0;
    char text[260];
    c_->GetConsistencyWarning(&warning, text);
    AddInt(warning);
    Add(text);
  }

  IZelPureComp* c_;
  std::string text_;
};

}  // namespace

ComponentBank::ComponentBank()
    : def_(NewPureComp()),
      io_(static_cast<IZelBankIO*>(FaceOf(def_, IID_IZelBankIO))),
      pure_(static_cast<IZelPureComp*>(FaceOf(def_, IID_IZelPureComp))) {}

void SetIdentity(IZelPureComp* component, std::int32_t number, std::int32_t cas, char const* name,
                 int ids) {
  char texts[12][9] = {};
  for (int i = 0; i < ids; ++i) {
    CopyText("ID" + std::to_string(i + 1), texts[i], sizeof texts[i]);
  }
  component->SetIdentity(number, cas, 7, texts, name, "C2H6O", 1);
}

void FillComponent(IZelPureComp* component) {
  SetIdentity(component, 10000123, 64175, "ETHANOL", 12);
  component->SetSmiles("CCO");
  component->SetPhase(6);
  std::int32_t const ids[] = {900, 901, 1200};
  std::int32_t const counts[] = {1, 1, 1};
  for (std::uint32_t model = 0; model < 7; ++model) {
    component->SetStructure(model, 3, ids, counts);
  }
  for (std::uint32_t i = 0; i < 50; ++i) {
    component->SetProperty(i, 46.069 + 1.25 * i);
    component->SetPropertyRefCode(i, 100 + i);
  }
  std::int32_t const equations[18] = {20, 1,  16, 15, 19, 47, 1, 20, 1,
                                      15, 16, 1,  1,  17, 16, 1, 1,  1};
  for (std::uint32_t i = 0; i < 18; ++i) {
    double coefficients[15];
    for (int k = 0; k < 15; ++k) coefficients[k] = 1.5 - 0.25 * k;
    component->SetCorrelation(i, equations[i], 10, 0, 1, i % 3 == 0 ? 2 : 1, 5, 200.0, 500.0 + i,
                              coefficients);
    component->SetCorrelationRefCode(i, 200 + i);
  }
}

std::string TextOf(IZelPureComp* component) { return TextMaker(component).Make(); }

}  // namespace zel::test
