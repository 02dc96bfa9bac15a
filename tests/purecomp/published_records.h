// The correlations of the published data, read from their documents into a library.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "zelaccess/ZelAccess.h"

namespace zel::test {

inline constexpr char const* kPublishedSources[] = {"chemsep", "crc",    "nist",
                                                    "perry",   "poling", "vdi"};

struct PublishedRecord {
  std::string name;  // "perry 10000007 0"
  std::uint32_t index = 0;
  std::int32_t equation = 0;
  double tMin = 0.0;
  double tMax = 0.0;
  double Tc = 0.0;
  double Pc = 0.0;
  std::vector<double> coefficients;
};

// One source as a library in its own folder, which is removed with the object.
class PublishedRecords {
 public:
  static constexpr std::uint32_t kCorrelations = 18;

  PublishedRecords(std::filesystem::path const& documents, std::string source)
      : source_(std::move(source)),
        folder_(std::filesystem::temp_directory_path() / ("zel_published_" + source_)) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    InitZelAccess();  // units
    openErrors error{};
    library_.reset(LibFile::NewLibFile(libKind11, (folder_ / "r.lb1").string().c_str(), error));
    if (error != openOk) throw std::runtime_error("no library in " + folder_.string());
    maint_.reset(LibMaint::NewLibMaint(library_.get()));
    if (!maint_->Import((documents / (source_ + ".xml")).string().c_str(), false)) {
      throw std::runtime_error(maint_->GetLastErrorText());
    }
  }
  PublishedRecords(PublishedRecords const&) = delete;
  PublishedRecords& operator=(PublishedRecords const&) = delete;
  ~PublishedRecords() {
    maint_.reset();
    library_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  // The component of the record that was passed to `use`.
  IZelPureComp& Component() { return *component_.operator->(); }

  // Calls `use` with every correlation of every component.
  template <typename Use>
  void Each(Use const& use) {
    char type[9], bank[9];
    maint_->BeginBankWalk("PURECOMP");
    if (!maint_->NextBank(type, bank)) throw std::runtime_error("no bank in " + source_);
    maint_->EndBankWalk();
    maint_->BeginItemWalk("PURECOMP", bank);
    std::int32_t key[6];
    while (maint_->NextItem(key, component_.Def())) {
      for (std::uint32_t index = 0; index < kCorrelations; ++index) {
        PublishedRecord record;
        if (!Read(index, record)) continue;
        record.name = source_ + " " + std::to_string(key[0]) + " " + std::to_string(index);
        use(record);
      }
    }
    maint_->EndItemWalk();
  }

 private:
  bool Read(std::uint32_t index, PublishedRecord& record) {
    std::int32_t tempUnit, propUnit, logBasis, basis, count;
    double factor, coefficients[15];
    record.index = index;
    if (component_->GetCorrelation(index, &record.equation, &tempUnit, &propUnit, &factor,
                                   &logBasis, &basis, &count, &record.tMin, &record.tMax,
                                   coefficients) != kStatusOk) {
      return false;
    }
    record.coefficients.assign(coefficients, coefficients + count);
    component_->GetProperty(1, &record.Tc);
    component_->GetProperty(2, &record.Pc);
    return true;
  }

  std::string source_;
  std::filesystem::path folder_;
  Handle<LibFile> library_;
  Handle<LibMaint> maint_;
  BankFace<IZelPureComp> component_{"PURECOMP", IID_IZelPureComp};
};

}  // namespace zel::test
