// PureComp_i: the bank of type PURECOMP, one component in memory.
//
// Unlike other banks it has no named fields, and an item has its own blocks: the entry of the
// bank's tree holds the address of the first. Reading merges, see IZelPureComp.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "banks/field_bank.h"
#include "purecomp/component.h"
#include "zelaccess/PureComp.h"

namespace zel {

class PureComp_i final : public BankWithFace<IZelPureComp> {
 public:
  PureComp_i(BankType const& type, ZelIid const& id);

  Component const& Data() const noexcept { return c_; }

  // IZelBankDef and IZelBankIO
  ZelStatus Clear() override;
  ZelStatus ReadFromFile(std::int32_t const* block, LibFile* library) override;
  ZelStatus WriteToFile(std::int32_t* block, LibFile* library) override;
  ZelStatus Complete() override;

  // BankBase_i
  Field const* FindColumn(std::string_view name, FieldType type,
                          FieldType otherType) const override;
  std::int32_t ColumnBlockWords() const override;
  void DecodeColumn(Field const& field, std::int32_t const* record, std::int32_t format,
                    void* to) const override;

  // IZelPureComp
  ZelStatus GetConsistencyWarning(std::uint8_t* flag, char* text) override;
  ZelStatus GetIdentity(std::int32_t* number, std::int32_t* casNumber, std::int32_t* refCode,
                        char (*libraryIds)[9], char* name, char* formula,
                        std::uint8_t* keepFormula) override;
  ZelStatus SetIdentity(std::int32_t number, std::int32_t casNumber, std::int32_t refCode,
                        char const (*libraryIds)[9], char const* name, char const* formula,
                        std::uint8_t keepFormula) override;
  ZelStatus GetStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                         std::int32_t* counts) override;
  ZelStatus GetRawStructure(std::uint32_t model, std::int32_t* count, std::int32_t* ids,
                            std::int32_t* counts) override;
  ZelStatus GetLegacyStructure(std::int32_t* count, std::int32_t* ids,
                               std::int32_t* counts) override;
  ZelStatus SetStructure(std::uint32_t model, std::int32_t count, std::int32_t const* ids,
                         std::int32_t const* counts) override;
  ZelStatus SetLegacyStructure(std::int32_t count, std::int32_t const* ids,
                               std::int32_t const* counts) override;
  ZelStatus GetAllProperties(double* values) override;
  ZelStatus GetProperty(std::uint32_t index, double* value) override;
  ZelStatus GetAllCompleted(double* values) override;
  ZelStatus GetCompleted(std::uint32_t index, double* value) override;
  ZelStatus SetAllProperties(double const* values) override;
  ZelStatus SetProperty(std::uint32_t index, double value) override;
  ZelStatus GetAllPropertyRefCodes(std::uint32_t* codes) override;
  ZelStatus GetPropertyRefCode(std::uint32_t index, std::uint32_t* code) override;
  ZelStatus SetAllPropertyRefCodes(std::uint32_t const* codes) override;
  ZelStatus SetPropertyRefCode(std::uint32_t index, std::uint32_t code) override;
  ZelStatus GetCorrelation(std::uint32_t index, std::int32_t* equation, std::int32_t* tempUnit,
                           std::int32_t* propUnit, double* factor, std::int32_t* logBasis,
                           std::int32_t* moleWtBasis, std::int32_t* coefficientCount, double* tMin,
                           double* tMax, double* coefficients) override;
  ZelStatus SetCorrelation(std::uint32_t index, std::int32_t equation, std::int32_t tempUnit,
                           std::int32_t propUnit, std::int32_t logBasis, std::int32_t moleWtBasis,
                           std::int32_t coefficientCount, double tMin, double tMax,
                           double const* coefficients) override;
  ZelStatus ResetCorrelation(std::uint32_t index) override;
  ZelStatus GetCorrelationRefCode(std::uint32_t index, std::uint32_t* code) override;
  ZelStatus SetCorrelationRefCode(std::uint32_t index, std::uint32_t code) override;
  ZelStatus EvaluateCorrelation(std::uint32_t index, double temperature, std::int32_t order,
                                double* value, double* derivative, double* weights,
                                std::int32_t* status) override;
  ZelStatus GetSmiles(char* text) override;
  ZelStatus SetSmiles(char const* text) override;
  ZelStatus GetPhase(std::int32_t* phase) override;
  ZelStatus SetPhase(std::int32_t phase) override;
  ZelStatus GetAllPropertySources(char** texts, std::uint8_t* flags) override;
  ZelStatus GetAllPropertySourcesFlat(char* texts, std::uint8_t* flags) override;
  ZelStatus GetPropertySource(std::uint32_t index, char* text, std::uint8_t* flag) override;
  ZelStatus GetAllCorrelationSources(char** texts, std::uint8_t* flags) override;
  ZelStatus GetAllCorrelationSourcesFlat(char* texts, std::uint8_t* flags) override;
  ZelStatus GetCorrelationSource(std::uint32_t index, char* text, std::uint8_t* flag) override;
  ZelStatus GetAllIdentitySources(char** texts, std::uint8_t* flags) override;
  ZelStatus GetAllIdentitySourcesFlat(char* texts, std::uint8_t* flags) override;
  ZelStatus GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) override;

 private:
  Component c_;
};

}  // namespace zel
