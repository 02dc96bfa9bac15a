// Steps of LibFile.h, LibFile_p.h and BlockError.h.
#include <cstring>

#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

void OpenOther(Bench& b) {
  openErrors error{};
  b.other.reset(LibFile::OpenLibFile(accRead, b.Path(kOtherFile), "", error));
}
void CloseFirst(Bench& b) { b.library->CloseLibFile(); }
void ChangeMemo(Bench& b) { b.library->SetMemo("changed and not yet flushed"); }
void Protect(Bench& b) {
  b.library->SetPassword(1, "open sesame");
  b.maint.reset();
  b.library.reset();
}
void Facts(Bench& b, Outcome& o) {
  libTypes type{};
  accModes mode{};
  b.library->GetLibInfo(type, mode);
  char description[101];
  char version[13];
  b.library->GetDescriptionAndVersion(description, version);
  std::int32_t first = 0;
  std::int32_t second = 0;
  b.library->GetReservedWords(first, second);
  std::int32_t level = 0;
  char password[101];
  b.library->GetPassword(level, password);
  o.Add(static_cast<long long>(std::strlen(b.library->GetLibName())));
  o.Add(static_cast<long long>(std::strlen(b.library->GetLibPath())));
  for (char const* text : {description, version, password}) o.Add(text);
  for (std::int32_t word : {std::int32_t{type}, std::int32_t{mode}, first, second, level}) {
    o.Add(static_cast<long long>(word));
  }
  o.Add(static_cast<long long>(b.library->IsPasswordLocked()));
}

}  // namespace

