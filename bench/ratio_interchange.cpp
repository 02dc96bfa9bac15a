// Interchange documents: read into a library, compared with the parser that reads their numbers,
// and written from one, compared with the same text through fprintf.
#include <libxml/parser.h>
#include <libxml/xmlreader.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ratio_cases.h"
#include "frame/number_text.h"
#include "frame/platform/block_file.h"
#include "maint/lib_maint.h"

namespace zel::bench {
namespace {

constexpr std::size_t kDocumentBytes = 100'000'000;
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

// The numbers of a text, as a reader of any such document would take them.
void TakeNumbers(char const* text, double& sum) {
  for (char* end = nullptr;; text = end) {
    double const value = std::strtod(text, &end);
    if (end == text) return;
    sum += value;
  }
}

void TakeBelow(xmlNode const* node, double& sum) {
  for (; node != nullptr; node = node->next) {
    if (node->type == XML_TEXT_NODE) {
      TakeNumbers(reinterpret_cast<char const*>(node->content), sum);
    } else {
      TakeBelow(node->children, sum);
    }
  }
}

// Each peer reads all numbers of the document and keeps nothing; 0 if it could not.
std::uint64_t ReadTree(std::string const& path, std::size_t items) {
  std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> const document(xmlReadFile(path.c_str(), nullptr, 0),
                                                            xmlFreeDoc);
  double sum = 0.0;
  if (document) TakeBelow(xmlDocGetRootElement(document.get()), sum);
  return document && sum != 0.0 ? items : 0;
}

std::uint64_t ReadNodes(std::string const& path, std::size_t items) {
  std::unique_ptr<xmlTextReader, void (*)(xmlTextReader*)> const reader(
      xmlReaderForFile(path.c_str(), nullptr, 0), xmlFreeTextReader);
  double sum = 0.0;
  int more = 1;
  while ((more = xmlTextReaderRead(reader.get())) == 1) {
    if (xmlTextReaderNodeType(reader.get()) != XML_READER_TYPE_TEXT) continue;
    TakeNumbers(reinterpret_cast<char const*>(xmlTextReaderConstValue(reader.get())), sum);
  }
  return more == 0 && sum != 0.0 ? items : 0;
}

std::uint64_t ReadCallbacks(std::string const& path, std::size_t items) {
  double sum = 0.0;
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = [](auto...) {};
  handler.endElementNs = [](auto...) {};
  handler.characters = [](void* data, xmlChar const* text, int size) {
    std::string const piece(reinterpret_cast<char const*>(text), static_cast<std::size_t>(size));
    TakeNumbers(piece.c_str(), *static_cast<double*>(data));
  };
  int const failed = xmlSAXUserParseFile(&handler, &sum, path.c_str());
  return failed == 0 && sum != 0.0 ? items : 0;
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

// The same items in memory, as fprintf writes them.
struct PlainItem {
  std::int32_t i, j;
  double values[10];
};
constexpr char const* kWritten[] = {"tMin", "tMax", "aij", "bij",     "cij",
                                    "aji",  "bji",  "cji", "alphaij", "betaij"};

std::vector<PlainItem> ItemsOf(LibMaint_i& maint) {
  std::vector<PlainItem> items;
  FaceRef<IZelBankDef> const bank(NewBank("NRTL"));
  std::int32_t key[10];
  maint.BeginItemWalk("NRTL", "PAIRS");
  while (maint.NextItem(key, bank.Get())) {
    PlainItem item{key[0], key[1], {}};
    for (std::size_t k = 0; k < std::size(kWritten); ++k) {
      bank->GetDoubleField(kWritten[k], &item.values[k]);
    }
    items.push_back(item);
  }
  return items;
}

std::uint64_t PrintItems(std::vector<PlainItem> const& items, std::string const& path) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen(path.c_str(), "w"),
                                                             std::fclose);
  for (PlainItem const& item : items) {
    std::fprintf(file.get(), "  <item>\n    <keys> %08d %08d </keys>\n", item.i, item.j);
    for (std::size_t k = 0; k < std::size(kWritten); ++k) {
      std::fprintf(file.get(), "    <%s> %.7g </%s>\n", kWritten[k], item.values[k], kWritten[k]);
    }
    std::fprintf(file.get(), "    <refCode> %d </refCode>\n  </item>\n", 91);
  }
  return static_cast<std::uint64_t>(std::ftell(file.get()));
}

std::uint64_t Export(LibMaint_i& maint, std::string const& path) {
  if (!maint.ExportBank("NRTL", "PAIRS", path.c_str())) throw std::runtime_error("no export");
  return std::filesystem::file_size(path);
}

}  // namespace

void CompareExports(RatioTable& table, std::filesystem::path const& folder) {
  std::string const document = std::filesystem::absolute(folder / "pairs.xml").string();
  std::string const library = (folder / "export.lb1").string();
  WritePairs(document);
  LibFile_i file(platform::PosixFileSystemWithoutSync(), accUpdate, library.c_str(), "export");
  if (file.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  LibMaint_i maint(&file);
  if (!maint.Import(document.c_str(), false)) throw std::runtime_error(maint.GetLastErrorText());
  std::vector<PlainItem> const items = ItemsOf(maint);
  std::string const target = (folder / "out.xml").string();
  std::size_t const printed = PrintItems(items, target);
  // Header and bank element, which the plain text does not have.
  std::size_t const around = Export(maint, target) - printed;
  constexpr double kSlowest = 0.5;
  table.Compare({"export of a bank, ns a byte", "fprintf",
                 [&](int) { return Time(printed, [&] { return PrintItems(items, target); }); },
                 [&](int) { return Time(printed, [&] { return Export(maint, target) - around; }); },
                 Target::Ratio(kSlowest)});
  file.CloseLibFile();
  for (std::string const& path : {document, target, library}) std::filesystem::remove(path);
  std::filesystem::remove(folder / "export.lb2");
}

void CompareImports(RatioTable& table, std::filesystem::path const& folder) {
  std::filesystem::path const path = std::filesystem::absolute(folder / "pairs.xml");
  std::size_t const items = WritePairs(path);
  struct Peer {
    char const* name;
    std::uint64_t (*read)(std::string const& path, std::size_t items);
    Target target;
  };
  constexpr double kSlowest = 1.4;
  Peer const peers[] = {{"tree", ReadTree, Target::Ratio(kSlowest)},
                        {"reader", ReadNodes, Target::None()},
                        {"callbacks", ReadCallbacks, Target::None()}};
  for (Peer const& peer : peers) {
    table.Compare(
        {"import of a document of 100 MB, ns a byte", std::string("libxml2, ") + peer.name,
         [&](int) { return Time(kDocumentBytes, [&] { return peer.read(path.string(), items); }); },
         [&](int) { return Time(kDocumentBytes, [&] { return Import(folder, path.string()); }); },
         peer.target});
  }
  std::filesystem::remove(path);
}

}  // namespace zel::bench
