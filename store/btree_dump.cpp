// Report of a tree's structure, node by node in breadth-first order.
//
// Each child is numbered by its place in the list of nodes. A node that occurs a second time is
// shown with its first number and not listed again; one that cannot be read counts as 0 entries.
// The list is finite whatever the links are: an address outside the files has no links, and each
// block of the files is listed once. A failed transfer is thrown when the report is complete.
#include <algorithm>
#include <string>
#include <unordered_map>

#include "store/btree.h"

namespace zel {

namespace f = format;

namespace {

constexpr std::int32_t kLongestPrefix = 19;

class TreeReport {
 public:
  TreeReport(BTreeHead_i const& head, std::int32_t indent, std::FILE* stream)
      : head_(head),
        stream_(stream),
        prefix_(static_cast<std::size_t>(std::clamp(indent, 0, kLongestPrefix)), ' '),
        keyWords_(std::clamp(head.keyWords, 0, f::kMaxKeyWords)),
        dataWords_(std::clamp(head.dataWords, 0, f::kNodeWords)) {
    List(head.rootAddress);
  }

  // True when there is a node number n.
  bool Has(std::size_t n) const noexcept { return n < nodes_.size(); }
  std::int32_t AddressOf(std::size_t n) const noexcept { return nodes_[n]; }
  int Total() const noexcept { return total_; }

  void PrintTitles() {
    std::string title = prefix_ + "Node----------  No  Link" + "  Key-------";
    Repeat(title, "---------", keyWords_ - 1);
    title += "  Data--------";
    Repeat(title, "-----------", dataWords_ - 1);
    title += "  Link";
    std::fprintf(stream_, "\n%s\n", title.c_str());
  }

  void PrintRule() {
    std::string rule = prefix_ + "--------------  --  ----" + "  ----------";
    Repeat(rule, "---------", keyWords_ - 1);
    rule += "  ------------";
    Repeat(rule, "-----------", dataWords_ - 1);
    rule += "  ----";
    std::fprintf(stream_, "%s\n", rule.c_str());
  }

  void PrintMissingRoot(std::int32_t address) {
    std::fprintf(stream_, "%s%2d ( missing )\n", prefix_.c_str(), 0);
    std::printf("%d\n", address);
  }

  // `node` is null when it could not be read.
  void PrintNode(std::size_t n, std::int32_t const* node) {
    int const count = node == nullptr ? 0 : node[f::kNodeCount];
    auto const number = static_cast<int>(n);
    if (count == 0) {
      bool const good = node == nullptr || node[f::kNodeLinks] == f::kNullAddress;
      std::fprintf(stream_,
                   good ? "%s%2d (%09d)   0  (--)\n"
                        : "%s%2d (%09d)   0  **** Error - pointer should be missing\n",
                   prefix_.c_str(), number, nodes_[n]);
      return;
    }
    std::fprintf(stream_, "%s%2d (%09d) %3d", prefix_.c_str(), number, nodes_[n], count);
    PrintLink(node[f::kNodeLinks]);
    int const width = head_.entryWords + 1;
    for (int i = 1; i <= count; ++i) {
      if (i > 1) std::fprintf(stream_, "%s%24s", prefix_.c_str(), "");
      PrintEntry(node, f::kNodeEntries + (i - 1) * width);
      PrintLink(node[f::kNodeLinks + i * width]);
      std::fputc('\n', stream_);
    }
    total_ += count;
  }

  void PrintTotal(char const* verdict) {
    std::fprintf(stream_, "%sTotal entries %4d%s\n\n", prefix_.c_str(), total_, verdict);
  }

 private:
  static void Repeat(std::string& text, char const* piece, std::int32_t times) {
    for (std::int32_t i = 0; i < times; ++i) text += piece;
  }

  // The number of a node; a new node is added to the list.
  int List(std::int32_t address) {
    auto const [place, isNew] = numbers_.emplace(address, static_cast<int>(nodes_.size()));
    if (isNew) nodes_.push_back(address);
    return place->second;
  }

  void PrintLink(std::int32_t child) {
    if (child == f::kNullAddress) {
      std::fputs("  (--)", stream_);
    } else {
      std::fprintf(stream_, "  (%2d)", List(child));
    }
  }

  // The data columns continue past an entry that holds only one word; past the node's end they show
  // zeros.
  void PrintEntry(std::int32_t const* node, int at) {
    std::fputs("  /", stream_);
    for (std::int32_t k = 0; k < keyWords_; ++k) std::fprintf(stream_, "%08d/", node[at + k]);
    std::fputs("  /", stream_);
    for (std::int32_t k = 0; k < dataWords_; ++k) {
      int const word = at + keyWords_ + k;
      auto const value = word < f::kNodeWords ? static_cast<unsigned>(node[word]) : 0U;
      std::fprintf(stream_, "0x%08x/", value);
    }
  }

  BTreeHead_i const& head_;
  std::FILE* stream_;
  std::string prefix_;
  std::int32_t keyWords_;
  std::int32_t dataWords_;
  int total_ = 0;
  std::vector<std::int32_t> nodes_;
  std::unordered_map<std::int32_t, int> numbers_;
};

}  // namespace

bool BTree_i::DumpTree(std::int32_t indent, std::FILE* stream, std::int32_t expected) {
  if (head_.rootAddress != f::kNullAddress) CheckHead();
  TreeReport report(head_, indent, stream);
  NodeBuffer buffer(store_.Nodes());
  std::int32_t lost = f::kNullAddress;
  report.PrintTitles();
  for (std::size_t n = 0; report.Has(n); ++n) {
    std::int32_t const address = report.AddressOf(n);
    if (address == f::kNullAddress) {
      report.PrintMissingRoot(address);
    } else {
      bool readable = true;
      try {
        ReadNode(address, buffer.Words());
      } catch (unsigned long const error) {
        readable = false;  // the report continues with what can be read
        if (FaultOf(error) == BlockFault::kNotRead) lost = address;
      }
      report.PrintNode(n, readable ? buffer.Words() : nullptr);
    }
    report.PrintRule();
  }
  report.PrintTotal(expected < 0 ? "" : " - passed");
  if (lost != f::kNullAddress) store_.Throw(lost, BlockFault::kNotRead);
  return expected < 0 || expected == report.Total();
}

}  // namespace zel
