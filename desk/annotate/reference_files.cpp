#include "desk/annotate/reference_files.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>

#include "desk/annotate/bibtex.h"
#include "desk/files/input_file.h"
#include "desk/tables/table_columns.h"
#include "desk/tables/table_export.h"
#include "desk/tables/text_table.h"
#include "desk/words/failure.h"
#include "desk/words/letters.h"

namespace zel::desk {
namespace {

// A reference of a file; `why` says why it is refused.
struct FileReference {
  std::size_t line = 0;
  std::string code;
  std::string text;
  std::string doi;
  std::string why;
  bool isEmpty = false;  // a code without a citation
};

bool IsBibTeX(std::string const& path) {
  return LowerCase(std::filesystem::path(path).extension().string()) == ".bib";
}

std::string TextOf(std::string const& path) {
  std::ifstream file = OpenInput(path);
  if (!file || std::filesystem::is_directory(path)) throw Failure(path + ": cannot be read");
  std::string text(std::istreambuf_iterator<char>(file), {});
  if (file.bad()) throw Failure(path + ": cannot be read");
  return text;
}

std::string CodeIn(BibEntry const& entry) {
  for (char const* const field : {"refcode", "code"}) {
    if (!entry.Field(field).empty()) return entry.Field(field);
  }
  bool const hasWord = LowerCase(entry.key.substr(0, 3)) == "ref";
  std::string const number = hasWord ? entry.key.substr(3) : entry.key;
  bool const isNumber =
      !number.empty() && number.find_first_not_of("0123456789") == std::string::npos;
  return isNumber ? number : "";
}

std::vector<FileReference> FromBibTeX(std::string const& path, ReferenceImport const& options,
                                      std::set<std::uint32_t> taken) {
  std::vector<BibEntry> const entries = ParseBibTeX(TextOf(path), path);
  std::uint32_t next = options.first.value_or(0);
  for (BibEntry const& entry : entries) {
    try {
      taken.insert(CodeOf(CodeIn(entry)));
    } catch (Failure const&) {  // it is refused later, or gets a code
      continue;
    }
  }
  std::vector<FileReference> references;
  for (BibEntry const& entry : entries) {
    FileReference one{entry.line, CodeIn(entry), CitationText(entry), entry.Field("doi"),
                      "",         false};
    if (one.code.empty() && options.first) {
      while (taken.count(next) != 0) ++next;
      one.code = std::to_string(next++);
    } else if (one.code.empty()) {
      one.why = "the entry " + entry.key +
                " has no code: a field refcode = {...}, or --first CODE to number such entries";
    }
    references.push_back(std::move(one));
  }
  return references;
}

std::vector<FileReference> FromTable(std::string const& path, ReferenceImport const& options) {
  TextTable table = ReadTextTable(path);
  ColumnChoice choice;
  choice.ignored = options.ignored;
  std::vector<TableColumn> columns = ChosenColumns(table, choice);
  auto const code = TakeColumn(columns, {"code", "refCode"});
  auto const text = TakeColumn(columns, {"citation", "reference"});
  auto const doi = TakeColumn(columns, {"doi"});
  // A column that `zel refs --csv` shows in addition.
  TakeColumn(columns, {"data"});
  TakeColumn(columns, {"in"});
  if (!columns.empty()) {
    throw Failure(path + ": " + columns.front().Name() +
                  " is not a column of references; they are code, citation and doi; --ignore "
                  "leaves a column out");
  }
  if (!code || !text) throw Failure(path + ": has no columns code and citation");
  std::vector<FileReference> references;
  for (TextRow const& row : table.rows) {
    FileReference one{row.line, code->In(row), text->In(row), doi ? doi->In(row) : "", "", false};
    one.isEmpty = one.text.empty();
    references.push_back(std::move(one));
  }
  return references;
}

class Importer {
 public:
  Importer(Library const& library, ReferenceImport const& options)
      : library_(library), options_(options) {
    for (auto const& [bank, counts] : UsesIn(library, options.bank)) {
      for (auto const& [code, count] : counts) used_.insert(code);
    }
  }

