// Pure components: evaluation of common forms, the read of a full item, and a merging search.
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ratio_cases.h"
#include "bench/sqlite_components.h"
#include "frame/ascii.h"
#include "frame/platform/block_file.h"
#include "lists/lib_search.h"
#include "maint/lib_maint.h"
#include "purecomp/equations.h"
#include "purecomp/pure_comp.h"
#include "store/key.h"

namespace zel::bench {
namespace {

// --- evaluation ----------------------------------------------------------------------------------

constexpr std::size_t kEvaluationsPerRound = 600'000;
constexpr double kTc = 512.5, kPc = 8084.0;

struct FormCase {
  std::int32_t equation;
  std::int32_t count;
  std::array<double, 15> c;
};
// Common forms of all the properties, in turn.
constexpr FormCase kForms[] = {
    {1, 5, {75.1, -0.215, 1.2e-3, -1.1e-6, 3.5e-10}},
    {15, 4, {52390.0, 0.3682, 0.1, -0.05}},
    {16, 4, {2.288, 0.2685, 512.5, 0.2453}},
    {19, 4, {3.0663e-4, 0.69655, 205.0, 100.0}},
    {20, 5, {82.718, -6904.5, -8.8622, 7.4664e-6, 2.0}},
    {47, 4, {-8.54796, 0.76982, -3.1085, 1.54481}},
};

struct Point {
  double value;
  double slope;
};

// The same formulas, written out with their derivatives.
Point ByHand(FormCase const& f, double T) {
  auto const& c = f.c;
  double const tau = 1.0 - T / kTc, Tr = T / kTc;
  switch (f.equation) {
    case 1: {
      double const v = (((c[4] * T + c[3]) * T + c[2]) * T + c[1]) * T + c[0];
      return {v, ((4.0 * c[4] * T + 3.0 * c[3]) * T + 2.0 * c[2]) * T + c[1]};
    }
    case 15: {
      double const e = c[1] + Tr * (c[2] + Tr * c[3]);
      double const v = c[0] * std::pow(tau, e);
      double const de = (c[2] + 2.0 * c[3] * Tr) / kTc;
      return {v, v * (de * std::log(tau) - e / (tau * kTc))};
    }
    case 16: {
      double const x = 1.0 - T / c[2];
      double const p = std::pow(x, c[3]);
      double const v = c[0] / std::pow(c[1], 1.0 + p);
      return {v, v * std::log(c[1]) * c[3] * p / (x * c[2])};
    }
    case 19: {
      double const d = 1.0 + (c[2] + c[3] / T) / T;
      double const v = c[0] * std::pow(T, c[1]) / d;
      return {v, v * (c[1] / T + (c[2] + 2.0 * c[3] / T) / (T * T * d))};
    }
    case 20: {
      double const p = c[3] * std::pow(T, c[4]);
      double const v = std::exp(c[0] + c[1] / T + c[2] * std::log(T) + p);
      return {v, v * (-c[1] / T + c[2] + c[4] * p) / T};
    }
    default: {
      double const root = std::sqrt(tau), t3 = tau * tau * tau;
      double const s = c[0] * tau + c[1] * tau * root + c[2] * t3 + c[3] * t3 * t3;
      double const ds =
          c[0] + 1.5 * c[1] * root + 3.0 * c[2] * tau * tau + 6.0 * c[3] * t3 * tau * tau;
      double const v = kPc * std::exp(s / Tr);
      return {v, v * (-ds / kTc - s / T) / Tr};
    }
  }
}

Point ByEquation(FormCase const& f, double T) {
  EquationCall call;
  call.equation = f.equation;
  call.coefficientCount = f.count;
  call.coefficients = f.c.data();
  call.temperature = T;
  call.tMin = 175.0;
  call.tMax = 512.0;
  call.Tc = kTc;
  call.Pc = kPc;
  call.Tb = 337.0;
  Point p{};
  EvaluateEquation(call, p.value, p.slope, nullptr);
  return p;
}

template <typename Form>
Side EvaluationsOf(Form form) {
  return [form](int) {
    return TimeInMemory(kEvaluationsPerRound, [&] {
      double sum = 0.0;
      for (std::size_t i = 0; i < kEvaluationsPerRound / std::size(kForms); ++i) {
        double const T = 200.0 + static_cast<double>(i % 300);
        for (FormCase const& f : kForms) {
          Point const p = form(f, T);
          sum += p.value * 1e-3 + p.slope;
        }
      }
      return static_cast<std::uint64_t>(std::llround(sum * 1e-3));
    });
  };
}

// --- items ---------------------------------------------------------------------------------------

constexpr std::size_t kItems = 1000;
constexpr std::size_t kReadsPerRound = 20'000;
constexpr std::size_t kSearchesPerRound = 6'000;
constexpr double kReadLimit = 5000.0;  // ns

// 50 constants, of which those with a keyword are on file, and 18 correlations of 15 coefficients.
void Fill(PureComp_i& bank, std::int32_t number, int source) {
  char ids[12][9] = {};
  CopyText(std::to_string(number), ids[0], sizeof ids[0]);
  bank.SetIdentity(number, 0, 1, ids, "A COMPONENT", "C2H6O", 0);
  for (std::uint32_t i = 0; i < 50; ++i) {
    if (source > 0 && i % 3 != static_cast<std::uint32_t>(source)) continue;
    bank.SetProperty(i, 1.2345678 * (i + 1) + 1e-3 * number);
  }
  double c[15];
  for (int k = 0; k < 15; ++k) c[k] = (k % 2 ? -1.0 : 1.0) * std::pow(10.0, 3 - k) * 1.2345;
  for (std::uint32_t i = 0; i < 18; ++i) {
    if (source > 0 && i % 3 != static_cast<std::uint32_t>(source)) continue;
    bank.SetCorrelation(i, 1, 10, 0, 1, 1, 15, 180.5, 512.25, c);
  }
}

class Library {
 public:
  Library(std::filesystem::path const& path, int source) {
    platform::FileSystem& files = platform::SystemFileSystemWithoutSync();
    {
      LibFile_i made(files, accUpdate, path.c_str(), "Bench");
      if (made.CreateNew(libKind11) != openOk) throw std::runtime_error("no library");
      LibMaint_i maint(&made);
      maint.CreateBank("PURECOMP", "B", 0);
      FaceRef<IZelBankDef> const bank(NewPureComp());
      Key_i key;
      for (std::size_t i = 0; i < kItems; ++i) {
        auto const number = static_cast<std::int32_t>(10000001 + i);
        bank->Clear();
        Fill(*static_cast<PureComp_i*>(bank.Get()), number, source);
        key.SetKey(static_cast<long>(number));
        if (!maint.WriteItem(bank.Get(), "B", &key)) throw std::runtime_error("no item");
      }
      made.CloseLibFile();
    }
    library_ = std::make_unique<LibFile_i>(files, accRead, path.c_str(), "Bench");
    if (library_->OpenExisting({false, ""}, nullptr) != openOk) throw std::runtime_error("closed");
  }
  LibFile_i* Get() const { return library_.get(); }

