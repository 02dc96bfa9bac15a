// Translates what the library throws into exceptions of the desk.
#pragma once

#include <zelaccess/BlockError.h>
#include <zelaccess/DeskErrors.h>

#include <filesystem>
#include <new>
#include <string>
#include <system_error>

#include "desk/open/library.h"
#include "desk/open/session.h"
#include "desk/words/failure.h"

namespace zel::desk {

// Does the work. Block errors are thrown as DamagedLibrary, unknown words as UnknownWord, errors of
// the file system as Error.
template <typename Work>
auto Guarded(Session const& session, Work const& work) {
  // Another session that had named a library for names may have closed it.
  if (session.names != nullptr && zel::LibFile::GetOrdwinNameIndex() == nullptr) {
    zel::LibFile::SetOrdwinNameIndex(&session.names->File());
  }
  try {
    return work();
  } catch (unsigned long const address) {
    zel::BlockError const error(address);
    std::string const block =
        address == zel::kNoBlockAddress ? "" : "block " + std::to_string(address) + " ";
    throw DamagedLibrary(session.ShownPath(error.File()), block + error.Reason());
  } catch (WrongUsage const& error) {
    throw UnknownWord("", error.what());
  } catch (std::filesystem::filesystem_error const& error) {
    if (error.code() == std::errc::not_enough_memory) throw std::bad_alloc();
    throw Error(error.path1().string(), error.code().message());
  }
}

}  // namespace zel::desk
