// Steps of BankTypes.h: an item of each bank type is set through the interface of its own, written,
// read and copied.
#include <cstring>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

constexpr char kTyped[] = "TYPED";

// Calls `visit` with the name and the pointer of each operation of an interface, setters first.
template <typename Face, typename Visit>
void ForEachOperation(Visit const& visit) {
#define ZEL_OPERATION(operation) \
  if constexpr (requires { &Face::operation; }) visit(#operation, &Face::operation)
  ZEL_OPERATION(PutData);
  ZEL_OPERATION(PutContext);
  ZEL_OPERATION(PutGroup);
  ZEL_OPERATION(PutInteraction);
  ZEL_OPERATION(SetRefBankName);
  ZEL_OPERATION(GetData);
  ZEL_OPERATION(GetDataDefaulted);
  ZEL_OPERATION(GetContext);
  ZEL_OPERATION(GetGroup);
  ZEL_OPERATION(GetInteraction);
  ZEL_OPERATION(GetRefBankName);
#undef ZEL_OPERATION
}

bool IsSetter(char const* operation) { return *operation != 'G'; }

// What is passed to an operation: for a pointer an array, one of its own for each argument.
class Arguments {
 public:
  // Not known before the overload is chosen by the type of the parameter.
  template <typename T>
  T Of(std::size_t at) {
    if constexpr (std::is_pointer_v<T>) {
      return Array<std::remove_pointer_t<T>>(at);
    } else {
      return Value<T>(at);
    }
  }
  // Adds what an operation has stored; nothing for what it only takes.
  template <typename T>
  void AddTo(Outcome& o, std::size_t at) const {
    if constexpr (std::is_same_v<T, char*>) {
      o.Add(reinterpret_cast<char const*>(room_[at]));
    } else if constexpr (std::is_same_v<T, double*>) {
      o.Add(*reinterpret_cast<double const*>(room_[at]));
    } else if constexpr (std::is_same_v<T, std::int32_t*>) {
      o.Add(static_cast<long long>(*reinterpret_cast<std::int32_t const*>(room_[at])));
    }
  }

 private:
  static constexpr std::size_t kElements = 200;  // of the longest array

  // Another one for each real, so that each is found in its place.
  template <typename T>
  static T Value(std::size_t at) {
    if constexpr (std::is_same_v<T, double>) return 1.5 + static_cast<double>(at);
    return 1;
  }
  template <typename T>
  T* Array(std::size_t at) {
    std::memset(room_[at], 0, sizeof room_[at]);
    auto* const array = reinterpret_cast<std::remove_const_t<T>*>(room_[at]);
    if constexpr (std::is_same_v<T, char const>) {
      std::strcpy(array, "ALPHA");
    } else if constexpr (std::is_const_v<T>) {
      for (std::size_t i = 0; i < kElements; ++i) array[i] = Value<std::remove_const_t<T>>(at);
    }
    return array;
  }

  alignas(double) unsigned char room_[30][kElements * sizeof(double)];
};
Arguments arguments;

template <typename Face, typename... Parameters, std::size_t... kAt>
void Call(Face& face, ZelStatus (Face::*operation)(Parameters...), Outcome& o,
          std::index_sequence<kAt...> /*positions*/) {
  o.Done((face.*operation)(arguments.Of<Parameters>(kAt)...) == kStatusOk);
  (arguments.AddTo<Parameters>(o, kAt), ...);
}
template <typename Face, typename... Parameters>
void Call(Face& face, ZelStatus (Face::*operation)(Parameters...), Outcome& o) {
  Call(face, operation, o, std::index_sequence_for<Parameters...>());
}

// Makes a bank for items of a type, and a key.
template <IZelBankDef* (*kMake)()>
void MakeBankOfType(Bench& b) {
  Handle<IZelBankDef> const item(kMake());
  char type[9] = {};
  std::int32_t count = 0;
  item->GetBankInfo(type, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr);
  b.maint->CreateBank(type, kTyped, 0);
  std::int32_t words[10];
  for (std::int32_t i = 0; i < 10; ++i) words[i] = static_cast<std::int32_t>(kFirst) + i;
  b.key->SetKeyWords(count, words);
}

template <typename Face, ZelIid const* kId, IZelBankDef* (*kMake)()>
void ItemOfType(Bench& b, Outcome& o) {
  b.spare.reset(kMake());
  o.Done(b.spare != nullptr);
  if (b.spare == nullptr) return;
  void* found = nullptr;
  o.Done(b.spare->QueryInterface(*kId, &found) == kStatusOk);
  auto* const face = static_cast<Face*>(found);
  o.Add(static_cast<long long>(face->AddRef()));
  face->Release();
  face->Release();  // `spare` holds it
  ForEachOperation<Face>([&](char const* name, auto operation) {
    if (IsSetter(name)) Call(*face, operation, o);
  });
  o.Add(static_cast<long long>(b.maint->WriteItem(b.spare.get(), kTyped, b.key.get())));
  b.spare->Clear();
  o.Add(static_cast<long long>(b.maint->ReadItem(b.spare.get(), kTyped, b.key.get())));
  ForEachOperation<Face>([&](char const* name, auto operation) {
    if (!IsSetter(name)) Call(*face, operation, o);
  });
}

template <typename Face, ZelIid const* kId, IZelBankDef* (*kMake)()>
Step StepOf(std::string const& name) {
  std::string calls = "IUnknown::AddRef New" + name;
  ForEachOperation<Face>(
      [&](char const* operation, auto) { calls += " IZel" + name + "::" + operation; });
  return {"item of " + name,           calls, Opens::kUpdate, kPlain, MakeBankOfType<kMake>,
          ItemOfType<Face, kId, kMake>};
}

}  // namespace

