// One library: opened, described and closed.
#include "library.h"

#include <zelaccess/OpenLibrary.h>

namespace zelc {
namespace {

struct OpenFailure {
  zel_status status;
  char const* reason;
};

// In the order of zel::openErrors.
constexpr OpenFailure kOpenFailures[] = {
    {ZEL_OK, ""},
    {ZEL_CANNOT_OPEN, "cannot be opened"},
    {ZEL_NOT_FOUND, "not found"},
    {ZEL_IN_USE, "in use by another program, or access denied"},
    {ZEL_CANNOT_OPEN, "not a library: a name that ends in .lb1 and a library's content are needed"},
    {ZEL_CANNOT_OPEN, "its second file is missing"},
    {ZEL_CANNOT_OPEN, "protected: a password is needed"},
    {ZEL_CANNOT_OPEN, "the password is wrong"},
    {ZEL_CANNOT_OPEN, "not closed cleanly"},
    {ZEL_CANNOT_OPEN, "not closed cleanly, and damaged"},
};
static_assert(std::size(kOpenFailures) == zel::openDamaged + 1, "each error has a reason");

static_assert(Agree(ZEL_UPDATE, zel::accUpdate) && Agree(ZEL_WRITES_MARKED, zel::writesMarked) &&
                  Agree(ZEL_WRITES_HELD, zel::writesHeld) &&
                  Agree(ZEL_UNCLEAN_REFUSED, zel::uncleanRefused) &&
                  Agree(ZEL_UNCLEAN_VERIFIED, zel::uncleanVerified),
              "the numbers are passed on");

zel::ZelOpenOptions OptionsFor(zel_open_options const* given) {
  zel_open_options const options = OptionsOf(given);
  zel::ZelOpenOptions result;
  result.mode = static_cast<zel::accModes>(NeedAmong(options.mode, ZEL_READ, ZEL_UPDATE, "mode"));
  result.writes = static_cast<zel::zelWriteModes>(
      NeedAmong(options.writes, ZEL_WRITES_PLAIN, ZEL_WRITES_HELD, "writes"));
  result.unclean = static_cast<zel::zelUncleanModes>(
      NeedAmong(options.unclean, ZEL_UNCLEAN_IGNORED, ZEL_UNCLEAN_VERIFIED, "unclean"));
  result.waitMilliseconds = options.wait_milliseconds;
  result.name = options.name;
  result.password = options.password;
  return result;
}

// An opened library; throws the reason if it was not opened.
std::unique_ptr<zel_library> Opened(char const* path, zel::Handle<zel::LibFile> file,
                                    zel::openErrors error) {
  if (!file) {
    OpenFailure const& failure = kOpenFailures[error == zel::openOk ? zel::openFailed : error];
    throw Refusal(failure.status, path, ": ", failure.reason);
  }
  zel::Handle<zel::LibMaint> maint(zel::LibMaint::NewLibMaint(file.get()));
  return std::unique_ptr<zel_library>(new zel_library{std::move(file), std::move(maint)});
}

std::string TextOf(zel_library const& library, std::int32_t which) {
  char description[101] = "";
  char version[13] = "";
  char memo[4000] = "";
  zel::LibFile const& file = *library.file;
  switch (which) {
    case ZEL_TEXT_NAME: return file.GetLibName();
    case ZEL_TEXT_PATH: return file.GetLibPath();
    case ZEL_TEXT_DESCRIPTION:
      file.GetDescriptionAndVersion(description, nullptr);
      return description;
    case ZEL_TEXT_VERSION: file.GetDescriptionAndVersion(nullptr, version); return version;
    case ZEL_TEXT_MEMO: file.GetMemo(memo); return memo;
    default: throw Refusal(ZEL_BAD_ARGUMENT, "a library has no such text");
  }
}

desk::Table BanksOf(zel_library& library) {
  zel::LibMaint& maint = *library.maint;
  desk::Table banks = zelc::EmptyTable("banks", {"type", "name", "items", "format"});
  std::vector<std::pair<std::string, std::string>> names;
  char type[9] = "";
  char name[9] = "";
  maint.BeginBankWalk();
  while (maint.NextBank(type, name)) names.emplace_back(type, name);
  for (auto const& [bankType, bankName] : names) {
    std::int64_t items = 0;
    std::int32_t key[10] = {};
    maint.BeginItemWalk(bankType.c_str(), bankName.c_str());
    while (maint.NextItemKey(key)) ++items;
    banks.Add(bankType, bankName, items,
              std::int64_t{maint.GetBankFormat(bankType.c_str(), bankName.c_str())});
  }
  maint.EndItemWalk();
  return banks;
}

}  // namespace

zel_library& NeedUpdate(zel_library* library) {
  zel::libTypes kind = zel::libKind11;
  zel::accModes mode = zel::accRead;
  Need(library, "library").file->GetLibInfo(kind, mode);
  if (mode != zel::accUpdate) throw Refusal(ZEL_READ_ONLY, "the library is open for reading");
  return *library;
}

void NeedBank(zel_library& library, std::string const& type, std::string const& name) {
  if (library.maint->BankExists(type.c_str(), name.c_str())) return;
  throw Refusal(ZEL_MISSING_BANK, "the library has no bank " + type + ":" + name);
}

}  // namespace zelc

