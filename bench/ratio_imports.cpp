// Interchange documents read into a library, beside the parser that reads them into a tree.
#include <libxml/parser.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/ratio_cases.h"
#include "frame/number_text.h"
#include "frame/platform/block_file.h"
#include "maint/lib_maint.h"

namespace zel::bench {
namespace {

constexpr std::size_t kDocumentBytes = 50'000'000;
constexpr std::int32_t kFirstComponent = 10'000'000;
constexpr std::int32_t kPartners = 400;  // pairs with the same lower number

// Pairs in the order of their keys, as an export writes them.
std::size_t WritePairs(std::filesystem::path const& path) {
  std::ofstream file(path, std::ios::binary);
  file << "<bank type=\"NRTL\" name=\"PAIRS\">\n";
  std::size_t items = 0;
  constexpr char const* kTags[] = {"aij", "bij", "cij", "aji", "bji", "cji", "alphaij", "betaij"};
  for (; static_cast<std::size_t>(file.tellp()) < kDocumentBytes; ++items) {
    auto const n = static_cast<std::int32_t>(items);
    std::string text = "  <item>\n    <keys> " + std::to_string(kFirstComponent + n / kPartners) +
                       " " + std::to_string(2 * kFirstComponent + n % kPartners) + " </keys>\n";
    double value = 0.1 + 1e-3 * n;
    for (char const* tag : kTags) {
      text += std::string("    <") + tag + "> " + RealText(value *= -1.7, 7) + " </" + tag + ">\n";
    }
    text += "    <tMin> 273.15 </tMin>\n    <tMax> 373.15 </tMax>\n    <refCode> 91 </refCode>\n";
    file << text << "  </item>\n";
  }
  file << "</bank>\n";
  return items;
}

std::uint64_t Parse(std::string const& path, std::size_t items) {
  std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> const document(xmlReadFile(path.c_str(), nullptr, 0),
                                                            xmlFreeDoc);
  return document ? items : 0;
}

std::uint64_t Import(std::filesystem::path const& folder, std::string const& path) {
  std::string const library = (folder / "import.lb1").string();
  std::filesystem::remove(library);
  std::filesystem::remove(folder / "import.lb2");
  LibFile_i file(platform::PosixFileSystemWithoutSync(), accUpdate, library.c_str(), "import");
  if (file.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  LibMaint_i maint(&file);
  if (!maint.Import(path.c_str(), false)) throw std::runtime_error(maint.GetLastErrorText());
  std::uint64_t items = 0;
  std::int32_t key[10];
  maint.BeginItemWalk("NRTL", "PAIRS");
  while (maint.NextItemKey(key)) ++items;
  maint.EndItemWalk();
  file.CloseLibFile();
  return items;
}

}  // namespace

void CompareImports(RatioTable& table, std::filesystem::path const& folder) {
  std::filesystem::path const path = std::filesystem::absolute(folder / "pairs.xml");
  std::size_t const items = WritePairs(path);
  constexpr double kSlowest = 3.0;
  table.Compare(
      {"import of a document of 50 MB, ns a byte", "parser alone",
       [&](int) { return Time(kDocumentBytes, [&] { return Parse(path.string(), items); }); },
       [&](int) { return Time(kDocumentBytes, [&] { return Import(folder, path.string()); }); },
       Target::Ratio(kSlowest)});
  std::filesystem::remove(path);
}

}  // namespace zel::bench
