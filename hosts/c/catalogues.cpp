// The library as a whole: version, statuses, units, and the words that data are named by.
#include <zelaccess/DataCheck.h>
#include <zelaccess/DeskBanks.h>
#include <zelaccess/Types.h>
#include <zelaccess/Units.h>
#include <zelaccess/Verify.h>
#include <zelaccess/Version.h>

#include <cmath>

#include "border.h"

namespace {

using zelc::CopyText;
using zelc::Guarded;
using zelc::MakeHandle;

// In the order of zel_statuses.
constexpr char const* kStatusNames[] = {"ZEL_OK",
                                        "ZEL_FAILED",
                                        "ZEL_NULL_ARGUMENT",
                                        "ZEL_BAD_ARGUMENT",
                                        "ZEL_NO_MEMORY",
                                        "ZEL_TOO_SMALL",
                                        "ZEL_NO_VALUE",
                                        "ZEL_WRONG_TYPE",
                                        "ZEL_NOT_FOUND",
                                        "ZEL_IN_USE",
                                        "ZEL_CANNOT_OPEN",
                                        "ZEL_READ_ONLY",
                                        "ZEL_DAMAGED",
                                        "ZEL_MISSING_COMPONENT",
                                        "ZEL_CONFLICTING_IDENTITY",
                                        "ZEL_MISSING_ITEM",
                                        "ZEL_MISSING_BANK",
                                        "ZEL_MISSING_DATUM",
                                        "ZEL_UNKNOWN_WORD",
                                        "ZEL_STOPPED"};
static_assert(std::size(kStatusNames) == ZEL_STOPPED + 1, "each status has a name");

constexpr char const* kKeyKinds[] = {"components", "numbers", "text"};         // of KeyKind
constexpr char const* kFieldKinds[] = {"integer", "real", "text", "word"};     // of zelFieldTypes
constexpr char const* kSeverities[] = {"note", "warning", "damage", "error"};  // of zelFindings

}  // namespace

zel_status zel_start(void) {
  return Guarded([] { zelc::Start(); });
}

zel_status zel_version(char* text, size_t size, size_t* length) {
  return Guarded([&] { CopyText(zel::GetZelAccessVersion(), text, size, length); });
}

zel_status zel_status_name(zel_status status, char* text, size_t size, size_t* length) {
  return Guarded([&] {
    zelc::NeedAmong(status, ZEL_OK, ZEL_STOPPED, "status");
    CopyText(kStatusNames[status], text, size, length);
  });
}

zel_status zel_convert(char const* dimension, char const* from, char const* to, double* values,
                       size_t count) {
  return Guarded([&] {
    zelc::Start();
    zelc::Need(dimension, "dimension");
    zelc::Need(from, "from");
    zelc::Need(to, "to");
    zelc::NeedArray(values, count, "values");
    if (count > std::numeric_limits<std::int32_t>::max()) {
      throw zelc::Refusal(ZEL_BAD_ARGUMENT, "more than 2147483647 values");
    }
    if (!zel::ConvertUnits(dimension, from, to, values, static_cast<std::int32_t>(count))) {
      throw zelc::Refusal(ZEL_UNKNOWN_WORD, "values of " + std::string(dimension) + " in \"" +
                                                from + "\" cannot be converted to \"" + to + "\"");
    }
  });
}

zel_status zel_list_constants(zel_table** table) {
  return MakeHandle(table, "table", [] {
    std::int32_t count = 0;
    zel::ZelConstantInfo const* const rows = zel::GetConstantCatalogue(count);
    zel::desk::Table list =
        zelc::EmptyTable("constants", {"keyword", "label", "unit", "dimension"});
    for (std::int32_t i = 0; i < count; ++i) {
      list.Add(std::string(rows[i].keyword), std::string(rows[i].label), std::string(rows[i].unit),
               std::string(zel::GetConstantDimension(rows[i].index)));
    }
    return zelc::AsHandle(std::move(list));
  });
}

zel_status zel_list_correlations(zel_table** table) {
  return MakeHandle(table, "table", [] {
    std::int32_t count = 0;
    zel::ZelCorrelationInfo const* const rows = zel::GetCorrelationCatalogue(count);
    zel::desk::Table list =
        zelc::EmptyTable("correlations", {"name", "label", "unit", "dimension"});
    for (std::int32_t i = 0; i < count; ++i) {
      list.Add(std::string(rows[i].name), std::string(rows[i].label), std::string(rows[i].unit),
               std::string(zel::GetCorrelationDimension(static_cast<std::uint32_t>(i))));
    }
    return zelc::AsHandle(std::move(list));
  });
}

zel_status zel_list_bank_types(zel_table** table) {
  return MakeHandle(table, "table", [] {
    zel::desk::Table list = zelc::EmptyTable(
        "bank types", {"type", "description", "key", "key parts", "shortest key", "formats"});
    for (zel::desk::BankType const& type : zel::desk::BankTypes()) {
      list.Add(type.type, type.description,
               std::string(kKeyKinds[static_cast<std::int32_t>(type.keyKind)]),
               std::int64_t{type.keyParts}, std::int64_t{type.shortestKey},
               std::int64_t{type.formats});
    }
    return zelc::AsHandle(std::move(list));
  });
}

zel_status zel_list_fields(char const* type, zel_table** table) {
  return MakeHandle(table, "table", [&] {
    zel::desk::Table list = zelc::EmptyTable("fields", {"name", "label", "unit", "kind", "count"});
    for (zel::desk::FieldInfo const& field :
         zel::desk::FieldsOfType(zelc::NeedText(type, "type"))) {
      list.Add(field.name, field.label, field.unit, std::string(kFieldKinds[field.type]),
               std::int64_t{field.count});
    }
    return zelc::AsHandle(std::move(list));
  });
}

zel_status zel_list_checks(zel_table** table) {
  return MakeHandle(table, "table", [] {
    std::int32_t count = 0;
    zel::ZelDataCheck const* const rows = zel::GetDataChecks(count);
    zel::desk::Table list = zelc::EmptyTable("checks", {"id", "rule", "severity"});
    for (std::int32_t i = 0; i < count; ++i) {
      list.Add(std::string(rows[i].id), std::string(rows[i].rule),
               std::string(kSeverities[rows[i].severity]));
    }
    return zelc::AsHandle(std::move(list));
  });
}