using zelc::Guarded;
using zelc::MakeHandle;
using zelc::Need;
using zelc::Refusal;

zel_status zel_library_open(char const* path, zel_open_options const* options,
                            zel_library** library) {
  return MakeHandle(library, "library", [&] {
    zelc::Start();
    zel::openErrors error = zel::openFailed;
    zel::ZelOpenOptions const how = zelc::OptionsFor(options);
    zel::Handle<zel::LibFile> file(zel::OpenLibrary(&Need(path, "path"), how, error));
    return zelc::Opened(path, std::move(file), error);
  });
}

zel_status zel_library_create(char const* path, int32_t kind, zel_open_options const* options,
                              zel_library** library) {
  return MakeHandle(library, "library", [&] {
    zelc::Start();
    zel::openErrors error = zel::openFailed;
    zel::ZelOpenOptions const how = zelc::OptionsFor(options);
    if (how.password != nullptr && *how.password != '\0') {
      throw Refusal(ZEL_BAD_ARGUMENT, "a new library has no password");
    }
    auto const type =
        static_cast<zel::libTypes>(zelc::NeedAmong(kind, zel::libKind11, zel::libKind13, "kind"));
    zel::Handle<zel::LibFile> file(zel::NewLibrary(type, &Need(path, "path"), how, error));
    return zelc::Opened(path, std::move(file), error);
  });
}

zel_status zel_library_flush(zel_library* library) {
  return Guarded([&] { Need(library, "library").file->FlushLibFile(); });
}

zel_status zel_library_close(zel_library** library) {
  return Guarded([&] {
    Need(Need(library, "library"), "library");
    std::unique_ptr<zel_library> const owned(std::exchange(*library, nullptr));
    owned->maint.reset();
    owned->file->CloseLibFile();
  });
}

zel_status zel_library_describe(zel_library* library, zel_library_facts* facts) {
  return Guarded([&] {
    zel::LibFile& file = *Need(library, "library").file;
    zel_library_facts& out = Need(facts, "facts");
    zel::libTypes kind = zel::libKind11;
    zel::accModes mode = zel::accRead;
    zel::ZelLastClose last;
    file.GetLibInfo(kind, mode);
    zel::GetLastClose(&file, last);
    zel_library_facts found = {};
    found.kind = kind;
    found.mode = mode;
    file.GetPassword(found.password_level, nullptr);
    found.is_marked = last.isMarked ? 1 : 0;
    found.is_completed = last.isCompleted ? 1 : 0;
    found.has_foreign_journal = last.hasForeignJournal ? 1 : 0;
    out = found;
  });
}

zel_status zel_library_text(zel_library* library, int32_t which, char* text, size_t size,
                            size_t* length) {
  return Guarded(
      [&] { zelc::CopyText(zelc::TextOf(Need(library, "library"), which), text, size, length); });
}

zel_status zel_library_set_text(zel_library* library, int32_t which, char const* text) {
  return Guarded([&] {
    zel::LibFile& file = *zelc::NeedUpdate(library).file;
    Need(text, "text");
    switch (which) {
      case ZEL_TEXT_DESCRIPTION: file.SetDescriptionAndVersion(text, nullptr); return;
      case ZEL_TEXT_VERSION: file.SetDescriptionAndVersion(nullptr, text); return;
      case ZEL_TEXT_MEMO: file.SetMemo(text); return;
      default: throw Refusal(ZEL_BAD_ARGUMENT, "this text of a library cannot be set");
    }
  });
}

zel_status zel_library_banks(zel_library* library, zel_table** table) {
  return MakeHandle(table, "table",
                    [&] { return zelc::AsHandle(zelc::BanksOf(Need(library, "library"))); });
}

zel_status zel_library_create_bank(zel_library* library, char const* type, char const* name,
                                   int32_t format) {
  return Guarded([&] {
    zel::LibMaint& maint = *zelc::NeedUpdate(library).maint;
    if (!maint.CreateBank(&Need(type, "type"), &Need(name, "name"), format)) {
      throw Refusal(ZEL_FAILED, std::string("bank ") + type + ":" + name +
                                    " cannot be made: the bank exists, the type or its format does "
                                    "not, or a name has more than 8 characters");
    }
  });
}

zel_status zel_library_delete_bank(zel_library* library, char const* type, char const* name) {
  return Guarded([&] {
    zel_library& open = zelc::NeedUpdate(library);
    zelc::NeedBank(open, &Need(type, "type"), &Need(name, "name"));
    open.maint->DeleteBank(type, name);
  });
}
