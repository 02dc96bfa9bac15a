// A library on disk, and the documents that are exported from it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>

#include "frame/ascii.h"
#include "maint/lib_maint.h"
#include "store/key.h"
#include "tests/frame/temp_folder.h"
#include "tests/support/sample_component.h"

namespace zel::test {

class ExportTest : public TempFolderTest {
 protected:
  ExportTest()
      : library_(std::make_unique<LibFile_i>(platform::SystemFileSystem(), accUpdate,
                                             Path("lib.lb1").c_str(), "A name")) {
    EXPECT_EQ(library_->CreateNew(libKind11), openOk);
    maint_ = std::make_unique<LibMaint_i>(library_.get());
    std::filesystem::create_directory(Folder() / "out");
  }

  LibMaint_i& Maint() { return *maint_; }
  // Opens the library again.
  void Reopen(accModes mode) {
    maint_.reset();
    library_.reset();
    library_ = std::make_unique<LibFile_i>(platform::SystemFileSystem(), mode,
                                           Path("lib.lb1").c_str(), "A name");
    ASSERT_EQ(library_->OpenExisting({true, ""}, nullptr), openOk);
    maint_ = std::make_unique<LibMaint_i>(library_.get());
  }
  std::string Out(std::string_view name = "") const { return Path("out/" + std::string(name)); }
  std::string FileText(std::string const& path) const {
    std::ifstream file(path, std::ios::binary);
    if (!file) return "no file";
    return {std::istreambuf_iterator<char>(file), {}};
  }
  // A document without its header.
  std::string Body(std::string_view name) const {
    std::string const text = FileText(Out(name));
    std::size_t const end = text.find("-->\n\n");
    return end == std::string::npos ? text : text.substr(end + 5);
  }
  std::set<std::string> Files() const {
    std::set<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(Folder() / "out")) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  // Writes an item under the given key words; `fill` sets the fields of the bank.
  template <typename Fill>
  void Put(char const* type, char const* name, std::initializer_list<std::int32_t> words,
           Fill const& fill) {
    if (!maint_->BankExists(type, name)) maint_->CreateBank(type, name, 0);
    FaceRef<IZelBankDef> const bank(NewBank(type));
    fill(bank.Get());
    Key_i key;
    key.SetKeyWords(static_cast<long>(words.size()), words.begin());
    ASSERT_TRUE(maint_->WriteItem(bank.Get(), name, &key)) << maint_->Log().PendingText();
  }
  // The text that an export writes for one item of a new bank.
  template <typename Fill>
  std::string Item(char const* type, std::initializer_list<std::int32_t> words, Fill const& fill) {
    if (maint_->BankExists(type, "ONE")) maint_->DeleteBank(type, "ONE");
    Put(type, "ONE", words, fill);
    EXPECT_TRUE(maint_->ExportBank(type, "ONE", Out("one.xml").c_str()));
    std::string const body = Body("one.xml");
    std::size_t const start = body.find('\n') + 1;
    return body.substr(start, body.rfind("</bank>") - start);
  }
  void PutComponent(std::int32_t number, std::initializer_list<char const*> ids,
                    char const* bank = "PURE") {
    if (!maint_->BankExists("PURECOMP", bank)) maint_->CreateBank("PURECOMP", bank, 0);
    ComponentBank component;
    char texts[12][9] = {};
    std::size_t n = 0;
    for (char const* id : ids) CopyText(id, texts[n++], sizeof texts[0]);
    component->SetIdentity(number, 0, 0, texts, "Name", "C2H6O", 0);
    Key_i key;
    key.SetKey(static_cast<long>(number));
    ASSERT_TRUE(maint_->WriteItem(component.Def(), bank, &key)) << maint_->Log().PendingText();
  }

  std::unique_ptr<LibFile_i> library_;
  std::unique_ptr<LibMaint_i> maint_;
};

}  // namespace zel::test
