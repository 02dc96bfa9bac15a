#include <windows.h>

#include "desk/files/data_input.h"
#include "desk/files/windows_calls.h"

namespace zel::desk {

DataInput::DataInput(std::filesystem::path const& path)
    : path_(path), file_(OpenHandle(path, GENERIC_READ, kShareAll, OPEN_EXISTING, 0)) {
  if (file_ == -1) Refuse();
}

DataInput::~DataInput() { Close(file_); }

// Library files have no holes here, unless they are damaged; those are read as zeros.
std::int64_t DataInput::NextData(std::int64_t at) const { return at; }

std::int64_t DataInput::Size() const {
  LARGE_INTEGER size{};
  if (!::GetFileSizeEx(HandleOf(file_), &size)) Refuse();
  return size.QuadPart;
}

std::size_t DataInput::Read(std::vector<char>& piece, std::int64_t at) const {
  std::size_t done = 0;
  while (done < piece.size()) {
    OVERLAPPED place = PlaceAt(static_cast<std::uint64_t>(at) + done);
    DWORD moved = 0;
    if (!::ReadFile(HandleOf(file_), piece.data() + done, static_cast<DWORD>(piece.size() - done),
                    &moved, &place)) {
      if (::GetLastError() == ERROR_HANDLE_EOF) break;
      Refuse();
    }
    if (moved == 0) break;
    done += moved;
  }
  return done;
}

void DataInput::Refuse() const { RefuseLast(path_); }

}  // namespace zel::desk
