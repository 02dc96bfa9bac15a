// Calls a public function with each of its pointers null, one at a time and all together.
//
// What must hold: an output that is null is ignored, the others are the same as in the full call,
// and so is the status; without any output the call fails; without an input it fails too, but a
// null text means the empty text. Nothing crashes.
#pragma once

#include <gtest/gtest.h>
#include <zelaccess/ZelAccess.h>

#include <array>
#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace zelnull {

// The objects for arguments of a class type, and the values of texts.
struct World {
  zel::LibFile* library = nullptr;
  zel::Key* key = nullptr;
  zel::IZelBankDef* bank = nullptr;
  zel::IZelPureComp* component = nullptr;
  std::FILE* stream = nullptr;
  char const* text = "x";
};
inline World& TheWorld() {
  static World world;
  return world;
}

// How often each function was tested, by "Class::Function".
inline std::map<std::string, int>& Swept() {
  static std::map<std::string, int> names;
  return names;
}

enum class Role { kValue, kOutput, kInput, kText, kObject };

constexpr std::size_t kBufferBytes = 32000;  // 100 rows of 260 characters, and more
constexpr unsigned char kUntouched = 0x5A;

// An argument of one type: its role, what it points to, and its value.
template <typename Type>
struct Slot {  // by value, or a reference to an object of this test
  static constexpr Role kRole = Role::kValue;
  std::remove_cv_t<std::remove_reference_t<Type>> value{};
  Slot() {
    if constexpr (std::is_arithmetic_v<decltype(value)>) value = 1;
  }
  Type Get(bool) { return static_cast<Type>(value); }
  std::string Bytes() const { return {}; }
};

template <typename Type>
struct Slot<Type*> {
  using Element = std::remove_all_extents_t<Type>;
  static_assert(std::is_arithmetic_v<Element>, "a pointer to something else needs a slot");
  static constexpr bool kIsInput = std::is_const_v<Element>;
  static constexpr Role kRole = kIsInput ? Role::kInput : Role::kOutput;
  alignas(16) std::array<unsigned char, kBufferBytes> bytes;
  Slot() { bytes.fill(kIsInput ? 0 : kUntouched); }
  Type* Get(bool null) { return null ? nullptr : reinterpret_cast<Type*>(bytes.data()); }
  std::string Bytes() const { return {reinterpret_cast<char const*>(bytes.data()), bytes.size()}; }
};

template <>
struct Slot<char const*> {
  static constexpr Role kRole = Role::kText;
  char const* Get(bool null) { return null ? nullptr : TheWorld().text; }
  std::string Bytes() const { return {}; }
};

// Rows of texts.
template <>
struct Slot<char**> {
  static constexpr Role kRole = Role::kOutput;
  std::vector<std::array<char, 260>> rows = std::vector<std::array<char, 260>>(100);
  std::vector<char*> pointers;
  Slot() {
    for (auto& row : rows) row.fill(kUntouched), pointers.push_back(row.data());
  }
  char** Get(bool null) { return null ? nullptr : pointers.data(); }
  std::string Bytes() const {
    std::string all;
    for (auto const& row : rows) all.append(row.data(), row.size());
    return all;
  }
};

template <typename Type>
struct PointerSlot {
  static constexpr Role kRole = Role::kObject;
  std::string Bytes() const { return {}; }
};
template <>
struct Slot<zel::LibFile*> : PointerSlot<zel::LibFile> {
  zel::LibFile* Get(bool null) { return null ? nullptr : TheWorld().library; }
};
template <>
struct Slot<zel::Key*> : PointerSlot<zel::Key> {
  zel::Key* Get(bool null) { return null ? nullptr : TheWorld().key; }
};
template <>
struct Slot<zel::IZelBankDef*> : PointerSlot<zel::IZelBankDef> {
  zel::IZelBankDef* Get(bool null) { return null ? nullptr : TheWorld().bank; }
};
template <>
struct Slot<zel::IZelPureComp*> : PointerSlot<zel::IZelPureComp> {
  zel::IZelPureComp* Get(bool null) { return null ? nullptr : TheWorld().component; }
};
template <>
struct Slot<std::FILE*> : PointerSlot<std::FILE> {
  std::FILE* Get(bool null) { return null ? nullptr : TheWorld().stream; }
};
template <>
struct Slot<void*> : PointerSlot<void> {
  void* Get(bool) { return nullptr; }
};
template <>
struct Slot<unsigned long*> {
  static constexpr Role kRole = Role::kOutput;
  unsigned long value = kUntouched;
  unsigned long* Get(bool null) { return null ? nullptr : &value; }
  std::string Bytes() const { return std::to_string(value); }
};
template <>
struct Slot<zel::LibFile* const*> : PointerSlot<zel::LibFile*> {
  zel::LibFile* const* Get(bool null) { return null ? nullptr : &TheWorld().library; }
};
template <>
struct Slot<char const* const*> : PointerSlot<char const*> {
  char const* const* Get(bool null) { return null ? nullptr : &TheWorld().text; }
};
// Pointers into the library, and a face of a bank.
template <>
struct Slot<std::int32_t const**> {
  static constexpr Role kRole = Role::kOutput;
  std::int32_t const* value = nullptr;
  std::int32_t const** Get(bool null) { return null ? nullptr : &value; }
  std::string Bytes() const { return value != nullptr ? "given" : "not given"; }
};
template <>
struct Slot<void**> {
  static constexpr Role kRole = Role::kOutput;
  void* value = nullptr;
  void** Get(bool null) { return null ? nullptr : &value; }
  std::string Bytes() const { return {}; }
};