 private:
  std::unique_ptr<LibFile_i> library_;
};

long NumberAt(std::size_t i) { return static_cast<long>(10000001 + i * 7919 % kItems); }

// The numbers of a component that are on file as floats: constants, then limits and coefficients.
std::vector<double> RealsOf(Component const& c) {
  std::vector<double> reals;
  for (std::size_t i = 0; i < kConstantsOnFile; ++i) {
    if (IsOnFile(i)) reals.push_back(c.fixed[i]);
  }
  for (std::size_t i = 0; i < kNamedCorrelations; ++i) {
    CorrelationRecord const& correlation = c.correlations[i];
    reals.push_back(correlation.tMin);
    reals.push_back(correlation.tMax);
    reals.insert(reals.end(), correlation.coefficients.begin(), correlation.coefficients.end());
  }
  return reals;
}
constexpr std::size_t kReals = [] {
  auto count = static_cast<std::size_t>(kNamedCorrelations * (2 + kCoefficients));
  for (std::size_t i = 0; i < kConstantsOnFile; ++i) {
    if (IsOnFile(i)) ++count;
  }
  return count;
}();
constexpr std::size_t kLastConstant = 40;  // HVAPNBP
constexpr std::size_t kLastLimit = kReals - 16;

std::uint64_t Check(double lastConstant, double lastLimit) {
  return static_cast<std::uint64_t>(std::llround(lastConstant) + std::llround(lastLimit));
}

std::uint64_t CheckOf(PureComp_i const& bank) {
  Component const& c = bank.Data();
  return Check(c.fixed[47], c.correlations[17].tMax);
}

// The numbers of all components, one after the other.
std::vector<double> AllReals(Library const& library) {
  FaceRef<IZelBankDef> const bank(NewPureComp());
  LibMaint_i maint(library.Get());
  Key_i key;
  std::vector<double> all;
  for (std::size_t i = 0; i < kItems; ++i) {
    key.SetKey(static_cast<long>(10000001 + i));
    if (!maint.ReadItem(bank.Get(), "B", &key)) throw std::runtime_error("no item");
    std::vector<double> const reals = RealsOf(static_cast<PureComp_i*>(bank.Get())->Data());
    all.insert(all.end(), reals.begin(), reals.end());
  }
  if (all.size() != kItems * kReals) throw std::logic_error("count of numbers");
  return all;
}

Side SqliteReadsOf(SqliteComponents& store) {
  return [&store](int) {
    return TimeInMemory(kReadsPerRound, [&] {
      std::vector<double> row(kReals);
      for (std::size_t i = 0; i < kReadsPerRound; ++i) {
        store.Read(static_cast<std::int32_t>(NumberAt(i)), row);
      }
      return Check(row[kLastConstant], row[kLastLimit]);
    });
  };
}

// The floats of an item through text and back, as a reader without the 7-digit trim would.
Side FloatsThroughText(Library const& library) {
  return [&library](int) {
    FaceRef<IZelBankDef> const bank(NewPureComp());
    LibMaint_i maint(library.Get());
    Key_i key;
    key.SetKey(NumberAt(kReadsPerRound - 1));
    maint.ReadItem(bank.Get(), "B", &key);
    std::vector<float> floats;
    for (double const x : RealsOf(static_cast<PureComp_i*>(bank.Get())->Data())) {
      floats.push_back(static_cast<float>(x));
    }
    std::uint64_t const check = CheckOf(*static_cast<PureComp_i*>(bank.Get()));
    return TimeInMemory(kReadsPerRound, [&] {
      double sum = 0.0;
      for (std::size_t i = 0; i < kReadsPerRound; ++i) {
        for (float const f : floats) {
          char text[24];
          auto const end =
              std::to_chars(text, text + sizeof text, f, std::chars_format::general, 7).ptr;
          double value = 0.0;
          std::from_chars(text, end, value);
          sum += value;
        }
      }
      return sum == -1.0 ? 0 : check;
    });
  };
}

Side ReadsOf(Library const& library, std::size_t reads) {
  return [&library, reads](int) {
    FaceRef<IZelBankDef> const bank(NewPureComp());
    LibMaint_i maint(library.Get());
    Key_i key;
    return TimeInMemory(reads, [&] {
      for (std::size_t i = 0; i < reads; ++i) {
        key.SetKey(NumberAt(i));
        if (!maint.ReadItem(bank.Get(), "B", &key)) throw std::runtime_error("no item");
      }
      return CheckOf(*static_cast<PureComp_i*>(bank.Get()));
    });
  };
}

Side SearchesOf(std::vector<std::unique_ptr<Library>> const& libraries) {
  return [&libraries](int) {
    LibSearch_i search;
    std::vector<LibFile*> files;
    files.reserve(libraries.size());
    char names[3][9] = {"B", "B", "B"};
    for (auto const& library : libraries) files.push_back(library->Get());
    search.SetLibraryBanks(static_cast<long>(files.size()), files.data(), names);
    FaceRef<IZelBankDef> const bank(NewPureComp());
    Key_i key;
    return TimeInMemory(kSearchesPerRound, [&] {
      for (std::size_t i = 0; i < kSearchesPerRound; ++i) {
        key.SetKey(NumberAt(i));
        if (!search.Search(&key, bank.Get(), true)) throw std::runtime_error("not found");
      }
      return CheckOf(*static_cast<PureComp_i*>(bank.Get()));
    });
  };
}

}  // namespace

void CompareComponents(RatioTable& table, std::filesystem::path const& folder) {
  table.Compare({"internal: six common equations, with slope", "inline formulas",
                 EvaluationsOf(ByHand), EvaluationsOf(ByEquation), Target::Ratio(1.5)});
  std::vector<std::unique_ptr<Library>> libraries;
  libraries.reserve(3);
  for (int source = 0; source < 3; ++source) {
    libraries.push_back(std::make_unique<Library>(
        folder / ("components" + std::to_string(source) + ".lb1"), source));
  }
  Library const& full = *libraries[0];
  // Twice: the ratio, and the time.
  table.Compare({"read of a full component", "its floats as text", FloatsThroughText(full),
                 ReadsOf(full, kReadsPerRound), Target::Ratio(0.25)});
  table.Compare({"read of a full component", "its floats as text", FloatsThroughText(full),
                 ReadsOf(full, kReadsPerRound), Target::Figure(kReadLimit)});
  std::vector<double> const reals = AllReals(full);
  std::vector<std::int32_t> numbers(kItems);
  std::iota(numbers.begin(), numbers.end(), 10000001);
  SqliteComponents blobs(folder / "blobs.sqlite", ComponentTable::kBlob, numbers, reals);
  SqliteComponents columns(folder / "columns.sqlite", ComponentTable::kColumns, numbers, reals);
  table.Compare({"read of a full component", "SQLite, a blob", SqliteReadsOf(blobs),
                 ReadsOf(full, kReadsPerRound), Target::None()});
  table.Compare({"read of a full component", "SQLite, columns", SqliteReadsOf(columns),
                 ReadsOf(full, kReadsPerRound), Target::None()});
  table.Compare({"merging search over three libraries", "one read",
                 ReadsOf(full, kSearchesPerRound), SearchesOf(libraries), Target::Ratio(4.0)});
}

}  // namespace zel::bench
