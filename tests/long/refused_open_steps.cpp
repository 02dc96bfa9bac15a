// Steps of OpenLibrary.h and Salvage.h, and the ends of the classes for drivers.
#include <zelaccess/Salvage.h>

#include <cstring>
#include <fstream>
#include <stdexcept>

#include "tests/long/refusals.h"
#include "tests/long/refused_state.h"
#include "tests/long/refused_steps.h"

namespace zel::test {
namespace {

ZelOpenOptions For(accModes mode, zelWriteModes writes, zelUncleanModes unclean = uncleanIgnored) {
  ZelOpenOptions options;
  options.mode = mode;
  options.writes = writes;
  options.unclean = unclean;
  options.waitMilliseconds = 5;
  return options;
}

Handle<LibFile> OpenedAs(Bench& b, char const* name, ZelOpenOptions const& options) {
  openErrors error = openFailed;
  return Handle<LibFile>(OpenLibrary(b.Path(name), options, error));
}

// --- worlds that were not closed cleanly ---------------------------------------------------------

// The files of the world if a host is killed at the operation `at` of a flush.
Files KilledAt(Bench& b, long at) {
  Handle<LibFile> const library = OpenedAs(b, kLibraryFile, For(accUpdate, writesHeld));
  library->SetMemo("the memo of a flush that is cut off");
  try {
    Refusing const refusing({Refused::kFiles, at, true, EIO, true});
    library->FlushLibFile();
    throw std::logic_error("no operation cuts off a flush after its first step");
  } catch (unsigned long) {
    return FilesIn(b.folder);
  }
}

// The first files that have a complete journal: nothing else is changed.
Files MakeCutOff(Bench& b) {
  Files const whole = FilesIn(b.folder);
  for (long at = 1;; ++at) {
    Files const killed = KilledAt(b, at);
    PutFiles(b.folder, killed, FilesIn(b.folder));
    ZelLastClose close;
    GetLastClose(OpenedAs(b, kLibraryFile, For(accRead, writesPlain)).get(), close);
    PutFiles(b.folder, whole, FilesIn(b.folder));
    if (close.isCompleted) return killed;
  }
}
Files const& CutOffFiles(Bench& b) {
  static Files const files = MakeCutOff(b);
  return files;
}
void CutOff(Bench& b) { PutFiles(b.folder, CutOffFiles(b), FilesIn(b.folder)); }
void Mark(Bench& b) { std::ofstream(b.Path("world.lb1.open")).flush(); }
// A journal that does not fit, since another program has changed the library, and a mark.
void MarkAndJournal(Bench& b) {
  Files files = CutOffFiles(b);
  Handle<LibFile> library = OpenedAs(b, kLibraryFile, For(accUpdate, writesPlain));
  library->SetMemo("the memo of another program");
  library.reset();
  std::ofstream(b.Path("world.lb1.journal"), std::ios::binary) << files["world.lb1.journal"];
  Mark(b);
}

// The other library with a block of zeros instead of a node, and a mark.
void Break(Bench& b) {
  Files files = FilesIn(b.folder);
  files["broken.lb1"] = files[kOtherFile];
  files["broken.lb2"] = files["other.lb2"].replace(4000, 4000, 4000, '\0');
  files["other.lb2"] = FilesIn(b.folder)["other.lb2"];
  files["broken.lb1.open"] = "";
  PutFiles(b.folder, files, FilesIn(b.folder));
}

// --- opening -------------------------------------------------------------------------------------

void Open(Bench& b, Outcome& o, char const* name, ZelOpenOptions const& options) {
  b.made.reset();
  openErrors error = openFailed;
  b.made.reset(OpenLibrary(b.Path(name), options, error));
  o.Opened(b.made.get(), error);
  if (b.made == nullptr) return;
  ZelLastClose close;
  o.Done(GetLastClose(b.made.get(), close));
  o.Add(
      static_cast<long long>(close.isMarked + 2 * close.isCompleted + 4 * close.hasForeignJournal));
  char memo[4000] = {};
  b.made->GetMemo(memo);
  o.Add(memo);
}
// An open that is refused for the way in which the library was closed.
void OpenNot(Bench& b, Outcome& o, char const* name, ZelOpenOptions const& options,
             openErrors expected) {
  openErrors error = openFailed;
  b.made.reset(OpenLibrary(b.Path(name), options, error));
  o.Done(b.made == nullptr && error == expected);
}
void Make(Bench& b, Outcome& o, zelWriteModes writes) {
  b.made.reset();
  openErrors error = openFailed;
  ZelOpenOptions options = For(accRead, writes);
  options.name = "new";
  b.made.reset(NewLibrary(libKind12, b.Path(kNewFile), options, error));
  o.Opened(b.made.get(), error);
  if (b.made == nullptr) return;
  b.made->SetMemo("memo of the new library");
  b.made->FlushLibFile();
  LibFile* made = b.made.release();
  LibFile::DelLibFile(made);
}

Steps OpeningSteps() {
  return {
      {"open as the options say", "OpenLibrary GetLastClose", Opens::kNothing, kWhole, nullptr,
       [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accRead, writesPlain)); }},
      {"open with marked writes", "OpenLibrary GetLastClose", Opens::kNothing, kWhole, nullptr,
       [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accUpdate, writesMarked)); }},
      {"open with held writes", "OpenLibrary GetLastClose", Opens::kNothing, kWhole, nullptr,
       [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accUpdate, writesHeld)); }},
      {"open after a flush that was cut off", "OpenLibrary GetLastClose", Opens::kNothing,
       kWhole | kOnce, CutOff,
       [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accUpdate, writesHeld)); }},
      {"read after a flush that was cut off", "OpenLibrary GetLastClose", Opens::kNothing, kWhole,
       CutOff, [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accRead, writesPlain)); }},
      {"finish a flush", "FinishLastFlush", Opens::kNothing, kWhole, CutOff,
       [](Bench& b, Outcome& o) {
         o.Done(FinishLastFlush(b.Path(kLibraryFile), false) == openOk);
       }},
      {"finish a flush of a locked library", "FinishLastFlush", Opens::kNothing, kWhole, CutOff,
       [](Bench& b, Outcome& o) { o.Done(FinishLastFlush(b.Path(kLibraryFile), true) == openOk); }},
      {"finish nothing", "FinishLastFlush", Opens::kNothing, kWhole, nullptr,
       [](Bench& b, Outcome& o) {
         o.Done(FinishLastFlush(b.Path(kLibraryFile), false) == openOk);
       }},
      {"open what is marked", "OpenLibrary GetLastClose", Opens::kNothing, kWhole, Mark,
       [](Bench& b, Outcome& o) { Open(b, o, kLibraryFile, For(accRead, writesPlain)); }},
      {"refuse what is marked", "OpenLibrary", Opens::kNothing, kWhole, Mark,
       [](Bench& b, Outcome& o) {
         OpenNot(b, o, kLibraryFile, For(accUpdate, writesHeld, uncleanRefused),
                 openUncleanlyClosed);
       }},
      {"verify what is marked, and read", "OpenLibrary GetLastClose", Opens::kNothing, kWhole, Mark,
       [](Bench& b, Outcome& o) {
         Open(b, o, kLibraryFile, For(accRead, writesPlain, uncleanVerified));
       }},
      {"verify what is marked, and update", "OpenLibrary GetLastClose", Opens::kNothing,
       kWhole | kOnce, MarkAndJournal,
       [](Bench& b, Outcome& o) {
         Open(b, o, kLibraryFile, For(accUpdate, writesMarked, uncleanVerified));
       }},
      {"verify what is damaged", "OpenLibrary", Opens::kNothing, kWhole, Break,
       [](Bench& b, Outcome& o) {
         OpenNot(b, o, "broken.lb1", For(accRead, writesPlain, uncleanVerified), openDamaged);
       }},
      {"forget an unclean close", "ForgetUncleanClose", Opens::kNothing, kWhole, MarkAndJournal,
       [](Bench& b, Outcome& o) { o.Done(ForgetUncleanClose(b.Path(kLibraryFile))); }},
      {"make a library as the options say", "NewLibrary", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) { Make(b, o, writesPlain); }},
      {"make a library with marked writes", "NewLibrary", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) { Make(b, o, writesMarked); }},
      {"make a library with held writes", "NewLibrary", Opens::kNothing, kPlain, nullptr,
       [](Bench& b, Outcome& o) { Make(b, o, writesHeld); }},
  };
}

