#include "bench/published_components.h"

#include <stdexcept>
#include <string>

namespace zel::bench {

std::vector<std::unique_ptr<ComponentFace>> PublishedComponents(
    std::filesystem::path const& folder) {
  InitZelAccess();  // units
  std::vector<std::unique_ptr<ComponentFace>> components;
  for (char const* source : {"chemsep", "crc", "nist", "perry", "poling", "vdi"}) {
    openErrors error{};
    std::filesystem::path const path = folder / (std::string(source) + ".lb1");
    Handle<LibFile> library(LibFile::NewLibFile(libKind11, path.c_str(), error));
    if (!library) throw std::runtime_error("no library");
    Handle<LibMaint> maint(LibMaint::NewLibMaint(library.get()));
    std::filesystem::path const document =
        std::filesystem::path(ZEL_DATA) / (std::string(source) + ".xml");
    if (!maint->Import(document.c_str(), false)) throw std::runtime_error("no import");
    char type[9], bank[9];
    maint->BeginBankWalk("PURECOMP");
    maint->NextBank(type, bank);
    maint->EndBankWalk();
    maint->BeginItemWalk("PURECOMP", bank);
    std::int32_t key[6];
    for (;;) {
      auto component = std::make_unique<ComponentFace>("PURECOMP", IID_IZelPureComp);
      if (!maint->NextItem(key, component->Def())) break;
      components.push_back(std::move(component));
    }
    maint->EndItemWalk();
  }
  return components;
}

}  // namespace zel::bench
