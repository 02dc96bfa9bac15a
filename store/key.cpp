#include "store/key.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "frame/ascii.h"
#include "store/lib_file.h"
#include "store/packed_text.h"

namespace zel {

Key::~Key() = default;
Key_p::~Key_p() = default;

Key* Key::NewKey() { return new Key_i; }

void Key::DelKey(Key*& key) {
  delete key;
  key = nullptr;
}

void Key_p::DelKey(Key_p*& key) {
  delete key;
  key = nullptr;
}

void Key_i::Put(Place& place, casn const& number) {
  place.kind = keyCas;
  place.cas = static_cast<long>(number);  // validated again
}

void Key_i::Put(Place& place, char const* id) {
  place.kind = keyText;
  CopyText(TextOrEmpty(id), place.id, sizeof place.id);
  for (char& c : place.id) c = ToUpper(c);
}

void Key_i::Put(Place& place, long number) {
  place.kind = keyNumber;
  place.number = static_cast<std::int32_t>(number);
}

void Key_i::SetParts(std::span<Part const> parts) {
  if (parts.empty()) return;
  ClearKey();
  for (Part const& part : parts) {
    Place& place = places_[static_cast<std::size_t>(count_++)];
    switch (part.kind) {
      case keyText: Put(place, part.id); break;
      case keyCas: Put(place, part.cas); break;
      default: Put(place, part.number); break;
    }
  }
}

void Key_i::ClearKey() {
  direct_ = false;
  count_ = 0;
  for (Place& place : places_) place.kind = keyNone;
}

void Key_i::SetKeyWords(long count, std::int32_t const* words) {
  direct_ = count >= 1 && words != nullptr;
  count_ = direct_ ? static_cast<std::int32_t>(std::min<long>(count, format::kMaxKeyWords)) : 0;
  if (!direct_) return;
  given_.fill(0);
  std::copy_n(words, count_, given_.begin());
  words_ = given_;
}

void Key_i::SetKeyText(long count, char const* text) {
  Words words;
  TextToWords(TextOrEmpty(text), words.data(), format::kMaxKeyWords);
  SetKeyWords(count, words.data());
}

// Null for a position outside the key, and for a direct key, whose places hold values of an earlier
// use.
Key_i::Place const* Key_i::PlaceAt(std::int32_t position) const {
  if (direct_ || position < 0 || position >= kPlaces) return nullptr;
  return &places_[static_cast<std::size_t>(position)];
}

std::int32_t Key_i::GetCompKind(std::int32_t position) const {
  Place const* place = PlaceAt(position);
  return place == nullptr ? keyNone : place->kind;
}

void Key_i::GetCompCasn(std::int32_t position, casn& number) const {
  Place const* place = PlaceAt(position);
  number = place != nullptr && place->kind == keyCas ? place->cas : casn();
}

void Key_i::GetCompText(std::int32_t position, char* text) const {
  Place const* place = PlaceAt(position);
  if (place != nullptr && place->kind == keyCas) return;  // left unchanged on purpose
  bool const isText = place != nullptr && place->kind == keyText;
  GiveText(isText ? place->id : "", text, sizeof place->id);
}

void Key_i::GetCompNumber(std::int32_t position, long& number) const {
  Place const* place = PlaceAt(position);
  number = 0;
  if (place == nullptr) return;
  if (place->kind == keyNumber) number = place->number;
  if (place->kind == keyCas) number = place->cas;
}

void Key_i::FitCompCount(std::int32_t fullLength, std::int32_t shortLength) {
  if (fullLength == shortLength || count_ == fullLength) return;
  if (count_ == 1 && fullLength == 2) {
    places_[1] = places_[0];
    given_[1] = given_[0];
    count_ = 2;
    return;
  }
  std::int32_t const length = std::clamp(fullLength, 0, format::kMaxKeyWords);
  for (std::int32_t i = std::max(shortLength, 0); i < length; ++i) {
    if (i < kPlaces) {
      Place& place = places_[static_cast<std::size_t>(i)];
      place.kind = keyNumber;
      place.number = kWildcard;
      place.cached = 0;
    }
    given_[static_cast<std::size_t>(i)] = kWildcard;
  }
  count_ = length;
}

void Key_i::ClearCache() {
  for (Place& place : places_) place.cached = 0;
}

bool Key_i::LookUp(LibFile* library, Place const& place, std::int32_t& number) {
  auto* inner = dynamic_cast<LibFile_p*>(library);
  if (inner == nullptr) return false;
  std::int32_t const* data = nullptr;
  bool const found = place.kind == keyText ? inner->FindIdNumbers(place.id, data)
                                           : inner->FindCasNumbers(place.cas, data);
  if (found) number = data[0];
  return found;
}

// The word of an ID or a CAS number. The host's own library is searched first, the name index only
// when that does not have the component.
bool Key_i::ResolvePlace(Place& place, LibFile* library, std::int32_t& word) {
  if (place.kind != keyText && place.kind != keyCas) return true;
  if (library != LibFile_i::NameIndex() && LookUp(library, place, word)) return true;
  if (place.cached == 0) {
    NameIndexUse const index;
    if (!LookUp(index.Library(), place, place.cached)) return false;
  }
  word = place.cached;
  return true;
}

bool Key_i::ResolveKey(LibFile* library, std::int32_t mode, bool& swapped) {
  swapped = false;
  if (direct_) {
    words_ = given_;
  } else {
    for (std::int32_t i = 0; i < std::min(count_, kPlaces); ++i) {
      auto const at = static_cast<std::size_t>(i);
      Place& place = places_[at];
      if (place.kind == keyNumber) {
        words_[at] = place.number;
      } else if (!ResolvePlace(place, library, words_[at])) {
        return false;
      }
    }
  }
  if (mode != 1 && mode != 2) return true;
  auto const count = static_cast<std::size_t>(count_);
  bool moved = false;
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t k = i + 1; k < count; ++k) {
      if (words_[i] <= words_[k]) continue;
      std::swap(words_[i], words_[k]);
      moved = true;
    }
  }
  swapped = moved && mode == 2;
  return true;
}

}  // namespace zel