Steps BankTypeSteps() {
#define ZEL_TYPE(name) StepOf<IZel##name, &IID_IZel##name, New##name>(#name)
  return {
      ZEL_TYPE(Alpha),   ZEL_TYPE(Azeo),     ZEL_TYPE(Bwrs),       ZEL_TYPE(BwrsPure),
      ZEL_TYPE(Costald), ZEL_TYPE(GroupDes), ZEL_TYPE(Henry),      ZEL_TYPE(HMix),
      ZEL_TYPE(HocV),    ZEL_TYPE(IDimer),   ZEL_TYPE(IDimPure),   ZEL_TYPE(Lkp),
      ZEL_TYPE(MapOrw),  ZEL_TYPE(Margules), ZEL_TYPE(MwPr),       ZEL_TYPE(MwSrk),
      ZEL_TYPE(Nrtl),    ZEL_TYPE(NrtlLL),   ZEL_TYPE(Octane),     ZEL_TYPE(Oli),
      ZEL_TYPE(OrwMap),  ZEL_TYPE(PcSaft),   ZEL_TYPE(PcSaftPure), ZEL_TYPE(Peneloux),
      ZEL_TYPE(Ppr78),   ZEL_TYPE(PrH),      ZEL_TYPE(PrM),        ZEL_TYPE(PrO),
      ZEL_TYPE(PrP),     ZEL_TYPE(Psrk),     ZEL_TYPE(PureComp),   ZEL_TYPE(Rackett),
      ZEL_TYPE(SrkH),    ZEL_TYPE(SrkM),     ZEL_TYPE(SrkO),       ZEL_TYPE(SrkP),
      ZEL_TYPE(SrkS),    ZEL_TYPE(Struct),   ZEL_TYPE(Unf2Pure),   ZEL_TYPE(UnfDort),
      ZEL_TYPE(UnfLyng), ZEL_TYPE(UnfMod),   ZEL_TYPE(UnfOrig),    ZEL_TYPE(UnfPure),
      ZEL_TYPE(Unifac),  ZEL_TYPE(Uniquac),  ZEL_TYPE(UniquacLL),  ZEL_TYPE(VanLaar),
      ZEL_TYPE(Virial),  ZEL_TYPE(Wilson),
  };
#undef ZEL_TYPE
}

}  // namespace zel::test
