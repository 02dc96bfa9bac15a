#include "bench/document_readers.h"

#include <libxml/parser.h>
#include <libxml/xmlreader.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

#include "frame/platform/block_file.h"
#include "maint/lib_maint.h"
#include "zelaccess/Interchange.h"

namespace zel::bench {
namespace {

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

std::uint64_t ReadTree(std::string const& path, std::string const&, std::size_t items) {
  std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> const document(xmlReadFile(path.c_str(), nullptr, 0),
                                                            xmlFreeDoc);
  double sum = 0.0;
  if (document) TakeBelow(xmlDocGetRootElement(document.get()), sum);
  return document && sum != 0.0 ? items : 0;
}

std::uint64_t ReadNodes(std::string const& path, std::string const&, std::size_t items) {
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

std::uint64_t ReadCallbacks(std::string const& path, std::string const&, std::size_t items) {
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

void TakeBelow(pugi::xml_node node, double& sum) {
  for (pugi::xml_node child : node) {
    if (child.type() == pugi::node_pcdata) {
      TakeNumbers(child.value(), sum);
    } else {
      TakeBelow(child, sum);
    }
  }
}

std::uint64_t ReadPugi(std::string const& path, std::string const&, std::size_t items) {
  pugi::xml_document document;
  double sum = 0.0;
  if (document.load_file(path.c_str())) TakeBelow(document, sum);
  return sum != 0.0 ? items : 0;
}

std::uint64_t Import(std::string const& path, std::string const& folder, std::size_t) {
  std::string const library = folder + "/import.lb1";
  std::filesystem::remove(library);
  std::filesystem::remove(folder + "/import.lb2");
  LibFile_i file(platform::SystemFileSystemWithoutSync(), accUpdate, library.c_str(), "import");
  if (file.CreateNew(libKind11) != openOk) throw std::runtime_error("cannot make the library");
  LibMaint_i maint(&file);
  if (!maint.Import(path.c_str(), false)) throw std::runtime_error(maint.GetLastErrorText());
  ZelImportCounts counts;
  maint.GetImportCounts(counts);
  file.CloseLibFile();
  return static_cast<std::uint64_t>(counts.itemsStored);
}

constexpr DocumentReader kReaders[] = {{"import", Import},
                                       {"libxml2, tree", ReadTree},
                                       {"libxml2, reader", ReadNodes},
                                       {"libxml2, callbacks", ReadCallbacks},
                                       {"pugixml", ReadPugi}};

}  // namespace

std::span<DocumentReader const> DocumentReaders() { return kReaders; }

}  // namespace zel::bench
