#include "tests/support/damage.h"
#include "tests/support/file_words.h"

#include <algorithm>

namespace zel::test {
namespace {

using Random = std::mt19937_64;
using Bytes = std::vector<std::byte>;

std::size_t Below(Random& random, std::size_t end) { return end == 0 ? 0 : random() % end; }

// A file, each as likely as it is long.
Bytes& AnyFile(LibraryBytes& library, Random& random) {
  std::size_t const all = library.file[0].size() + library.file[1].size();
  return library.file[Below(random, all) < library.file[0].size() ? 0 : 1];
}

// A piece of a file.
struct Place {
  Bytes& bytes;
  std::size_t from;
  std::size_t to;
};
Place AnyPlace(LibraryBytes& library, Random& random, std::size_t step) {
  Bytes& bytes = AnyFile(library, random);
  std::size_t const from = Below(random, (bytes.size() + step - 1) / step) * step;
  return {bytes, from, std::min(bytes.size(), from + step)};
}

void Garble(Place const& place, Random& random) {
  for (std::size_t at = place.from; at < place.to; ++at) {
    place.bytes[at] = static_cast<std::byte>(random() % 256);
  }
}
void Clear(Place const& place) {
  std::fill(place.bytes.begin() + static_cast<std::ptrdiff_t>(place.from),
            place.bytes.begin() + static_cast<std::ptrdiff_t>(place.to), std::byte{0});
}

void FlipBit(LibraryBytes& library, Random& random) {
  Place const place = AnyPlace(library, random, 1);
  if (place.from < place.to) place.bytes[place.from] ^= static_cast<std::byte>(1 << (random() % 8));
}
void ChangeByte(LibraryBytes& library, Random& random) {
  Garble(AnyPlace(library, random, 1), random);
}
void ChangeWord(LibraryBytes& library, Random& random) {
  Garble(AnyPlace(library, random, 4), random);
}
void ClearWord(LibraryBytes& library, Random& random) { Clear(AnyPlace(library, random, 4)); }
void GarbleSector(LibraryBytes& library, Random& random) {
  Garble(AnyPlace(library, random, 512), random);
}
void ClearSector(LibraryBytes& library, Random& random) { Clear(AnyPlace(library, random, 512)); }
void GarblePage(LibraryBytes& library, Random& random) {
  Garble(AnyPlace(library, random, 4096), random);
}
void ClearPage(LibraryBytes& library, Random& random) { Clear(AnyPlace(library, random, 4096)); }

void Cut(LibraryBytes& library, Random& random) {
  Bytes& bytes = AnyFile(library, random);
  bytes.resize(Below(random, bytes.size()));
}

// A whole block of the first or the second file.
void ClearBlock(LibraryBytes& library, Random& random) {
  Bytes& bytes = AnyFile(library, random);
  std::size_t const size = &bytes == &library.file[0] ? 1000 : 4000;
  std::size_t const from = Below(random, (bytes.size() + size - 1) / size) * size;
  Clear({bytes, from, std::min(bytes.size(), from + size)});
}
void SwapBlocks(LibraryBytes& library, Random& random) {
  Bytes& bytes = AnyFile(library, random);
  std::size_t const size = &bytes == &library.file[0] ? 1000 : 4000;
  std::size_t const blocks = bytes.size() / size;
  if (blocks < 2) return;
  auto const at = [&](std::size_t block) {
    return bytes.begin() + static_cast<std::ptrdiff_t>(block * size);
  };
  std::size_t const a = Below(random, blocks);
  std::size_t const b = Below(random, blocks);
  if (a != b) std::swap_ranges(at(a), at(a) + static_cast<std::ptrdiff_t>(size), at(b));
}
void ClearHeader(LibraryBytes& library, Random&) {
  Clear({library.file[0], 0, std::min<std::size_t>(library.file[0].size(), 1000)});
}
void ClearTable(LibraryBytes& library, Random&) {
  std::size_t const size = library.file[0].size();
  Clear({library.file[0], std::min<std::size_t>(size, 1000), std::min<std::size_t>(size, 2000)});
}
void ClearHeads(LibraryBytes& library, Random&) {
  Bytes& bytes = library.file[0];
  std::int32_t const address = bytes.size() >= 24 ? FileWord(&bytes[20]) : 0;
  std::size_t const from = (static_cast<std::size_t>(address % 1'000'000) - 1) * 1000;
  if (from < bytes.size()) Clear({bytes, from, std::min(bytes.size(), from + 1000)});
}
void RemoveSecond(LibraryBytes& library, Random&) { library.file[1].clear(); }

constexpr DamageKind kKinds[] = {{"bits", true, FlipBit},
                                 {"bytes", true, ChangeByte},
                                 {"words", true, ChangeWord},
                                 {"words zero", true, ClearWord},
                                 {"sectors", true, GarbleSector},
                                 {"sectors zero", true, ClearSector},
                                 {"pages", true, GarblePage},
                                 {"pages zero", true, ClearPage},
                                 {"blocks zero", true, ClearBlock},
                                 {"blocks swapped", true, SwapBlocks},
                                 {"cut", false, Cut},
                                 {"header zero", false, ClearHeader},
                                 {"table zero", false, ClearTable},
                                 {"heads zero", false, ClearHeads},
                                 {"no second file", false, RemoveSecond}};

}  // namespace

std::span<DamageKind const> DamageKinds() { return kKinds; }

}  // namespace zel::test
