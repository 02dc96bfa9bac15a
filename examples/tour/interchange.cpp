// Makes libraries from interchange documents, and writes them as documents again.
#include <zelaccess/LibMaint_p.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "tour.h"

namespace tour {
namespace {

constexpr char kExported[] = "sample";  // of the library document that an export writes

// The text of an exported document without its header, which names the library's file.
std::string TextOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << file.rdbuf();
  std::string const whole = text.str();
  return whole.substr(whole.find("-->"));
}

struct Export {
  std::vector<std::string> texts;  // the library's document, then one per bank
  std::size_t bytes = 0;

  void Add(std::string const& path) {
    texts.push_back(TextOf(path));
    bytes += texts.back().size();
  }
};

Export ExportTo(zel::LibFile* library, std::string const& folder) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  std::string const path = folder + "/" + kExported + ".xml";
  if (!maint->ExportLibrary(path.c_str())) throw std::runtime_error("cannot export to " + path);
  Export exported;
  exported.Add(path);
  char type[9];
  char name[9];
  maint->BeginBankWalk();
  while (maint->NextBank(type, name)) {
    exported.Add(folder + "/Bank-" + type + "-" + name + ".xml");
  }
  return exported;
}

}  // namespace

void ImportDocument(zel::LibFile* library, std::string const& path) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  // The log level belongs to the wider interface, which every maintenance object has.
  static_cast<zel::LibMaint_p*>(maint.get())->SetLogLevel(1);
  if (!maint->Import(path.c_str(), false)) {
    throw std::runtime_error(path + ": " + maint->GetLastErrorText());
  }
}

void ExportAndReadBack(zel::LibFile* library, zel::LibFile* second, std::string const& folder) {
  Export const first = ExportTo(library, folder);
  std::printf("\nExported: %zu documents, %zu bytes. Read back into a new library:\n\n",
              first.texts.size(), first.bytes);
  ImportDocument(second, folder + "/" + kExported + ".xml");
  Export const again = ExportTo(second, folder);
  if (again.texts != first.texts) throw std::runtime_error("the second export differs");
  std::printf("\nExported from there: the same %zu bytes.\n", again.bytes);
}

void PrintSource(zel::LibFile* library, Source const& source) {
  Maint maint(zel::LibMaint::NewLibMaint(library));
  Bank<zel::IZelPureComp> component("PURECOMP", zel::IID_IZelPureComp);
  int components = 0;
  int constants = 0;
  int correlations = 0;
  std::int32_t key[10];
  maint->BeginItemWalk("PURECOMP", source.name);
  while (maint->NextItem(key, component.Def())) {
    ++components;
    std::array<double, 100> values;
    component->GetAllProperties(values.data());
    for (double const value : values) constants += zel::gen_IsUndefDouble(value) ? 0 : 1;
    for (std::uint32_t i = 0; i < 18; ++i) {
      std::int32_t equation, tempUnit, propUnit, logBasis, basis, count;
      double factor, tMin, tMax;
      std::array<double, 15> coefficients;
      correlations +=
          component->GetCorrelation(i, &equation, &tempUnit, &propUnit, &factor, &logBasis, &basis,
                                    &count, &tMin, &tMax, coefficients.data()) == zel::kStatusOk
              ? 1
              : 0;
    }
  }
  std::printf("  %-8s  %4d components  %5d constants  %5d correlations  %s\n", source.name,
              components, constants, correlations, source.what);
}

}  // namespace tour
