// Libraries in memory whose data are checked, and findings as lines of text.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/sample_component.h"
#include "zelaccess/DataCheck.h"

namespace zel::test {

inline std::string NumberText(double value) {
  if (gen_IsUndefDouble(value)) return "-";
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", value);
  return text;
}

// "severity id | library type:name [key] item | datum = value (text) unit at T | min to max (text)
// | against | text"
inline std::string LineOf(ZelDataFinding const& f) {
  static constexpr char const* kSeverities[] = {"note", "warning", "damage", "error"};
  std::string key;
  for (std::int32_t i = 0; i < f.keyWords; ++i)
    key += (i == 0 ? "" : " ") + std::to_string(f.key[i]);
  return std::string(kSeverities[f.severity]) + " " + f.id + " | " + f.library + " " + f.bankType +
         ":" + f.bankName + " [" + key + "] " + f.item + " | " + f.datum + " = " +
         NumberText(f.value) + " (" + f.valueText + ") " + f.unit + " at " +
         NumberText(f.temperature) + " | " + NumberText(f.expectedMin) + " to " +
         NumberText(f.expectedMax) + " (" + f.expectedText + ") | " + f.against + " | " + f.place +
         ": " + f.text;
}

class DataSink final : public ZelDataFindingSink {
 public:
  void Found(zelFindings, char const* id, char const*, char const*) override {
    ADD_FAILURE() << "not through FoundData: " << id;
  }
  void FoundData(ZelDataFinding const& finding) override {
    lines.push_back(LineOf(finding));
    ids += (ids.empty() ? "" : " ") + std::string(finding.id);
  }
  void Checked(char const* library, char const* bank, std::int64_t done,
               std::int64_t total) override {
    progress += std::string(library) + " " + bank + " " + std::to_string(done) + "/" +
                std::to_string(total) + "\n";
  }
  void Clear() {
    lines.clear();
    ids.clear();
    progress.clear();
  }

  std::vector<std::string> lines;
  std::string ids;  // of the lines, with blanks between them
  std::string progress;
};

// A component as a test changes it: good data, in which nothing is found.
//
// Its vapor pressure is -19700 + 49.5 T kPa: 100 at NBP, 1090 at 0.7 TC, PC at TC. So the acentric
// factor is -log10(0.109) - 1 = -0.03743. The critical compressibility factor is
// 10000 * 0.1 / (8.314463 * 600) = 0.200454.
struct GoodComponent {
  std::int32_t number = 10000007;
  std::int32_t cas = 7732185;
  std::string id = "GOOD";
  std::string formula = "H2O";
  std::uint32_t code = 1;
  std::function<void(IZelPureComp&)> change;  // may be empty

  void Fill(IZelPureComp& c) const {
    char ids[12][9] = {};
    std::snprintf(ids[0], sizeof ids[0], "%s", id.c_str());
    c.SetIdentity(number, cas, 1, ids, "Name", formula.c_str(), 0);
    struct {
      std::uint32_t index;
      double value;
    } const constants[] = {{propertyMW, 18.015}, {propertyTC, 600},    {propertyPC, 10000},
                           {propertyVC, 0.1},    {propertyZC, 0.2},    {propertyACENTRIC, -0.037},
                           {propertyNMP, 273.1}, {propertyTTP, 273.1}, {propertyNBP, 400}};
    for (auto const& row : constants) {
      c.SetProperty(row.index, row.value);
      c.SetPropertyRefCode(row.index, 1);
    }
    Line(c, correlationVaporPressure, 399, 600, -19700, 49.5);
    Line(c, correlationSurfaceTension, 300, 600, 0.06, -0.0001);
    Line(c, correlationLiquidCp, 300, 500, 75, 0.01);
    if (change) change(c);
  }
  // The straight line a + b T with T in K, in internal units.
  static void Line(IZelPureComp& c, std::uint32_t index, double tMin, double tMax, double a,
                   double b, std::int32_t equation = 1) {
    double const coefficients[15] = {a, b};
    c.SetCorrelation(index, equation, 10, 0, 0, 1, 2, tMin, tMax, coefficients);
    c.SetCorrelationRefCode(index, 1);
  }
};

class DataCheckTest : public ::testing::Test {
 protected:
  std::unique_ptr<LibFile_i> Make(char const* path) {
    auto library = std::make_unique<LibFile_i>(files_, accUpdate, path, "shown");
    EXPECT_EQ(library->CreateNew(libKind11), openOk);
    return library;
  }
  static void Add(LibFile_i& library, GoodComponent const& component, char const* bank = "TEST") {
    LibMaint_i maint(&library);
    if (!maint.BankExists("PURECOMP", bank)) maint.CreateBank("PURECOMP", bank, 0);
    ComponentBank item;
    component.Fill(*item.Get());
    Key_i key;
    key.SetKey(static_cast<long>(component.number));
    ASSERT_TRUE(maint.WriteItem(item.Def(), bank, &key)) << component.id;
  }
  static void AddItem(LibFile_i& library, char const* type, char const* bank,
                      std::vector<std::int32_t> const& words,
                      std::function<void(IZelBankDef&)> const& fill) {
    LibMaint_i maint(&library);
    if (!maint.BankExists(type, bank)) maint.CreateBank(type, bank, 1);
    FaceRef<IZelBankDef> const item(NewBank(type));
    fill(*item.Get());
    Key_i key;
    key.SetKeyWords(static_cast<std::int32_t>(words.size()), words.data());
    ASSERT_TRUE(maint.WriteItem(item.Get(), bank, &key)) << type;
  }
  // A component that has only an identity, and what a test adds.
  static GoodComponent Bare(std::int32_t number, char const* id, char const* formula) {
    double const none = gen_GetUndefDouble();
    GoodComponent component;
    component.number = number;
    component.id = id;
    component.formula = formula;
    component.change = [=](IZelPureComp& c) {
      for (std::uint32_t i = 0; i < 50; ++i) c.SetProperty(i, none);
      for (std::uint32_t i = 0; i < 18; ++i) c.ResetCorrelation(i);
    };
    return component;
  }
  static GoodComponent With(GoodComponent component, zelProperties index, double value) {
    component.change = [before = component.change, index, value](IZelPureComp& c) {
      if (before) before(c);
      c.SetProperty(index, value);
      c.SetPropertyRefCode(index, 1);
    };
    return component;
  }
  // The findings about a library with these components.
  std::vector<std::string> const& Check(std::vector<GoodComponent> const& components) {
    auto const library = Make("/own.lb1");
    for (GoodComponent const& component : components) Add(*library, component);
    return CheckLibrary(*library);
  }
  std::vector<std::string> const& CheckLibrary(LibFile_i& library) {
    sink_.Clear();
    isGood_ = CheckLibraryData({&library, "own"}, {}, sink_);
    return sink_.lines;
  }
  std::vector<std::string> const& Compare(std::vector<ZelCheckedLibrary> const& libraries) {
    sink_.Clear();
    isGood_ = CompareLibraryData(libraries.data(), static_cast<std::int32_t>(libraries.size()), {},
                                 sink_);
    return sink_.lines;
  }

  using Lines = std::vector<std::string>;

  MemoryFileSystem files_;
  DataSink sink_;
  bool isGood_ = false;
};

}  // namespace zel::test
