// Where the data of a pure component came from: three lists, each returned whole, flat, or by
// index.
#include <algorithm>

#include "purecomp/pure_comp.h"

namespace zel {
namespace {

constexpr std::size_t kRow = SourceTable::kLongest + 1;

template <std::size_t N>
using Sources = std::array<SourceTable::Index, N>;
template <std::size_t N>
using Flags = std::array<std::uint8_t, N>;

template <std::size_t N>
ZelStatus GiveAll(SourceTable const& table, Sources<N> const& from, Flags<N> const& fromFlags,
                  char** texts, std::uint8_t* flags) {
  if (NothingWanted(texts, flags)) return kStatusFailed;
  for (std::size_t i = 0; texts != nullptr && i < N; ++i) {
    GiveText(table.At(from[i]), texts[i], kRow);
  }
  if (flags != nullptr) std::copy(fromFlags.begin(), fromFlags.end(), flags);
  return kStatusOk;
}

template <std::size_t N>
ZelStatus GiveFlat(SourceTable const& table, Sources<N> const& from, Flags<N> const& fromFlags,
                   char* texts, std::uint8_t* flags) {
  if (NothingWanted(texts, flags)) return kStatusFailed;
  for (std::size_t i = 0; texts != nullptr && i < N; ++i) {
    CopyText(table.At(from[i]), texts + kRow * i, kRow);
  }
  if (flags != nullptr) std::copy(fromFlags.begin(), fromFlags.end(), flags);
  return kStatusOk;
}

template <std::size_t N>
ZelStatus GiveOne(SourceTable const& table, Sources<N> const& from, Flags<N> const& fromFlags,
                  std::uint32_t index, char* text, std::uint8_t* flag) {
  if (index >= N || NothingWanted(text, flag)) return kStatusFailed;
  GiveText(table.At(from[index]), text, kRow);
  Give(flag, fromFlags[index]);
  return kStatusOk;
}

}  // namespace

ZelStatus PureComp_i::GetAllPropertySources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.sources, c_.fixedSources, c_.fixedSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllPropertySourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.sources, c_.fixedSources, c_.fixedSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetPropertySource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.sources, c_.fixedSources, c_.fixedSourceFlags, index, text, flag);
}

ZelStatus PureComp_i::GetAllCorrelationSources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.sources, c_.correlationSources, c_.correlationSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllCorrelationSourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.sources, c_.correlationSources, c_.correlationSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetCorrelationSource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.sources, c_.correlationSources, c_.correlationSourceFlags, index, text, flag);
}

ZelStatus PureComp_i::GetAllIdentitySources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.sources, c_.identitySources, c_.identitySourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllIdentitySourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.sources, c_.identitySources, c_.identitySourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.sources, c_.identitySources, c_.identitySourceFlags, index, text, flag);
}

}  // namespace zel
