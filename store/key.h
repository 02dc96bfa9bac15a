// Key_i: the components that the host set, and the words that trees compare.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <typeinfo>

#include "frame/limits.h"
#include "store/format.h"
#include "zelaccess/Key_p.h"
#include "zelaccess/LibFile_p.h"

namespace zel {

class Key_i final : public Key_p {
 private:
  // Short names for the list of overloads below.
  using S = casn const&;
  using C = char const*;
  using N = long;

 public:
  static constexpr int kPlaces = 3;
  // A component that was left out; sorts after all real numbers.
  static constexpr std::int32_t kWildcard = 0x7FFFFFFF;

  Key_i() = default;
  Key_i(Key_i const&) = delete;
  Key_i& operator=(Key_i const&) = delete;
  ~Key_i() override = default;

  void SetKey(S first, S second, S third) override { Set(first, second, third); }
  void SetKey(S first, S second, C third) override { Set(first, second, third); }
  void SetKey(S first, S second, N third) override { Set(first, second, third); }
  void SetKey(S first, C second, S third) override { Set(first, second, third); }
  void SetKey(S first, C second, C third) override { Set(first, second, third); }
  void SetKey(S first, C second, N third) override { Set(first, second, third); }
  void SetKey(S first, N second, S third) override { Set(first, second, third); }
  void SetKey(S first, N second, C third) override { Set(first, second, third); }
  void SetKey(S first, N second, N third) override { Set(first, second, third); }
  void SetKey(C first, S second, S third) override { Set(first, second, third); }
  void SetKey(C first, S second, C third) override { Set(first, second, third); }
  void SetKey(C first, S second, N third) override { Set(first, second, third); }
  void SetKey(C first, C second, S third) override { Set(first, second, third); }
  void SetKey(C first, C second, C third) override { Set(first, second, third); }
  void SetKey(C first, C second, N third) override { Set(first, second, third); }
  void SetKey(C first, N second, S third) override { Set(first, second, third); }
  void SetKey(C first, N second, C third) override { Set(first, second, third); }
  void SetKey(C first, N second, N third) override { Set(first, second, third); }
  void SetKey(N first, S second, S third) override { Set(first, second, third); }
  void SetKey(N first, S second, C third) override { Set(first, second, third); }
  void SetKey(N first, S second, N third) override { Set(first, second, third); }
  void SetKey(N first, C second, S third) override { Set(first, second, third); }
  void SetKey(N first, C second, C third) override { Set(first, second, third); }
  void SetKey(N first, C second, N third) override { Set(first, second, third); }
  void SetKey(N first, N second, S third) override { Set(first, second, third); }
  void SetKey(N first, N second, C third) override { Set(first, second, third); }
  void SetKey(S first, S second) override { Set(first, second); }
  void SetKey(S first, C second) override { Set(first, second); }
  void SetKey(S first, N second) override { Set(first, second); }
  void SetKey(C first, S second) override { Set(first, second); }
  void SetKey(C first, C second) override { Set(first, second); }
  void SetKey(C first, N second) override { Set(first, second); }
  void SetKey(N first, S second) override { Set(first, second); }
  void SetKey(N first, C second) override { Set(first, second); }
  void SetKey(S first) override { Set(first); }
  void SetKey(C first) override { Set(first); }
  void SetKey(N first, N second, N third) override { Set(first, second, third); }
  void SetKey(N first, N second) override { Set(first, second); }
  void SetKey(N first) override { Set(first); }

  // One component as it was read; `kind` says which value is set.
  struct Part {
    std::int32_t kind = keyNone;
    long number = 0;
    char id[kMostName + 1] = {};
    casn cas;
  };
  // Calls the overload of SetKey for the kinds of these parts, at most kPlaces; does nothing for
  // none.
  void SetParts(std::span<Part const> parts);

  void ClearKey() override;
  void SetKeyWords(long count, std::int32_t const* words) override;
  void SetKeyText(long count, char const* text) override;

  std::int32_t GetCompCount() const override { return count_; }
  std::int32_t GetCompKind(std::int32_t position) const override;
  void GetCompCasn(std::int32_t position, casn& number) const override;
  void GetCompText(std::int32_t position, char* text) const override;
  void GetCompNumber(std::int32_t position, long& number) const override;
  std::int32_t const* GetKeyWords() const override { return words_.data(); }
  void FitCompCount(std::int32_t fullLength, std::int32_t shortLength) override;
  void ClearCache() override;
  bool ResolveKey(LibFile* library, std::int32_t mode, bool& swapped) override;
  void ReservedKey(void*, void*) override {}

 private:
  using Words = std::array<std::int32_t, format::kMaxKeyWords>;

  // Setting a component leaves the values of other kinds as they were: only the kind says which one
  // is valid.
  struct Place {
    std::int32_t kind = keyNone;
    std::int32_t number = 0;
    char id[kMostName + 1] = {};
    casn cas;
    std::int32_t cached = 0;  // number last found in the name index, 0 for none
  };

  template <typename... Parts>
  void Set(Parts const&... parts) {
    direct_ = false;
    count_ = sizeof...(Parts);
    for (Place& place : places_) place.kind = keyNone;
    std::size_t at = 0;
    (Put(places_[at++], parts), ...);
  }
  void Put(Place& place, casn const& number);
  void Put(Place& place, char const* id);
  void Put(Place& place, long number);
  Place const* PlaceAt(std::int32_t position) const;
  bool ResolvePlace(Place& place, LibFile* library, std::int32_t& word);
  static bool LookUp(LibFile* library, Place const& place, std::int32_t& number);

  bool direct_ = false;
  std::int32_t count_ = 0;
  std::array<Place, kPlaces> places_;
  // The words of a direct key as they were set. Each resolution starts from them, so that sorting
  // for one bank does not hide from the next one that the pair was set in the other order.
  Words given_{};
  Words words_{};
};

// The wider layer of a key; null for null. Nearly every key is a Key_i, and that comparison is much
// faster than a dynamic_cast.
inline Key_p* InnerKey(Key* key) noexcept {
  if (key != nullptr && typeid(*key) == typeid(Key_i)) return static_cast<Key_i*>(key);
  return dynamic_cast<Key_p*>(key);
}

}  // namespace zel
