// Where the data of a pure component came from: three lists, each returned whole, flat, or by
// index.
#include <algorithm>

#include "purecomp/pure_comp.h"

namespace zel {
namespace {

constexpr std::size_t kRow = std::tuple_size_v<SourceText>;

template <std::size_t N>
using Texts = std::array<SourceText, N>;
template <std::size_t N>
using Flags = std::array<std::uint8_t, N>;

template <std::size_t N>
ZelStatus GiveAll(Texts<N> const& from, Flags<N> const& fromFlags, char** texts,
                  std::uint8_t* flags) {
  if (NothingWanted(texts, flags)) return kStatusFailed;
  for (std::size_t i = 0; texts != nullptr && i < N; ++i) {
    GiveText(from[i].data(), texts[i], kRow);
  }
  if (flags != nullptr) std::copy(fromFlags.begin(), fromFlags.end(), flags);
  return kStatusOk;
}

template <std::size_t N>
ZelStatus GiveFlat(Texts<N> const& from, Flags<N> const& fromFlags, char* texts,
                   std::uint8_t* flags) {
  if (NothingWanted(texts, flags)) return kStatusFailed;
  for (std::size_t i = 0; texts != nullptr && i < N; ++i) {
    CopyText(from[i].data(), texts + kRow * i, kRow);
  }
  if (flags != nullptr) std::copy(fromFlags.begin(), fromFlags.end(), flags);
  return kStatusOk;
}

template <std::size_t N>
ZelStatus GiveOne(Texts<N> const& from, Flags<N> const& fromFlags, std::uint32_t index, char* text,
                  std::uint8_t* flag) {
  if (index >= N || NothingWanted(text, flag)) return kStatusFailed;
  GiveText(from[index].data(), text, kRow);
  Give(flag, fromFlags[index]);
  return kStatusOk;
}

}  // namespace

ZelStatus PureComp_i::GetAllPropertySources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.fixedSources, c_.fixedSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllPropertySourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.fixedSources, c_.fixedSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetPropertySource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.fixedSources, c_.fixedSourceFlags, index, text, flag);
}

ZelStatus PureComp_i::GetAllCorrelationSources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.correlationSources, c_.correlationSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllCorrelationSourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.correlationSources, c_.correlationSourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetCorrelationSource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.correlationSources, c_.correlationSourceFlags, index, text, flag);
}

ZelStatus PureComp_i::GetAllIdentitySources(char** texts, std::uint8_t* flags) {
  return GiveAll(c_.identitySources, c_.identitySourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetAllIdentitySourcesFlat(char* texts, std::uint8_t* flags) {
  return GiveFlat(c_.identitySources, c_.identitySourceFlags, texts, flags);
}
ZelStatus PureComp_i::GetIdentitySource(std::uint32_t index, char* text, std::uint8_t* flag) {
  return GiveOne(c_.identitySources, c_.identitySourceFlags, index, text, flag);
}

}  // namespace zel
