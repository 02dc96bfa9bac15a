// Correlations by themselves and in batches: at which temperature do the components of a source
// have a given vapor pressure?
//   curves <document of pure components> <folder for the library>
//
// The bank is made from the document. Its columns say which components there are and where they
// boil; their vapor pressures are taken out of the components, and all are solved at once. Nothing
// but plain values is left then: the component and the library are no longer needed.
#include <zelaccess/Batch.h>
#include <zelaccess/Columns.h>
#include <zelaccess/ZelAccess.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr char kType[] = "PURECOMP";
constexpr char kBank[] = "CHEMSEP";
constexpr double kAtmosphere = 101.325;  // kPa
constexpr std::int32_t kRows = 100;      // read at once
constexpr std::size_t kNameSize = 41;

struct Curve {
  std::string name;
  double boilingPoint;  // as stored, K
  zel::ZelCorrelation vaporPressure;
};

zel::Handle<zel::LibFile> MakeLibrary(std::string const& document, std::string const& folder) {
  std::string const path = folder + "/curves.lb1";
  for (char const digit : {'1', '2'}) {
    std::remove((path.substr(0, path.size() - 1) + digit).c_str());
  }
  zel::openErrors reason = zel::openFailed;
  zel::Handle<zel::LibFile> library(
      zel::LibFile::NewLibFile(zel::libKind11, path.c_str(), "curves", reason));
  if (!library) throw std::runtime_error("cannot make " + path);
  zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library.get()));
  if (!maint->Import(document.c_str(), false)) throw std::runtime_error(maint->GetLastErrorText());
  return library;
}

// The vapor pressures of all components that have one and a boiling point.
std::vector<Curve> CurvesOf(zel::LibFile* library) {
  std::vector<std::int32_t> numbers(kRows);
  std::vector<double> boilingPoints(kRows);
  std::vector<char> names(kRows * kNameSize);
  zel::Handle<zel::ColumnReader> reader(zel::ColumnReader::NewColumnReader(library, kType, kBank));
  if (!reader || !reader->AddIntegers("number", numbers.data()) ||
      !reader->AddReals("NBP", boilingPoints.data()) || !reader->AddTexts("name", names.data())) {
    throw std::runtime_error("the document has no bank " + std::string(kBank));
  }
  zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(library));
  zel::Handle<zel::Key> key(zel::Key::NewKey());
  zel::BankFace<zel::IZelPureComp> component(kType, zel::IID_IZelPureComp);
  std::vector<Curve> curves;
  while (std::int32_t const rows = reader->Read(kRows)) {
    for (std::int32_t row = 0; row < rows; ++row) {
      auto const at = static_cast<std::size_t>(row);
      if (zel::gen_IsUndefDouble(boilingPoints[at])) continue;
      component.Def()->Clear();  // a read fills only what is empty
      key->SetKey(static_cast<long>(numbers[at]));
      if (!maint->ReadItem(component.Def(), kBank, key.get())) continue;
      Curve curve{&names[at * kNameSize], boilingPoints[at], {}};
      if (zel::TakeCorrelation(component.operator->(), zel::correlationVaporPressure,
                               curve.vaporPressure) != zel::kStatusFailed) {
        curves.push_back(curve);
      }
    }
  }
  return curves;
}

// The temperatures at which the curves have a pressure, in K: Newton's method in ln p and 1/T,
// where vapor pressures are nearly straight lines, for all curves in one call per step.
std::vector<double> TemperaturesAt(std::vector<Curve> const& curves, double pressure) {
  std::vector<zel::ZelCorrelation> correlations;
  std::vector<double> temperatures;
  for (Curve const& curve : curves) {
    correlations.push_back(curve.vaporPressure);
    temperatures.push_back(0.5 * (curve.vaporPressure.tMin + curve.vaporPressure.tMax));
  }
  std::vector<double> values(curves.size());
  std::vector<double> slopes(curves.size());
  zel::ZelBatch batch;
  batch.count = static_cast<std::int64_t>(curves.size());
  batch.temperatures = temperatures.data();
  batch.values = values.data();
  batch.derivatives = slopes.data();
  constexpr int kSteps = 50;
  for (int step = 0; step < kSteps; ++step) {
    zel::EvaluateEachCorrelation(correlations.data(), batch);
    for (std::size_t i = 0; i < curves.size(); ++i) {
      double const change = std::log(values[i] / pressure) * values[i] /
                            (slopes[i] * temperatures[i] * temperatures[i]);
      temperatures[i] = 1.0 / (1.0 / temperatures[i] + change);
    }
  }
  return temperatures;
}

void PrintBoilingPoints(std::vector<Curve> const& curves, std::vector<double> const& found) {
  std::printf("Boiling points at %g kPa, K:\n\n", kAtmosphere);
  std::size_t close = 0;
  for (std::size_t i = 0; i < curves.size(); ++i) {
    double const difference = found[i] - curves[i].boilingPoint;
    constexpr double kClose = 1.0;
    if (std::fabs(difference) < kClose) ++close;
    if (i < 5) {
      std::printf("  %-20s %8.2f  stored %8.2f\n", curves[i].name.c_str(), found[i],
                  curves[i].boilingPoint);
    }
  }
  std::printf("\n%zu of %zu are within 1 K of the stored ones.\n", close, curves.size());
}

// One correlation at many temperatures: exactly as single evaluations, and with vector
// instructions.
void PrintBatch(Curve const& curve) {
  constexpr std::size_t kCount = 1001;
  zel::ZelCorrelation const& pressure = curve.vaporPressure;
  std::vector<double> temperatures(kCount), exact(kCount), fast(kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    temperatures[i] = pressure.tMin + static_cast<double>(i) * (pressure.tMax - pressure.tMin) /
                                          static_cast<double>(kCount - 1);
  }
  zel::ZelBatch batch;
  batch.count = static_cast<std::int64_t>(kCount);
  batch.temperatures = temperatures.data();
  batch.values = exact.data();
  zel::EvaluateBatch(pressure, batch);
  batch.values = fast.data();
  batch.mode = zel::batchVector;
  zel::EvaluateBatch(pressure, batch);
  std::size_t same = 0;
  double worst = 0.0;
  for (std::size_t i = 0; i < kCount; ++i) {
    double single = 0.0;
    zel::EvaluateOne(pressure, temperatures[i], 1, &single, nullptr, nullptr, nullptr);
    if (single == exact[i]) ++same;  // positive numbers: equal if their bits are
    worst = std::fmax(worst, std::fabs(fast[i] / exact[i] - 1.0));
  }
  std::printf("\n%s, equation %d, %zu temperatures: %zu have the bits of single evaluations;\n",
              curve.name.c_str(), pressure.equation, kCount, same);
  std::printf("vector instructions differ by %s 1e-12.\n",
              worst <= 1e-12 ? "at most" : "more than");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: curves <document of pure components> <folder for the library>\n", stderr);
    return 2;
  }
  try {
    zel::InitZelAccess();
    std::vector<Curve> curves;
    zel::WithBlockErrors([&] { curves = CurvesOf(MakeLibrary(arguments[1], arguments[2]).get()); });
    if (curves.empty()) throw std::runtime_error("no component has a vapor pressure");
    PrintBoilingPoints(curves, TemperaturesAt(curves, kAtmosphere));
    PrintBatch(curves.front());
  } catch (std::exception const& error) {
    std::fprintf(stderr, "curves: %s\n", error.what());
    return 1;
  }
}
