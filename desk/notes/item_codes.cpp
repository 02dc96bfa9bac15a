#include "desk/notes/item_codes.h"

#include <memory>

#include "desk/open/fields.h"
#include "desk/open/pure_component.h"

namespace zel::desk {
namespace {

constexpr char kCodeField[] = "refCode";

// The value of the field for the code; nothing if the type does not have it.
Cell CodeCell(zel::IZelBankDef& item) {
  for (Field const& field : FieldsOf(item)) {
    if (field.name == kCodeField) return ValueOf(item, field);
  }
  return {};
}

struct Releaser {
  void operator()(zel::IZelPureComp* face) const { face->Release(); }
};
using Face = std::unique_ptr<zel::IZelPureComp, Releaser>;

Face FaceOf(zel::IZelBankDef& item) {
  void* face = nullptr;
  if (item.QueryInterface(zel::IID_IZelPureComp, &face) != zel::kStatusOk) return nullptr;
  return Face(static_cast<zel::IZelPureComp*>(face));
}

constexpr std::uint32_t kConstantsWithCode = 50;
constexpr std::uint32_t kCurvesWithCode = 17;

void Add(std::uint32_t code, CodeCounts& counts) {
  if (code != 0) ++counts[code];
}

void AddOfComponent(zel::IZelPureComp& component, CodeCounts& counts) {
  std::int32_t identity = 0;
  component.GetIdentity(nullptr, nullptr, &identity, nullptr, nullptr, nullptr, nullptr);
  if (identity > 0) Add(static_cast<std::uint32_t>(identity), counts);
  for (auto const& row : Constants()) {
    double value = zel::gen_GetUndefDouble();
    std::uint32_t code = 0;
    component.GetProperty(row.index, &value);
    if (zel::gen_IsUndefDouble(value) || row.index >= kConstantsWithCode) continue;
    component.GetPropertyRefCode(row.index, &code);
    Add(code, counts);
  }
  for (std::uint32_t index = 0; index < kCurvesWithCode; ++index) {
    std::int32_t equation = 0;
    std::uint32_t code = 0;
    zel::ZelStatus const status =
        component.GetCorrelation(index, &equation, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 nullptr, nullptr, nullptr, nullptr);
    // A record that the library does not return has an equation too.
    bool const isUnsound = status == zel::kStatusFailed && equation != 0;
    if (status != zel::kStatusOk && !isUnsound) continue;
    component.GetCorrelationRefCode(index, &code);
    Add(code, counts);
  }
}

}  // namespace

void AddCodes(zel::IZelBankDef& item, CodeCounts& counts) {
  if (Face const component = FaceOf(item)) return AddOfComponent(*component, counts);
  Cell const code = CodeCell(item);
  if (auto const* const whole = std::get_if<std::int64_t>(&code); whole != nullptr && *whole > 0) {
    Add(static_cast<std::uint32_t>(*whole), counts);
  }
}

CodeCounts CodesIn(Library const& library, BankName const& bank) {
  CodeCounts counts;
  zel::Handle<zel::IZelBankDef> const item = BankOrNone(bank.type);
  if (!item) return counts;
  std::int32_t words[10] = {};
  library.Walk(bank, [&] {
    library.Maint().BeginItemWalk(bank.type.c_str(), bank.name.c_str());
    while (library.Maint().NextItem(words, item.get())) AddCodes(*item, counts);
  });
  library.Maint().EndItemWalk();
  return counts;
}

}  // namespace zel::desk
