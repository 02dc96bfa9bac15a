// Interchange documents: read into a library, compared with the parser that reads their numbers,
// and written from one, compared with the same text through fprintf.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/document_readers.h"
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

// The largest memory of a process that only reads the document, in KB.
Timing PeakOf(DocumentReader const& reader, std::filesystem::path const& document,
              std::filesystem::path const& folder, std::size_t items) {
  std::string const command = std::string("'" ZEL_READ_DOCUMENT "' '") + reader.name + "' '" +
                              document.string() + "' '" + folder.string() + "' " +
                              std::to_string(items);
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> const pipe(::popen(command.c_str(), "r"),
                                                             ::pclose);
  double kilobytes = 0.0;
  if (!pipe || std::fscanf(pipe.get(), "%lf", &kilobytes) != 1) {
    throw std::runtime_error(std::string(reader.name) + ": no reading of its memory");
  }
  return {kilobytes, items};
}

}  // namespace

void CompareExports(RatioTable& table, std::filesystem::path const& folder) {
  std::string const document = std::filesystem::absolute(folder / "pairs.xml").string();
  std::string const library = (folder / "export.lb1").string();
  WritePairs(document);
  LibFile_i file(platform::SystemFileSystemWithoutSync(), accUpdate, library.c_str(), "export");
  if (file.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  LibMaint_i maint(&file);
  if (!maint.Import(document.c_str(), false)) throw std::runtime_error(maint.GetLastErrorText());
  std::vector<PlainItem> const items = ItemsOf(maint);
  std::string const target = (folder / "out.xml").string();
  std::size_t const printed = PrintItems(items, target);
  // Header and bank element, which the plain text does not have.
  std::size_t const around = Export(maint, target) - printed;
  constexpr double kSlowest = 0.5;
  table.Compare({"export of a bank, per byte", "fprintf",
                 [&](int) {
                   return Time(
                       printed, [&] { return PrintItems(items, target); }, ThreadTime);
                 },
                 [&](int) {
                   return Time(
                       printed, [&] { return Export(maint, target) - around; }, ThreadTime);
                 },
                 Target::Ratio(kSlowest)});
  file.CloseLibFile();
  for (std::string const& path : {document, target, library}) std::filesystem::remove(path);
  std::filesystem::remove(folder / "export.lb2");
}

void CompareImports(RatioTable& table, std::filesystem::path const& folder) {
  std::filesystem::path const path = std::filesystem::absolute(folder / "pairs.xml");
  std::size_t const items = WritePairs(path);
  constexpr double kSlowest = 1.4;
  constexpr double kMostMemory = 65'536.0;  // KB
  DocumentReader const& own = DocumentReaders().front();
  auto const timed = [&](DocumentReader const& reader) {
    return [&](int) {
      return Time(
          kDocumentBytes, [&] { return reader.read(path.string(), folder.string(), items); },
          ThreadTime);
    };
  };
  auto const peak = [&](DocumentReader const& reader) {
    return [&](int) { return PeakOf(reader, path, folder, items); };
  };
  auto const peers = DocumentReaders().subspan(1);
  for (DocumentReader const& peer : peers) {
    bool const isTree = &peer == &peers.front();
    table.Compare({"import of a document of 100 MB, per byte", peer.name, timed(peer), timed(own),
                   isTree ? Target::Ratio(kSlowest) : Target::None()});
  }
  for (DocumentReader const& peer : peers) {
    table.Compare({"peak memory of that import", peer.name, peak(peer), peak(own),
                   Target::Figure(kMostMemory), "KB", 2});
  }
  std::filesystem::remove(path);
}

}  // namespace zel::bench
