// A library whose data are checked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "maint/lib_maint.h"
#include "store/progress_steps.h"
#include "verify/component_view.h"
#include "verify/data_finding.h"
#include "verify/unread_items.h"

namespace zel {

// The item of a finding about a component, which is named by its ID or number.
CheckedItem ComponentItem(std::string const& library, CheckedBank const& bank,
                          ZelIdentity const& identity, std::int32_t key);

class CheckedLibrary {
 public:
  CheckedLibrary(LibFile_i& file, std::string name, DataFindings& findings)
      : file_(file), name_(std::move(name)), findings_(findings), maint_(&file) {}

  std::string const& Name() const { return name_; }
  DataFindings& Findings() { return findings_; }
  // The banks in the order of the directory; all types if `type` is empty.
  std::vector<CheckedBank> Banks(char const* type = "");
  std::int64_t CountItems(CheckedBank const& bank);
  // The items of all banks, or of those of a type.
  std::int64_t CountAllItems(char const* type = "");
  // Sets what each item of a walk is reported to; a walk throws WorkCancelled if the host cancels.
  void SetProgress(ProgressSteps& progress) { progress_ = &progress; }
  // Calls `visit` with the key words of each item, which is then in `item`. What cannot be read is
  // reported as damage and left out.
  template <typename Visit>
  void Walk(CheckedBank const& bank, IZelBankDef* item, Visit const& visit) {
    Guarded(bank, [&] {
      std::int32_t words[format::kMaxKeyWords] = {};
      if (!maint_.BeginItemWalk(bank.type.c_str(), bank.name.c_str())) return;
      while (maint_.NextItem(words, item)) {
        if (progress_ != nullptr && !progress_->DidItem(1.0)) throw WorkCancelled();
        visit(words);
      }
      maint_.EndItemWalk();
    });
  }
  // Reads the bank's record of a component: the one with its CAS number, else one with its number
  // or one of its IDs that does not contradict it. False if the bank has no such record.
  bool ReadSame(CheckedBank const& bank, ZelIdentity const& wanted, ComponentView const& found);

  // The item of a finding: `text` names it within its bank.
  CheckedItem Item(CheckedBank const& bank, std::int32_t const* key, std::int32_t keyWords,
                   std::string text) const;
  // The same for a component.
  CheckedItem ComponentItem(CheckedBank const& bank, ZelIdentity const& identity,
                            std::int32_t key) const;

 private:
  template <typename Work>
  void Guarded(CheckedBank const& bank, Work const& work) {
    UnreadItems const unread(file_, [&](char const* id, char const* place, char const* text) {
      findings_.Damage(id, name_, place, text);
    });
    try {
      work();
    } catch (unsigned long const address) {
      Unreadable(bank, address);
    }
  }
  void Unreadable(CheckedBank const& bank, unsigned long address);
  bool Find(CheckedBank const& bank, ZelIdentity const& wanted, ComponentView const& found);

  LibFile_i& file_;
  std::string name_;
  DataFindings& findings_;
  LibMaint_i maint_;
  ProgressSteps* progress_ = nullptr;
};

}  // namespace zel