  ImportedReferences Take(std::string const& path) {
    std::vector<FileReference> const references =
        IsBibTeX(path) ? FromBibTeX(path, options_, Taken()) : FromTable(path, options_);
    for (FileReference const& one : references) {
      ++result_.read;
      try {
        Put(one);
      } catch (Failure const& refused) {
        ++result_.refused;
        result_.rows.Add(static_cast<std::int64_t>(one.line), Text(one.code), "refused",
                         std::string(refused.what()));
      }
    }
    return std::move(result_);
  }

 private:
  // The codes that a new reference must not get: those of data and of citations.
  std::set<std::uint32_t> Taken() const {
    std::set<std::uint32_t> taken;
    Table const references = ReferenceTable(library_);
    for (auto const& row : references.Rows()) {
      taken.insert(static_cast<std::uint32_t>(std::get<std::int64_t>(row[0])));
    }
    return taken;
  }

  void Put(FileReference const& one) {
    if (one.isEmpty) {
      ++result_.unused;
      return;
    }
    if (!one.why.empty()) throw Failure(one.why);
    Citation const citation = MakeCitation(CodeOf(one.code), one.text, one.doi);
    auto const [at, isFirst] = lines_.emplace(citation.code, one.line);
    if (!isFirst) {
      throw Failure("code " + one.code + " is already in line " + std::to_string(at->second));
    }
    if (options_.isUsedOnly && used_.count(citation.code) == 0) {
      ++result_.unused;
      return;
    }
    ReferenceState const state = PutReference(library_, options_.bank, citation, options_.replace);
    ++(state == ReferenceState::kNew    ? result_.isNew
       : state == ReferenceState::kSame ? result_.same
                                        : result_.changed);
    if (state == ReferenceState::kSame) return;
    result_.rows.Add(static_cast<std::int64_t>(one.line), one.code, ToText(state), citation.text);
  }

  Library const& library_;
  ReferenceImport const& options_;
  std::set<std::uint32_t> used_;
  std::map<std::uint32_t, std::size_t> lines_;
  ImportedReferences result_;
};

std::string BibTeXOf(Table const& references) {
  std::string text;
  std::set<std::int64_t> seen;
  for (auto const& row : references.Rows()) {
    std::int64_t const code = std::get<std::int64_t>(row[0]);
    if (!seen.insert(code).second) {
      throw Failure("code " + std::to_string(code) +
                    " has several citations in the library; --bank writes those of one bank");
    }
    std::string const doi = std::holds_alternative<std::monostate>(row[3]) ? "" : CellText(row[3]);
    text +=
        (text.empty() ? "" : "\n") + ToBibTeX("ref" + std::to_string(code), CellText(row[4]), doi);
  }
  return text;
}

}  // namespace

ImportedReferences::ImportedReferences()
    : rows("references", {{"line", ""}, {"code", ""}, {"result", ""}, {"what", ""}}) {}

ImportedReferences ImportReferences(Library const& library, std::string const& path,
                                    ReferenceImport const& options) {
  return Importer(library, options).Take(path);
}

std::string ExportReferences(Library const& library, std::optional<BankName> const& bank,
                             std::string const& path, std::int64_t& count) {
  if (!IsBibTeX(path)) InFormOf(path, {});  // an unknown ending is an error before the work
  Table const all = ReferenceTable(library, bank);
  Table cited("references", all.Columns());
  for (auto const& row : all.Rows()) {
    if (!std::holds_alternative<std::monostate>(row[4])) cited.Add(row);
  }
  count = static_cast<std::int64_t>(cited.Rows().size());
  if (IsBibTeX(path)) return BibTeXOf(cited);
  TextTable table;
  table.heads = {"code", "citation", "doi"};
  for (auto const& row : cited.Rows()) {
    auto const text = [&](std::size_t i) {
      return std::holds_alternative<std::monostate>(row[i]) ? std::string() : CellText(row[i]);
    };
    table.rows.push_back({0, {text(0), text(4), text(3)}});
  }
  return InFormOf(path, table);
}

}  // namespace zel::desk