// --- salvage -------------------------------------------------------------------------------------

class LossFinder final : public ZelSalvageSink {
 public:
  void Salvaged(ZelSalvageRecord const& record) override {
    bool const isOfFile = record.kind == salvageHeader && std::strstr(record.text, "cannot be");
    hasUnread = hasUnread || isOfFile;
  }
  bool hasUnread = false;  // a file, or a part of it
};

void Salvage(Bench& b, Outcome& o) {
  b.made.reset();
  openErrors error = openFailed;
  libTypes type{};
  o.Done(FindLibraryType(b.Path("broken.lb1"), type) == openOk);
  if (o.HasFailed()) return;
  o.Add(static_cast<long long>(type));
  b.made.reset(LibFile::NewLibFile(type, b.Path(kNewFile), error));
  o.Opened(b.made.get(), error);
  if (b.made == nullptr) return;
  LossFinder sink;
  ZelSalvageCounts counts;
  o.Done(SalvageLibrary(b.Path("broken.lb1"), "", b.made.get(), &sink, counts) == openOk);
  o.Add(static_cast<long long>(counts.items));
  // What was in a part of a file that cannot be read is lost, and reported.
  o.Done(!sink.hasUnread);
}

// --- the classes for drivers ---------------------------------------------------------------------

template <typename Wide, typename Made>
Wide* WideOf(Made* made) {
  return dynamic_cast<Wide*>(made);
}

void EndDrivers(Bench& b, Outcome& o) {
  Key_p* key = WideOf<Key_p>(Key::NewKey());
  Key_p::DelKey(key);
  LibSearch_p* search = WideOf<LibSearch_p>(LibSearch::NewLibSearch());
  LibSearch_p::DelLibSearch(search);
  LibMaint_p* maint = WideOf<LibMaint_p>(LibMaint::NewLibMaint(b.library.get()));
  LibMaint_p::DelLibMaint(maint);
  openErrors error = openFailed;
  LibFile_p* library =
      WideOf<LibFile_p>(LibFile::OpenLibFile(accRead, b.Path(kOtherFile), "", error));
  o.Opened(library, error);
  LibFile_p::DelLibFile(library);
}

}  // namespace

Steps OpenSteps() {
  Steps steps = OpeningSteps();
  steps.push_back(
      {"salvage", "FindLibraryType SalvageLibrary", Opens::kNothing, kPlain, Break, Salvage});
  steps.push_back({"end objects of drivers",
                   "Key_p::DelKey LibSearch_p::DelLibSearch LibMaint_p::DelLibMaint "
                   "LibFile_p::DelLibFile",
                   Opens::kRead, kPlain, nullptr, EndDrivers});
  return steps;
}

}  // namespace zel::test
