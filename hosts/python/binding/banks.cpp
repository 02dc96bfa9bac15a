// One library and its banks: items, columns, documents and lists.
#include <zelaccess/BlockError.h>
#include <zelaccess/Columns.h>
#include <zelaccess/CompList_p.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/Handles.h>
#include <zelaccess/PureComp.h>

#include <memory>

#include "columns.h"
#include "common.h"

namespace zelpython {
namespace {

// A library that opens its files when it is used.
class BankFile {
 public:
  BankFile(std::string path, desk::LibrariesOptions options)
      : path_(std::move(path)), options_(std::move(options)) {}

  template <typename Work>
  auto Use(Work const& work) {
    return open_.Use([this] { return desk::LibraryFile(path_, options_); }, work);
  }
  void Close() { open_.Close(); }

 private:
  std::string path_;
  desk::LibrariesOptions options_;
  Reopened<desk::LibraryFile> open_;
};

py::tuple ToPython(desk::BankInfo const& bank) {
  return py::make_tuple(Str(bank.type), Str(bank.name), bank.items, bank.format);
}

py::list Banks(BankFile& file) {
  auto const banks = file.Use([](desk::LibraryFile const& open) { return open.Banks(); });
  py::list all;
  for (desk::BankInfo const& bank : banks) all.append(ToPython(bank));
  return all;
}

py::list Keys(BankFile& file, std::string const& bank) {
  auto const keys = file.Use([&](desk::LibraryFile const& open) { return open.Keys(bank); });
  py::list all;
  for (auto const& words : keys) {
    py::tuple key(words.size());
    for (std::size_t i = 0; i < words.size(); ++i) key[i] = Str(words[i]);
    all.append(key);
  }
  return all;
}

// [(name, array), ...]: the words of the keys, then the fields.
py::list Columns(BankFile& file, std::string const& type, std::string const& name,
                 std::vector<ColumnWish> const& wishes, std::int64_t rows) {
  ReadColumns columns = file.Use([&](desk::LibraryFile const& open) {
    return zel::WithBlockErrors([&] { return ColumnsOf(open, type, name, wishes, rows); });
  });
  return ToPython(std::move(columns));
}

std::mutex lists;  // their settings belong to the process

// Rows of a pick list: id, cas, formula, NBP, MW, name.
py::list PickList(BankFile& file, std::string const& bank, std::string const& path) {
  struct Row {
    char name[41], id[13], formula[21], cas[21];
    double nbp, mw;
  };
  std::vector<Row> const rows = file.Use([&](desk::LibraryFile const& open) {
    std::lock_guard const alone(lists);
    zel::Handle<zel::CompList> const list(zel::CompList::NewCompList());
    zel::WithBlockErrors([&] {
      if (!list->GetBuilder()->BuildList(&open.File(), bank.c_str(), path.c_str()) ||
          !list->ReadList(path.c_str())) {
        throw desk::Error(path, "cannot be written");
      }
    });
    std::vector<Row> found;
    Row row{};
    while (list->GetNext(row.name, row.id, row.formula, row.cas, row.nbp, row.mw)) {
      found.push_back(row);
    }
    return found;
  });
  py::list all;
  for (Row const& row : rows) {
    all.append(py::make_tuple(StrOrNone(row.id), StrOrNone(row.cas), StrOrNone(row.formula),
                              NumberOrNan(row.nbp), NumberOrNan(row.mw), StrOrNone(row.name)));
  }
  return all;
}

}  // namespace

void AddBanks(py::module_& module) {
  py::class_<BankFile>(module, "BankFile")
      .def(py::init([](std::string path, std::string names, double wait,
                       std::vector<std::string> folders) {
             return std::make_unique<BankFile>(
                 std::move(path),
                 desk::LibrariesOptions{std::move(names), false, wait, std::move(folders)});
           }),
           py::arg("library"), py::arg("names") = "", py::arg("wait") = 0.0,
           py::arg("path") = std::vector<std::string>())
      .def("open", [](BankFile& file) { file.Use([](desk::LibraryFile const&) { return 0; }); })
      .def("close", &BankFile::Close)
      .def("banks", &Banks)
      .def(
          "bank",
          [](BankFile& file, std::string const& bank) {
            return ToPython(
                file.Use([&](desk::LibraryFile const& open) { return open.Bank(bank); }));
          },
          py::arg("bank"))
      .def(
          "item",
          [](BankFile& file, std::string const& bank, std::vector<std::string> const& words) {
            return file.Use([&](desk::LibraryFile const& open) { return open.Item(bank, words); });
          },
          py::arg("bank"), py::arg("words"))
      .def("keys", &Keys, py::arg("bank"))
      .def(
          "memo",
          [](BankFile& file, std::string const& bank) {
            return Str(file.Use([&](desk::LibraryFile const& open) { return open.Memo(bank); }));
          },
          py::arg("bank") = "")
      .def("columns", &Columns, py::arg("type"), py::arg("name"), py::arg("wishes"),
           py::arg("rows"))
      .def("pick_list", &PickList, py::arg("bank"), py::arg("path"))
      .def(
          "export",
          [](BankFile& file, std::string const& target, std::string const& bank) {
            return file.Use(
                [&](desk::LibraryFile const& open) { return open.Export(target, bank); });
          },
          py::arg("target"), py::arg("bank") = "")
      .def(
          "dump",
          [](BankFile& file, std::string const& folder) {
            return file.Use([&](desk::LibraryFile const& open) { return open.Dump(folder); });
          },
          py::arg("folder"));
}

}  // namespace zelpython