// What a call reported; a block error is a failure like others.
enum class Said { kNothing, kSuccess, kNothingNew, kNotImplemented, kFailure };

inline Said Meaning(zel::ZelStatus status) {
  if (status == zel::kStatusOk) return Said::kSuccess;
  if (status == zel::kStatusNothingNew) return Said::kNothingNew;
  return status == zel::kStatusNotImplemented ? Said::kNotImplemented : Said::kFailure;
}
inline Said Meaning(bool good) { return good ? Said::kSuccess : Said::kFailure; }
inline Said Meaning(std::int32_t count) { return count > 0 ? Said::kSuccess : Said::kFailure; }
template <typename Other>
Said Meaning(Other const&) {
  return Said::kNothing;
}

struct Outcome {
  Said said = Said::kNothing;
  std::vector<std::string> outputs;  // empty for arguments that are not outputs
};

// Makes one call in which the arguments whose bit is set are null. `call` takes the arguments.
template <typename... Arguments, typename Call, std::size_t... I>
Outcome CallWith(unsigned nulls, Call const& call, std::index_sequence<I...>) {
  std::tuple<Slot<Arguments>...> slots;
  Outcome outcome;
  auto const run = [&]() -> decltype(auto) {
    return call(std::get<I>(slots).Get((nulls >> I & 1U) != 0)...);
  };
  try {
    if constexpr (std::is_void_v<decltype(run())>) {
      run();
    } else {
      outcome.said = Meaning(run());
    }
  } catch (unsigned long) {
    outcome.said = Said::kFailure;
  } catch (std::out_of_range const&) {
    outcome.said = Said::kFailure;
  }
  outcome.outputs = {
      (Slot<Arguments>::kRole == Role::kOutput ? std::get<I>(slots).Bytes() : std::string())...};
  return outcome;
}

// What a call returns without output pointers: references, and the result of a function like
// CheckComponent.
enum class Remains { kPointersAlone, kResult };

template <typename Type>
inline constexpr bool kIsOutputReference =
    std::is_lvalue_reference_v<Type> && !std::is_const_v<std::remove_reference_t<Type>>;

template <typename... Arguments, typename Call>
void SweepCall(std::string const& name, Call const& call,
               Remains remains = Remains::kPointersAlone) {
  SCOPED_TRACE(name);
  ++Swept()[name];
  constexpr std::size_t kCount = sizeof...(Arguments);
  constexpr std::array<Role, kCount> kRoles = {Slot<Arguments>::kRole...};
  auto const with = [&](unsigned nulls) {
    return CallWith<Arguments...>(nulls, call, std::index_sequence_for<Arguments...>());
  };
  unsigned outputs = 0;
  for (std::size_t i = 0; i < kCount; ++i) outputs |= kRoles[i] == Role::kOutput ? 1U << i : 0U;
  Outcome const full = with(0);
  bool const works = full.said == Said::kSuccess || full.said == Said::kNothingNew;
  bool const remain = remains == Remains::kResult || (kIsOutputReference<Arguments> || ...);
  for (std::size_t i = 0; i < kCount; ++i) {
    SCOPED_TRACE("argument " + std::to_string(i));
    if (kRoles[i] == Role::kValue) continue;
    Outcome const part = with(1U << i);
    if (kRoles[i] == Role::kInput && works) {
      EXPECT_EQ(part.said, Said::kFailure);
    }
    if (kRoles[i] != Role::kOutput || outputs == 1U << i) continue;
    EXPECT_EQ(part.said, full.said);
    for (std::size_t other = 0; other < kCount; ++other) {
      EXPECT_TRUE(other == i || part.outputs[other] == full.outputs[other]) << "output " << other;
    }
  }
  Outcome const none = with(outputs);
  if (outputs != 0 && works) {
    EXPECT_EQ(none.said, remain ? full.said : Said::kFailure) << "no output at all";
  }
  with(~0U);
}

template <typename Object, typename Class, typename Result, typename... Arguments>
void Sweep(std::string const& name, Object& object, Result (Class::*function)(Arguments...)) {
  SweepCall<Arguments...>(
      name, [&](auto&&... arguments) -> Result { return (object.*function)(arguments...); });
}
template <typename Object, typename Class, typename Result, typename... Arguments>
void Sweep(std::string const& name, Object& object, Result (Class::*function)(Arguments...) const) {
  SweepCall<Arguments...>(
      name, [&](auto&&... arguments) -> Result { return (object.*function)(arguments...); });
}
template <typename Result, typename... Arguments>
void Sweep(std::string const& name, Result (*function)(Arguments...)) {
  SweepCall<Arguments...>(name,
                          [&](auto&&... arguments) -> Result { return function(arguments...); });
}

}  // namespace zelnull