Steps LibrarySteps() {
  return {
      {"make a library", "LibFile::NewLibFile LibFile::DelLibFile", Opens::kNothing, kPlain,
       nullptr,
       [](Bench& b, Outcome& o) {
         b.made.reset();
         openErrors error = openFailed;
         b.made.reset(LibFile::NewLibFile(libKind12, b.Path(kNewFile), "new", error));
         o.Opened(b.made.get(), error);
       }},
      {"make a library named by its path", "LibFile::NewLibFile LibFile::CloseLibFile",
       Opens::kNothing, kOnce, nullptr,
       [](Bench& b, Outcome& o) {
         openErrors error = openFailed;
         b.made.reset(LibFile::NewLibFile(libKind13, b.Path(kNewFile), error));
         o.Opened(b.made.get(), error);
         if (b.made != nullptr) b.made->CloseLibFile();
       }},
      {"open for reading", "LibFile::OpenLibFile", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         openErrors error = openFailed;
         libTypes type{};
         b.made.reset(LibFile::OpenLibFile(accRead, b.Path(kLibraryFile), "name", "", error, type));
         o.Opened(b.made.get(), error);
         if (b.made != nullptr) o.Add(static_cast<long long>(type));
       }},
      {"open for update", "LibFile::OpenLibFile", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.made.reset();
         openErrors error = openFailed;
         b.made.reset(LibFile::OpenLibFile(accUpdate, b.Path(kLibraryFile), "", error));
         o.Opened(b.made.get(), error);
         LibFile* made = b.made.release();
         LibFile::DelLibFile(made);
       }},
      {"open with a password", "LibFile::OpenLibFile", Opens::kUpdate, kPlain, Protect,
       [](Bench& b, Outcome& o) {
         b.made.reset();
         openErrors error = openFailed;
         b.made.reset(LibFile::OpenLibFile(accUpdate, b.Path(kLibraryFile), "open sesame", error));
         o.Opened(b.made.get(), error);
       }},
      {"status", "LibFile::StatusLibFile", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         libTypes type{};
         openErrors error = openFailed;
         LibFile::StatusLibFile(b.Path(kLibraryFile), type, error);
         o.Done(error == openOk);
         if (error == openOk) o.Add(static_cast<long long>(type));
       }},
      {"reopen", "LibFile::ReopenLibFile", Opens::kRead, kPlain, CloseFirst,
       [](Bench& b, Outcome& o) { o.Done(b.library->ReopenLibFile() == openOk); }},
      {"reopen for update", "LibFile::ReopenLibFile", Opens::kUpdate, kPlain, CloseFirst,
       [](Bench& b, Outcome& o) { o.Done(b.library->ReopenLibFile() == openOk); }},
      {"flush", "LibFile::FlushLibFile", Opens::kUpdate, kPlain, ChangeMemo,
       [](Bench& b, Outcome& o) {
         b.library->FlushLibFile();
         o.Done(true);
       }},
      {"close", "LibFile::CloseLibFile", Opens::kUpdate, kMayLose | kOnce, ChangeMemo,
       [](Bench& b, Outcome& o) {
         b.library->CloseLibFile();
         o.Done(true);
       }},
      {"close for reading", "LibFile::CloseLibFile", Opens::kRead, kOnce, nullptr,
       [](Bench& b, Outcome& o) {
         b.library->CloseLibFile();
         o.Done(true);
       }},
      {"end while open", "LibFile::DelLibFile GetLostFlushes", Opens::kUpdate, kMayLose | kOnce,
       ChangeMemo,
       [](Bench& b, Outcome& o) {
         std::int32_t const lost = GetLostFlushes(nullptr, nullptr);
         b.maint.reset();
         LibFile* library = b.library.release();
         LibFile::DelLibFile(library);
         unsigned long address = 0;
         char path[260] = {};
         o.Done(GetLostFlushes(path, &address) == lost);
       }},
      {"facts",
       "LibFile::GetLibName LibFile::GetLibPath LibFile::GetLibInfo "
       "LibFile::GetDescriptionAndVersion LibFile::GetReservedWords LibFile::GetPassword "
       "LibFile::IsPasswordLocked",
       Opens::kUpdate, kPlain, nullptr, Facts},
      {"set description", "LibFile::SetDescriptionAndVersion LibFile::SetReservedWords",
       Opens::kUpdate, kParts, nullptr,
       [](Bench& b, Outcome& o) {
         b.library->SetDescriptionAndVersion("another description", "2");
         b.library->SetReservedWords(5, 6);
         o.Done(true);
       }},
      {"set password", "LibFile::SetPassword", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.library->SetPassword(2, "secret");
         o.Add(static_cast<long long>(b.library->IsPasswordLocked()));
       }},
      {"memo", "LibFile::GetMemo", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         char memo[4001] = {};
         b.library->GetMemo(memo);
         o.Add(memo);
       }},
      {"set memo", "LibFile::SetMemo", Opens::kUpdate, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         b.library->SetMemo("another memo, which is longer than the one before it was");
         o.Done(true);
       }},
      {"name index",
       "LibFile::SetOrdwinNameIndex LibFile::GetOrdwinNameIndex LibFile::ClearOrdwinNameIndex "
       "LibMaint::FindNumberById",
       Opens::kRead, kPlain, OpenOther,
       [](Bench& b, Outcome& o) {
         LibMaint* other = nullptr;
         LibFile::SetOrdwinNameIndex(b.library.get());
         try {
           other = LibMaint::NewLibMaint(b.other.get());
           bool isFromIndex = false;
           o.Add(static_cast<long long>(other->FindNumberById("C4", isFromIndex)));
           o.Add(static_cast<long long>(isFromIndex));
         } catch (...) {
           LibMaint::DelLibMaint(other);
           LibFile::ClearOrdwinNameIndex();
           throw;
         }
         LibMaint::DelLibMaint(other);
         o.Add(static_cast<long long>(LibFile::GetOrdwinNameIndex() == b.library.get()));
         LibFile::ClearOrdwinNameIndex();
       }},
      {"blocks", "LibFile_p::WriteBlock LibFile_p::ReadBlock LibFile_p::FreeBlock", Opens::kUpdate,
       kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         std::int32_t words[24] = {1, 2, 3};
         std::int32_t address = 990'000'000;
         o.Done(b.Inside().WriteBlock(address, 24, words, 1) == 96);
         if (address == 990'000'000) return;
         std::int32_t read[24] = {};
         o.Done(b.Inside().ReadBlock(address, 24, read) == 96);
         if (o.HasFailed()) return;
         o.Add(static_cast<long long>(read[2]));
         b.Inside().FreeBlock(address, 24);
         o.Add(static_cast<long long>(address));
       }},
      {"directory of a driver",
       "LibFile_p::FindBank LibFile_p::HasBank LibFile_p::FindIdNumbers LibFile_p::FindCasNumbers",
       Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         std::int32_t const* data = nullptr;
         o.Add(static_cast<long long>(b.Inside().FindBank("VANLAAR", kPairs, data, false)));
         o.Add(static_cast<long long>(b.Inside().HasBank("VANLAAR", kPairs)));
         if (b.Inside().FindIdNumbers("C1", data)) o.Add(static_cast<long long>(*data));
         if (b.Inside().FindCasNumbers(casn("74-84-0"), data)) {
           o.Add(static_cast<long long>(*data));
         }
       }},
      {"header of a driver",
       "LibFile_p::GetHeaderBlocks LibFile_p::GetBankTree LibFile_p::GetCharIdTree "
       "LibFile_p::GetCasTree LibFile_p::ReservedLib1 LibFile_p::ReservedLib2 "
       "LibFile_p::ReservedLib3",
       Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         std::int32_t const* header = nullptr;
         std::int32_t const* table = nullptr;
         std::int32_t const* heads = nullptr;
         b.Inside().GetHeaderBlocks(&header, &table, &heads);
         o.Add(static_cast<long long>(heads[3]));
         o.Add(static_cast<long long>((b.Inside().GetBankTree() != nullptr) +
                                      (b.Inside().GetCharIdTree() != nullptr) +
                                      (b.Inside().GetCasTree() != nullptr)));
         b.Inside().ReservedLib1(nullptr, nullptr);
         b.Inside().ReservedLib2(nullptr, nullptr);
         b.Inside().ReservedLib3(nullptr, nullptr);
       }},
      {"details of an error", "GetBlockErrorInfo", Opens::kRead, kPlain, nullptr,
       [](Bench& b, Outcome& o) {
         std::int32_t words[24] = {};
         std::int32_t address = 990'000'000;
         try {
           b.Inside().WriteBlock(address, 24, words, 1);
         } catch (unsigned long thrown) {
           ZelBlockErrorInfo info;
           GetBlockErrorInfo(thrown, info);
           o.Add(info.reason);
         }
       }},
  };
}

}  // namespace zel::test
