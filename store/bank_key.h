// The key of a bank in the bank directory: type and name in 4 packed words.
#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

// Packs type and name, upper-cased and cut or padded to 8 characters each. A marked key (the bank's
// record format is above 1) has an "@" directly after the type. A type of 8 characters leaves no
// room for it; there the second word w becomes (w mod 100) x 100,000,000 + (w / 100) x 100 + 77, in
// 32 bits with wrap-around, 77 being the code of "@".
void MakeBankKey(std::string_view type, std::string_view name, std::int32_t* key,
                 bool marker) noexcept;

// Extracts type and name (9 characters each) from a key, marked or not. For the one type of 8
// characters whose marked word wraps around, the type is not recovered.
void UnpackBankKey(std::int32_t const* key, char* type, char* name) noexcept;

}  // namespace zel
